// One line of plain text that is cut in its middle where it is too long; the whole text is then
// its tool tip.
#pragma once

#include <QLabel>
#include <string_view>

namespace tallowbrook {

class ElidedLabel : public QLabel {
 public:
  explicit ElidedLabel(QWidget* parent);
  void ShowText(std::string_view text);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Fit();
  QString whole_;
};

}  // namespace tallowbrook
