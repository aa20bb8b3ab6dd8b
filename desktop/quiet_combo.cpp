#include "desktop/quiet_combo.h"

#include <QAbstractItemModel>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <algorithm>

namespace tallowbrook {

QuietCombo::QuietCombo(QWidget* parent) : QComboBox(parent) {
  setFocusPolicy(Qt::StrongFocus);
  setMaxVisibleItems(14);
  const auto fitAnew = [this] {
    widestItem_.reset();
    if (width_ == Width::OfItems) updateGeometry();
  };
  connect(model(), &QAbstractItemModel::rowsInserted, this, fitAnew);
  connect(model(), &QAbstractItemModel::rowsRemoved, this, fitAnew);
  connect(model(), &QAbstractItemModel::dataChanged, this, fitAnew);
  connect(model(), &QAbstractItemModel::modelReset, this, fitAnew);
}

void QuietCombo::SetWidth(Width width, int characters) {
  width_ = width;
  characters_ = characters;
  updateGeometry();
}

// setEditable makes the window that drops down too.
void QuietCombo::MakeEditable() {
  setLineEdit(new QLineEdit(this));
}

QSize QuietCombo::sizeHint() const {
  if (width_ == Width::OfFirstItems) return QComboBox::sizeHint();
  constexpr int besideIcon = 4;
  constexpr int frame = 2;
  constexpr int leastHeight = 14;
  const QFontMetrics metrics = fontMetrics();
  int width = characters_ * metrics.horizontalAdvance(QLatin1Char('X'));
  int height = std::max(metrics.height(), leastHeight) + frame;
  if (width_ == Width::OfCharacters) {
    width += iconSize().width() + besideIcon;
    height = std::max(height, iconSize().height() + frame);
  }
  if (width_ == Width::OfItems) width = std::max(width, WidestItem());
  QStyleOptionComboBox option;
  initStyleOption(&option);
  return style()->sizeFromContents(QStyle::CT_ComboBox, &option, {width, height}, this);
}

int QuietCombo::WidestItem() const {
  if (widestItem_) return *widestItem_;
  constexpr int charactersOfNone = 7;
  int widest =
      count() == 0 ? charactersOfNone * fontMetrics().horizontalAdvance(QLatin1Char('x')) : 0;
  for (int item = 0; item < count(); ++item) {
    widest = std::max(widest, fontMetrics().size(Qt::TextSingleLine, itemText(item)).width());
  }
  widestItem_ = widest;
  return widest;
}

void QuietCombo::changeEvent(QEvent* event) {
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    widestItem_.reset();
  }
  QComboBox::changeEvent(event);
}

}  // namespace tallowbrook
