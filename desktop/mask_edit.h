// The editor of a mask: one line of plain text with coloured keywords.
//
// It looks and behaves like any other line of the window. The colours lie over the text and are no
// part of it, so that undo and the input method know nothing of them.
#pragma once

#include <QSet>
#include <vector>

#include "desktop/binding.h"
#include "desktop/exact_text_edit.h"

namespace tallowbrook {

class KeywordColours;

class MaskEdit : public ExactTextEdit {
 public:
  explicit MaskEdit(QWidget* parent);

  // Each character as it stands, no-break spaces included.
  QString Text() const;
  // Changes what differs, as a step that can be undone. Line breaks become blanks.
  void ShowText(const QString& text);
  // Coloured stretches, in units of the text.
  struct Stretch {
    int start;
    int length;
    bool operator==(const Stretch&) const = default;
  };
  void ShowKeywords(std::vector<Stretch> keywords);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

  // `text` as a line shows it.
  static QString OneLine(QString text);

 protected:
  bool event(QEvent* event) override;
  void changeEvent(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
  void insertFromMimeData(const QMimeData* source) override;

 private:
  void PaintFrame();
  void PlaceText();
  int LineHeight() const;

  KeywordColours* colours_;
};

class MaskBinding : public TypedBinding {
 public:
  MaskBinding(MaskText& mask, MaskEdit& edit);

 protected:
  void ShowValue() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Hear();
  void HearKey(const QKeyEvent& event, bool isPress);
  void ShowCaret(QStringView text);
  void ShowKeywords(QStringView text);

  MaskText& mask_;
  MaskEdit& edit_;
  QSet<int> pressed_;  // keys that went down here
};

}  // namespace tallowbrook
