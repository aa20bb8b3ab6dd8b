// A table of whole rows: what all lists of the program have in common.
#pragma once

#include <QStyledItemDelegate>
#include <QTableView>
#include <functional>
#include <vector>

#include "desktop/row_model.h"

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

class RowTable : public QTableView {
 public:
  explicit RowTable(QWidget* parent);

 protected:
  // Input acts on rows that are there: each of these tells the view of all changes first.
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  // A click on a check box turns it and leaves the highlights alone.
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  // A key never acts on a single check box.
  bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

  // The left button, twice on one row but not on its check box. The row counts from 1.
  virtual void RowDoubleClicked(std::size_t) {}

  RowModel& Rows() const { return *static_cast<RowModel*>(model()); }
  bool IsOnCheckBox(QPoint point) const;
  // From 1, 0 for none.
  std::size_t RowAt(QPoint point) const;
  // Of those that the view knows, ascending.
  std::vector<std::size_t> HighlightedRows() const;
  // All highlighted rows become what the first of them was not; rows beyond `count` are left out.
  void ToggleHighlighted(std::size_t count, const std::function<bool(std::size_t)>& isChecked,
                         const std::function<void(std::size_t, bool)>& setChecked);

 private:
  void SetUpLook();

  std::size_t pressedRow_ = 0;
  bool pressedBox_ = false;
};

}  // namespace tallowbrook
