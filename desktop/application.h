// The toolkit's application, with one rule of ours: a fault in a handler is reported, and the
// program goes on.
#pragma once

#include <QApplication>

namespace tallowbrook {

class Application : public QApplication {
 public:
  Application(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;

 private:
  void Report(const char* what);
  bool reporting_ = false;
};

}  // namespace tallowbrook
