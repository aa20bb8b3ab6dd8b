// What a user has arranged in the main window, kept from run to run: how wide tree and columns are,
// and how the ribbon stands. Nothing depends on it: what is missing or makes no sense leaves the
// window as it is.
#pragma once

class QHeaderView;
class QSettings;
class QSplitter;

namespace tallowbrook {

class RibbonBar;

struct WindowParts {
  QSplitter& splitter;  // the tree, the list
  QHeaderView& columns;
  RibbonBar& ribbon;
};

// The tree has at least 15 percent of the window.
int LeastTreeWidth(int windowWidth);

// Once the window shows: before, its parts have no sizes.
void RestoreLayout(const WindowParts& parts, const QSettings& settings);
void SaveLayout(const WindowParts& parts, QSettings& settings);

}  // namespace tallowbrook
