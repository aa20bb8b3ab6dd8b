// How well a text can be read on its ground, and the shade in which a colour can be.
#pragma once

#include <QColor>
#include <initializer_list>

namespace tallowbrook {

// The least contrast of text of any size: WCAG 2, success criterion 1.4.3.
inline constexpr double legibleContrast = 4.5;

// The contrast ratio of WCAG 2, from 1 to 21.
double Contrast(const QColor& a, const QColor& b);

// The colour as it is if it is legible on all of these grounds, otherwise its nearest shade,
// lighter or darker, that is. Grounds that are far apart may leave none: then black or white,
// whichever does better.
QColor LegibleShade(const QColor& colour, std::initializer_list<QColor> grounds);

}  // namespace tallowbrook
