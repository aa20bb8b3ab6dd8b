#include "desktop/spin_arrows.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

constexpr int arrowsWidth = 16;
constexpr int frameWidth = 2;  // of the line, with the ring that shows its focus

class Arrow : public QAbstractButton {
 public:
  Arrow(bool up, QWidget* parent) : QAbstractButton(parent), up_(up) {
    setObjectName(up ? QStringLiteral("Up") : QStringLiteral("Down"));
    setAccessibleName(objectName());
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_Hover);
    setAutoRepeat(true);
    setAutoRepeatDelay(350);
    setAutoRepeatInterval(60);
  }

  QSize sizeHint() const override { return {arrowsWidth - 1, 4}; }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isEnabled() && (isDown() || underMouse())) {
      painter.fillRect(rect(),
                       isDown() ? CurrentTheme().buttonPressed : CurrentTheme().buttonHover);
    }
    constexpr double halfWidth = 3.5;
    const double tall = up_ ? -halfWidth : halfWidth;
    const QPointF middle = QRectF(rect()).center();
    const QPointF corners[] = {middle + QPointF(-halfWidth, -tall / 2),
                               middle + QPointF(halfWidth, -tall / 2),
                               middle + QPointF(0, tall / 2)};
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Text));
    painter.drawPolygon(corners, 3);
  }

 private:
  bool up_;
};

}  // namespace

SpinArrows::SpinArrows(QLineEdit& line) : QWidget(&line), line_(line) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  for (const bool up : {true, false}) {
    auto* arrow = new Arrow(up, this);
    arrow->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(arrow, &QAbstractButton::pressed, this, [this, up] { Press(up); });
    column->addWidget(arrow);
  }
  setFocusProxy(&line);
  line.setTextMargins(0, 0, arrowsWidth, 0);
  line.installEventFilter(this);
  Place();
}

void SpinArrows::Place() {
  const QRect inside = line_.rect().adjusted(0, frameWidth, -frameWidth, -frameWidth);
  setGeometry(inside.adjusted(inside.width() - arrowsWidth, 0, 0, 0));
}

bool SpinArrows::eventFilter(QObject*, QEvent* event) {
  if (event->type() == QEvent::Resize) Place();
  return false;
}

void SpinArrows::Press(bool up) {
  line_.setFocus(Qt::MouseFocusReason);
  line_.deselect();
  if (pressed) pressed(up);
}

}  // namespace tallowbrook
