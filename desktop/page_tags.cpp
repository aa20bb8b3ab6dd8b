// Page "ID3v1 / ID3v2": the tag mask and what is to become of files that lack a tag.
#include <QCheckBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <utility>

#include "desktop/look.h"
#include "desktop/pages.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

// Tells the pages of each key that was pressed and is released in the mask. A key that is held
// counts once, and the Enter that closed a box over the mask doesn't.
class MaskKeys : public QObject {
 public:
  MaskKeys(RenamePages& pages, QObject* parent) : QObject(parent), pages_(pages) {}

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::KeyRelease) return false;
    const auto& keyEvent = static_cast<const QKeyEvent&>(*event);
    if (keyEvent.isAutoRepeat()) return false;
    const int key = keyEvent.key();
    if (event->type() == QEvent::KeyPress) {
      pressed_ = key;
    } else if (std::exchange(pressed_, 0) == key) {
      pages_.TagMaskKeyReleased(key == Qt::Key_Return || key == Qt::Key_Enter);
    }
    return false;
  }

 private:
  RenamePages& pages_;
  int pressed_ = 0;
};

}  // namespace

QWidget* MakeTagsPage(Form1& form, Binder& binder, QWidget* parent) {
  RenameSettings& s = form.settings;
  auto* page = new QWidget(parent);
  auto* outer = new QVBoxLayout(page);
  outer->setContentsMargins(margin, spacing, margin, margin);
  auto* panel = new QGroupBox(WithAccessKey(form.pages.Frame_ID3.Caption(), 'f'), page);
  binder.BindPanel(form.pages.Frame_ID3, panel);
  outer->addWidget(panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);

  QLineEdit* mask = binder.Add(s.RTxt_ID3Name, panel);
  mask->installEventFilter(new MaskKeys(form.pages, mask));
  QLabel* example = binder.Add(form.pages.Label_ID3Example, panel);
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
