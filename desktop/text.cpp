#include "desktop/text.h"

#include <algorithm>

#include "base/text.h"

namespace tallowbrook {

namespace {

constexpr char32_t firstStray = 0xDC80;
constexpr char32_t lastStray = 0xDCFF;
constexpr char16_t replacement = 0xFFFD;

// Marks that turn the writing direction, and characters without any width. The joiners of scripts
// and emoji aren't among them.
bool HidesOrTurns(char16_t unit) {
  constexpr char16_t singles[] = {0xAD, 0x61C, 0x200B, 0x200E, 0x200F, 0x2060, 0xFEFF};
  return (unit >= 0x202A && unit <= 0x202E) || (unit >= 0x2066 && unit <= 0x2069) ||
         std::ranges::find(singles, unit) != std::end(singles);
}

// The picture of a unit that would not show, or that would change how others show. Only glyphs
// that common fonts have.
char16_t Picture(char16_t unit) {
  switch (unit) {
    case '\t':
      return 0x21E5;
    case '\n':
    case '\r':
    case 0x85:
    case 0x2028:
    case 0x2029:
      return 0x21B5;
    default:
      return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || HidesOrTurns(unit) ? replacement
                                                                                : unit;
  }
}

}  // namespace

QString ToText(std::string_view bytes) {
  if (IsAscii(bytes))
    return QString::fromLatin1(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QString text;
  text.reserve(static_cast<qsizetype>(bytes.size()));
  while (!bytes.empty()) {
    const Character character = FirstCharacter(bytes);
    if (QChar::requiresSurrogates(character.code)) {
      text += QChar(QChar::highSurrogate(character.code));
      text += QChar(QChar::lowSurrogate(character.code));
    } else {
      text += QChar(static_cast<char16_t>(character.code));
    }
    bytes.remove_prefix(character.length);
  }
  return text;
}

std::string ToBytes(QStringView text) {
  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(text.size()));
  for (qsizetype at = 0; at < text.size(); ++at) {
    char32_t code = text[at].unicode();
    if (QChar::isHighSurrogate(code) && at + 1 < text.size() && text[at + 1].isLowSurrogate()) {
      code = QChar::surrogateToUcs4(text[at], text[at + 1]);
      ++at;
    } else if (QChar::isSurrogate(code) && (code < firstStray || code > lastStray)) {
      code = replacement;
    }
    AppendCharacter(bytes, code);
  }
  return bytes;
}

QString VisibleText(std::string_view bytes) {
  QString text = ToText(bytes);
  for (qsizetype at = 0; at < text.size(); ++at) {
    const char16_t unit = text[at].unicode();
    if (QChar::isHighSurrogate(unit)) {
      ++at;  // never alone: it comes from valid bytes
    } else if (const char16_t shown = QChar::isLowSurrogate(unit) ? replacement : Picture(unit);
               shown != unit) {
      text[at] = QChar(shown);
    }
  }
  return text;
}

QString VisibleLines(std::string_view bytes) {
  QString lines;
  for (std::string_view line : Split(bytes, '\n')) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines += VisibleText(line) + QLatin1Char('\n');
  }
  lines.chop(1);
  return lines;
}

QString PlainToolTip(const QString& text) {
  if (text.isEmpty()) return text;
  return QLatin1String("<p style='white-space:pre-wrap'>") + text.toHtmlEscaped() +
         QLatin1String("</p>");
}

QString WithAccessKey(std::string_view caption, char key) {
  const QString text = ToText(caption);
  qsizetype marked = -1;
  for (qsizetype at = 0; key && at < text.size(); ++at) {
    if (text[at].toLower() != QLatin1Char(key)) continue;
    const bool startsWord = at == 0 || !text[at - 1].isLetterOrNumber();
    if (marked < 0) marked = at;
    if (startsWord) {
      marked = at;
      break;
    }
  }
  QString result;
  for (qsizetype at = 0; at < text.size(); ++at) {
    if (at == marked) result += QLatin1Char('&');
    result += text[at];
    if (text[at] == QLatin1Char('&')) result += QLatin1Char('&');
  }
  return result;
}

}  // namespace tallowbrook
