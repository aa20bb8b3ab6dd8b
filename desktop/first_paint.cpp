#include "desktop/first_paint.h"

#include <QEvent>
#include <QTimer>

namespace tallowbrook {

namespace {

class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& widget, std::function<void()> work)
      : QObject(&widget), work_(std::move(work)) {
    widget.installEventFilter(this);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint) return false;
    watched->removeEventFilter(this);
    QTimer::singleShot(0, this, [this] {
      deleteLater();
      work_();
    });
    return false;
  }

 private:
  std::function<void()> work_;
};

}  // namespace

void BehindFirstPaint(QWidget& widget, std::function<void()> work) {
  new FirstPaint(widget, std::move(work));
}

}  // namespace tallowbrook
