// The toolkit's style with outlines of fields, check marks and bars in the colour of our own style,
// a frame around a list that has the keyboard, and our own scroll bars.
#pragma once

#include <QProxyStyle>

namespace tallowbrook {

// The style underneath makes its outlines a shade darker than the window's ground, which a dark
// window swallows.
class OutlineStyle : public QProxyStyle {
 public:
  OutlineStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                   const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;
  // A caption between the items of a menu has room around it.
  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;
  // What can't be used stands flat, since its light edge is made for light grounds. Buttons of
  // message boxes have no icons.
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* more) const override;
};

}  // namespace tallowbrook
