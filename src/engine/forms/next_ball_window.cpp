// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/next_ball_window.h"

#include <QLabel>
#include <QVBoxLayout>
#include <optional>
#include <utility>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "forecast/forecast.h"
#include "model/match_state.h"

namespace velorin {

namespace {

/// Why nothing is known of the ball to come.
QString not_known(const match_state& match) {
  const bool over_to_begin = match.next_step == play_step::between_overs || match.next_step == play_step::over_begins;
  if (over_to_begin && match.bowler != 0 && match.bowling_card[match.bowler].balls >= balls_of_quota) {
    return QStringLiteral("%1 has bowled his overs. Another bowler is to be chosen first.")
        .arg(shown(match.bowling_card[match.bowler].name));
  }
  return QStringLiteral("The men of the next ball are not known yet.");
}

}  // namespace

Table next_ball_table(const match_state& match) {
  Table table;
  table.name = QStringLiteral("Next ball");
  table.columns = {{.heading = QStringLiteral("Next ball"), .stretches = true},
                   {.heading = QStringLiteral("Chance"), .numbers = true}};
  const std::optional<next_ball> odds = odds_of_next_ball(match);
  if (!odds) return table;
  const std::pair<const char*, double> rows[] = {
      {"No run", odds->runs[0]}, {"One run", odds->runs[1]}, {"Two runs", odds->runs[2]}, {"Three runs", odds->runs[3]},
      {"Four", odds->runs[4]},   {"Six", odds->runs[6]},     {"Wicket", odds->wicket},    {"Leg byes", odds->leg_byes},
      {"Byes", odds->byes},      {"No ball", odds->no_ball}, {"Wide", odds->wide}};
  for (const auto& [what, chance] : rows) {
    const bool is_wicket = what == rows[6].first;
    TableRow row;
    row.cells = {{QString::fromLatin1(what), is_wicket ? CellLook::strong : CellLook::normal},
                 {QStringLiteral("%1 %").arg(100 * chance, 0, 'f', 1)}};
    table.rows.push_back(std::move(row));
  }
  return table;
}

NextBallWindow::NextBallWindow(const match_state& match, QWidget* parent)
    : Form(QStringLiteral("nextball"), Dismissal::closes, parent) {
  stand_as(Place::sheet, QStringLiteral("forecast_bar"));
  limit_body(480);
  set_title(QStringLiteral("The next ball"), QStringLiteral("The next ball"));
  Table table = next_ball_table(match);
  const bool known = !table.rows.empty();
  if (known) {
    set_subheading(
        QStringLiteral("%1 to %2")
            .arg(shown(match.bowling_card[match.bowler].name), shown(match.batting_card[match.striker].name)));
  }
  auto* view = new TableView(QStringLiteral("next_ball_chances"));
  view->set_table(std::move(table));
  view->show_all_rows();
  view->setVisible(known);
  body()->addWidget(view);
  if (!known) {
    body()->addWidget(new_named_label(QStringLiteral("not_known"), not_known(match), TextRole::muted));
  }
  body()->addStretch(1);
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                     [this] { accept(); });
}

}  // namespace velorin
