// Page "Advanced": what to change on the left; the mask or the date for it on the right.
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/mask_edit.h"
#include "desktop/pages.h"
#include "desktop/text.h"

namespace tallowbrook {

namespace {

QGroupBox* MakeTypePanel(Form1& form, Binder& binder, QWidget* page) {
  Frame& frame = form.pages.Frame_UpdateType;
  auto* panel = new QGroupBox(WithAccessKey(frame.Caption(), 0), page);
  binder.BindPanel(frame, panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);
  column->addWidget(binder.Add(form.settings.Option_ChangeFileName, panel, 'e'));
  column->addWidget(binder.Add(form.settings.Option_ChangeFileDate, panel, 't'));
  column->addStretch();
  return panel;
}

QGroupBox* MakeMaskPanel(Form1& form, Binder& binder, QWidget* page) {
  Frame& frame = form.pages.Frame_Advanced;
  auto* panel = KeepPlace(new QGroupBox(WithAccessKey(frame.Caption(), 0), page));
  binder.BindPanel(frame, panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  row->addWidget(binder.Add(form.settings.RTxt_Unique_Other, panel), 1);
  row->addWidget(binder.Add(form.pages.InsertKeyword1.styled, panel, 'k'));
  column->addLayout(row);
  QLabel* example = binder.Add(form.pages.Label_AdvancedExample, panel);
  example->setForegroundRole(QPalette::PlaceholderText);
  column->addWidget(example);
  column->addStretch();
  return panel;
}

QLayout* MakeTimeFields(RenameSettings& s, Binder& binder, QWidget* panel, QLabel** caption) {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  for (FreeList* field : {&s.Combo_AdvancedDate3, &s.Combo_AdvancedDate4, &s.Combo_AdvancedDate5}) {
    QComboBox* box = binder.Add(*field, panel);
    box->setMinimumContentsLength(3);
    if (!*caption) {
      *caption = binder.AddCaption(*field, box);
    } else {
      row->addWidget(new QLabel(QStringLiteral(":"), panel));
    }
    row->addWidget(box);
  }
  row->addStretch();
  return row;
}

QGroupBox* MakeDatePanel(Form1& form, Binder& binder, QWidget* page) {
  RenameSettings& s = form.settings;
  Frame& frame = form.pages.Frame_AdvancedDate;
  auto* panel = KeepPlace(new QGroupBox(WithAccessKey(frame.Caption(), 0), page));
  binder.BindPanel(frame, panel);
  auto* grid = new QGridLayout(panel);
  grid->setContentsMargins(margin, margin, margin, margin);
  grid->setSpacing(spacing);
  QComboBox* type = binder.Add(s.Combo_UpdateDateType, panel);
  QDateEdit* date = binder.Add(s.DTPicker_AdvancedDate, panel);
  QLabel* timeCaption = nullptr;
  QLayout* time = MakeTimeFields(s, binder, panel, &timeCaption);
  grid->addWidget(binder.AddCaption(s.Combo_UpdateDateType, type, 'u'), 0, 0);
  grid->addWidget(type, 0, 1);
  grid->addWidget(binder.AddCaption(s.DTPicker_AdvancedDate, date, 'h'), 1, 0);
  grid->addWidget(date, 1, 1);
  grid->addWidget(timeCaption, 2, 0);
  grid->addLayout(time, 2, 1);
  grid->addWidget(binder.Add(s.Check_UseCurrentDateTime, panel, 'r'), 3, 0, 1, 2);
  grid->setColumnStretch(2, 1);
  grid->setRowStretch(4, 1);
  return panel;
}

}  // namespace

QWidget* MakeAdvancedPage(Form1& form, Binder& binder, QWidget* parent) {
  auto* page = new QWidget(parent);
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(margin, spacing, margin, margin);
  row->setSpacing(spacing);
  row->addWidget(MakeTypePanel(form, binder, page));
  // Mask and date stand in one place.
  auto* place = new QGridLayout;
  place->addWidget(MakeMaskPanel(form, binder, page), 0, 0);
  place->addWidget(MakeDatePanel(form, binder, page), 0, 0);
  row->addLayout(place, 1);
  return page;
}

}  // namespace tallowbrook
