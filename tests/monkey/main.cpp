// The monkey's program: tallowbrook_monkey [--seed N] [--seconds N] [--trail FILE].
//
// The whole program runs on a folder of copies while a monkey plays with it, from one start to the
// next whenever the monkey has closed it. Fails if a fault reaches the top, if a loop of events
// stands still, if anything changes outside the copies, or if a file is lost that nobody gave away;
// under the address sanitizer also for what that finds, leaks included. Without --seconds it plays
// for twenty, and for ten minutes where TALLOWBROOK_FULL is set.
#include <pthread.h>

#include <QSettings>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <thread>

#include "desktop/application.h"
#include "desktop/dialogs.h"
#include "desktop/events.h"
#include "desktop/main_window.h"
#include "desktop/thumbnail_pictures.h"
#include "platform/signals.h"
#include "tests/monkey/monkey.h"
#include "tests/support/silent_world.h"

namespace {

using namespace tallowbrook;

constexpr int shortSeconds = 20;
constexpr int fullSeconds = 600;
constexpr int longestLife = 60;  // seconds
constexpr int longestSilence = 20;
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
  WindowDialogs boxes;
  std::map<Answer, int> answers;
  bool saidYes = false;

  Answer Ask(const MessageBox& box) override {
    const Answer answer = boxes.Ask(box);
    saidYes = answer == Answer::Yes;
    ++answers[answer];
    return answer;
  }
};

// What would leave the program, counted.
struct CountedDesktop : Desktop {
  int opened = 0;
  void Open(const std::string&) override { ++opened; }
  void OpenAddress(const std::string&) override { ++opened; }
  void ShowInFolder(const std::string&, const std::string&) override { ++opened; }
};

// Ends the program by the main thread's own abort, whose place the sanitizer then tells.
class Watch {
 public:
  explicit Watch(const std::atomic<int>& acts) : acts_(acts), main_(pthread_self()) {}
  ~Watch() {
    done_ = true;
    thread_.join();
  }

 private:
  void Run() {
    int seen = -1;
    for (int silence = 0; !done_; std::this_thread::sleep_for(std::chrono::milliseconds(100))) {
      silence = acts_ == seen ? silence + 1 : 0;
      seen = acts_;
      if (silence < longestSilence * 10) continue;
      std::cerr << "monkey: no event for " << longestSilence << " s behind act " << seen << "\n";
      pthread_kill(main_, SIGABRT);
      return;
    }
  }

  const std::atomic<int>& acts_;
  pthread_t main_;
  std::atomic<bool> done_ = false;
  std::thread thread_{[this] { Run(); }};
};

struct Game {
  const Playground& playground;
  Cage& cage;
  Monkey& monkey;
  NotedDialogs& dialogs;
  CountedDesktop& desktop;
};

// From a start to an end, as the program's own main has it.
void Live(const Game& game) {
  SystemClock clock;
  SystemRandom random;
  WindowEvents events;
  NoNetwork network;
  ThumbnailPictures thumbnails(game.cage);
  Form1 form({game.cage,
              clock,
              random,
              game.dialogs,
              events,
              game.desktop,
              thumbnails,
              network,
              EnglishDateNames(),
              {game.playground.Program(), game.playground.Data()},
              game.playground.Copies()});
  MainWindow window(form, game.cage, game.playground.Copies());
  game.dialogs.boxes.SetParent(&window);
  game.monkey.form = &form;
  game.monkey.window = &window;
  form.Load();
  if (!form.ExitDone) {
    window.show();
    QSettings layout(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("tallowbrook"),
                     QStringLiteral("window"));
    RestoreLayout(window.Parts(), layout);
    Application::exec();
    SaveLayout(window.Parts(), layout);
  }
  game.monkey.form = nullptr;
  game.monkey.window = nullptr;
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

template <typename Counts>
void Print(const char* what, const Counts& counts) {
  std::cout << what;
  for (const auto& [name, count] : counts) std::cout << "  " << name << " " << count;
  std::cout << "\n";
}

int Play(Playground& playground, unsigned seed, int seconds, std::FILE* trail) {
  Cage cage(playground.Copies(), {playground.Data(), playground.Temporary()});
  NotedDialogs dialogs;
  cage.saidYes = [&] { return dialogs.saidYes; };
  CountedDesktop desktop;
  Monkey monkey(seed, playground, trail);
  int lives = 0;
  {
    const Watch watch(monkey.acts);
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(seconds);
    QTimer life, whole;
    life.callOnTimeout([] { Application::quit(); });
    whole.callOnTimeout([&] {
      monkey.Stop();
      Application::quit();
      whole.start(100);  // whatever loop begins after this one
    });
    whole.start(std::chrono::seconds(seconds));
    monkey.Start();
    while (std::chrono::steady_clock::now() < end) {
      ++lives;
      playground.Fill(leastFiles);
      life.start(std::chrono::seconds(longestLife));
      Live({playground, cage, monkey, dialogs, desktop});
      AddWidgetsLeft(monkey.faults);
    }
    monkey.Stop();
  }
  std::vector<std::string> faults = playground.Faults(cage.given);
  for (const auto& more : {cage.faults, monkey.faults, reported}) {
    faults.insert(faults.end(), more.begin(), more.end());
  }
  std::cout << "monkey: seed " << seed << ", " << seconds << " s, " << monkey.acts << " acts, "
            << lives << " starts\n";
  Print("dialogs:", monkey.dialogs);
  Print("popups:", monkey.popups);
  Print("on the disk:", cage.deeds);
  std::cout << "answers: yes " << dialogs.answers[Answer::Yes] << ", no "
            << dialogs.answers[Answer::No] << ", ok " << dialogs.answers[Answer::Ok]
            << "; opened elsewhere: " << desktop.opened << "\n";
  std::cout << "kept: " << playground.GuardedFiles() << " entries outside the copies as they were; "
            << playground.Marks() << " files made, " << cage.given.size() << " given away\n";
  for (const std::string& fault : faults) std::cout << "fault: " << fault << "\n";
  std::cout << faults.size() << " faults\n";
  return faults.empty() ? 0 : 1;
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
  const int result = Play(playground, seed, seconds, trail);
  if (trail) std::fclose(trail);
  return result;
}
