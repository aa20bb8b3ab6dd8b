// The window's text: bytes of the core as QString and back, without a byte changing.
//
// File names may be any bytes. What is valid UTF-8 becomes the usual text; each stray byte becomes
// a lone surrogate, which no valid text holds, so that a name shown, edited and written back keeps
// what the user didn't touch.
#pragma once

#include <QString>
#include <string>
#include <string_view>

namespace tallowbrook {

// A stray byte b becomes U+DC00 + b.
QString ToText(std::string_view bytes);
// The inverse. A surrogate that stands for no byte becomes U+FFFD.
std::string ToBytes(QStringView text);

// For reading only: tabs and line ends as arrows; other control characters, stray bytes and marks
// that turn the writing direction as replacement characters. Every character keeps its place.
QString VisibleText(std::string_view bytes);
// The same for a text of several lines, whose line ends stay.
QString VisibleLines(std::string_view bytes);
// A tool tip that shows the text as it stands, whatever it looks like.
QString PlainToolTip(const QString& text);

// The caption for a button or label: "&" shows as itself, and the access key, a letter of the
// caption, is marked at the start of a word if there is one. 0, or a letter that the caption
// lacks, marks nothing.
QString WithAccessKey(std::string_view caption, char key);

}  // namespace tallowbrook
