#include "desktop/tag_editor_window.h"

#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <initializer_list>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

constexpr QSize firstSize(900, 620);
constexpr int linesShown = 3;
constexpr int charactersShown = 14;

// A line that is only read looks like none to type in, but can be read as well as any.
void ShowAsFixed(QLineEdit& line) {
  ShowLine(line, LineLook::Fixed);
  line.setFocusPolicy(Qt::ClickFocus);
}

// A group box whose rows are captions and fields, one below the other.
class FieldColumn {
 public:
  FieldColumn(const Frame& frame, Binder& binder, QWidget* parent)
      : box_(new QGroupBox(WithAccessKey(frame.Caption(), 0), parent)),
        grid_(new QGridLayout(box_)),
        binder_(binder) {
    grid_->setContentsMargins(margin, margin, margin, margin);
    grid_->setSpacing(spacing);
    grid_->setColumnStretch(1, 1);
  }

  QGroupBox* Box() const { return box_; }

  void Add(std::initializer_list<Text*> texts) {
    for (Text* text : texts) Place(*text, binder_.Add(*text, box_), Qt::AlignVCenter);
  }
  // Takes what height is left.
  void Add(TextLines& text) {
    QPlainTextEdit* edit = binder_.Add(text, box_);
    edit->setMinimumHeight(edit->fontMetrics().lineSpacing() * linesShown + 10);
    grid_->setRowStretch(row_, 1);
    Place(text, edit, Qt::AlignTop);
  }
  // What the file has, and beside it what a save writes.
  void AddGenre(Text& shown, List& chosen) {
    auto* pair = new QHBoxLayout;
    pair->setSpacing(spacing);
    QLineEdit* line = binder_.Add(shown, box_);
    ShowAsFixed(*line);
    line->setMinimumWidth(line->fontMetrics().averageCharWidth() * charactersShown);
    QuietCombo* combo = binder_.Add(chosen, box_);
    combo->SetWidth(QuietCombo::Width::OfCharacters, charactersShown);
    pair->addWidget(line, 1);
    pair->addWidget(combo, 1);
    QLabel* caption = binder_.AddCaption(shown, line);
    caption->setBuddy(combo);
    grid_->addWidget(caption, row_, 0, Qt::AlignRight | Qt::AlignVCenter);
    grid_->addLayout(pair, row_++, 1);
  }

 private:
  void Place(Text& text, QWidget* field, Qt::Alignment height) {
    QLabel* caption = binder_.AddCaption(text, field);
    if (height == Qt::AlignTop) caption->setContentsMargins(0, 4, 0, 0);
    grid_->addWidget(caption, row_, 0, Qt::AlignRight | height);
    grid_->addWidget(field, row_++, 1);
  }

  QGroupBox* box_;
  QGridLayout* grid_;
  Binder& binder_;
  int row_ = 0;
};

}  // namespace

// Widgets are made in the order in which Tab goes through them.
TagEditorWindow::TagEditorWindow(TagEditor& model, QWidget* over)
    : QDialog(over), model_(model), binder_(model.screen) {
  setObjectName(QStringLiteral("frmEditID3Tag"));
  setWindowTitle(ToText(TagEditor::caption));
  setWindowModality(Qt::WindowModal);
  QVBoxLayout* body = MakeBody(*this, model.statusBar, status_);
  body->addLayout(MakeFileName());
  auto* tags = new QHBoxLayout;
  tags->setSpacing(margin);
  tags->addWidget(MakeV1(), 1);
  tags->addWidget(MakeV2(), 1);
  body->addLayout(tags, 1);
  body->addLayout(MakeButtons());
  MakeKeys();
  model_.close = [this] { accept(); };
  resize(firstSize);
  findChild<QWidget*>(ToText(model.Txt_v1Artist.Name()))->setFocus();
  move(over->frameGeometry().topLeft() + windowOffset);
}

TagEditorWindow::~TagEditorWindow() {
  model_.close = nullptr;
}

// Only to be read, so that it shows what its characters are.
QLayout* TagEditorWindow::MakeFileName() {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  auto* line = new QLineEdit(this);
  line->setReadOnly(true);
  ShowAsFixed(*line);
  binder_.BindPanel(model_.Txt_FileName, line);
  const auto show = [this, line] {
    line->setText(VisibleText(model_.Txt_FileName.Value()));
    line->home(false);
  };
  binder_.Watch(model_.Txt_FileName, show);
  show();
  row->addWidget(binder_.AddCaption(model_.Txt_FileName, line));
  row->addWidget(line, 1);
  return row;
}

QWidget* TagEditorWindow::MakeV1() {
  TagEditor& m = model_;
  FieldColumn column(m.Frame1, binder_, this);
  column.Add({&m.Txt_v1Artist, &m.Txt_v1Title, &m.Txt_v1Album, &m.Txt_v1Track, &m.Txt_v1Year});
  column.AddGenre(m.Txt_v1Genre, m.Combo_v1Genre);
  column.Add(m.Txt_v1Comments);
  return column.Box();
}

QWidget* TagEditorWindow::MakeV2() {
  TagEditor& m = model_;
  FieldColumn column(m.Frame2, binder_, this);
  column.Add({&m.Txt_v2Artist, &m.Txt_v2Title, &m.Txt_v2Album, &m.Txt_v2Track, &m.Txt_v2Year});
  column.AddGenre(m.Txt_v2Genre, m.Combo_v2Genre);
  column.Add(m.Txt_v2Comments);
  column.Add({&m.Txt_v2OriginalArtist, &m.Txt_v2Copyright, &m.Txt_v2Composer, &m.Txt_v2EncodedBy,
              &m.Txt_v2LinkTo});
  column.Add(m.Txt_v2Lyrics);
  return column.Box();
}

QLayout* TagEditorWindow::MakeButtons() {
  struct Row {
    Button& button;
    char accessKey;
    const char* keys;
    bool gapBehind;
  };
  TagEditor& m = model_;
  const Row rows[] = {{m.Cmd_CopyV1toV2, 't', "", false},
                      {m.Cmd_CopyV2toV1, 'r', "", true},
                      {m.Cmd_Previous, 'p', "Alt+Left, Ctrl+PgUp", false},
                      {m.Cmd_Next, 'n', "Alt+Right, Ctrl+PgDown", true},
                      {m.Cmd_Save, 's', "Ctrl+S", false},
                      {m.Cmd_Close, 'c', "Esc", false}};
  auto* layout = new QHBoxLayout;
  layout->setSpacing(spacing);
  for (const auto& [button, accessKey, keys, gapBehind] : rows) {
    QPushButton* push = binder_.Add(button, this, accessKey);
    push->setAutoDefault(false);
    push->setMinimumWidth(push->sizeHint().width());
    push->setToolTip(QLatin1String(keys));
    // A click steps, saves or transfers and leaves the caret in its field.
    push->setFocusPolicy(Qt::TabFocus);
    layout->addWidget(push);
    if (gapBehind) layout->addStretch();
  }
  return layout;
}

void TagEditorWindow::MakeKeys() {
  const std::pair<QKeySequence, Button&> keys[] = {
      {QKeySequence(Qt::CTRL | Qt::Key_S), model_.Cmd_Save},
      {QKeySequence(Qt::CTRL | Qt::Key_PageDown), model_.Cmd_Next},
      {QKeySequence(Qt::CTRL | Qt::Key_PageUp), model_.Cmd_Previous},
      {QKeySequence(Qt::ALT | Qt::Key_Right), model_.Cmd_Next},
      {QKeySequence(Qt::ALT | Qt::Key_Left), model_.Cmd_Previous}};
  for (const auto& [key, button] : keys) {
    auto* shortcut = new QShortcut(key, this);
    // A held key may step on and on, but saves once.
    shortcut->setAutoRepeat(&button != &model_.Cmd_Save);
    connect(shortcut, &QShortcut::activated, this, [&pressed = button] { pressed.Press(); });
  }
}

void TagEditorWindow::keyPressEvent(QKeyEvent* event) {
  const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  auto* button = qobject_cast<QPushButton*>(focusWidget());
  if (isEnter && button) return button->click();
  QDialog::keyPressEvent(event);
}

}  // namespace tallowbrook
