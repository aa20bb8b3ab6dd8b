#include "desktop/outline_style.h"

#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

#include "base/guards.h"
#include "desktop/look.h"
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
constexpr QStyle::ComplexControl complexControls[] = {QStyle::CC_ComboBox, QStyle::CC_SpinBox,
                                                      QStyle::CC_ScrollBar};

// Calls `draw` while the ground is what makes the outline ours. The option keeps its own type,
// which a copy of it would lose.
template <typename Elements, typename Element, typename Draw>
void DrawOutlined(const Elements& outlined, Element element, const QStyleOption* option,
                  const Draw& draw) {
  if (std::ranges::find(outlined, element) == std::end(outlined)) return draw();
  QPalette& palette = const_cast<QStyleOption*>(option)->palette;
  const QPalette own = palette;
  const Finally restore([&] { palette = own; });
  palette.setColor(QPalette::Window, CurrentTheme().fieldBorder.lighter(darker));
  draw();
}

}  // namespace

OutlineStyle::OutlineStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void OutlineStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                 QPainter* painter, const QWidget* widget) const {
  DrawOutlined(primitives, element, option,
               [&] { QProxyStyle::drawPrimitive(element, option, painter, widget); });
}

void OutlineStyle::drawControl(ControlElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
  DrawOutlined(controls, element, option,
               [&] { QProxyStyle::drawControl(element, option, painter, widget); });
}

void OutlineStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                      QPainter* painter, const QWidget* widget) const {
  DrawOutlined(complexControls, control, option,
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
