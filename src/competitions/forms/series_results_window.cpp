// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/series_results_window.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/series.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

Table results_table(const series_results_form& form, const PlayedMatches& played) {
  Table table;
  table.name = shown(form.heading);
  table.columns = {{.heading = QStringLiteral("Match"), .stretches = true}, {.heading = QStringLiteral("Result")}};
  for (const series_results_form::row& row : form.rows) {
    const int number = static_cast<int>(table.rows.size()) + 1;
    table.rows.push_back({.cells = {{.text = shown(row.match_and_ground)}, {.text = shown(row.result)}},
                          .id = number,
                          .opens = played.has(number)});
  }
  return table;
}

/// Both sides with the matches that each has won, and below who leads or has won the series.
QFrame* new_score(const series_results_form& form) {
  QFrame* card = new_card();
  auto* line = new QHBoxLayout;
  line->setSpacing(16);
  const auto add_side = [&](const char* name, const std::string& team, bool crest_first) {
    auto* crest = new CrestView(QString::fromLatin1(name), 72);
    crest->show_team(shown(team));
    QLabel* words =
        new_named_label(QString::fromLatin1(name) + QStringLiteral("_name"), shown(team), TextRole::heading);
    line->addStretch(1);
    if (crest_first) line->addWidget(crest);
    line->addWidget(words);
    if (!crest_first) line->addWidget(crest);
    line->addStretch(1);
  };
  add_side("crest_a", form.team_a, true);
  line->addWidget(new_named_label(QStringLiteral("series_score"),
                                  QStringLiteral("%1 - %2").arg(form.won_a).arg(form.won_b), TextRole::score));
  add_side("crest_b", form.team_b, false);
  card_rows(card)->addLayout(line);
  auto* standing = new_named_label(QStringLiteral("standing_line"), shown(form.standing_line), TextRole::title);
  standing->setAlignment(Qt::AlignCenter);
  standing->setWordWrap(true);
  card_rows(card)->addWidget(standing);
  return card;
}

}  // namespace

SeriesResultsWindow::SeriesResultsWindow(series_results_form& form, QWidget* parent)
    : Form(QStringLiteral("sri_result"), Dismissal::closes, parent),
      form_(form),
      results_(new TableView(QStringLiteral("results"))) {
  set_title(shown(form_.heading), shown(form_.heading));
  show_picture();
  results_->set_table(results_table(form_, played_));
  results_->setMinimumWidth(std::clamp(results_->sizeHint().width(), 400, 640));
  results_->show_all_rows();
  results_->grow_rows(40, static_cast<int>(form_.rows.size()));
  rows_ = new_column(body(), 1000);
  // Filled once it is known, in its place from the beginning.
  auto* chances = new_named_label(QStringLiteral("chances_line"), {}, TextRole::muted);
  chances->setWordWrap(true);
  chances->setMinimumHeight(chances->fontMetrics().height());
  QFrame* score = new_score(form_);
  chances->setAlignment(Qt::AlignCenter);
  card_rows(score)->addWidget(chances);
  rows_->addWidget(score);
  rows_->addSpacing(8);
  rows_->addWidget(results_, 1);
  rows_->addStretch();
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)->setFocus();
  on_dismiss(close);
}

void SeriesResultsWindow::lead_to(PlayedMatches played) {
  played_ = std::move(played);
  results_->set_table(results_table(form_, played_));
  if (played_.all.empty()) return;
  results_->on_open(played_.open, TableView::Opens::press);
  rows_->insertWidget(3, new_named_label(QStringLiteral("leads_on"), QLatin1String(leads_on), TextRole::muted));
}

}  // namespace velorin
