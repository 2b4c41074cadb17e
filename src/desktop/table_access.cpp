// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table_access.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>
#include <vector>

#include "desktop/modality.h"
#include "desktop/name_doors.h"
#include "desktop/table_model.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

/// A cell of a table, or of its headings: those above have row -1, those at the left column -1.
class CellAccess : public QAccessibleInterface,
                   public QAccessibleTableCellInterface,
                   public QAccessibleActionInterface {
 public:
  CellAccess(TableView* view, int row, int column) : view_(view), row_(row), column_(column) {}

  bool isValid() const override {
    return view_ && row_ < view_->model()->rowCount() && column_ < view_->model()->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return view_ ? view_->window()->windowHandle() : nullptr; }
  QAccessibleInterface* parent() const override {
    return view_ ? QAccessible::queryAccessibleInterface(view_.data()) : nullptr;
  }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessible::Role role() const override {
    if (row_ < 0) return QAccessible::ColumnHeader;
    return column_ < 0 ? QAccessible::RowHeader : QAccessible::Cell;
  }
  QRect rect() const override;
  QString text(QAccessible::Text which) const override;
  void setText(QAccessible::Text, const QString&) override {}
  QAccessible::State state() const override;
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (is_heading()) return nullptr;
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface) return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
  }

  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  int columnIndex() const override { return column_; }
  int rowIndex() const override { return row_; }
  bool isSelected() const override { return isValid() && view_->selectionModel()->isSelected(index()); }
  QList<QAccessibleInterface*> columnHeaderCells() const override;
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  QAccessibleInterface* table() const override { return parent(); }

  /// To open the row, and to follow each name in the cell.
  QStringList actionNames() const override {
    QStringList names = can_open() ? QStringList{pressAction()} : QStringList();
    for (const FoundName& name : names_here()) names << name.link.name;
    return names;
  }
  QString localizedActionName(const QString& action) const override {
    return action == pressAction() ? QStringLiteral("Open") : QAccessibleActionInterface::localizedActionName(action);
  }
  void doAction(const QString& action) override;
  QStringList keyBindingsForAction(const QString& action) const override {
    return action == pressAction() && can_open() ? QStringList{QStringLiteral("Return")} : QStringList();
  }

 private:
  bool is_heading() const { return row_ < 0 || column_ < 0; }
  QModelIndex index() const { return view_->model()->index(row_, column_); }
  bool can_open() const { return isValid() && !is_heading() && view_->can_open(index()); }
  std::vector<FoundName> names_here() const {
    if (!isValid() || is_heading() || index().data(covered_role).toBool()) return {};
    return name_book().names_in(index().data().toString());
  }

  QPointer<TableView> view_;
  int row_;
  int column_;
};

QRect CellAccess::rect() const {
  if (!isValid()) return {};
  const QHeaderView* above = view_->horizontalHeader();
  const QHeaderView* left = view_->verticalHeader();
  if (!is_heading()) {
    const QRect at = view_->visualRect(index());
    return {view_->viewport()->mapToGlobal(at.topLeft()), at.size()};
  }
  const int x = column_ < 0 ? 0 : above->sectionViewportPosition(column_);
  const int y = row_ < 0 ? 0 : left->sectionViewportPosition(row_);
  const QHeaderView* header = row_ < 0 ? above : left;
  const QSize size(column_ < 0 ? left->width() : above->sectionSize(column_),
                   row_ < 0 ? above->height() : left->sectionSize(row_));
  return {header->viewport()->mapToGlobal(QPoint(x, y)), size};
}

QString CellAccess::text(QAccessible::Text which) const {
  if (!isValid() || (row_ < 0 && column_ < 0)) return {};
  const auto of_role = [this](int role) {
    if (row_ < 0) return view_->model()->headerData(column_, Qt::Horizontal, role).toString();
    if (column_ < 0) return view_->model()->headerData(row_, Qt::Vertical, role).toString();
    return index().data(role).toString();
  };
  if (which == QAccessible::Description) return of_role(Qt::AccessibleDescriptionRole);
  if (which != QAccessible::Name) return {};
  const QString spoken = of_role(Qt::AccessibleTextRole);
  return spoken.isEmpty() ? of_role(Qt::DisplayRole) : spoken;
}

QAccessible::State CellAccess::state() const {
  QAccessible::State state;
  if (!isValid()) {
    state.invalid = true;
    return state;
  }
  state.disabled = !view_->isEnabled();
  state.invisible = !view_->isVisible() || (column_ >= 0 && view_->isColumnHidden(column_));
  if (is_heading()) return state;
  state.selectable = view_->selectionMode() != QAbstractItemView::NoSelection;
  state.focusable = true;
  state.selected = isSelected();
  state.focused = view_->hasFocus() && view_->currentIndex() == index();
  state.offscreen = !view_->viewport()->rect().intersects(view_->visualRect(index()));
  return state;
}

void CellAccess::doAction(const QString& action) {
  for (const FoundName& name : names_here()) {
    if (name.link.name == action && view_->isEnabled()) return follow_name(name.link, *view_);
  }
  if (action != pressAction() || !can_open() || !view_->isEnabled() || is_covered(*view_)) return;
  // Later, since what opens may stay for long, and whoever asked waits for an answer.
  QTimer::singleShot(0, view_, [view = view_, row = QPersistentModelIndex(index())] {
    if (!view || !row.isValid() || !view->isVisible() || !view->isEnabled() || is_covered(*view)) return;
    view->setCurrentIndex(row);
    view->open_row(row);
  });
}

/// A table with its headings, numbered as the toolkit's own: row by row with the headings, the corner first.
class TableAccess : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit TableAccess(TableView* view) : QAccessibleWidget(view, QAccessible::Table), view_(view) {}
  ~TableAccess() override {
    for (const QAccessible::Id id : std::as_const(cells_)) QAccessible::deleteAccessibleInterface(id);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  int childCount() const override { return (rowCount() + 1) * (columnCount() + 1); }
  QAccessibleInterface* child(int number) const override {
    if (number < 0 || number >= childCount()) return nullptr;
    return cell(number / (columnCount() + 1) - 1, number % (columnCount() + 1) - 1);
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    const auto* one = dynamic_cast<const CellAccess*>(child);
    return one == nullptr ? -1 : (one->rowIndex() + 1) * (columnCount() + 1) + one->columnIndex() + 1;
  }
  QAccessibleInterface* childAt(int x, int y) const override {
    const QModelIndex at = view_->indexAt(view_->viewport()->mapFromGlobal(QPoint(x, y)));
    return at.isValid() ? cell(at.row(), at.column()) : nullptr;
  }
  QAccessibleInterface* focusChild() const override {
    const QModelIndex at = view_->currentIndex();
    return view_->hasFocus() && at.isValid() ? cell(at.row(), at.column()) : nullptr;
  }

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  QAccessibleInterface* cellAt(int row, int column) const override {
    const bool is_one = row >= 0 && row < rowCount() && column >= 0 && column < columnCount();
    return is_one ? cell(row, column) : nullptr;
  }
  int rowCount() const override { return view_->model()->rowCount(); }
  int columnCount() const override { return view_->model()->columnCount(); }
  QString rowDescription(int row) const override { return view_->model()->headerData(row, Qt::Vertical).toString(); }
  QString columnDescription(int column) const override {
    return view_->model()->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
  }
  int selectedCellCount() const override { return static_cast<int>(chosen()->selectedIndexes().size()); }
  QList<QAccessibleInterface*> selectedCells() const override {
    QList<QAccessibleInterface*> cells;
    for (const QModelIndex& at : chosen()->selectedIndexes()) cells << cell(at.row(), at.column());
    return cells;
  }
  int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
  int selectedColumnCount() const override { return 0; }
  QList<int> selectedRows() const override {
    QList<int> rows;
    for (int row = 0; row < rowCount(); ++row) {
      if (isRowSelected(row)) rows << row;
    }
    return rows;
  }
  QList<int> selectedColumns() const override { return {}; }
  bool isRowSelected(int row) const override { return chosen()->isRowSelected(row); }
  bool isColumnSelected(int) const override { return false; }
  bool selectRow(int row) override { return choose(row, true); }
  bool selectColumn(int) override { return false; }
  bool unselectRow(int row) override { return choose(row, false); }
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent*) override {}  // a cell asks the model each time

 private:
  QItemSelectionModel* chosen() const { return view_->selectionModel(); }
  bool choose(int row, bool on) {
    if (row < 0 || row >= rowCount() || !view_->isEnabled() || is_covered(*view_)) return false;
    if (view_->selectionMode() == QAbstractItemView::NoSelection) return false;
    if (on && view_->selectionMode() == QAbstractItemView::SingleSelection) view_->clearSelection();
    const auto how = on ? QItemSelectionModel::Select : QItemSelectionModel::Deselect;
    chosen()->select(view_->model()->index(row, 0), how | QItemSelectionModel::Rows);
    return true;
  }
  QAccessibleInterface* cell(int row, int column) const {
    const auto found = cells_.constFind({row, column});
    if (found != cells_.constEnd()) return QAccessible::accessibleInterface(*found);
    auto* one = new CellAccess(view_, row, column);
    cells_.insert({row, column}, QAccessible::registerAccessibleInterface(one));
    return one;
  }

  TableView* view_;
  mutable QHash<std::pair<int, int>, QAccessible::Id> cells_;
};

QList<QAccessibleInterface*> CellAccess::columnHeaderCells() const {
  QAccessibleInterface* all = parent();
  return all == nullptr ? QList<QAccessibleInterface*>() : QList<QAccessibleInterface*>{all->child(column_ + 1)};
}

QAccessibleInterface* table_interface(const QString&, QObject* object) {
  auto* view = qobject_cast<TableView*>(object);
  return view == nullptr ? nullptr : new TableAccess(view);
}

}  // namespace

void give_table_access() {
  static const bool installed = [] {
    QAccessible::installFactory(table_interface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace velorin
