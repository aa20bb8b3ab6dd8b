#include "desktop/page_tabs.h"

#include <QKeySequence>
#include <QShortcut>
#include <QTabBar>
#include <QVBoxLayout>

#include "desktop/first_paint.h"
#include "desktop/page_properties.h"
#include "desktop/pages.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

bool IsReachedByKeys(const QWidget* widget) {
  return widget->focusPolicy() != Qt::NoFocus && !widget->focusProxy();
}

// What was made last stands at the end of the order of keys, behind widgets that come after it.
// Gives the page's last field.
QWidget* MoveIntoOrder(QWidget* page, QWidget* behind) {
  std::vector<QWidget*> fields;
  for (QWidget* next = page->nextInFocusChain(); page->isAncestorOf(next);
       next = next->nextInFocusChain()) {
    if (IsReachedByKeys(next)) fields.push_back(next);
  }
  for (QWidget* field : fields) {
    if (behind) QWidget::setTabOrder(behind, field);
    behind = field;
  }
  return behind;
}

}  // namespace

PageTabs::PageTabs(Form1& form, Binder& binder, QWidget* parent, MakePages when)
    : QTabWidget(parent), form_(form), binder_(binder) {
  setObjectName(QStringLiteral("TabControl1"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  List& index = form.settings.TabIndex;
  for (int number = 0; number < pageCount; ++number) {
    AddTab(number, index.Items()[static_cast<std::size_t>(number)]);
    if (when == MakePages::Now || number == PageProperties) Need(number);
  }
  if (when == MakePages::BehindFirstPaint) {
    BehindFirstPaint(*this, [this] {
      for (int number = 0; number < pageCount; ++number) Need(number);
    });
  }
  const auto show = [this, &index] {
    Need(index.Index());
    setCurrentIndex(index.Index());
  };
  binder.Watch(index, show);
  connect(this, &QTabWidget::currentChanged, this, [this, &index](int page) {
    Need(page);
    index.Select(page);
  });
  show();
  form.pages.ShowTabPage(index.Index());
}

void PageTabs::AddTab(int number, const std::string& caption) {
  auto* place = new QWidget(this);
  auto* whole = new QVBoxLayout(place);
  whole->setContentsMargins(0, 0, 0, 0);
  addTab(place, WithAccessKey(caption, 0));
  const QKeySequence key(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number));
  setTabToolTip(number, key.toString(QKeySequence::NativeText));
  connect(new QShortcut(key, this), &QShortcut::activated, this,
          [this, number] { setCurrentIndex(number); });
}

void PageTabs::Need(int number) {
  QWidget*& last = lastFields_.at(static_cast<std::size_t>(number));
  if (last) return;
  QWidget* before = nullptr;
  for (int page = 0; page < number; ++page) {
    if (QWidget* field = lastFields_.at(static_cast<std::size_t>(page))) before = field;
  }
  QWidget* page = Make(number, widget(number));
  widget(number)->layout()->addWidget(page);
  last = MoveIntoOrder(page, before);
}

QWidget* PageTabs::Make(int number, QWidget* place) {
  switch (number) {
    case PageProperties:
      return new PropertiesPage(form_, binder_, place);
    case PageDelete:
      return MakeDeletePage(form_, binder_, place);
    case PageReplace:
      return MakeReplacePage(form_, binder_, place);
    case PageAdvanced:
      return MakeAdvancedPage(form_, binder_, place);
    default:
      return MakeTagsPage(form_, binder_, place);
  }
}

}  // namespace tallowbrook
