#include "desktop/contrast.h"

#include <algorithm>
#include <cmath>

namespace tallowbrook {

namespace {

// Relative luminance, WCAG 2.
double Luminance(const QColor& colour) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
         0.0722 * linear(colour.blueF());
}

double LeastContrast(const QColor& colour, std::initializer_list<QColor> grounds) {
  double least = 21;
  for (const QColor& ground : grounds) least = std::min(least, Contrast(colour, ground));
  return least;
}

// `step` of `steps` on the way from a colour to another.
QColor Mix(const QColor& from, const QColor& to, int step, int steps) {
  const auto part = [&](int a, int b) { return a + (b - a) * step / steps; };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

}  // namespace

double Contrast(const QColor& a, const QColor& b) {
  const auto [darker, lighter] = std::minmax({Luminance(a), Luminance(b)});
  return (lighter + 0.05) / (darker + 0.05);
}

QColor LegibleShade(const QColor& colour, std::initializer_list<QColor> grounds) {
  constexpr int steps = 32;
  const QColor black(0, 0, 0), white(255, 255, 255);
  for (int step = 0; step <= steps; ++step) {
    for (const QColor& end : {white, black}) {
      const QColor shade = Mix(colour, end, step, steps);
      if (LeastContrast(shade, grounds) >= legibleContrast) return shade;
    }
  }
  return LeastContrast(white, grounds) > LeastContrast(black, grounds) ? white : black;
}

}  // namespace tallowbrook
