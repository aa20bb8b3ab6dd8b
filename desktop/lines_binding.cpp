#include "desktop/lines_binding.h"

#include <QPlainTextEdit>

#include "desktop/text.h"

namespace tallowbrook {

namespace {

// With "\n" at the end of each line, as the box has it.
QString ToLines(const std::string& bytes) {
  QString text = ToText(bytes);
  text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
  // The toolkit's own marks of a paragraph and a frame break a line as well.
  for (const char16_t end : {u'\r', u'\x2029', u'\xFDD0', u'\xFDD1'}) {
    text.replace(QChar(end), QLatin1Char('\n'));
  }
  return text;
}

// The raw text: the usual one has a blank for each no-break space.
QString LinesOf(const QPlainTextEdit& edit) {
  return edit.document()->toRawText().replace(QChar::ParagraphSeparator, QLatin1Char('\n'));
}

}  // namespace

LinesBinding::LinesBinding(TextLines& text, QPlainTextEdit& edit)
    : TypedBinding(text, edit), text_(text), edit_(edit) {
  edit.setTabChangesFocus(true);
  connect(&edit, &QPlainTextEdit::textChanged, this, [this] { Hear(); });
}

void LinesBinding::Hear() {
  if (Showing()) return;
  QString lines = LinesOf(edit_);
  if (lines == ToLines(text_.Value())) return;
  text_.Set(ToBytes(lines.replace(QLatin1Char('\n'), QLatin1String("\r\n"))));
}

// A new text comes without the way back to the old one.
void LinesBinding::ShowValue() {
  const QString lines = ToLines(text_.Value());
  if (LinesOf(edit_) != lines) edit_.setPlainText(lines);
  edit_.setReadOnly(text_.ReadOnly());
}

}  // namespace tallowbrook
