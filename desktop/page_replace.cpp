// Page "Find / Replace": what to find on the left, how to search on the right.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/pages.h"

namespace tallowbrook {

namespace {

QLayout* MakeFields(Form1& form, Binder& binder, QWidget* page) {
  RenameSettings& s = form.settings;
  auto* grid = new QGridLayout;
  grid->setSpacing(spacing);
  QuietCombo* find = binder.Add(s.Combo_Find, page);
  QuietCombo* replace = binder.Add(s.Combo_Replace, page);
  QComboBox* count = binder.Add(s.Combo_Occurances, page);
  for (QuietCombo* box : {find, replace}) box->SetWidth(QuietCombo::Width::OfCharacters, 24);
  grid->addWidget(binder.AddCaption(s.Combo_Find, find), 0, 0);
  grid->addWidget(find, 0, 1, 1, 3);
  grid->addWidget(binder.AddCaption(s.Combo_Replace, replace, 'r'), 1, 0);
  grid->addWidget(replace, 1, 1, 1, 3);
  grid->addWidget(binder.AddCaption(s.Combo_Occurances, count, 'u'), 2, 0);
  grid->addWidget(count, 2, 1);
  grid->setColumnStretch(2, 1);
  grid->addWidget(binder.Add(form.pages.ClearComboBox.styled, page, 'h'), 2, 3);
  return grid;
}

QLayout* MakeSwitches(Form1& form, Binder& binder, QWidget* page) {
  RenameSettings& s = form.settings;
  auto* column = new QVBoxLayout;
  column->setSpacing(spacing);
  column->addWidget(binder.Add(s.Check_CaseSensitive, page, 't'));
  column->addWidget(binder.Add(s.Check_RegExp, page, 'e'));
  column->addSpacing(spacing);
  for (Option* option : {&s.Option_Search1, &s.Option_Search2, &s.Option_Search3}) {
    column->addWidget(KeepPlace(binder.Add(*option, page)));
  }
  column->addStretch();
  return column;
}

}  // namespace

QWidget* MakeReplacePage(Form1& form, Binder& binder, QWidget* parent) {
  auto* page = new QWidget(parent);
  QWidget* card = AddCard(page);
  auto* row = new QHBoxLayout(card);
  row->setContentsMargins(2 * margin, 2 * margin, 2 * margin, margin);
  row->setSpacing(4 * margin);
  auto* fields = new QVBoxLayout;
  fields->addLayout(MakeFields(form, binder, card));
  fields->addStretch();
  row->addLayout(fields, 1);
  row->addLayout(MakeSwitches(form, binder, card));
  return page;
}

}  // namespace tallowbrook
