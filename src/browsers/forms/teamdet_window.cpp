// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/teamdet_window.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "browsers/forms/figure_grid.h"
#include "browsers/teamdet.h"
#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

/// Results at home, away and both, a line each of played, won, lost, tied and success.
Table results_table(const teamdet& form) {
  Table table;
  table.name = QStringLiteral("Results");
  table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Figure"), .stretches = true});
  for (const auto& column : form.results) {
    table.columns.push_back({.heading = shown(column.heading), .numbers = true, .stretches = true});
  }
  for (std::size_t line = 0; line < teamdet::result_captions.size(); ++line) {
    TableRow row;
    row.cells.push_back({.text = shown(teamdet::result_captions[line]), .look = CellLook::muted});
    for (const auto& column : form.results) row.cells.push_back({.text = shown(column.texts[line])});
    table.rows.push_back(std::move(row));
  }
  return table;
}

}  // namespace

TeamdetWindow::TeamdetWindow(teamdet& form, QWidget* parent)
    : Form(QStringLiteral("teamdet"), Dismissal::closes, parent), form_(form) {
  body()->setSpacing(16);
  auto* rows = new_column(body(), 1280);
  rows->addWidget(new_list());
  auto* upper = new QHBoxLayout;
  upper->setSpacing(16);
  upper->addWidget(new_results());
  upper->addWidget(new_extremes(), 1);
  rows->addLayout(upper);
  rows->addWidget(new_individual());
  rows->addStretch(1);
  const auto close = [this] {
    form_.command1_click();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("Command1"), {.caption = shown(teamdet::command1_caption), .mnemonic = u'O'},
                     close);
  on_dismiss(close);
  refresh();
}

QWidget* TeamdetWindow::new_list() {
  auto* list = new QWidget;
  auto* row = new QHBoxLayout(list);
  row->setContentsMargins(0, 0, 0, 0);
  combo1_ = new QComboBox;
  combo1_->setObjectName(QStringLiteral("Combo1"));
  combo1_->setMinimumWidth(240);
  for (const std::string& team : form_.combo1) combo1_->addItem(shown(team));
  combo1_->setCurrentIndex(form_.combo1_index);
  row->addWidget(new_caption(shown(teamdet::combo1_caption), u'S', combo1_));
  row->addWidget(combo1_);
  if (form_.combo1.empty()) {
    row->addSpacing(16);
    row->addWidget(new_named_label(QStringLiteral("empty"), QStringLiteral("No records yet"), TextRole::muted));
  }
  row->addStretch(1);
  connect(combo1_, &QComboBox::currentIndexChanged, this, [this](int index) {
    guarded([&] {
      form_.choose_team(index);
      refresh();
    });
  });
  return list;
}

QWidget* TeamdetWindow::new_results() {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(QStringLiteral("Results"), TextRole::heading));
  results_ = new TableView(QStringLiteral("results"));
  results_->setMinimumWidth(400);
  card_rows(card)->addWidget(results_);
  ranking_ = new_named_label(QStringLiteral("ranking"), {}, TextRole::strong);
  card_rows(card)->addWidget(ranking_);
  card_rows(card)->addStretch(1);
  return card;
}

QWidget* TeamdetWindow::new_extremes() {
  QFrame* card = new_card();
  card->setMinimumHeight(280);  // room for totals of two lines
  card_rows(card)->addWidget(new_label(QStringLiteral("Totals"), TextRole::heading));
  for (std::size_t i = 0; i < extremes_.size(); ++i) {
    extremes_[i] =
        add_figure_below(card_rows(card), form_.extremes[i].caption, QStringLiteral("extreme_%1").arg(i + 1));
    extremes_[i]->setWordWrap(true);
    extremes_[i]->setMinimumWidth(448);
  }
  card_rows(card)->addStretch(1);
  return card;
}

QWidget* TeamdetWindow::new_individual() {
  const FigureCard men = new_figure_card(shown(teamdet::individual_caption));
  for (std::size_t i = 0; i < individual_.size(); ++i) {
    individual_[i] =
        add_figure(men.grid, form_.individual[i].caption, QStringLiteral("individual_%1").arg(i + 1), false);
  }
  return men.card;
}

void TeamdetWindow::refresh() {
  set_title(shown(form_.title), shown(form_.title));
  results_->set_table(results_table(form_));
  results_->show_all_rows();
  ranking_->setText(shown(form_.world_ranking.caption) + shown(form_.world_ranking.text));
  for (std::size_t i = 0; i < extremes_.size(); ++i) set_figure(extremes_[i], form_.extremes[i].text);
  for (std::size_t i = 0; i < individual_.size(); ++i) {
    set_figure(individual_[i], form_.individual[i].text);
  }
}

}  // namespace velorin
