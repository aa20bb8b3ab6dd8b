#include "desktop/keyword_picker_window.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/row_table.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

constexpr QSize firstSize(440, 460);

// The keywords of a list, for the tags without descriptions.
class KeywordModel : public RowModel {
 public:
  KeywordModel(const List& list, bool isDescribed) : list_(list), isDescribed_(isDescribed) {}

  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : (isDescribed_ ? 2 : 1);
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const std::size_t number = NumberOf(index);
    if (!number || role != Qt::DisplayRole) return {};
    return ToText(index.column() ? KeywordPicker::Description(number - 1)
                                 : list_.Items()[number - 1]);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? ToText(KeywordPicker::columns[section]) : QVariant();
  }

 protected:
  std::size_t CountRows() const override { return list_.Items().size(); }

 private:
  const List& list_;
  bool isDescribed_;
};

class KeywordTable : public RowTable {
 public:
  KeywordTable(KeywordPicker& picker, List& list, Binder& binder, QWidget* parent)
      : RowTable(parent), picker_(picker), list_(list), model_(list, &list == &picker.ListView1) {
    setModel(&model_);
    setSelectionMode(SingleSelection);
    horizontalHeader()->setVisible(model_.columnCount() > 1);
    horizontalHeader()->setStretchLastSection(true);
    setColumnWidth(0, 18 * fontMetrics().averageCharWidth());
    binder.BindPanel(list, this);
    binder.Watch(list, [this] { Show(); });
    Show();
  }

 protected:
  void RowDoubleClicked(std::size_t) override { picker_.Insert(); }
  void selectionChanged(const QItemSelection& selected, const QItemSelection& gone) override {
    RowTable::selectionChanged(selected, gone);
    const std::vector<std::size_t> rows = HighlightedRows();
    list_.Select(rows.empty() ? -1 : static_cast<int>(rows.front()) - 1);
  }
  // The view has a current row before one is selected; the first key selects it.
  void keyPressEvent(QKeyEvent* event) override {
    const bool steps = event->key() == Qt::Key_Down || event->key() == Qt::Key_Up;
    if (steps && list_.Index() < 0 && model_.rowCount() > 0) return selectRow(0);
    RowTable::keyPressEvent(event);
  }

 private:
  void Show() {
    model_.Sync();
    if (list_.Index() < 0) {
      clearSelection();
      if (!hasFocus()) scrollToTop();
    } else if (currentIndex().row() != list_.Index()) {
      selectRow(list_.Index());
    }
  }

  KeywordPicker& picker_;
  List& list_;
  KeywordModel model_;
};

}  // namespace

KeywordPickerWindow::KeywordPickerWindow(KeywordPicker& model, QWidget* over)
    : QDialog(over), model_(model), binder_(model.screen) {
  setObjectName(QStringLiteral("frmInsertKeyword"));
  setWindowTitle(ToText(KeywordPicker::caption));
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(margin);
  column->addLayout(MakeLists(), 1);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(spacing);
  buttons->addStretch();
  QPushButton* insert = binder_.Add(model.Cmd_Insert, this, 'i');
  insert->setDefault(true);
  buttons->addWidget(insert);
  buttons->addWidget(binder_.Add(model.Cmd_Cancel, this, 'd'));
  column->addLayout(buttons);
  model_.close = [this] { reject(); };
  connect(this, &QDialog::finished, this, [this] { model_.Closed(); });
  resize(firstSize);
}

KeywordPickerWindow::~KeywordPickerWindow() {
  model_.close = nullptr;
}

QLayout* KeywordPickerWindow::MakeLists() {
  auto* column = new QVBoxLayout;
  column->setSpacing(spacing);
  column->addWidget(binder_.Add(model_.Label1, this));
  column->addWidget(binder_.Add(model_.Label2, this));
  column->addWidget(new KeywordTable(model_, model_.List1, binder_, this), 1);
  column->addWidget(new KeywordTable(model_, model_.ListView1, binder_, this), 1);
  return column;
}

void KeywordPickerWindow::Open() {
  if (!isVisible()) move(parentWidget()->frameGeometry().topLeft() + windowOffset);
  show();
  raise();
  activateWindow();
  const Control& list = model_.List1.Visible() ? model_.List1 : model_.ListView1;
  findChild<QWidget*>(ToText(list.Name()))->setFocus();
}

}  // namespace tallowbrook
