#include "desktop/profile_dialogs.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/row_table.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

class ProfileModel : public RowModel {
 public:
  explicit ProfileModel(const ManageProfiles& profiles) : profiles_(profiles) {}

  // Names may be the same, IDs aren't.
  int columnCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() ? 0 : 2;
  }
  QVariant data(const QModelIndex& index, int role) const override {
    const std::size_t number = NumberOf(index);
    if (!number || role != Qt::DisplayRole) return {};
    const ProfileEntry& profile = profiles_.Rows()[number - 1];
    return index.column() == 0 ? VisibleText(profile.name) : QString::number(profile.id);
  }
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return section == 0 ? QStringLiteral("Profile Name") : QStringLiteral("ID");
  }
  void Reset() {
    NoteReset();
    Sync();
  }

 protected:
  std::size_t CountRows() const override { return profiles_.Rows().size(); }

 private:
  const ManageProfiles& profiles_;
};

class ProfileTable : public RowTable {
 public:
  ProfileTable(ManageProfiles& profiles, QWidget* parent)
      : RowTable(parent), profiles_(profiles), model_(profiles) {
    setObjectName(QStringLiteral("ListView1"));
    setModel(&model_);
    setSelectionMode(SingleSelection);
    horizontalHeader()->setSectionResizeMode(0, QHeaderView::Stretch);
    setColumnWidth(1, 10 * fontMetrics().averageCharWidth());
  }
  void Show() {
    if (showing_) return;
    showing_ = true;
    model_.Reset();
    if (!profiles_.Rows().empty()) selectRow(static_cast<int>(profiles_.SelectedRow()));
    showing_ = false;
  }

 protected:
  void selectionChanged(const QItemSelection& selected, const QItemSelection& gone) override {
    RowTable::selectionChanged(selected, gone);
    const std::vector<std::size_t> rows = HighlightedRows();
    if (showing_ || rows.empty()) return;
    showing_ = true;
    profiles_.Select(rows.front() - 1);
    showing_ = false;
  }

 private:
  ManageProfiles& profiles_;
  ProfileModel model_;
  bool showing_ = false;
};

}  // namespace

SaveProfileWindow::SaveProfileWindow(SaveProfileDialog& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmSaveProfile", SaveProfileDialog::caption, over,
                  windowOffset) {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  QLineEdit* name = Bind().Add(model.Txt_ProfileName, this);
  name->setMinimumWidth(name->fontMetrics().averageCharWidth() * 40);
  row->addWidget(Bind().AddCaption(model.Label1, name, 'p'));
  row->addWidget(name, 1);
  Body()->addLayout(row);
  AddButtons({{&model.Command_Save, 's'}, {&model.Command_Done, 'c'}});
  name->setFocus();
  name->selectAll();
}

ManageProfilesWindow::ManageProfilesWindow(ManageProfiles& model, QWidget* over)
    : ModelDialog(model.screen, model.close, "frmManageProfiles", ManageProfiles::caption, over,
                  windowOffset),
      model_(model) {
  auto* table = new ProfileTable(model, this);
  Body()->addWidget(table, 1);
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  QLineEdit* name = Bind().Add(model.Txt_ProfileName, this);
  row->addWidget(Bind().AddCaption(model.Label1, name, 'p'));
  row->addWidget(name, 1);
  Body()->addLayout(row);
  auto* outcome = new ElidedLabel(this);
  outcome->setObjectName(QStringLiteral("StatusPane0"));
  Body()->addWidget(outcome);
  // A row that is chosen by Enter mustn't lose what is stored in it.
  constexpr int done = 2;
  AddButtons({{&model.Command_Save, 's'}, {&model.Cmd_Delete, 'd'}, {&model.Command_Done, 'c'}},
             done);
  model.changed = [table] { table->Show(); };
  model.StatusBar1.changed = [&model, outcome](std::size_t) {
    outcome->ShowText(model.StatusBar1.Pane(0));
  };
  table->Show();
  table->setFocus();
  resize(460, 400);
}

ManageProfilesWindow::~ManageProfilesWindow() {
  model_.changed = nullptr;
  model_.StatusBar1.changed = nullptr;
}

}  // namespace tallowbrook
