// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/console_tables.h"

#include <fmt/format.h>

#include "console/console_view.h"
#include "console/recent_play.h"
#include "console/side_views.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "model/texts.h"

namespace velorin {

Table attack_table(const match_state& match) {
  Table table;
  table.name = QStringLiteral("The attack");
  table.columns = {{QStringLiteral("Bowlers")},
                   {QStringLiteral("O"), true, QStringLiteral("Overs")},
                   {QStringLiteral("M"), true, QStringLiteral("Maidens")},
                   {QStringLiteral("R"), true, QStringLiteral("Runs")},
                   {QStringLiteral("W"), true, QStringLiteral("Wickets")},
                   {QStringLiteral("Econ"), true, QStringLiteral("Runs an over")},
                   {QStringLiteral("Left"), true, QStringLiteral("Overs left")}};
  for (const attack_row& man : view_attack(match)) {
    TableRow row;
    row.id = man.position;
    row.cells = {{shown(man.name)},
                 {shown(man.overs)},
                 {shown(man.maidens)},
                 {shown(man.runs)},
                 {shown(man.wickets)},
                 {shown(man.economy)},
                 {QString::number(man.overs_left)}};
    table.rows.push_back(std::move(row));
  }
  return table;
}

Table batting_table(const match_state& match, CardDetail detail, bool short_names) {
  const bool with_dismissals = detail == CardDetail::dismissals;
  const bool with_boundaries = detail != CardDetail::runs;
  Table table;
  table.name = QStringLiteral("The batting side");
  table.columns = {{QStringLiteral("Batsmen")}};
  if (with_dismissals) table.columns.push_back({.heading = QStringLiteral("How out"), .stretches = true});
  const auto add = [&](const char* heading, const char* spoken) {
    table.columns.push_back({QString::fromLatin1(heading), true, QString::fromLatin1(spoken)});
  };
  add("R", "Runs");
  add("B", "Balls");
  if (with_boundaries) add("4s", "Fours");
  if (with_boundaries) add("6s", "Sixes");
  add("SR", "Strike rate");
  for (const card_row& man : view_card(match)) {
    const CellLook look = man.to_come ? CellLook::muted : man.at_crease ? CellLook::strong : CellLook::normal;
    TableRow row;
    row.id = man.position;
    const std::string name = short_names ? shortened_name(man.name) : man.name;
    row.cells = {{shown(name) + (man.on_strike ? QStringLiteral(" *") : QString()), look}};
    if (with_dismissals) row.cells.push_back({shown_caption(man.how_out).simplified(), CellLook::muted});
    row.cells.push_back({shown(man.runs), look});
    row.cells.push_back({shown(man.balls)});
    if (with_boundaries) row.cells.push_back({shown(man.fours)});
    if (with_boundaries) row.cells.push_back({shown(man.sixes)});
    row.cells.push_back({shown(man.strike_rate)});
    table.rows.push_back(std::move(row));
  }
  return table;
}

std::string stand_line(const match_state& match) {
  const stand_view stand = view_stand(match);
  return fmt::format("Stand {} ({})  \xB7  {} and {}", stand.runs, stand.balls, stand.shares[0], stand.shares[1]);
}

std::string last_wicket_line(const match_state& match) {
  std::string line = view_last_wicket(match);
  if (line.empty()) return line;
  // Until the first of this innings it is one of the innings before.
  const bool before = (match.innings_number - match.last_wicket.innings_number) % 2 != 0;
  return (before ? "Last wicket, " + short_name(match.team2_name) + ": " : "Last wicket: ") + line;
}

}  // namespace velorin
