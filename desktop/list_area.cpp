#include "desktop/list_area.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

#include "desktop/look.h"

namespace tallowbrook {

namespace {

QHBoxLayout* NewRow() {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  return row;
}

constexpr int groupGap = 12;

}  // namespace

ListArea::ListArea(Form1& form, Binder& binder, QWidget* parent)
    : QWidget(parent),
      form_(form),
      rows_(form.ListView1, form.operations),
      progress_([this] { ShowProgress(); }) {
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(spacing);
  column->addLayout(MakeAddressRow(binder));
  column->addLayout(MakeFilterRow(binder));
  column->addWidget(MakeList(), 1);
  column->addLayout(MakeCheckRow(binder));
}

// The views hold references to the rows.
ListArea::~ListArea() {
  delete views_;
}

QLayout* ListArea::MakeAddressRow(Binder& binder) {
  ListPane& pane = form_.pane;
  QHBoxLayout* row = NewRow();
  address_ = binder.Add(pane.Txt_Address, this);
  address_->installEventFilter(this);
  row->addWidget(binder.AddCaption(pane.Txt_Address, address_, 'd'));
  row->addWidget(address_, 1);
  row->addSpacing(groupGap);
  row->addWidget(new QLabel(QStringLiteral("Rename:"), this));
  row->addWidget(binder.Add(pane.Option1_Files, this, 'i'));
  row->addWidget(binder.Add(pane.Option1_Folders, this));
  return row;
}

QLayout* ListArea::MakeFilterRow(Binder& binder) {
  ListPane& pane = form_.pane;
  QHBoxLayout* row = NewRow();
  QComboBox* filter = binder.Add(pane.Combo_Filter, this);
  filter->setMinimumContentsLength(14);
  filter->lineEdit()->setPlaceholderText(QStringLiteral("*.*"));
  connect(filter->lineEdit(), &QLineEdit::returnPressed, this,
          [this] { form_.pane.Filter.styled.Press(); });
  row->addWidget(binder.AddCaption(pane.Lbl_Filename_Filter, filter, 'l'));
  row->addWidget(filter);
  row->addWidget(binder.Add(pane.Filter.styled, this));
  row->addStretch();
  QCheckBox* thumbnails = binder.Add(pane.Check_Thumbnails, this);
  // Behind the binding's own handler: the control knows of the click by now.
  connect(thumbnails, &QCheckBox::clicked, this, [this] { form_.scan.ThumbnailsClicked(); });
  row->addWidget(thumbnails);
  row->addSpacing(groupGap);
  row->addWidget(binder.Add(pane.ScanSub.styled, this, 's'));
  return row;
}

// The view, and an empty page over it while the list is out of sight: nothing moves, and the view
// keeps the focus.
QWidget* ListArea::MakeList() {
  auto* place = new QWidget(this);
  list_ = new QStackedLayout(place);
  list_->setStackingMode(QStackedLayout::StackAll);
  views_ = new QStackedWidget(place);
  table_ = new FileTable(rows_, views_);
  views_->addWidget(table_);
  constexpr int leastRows = 5;
  views_->setMinimumHeight(table_->verticalHeader()->defaultSectionSize() * (leastRows + 2));
  auto* blank = new QFrame(place);
  blank->setObjectName(QStringLiteral("EmptyList"));
  blank->setFrameShape(QFrame::StyledPanel);
  blank->setBackgroundRole(QPalette::Base);
  blank->setAutoFillBackground(true);
  list_->addWidget(views_);
  list_->addWidget(blank);
  table_->dropped = [this](const std::vector<std::string>& paths) { form_.scan.AddDropped(paths); };
  rows_.model.stateChanged = [this] { ShowList(); };
  ShowList();
  return place;
}

void ListArea::ShowList() {
  QWidget* view = View();
  if (QWidget* before = views_->currentWidget(); before != view) {
    const bool hadFocus = before->hasFocus();
    views_->setCurrentWidget(view);
    if (hadFocus) view->setFocus();
  }
  list_->setCurrentIndex(form_.ListView1.Visible() ? 0 : 1);
}

// No proxy for the focus does this: a child that is one goes to the front of the order of keys.
void ListArea::FocusList() {
  View()->setFocus();
}

QWidget* ListArea::View() {
  if (!form_.ListView1.IconView()) return table_;
  if (!icons_) {
    icons_ = new FileIcons(rows_, views_);
    icons_->dropped = table_->dropped;
    views_->addWidget(icons_);
    setTabOrder(table_, icons_);
  }
  return icons_;
}

QLayout* ListArea::MakeCheckRow(Binder& binder) {
  ListPane& pane = form_.pane;
  QHBoxLayout* row = NewRow();
  row->addWidget(binder.Add(pane.SelectAll.styled, this, 'a'));
  row->addWidget(binder.Add(pane.SelectNone.styled, this, 'n'));
  row->addWidget(binder.Add(pane.SelectInverse.styled, this, 'v'));
  row->addSpacing(groupGap);
  const auto addNumber = [&](Label& caption, Text& field, Spin& spin) {
    QLineEdit* edit = binder.Add(field, spin, this);
    FitDigits(edit, 6);
    row->addWidget(binder.AddCaption(caption, edit));
    row->addWidget(edit);
  };
  addNumber(pane.Label7, pane.Text_StartCheck, pane.VScroll1);
  addNumber(pane.Label8, pane.Text_Step, pane.VScroll2);
  row->addStretch();
  row->addWidget(MakeProgress(binder));
  return row;
}

QWidget* ListArea::MakeProgress(Binder& binder) {
  ListPane& pane = form_.pane;
  auto* frame = KeepPlace(new QWidget(this));
  binder.BindPanel(pane.Frame_Progress, frame);
  QHBoxLayout* row = NewRow();
  row->setContentsMargins(0, 0, 0, 0);
  frame->setLayout(row);
  bar_ = new QProgressBar(frame);
  bar_->setTextVisible(false);
  bar_->setFixedWidth(180);
  bar_->setMaximumHeight(16);
  binder.BindPanel(pane.ProgressBar, bar_);
  binder.Watch(pane.ProgressBar, [this] { progress_.Touch(); });
  row->addWidget(binder.AddCaption(pane.Frame_Progress, bar_));
  row->addWidget(bar_);
  row->addWidget(binder.Add(pane.PushButton_AbortScan, frame));
  return frame;
}

// The bar counts in thousandths: it takes no number beyond 31 bits.
void ListArea::ShowProgress() {
  constexpr std::size_t whole = 1000;
  const std::size_t maximum = form_.pane.ProgressMaximum;
  bar_->setRange(0, whole);
  bar_->setValue(maximum ? static_cast<int>(form_.pane.ProgressValue * whole / maximum) : 0);
}

bool ListArea::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  return AddressKey(static_cast<QKeyEvent*>(event)->key());
}

bool ListArea::AddressKey(int key) {
  if (key != Qt::Key_Return && key != Qt::Key_Enter) {
    form_.scan.AddressKey();
    return false;
  }
  form_.scan.AddressEnter();
  address_->end(false);
  return true;
}

}  // namespace tallowbrook
