#include "desktop/page_properties.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDropEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/elided_label.h"
#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

PropertiesPage::PropertiesPage(Form1& form, Binder& binder, QWidget* parent)
    : QWidget(parent), form_(form), binder_(binder), panels_(new QHBoxLayout) {
  RenameSettings& s = form.settings;
  auto* page = new QVBoxLayout(this);
  page->setContentsMargins(margin, spacing, margin, margin);
  page->setSpacing(spacing);
  panels_->setSpacing(spacing);
  page->addLayout(panels_, 1);
  page->addLayout(MakeSampleRow());

  RenamePages& pages = form.pages;
  prefix_ = MakeTextPanel(pages.Frame_Prefix, 'r', s.Check_Prefix, s.Text_Prefix);
  filename_ = MakeFilenamePanel();
  separator_ = MakeTextPanel(pages.Frame_Separator, 0, s.Check_Seperator, s.Text_Seperator);
  unique_ = MakeUniquePanel();
  suffix_ = MakeTextPanel(pages.Frame_Suffix, 'u', s.Check_Suffix, s.Text_Suffix);
  extension_ = MakeExtensionPanel();
  binder.Watch(s.Check_UniqueFirst, [this] { ArrangePanels(); });
  ArrangePanels();
}

QGroupBox* PropertiesPage::MakePanel(Frame& frame, char accessKey) {
  auto* panel = new QGroupBox(WithAccessKey(frame.Caption(), accessKey), this);
  binder_.BindPanel(frame, panel);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(margin, margin, margin, margin);
  column->setSpacing(spacing);
  return panel;
}

QGroupBox* PropertiesPage::MakeTextPanel(Frame& frame, char accessKey, Tick& include, Text& text) {
  QGroupBox* panel = MakePanel(frame, accessKey);
  auto* column = static_cast<QVBoxLayout*>(panel->layout());
  column->addWidget(binder_.Add(include, panel));
  QLineEdit* edit = binder_.Add(text, panel);
  edit->setMinimumWidth(edit->fontMetrics().averageCharWidth() * 9);
  column->addWidget(edit);
  column->addStretch();
  return panel;
}

QGroupBox* PropertiesPage::MakeFilenamePanel() {
  QGroupBox* panel = MakePanel(form_.pages.Frame_Filename, 'e');
  panel->setAcceptDrops(true);
  panel->installEventFilter(this);
  auto* column = static_cast<QVBoxLayout*>(panel->layout());
  column->addWidget(binder_.Add(form_.settings.Check_Original, panel));
  column->addWidget(binder_.Add(form_.settings.Combo_Original, panel));
  QuietCombo* name = binder_.Add(form_.settings.Combo_OriginalName, panel);
  name->SetWidth(QuietCombo::Width::OfCharacters, 10);
  column->addWidget(name);
  column->addWidget(binder_.Add(form_.pages.ClearComboBoxName.styled, panel, 'h'));
  column->addStretch();
  return panel;
}

QGroupBox* PropertiesPage::MakeExtensionPanel() {
  QGroupBox* panel = MakePanel(form_.pages.Frame_Extension, 't');
  auto* column = static_cast<QVBoxLayout*>(panel->layout());
  column->addWidget(binder_.Add(form_.settings.Check_Extension, panel));
  column->addWidget(binder_.Add(form_.settings.Combo_Extension, panel));
  column->addWidget(binder_.Add(form_.settings.Text_Extension, panel));
  column->addStretch();
  return panel;
}

QGroupBox* PropertiesPage::MakeUniquePanel() {
  RenameSettings& s = form_.settings;
  QGroupBox* panel = MakePanel(form_.pages.Frame_Unique, 'q');
  auto* column = static_cast<QVBoxLayout*>(panel->layout());

  auto* kind = new QHBoxLayout;
  kind->setSpacing(spacing);
  kind->addWidget(binder_.Add(s.Check_Unique, panel));
  kind->addStretch();
  kind->addWidget(binder_.Add(s.Combo_Unique, panel));
  column->addLayout(kind);

  auto* step = new QHBoxLayout;
  step->setSpacing(spacing);
  step->addWidget(binder_.Add(s.Combo_Direction, panel));
  UniquePanel& unique = form_.pages.unique;
  QLineEdit* increment =
      KeepPlace(binder_.Add(s.Text_UniqueIncrement, unique.Spin_UniqueIncrement, panel));
  FitDigits(increment, 5);
  step->addWidget(increment);
  step->addWidget(KeepPlace(binder_.Add(s.Combo_DateInterval, panel)));
  step->addStretch();
  column->addLayout(step);

  // Numbers and dates share one place.
  auto* place = new QGridLayout;
  place->addWidget(MakeNumbers(panel), 0, 0, Qt::AlignTop);
  place->addWidget(MakeDates(panel), 0, 0, Qt::AlignTop);
  column->addLayout(place);
  column->addStretch();
  return panel;
}

QWidget* PropertiesPage::MakeNumbers(QWidget* parent) {
  RenameSettings& s = form_.settings;
  UniquePanel& unique = form_.pages.unique;
  auto* frame = KeepPlace(new QWidget(parent));
  binder_.BindPanel(unique.Frame_Numbers, frame);
  auto* grid = new QGridLayout(frame);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(spacing);

  QLineEdit* mask = binder_.Add(s.Text_UniqueMask, frame);
  QLineEdit* start = binder_.Add(s.Text_UniqueStart, unique.Spin_UniqueStart, frame);
  QCheckBox* uniqueOnly = KeepPlace(binder_.Add(s.Check_UniqueOnly, frame));
  QLineEdit* randomTo = KeepPlace(binder_.Add(s.Txt_RandomTo, unique.Spin_RandomTo, frame));
  for (QLineEdit* edit : {mask, start, randomTo}) FitDigits(edit, 8);
  grid->addWidget(binder_.AddCaption(s.Text_UniqueMask, mask), 0, 0);
  grid->addWidget(mask, 0, 1);
  grid->addWidget(binder_.AddCaption(s.Text_UniqueStart, start), 0, 2);
  grid->addWidget(start, 0, 3);
  grid->addWidget(uniqueOnly, 1, 0, 1, 2);
  grid->addWidget(KeepPlace(binder_.AddCaption(unique.Lbl_RandomTo, randomTo)), 1, 2);
  grid->addWidget(randomTo, 1, 3);
  grid->setColumnStretch(4, 1);
  return frame;
}

QWidget* PropertiesPage::MakeDates(QWidget* parent) {
  RenameSettings& s = form_.settings;
  auto* frame = KeepPlace(new QWidget(parent));
  binder_.BindPanel(form_.pages.unique.Frame_Date, frame);
  auto* column = new QVBoxLayout(frame);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(spacing);

  auto* start = new QHBoxLayout;
  start->setSpacing(spacing);
  QComboBox* month = binder_.Add(s.Combo_UniqueDateStart0, frame);
  start->addWidget(binder_.AddCaption(s.Combo_UniqueDateStart0, month));
  start->addWidget(month);
  start->addWidget(binder_.Add(s.Combo_UniqueDateStart1, frame));
  QuietCombo* year = binder_.Add(s.Combo_UniqueDateStart2, frame);
  year->SetWidth(QuietCombo::Width::OfItems, 5);
  start->addWidget(year);
  start->addStretch();
  column->addLayout(start);

  auto* form = new QHBoxLayout;
  form->setSpacing(spacing);
  const auto addText = [&](Text& text) {
    QLineEdit* edit = binder_.Add(text, frame);
    FitDigits(edit, 1);
    form->addWidget(edit);
  };
  form->addWidget(binder_.Add(s.Combo_UniqueDate0, frame));
  addText(s.Text_UniqueDate1);
  form->addWidget(binder_.Add(s.Combo_UniqueDate1, frame));
  addText(s.Text_UniqueDate2);
  form->addWidget(binder_.Add(s.Combo_UniqueDate2, frame));
  form->addStretch();
  column->addLayout(form);
  return frame;
}

QLayout* PropertiesPage::MakeSampleRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  row->addWidget(binder_.Add(form_.settings.Check_UniqueFirst, this));
  row->addSpacing(24);
  row->addWidget(binder_.Add(form_.pages.Label3, this));
  const Label& sample = form_.pages.Label_SampleFileName;
  auto* shown = new ElidedLabel(this);
  shown->setObjectName(ToText(sample.Name()));
  QFont bold = shown->font();
  bold.setBold(true);
  shown->setFont(bold);
  const auto show = [shown, &sample] { shown->ShowText(sample.Caption()); };
  binder_.Watch(sample, show);
  show();
  row->addWidget(shown, 1);
  return row;
}

void PropertiesPage::ArrangePanels() {
  const bool uniqueFirst = form_.settings.Check_UniqueFirst.On();
  const std::vector<QGroupBox*> order =
      uniqueFirst ? std::vector{prefix_, unique_, separator_, filename_, suffix_, extension_}
                  : std::vector{prefix_, filename_, separator_, unique_, suffix_, extension_};
  for (QGroupBox* panel : order) panels_->removeWidget(panel);
  for (QGroupBox* panel : order) panels_->addWidget(panel, panel == unique_ ? 0 : 1);
  ArrangeTabs(order);
}

// The tab key follows the panels from left to right, then goes to the row below them.
void PropertiesPage::ArrangeTabs(const std::vector<QGroupBox*>& order) {
  std::vector<QWidget*> chain;
  for (const QGroupBox* panel : order) {
    std::vector<QWidget*> inside;
    for (QWidget* next = panel->nextInFocusChain(); next != panel;
         next = next->nextInFocusChain()) {
      if (panel->isAncestorOf(next) && next->focusPolicy() & Qt::TabFocus) inside.push_back(next);
    }
    chain.insert(chain.end(), inside.begin(), inside.end());
  }
  if (auto* last = findChild<QCheckBox*>(QStringLiteral("Check_UniqueFirst"))) {
    chain.push_back(last);
  }
  for (std::size_t at = 1; at < chain.size(); ++at) setTabOrder(chain[at - 1], chain[at]);
}

bool PropertiesPage::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::DragEnter && event->type() != QEvent::Drop) {
    return QWidget::eventFilter(watched, event);
  }
  auto* drop = static_cast<QDropEvent*>(event);
  if (!drop->mimeData()->hasText()) return false;
  drop->acceptProposedAction();
  if (event->type() == QEvent::Drop) form_.pages.ClearFilenameHistory();
  return true;
}

}  // namespace tallowbrook
