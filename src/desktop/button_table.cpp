// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/button_table.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/enlarged.h"
#include "desktop/table_columns.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {
constexpr int beside_button = 4;  // pixels, to the edges of its cell
}  // namespace

ButtonTable::ButtonTable(const QString& name, QWidget* parent) : QWidget(parent), view_(new TableView(name)) {
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->addWidget(view_);
  // Its buttons tell what is chosen.
  view_->setSelectionMode(QAbstractItemView::NoSelection);
  view_->on_open(
      [this](int id) {
        if (QAbstractButton* wanted = button(id); wanted != nullptr && wanted->isEnabled()) wanted->click();
      },
      TableView::Opens::press);
  connect(&view_->columns(), &TableColumns::fitted, this, &ButtonTable::place_buttons);
  connect(view_->model(), &QAbstractItemModel::layoutChanged, this, [this] {
    place_buttons();
    chain_buttons();
  });
}

void ButtonTable::set_table(Table table, std::map<int, QAbstractButton*> buttons) {
  for (const auto& [id, before] : buttons_) {
    if (const auto now = buttons.find(id); now == buttons.end() || now->second != before) before->deleteLater();
  }
  buttons_ = std::move(buttons);
  for (const auto& [id, one] : buttons_) {
    one->setParent(this);
    one->hide();
    one->ensurePolished();
    fit_by_its_owner(*one);
  }
  for (TableRow& row : table.rows) {
    row.covered = button(row.id) != nullptr;
    row.opens = row.covered && button(row.id)->isEnabled();
  }
  table.columns.front().covered = around_texts();
  view_->set_table(std::move(table));
  view_->show_all_rows();
  chain_buttons();
  place_buttons();
}

void ButtonTable::set_row_heights(int lowest, int highest, int usual) {
  view_->set_lowest_row(lowest, usual);
  view_->show_all_rows();
  view_->grow_rows(highest, static_cast<int>(view_->table().rows.size()));
}

QAbstractButton* ButtonTable::button(int id) const {
  const auto found = buttons_.find(id);
  return found == buttons_.end() ? nullptr : found->second;
}

int ButtonTable::around_texts() const {
  int widest = 0;
  for (const auto& [id, one] : buttons_) {
    const QSize text = one->fontMetrics().size(Qt::TextShowMnemonic, one->text());
    widest = std::max(widest, one->sizeHint().width() - text.width());
  }
  return widest + 2 * beside_button;
}

void ButtonTable::place_buttons() {
  const QPoint origin = view_->viewport()->mapTo(this, QPoint());
  for (int row = 0; row < view_->model()->rowCount(); ++row) {
    QAbstractButton* one = button(view_->table().rows[static_cast<std::size_t>(view_->table_row(row))].id);
    if (one == nullptr) continue;
    const QFont font = view_->model()->index(row, 0).data(Qt::FontRole).value<QFont>();
    if (one->font() != font) one->setFont(font);
    const QRect cell(view_->columnViewportPosition(0), view_->rowViewportPosition(row), view_->columnWidth(0),
                     view_->rowHeight(row));
    const QSize wanted = one->sizeHint();
    const int high = std::min(cell.height(), wanted.height());
    one->setGeometry(origin.x() + cell.left() + beside_button, origin.y() + cell.top() + (cell.height() - high) / 2,
                     std::min(wanted.width(), cell.width() - beside_button), high);
    one->show();
    one->raise();
  }
}

void ButtonTable::chain_buttons() {
  QWidget* before = view_;
  for (int row = 0; row < view_->model()->rowCount(); ++row) {
    QAbstractButton* one = button(view_->table().rows[static_cast<std::size_t>(view_->table_row(row))].id);
    if (one == nullptr) continue;
    setTabOrder(before, one);
    before = one;
  }
}

void ButtonTable::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  layout()->activate();
  place_buttons();
}

void ButtonTable::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  place_buttons();
}

void ButtonTable::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
    QTimer::singleShot(0, this, [this] { place_buttons(); });
  }
}

}  // namespace velorin
