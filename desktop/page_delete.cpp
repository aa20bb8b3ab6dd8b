// Page "Delete / Remove", read as one sentence.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/pages.h"

namespace tallowbrook {

QWidget* MakeDeletePage(Form1& form, Binder& binder, QWidget* parent) {
  RenameSettings& s = form.settings;
  auto* page = new QWidget(parent);
  auto* column = new QVBoxLayout(AddCard(page));
  column->setContentsMargins(2 * margin, 2 * margin, 2 * margin, margin);
  column->setSpacing(2 * spacing);

  auto* sentence = new QHBoxLayout;
  sentence->setSpacing(spacing);
  QWidget* card = column->parentWidget();
  QComboBox* count = binder.Add(s.Combo_RemoveChars, card);
  QComboBox* position = binder.Add(s.Combo_RemoveStarting, card);
  sentence->addWidget(binder.AddCaption(s.Combo_RemoveChars, count, 'r'));
  sentence->addWidget(count);
  sentence->addWidget(binder.AddCaption(s.Combo_RemoveStarting, position, 't'));
  sentence->addWidget(position);
  sentence->addStretch();
  column->addLayout(sentence);
  column->addWidget(binder.Add(s.Check_StartFromLast, card, 'e'));
  column->addStretch();
  return page;
}

}  // namespace tallowbrook
