// Pictures of our own, read by libpng itself: before its own reader for them, the toolkit loads
// every plugin that reads some format and asks it, which is a tenth of the program's start.
#pragma once

#include <QImage>
#include <QString>

namespace tallowbrook {

// Null for a file that is missing or no whole PNG file.
QImage ReadPngFile(const QString& path);

}  // namespace tallowbrook
