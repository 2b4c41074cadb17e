// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/figure_grid.h"

#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/shown_text.h"

namespace velorin {

FigureCard new_figure_card(const QString& heading) {
  QFrame* card = new_card();
  if (!heading.isEmpty()) card_rows(card)->addWidget(new_label(heading, TextRole::heading));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(5, 1);
  grid->setColumnMinimumWidth(2, 12);
  card_rows(card)->addLayout(grid);
  card_rows(card)->addStretch(1);
  return {card, grid};
}

namespace {

QLabel* new_figure(std::string_view caption, const QString& name) {
  QLabel* value = new_named_label(name, {});
  value->setProperty("caption", spoken_name(shown_caption(caption)));
  return value;
}

}  // namespace

QLabel* add_figure(QGridLayout* grid, FigurePlace place, std::string_view caption, const QString& name) {
  const int column = 3 * place.column;
  grid->addWidget(new_label(shown_caption(caption), TextRole::muted), place.row, column);
  QLabel* value = new_figure(caption, name);
  grid->addWidget(value, place.row, column + 1, Qt::AlignRight);
  return value;
}

QLabel* add_figure_below(QVBoxLayout* rows, std::string_view caption, const QString& name) {
  auto* pair = new QVBoxLayout;
  pair->setSpacing(2);
  pair->addWidget(new_label(shown_caption(caption), TextRole::small_muted));
  QLabel* value = new_figure(caption, name);
  pair->addWidget(value);
  rows->addLayout(pair);
  return value;
}

void set_figure(QLabel* value, std::string_view text) {
  value->setText(shown_caption(text));
  value->setAccessibleName(QStringLiteral("%1: %2").arg(value->property("caption").toString(), value->text()));
}

}  // namespace velorin
