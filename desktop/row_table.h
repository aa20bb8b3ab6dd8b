// A table of whole rows: what all tables of the program have in common.
#pragma once

#include <QStyledItemDelegate>

#include "desktop/row_view.h"

namespace tallowbrook {

// Paints texts in legible shades of their colours, in highlighted rows too. Check marks have none.
class RowDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

class RowTable : public RowView<QTableView> {
 public:
  explicit RowTable(QWidget* parent);

 protected:
  QRect CheckBoxRect(const QModelIndex& index) const override;

 private:
  void SetUpLook();
};

}  // namespace tallowbrook
