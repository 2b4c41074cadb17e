// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/figures_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {

career_rec batsman(const std::string& name, int innings, int not_outs, int runs, int balls_faced) {
  career_rec man;
  man.name = name;
  man.matches = innings;
  man.innings = innings;
  man.not_outs = not_outs;
  man.runs = runs;
  man.balls_faced = balls_faced;
  return man;
}

career_rec bowler(const std::string& name, int balls_bowled, int runs_given, int wickets) {
  career_rec man;
  man.name = name;
  man.matches = 1;
  man.balls_bowled = balls_bowled;
  man.runs_given = runs_given;
  man.wickets = wickets;
  return man;
}

career_rec& figures_fixture::add(const std::string& team, const career_rec& man) {
  int t = 1;
  while (t <= careers.career_team_count && careers.teams[t].team_name != team) ++t;
  if (t > careers.career_team_count) {
    careers.career_team_count = t;
    careers.teams[t].team_name = team;
  }
  career_team_rec& men = careers.teams[t];
  ++men.player_count;
  return men.players[men.player_count] = man;
}

team_table& figures_fixture::add_team(const std::string& name, const tally& home, const tally& away) {
  team_table& team = lists.teams[++lists.table_team_count];
  const auto set = [](tagged& counter, int count) {
    if (count != 0) counter.value = static_cast<double>(count);
  };
  set(team.home_won, home.won);
  set(team.home_lost, home.lost);
  set(team.home_tied, home.tied);
  set(team.away_won, away.won);
  set(team.away_lost, away.lost);
  set(team.away_tied, away.tied);
  team.low_for = {integer(no_total_yet)};
  team.low_against = {integer(no_total_yet)};
  team.team_name = {name};
  return team;
}

void figures_fixture::write() const {
  write_career_table(data, careers);
  write_record_lists(data, lists);
}

std::vector<std::string> column(const shown_table& table, const std::string& heading) {
  std::size_t index = 0;
  while (index < table.columns.size() && table.columns[index].heading != heading) ++index;
  if (index == table.columns.size()) {
    ADD_FAILURE() << "no column " << heading;
    return {};
  }
  std::vector<std::string> texts;
  for (const shown_table::row& shown : table.rows) texts.push_back(shown.texts.at(index));
  return texts;
}

std::vector<std::string> headings(const shown_table& table) {
  std::vector<std::string> texts;
  for (const shown_column& shown : table.columns) texts.emplace_back(shown.heading);
  return texts;
}

std::vector<int> places(const shown_table& table) {
  std::vector<int> found;
  for (const shown_table::row& shown : table.rows) found.push_back(shown.place);
  return found;
}

std::vector<std::string> row(const shown_table& table, std::size_t index) {
  if (index < table.rows.size()) return table.rows[index].texts;
  ADD_FAILURE() << "no row " << index;
  return {};
}

std::optional<std::string> under(const std::vector<shown_field>& fields, const std::string& caption) {
  for (const shown_field& field : fields) {
    if (field.caption == caption) return field.text;
  }
  return std::nullopt;
}

}  // namespace velorin::testing
