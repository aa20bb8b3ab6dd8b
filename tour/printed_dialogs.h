// Questions and messages where nobody is there to answer: printed, noted, and answered.
#pragma once

#include <vector>

#include "base/dialogs.h"

namespace tallowbrook {

class PrintedDialogs : public Dialogs {
 public:
  // The questions that the tour itself leads to get Yes, any other No.
  Answer Ask(const MessageBox& box) override;

  std::vector<MessageBox> asked;
};

}  // namespace tallowbrook
