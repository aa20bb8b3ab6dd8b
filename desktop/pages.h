// The plainer pages of the tab control, each made by one routine.
#pragma once

#include <QWidget>

#include "desktop/binder.h"
#include "shell/form1.h"

namespace tallowbrook {

QWidget* MakeDeletePage(Form1& form, Binder& binder, QWidget* parent);
QWidget* MakeReplacePage(Form1& form, Binder& binder, QWidget* parent);
QWidget* MakeAdvancedPage(Form1& form, Binder& binder, QWidget* parent);
QWidget* MakeTagsPage(Form1& form, Binder& binder, QWidget* parent);

}  // namespace tallowbrook
