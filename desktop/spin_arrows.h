// Two arrows inside a line that shows a number: the line and they look like one field.
#pragma once

#include <QLineEdit>
#include <functional>

namespace tallowbrook {

// Shown, greyed and moved with the line.
class SpinArrows : public QWidget {
 public:
  explicit SpinArrows(QLineEdit& line);

  QLineEdit& Line() const { return line_; }
  // An arrow is pressed, or is being held. The line has the focus by then.
  std::function<void(bool up)> pressed;

 protected:
  // Keeps its place when the line is resized.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Press(bool up);
  void Place();

  QLineEdit& line_;
};

}  // namespace tallowbrook
