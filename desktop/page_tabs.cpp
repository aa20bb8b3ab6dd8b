#include "desktop/page_tabs.h"

#include <QKeySequence>
#include <QShortcut>
#include <QTabBar>

#include "desktop/page_properties.h"
#include "desktop/pages.h"
#include "desktop/text.h"

namespace tallowbrook {

PageTabs::PageTabs(Form1& form, Binder& binder, QWidget* parent) : QTabWidget(parent) {
  setObjectName(QStringLiteral("TabControl1"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  List& index = form.settings.TabIndex;
  AddPage(new PropertiesPage(form, binder, this), index.Items()[PageProperties]);
  AddPage(MakeDeletePage(form, binder, this), index.Items()[PageDelete]);
  AddPage(MakeReplacePage(form, binder, this), index.Items()[PageReplace]);
  AddPage(MakeAdvancedPage(form, binder, this), index.Items()[PageAdvanced]);
  AddPage(MakeTagsPage(form, binder, this), index.Items()[PageTags]);

  binder.Watch(index, [this, &index] { setCurrentIndex(index.Index()); });
  connect(this, &QTabWidget::currentChanged, this, [&index](int page) { index.Select(page); });
  setCurrentIndex(index.Index());
  form.pages.ShowTabPage(index.Index());
}

void PageTabs::AddPage(QWidget* page, const std::string& caption) {
  const int at = addTab(page, WithAccessKey(caption, 0));
  const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + at));
  setTabToolTip(at, key.toString(QKeySequence::NativeText));
  connect(new QShortcut(key, this), &QShortcut::activated, this,
          [this, at] { setCurrentIndex(at); });
}

}  // namespace tallowbrook
