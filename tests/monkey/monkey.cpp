#include <unistd.h>

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
#include <csignal>
#include <stdexcept>

#include "desktop/opener.h"
#include "desktop/text.h"
#include "shell/commands.h"
#include "tests/monkey/game.h"

namespace tallowbrook {

namespace {

// clang-format off
// What fields understand, and what they don't.
constexpr const char* snippets[] = {
    "a", "B", "0", "12", "-3", "99999999999", ".", "..", "/", "*.*", "*.mp3", "?", "<ext>", "<filename>",
    "<left,2>", "<mid,1,3>", "<exif_yyyy>", "<v1Title>-<v2Artist>", "<fmyyyy>", "<right,", "(a+)+$",
    "[^.]*\\.", "$1$&", "(", "\\", " ", "&", "%20", "\"'", "<b>x</b>", "one", "song", "txt", "2/29/2024",
    "yyyy-mm-dd", "new name.txt", "\xC3\x9F", "\xC3\x84rger", "e\xCC\x81", "\xF0\x9F\x8E\x89",
    "\xD7\x90", "\xE5\x86\x99"};
constexpr int keys[] = {
    Qt::Key_Tab, Qt::Key_Backtab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Space, Qt::Key_Up,
    Qt::Key_Down, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown,
    Qt::Key_Delete, Qt::Key_Backspace, Qt::Key_Insert, Qt::Key_Menu, Qt::Key_F1, Qt::Key_F2, Qt::Key_F3,
    Qt::Key_F4, Qt::Key_F5, Qt::Key_F6, Qt::Key_F10, Qt::Key_F12, Qt::Key_Alt, Qt::Key_Plus, Qt::Key_Minus,
    Qt::Key_Asterisk};
constexpr const char* namedControls[] = {
    "PushButton_Preview", "PushButton_Apply", "PushButton_Apply", "PushButton_Undo", "ListView1", "ListView1",
    "Txt_Address", "Check_MoveEnable", "PushButton_EditID3"};
constexpr Qt::KeyboardModifier modifiers[] = {Qt::ShiftModifier, Qt::ControlModifier, Qt::AltModifier};
// clang-format on

constexpr unsigned longestSilence = 20;  // seconds
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

class Monkey : public QObject {
 public:
  // The signal comes to the main thread, whose place the sanitizer then tells.
  explicit Monkey(Game& game) : game_(game) {
    std::signal(SIGALRM, [](int) { std::abort(); });
    Order();
  }
  ~Monkey() override { alarm(0); }

 private:
  struct Habit {
    int weight;
    const char* name;
    void (*act)(Monkey&);
  };
  static const std::vector<Habit>& Habits();

  // Sometimes after a pause, so that what waits for quiet comes about too.
  void Order() {
    if (game_.isOver) return;
    const int pause = Chance(2) ? 50 + Below(400) : Below(3);
    QTimer::singleShot(pause, this, [this] {
      Order();
      if (!game_.isOver) Act();
    });
  }

  void Act() {
    ++game_.acts;
    alarm(longestSilence);
    time_ += 300;
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal != modal_) ++game_.dialogs[NameOf(*modal)];
    if (modal != modal_) actsInModal_ = 0;
    modal_ = modal;
    if (modal && ++actsInModal_ % mostActsInModal == 0) return LeaveModal(modal);
    int total = 0;
    for (const Habit& habit : Habits()) total += habit.weight;
    int chosen = Below(total);
    for (const Habit& habit : Habits()) {
      chosen -= habit.weight;
      if (chosen >= 0) continue;
      Tell(habit.name);
      return habit.act(*this);
    }
  }

  // Chance alone stays in a dialog for long; a user would leave it some time.
  void LeaveModal(QWidget* modal) {
    Tell("leave " + NameOf(*modal));
    if (QWidget* popup = QApplication::activePopupWidget()) popup->close();
    modal->close();
    if (actsInModal_ == stuckAfter) game_.faults.push_back("doesn't close: " + NameOf(*modal));
  }

  int Below(int end) {  // from 0
    return static_cast<int>(game_.chance() % static_cast<unsigned>(end));
  }
  bool Chance(int percent) { return Below(100) < percent; }
  template <typename List>
  auto& OneOf(const List& list) {
    return *(std::begin(list) + Below(static_cast<int>(std::size(list))));
  }
  void Tell(const std::string& text) {
    if (!game_.trail) return;
    std::fprintf(game_.trail, "%d %s\n", game_.acts, text.c_str());
    std::fflush(game_.trail);
  }

  // Where a user's input would go, mostly. Null while no window is open.
  QWidget* Target() {
    QWidget* popup = QApplication::activePopupWidget();
    if (popup && Chance(85)) return popup;
    QWidget* modal = QApplication::activeModalWidget();
    if (modal && modal->isVisible() && Chance(95)) return modal;
    std::vector<QWidget*> open;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
      if (widget->isVisible() && widget->windowHandle()) open.push_back(widget);
    }
    if (open.empty()) return nullptr;
    return game_.window && game_.window->isVisible() && Chance(60) ? game_.window.data()
                                                                   : OneOf(open);
  }
  // The main window while nothing lies over it, else null.
  QWidget* FreeWindow() const {
    const bool isFree = game_.form && game_.window && game_.window->isVisible() &&
                        !QApplication::activeModalWidget() && !QApplication::activePopupWidget();
    return isFree ? game_.window.data() : nullptr;
  }

  QPoint Within(const QRect& rect) {
    return rect.topLeft() +
           QPoint(Below(std::max(1, rect.width())), Below(std::max(1, rect.height())));
  }
  // A place in the window: in some widget of it, on a row, or anywhere.
  QPoint Spot(QWidget& target) {
    if (auto* menu = qobject_cast<QMenu*>(&target); menu && !menu->actions().isEmpty()) {
      return menu->actionGeometry(OneOf(menu->actions())).center();
    }
    const int kind = Below(100);
    const auto views = VisibleIn<QAbstractItemView>(target);
    if (kind < 25 && !views.empty()) {
      QAbstractItemView* view = OneOf(views);
      QWidget* port = view->viewport();
      const QModelIndex index = view->indexAt(Within(port->rect()));
      const QRect rect = index.isValid() ? view->visualRect(index) : port->rect();
      return port->mapTo(&target, Within(rect.intersected(port->rect())));
    }
    const auto widgets = VisibleIn<QWidget>(target);
    if (kind >= 85 || widgets.empty()) return Within(target.rect());
    QWidget* widget = OneOf(widgets);
    // Check boxes have their box at the left.
    const QPoint in = Chance(50) ? QPoint(10, widget->height() / 2) : Within(widget->rect());
    return widget->mapTo(&target, in);
  }
  Qt::KeyboardModifiers Held() {
    if (!Chance(20)) return {};
    Qt::KeyboardModifiers held = OneOf(modifiers);
    if (Chance(20)) held |= OneOf(modifiers);
    return held;
  }

  void Mouse(QWidget& target, QEvent::Type type, QPoint at, Qt::MouseButton button,
             Qt::KeyboardModifiers held = {}) {
    QWindow* handle = target.window()->windowHandle();
    if (!handle) return;
    if (type == QEvent::MouseButtonPress) held_ |= button;
    if (type == QEvent::MouseButtonRelease) held_ &= ~Qt::MouseButtons(button);
    const Qt::MouseButton cause = type == QEvent::MouseMove ? Qt::NoButton : button;
    time_ += 5;
    qt_handleMouseEvent(handle, at, handle->mapToGlobal(at), held_, cause, type, held, time_);
  }
  void Press(QWidget& target, QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers held = {}) {
    for (const auto type :
         {QEvent::MouseMove, QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
      Mouse(target, type, at, button, held);
    }
  }
  void PressMiddle(QWidget& target, const QWidget& widget) {
    Press(target, widget.mapTo(&target, widget.rect().center()), Qt::LeftButton);
  }
  void Click(Qt::MouseButton button, int times = 1) {
    QWidget* target = Target();
    if (!target) return;
    const QPoint at = Spot(*target);
    const Qt::KeyboardModifiers held = Held();
    for (int n = 0; n < times; ++n) Press(*target, at, button, held);
    if (times > 1) time_ += 1000;
  }

  void Key(int key, Qt::KeyboardModifiers held = {}, const QString& text = {}) {
    QWidget* target = Target();
    if (QWindow* focus = QGuiApplication::focusWindow(); focus && Chance(90)) {
      if (QWidget* focused = QWidget::find(focus->winId())) target = focused;
    }
    const QPointer<QWindow> handle(target ? target->windowHandle() : nullptr);
    if (!handle) return;
    time_ += 5;
    const auto time = static_cast<ulong>(time_);
    if (qt_sendShortcutOverrideEvent(handle, time, key, held, text)) return;
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      if (handle) qt_handleKeyEvent(handle, type, key, held, text);
    }
  }
  void Type(const QString& text) {
    for (qsizetype at = 0; at < text.size(); ++at) {
      const qsizetype length = text[at].isHighSurrogate() ? 2 : 1;
      const char ascii = text[at].toLatin1();
      Key(ascii == ' '  ? Qt::Key_Space
          : ascii > ' ' ? QTest::asciiToKey(ascii)
                        : 0,
          {}, text.mid(at, length));
      at += length - 1;
    }
  }

  // What matters most: in a dialog its buttons.
  void ClickNamed() {
    QWidget* modal = QApplication::activeModalWidget();
    if (!modal) return ClickOn(OneOf(namedControls));
    const auto buttons = VisibleIn<QAbstractButton>(*modal);
    if (!buttons.empty()) PressMiddle(*modal, *OneOf(buttons));
  }
  void ClickOn(const char* name) {
    if (!FreeWindow()) return;
    auto* widget = game_.window->findChild<QWidget*>(QLatin1String(name));
    if (!widget) throw std::runtime_error(std::string("no control named ") + name);
    if (!widget->isVisible()) return;
    PressMiddle(*game_.window, *widget);
    // Into the list, and all of it.
    if (!qobject_cast<QAbstractItemView*>(widget) || Chance(50)) return;
    Key(Qt::Key_A, Qt::ControlModifier);
    Key(Qt::Key_Space);
  }
  void TypePath() {
    std::vector<std::string> paths = game_.playground.Paths();
    std::erase_if(paths, [](const std::string& path) { return !path.ends_with('/'); });
    paths.push_back(game_.playground.Copies());
    Chance(20) ? ClickOn("Txt_MoveTo") : Key(Qt::Key_D, Qt::AltModifier);
    Key(Qt::Key_A, Qt::ControlModifier);
    Type(ToText(OneOf(paths)));
    Key(Qt::Key_Return);
  }
  // Chance alone seldom finds a folder with files and then the button to rename them.
  void Work() {
    if (!FreeWindow()) return;
    TypePath();
    ClickOn("PushButton_Apply");
  }
  // Nor a song, and then its tag's editor; nor the key that deletes files.
  void UseRow() {
    if (!FreeWindow()) return;
    auto* list = game_.window->findChild<QAbstractItemView*>(QStringLiteral("ListView1"));
    if (!list || !list->isVisible()) return;
    const auto isSong = [](const QModelIndex& cell) {
      return cell.data().toString().endsWith(QLatin1String(".mp3"), Qt::CaseInsensitive);
    };
    for (int tries = 20; tries > 0 && list->model()->rowCount() > 0; --tries) {
      const QModelIndex row = list->model()->index(Below(list->model()->rowCount()), 0);
      if (!isSong(row) && !isSong(row.siblingAtColumn(1)) && !Chance(10)) continue;
      list->setFocus();
      list->setCurrentIndex(row);
      return Chance(50) ? game_.form->ShowTagEditor() : Key(Qt::Key_Delete);
    }
  }
  void Drag() {
    QWidget* target = Target();
    if (!target) return;
    const QPoint from = Spot(*target), to = Spot(*target);
    Mouse(*target, QEvent::MouseMove, from, Qt::LeftButton);
    Mouse(*target, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int step = 1; step <= 5; ++step) {
      Mouse(*target, QEvent::MouseMove, from + (to - from) * step / 5, Qt::LeftButton);
    }
    Mouse(*target, QEvent::MouseButtonRelease, to, Qt::LeftButton);
    time_ += 1000;
  }
  void Wheel() {
    QWidget* target = Target();
    if (!target) return;
    const QPoint at = Spot(*target);
    QWidget* child = target->childAt(at);
    if (!child || !TakesInput(*child)) return;
    QWheelEvent event(child->mapFrom(target, at), target->mapToGlobal(at), {},
                      {0, Chance(50) ? 120 : -240}, {}, Held(), Qt::NoScrollPhase, false);
    QApplication::sendEvent(child, &event);
  }
  void TypeSnippet() {
    if (Chance(15)) Key(Qt::Key_A, Qt::ControlModifier);
    const char* snippet = OneOf(snippets);
    Tell(snippet);
    Type(QString::fromUtf8(snippet));
    if (Chance(10)) Key(Qt::Key_Return);
  }
  void PressKey() {
    const int key = OneOf(keys);
    for (int times = Chance(20) ? 6 : 1; times > 0; --times) Key(key, Held());
  }
  void PressAccessKey() {
    const int letter = Below(26);
    if (letter == 'x' - 'a' && Chance(80)) return;  // the exit's
    Key(Qt::Key_A + letter, Qt::AltModifier, QString(QChar('a' + letter)));
  }

  // Mostly files and folders of the copies; sometimes what nobody can use.
  void FillDrop(QMimeData& data) {
    const std::vector<std::string> paths = game_.playground.Paths();
    QByteArray uris;
    for (int count = 1 + Below(3); count > 0 && !paths.empty(); --count) {
      uris += FileUrl(OneOf(paths)).toEncoded() + "\r\n";
    }
    if (Chance(10)) uris += "file:///etc/\r\nhttps://tallowbrook.invalid/\r\nfile:///%00\r\n#";
    data.setData(QStringLiteral("text/uri-list"), uris);
    if (Chance(20)) data.setText(QStringLiteral("dropped text"));
  }
  void Drop() {
    QWidget* target = Target();
    if (!target) return;
    const QPoint at = Spot(*target);
    QPointer<QWidget> child = target->childAt(at);
    while (child && !child->acceptDrops())
      child = child->isWindow() ? nullptr : child->parentWidget();
    if (!child || !TakesInput(*child)) return;
    QMimeData data;
    FillDrop(data);
    const QPoint in = child->mapFrom(target, at);
    const auto actions = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    QDragEnterEvent enter(in, actions, &data, Qt::LeftButton, {});
    QDragMoveEvent move(in, actions, &data, Qt::LeftButton, {});
    QDropEvent drop(in, actions, &data, Qt::LeftButton, {});
    Tell("drop " + NameOf(*child));
    QApplication::sendEvent(child, &enter);
    if (!child || !enter.isAccepted()) return;
    QApplication::sendEvent(child, &move);
    if (child) QApplication::sendEvent(child, &drop);
  }

  void Resize() {
    QWidget* target = Target();
    if (!target || target->windowType() == Qt::Popup) return;
    if (Chance(10)) return target->setWindowState(target->windowState() ^ Qt::WindowMaximized);
    target->resize(100 + Below(1500), 100 + Below(1000));
  }
  // The main window more seldom, since it takes a while until the next one is there.
  void Close() {
    QWidget* target = Target();
    const bool closes = target && TakesInput(*target) && (target != game_.window || Chance(5));
    if (closes) target->close();
  }
  // What some ribbon or menu may carry; styles more often than by chance.
  void Command() {
    if (!FreeWindow()) return;
    const auto number = Chance(30) ? OneOf(Styles()).number : OneOf(Commands()).number;
    if (number == commandExit && Chance(95)) return;
    Tell("command " + std::to_string(number));
    game_.form->Dispatch(number);
  }

  Game& game_;
  Qt::MouseButtons held_;
  int time_ = 0;  // of input, in milliseconds
  QPointer<QWidget> modal_;
  int actsInModal_ = 0;
};

const std::vector<Monkey::Habit>& Monkey::Habits() {
  // clang-format off
  static const std::vector<Habit> habits = {
      {30, "click", [](Monkey& m) { m.Click(Qt::LeftButton); }},
      {5, "right click", [](Monkey& m) { m.Click(Qt::RightButton); }},
      {5, "double click", [](Monkey& m) { m.Click(Qt::LeftButton, 2); }},
      {7, "click on", [](Monkey& m) { m.ClickNamed(); }},
      {5, "drag", [](Monkey& m) { m.Drag(); }},
      {4, "wheel", [](Monkey& m) { m.Wheel(); }},
      {12, "type", [](Monkey& m) { m.TypeSnippet(); }},
      {2, "type a path", [](Monkey& m) { m.TypePath(); }},
      {3, "work", [](Monkey& m) { m.Work(); }},
      {2, "use a row", [](Monkey& m) { m.UseRow(); }},
      {14, "key", [](Monkey& m) { m.PressKey(); }},
      {3, "access key", [](Monkey& m) { m.PressAccessKey(); }},
      {4, "shortcut", [](Monkey& m) { m.Key(Qt::Key_A + m.Below(26), Qt::ControlModifier | m.Held()); }},
      {4, "leave", [](Monkey& m) { m.Key(m.Chance(60) ? Qt::Key_Escape : Qt::Key_Return); }},
      {3, "drop", [](Monkey& m) { m.Drop(); }},
      {1, "resize", [](Monkey& m) { m.Resize(); }},
      {1, "close", [](Monkey& m) { m.Close(); }},
      {2, "command", [](Monkey& m) { m.Command(); }},
  };
  // clang-format on
  return habits;
}

}  // namespace

std::unique_ptr<QObject> StartMonkey(Game& game) {
  return std::make_unique<Monkey>(game);
}

}  // namespace tallowbrook
