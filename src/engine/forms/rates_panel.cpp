// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/rates_panel.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "model/match_state.h"

namespace velorin {

namespace {

/// A figure that is not known yet is a dash.
QString figure(const std::string& text) {
  const QString words = shown(text).trimmed();
  return words.isEmpty() ? QStringLiteral("-") : words;
}

}  // namespace

RatesPanel::Cell RatesPanel::new_cell(const QString& name) {
  Cell cell;
  cell.box = new QWidget;
  auto* rows = new QVBoxLayout(cell.box);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  cell.heading = new_label({}, TextRole::small_muted);
  cell.text = new_named_label(name, {}, TextRole::strong);
  rows->addWidget(cell.heading);
  rows->addWidget(cell.text);
  return cell;
}

RatesPanel::RatesPanel(const match_state& match, QWidget* parent) : QFrame(parent), match_(match) {
  setProperty("card", true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(12, 8, 12, 8);
  rows->setSpacing(4);
  title_ = new_named_label(QStringLiteral("rates_title"), {}, TextRole::strong);
  forecast_ = new_named_label(QStringLiteral("forecast_total"), {}, TextRole::accent);
  auto* top_row = new QHBoxLayout;
  top_row->setSpacing(8);
  top_row->addWidget(title_, 1);
  top_row->addWidget(forecast_);
  forecast_->hide();
  rows->addLayout(top_row);
  grid_ = new QGridLayout;
  grid_->setHorizontalSpacing(8);
  grid_->setVerticalSpacing(6);
  for (std::size_t i = 0; i < cells_.size(); ++i) cells_[i] = new_cell(QStringLiteral("rate_cell_%1").arg(i));
  last_five_ = new_cell(QStringLiteral("last_five_overs"));
  last_five_.heading->setText(QStringLiteral("Last 5"));
  explain(*last_five_.heading, last_five_.heading->text());
  place_cells(cells_.size());
  rows->addLayout(grid_);
  auto* comparing = new QHBoxLayout;
  comparing->setSpacing(8);
  comparison_ = new_named_label(QStringLiteral("stage_overs"), {}, TextRole::small_muted);
  now_ = new_named_label(QStringLiteral("score_now"), {}, TextRole::small_muted);
  then_ = new_named_label(QStringLiteral("score_then"), {}, TextRole::small_muted);
  stage_ = new_label(QStringLiteral("After"), TextRole::small_muted);
  comparing->addWidget(stage_);
  comparing->addWidget(comparison_);
  comparing->addWidget(now_);
  comparing->addWidget(then_);
  comparing->addStretch(1);
  rows->addLayout(comparing);
  rows->addStretch(1);
}

void RatesPanel::show_forecast(const QString& total, const QString& spoken) {
  forecast_->setVisible(!total.isEmpty());
  forecast_->setText(QStringLiteral("Forecast %1").arg(total));
  forecast_->setAccessibleName(spoken);
  forecast_->setToolTip(spoken);
  forecast_->setEnabled(true);
}

void RatesPanel::mute_forecast() { forecast_->setEnabled(false); }

void RatesPanel::place_cells(std::size_t used) {
  if (used == placed_) return;
  placed_ = used;
  const int columns = static_cast<int>(used + 2) / 2;
  const auto place = [&](QWidget* box, int at) { grid_->addWidget(box, at / columns, at % columns); };
  for (std::size_t i = 0; i < used; ++i) place(cells_[i].box, static_cast<int>(i));
  place(last_five_.box, static_cast<int>(used));
  for (int column = 0; column < 4; ++column) grid_->setColumnStretch(column, column < columns ? 1 : 0);
}

void RatesPanel::refresh() {
  const rates_view view = view_rates(match_);
  // Reckoned at the end of each over: within one they are muted, for the score has gone on.
  const bool behind = !view.told_after.empty();
  const QString told_after = shown(view.told_after);
  const QString when = behind ? QStringLiteral(", after %1 overs").arg(told_after) : QString();
  title_->setText(behind                        ? QStringLiteral("After %1 overs").arg(told_after)
                  : !view.chase                 ? QStringLiteral("Projected score")
                  : view.chase_headline.empty() ? QStringLiteral("The chase")
                                                : shown(view.chase_headline));
  explain(*title_, view.chase ? QStringLiteral("The chase") : QStringLiteral("Projected score"));
  place_cells(view.cells.size());
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    const bool used = i < view.cells.size();
    cells_[i].box->setVisible(used);
    if (!used) continue;
    cells_[i].heading->setText(shown(view.cells[i].heading));
    explain(*cells_[i].heading, cells_[i].heading->text());
    cells_[i].text->setText(figure(view.cells[i].text));
    cells_[i].text->setAccessibleName(shown(view.cells[i].heading + ": " + view.cells[i].text) + when);
    cells_[i].text->setEnabled(!behind);
  }
  last_five_.text->setText(figure(view.last_five_overs));
  last_five_.text->setAccessibleName(shown("Last 5: " + view.last_five_overs) + when);
  last_five_.text->setEnabled(!behind);
  comparison_->setText(shown(view.stage_overs));
  for (QLabel* label : {stage_, comparison_}) label->setVisible(!view.stage_overs.empty());
  now_->setText(shown(view.score_now));
  then_->setText(shown(view.score_then));
  for (QLabel* label : {now_, then_}) label->setVisible(view.chase && !view.stage_overs.empty());
}

}  // namespace velorin
