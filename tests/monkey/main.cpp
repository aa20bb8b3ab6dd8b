// The monkey's program: tallowbrook_monkey [--seed N] [--seconds N] [--trail FILE].
//
// The whole program runs on a folder of copies while a monkey plays with it, from one start to the
// next whenever the monkey has closed it. Fails if a fault reaches the top, if a loop of events
// stands still, if anything changes outside the copies, or if a file is lost that nobody gave away;
// under the address sanitizer also for what that finds, leaks included. Without --seconds it plays
// for twenty, and for ten minutes where TALLOWBROOK_FULL is set.
#include <QSettings>
#include <QTimer>
#include <chrono>
#include <cstring>
#include <filesystem>
#include <iostream>

#include "desktop/application.h"
#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/main_window.h"
#include "desktop/thumbnail_pictures.h"
#include "platform/signals.h"
#include "tests/monkey/game.h"
#include "tests/support/silent_world.h"

namespace {

using namespace tallowbrook;

constexpr int shortSeconds = 20;
constexpr int fullSeconds = 600;
constexpr int longestLife = 60;  // seconds
constexpr std::size_t leastFiles = 30;

// What the toolkit tells, faults that reached the application included.
std::vector<std::string> reported;

void NoteMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
  const std::string line = text.toStdString();
  // All that may be told is what the off-screen platform lacks.
  if (!line.starts_with("This plugin does not support ")) reported.push_back(line);
}

// Boxes on the screen, for the monkey to answer.
struct NotedDialogs : Dialogs {
  explicit NotedDialogs(Game& noted) : game(noted) {}
  Answer Ask(const MessageBox& box) override {
    const Answer answer = boxes.Ask(box);
    game.saidYes = answer == Answer::Yes;
    return answer;
  }
  Game& game;
  WindowDialogs boxes;
};

// From a start to an end, as the program's own main has it.
void Live(Game& game, Files& files) {
  const Playground& place = game.playground;
  SystemClock clock;
  SystemRandom random;
  NotedDialogs dialogs(game);
  WindowEvents events;
  NoDesktop desktop;
  NoNetwork network;
  ThumbnailPictures thumbnails(files);
  const ProgramFolders folders{place.Program(), place.Data()};
  Form1 form({files, clock, random, dialogs, events, desktop, thumbnails, network,
              EnglishDateNames(), folders, place.Copies()});
  MainWindow window(form, files, place.Copies());
  dialogs.boxes.SetParent(&window);
  game.form = &form;
  game.window = &window;
  form.Load();
  if (!form.ExitDone) {
    window.show();
    QSettings layout(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tallowbrook"),
                     QStringLiteral("window"));
    RestoreLayout(window.Parts(), layout);
    Application::exec();
    SaveLayout(window.Parts(), layout);
  }
  game.form = nullptr;
  game.window = nullptr;
}

// Widgets that have outlived their window. The toolkit lists them all, and there the sanitizer
// finds them and sees no leak. Its own one for the desktop and the one for tips stay.
void AddWidgetsLeft(std::vector<std::string>& faults) {
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  for (const QWidget* widget : QApplication::allWidgets()) {
    if (widget->windowType() == Qt::Desktop || widget->inherits("QTipLabel")) continue;
    faults.push_back("outlived its window: " + std::string(widget->metaObject()->className()) +
                     " " + widget->objectName().toStdString());
  }
}

// How many starts there were.
int Play(Game& game, Playground& playground, int seconds) {
  SystemFiles disk;
  FaultyFiles files(disk);
  Fence(files, game);
  QTimer life, whole;
  life.callOnTimeout([] { Application::quit(); });
  whole.callOnTimeout([&] {
    game.isOver = true;
    Application::quit();
    whole.start(100);  // whatever loop begins after this one
  });
  whole.start(std::chrono::seconds(seconds));
  const auto monkey = StartMonkey(game);
  int lives = 0;
  for (; !game.isOver; ++lives) {
    playground.Fill(leastFiles);
    life.start(std::chrono::seconds(longestLife));
    Live(game, files);
    AddWidgetsLeft(game.faults);
  }
  return lives;
}

void Print(const char* what, const std::map<std::string, int>& counts) {
  std::cout << what;
  for (const auto& [name, count] : counts) std::cout << "  " << name << " " << count;
  std::cout << "\n";
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  unsigned seed = 1;
  int seconds = qEnvironmentVariableIsEmpty("TALLOWBROOK_FULL") ? shortSeconds : fullSeconds;
  std::FILE* trail = nullptr;
  for (int i = 1; i + 1 < argc; i += 2) {
    if (std::strcmp(argv[i], "--seed") == 0) seed = static_cast<unsigned>(std::atoi(argv[i + 1]));
    if (std::strcmp(argv[i], "--seconds") == 0) seconds = std::atoi(argv[i + 1]);
    if (std::strcmp(argv[i], "--trail") == 0) trail = std::fopen(argv[i + 1], "w");
  }
  IgnoreWriteSignals();
  qInstallMessageHandler(NoteMessage);
  // Before the toolkit looks for the user's folders.
  Playground playground(std::filesystem::canonical("/proc/self/exe").parent_path().string() + "/");
  Application application(argc, argv);
  Game game{playground, std::mt19937(seed), trail};
  const int lives = Play(game, playground, seconds);
  std::vector<std::string> faults = playground.Faults(game.given);
  for (const auto& more : {game.faults, reported}) {
    faults.insert(faults.end(), more.begin(), more.end());
  }
  std::cout << "monkey: seed " << seed << ", " << seconds << " s, " << game.acts << " acts, "
            << lives << " starts, " << playground.Marks() << " files, " << game.given.size()
            << " given away\n";
  Print("dialogs:", game.dialogs);
  Print("on the disk:", game.deeds);
  for (const std::string& fault : faults) std::cout << "fault: " << fault << "\n";
  std::cout << faults.size() << " faults\n";
  return faults.empty() ? 0 : 1;
}
