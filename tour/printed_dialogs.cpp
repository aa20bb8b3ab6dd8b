#include "tour/printed_dialogs.h"

#include <iostream>

#include "tour/sample_files.h"

namespace tallowbrook {

Answer PrintedDialogs::Ask(const MessageBox& box) {
  std::cout << "  [" << box.title << "] " << Printable(box.text) << "\n";
  asked.push_back(box);
  if (box.buttons == Buttons::Ok) return Answer::Ok;
  return box.title == "Confirm Undo" ? Answer::Yes : Answer::No;
}

}  // namespace tallowbrook
