#include "desktop/main_window.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QGridLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <cmath>
#include <utility>

#include "desktop/copy_move.h"
#include "desktop/folder_area.h"
#include "desktop/history_window.h"
#include "desktop/keyword_picker_window.h"
#include "desktop/list_area.h"
#include "desktop/look.h"
#include "desktop/profile_dialogs.h"
#include "desktop/ribbon_bar.h"
#include "desktop/ribbon_keys.h"
#include "desktop/small_dialogs.h"
#include "desktop/tag_editor_window.h"
#include "desktop/theme.h"
#include "desktop/tips_window.h"
#include "desktop/window_keys.h"

namespace tallowbrook {

namespace {
constexpr QSize firstSize(1180, 740);
constexpr double firstTreeShare = 0.22;
}  // namespace

MainWindow::MainWindow(Form1& form, Files& files, const std::string& home, MakePages pages)
    : form_(form), binder_(form.screen), files_(files), home_(home) {
  setObjectName(QStringLiteral("Form1"));
  setWindowTitle(QStringLiteral("Tallowbrook"));
  auto* centre = new QWidget(this);
  setCentralWidget(centre);
  auto* column = new QVBoxLayout(centre);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  ribbon_ = new RibbonBar(form, binder_, centre);
  column->addWidget(ribbon_);

  auto* body = new QVBoxLayout;
  body->setContentsMargins(margin, margin, margin, margin);
  body->setSpacing(margin);
  body->addWidget(MakeTop(files, home), 1);
  body->addLayout(MakeBottom(pages));
  column->addLayout(body, 1);

  statusBar()->setSizeGripEnabled(false);
  status_ = std::make_unique<StatusPanes>(form.statusBar, *statusBar());
  new WindowKeys(form, *this);
  // Behind the window's own keys, and so asked before them.
  new RibbonKeys(*ribbon_, *this, [this] { return form_.scan.IsBusy(); });
  WireForm();
  resize(firstSize);
  form_.WindowWidth = firstSize.width() * twipsPerPixel;
  list_->FocusList();
  splitter_->setSizes({static_cast<int>(firstSize.width() * firstTreeShare),
                       static_cast<int>(firstSize.width() * (1 - firstTreeShare))});
}

MainWindow::~MainWindow() {
  // What asks for a window later finds none.
  form_.showManualRename = nullptr;
  form_.showSaveProfile = nullptr;
  form_.showManageProfiles = nullptr;
  form_.showOptions = nullptr;
  form_.showAbout = nullptr;
  form_.showBrowse = nullptr;
  form_.showTips = nullptr;
  form_.showHistory = nullptr;
  form_.showTagEditor = nullptr;
  form_.showKeywordPicker = nullptr;
  form_.unload = nullptr;
  form_.repaint = nullptr;
  form_.heightChanged = nullptr;
  form_.styleChanged = nullptr;
  form_.blinker.started = nullptr;
  form_.update.started = nullptr;
  // The regions hold references to the binder.
  delete takeCentralWidget();
}

WindowParts MainWindow::Parts() const {
  auto* table = list_->findChild<QTableView*>(QStringLiteral("ListView1"));
  return {*splitter_, *table->horizontalHeader(), *ribbon_};
}

QWidget* MainWindow::MakeTop(Files& files, const std::string& home) {
  splitter_ = new QSplitter(Qt::Horizontal, centralWidget());
  splitter_->setHandleWidth(margin);
  splitter_->setChildrenCollapsible(false);
  splitter_->addWidget(new FolderArea(form_, files, home, binder_, splitter_));
  list_ = new ListArea(form_, binder_, splitter_);
  splitter_->addWidget(list_);
  splitter_->setStretchFactor(0, 0);
  splitter_->setStretchFactor(1, 1);
  splitter_->handle(1)->setObjectName(QStringLiteral("Picture2"));
  connect(splitter_, &QSplitter::splitterMoved, this, [this] { KeepTreeShare(); });
  return splitter_;
}

QLayout* MainWindow::MakeBottom(MakePages pages) {
  auto* row = new QHBoxLayout;
  row->setSpacing(margin);
  row->addWidget(new PageTabs(form_, binder_, centralWidget(), pages), 1);
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
  WireDialogs();
  WireTimers();
  form_.unload = [this] { Unload(); };
  form_.repaint = [this] { update(); };
  form_.styleChanged = [this] { ShowStyle(); };
  form_.heightChanged = [this] {
    constexpr int titleBar = 40;
    const int room = screen()->availableGeometry().height() - titleBar;
    resize(width(), std::min(form_.WindowHeight / twipsPerPixel, room));
  };
}

// Every loaded profile brings its style along, mostly the one on show.
void MainWindow::ShowStyle() {
  if (form_.CurrentStyle == shownStyle_) return;
  shownStyle_ = form_.CurrentStyle;
  const Theme theme = LoadTheme(files_, *shownStyle_);
  if (theme != CurrentTheme()) ApplyTheme(theme);
}

void MainWindow::WireDialogs() {
  form_.showManualRename = [this](ManualRename& model) { ManualRenameDialog(model, this).exec(); };
  form_.showSaveProfile = [this](SaveProfileDialog& model) {
    SaveProfileWindow(model, this).exec();
  };
  form_.showManageProfiles = [this](ManageProfiles& model) {
    ManageProfilesWindow(model, this).exec();
  };
  form_.showOptions = [this](Options& model) { OptionsDialog(model, this).exec(); };
  form_.showAbout = [this](About& model) { AboutDialog(model, this).exec(); };
  form_.showBrowse = [this](Browse& model) { BrowseDialog(model, files_, home_, this).exec(); };
  form_.showTips = [this](StartupTips& model) {
    if (!tips_) tips_ = new TipsWindow(model, this);
    tipsWait_ = !isVisible();
    if (!tipsWait_) tips_->Open();
  };
  form_.showHistory = [this](LogHistory& model) { HistoryWindow(model, this).exec(); };
  form_.showTagEditor = [this](TagEditor& model) { TagEditorWindow(model, this).exec(); };
  form_.showKeywordPicker = [this](KeywordPicker& model) {
    if (!picker_) picker_ = new KeywordPickerWindow(model, this);
    picker_->Open();
  };
}

void MainWindow::WireTimers() {
  auto* timer1 = new QTimer(this);
  timer1->setInterval(Blinker::intervalMilliseconds);
  connect(timer1, &QTimer::timeout, this, [this, timer1] {
    form_.blinker.Tick();
    if (!form_.blinker.Running()) timer1->stop();
  });
  form_.blinker.started = [timer1] { timer1->start(); };
  auto* timer2 = new QTimer(this);
  timer2->setInterval(UpdateCheck::intervalMilliseconds);
  connect(timer2, &QTimer::timeout, this, [this, timer2] {
    form_.update.Tick();
    if (!form_.update.UpdateAwaitingAnswer) timer2->stop();
  });
  // One that runs goes on: a second check has the rest of the first one's time.
  form_.update.started = [timer2] {
    if (!timer2->isActive()) timer2->start();
  };
}

// Nothing is deleted here: the code that asked for the end is still running.
void MainWindow::Unload() {
  unloaded_ = true;
  QTimer::singleShot(0, this, [this] {
    if (picker_) picker_->close();
    if (tips_) tips_->close();
    close();
    QCoreApplication::quit();
  });
}

void MainWindow::closeEvent(QCloseEvent* event) {
  if (!unloaded_) form_.ExitProgram();
  event->setAccepted(unloaded_);
}

// The tips that a start shows stand beside the window, once it stands somewhere.
void MainWindow::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  QTimer::singleShot(0, this, [this] {
    KeepPlace();
    if (std::exchange(tipsWait_, false)) tips_->Open();
  });
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  KeepTreeShare();
  KeepPlace();
}

void MainWindow::moveEvent(QMoveEvent* event) {
  QMainWindow::moveEvent(event);
  KeepPlace();
}

// What the configuration remembers of the window: the size that it has unless it is maximized, and
// where it stands.
void MainWindow::KeepPlace() {
  if (!isVisible()) return;
  form_.WindowTop = y() * twipsPerPixel;
  form_.WindowLeft = x() * twipsPerPixel;
  if (isMaximized() || isFullScreen() || isMinimized()) return;
  form_.WindowWidth = width() * twipsPerPixel;
  form_.WindowHeight = height() * twipsPerPixel;
}

// By the sizes and not by a least width, which would keep a wide window from shrinking again.
void MainWindow::KeepTreeShare() {
  const QList<int> sizes = splitter_->sizes();
  const int least = LeastTreeWidth(width());
  const int total = sizes.value(0) + sizes.value(1);
  if (total > least && sizes.value(0) < least) splitter_->setSizes({least, total - least});
}

}  // namespace tallowbrook
