// Work that a window can be seen without: done behind its first painting.
#pragma once

#include <QWidget>
#include <functional>

namespace tallowbrook {

// `work` is done once, in an event of its own, unless the widget has gone before.
void BehindFirstPaint(QWidget& widget, std::function<void()> work);

}  // namespace tallowbrook
