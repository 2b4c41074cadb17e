// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table_columns.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QScopedValueRollback>
#include <QTableView>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/table.h"
#include "desktop/table_model.h"

namespace velorin {

namespace {

constexpr int narrowest = 32;  // pixels
constexpr int widest = 2000;

/// A column's name, by which it is kept. Of two with one name the later ones are numbered.
QStringList keys_of(const Table& table) {
  QStringList keys;
  for (const TableColumn& column : table.columns) {
    const QString name = spoken_name(column.heading.trimmed().isEmpty() ? column.spoken : column.heading);
    QString key = name;
    for (int number = 2; keys.contains(key); ++number) key = QStringLiteral("%1 %2").arg(name).arg(number);
    keys << key;
  }
  return keys;
}

/// Those that ask for it, or else the first that is no number.
std::vector<bool> stretching(const Table& table) {
  std::vector<bool> stretches;
  stretches.reserve(table.columns.size());
  for (const TableColumn& column : table.columns) stretches.push_back(column.stretches);
  if (std::find(stretches.begin(), stretches.end(), true) != stretches.end()) return stretches;
  const auto text = std::find_if(table.columns.begin(), table.columns.end(),
                                 [](const TableColumn& column) { return !column.numbers; });
  if (text != table.columns.end()) stretches[static_cast<std::size_t>(text - table.columns.begin())] = true;
  return stretches;
}

}  // namespace

TableColumns::TableColumns(QTableView& view) : QObject(&view), view_(view) {
  QHeaderView* header = view.horizontalHeader();
  header->setHighlightSections(false);
  header->setMinimumSectionSize(narrowest);
  header->setSectionResizeMode(QHeaderView::Interactive);
  header->setSortIndicatorClearable(true);
  header->setToolTip(QString::fromLatin1(header_hint));
  header->setContextMenuPolicy(Qt::CustomContextMenu);
  connect(header, &QWidget::customContextMenuRequested, this,
          [this, header](const QPoint& at) { open_menu(header->mapToGlobal(at)); });
  connect(header, &QHeaderView::sectionResized, this,
          [this](int column, int, int width) { note_width(column, width); });
  connect(header, &QHeaderView::sectionHandleDoubleClicked, this, [this](int column) {
    state_.widths.remove(keys_.value(column));
    keep();
    fit();
  });
  connect(header, &QHeaderView::sortIndicatorChanged, this, &TableColumns::note_sorting);
}

void TableColumns::show(const Table& table) {
  const QStringList keys = keys_of(table);
  const bool same = name_ == table.name && keys_ == keys;
  name_ = table.name;
  keys_ = keys;
  stretches_ = stretching(table);
  texts_.clear();
  covered_.clear();
  for (const TableColumn& column : table.columns) covered_.push_back(column.covered);
  for (const TableColumn& column : table.columns) texts_.push_back(!column.numbers);
  order_is_free_ = table.order == RowOrder::free;
  sortable_ = table.order != RowOrder::fixed;
  if (!same) {
    const QScopedValueRollback quiet(fitting_, true);
    view_.setSortingEnabled(false);
    view_.horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    view_.model()->sort(-1);
    view_.setSortingEnabled(sortable_);
    restored_ = false;
  }
  restore();
  fit();
}

void TableColumns::restore() {
  const QString window = window_name();
  if (restored_ || window.isEmpty() || keys_.isEmpty()) return;
  restored_ = true;
  state_ = preferences::table_state(window, view_.objectName());
  hide_as_kept();
  const auto column = static_cast<int>(keys_.indexOf(state_.sorted_by));
  if (order_is_free_ && column >= 0) {
    view_.sortByColumn(column, state_.descending ? Qt::DescendingOrder : Qt::AscendingOrder);
  }
}

void TableColumns::hide_as_kept() {
  const QScopedValueRollback quiet(fitting_, true);
  const bool any =
      std::any_of(keys_.begin(), keys_.end(), [&](const QString& k) { return !state_.hidden.contains(k); });
  for (int column = 0; column < keys_.size(); ++column) {
    view_.setColumnHidden(
        column, any && covered_[static_cast<std::size_t>(column)] == 0 && state_.hidden.contains(keys_[column]));
  }
}

QString TableColumns::window_name() const {
  for (const QWidget* widget = view_.parentWidget(); widget != nullptr; widget = widget->parentWidget()) {
    if (qobject_cast<const Form*>(widget) != nullptr) return widget->objectName();
  }
  return {};
}

void TableColumns::keep() {
  if (restored_) preferences::set_table_state(window_name(), view_.objectName(), state_);
}

int TableColumns::natural_width(int column) const {
  const auto contents = static_cast<QAbstractItemView&>(view_).sizeHintForColumn(column);
  // The header reckons with an arrow over every column, but only one has it.
  QHeaderView* header = view_.horizontalHeader();
  header->setSortIndicatorShown(sortable_ && header->sortIndicatorSection() == column);
  const int heading = header->sectionSizeHint(column);
  header->setSortIndicatorShown(sortable_);
  // Asked for while the view changes its table, a column may not be known yet.
  const auto at = static_cast<std::size_t>(column);
  return std::max({contents + (at < covered_.size() ? covered_[at] : 0), heading, narrowest});
}

int TableColumns::drawn_width(int column) const {
  const int width = state_.widths.value(keys_[column]);
  return width > 0 ? std::clamp(width, narrowest, widest) : 0;
}

std::vector<int> TableColumns::sharing() const {
  std::vector<int> those;
  for (const std::vector<bool>* kind : {&stretches_, &texts_}) {
    for (int column = 0; column < keys_.size(); ++column) {
      if (!(*kind)[static_cast<std::size_t>(column)] || !is_shown(column) || drawn_width(column) > 0) continue;
      if (kind == &texts_ && !those.empty()) break;
      those.push_back(column);
    }
    if (!those.empty()) break;
  }
  return those;
}

void TableColumns::fit() {
  if (fitting_ || keys_.isEmpty() || view_.model()->columnCount() != keys_.size()) return;
  restore();
  {
    const QScopedValueRollback quiet(fitting_, true);
    lay_out();
  }
  emit fitted();
}

void TableColumns::lay_out() {
  const std::vector<int> shared = sharing();
  int left = view_.viewport()->width();
  for (int column = 0; column < keys_.size(); ++column) {
    if (!is_shown(column) || std::find(shared.begin(), shared.end(), column) != shared.end()) continue;
    const int width = drawn_width(column) > 0 ? drawn_width(column) : natural_width(column);
    view_.setColumnWidth(column, width);
    left -= width;
  }
  auto of = static_cast<int>(shared.size());
  for (const int column : shared) {
    const bool whole = covered_[static_cast<std::size_t>(column)] > 0;
    const int share = std::max(left / of--, whole ? natural_width(column) : narrowest);
    view_.setColumnWidth(column, share);
    left -= share;
  }
}

void TableColumns::note_width(int column, int width) {
  if (fitting_ || width <= 0 || column < 0 || column >= keys_.size() || !view_.isVisible()) return;
  state_.widths[keys_[column]] = width;
  keep();
  fit();
}

void TableColumns::note_sorting(int column, Qt::SortOrder order) {
  view_.setAccessibleDescription(sorting());
  fit();
  if (fitting_ || !order_is_free_) return;
  state_.sorted_by = keys_.value(column);
  state_.descending = order == Qt::DescendingOrder;
  keep();
}

bool TableColumns::is_shown(int column) const { return !view_.isColumnHidden(column); }

int TableColumns::shown_count() const {
  int count = 0;
  for (int column = 0; column < keys_.size(); ++column) count += is_shown(column) ? 1 : 0;
  return count;
}

void TableColumns::set_shown(int column, bool shown) {
  if (column < 0 || column >= keys_.size() || is_shown(column) == shown) return;
  if (!shown && (shown_count() == 1 || covered_[static_cast<std::size_t>(column)] > 0)) return;
  {
    const QScopedValueRollback quiet(fitting_, true);
    view_.setColumnHidden(column, !shown);
  }
  if (shown) {
    state_.hidden.removeAll(keys_[column]);
  } else if (!state_.hidden.contains(keys_[column])) {
    state_.hidden << keys_[column];
  }
  keep();
  fit();
}

void TableColumns::sort(int column, Qt::SortOrder order) {
  if (!sortable_ || column < 0 || column >= keys_.size()) return;
  const QHeaderView* header = view_.horizontalHeader();
  if (header->sortIndicatorSection() == column && header->sortIndicatorOrder() == order) return sort_as_told();
  view_.sortByColumn(column, order);
}

void TableColumns::sort_as_told() {
  if (sortable_) view_.sortByColumn(-1, Qt::AscendingOrder);
}

QString TableColumns::sorting() const {
  const QHeaderView* header = view_.horizontalHeader();
  const int column = header->sortIndicatorSection();
  if (column < 0 || column >= keys_.size()) return {};
  return QStringLiteral("sorted by %1, %2")
      .arg(keys_[column], header->sortIndicatorOrder() == Qt::AscendingOrder ? QStringLiteral("ascending")
                                                                             : QStringLiteral("descending"));
}

void TableColumns::open_menu(const QPoint& at) {
  auto* menu = new QMenu(&view_);
  menu->setObjectName(QStringLiteral("columns"));
  menu->setAccessibleName(QStringLiteral("Columns"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int column = 0; column < keys_.size(); ++column) {
    QAction* action = menu->addAction(keys_[column].isEmpty() ? QString::number(column + 1)
                                                              : QString(keys_[column]).replace('&', "&&"));
    action->setCheckable(true);
    action->setChecked(is_shown(column));
    const bool stays = shown_count() == 1 || covered_[static_cast<std::size_t>(column)] > 0;
    action->setEnabled(!is_shown(column) || !stays);
    connect(action, &QAction::toggled, this, [this, column](bool on) { set_shown(column, on); });
  }
  menu->addSeparator();
  connect(menu->addAction(QStringLiteral("Show All")), &QAction::triggered, this, [this] {
    for (int column = 0; column < keys_.size(); ++column) set_shown(column, true);
  });
  menu->popup(at);
}

}  // namespace velorin
