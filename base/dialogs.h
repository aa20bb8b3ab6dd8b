// Questions and messages as data: what the program wants to ask, and what came back.
//
// Whoever asks declares a Dialogs and is handed one. The window's one shows a box; a test's one
// answers from a queue.
#pragma once

#include <string>

namespace tallowbrook {

enum class Buttons { Ok, YesNo };
enum class Answer { Ok, Yes, No };

struct MessageBox {
  std::string title;
  std::string text;  // plain text; lines end in "\r\n" or "\n"
  Buttons buttons = Buttons::Ok;
  // What Enter gives to a Yes/No box: No where Yes can't be taken back.
  Answer enter = Answer::Yes;
};

class Dialogs {
 public:
  virtual ~Dialogs() = default;
  // Returns when the user has answered. Closing a Yes/No box counts as No.
  virtual Answer Ask(const MessageBox& box) = 0;
};

}  // namespace tallowbrook
