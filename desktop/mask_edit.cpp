#include "desktop/mask_edit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>
#include <QStyleOptionFrame>
#include <QStylePainter>
#include <QSyntaxHighlighter>
#include <algorithm>

#include "desktop/contrast.h"
#include "desktop/text.h"
#include "desktop/theme.h"

namespace tallowbrook {

namespace {

// Between the frame and the text, and room for the caret behind the last character.
constexpr int textMargin = 2;

bool BreaksLine(QChar unit) {
  constexpr char16_t breaks[] = {'\n', '\r', 0x2028, 0x2029, 0xFDD0, 0xFDD1};
  return std::ranges::find(breaks, unit.unicode()) != std::end(breaks);
}

bool IsInsidePair(QStringView text, qsizetype at) {
  return at > 0 && at < text.size() && text[at - 1].isHighSurrogate() && text[at].isLowSurrogate();
}

// The toolkit counts units, the model characters: a pair of surrogates is one.
std::size_t CharactersBefore(QStringView text, qsizetype unit) {
  std::size_t characters = 0;
  for (qsizetype at = 0; at < unit; ++at) {
    if (!IsInsidePair(text, at)) ++characters;
  }
  return characters;
}

qsizetype UnitOf(QStringView text, std::size_t character) {
  qsizetype at = 0;
  for (; character > 0 && at < text.size(); --character) at += IsInsidePair(text, at + 1) ? 2 : 1;
  return at;
}

}  // namespace

class KeywordColours : public QSyntaxHighlighter {
 public:
  explicit KeywordColours(MaskEdit& edit) : QSyntaxHighlighter(edit.document()), edit_(edit) {}

  std::vector<MaskEdit::Stretch> keywords;

 protected:
  void highlightBlock(const QString&) override {
    const QColor colour = LegibleShade(keywordInk, {edit_.palette().color(QPalette::Base)});
    for (const auto& [start, length] : keywords) setFormat(start, length, colour);
  }

 private:
  MaskEdit& edit_;
};

MaskEdit::MaskEdit(QWidget* parent) : ExactTextEdit(parent), colours_(new KeywordColours(*this)) {
  setFrameShape(NoFrame);
  setLineWrapMode(NoWrap);
  setWordWrapMode(QTextOption::NoWrap);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTabChangesFocus(true);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  document()->setDocumentMargin(textMargin);
  viewport()->setAutoFillBackground(false);
  // A line that is higher than usual, by a character of another font, must not roll out of sight.
  connect(verticalScrollBar(), &QScrollBar::rangeChanged, this,
          [this] { verticalScrollBar()->setRange(0, 0); });
}

QString MaskEdit::OneLine(QString text) {
  std::ranges::replace_if(text, BreaksLine, QLatin1Char(' '));
  return text;
}

QString MaskEdit::Text() const {
  return OneLine(document()->toRawText());
}

void MaskEdit::ShowText(const QString& text) {
  const QString shown = document()->toRawText();
  if (shown == text) return;
  const auto [oldAt, newAt] = std::ranges::mismatch(shown, text);
  qsizetype same = oldAt - shown.begin();
  if (IsInsidePair(shown, same) || IsInsidePair(text, same)) --same;
  qsizetype sameEnd = 0;
  const qsizetype shorter = std::min(shown.size(), text.size());
  while (same + sameEnd < shorter &&
         shown[shown.size() - 1 - sameEnd] == text[text.size() - 1 - sameEnd]) {
    ++sameEnd;
  }
  if (IsInsidePair(text, text.size() - sameEnd)) --sameEnd;
  QTextCursor cursor(document());
  cursor.setPosition(static_cast<int>(same));
  cursor.setPosition(static_cast<int>(shown.size() - sameEnd), QTextCursor::KeepAnchor);
  cursor.insertText(text.mid(same, text.size() - same - sameEnd));
}

void MaskEdit::ShowKeywords(std::vector<Stretch> keywords) {
  if (colours_->keywords == keywords) return;
  colours_->keywords = std::move(keywords);
  colours_->rehighlight();
}

QSize MaskEdit::sizeHint() const {
  QStyleOptionFrame option;
  option.initFrom(this);
  option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
  // As a line edit wants it.
  const QSize text(fontMetrics().horizontalAdvance(QLatin1Char('x')) * 17 + 4, LineHeight() + 2);
  return style()->sizeFromContents(QStyle::CT_LineEdit, &option, text, this);
}

QSize MaskEdit::minimumSizeHint() const {
  const QSize usual = sizeHint();
  return {usual.width() / 2, usual.height()};
}

int MaskEdit::LineHeight() const {
  return std::max(fontMetrics().height(), 14);
}

bool MaskEdit::event(QEvent* event) {
  if (event->type() != QEvent::Paint) return QPlainTextEdit::event(event);
  PaintFrame();
  return true;
}

// The frame of a line edit, not that of a text area.
void MaskEdit::PaintFrame() {
  QStyleOptionFrame option;
  option.initFrom(this);
  option.lineWidth = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, this);
  option.state |= QStyle::State_Sunken;
  QStylePainter(this).drawPrimitive(QStyle::PE_PanelLineEdit, option);
}

void MaskEdit::PlaceText() {
  const int frame = style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, this) + 1;
  const int above = std::max((height() - fontMetrics().height()) / 2 - textMargin, 0);
  setViewportMargins(frame, above, frame, 1);
}

void MaskEdit::resizeEvent(QResizeEvent* event) {
  PlaceText();
  QPlainTextEdit::resizeEvent(event);
}

void MaskEdit::changeEvent(QEvent* event) {
  QPlainTextEdit::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    PlaceText();
    updateGeometry();
  }
  if (event->type() == QEvent::PaletteChange) colours_->rehighlight();
}

void MaskEdit::focusInEvent(QFocusEvent* event) {
  QPlainTextEdit::focusInEvent(event);
  update();
}

void MaskEdit::focusOutEvent(QFocusEvent* event) {
  QPlainTextEdit::focusOutEvent(event);
  update();
}

// What is being composed has colours of its own, which the toolkit puts in the place of ours.
void MaskEdit::inputMethodEvent(QInputMethodEvent* event) {
  QPlainTextEdit::inputMethodEvent(event);
  colours_->rehighlight();
}

// Enter is a command here and types nothing.
void MaskEdit::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return event->ignore();
  QPlainTextEdit::keyPressEvent(event);
}

void MaskEdit::insertFromMimeData(const QMimeData* source) {
  QMimeData line;
  // A line end of two characters is one blank.
  line.setText(OneLine(source->text().replace(QLatin1String("\r\n"), QLatin1String("\n"))));
  QPlainTextEdit::insertFromMimeData(&line);
}

MaskBinding::MaskBinding(MaskText& mask, MaskEdit& edit)
    : TypedBinding(mask, edit), mask_(mask), edit_(edit) {
  for (const auto signal : {&QPlainTextEdit::textChanged, &QPlainTextEdit::selectionChanged,
                            &QPlainTextEdit::cursorPositionChanged}) {
    connect(&edit, signal, this, [this] { Hear(); });
  }
}

// What the line can't show, such as a line break, stays in a mask that the user doesn't edit.
void MaskBinding::Hear() {
  if (Showing()) return;
  const QString text = edit_.Text();
  const QTextCursor cursor = edit_.textCursor();
  const std::size_t start = CharactersBefore(text, cursor.selectionStart());
  const std::size_t end = CharactersBefore(text, cursor.selectionEnd());
  if (text != MaskEdit::OneLine(ToText(mask_.Value()))) {
    mask_.Type(ToBytes(text), CharactersBefore(text, cursor.position()));
  }
  mask_.Select(start, end - start);
  Refresh();
}

void MaskBinding::ShowValue() {
  const QString text = MaskEdit::OneLine(ToText(mask_.Value()));
  edit_.setReadOnly(mask_.ReadOnly());
  edit_.ShowText(text);
  ShowCaret(text);
  ShowKeywords(text);
}

void MaskBinding::ShowCaret(QStringView text) {
  const int start = static_cast<int>(UnitOf(text, mask_.SelStart()));
  const int end = static_cast<int>(UnitOf(text, mask_.SelStart() + mask_.SelLength()));
  QTextCursor cursor = edit_.textCursor();
  if (cursor.selectionStart() == start && cursor.selectionEnd() == end) return;
  cursor.setPosition(start);
  cursor.setPosition(end, QTextCursor::KeepAnchor);
  edit_.setTextCursor(cursor);
}

void MaskBinding::ShowKeywords(QStringView text) {
  std::vector<MaskEdit::Stretch> stretches;
  for (const auto& [start, length] : mask_.Keywords()) {
    const qsizetype first = UnitOf(text, start);
    const qsizetype behind = UnitOf(text, start + length);
    stretches.push_back({static_cast<int>(first), static_cast<int>(behind - first)});
  }
  edit_.ShowKeywords(std::move(stretches));
}

bool MaskBinding::eventFilter(QObject* watched, QEvent* event) {
  const bool isPress = event->type() == QEvent::KeyPress;
  if (isPress || event->type() == QEvent::KeyRelease) {
    HearKey(*static_cast<QKeyEvent*>(event), isPress);
  } else if (event->type() == QEvent::FocusOut) {
    pressed_.clear();
  }
  return TypedBinding::eventFilter(watched, event);
}

// A key that is held counts once, and the Enter that closed a box over the mask doesn't.
void MaskBinding::HearKey(const QKeyEvent& event, bool isPress) {
  const int key = event.key();
  if (event.isAutoRepeat()) return;
  if (isPress) {
    pressed_.insert(key);
  } else if (pressed_.remove(key) && mask_.keyReleased) {
    mask_.keyReleased(key == Qt::Key_Return || key == Qt::Key_Enter);
  }
}

}  // namespace tallowbrook
