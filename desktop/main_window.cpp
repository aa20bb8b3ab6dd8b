#include "desktop/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>

#include "desktop/copy_move.h"
#include "desktop/folder_area.h"
#include "desktop/history_window.h"
#include "desktop/keyword_picker_window.h"
#include "desktop/list_area.h"
#include "desktop/look.h"
#include "desktop/manual_rename_dialog.h"
#include "desktop/page_tabs.h"
#include "desktop/ribbon_place.h"
#include "desktop/tag_editor_window.h"
#include "desktop/window_keys.h"

namespace tallowbrook {

namespace {
constexpr QSize firstSize(1180, 740);
constexpr double leastTreeShare = 0.15;
constexpr double firstTreeShare = 0.22;
}  // namespace

MainWindow::MainWindow(Form1& form, Files& files, const std::string& home)
    : form_(form), binder_(form.screen) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Tallowbrook"));
  auto* centre = new QWidget(this);
  setCentralWidget(centre);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(new RibbonPlace([this](int number) { form_.Dispatch(number); }, centre));

  auto* body = new QVBoxLayout;
  body->setContentsMargins(margin, margin, margin, margin);
  body->setSpacing(margin);
  body->addWidget(MakeTop(files, home), 1);
  body->addLayout(MakeBottom());
  column->addLayout(body, 1);

  statusBar()->setSizeGripEnabled(false);
  status_ = std::make_unique<StatusPanes>(form.statusBar, *statusBar());
  new WindowKeys(form, *this);
  WireForm();
  resize(firstSize);
  splitter_->setSizes({static_cast<int>(firstSize.width() * firstTreeShare),
                       static_cast<int>(firstSize.width() * (1 - firstTreeShare))});
}

MainWindow::~MainWindow() {
  form_.showManualRename = nullptr;
  form_.showHistory = nullptr;
  form_.showTagEditor = nullptr;
  form_.showKeywordPicker = nullptr;
  form_.unload = nullptr;
  form_.blinker.started = nullptr;
  // The regions hold references to the binder.
  delete takeCentralWidget();
}

QWidget* MainWindow::MakeTop(Files& files, const std::string& home) {
  splitter_ = new QSplitter(Qt::Horizontal, centralWidget());
  splitter_->setHandleWidth(margin);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(new FolderArea(form_, files, home, binder_, splitter_));
  splitter_->addWidget(new ListArea(form_, binder_, splitter_));
  splitter_->setStretchFactor(0, 0);
  splitter_->setStretchFactor(1, 1);
  splitter_->handle(1)->setObjectName(QStringLiteral("Picture2"));
  connect(splitter_, &QSplitter::splitterMoved, this, [this] { KeepTreeShare(); });
  return splitter_;
}

QLayout* MainWindow::MakeBottom() {
  auto* row = new QHBoxLayout;
  row->setSpacing(margin);
  row->addWidget(new PageTabs(form_, binder_, centralWidget()), 1);
  auto* side = new QVBoxLayout;
  side->setSpacing(margin);
  side->addWidget(MakeCopyMovePanel(form_, binder_, centralWidget()));
  side->addStretch();
  side->addLayout(MakeButtons());
  row->addLayout(side);
  return row;
}

QLayout* MainWindow::MakeButtons() {
  auto* grid = new QGridLayout;
  grid->setSpacing(spacing);
  for (const int column : {0, 1}) grid->setColumnMinimumWidth(column, 78);
  grid->addWidget(binder_.Add(form_.PreviewButton.styled, centralWidget(), 'p'), 0, 0);
  grid->addWidget(binder_.Add(form_.Apply.styled, centralWidget(), 'y'), 0, 1);
  grid->addWidget(binder_.Add(form_.Undo.styled, centralWidget(), 'o'), 1, 0);
  grid->addWidget(binder_.Add(form_.Exit.styled, centralWidget(), 'x'), 1, 1);
  return grid;
}

void MainWindow::WireForm() {
  form_.showManualRename = [this](ManualRename& model) { ManualRenameDialog(model, this).exec(); };
  form_.showHistory = [this](LogHistory& model) { HistoryWindow(model, this).exec(); };
  form_.showTagEditor = [this](TagEditor& model) { TagEditorWindow(model, this).exec(); };
  form_.showKeywordPicker = [this](KeywordPicker& model) {
    if (!picker_) picker_ = new KeywordPickerWindow(model, this);
    picker_->Open();
  };
  form_.unload = [this] { Unload(); };
  auto* timer = new QTimer(this);
  timer->setInterval(Blinker::intervalMilliseconds);
  connect(timer, &QTimer::timeout, this, [this, timer] {
    form_.blinker.Tick();
    if (!form_.blinker.Running()) timer->stop();
  });
  form_.blinker.started = [timer] { timer->start(); };
}

// Nothing is deleted here: the code that asked for the end is still running.
void MainWindow::Unload() {
  unloaded_ = true;
  QTimer::singleShot(0, this, [this] {
    if (picker_) picker_->close();
    close();
    QCoreApplication::quit();
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!unloaded_) form_.ExitProgram();
  event->setAccepted(unloaded_);
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  KeepTreeShare();
}

// By the sizes and not by a least width, which would keep a wide window from shrinking again.
void MainWindow::KeepTreeShare() {
  const QList<int> sizes = splitter_->sizes();
  const int least = static_cast<int>(std::ceil(width() * leastTreeShare));
  const int total = sizes.value(0) + sizes.value(1);
  if (total > least && sizes.value(0) < least) splitter_->setSizes({least, total - least});
}

}  // namespace tallowbrook
