// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/banded_grid.h"

#include <QGridLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"

namespace velorin {

namespace {
constexpr int roomiest_row = 44;
}

BandedGrid::BandedGrid(int row_padding, QWidget* parent)
    : QFrame(parent), cells_(new QGridLayout(this)), padding_(row_padding) {
  setProperty("card", true);
  cells_->setContentsMargins(16, 6, 16, 6);
  cells_->setHorizontalSpacing(24);
  cells_->setVerticalSpacing(0);
}

QLabel* BandedGrid::add_heading(int column, const QString& text, bool numbers, bool stretches) {
  QLabel* heading = new_label(text, TextRole::small_muted);
  heading->setProperty("numbers", numbers);
  heading->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  add(0, column, heading);
  cells_->setColumnStretch(column, stretches ? 1 : 0);
  return heading;
}

void BandedGrid::add(int row, int column, QWidget* widget) {
  const QLayoutItem* heading = cells_->itemAtPosition(0, column);
  const QWidget* head = heading == nullptr ? widget : heading->widget();
  auto* label = qobject_cast<QLabel*>(widget);
  if (label != nullptr) {
    label->setAlignment((head->property("numbers").toBool() ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
    label->setContentsMargins(0, padding_, 0, padding_);
  }
  cells_->addWidget(widget, row, column);
  if (row > 0) widget->setSizePolicy(widget->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
  setMaximumHeight(roomiest_row * cells_->rowCount());
  // Clicks on a text reach the grid; a heading has a tooltip of its own.
  if (label != nullptr && row > 0) label->setAttribute(Qt::WA_TransparentForMouseEvents);
}

QRect BandedGrid::band(int row) const {
  const QRect cell = cells_->cellRect(row, 0);
  const QLayoutItem* first = cells_->itemAtPosition(row, 0);
  if (!cell.isValid() || first == nullptr || first->isEmpty()) return {};
  return {1, cell.top(), width() - 2, cell.height()};
}

void BandedGrid::paintEvent(QPaintEvent* event) {
  QFrame::paintEvent(event);
  QPainter painter(this);
  bool banded = true;
  for (int row = 1; row < cells_->rowCount(); ++row) {
    const QRect at = band(row);
    if (at.isEmpty()) continue;
    if (banded) painter.fillRect(at, theme().card_raised);
    banded = !banded;
  }
}

void BandedGrid::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton || !pressed_) return;
  for (int row = 1; row < cells_->rowCount(); ++row) {
    if (band(row).contains(event->position().toPoint())) {
      guarded([&] { pressed_(row); });
      return;
    }
  }
}

}  // namespace velorin
