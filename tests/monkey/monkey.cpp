#include "tests/monkey/monkey.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDragEnterEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>
#include <QWindow>
#include <stdexcept>

#include "desktop/opener.h"
#include "desktop/text.h"
#include "shell/commands.h"

namespace tallowbrook {

namespace {

// What fields understand, and what they don't.
// clang-format off
constexpr const char* snippets[] = {
    "a", "B", "0", "12", "-3", "99999999999", ".", "..", "/", "*.*", "*.mp3", "?", "<ext>", "<filename>",
    "<left,2>", "<mid,1,3>", "<exif_yyyy>", "<v1Title>-<v2Artist>", "<fmyyyy>", "<right,", "(a+)+$",
    "[^.]*\\.", "$1$&", "(", "\\", " ", "&", "%20", "\"'", "<b>x</b>", "one", "song", "txt", "2/29/2024",
    "yyyy-mm-dd", "new name.txt", "\xC3\x9F", "\xC3\x84rger", "e\xCC\x81", "\xF0\x9F\x8E\x89",
    "\xD7\x90", "\xE5\x86\x99"};
// clang-format on

constexpr int keys[] = {
    Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter,    Qt::Key_Escape,
    Qt::Key_Space,     Qt::Key_Up,      Qt::Key_Down,   Qt::Key_Left,     Qt::Key_Right,
    Qt::Key_Home,      Qt::Key_End,     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Delete,
    Qt::Key_Backspace, Qt::Key_Insert,  Qt::Key_Menu,   Qt::Key_F1,       Qt::Key_F2,
    Qt::Key_F3,        Qt::Key_F4,      Qt::Key_F5,     Qt::Key_F6,       Qt::Key_F10,
    Qt::Key_F12,       Qt::Key_Alt,     Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_Asterisk};

constexpr const char* namedControls[] = {
    "PushButton_Preview", "PushButton_Apply", "PushButton_Apply", "PushButton_Undo",   "ListView1",
    "ListView1",          "Txt_Address",      "Check_MoveEnable", "PushButton_EditID3"};

constexpr int mostActsInModal = 60;
constexpr int stuckAfter = 50 * mostActsInModal;

std::string NameOf(const QObject& object) {
  const QString name = object.objectName();
  return name.isEmpty() ? object.metaObject()->className() : name.toStdString();
}

bool TakesInput(const QWidget& widget) {
  const QWidget* popup = QApplication::activePopupWidget();
  const QWidget* modal = popup ? popup : QApplication::activeModalWidget();
  return !modal || modal == widget.window();
}

template <typename Widget>
std::vector<Widget*> VisibleIn(const QWidget& target) {
  std::vector<Widget*> found;
  for (Widget* widget : target.findChildren<Widget*>()) {
    if (widget->isVisible() && widget->window() == target.window() && !widget->size().isEmpty()) {
      found.push_back(widget);
    }
  }
  return found;
}

}  // namespace

struct Monkey::Habit {
  int weight;
  const char* name;
  void (Monkey::*act)();
};

const std::vector<Monkey::Habit>& Monkey::Habits() {
  // clang-format off
  static const std::vector<Habit> habits = {
      {30, "click", &Monkey::Click},
      {5, "right click", &Monkey::ClickRight},
      {5, "double click", &Monkey::ClickTwice},
      {7, "click on", &Monkey::ClickNamed},
      {5, "drag", &Monkey::Drag},
      {4, "wheel", &Monkey::Wheel},
      {12, "type", &Monkey::TypeSnippet},
      {2, "type a path", &Monkey::TypePath},
      {3, "work", &Monkey::Work},
      {2, "use a row", &Monkey::UseRow},
      {14, "key", &Monkey::PressKey},
      {3, "access key", &Monkey::PressAccessKey},
      {4, "shortcut", &Monkey::PressShortcut},
      {4, "leave", &Monkey::LeaveByKey},
      {3, "drop", &Monkey::Drop},
      {1, "resize", &Monkey::Resize},
      {1, "close", &Monkey::Close},
      {2, "command", &Monkey::Command},
  };
  // clang-format on
  return habits;
}

Monkey::Monkey(unsigned seed, const Playground& playground, std::FILE* trail)
    : chance_(seed), playground_(playground), trail_(trail) {}

void Monkey::Start() {
  Order();
}

int Monkey::Below(int end) {
  return static_cast<int>(chance_() % static_cast<unsigned>(end));
}

std::size_t Monkey::Index(std::size_t size) {
  return chance_() % size;
}

void Monkey::Tell(const std::string& text) {
  if (!trail_) return;
  std::fprintf(trail_, "%d %s\n", acts.load(), text.c_str());
  std::fflush(trail_);
}

// Sometimes after a pause, so that what waits for quiet comes about too.
void Monkey::Order() {
  if (stopped_) return;
  const int pause = Chance(2) ? 50 + Below(400) : Below(3);
  QTimer::singleShot(pause, this, [this] {
    Order();
    if (!stopped_) Act();
  });
}

void Monkey::Act() {
  ++acts;
  time_ += 300;
  QWidget* modal = QApplication::activeModalWidget();
  if (modal != modal_) {
    modal_ = modal;
    actsInModal_ = 0;
    if (modal) ++dialogs[NameOf(*modal)];
  }
  QWidget* popup = QApplication::activePopupWidget();
  if (popup && popup != popup_) ++popups[popup->metaObject()->className()];
  popup_ = popup;
  if (modal && ++actsInModal_ % mostActsInModal == 0) return LeaveModal(modal);
  int total = 0;
  for (const Habit& habit : Habits()) total += habit.weight;
  int chosen = Below(total);
  for (const Habit& habit : Habits()) {
    chosen -= habit.weight;
    if (chosen >= 0) continue;
    Tell(habit.name);
    return (this->*habit.act)();
  }
}

// Chance alone stays in a dialog for long; a user would leave it some time.
void Monkey::LeaveModal(QWidget* modal) {
  Tell("leave " + NameOf(*modal));
  if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
  modal->close();
  if (actsInModal_ == stuckAfter) faults.push_back("doesn't close: " + NameOf(*modal));
}

// Where a user's input would go, mostly. Null while no window is open.
QWidget* Monkey::Target() {
  QWidget* popup = QApplication::activePopupWidget();
  if (popup && Chance(85)) return popup;
  QWidget* modal = QApplication::activeModalWidget();
  if (modal && modal->isVisible() && Chance(95)) return modal;
  std::vector<QWidget*> open;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible() && widget->windowHandle()) open.push_back(widget);
  }
  if (open.empty()) return nullptr;
  if (window && window->isVisible() && Chance(60)) return window;
  return open[Index(open.size())];
}

// A place in the window: in some widget of it, on a row, or anywhere.
QPoint Monkey::Spot(QWidget& target) {
  const auto within = [this](const QRect& rect) {
    return rect.topLeft() +
           QPoint(Below(std::max(1, rect.width())), Below(std::max(1, rect.height())));
  };
  if (auto* menu = qobject_cast<QMenu*>(&target); menu && !menu->actions().isEmpty()) {
    const QList<QAction*> actions = menu->actions();
    return menu->actionGeometry(actions[Below(static_cast<int>(actions.size()))]).center();
  }
  const int kind = Below(100);
  const auto views = VisibleIn<QAbstractItemView>(target);
  if (kind < 25 && !views.empty()) {
    QAbstractItemView* view = views[Index(views.size())];
    QWidget* port = view->viewport();
    const QModelIndex index = view->indexAt(within(port->rect()));
    const QRect rect = index.isValid() ? view->visualRect(index) : port->rect();
    return port->mapTo(&target, within(rect.intersected(port->rect())));
  }
  const auto widgets = VisibleIn<QWidget>(target);
  if (kind >= 85 || widgets.empty()) return within(target.rect());
  QWidget* widget = widgets[Index(widgets.size())];
  // Check boxes have their box at the left.
  const QPoint in = Chance(50) ? QPoint(10, widget->height() / 2) : within(widget->rect());
  return widget->mapTo(&target, in);
}

Qt::KeyboardModifiers Monkey::Held() {
  if (!Chance(20)) return {};
  constexpr Qt::KeyboardModifier modifiers[] = {Qt::ShiftModifier, Qt::ControlModifier,
                                                Qt::AltModifier};
  Qt::KeyboardModifiers held = modifiers[Below(3)];
  if (Chance(20)) held |= modifiers[Below(3)];
  return held;
}

void Monkey::Mouse(QWidget& target, QEvent::Type type, QPoint at, Qt::MouseButton button,
                   Qt::KeyboardModifiers held) {
  QWindow* handle = target.window()->windowHandle();
  if (!handle) return;
  if (type == QEvent::MouseButtonPress) held_ |= button;
  if (type == QEvent::MouseButtonRelease) held_ &= ~Qt::MouseButtons(button);
  const Qt::MouseButton cause = type == QEvent::MouseMove ? Qt::NoButton : button;
  time_ += 5;
  qt_handleMouseEvent(handle, at, handle->mapToGlobal(at), held_, cause, type, held, time_);
}

void Monkey::Press(QWidget& target, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers held) {
  Mouse(target, QEvent::MouseMove, at, button, held);
  Mouse(target, QEvent::MouseButtonPress, at, button, held);
  Mouse(target, QEvent::MouseButtonRelease, at, button, held);
}

void Monkey::Key(int key, Qt::KeyboardModifiers held, const QString& text) {
  QWidget* target = Target();
  if (QWindow* focus = QGuiApplication::focusWindow(); focus && Chance(90)) {
    if (QWidget* focused = QWidget::find(focus->winId())) target = focused;
  }
  QWindow* handle = target ? target->windowHandle() : nullptr;
  if (!handle) return;
  const QPointer<QWindow> still(handle);
  time_ += 5;
  const auto time = static_cast<ulong>(time_);
  if (qt_sendShortcutOverrideEvent(handle, time, key, held, text)) return;
  if (still) qt_handleKeyEvent(still, QEvent::KeyPress, key, held, text);
  if (still) qt_handleKeyEvent(still, QEvent::KeyRelease, key, held, text);
}

void Monkey::Type(const QString& text) {
  for (qsizetype at = 0; at < text.size(); ++at) {
    const qsizetype length = text[at].isHighSurrogate() ? 2 : 1;
    const char ascii = text[at].toLatin1();
    int key = 0;
    if (ascii > ' ') key = QTest::asciiToKey(ascii);
    if (ascii == ' ') key = Qt::Key_Space;
    Key(key, {}, text.mid(at, length));
    at += length - 1;
  }
}

void Monkey::Click() {
  if (QWidget* target = Target()) Press(*target, Spot(*target), Qt::LeftButton, Held());
}

void Monkey::ClickRight() {
  QWidget* target = Target();
  if (!target) return;
  Press(*target, Spot(*target), Qt::RightButton);
}

void Monkey::ClickTwice() {
  QWidget* target = Target();
  if (!target) return;
  const QPoint at = Spot(*target);
  Press(*target, at, Qt::LeftButton);
  Press(*target, at, Qt::LeftButton);
  time_ += 1000;
}

// What matters most: in a dialog its buttons.
void Monkey::ClickNamed() {
  QWidget* modal = QApplication::activeModalWidget();
  if (!modal) return ClickOn(namedControls[Below(std::size(namedControls))]);
  const auto buttons = VisibleIn<QAbstractButton>(*modal);
  if (buttons.empty()) return;
  const QAbstractButton* button = buttons[Index(buttons.size())];
  Press(*modal, button->mapTo(modal, button->rect().center()), Qt::LeftButton);
}

void Monkey::ClickOn(const char* name) {
  if (!window || QApplication::activeModalWidget()) return;
  auto* widget = window->findChild<QWidget*>(QLatin1String(name));
  if (!widget) throw std::runtime_error(std::string("no control named ") + name);
  if (!widget->isVisible()) return;
  Press(*window, widget->mapTo(window.data(), widget->rect().center()), Qt::LeftButton);
  // Into the list, and all of it.
  if (qobject_cast<QAbstractItemView*>(widget) && Chance(50)) {
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Space);
  }
}

// Chance alone seldom finds a folder with files and then the button to rename them.
void Monkey::Work() {
  if (!window || QApplication::activeModalWidget()) return;
  TypePath();
  ClickOn("PushButton_Apply");
}

// Nor a song, and then its tag's editor; nor the key that deletes files.
void Monkey::UseRow() {
  if (!form || !window || QApplication::activeModalWidget()) return;
  auto* list = window->findChild<QAbstractItemView*>(QStringLiteral("ListView1"));
  if (!list || !list->isVisible()) return;
  const auto isSong = [](const QModelIndex& cell) {
    return cell.data().toString().endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive);
  };
  for (int tries = 20; tries > 0 && list->model()->rowCount() > 0; --tries) {
    const QModelIndex row = list->model()->index(Below(list->model()->rowCount()), 0);
    if (!isSong(row) && !isSong(row.siblingAtColumn(1)) && !Chance(10)) continue;
    list->setFocus();
    list->setCurrentIndex(row);
    return Chance(50) ? form->ShowTagEditor() : Key(Qt::Key_Delete);
  }
}

void Monkey::Drag() {
  QWidget* target = Target();
  if (!target) return;
  const QPoint from = Spot(*target), to = Spot(*target);
  Mouse(*target, QEvent::MouseButtonPress, from, Qt::LeftButton);
  for (int step = 1; step <= 5; ++step) {
    Mouse(*target, QEvent::MouseMove, from + (to - from) * step / 5, Qt::LeftButton);
  }
  Mouse(*target, QEvent::MouseButtonRelease, to, Qt::LeftButton);
  time_ += 1000;
}

void Monkey::Wheel() {
  QWidget* target = Target();
  if (!target) return;
  const QPoint at = Spot(*target);
  QWidget* child = target->childAt(at);
  if (!child || !TakesInput(*child)) return;
  QWheelEvent event(child->mapFrom(target, at), target->mapToGlobal(at), {},
                    {0, Chance(50) ? 120 : -240}, {}, Held(), Qt::NoScrollPhase, false);
  QApplication::sendEvent(child, &event);
}

void Monkey::TypeSnippet() {
  if (Chance(15)) Key(Qt::Key_A, Qt::ControlModifier);
  const char* snippet = snippets[Below(std::size(snippets))];
  Tell(snippet);
  Type(QString::fromUtf8(snippet));
  if (Chance(10)) Key(Qt::Key_Return);
}

void Monkey::TypePath() {
  std::vector<std::string> paths = playground_.Paths();
  std::erase_if(paths, [](const std::string& path) { return !path.ends_with('/'); });
  paths.push_back(playground_.Copies());
  Chance(20) ? ClickOn("Txt_MoveTo") : Key(Qt::Key_D, Qt::AltModifier);
  Key(Qt::Key_A, Qt::ControlModifier);
  Type(ToText(paths[Index(paths.size())]));
  Key(Qt::Key_Return);
}

void Monkey::PressKey() {
  const int key = keys[Below(std::size(keys))];
  for (int times = Chance(20) ? 6 : 1; times > 0; --times) Key(key, Held());
}

void Monkey::PressAccessKey() {
  const int letter = Below(26);
  if (letter == 'x' - 'a' && Chance(80)) return;  // the exit's
  Key(Qt::Key_A + letter, Qt::AltModifier, QString(QChar('a' + letter)));
}

void Monkey::PressShortcut() {
  Qt::KeyboardModifiers held = Qt::ControlModifier;
  if (Chance(20)) held |= Qt::ShiftModifier;
  Key(Qt::Key_A + Below(26), held);
}

void Monkey::LeaveByKey() {
  Key(Chance(60) ? Qt::Key_Escape : Qt::Key_Return);
}

// Mostly files and folders of the copies; sometimes what nobody can use.
void Monkey::Drop() {
  QWidget* target = Target();
  if (!target) return;
  const QPoint at = Spot(*target);
  QWidget* child = target->childAt(at);
  while (child && !child->acceptDrops())
    child = child->isWindow() ? nullptr : child->parentWidget();
  if (!child || !TakesInput(*child)) return;
  const std::vector<std::string> paths = playground_.Paths();
  QMimeData data;
  QByteArray uris;
  for (int count = 1 + Below(3); count > 0 && !paths.empty(); --count) {
    uris += FileUrl(paths[Index(paths.size())]).toEncoded() + "\r\n";
  }
  if (Chance(10)) uris += "file:///etc/\r\nhttps://tallowbrook.invalid/\r\nfile:///%00\r\n#";
  data.setData(QStringLiteral("text/uri-list"), uris);
  if (Chance(20)) data.setText(QStringLiteral("dropped text"));
  const QPoint in = child->mapFrom(target, at);
  const auto actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
  QDragEnterEvent enter(in, actions, &data, Qt::LeftButton, {});
  const QPointer<QWidget> still(child);
  QApplication::sendEvent(child, &enter);
  if (!still || !enter.isAccepted()) return;
  QDragMoveEvent move(in, actions, &data, Qt::LeftButton, {});
  QApplication::sendEvent(child, &move);
  if (!still) return;
  Tell("drop " + NameOf(*child));
  QDropEvent drop(in, actions, &data, Qt::LeftButton, {});
  QApplication::sendEvent(child, &drop);
}

void Monkey::Resize() {
  QWidget* target = Target();
  if (!target || target->windowType() == Qt::Popup) return;
  if (Chance(10)) return target->setWindowState(target->windowState() ^ Qt::WindowMaximized);
  target->resize(100 + Below(1500), 100 + Below(1000));
}

// The main window more seldom, since it takes a while until the next one is there.
void Monkey::Close() {
  QWidget* target = Target();
  if (target && TakesInput(*target) && (target != window || Chance(5))) target->close();
}

// What some ribbon or menu may carry; styles more often than by chance.
void Monkey::Command() {
  if (!form || !window || !window->isVisible() || QApplication::activeModalWidget() ||
      QApplication::activePopupWidget()) {
    return;
  }
  const auto number = Chance(30) ? Styles()[Index(Styles().size())].number
                                 : Commands()[Index(Commands().size())].number;
  if (number == commandExit && Chance(95)) return;
  Tell("command " + std::to_string(number));
  form->Dispatch(number);
}

}  // namespace tallowbrook
