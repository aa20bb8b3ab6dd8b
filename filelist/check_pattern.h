// Which rows are checked: all, none, the others, or every n-th from a start row.
//
// The two boxes hold the pattern; the scan applies it to what it lists. Beside each stands a pair
// of arrows that steps its number.
#pragma once

#include <cstdint>

#include "filelist/file_list.h"
#include "filelist/list_pane.h"

namespace tallowbrook {

class CheckPattern {
 public:
  CheckPattern(FileList& list, ListPane& pane);
  // Sets all check marks from the two boxes, as they stand. An empty step becomes 0.
  void ApplyCheckPattern();

 private:
  // One box with its arrows.
  struct Box {
    Text& text;
    Spin& spin;
    std::int32_t lowest;  // that the arrows reach; more may be typed
    int rest;             // where the arrows' position goes when the keyboard leaves the box
    int lastPosition = 0;
    std::int32_t value = 0;
  };
  void Wire(Box& box);
  void Step(Box& box);

  FileList& list_;
  Box start_;
  Box step_;
};

}  // namespace tallowbrook
