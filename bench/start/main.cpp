// One start, measured from within: tallowbrook_bench_start program|bare NANOSECONDS FOLDER.
//
// The time counts from what the caller's monotonic clock said when it started us, up to the first
// painted window. Prints the milliseconds and the peak memory in KiB, and ends at once. "program"
// is the whole program over a data folder of its own, which is also the folder that it lists;
// "bare" an empty main window with a table of the same toolkit.
#include <sys/resource.h>

#include <QMainWindow>
#include <QTableView>
#include <QTimer>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "desktop/application.h"
#include "desktop/program.h"
#include "desktop/text.h"

namespace {

using namespace tallowbrook;

[[noreturn]] void Report(std::int64_t started) {
  const std::int64_t now = std::chrono::steady_clock::now().time_since_epoch().count();
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("%f %ld\n", static_cast<double>(now - started) / 1e6, usage.ru_maxrss);
  std::fflush(stdout);
  std::_Exit(0);
}

// Reports once the window has been painted and shown.
class FirstPaint : public QObject {
 public:
  FirstPaint(QWidget& window, std::int64_t started) : started_(started) {
    window.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) QTimer::singleShot(0, this, [this] { Report(started_); });
    return false;
  }

 private:
  std::int64_t started_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4) return 2;
  const std::int64_t started = std::atoll(argv[2]);
  if (std::string_view(argv[1]) == "bare") {
    QApplication application(argc, argv);
    QMainWindow window;
    window.setCentralWidget(new QTableView(&window));
    window.resize(1180, 740);
    FirstPaint paint(window, started);
    window.show();
    return QApplication::exec();
  }
  Application application(argc, argv);
  const std::string programFolder = ToBytes(QApplication::applicationDirPath()) + "/";
  Program program({{programFolder, argv[3]}, argv[3], SystemDateNames()});
  FirstPaint paint(program.window, started);
  return program.Start() ? QApplication::exec() : 0;
}
