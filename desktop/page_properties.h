// Page "File Name Properties": one panel a part of the new name, in the order in which the name
// is put together.
#pragma once

#include <QWidget>
#include <vector>

#include "desktop/binder.h"
#include "shell/form1.h"

class QGroupBox;
class QHBoxLayout;
class QGridLayout;

namespace tallowbrook {

class PropertiesPage : public QWidget {
 public:
  PropertiesPage(Form1& form, Binder& binder, QWidget* parent);

 protected:
  // A text dropped on the panel of the filename clears its history.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QGroupBox* MakePanel(Frame& frame, char accessKey);
  QGroupBox* MakeTextPanel(Frame& frame, char accessKey, Tick& include, Text& text);
  QGroupBox* MakeFilenamePanel();
  QGroupBox* MakeExtensionPanel();
  QGroupBox* MakeUniquePanel();
  QWidget* MakeNumbers(QWidget* parent);
  QWidget* MakeDates(QWidget* parent);
  QLayout* MakeSampleRow();
  void ArrangePanels();
  void ArrangeTabs(const std::vector<QGroupBox*>& order);

  Form1& form_;
  Binder& binder_;
  QHBoxLayout* panels_;
  QGroupBox* prefix_;
  QGroupBox* filename_;
  QGroupBox* separator_;
  QGroupBox* unique_;
  QGroupBox* suffix_;
  QGroupBox* extension_;
};

}  // namespace tallowbrook
