// A menu that pops up, made from the buttons that it presses.
#pragma once

#include <QPoint>
#include <QWidget>
#include <vector>

#include "filelist/list_operations.h"

namespace tallowbrook {

// Shows it at a place of the screen and comes back at once. The buttons' captions and whether they
// are enabled count as they are now; each item has an access key of its own.
void PopUpMenu(const std::vector<ListOperations::MenuItem>& items, QPoint place, QWidget* over);

}  // namespace tallowbrook
