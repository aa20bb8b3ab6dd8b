#include "desktop/window_layout.h"

#include <QHeaderView>
#include <QSettings>
#include <QSplitter>
#include <cmath>

#include "desktop/ribbon_bar.h"

namespace tallowbrook {

namespace {

constexpr char treeKey[] = "tree";        // its width in points
constexpr char columnsKey[] = "columns";  // the widths in points, 0 for one that doesn't show
constexpr char tabKey[] = "ribbonTab";    // from 0
constexpr char minimisedKey[] = "ribbonMinimised";
constexpr int widestColumn = 2000;

int TotalOf(const QSplitter& splitter) {
  return splitter.sizes().value(0) + splitter.sizes().value(1);
}

void RestoreTree(QSplitter& splitter, const QVariant& kept) {
  const int tree = kept.toInt();
  const int total = TotalOf(splitter);
  const int least = LeastTreeWidth(splitter.window()->width());
  if (tree >= least && tree < total) splitter.setSizes({tree, total - tree});
}

void RestoreColumns(QHeaderView& columns, const QStringList& kept) {
  if (kept.size() != columns.count()) return;
  for (int column = 0; column < columns.count(); ++column) {
    const int width = kept[column].toInt();
    const bool fits = width >= columns.minimumSectionSize() && width <= widestColumn;
    if (fits && !columns.isSectionHidden(column)) columns.resizeSection(column, width);
  }
}

}  // namespace

int LeastTreeWidth(int windowWidth) {
  constexpr double leastShare = 0.15;
  return static_cast<int>(std::ceil(windowWidth * leastShare));
}

void RestoreLayout(const WindowParts& parts, const QSettings& settings) {
  RestoreTree(parts.splitter, settings.value(QLatin1String(treeKey)));
  RestoreColumns(parts.columns, settings.value(QLatin1String(columnsKey)).toStringList());
  parts.ribbon.SelectTab(settings.value(QLatin1String(tabKey)).toInt());
  parts.ribbon.SetMinimised(settings.value(QLatin1String(minimisedKey)).toString() ==
                            QLatin1String("true"));
}

void SaveLayout(const WindowParts& parts, QSettings& settings) {
  settings.setValue(QLatin1String(treeKey), parts.splitter.sizes().value(0));
  QStringList widths;
  for (int column = 0; column < parts.columns.count(); ++column) {
    widths += QString::number(parts.columns.sectionSize(column));
  }
  settings.setValue(QLatin1String(columnsKey), widths);
  settings.setValue(QLatin1String(tabKey), parts.ribbon.SelectedTab());
  settings.setValue(QLatin1String(minimisedKey), parts.ribbon.IsMinimised());
}

}  // namespace tallowbrook
