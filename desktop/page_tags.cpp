// Page "ID3v1 / ID3v2": the tag mask and what is to become of files that lack a tag.
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/pages.h"

namespace tallowbrook {

namespace {

// Tells the pages of each key that is released in the mask.
class MaskKeys : public QObject {
 public:
  MaskKeys(RenamePages& pages, QObject* parent) : QObject(parent), pages_(pages) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::KeyRelease) {
      const int key = static_cast<QKeyEvent*>(event)->key();
      pages_.TagMaskKeyReleased(key == Qt::Key_Return || key == Qt::Key_Enter);
    }
    return false;
  }

 private:
  RenamePages& pages_;
};

}  // namespace

QWidget* MakeTagsPage(Form1& form, Binder& binder, QWidget* parent) {
  RenameSettings& s = form.settings;
  auto* page = new QWidget(parent);
  auto* outer = new QVBoxLayout(page);
  outer->setContentsMargins(margin, spacing, margin, margin);
  auto* panel = new QGroupBox(QStringLiteral("New &File Name"), page);
  outer->addWidget(panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);

  QLineEdit* mask = binder.Add(s.RTxt_ID3Name, panel);
  mask->setToolTip(QStringLiteral("Keywords in angle brackets become the tag's texts"));
  mask->installEventFilter(new MaskKeys(form.pages, mask));
  auto* example = new QLabel(panel);
  example->setTextFormat(Qt::PlainText);
  example->setText(QStringLiteral("Example: <v1artist> - <v1title>.mp3"));
  example->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(mask);
  column->addWidget(example);
  column->addSpacing(spacing);
  column->addWidget(binder.Add(s.Check_AllInfoPresent, panel, 'r'));
  column->addWidget(binder.Add(s.Check_MP3Extension, panel, 't'));
  column->addStretch();
  return page;
}

}  // namespace tallowbrook
