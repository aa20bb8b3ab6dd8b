// The panel beside the pages: where renamed files go.
#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "shell/form1.h"

namespace tallowbrook {

QWidget* MakeCopyMovePanel(Form1& form, Binder& binder, QWidget* parent);

}  // namespace tallowbrook
