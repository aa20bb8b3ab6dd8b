#include "desktop/outline_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "base/guards.h"
#include "desktop/look.h"
#include "desktop/scroll_bar.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

// How much darker than the ground the outlines are made underneath, in per cent.
constexpr int darker = 140;

// The elements whose option's ground makes nothing but their outline.
constexpr QStyle::PrimitiveElement primitives[] = {QStyle::PE_Frame,
                                                   QStyle::PE_FrameMenu,
                                                   QStyle::PE_FrameLineEdit,
                                                   QStyle::PE_PanelLineEdit,
                                                   QStyle::PE_IndicatorCheckBox,
                                                   QStyle::PE_IndicatorRadioButton,
                                                   QStyle::PE_IndicatorItemViewItemCheck};
constexpr QStyle::ControlElement controls[] = {QStyle::CE_ProgressBar, QStyle::CE_ProgressBarGroove,
                                               QStyle::CE_ProgressBarContents};
constexpr QStyle::ComplexControl complexControls[] = {QStyle::CC_ComboBox, QStyle::CC_SpinBox};

// Calls `draw` while the ground is what makes that outline. The option keeps its own type,
// which a copy of it would lose.
template <typename Elements, typename Element, typename Draw>
void DrawOutlined(const Elements& outlined, Element element, const QStyleOption* option,
                  const QColor& outline, const Draw& draw) {
  if (std::ranges::find(outlined, element) == std::end(outlined)) return draw();
  QPalette& palette = const_cast<QStyleOption*>(option)->palette;
  const QPalette own = palette;
  const Finally restore([&] { palette = own; });
  palette.setColor(QPalette::Window, outline.lighter(darker));
  draw();
}

}  // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  DrawOutlined(primitives, element, option, CurrentTheme().fieldBorder,
               [&] { QProxyStyle::drawPrimitive(element, option, painter, widget); });
  // A list's frame tells that it has the keyboard, whether or not it has rows.
  if (element != PE_Frame || !(option->state & State_HasFocus)) return;
  const QRect& frame = option->rect;
  for (const QRect& edge : {QRect(frame.left(), frame.top(), frame.width(), 1),
                            QRect(frame.left(), frame.bottom(), frame.width(), 1),
                            QRect(frame.left(), frame.top(), 1, frame.height()),
                            QRect(frame.right(), frame.top(), 1, frame.height())}) {
    painter->fillRect(edge, CurrentTheme().focus);
  }
}

void OutlineStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  const auto* header = qstyleoption_cast<const QStyleOptionHeader*>(option);
  if (element == CE_HeaderLabel && header && header->textAlignment & Qt::AlignRight &&
      header->sortIndicator != QStyleOptionHeader::None) {
    // A caption at the right makes room for the arrow, which stands there.
    QStyleOptionHeader beside = *header;
    beside.rect.adjust(0, 0, -pixelMetric(PM_HeaderMarkSize, option, widget), 0);
    return QProxyStyle::drawControl(element, &beside, painter, widget);
  }
  DrawOutlined(controls, element, option, CurrentTheme().fieldBorder,
               [&] { QProxyStyle::drawControl(element, option, painter, widget); });
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  const auto* bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar) return DrawScrollBar(*proxy(), *bar, *painter, widget);
  DrawOutlined(complexControls, control, option, CurrentTheme().fieldBorder,
               [&] { QProxyStyle::drawComplexControl(control, option, painter, widget); });
}

QSize OutlineStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                     const QSize& contents, const QWidget* widget) const {
  constexpr int room = 8;
  const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  const auto* item = qstyleoption_cast<const QStyleOptionMenuItem*>(option);
  const bool isCaption = item && item->menuItemType == QStyleOptionMenuItem::Separator &&
                         !item->text.isEmpty() && type == CT_MenuItem;
  return isCaption ? size + QSize(0, room) : size;
}

int OutlineStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                            QStyleHintReturn* more) const {
  if (hint == SH_EtchDisabledText || hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, more);
}

}  // namespace tallowbrook
