// A box of plain text that is copied as it stands.
#pragma once

#include <QPlainTextEdit>

namespace tallowbrook {

class ExactTextEdit : public QPlainTextEdit {
 public:
  using QPlainTextEdit::QPlainTextEdit;

 protected:
  // The toolkit's own copy has a blank for each no-break space.
  QMimeData* createMimeDataFromSelection() const override;
};

}  // namespace tallowbrook
