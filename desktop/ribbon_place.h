// The place of the ribbon: the program's name and one flat button a command.
#pragma once

#include <QFrame>
#include <functional>

namespace tallowbrook {

class RibbonPlace : public QFrame {
 public:
  RibbonPlace(std::function<void(int number)> dispatch, QWidget* parent);
};

}  // namespace tallowbrook
