#include "desktop/application.h"

#include <QMessageBox>
#include <exception>

#include "desktop/look.h"
#include "desktop/text.h"

namespace tallowbrook {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName(QStringLiteral("tallowbrook"));
  setApplicationDisplayName(QStringLiteral("Tallowbrook"));
  ApplyLook();
}

bool Application::notify(QObject* receiver, QEvent* event) {
  try {
    return QApplication::notify(receiver, event);
  } catch (const std::exception& error) {
    Report(error.what());
  } catch (...) {
    Report("unknown fault");
  }
  return true;
}

// A fault while one is on show goes to the error stream alone.
void Application::Report(const char* what) {
  qCritical("tallowbrook: %s", what);
  if (reporting_) return;
  reporting_ = true;
  QMessageBox box(
      QMessageBox::Warning, QStringLiteral("Tallowbrook"),
      QStringLiteral("Something went wrong, and this step was left out:\n") + VisibleText(what),
      QMessageBox::Ok, activeWindow());
  box.setTextFormat(Qt::PlainText);
  box.exec();
  reporting_ = false;
}

}  // namespace tallowbrook
