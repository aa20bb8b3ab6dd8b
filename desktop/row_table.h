// A table of whole rows: what all tables of the program have in common.
#pragma once

#include <QStyledItemDelegate>

#include "desktop/row_view.h"

namespace tallowbrook {

// Paints texts in legible shades of their colours, in highlighted rows too. Check marks have none.
// The row that the keyboard is on has a frame; a highlight alone doesn't tell.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
  // The cell's part of a frame around its row, which leaves text and check mark as they are.
  static void PaintFrame(QPainter& painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index, const QColor& colour, int thick);
};

class RowTable : public RowView<QTableView> {
 public:
  explicit RowTable(QWidget* parent);

 protected:
  QRect CheckBoxRect(const QModelIndex& index) const override;
  // The frame goes around all cells of a row.
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

 private:
  void SetUpLook();
};

}  // namespace tallowbrook
