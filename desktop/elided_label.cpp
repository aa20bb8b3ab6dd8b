#include "desktop/elided_label.h"

#include "desktop/text.h"

namespace tallowbrook {

ElidedLabel::ElidedLabel(QWidget* parent) : QLabel(parent) {
  setTextFormat(Qt::PlainText);
  // The text has no say in the width: a label that grew would lay out the window anew.
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::ShowText(std::string_view text) {
  QString shown = VisibleText(text);
  if (shown == whole_) return;
  whole_ = std::move(shown);
  Fit();
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  Fit();
}

void ElidedLabel::Fit() {
  const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideMiddle, contentsRect().width());
  setText(fitting);
  setToolTip(fitting == whole_ ? QString() : PlainToolTip(whole_));
}

}  // namespace tallowbrook
