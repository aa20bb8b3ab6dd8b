#include "desktop/exact_text_edit.h"

#include <QMimeData>

namespace tallowbrook {

QMimeData* ExactTextEdit::createMimeDataFromSelection() const {
  auto* copied = new QMimeData;
  copied->setText(
      textCursor().selectedText().replace(QChar::ParagraphSeparator, QLatin1Char('\n')));
  return copied;
}

}  // namespace tallowbrook
