// Page "ID3v1 / ID3v2": the tag mask and what is to become of files that lack a tag.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/look.h"
#include "desktop/mask_edit.h"
#include "desktop/pages.h"
#include "desktop/text.h"

namespace tallowbrook {

QWidget* MakeTagsPage(Form1& form, Binder& binder, QWidget* parent) {
  RenameSettings& s = form.settings;
  auto* page = new QWidget(parent);
  auto* outer = new QVBoxLayout(page);
  outer->setContentsMargins(margin, spacing, margin, margin);
  auto* panel = new QGroupBox(WithAccessKey(form.pages.Frame_ID3.Caption(), 'e'), page);
  binder.BindPanel(form.pages.Frame_ID3, panel);
  outer->addWidget(panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);

  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  row->addWidget(binder.Add(s.RTxt_ID3Name, panel), 1);
  row->addWidget(binder.Add(form.pages.InsertKeyword.styled, panel, 'k'));
  row->addWidget(binder.Add(form.pages.EditID3.styled, panel, 'g'));
  QLabel* example = binder.Add(form.pages.Label_ID3Example, panel);
  example->setForegroundRole(QPalette::PlaceholderText);
  column->addLayout(row);
  column->addWidget(example);
  column->addSpacing(spacing);
  column->addWidget(binder.Add(s.Check_AllInfoPresent, panel, 'r'));
  column->addWidget(binder.Add(s.Check_MP3Extension, panel, 't'));
  column->addStretch();
  return page;
}

}  // namespace tallowbrook
