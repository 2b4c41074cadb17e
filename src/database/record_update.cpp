// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>

#include "database/agreement.h"
#include "database/career_update.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/layout.h"
#include "database/open_database.h"
#include "database/record_update.h"
#include "database/whole_file.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/stands.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Puts `entry` in the place of the first line of the list that it beats; the lines from there on move down, and the
/// last one drops out. `beats` tells whether the entry goes before a line.
template <typename Line, std::size_t n, typename Beats>
void insert_line(std::array<Line, n>& list, const Line& entry, Beats beats) {
  const auto place = std::find_if(list.begin() + 1, list.end(), beats);
  if (place == list.end()) return;
  std::move_backward(place, list.end() - 1, list.end());
  *place = entry;
}

void update_top_scores(const match_state& match, top_score_list& list, const batting_card_table& card,
                       const std::string& team, const std::string& against, dismissal not_out) {
  for (int j = 1; j <= men_in_eleven; ++j) {
    const batting_card_rec& man = card[j];
    insert_line(list,
                top_score_rec{.player = man.name,
                              .runs = man.runs,
                              .balls = man.balls,
                              .team = team,
                              .against = against,
                              .venue = match.venue_name(),
                              .not_out = man.how == not_out ? flag_true : 0},
                [&](const top_score_rec& line) { return line.runs < man.runs; });
  }
}

void update_top_bowling(const match_state& match, top_bowling_list& list, const bowling_card_table& card,
                        const std::string& team, const std::string& against) {
  for (int j = 1; j <= men_in_eleven; ++j) {
    const bowling_card_rec& man = card[j];
    insert_line(list,
                top_bowling_rec{.player = man.name,
                                .runs = man.runs,
                                .balls = man.balls,
                                .wickets = man.wickets,
                                .team = team,
                                .against = against,
                                .venue = match.venue_name()},
                [&](const top_bowling_rec& line) {
                  return line.wickets < man.wickets || (line.wickets == man.wickets && line.runs > man.runs);
                });
  }
}

top_total_rec first_innings_total(const match_state& match) {
  return {.total = match.first_total,
          .balls = match.first_balls,
          .wickets = match.first_wickets,
          .team = match.team2_name,
          .against = match.team1_name,
          .venue = match.venue_name()};
}

/// The console's runs as a figure of the files. More than fit one would head the highest totals.
integer second_total(const match_state& match, const std::filesystem::path& record_file) {
  try {
    return match.score_runs;
  } catch (const run_time_error& error) {
    throw run_time_error(error.kind(), error.what(),
                         {.file = file_name_text(record_file),
                          .record = highest_totals_record,
                          .field = "total",
                          .player = match.team1_name});
  }
}

top_total_rec second_innings_total(const match_state& match, const std::filesystem::path& record_file) {
  return {.total = second_total(match, record_file),
          .balls = match.innings_balls,
          .wickets = match.score_wickets,
          .team = match.team1_name,
          .against = match.team2_name,
          .venue = match.venue_name()};
}

/// The places go by the wickets of the innings totals.
void update_highest_totals(const match_state& match, const std::filesystem::path& record_file, top_total_list& list) {
  const auto enter = [&list](const top_total_rec& entry, int wickets) {
    insert_line(list, entry, [&](const top_total_rec& line) {
      return line.total < entry.total || (line.total == entry.total && line.wickets > wickets);
    });
  };
  enter(first_innings_total(match), match.first_wickets);
  enter(second_innings_total(match, record_file), match.innings_wickets);
}

void update_lowest_totals(const match_state& match, const std::filesystem::path& record_file, top_total_list& list) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    if (list[i].total == 0) list[i].total = no_total_yet;
  }
  const auto enter = [&list](const top_total_rec& entry, int wickets) {
    insert_line(list, entry, [&](const top_total_rec& line) {
      return line.total > entry.total || (line.total == entry.total && line.wickets < wickets);
    });
  };
  enter(first_innings_total(match), match.first_wickets);
  enter(second_innings_total(match, record_file), match.innings_wickets);
}

void update_partnerships(const match_state& match, top_partnership_list& list, const fall_of_wicket_table& falls,
                         const std::string& team, const std::string& against) {
  for (std::size_t w = 1; w < list.size(); ++w) {
    top_partnership_rec& line = list[w];
    const fall_of_wicket_rec& fall = falls[w];
    const bool record = fall.partner_runs > line.partner_runs ||
                        (fall.partner_runs == line.partner_runs && fall.partner_balls > line.partner_balls);
    if (!record) continue;
    line.score = fall.score;
    line.overs_text = fall.overs_text;
    line.partner_runs = fall.partner_runs;
    line.partner_balls = fall.partner_balls;
    line.balls = fall.balls;
    line.batsman_a = fall.batsman_a;
    line.batsman_b = fall.batsman_b;
    line.team = team;
    line.against = against;
    line.venue = match.venue_name();
  }
}

/// The row of a team, added behind the last if there is none.
team_table& row_of(const open_database& data, record_lists& lists, const std::string& team) {
  for (int t = 1; t <= lists.table_team_count; ++t) {
    if (lists.teams[t].team_name.text() == team) return lists.teams[t];
  }
  if (lists.table_team_count == table_team_limit) {
    throw run_time_error(failure::subscript,
                         fmt::format("Subscript out of range: more than {} teams in the team table", table_team_limit),
                         {.file = file_name_text(data.files.record_file),
                          .record = table_record(table_team_limit + 2) - 1,
                          .field = "team_name",
                          .player = team});
  }
  team_table& row = lists.teams[++lists.table_team_count];
  row = team_table();
  row.team_name = {team};
  row.low_for = {integer(no_total_yet)};
  row.low_against = {integer(no_total_yet)};
  return row;
}

void count_result(const match_state& match, team_table& row, const std::string& team) {
  const bool home = team == match.ground.country;
  tagged* counter = home ? &row.home_tied : &row.away_tied;
  if (team == match.result_winner) {
    counter = home ? &row.home_won : &row.away_won;
  } else if (team == match.result_loser) {
    counter = home ? &row.home_lost : &row.away_lost;
  }
  counter->value = counter->number() + 1;
}

void set_total(const match_state& match, tagged& total, tagged& by, tagged& venue, const tagged& score,
               const std::string& opponent) {
  total = score;
  by = {opponent};
  venue = {match.venue_name()};
}

/// Sets a row's extremes from the team's own innings and the opponent's. A lowest total counts only all out.
void update_extremes(const match_state& match, team_table& row, const std::string& opponent, const tagged& own,
                     bool own_all_out, const tagged& other, bool other_all_out) {
  if (own.number() > row.high_for.number()) {
    set_total(match, row.high_for, row.high_for_against, row.high_for_venue, own, opponent);
  }
  if (own.number() < row.low_for.number() && own_all_out) {
    set_total(match, row.low_for, row.low_for_against, row.low_for_venue, own, opponent);
  }
  if (other.number() > row.high_against.number()) {
    set_total(match, row.high_against, row.high_against_by, row.high_against_venue, other, opponent);
  }
  if (other.number() < row.low_against.number() && other_all_out) {
    set_total(match, row.low_against, row.low_against_by, row.low_against_venue, other, opponent);
  }
}

void update_team_table(const match_state& match, const open_database& data, record_lists& lists) {
  const tagged first{match.first_total};
  const tagged second{number_text(match.score_runs)};
  const bool first_all_out = match.first_wickets == wickets_of_innings;
  const bool second_all_out = match.score_wickets == wickets_of_innings;

  team_table& chasing = row_of(data, lists, match.team1_name);
  count_result(match, chasing, match.team1_name);
  update_extremes(match, chasing, match.team2_name, second, second_all_out, first, first_all_out);

  team_table& setting = row_of(data, lists, match.team2_name);
  count_result(match, setting, match.team2_name);
  update_extremes(match, setting, match.team1_name, first, first_all_out, second, second_all_out);
}

}  // namespace

slot_file whole_records(const open_database& data) {
  slot_file file = slot_file::read(data.files.record_file, records_slot);
  require_whole_records(file);
  return file;
}

namespace {

/// All lists but that of the stands.
void update_other_lists(const match_state& match, const std::filesystem::path& record_file, record_lists& lists) {
  const std::string& chasing = match.team1_name;
  const std::string& setting = match.team2_name;
  update_top_scores(match, lists.top_scores, match.batting_card, chasing, setting, dismissal::none);
  update_top_scores(match, lists.top_scores, match.first_batting_card, setting, chasing, dismissal::not_out);
  update_top_bowling(match, lists.top_bowling, match.bowling_card, setting, chasing);
  update_top_bowling(match, lists.top_bowling, match.first_bowling_card, chasing, setting);
  update_highest_totals(match, record_file, lists.highest_totals);
  update_lowest_totals(match, record_file, lists.lowest_totals);
}

void update_partnerships(const match_state& match, const falls_of_match& falls, top_partnership_list& list) {
  update_partnerships(match, list, falls.in_play, match.team1_name, match.team2_name);
  update_partnerships(match, list, falls.before, match.team2_name, match.team1_name);
}

}  // namespace

void add_match_to_lists(const match_state& match, const std::filesystem::path& record_file, record_lists& lists) {
  update_other_lists(match, record_file, lists);
  update_partnerships(match, {falls_in_play(match), falls_before(match)}, lists.partnerships);
}

void add_match_to_records(const match_state& match, const falls_of_match& falls, const open_database& data,
                          record_lists& lists) {
  update_other_lists(match, data.files.record_file, lists);
  update_partnerships(match, falls, lists.partnerships);
  update_team_table(match, data, lists);
}

void add_match_to_records(const match_state& match, const open_database& data, slot_file& file, record_lists& lists) {
  add_match_to_lists(match, data.files.record_file, lists);
  update_team_table(match, data, lists);
  put_records(file, lists);
}

void update_records(const match_state& match, const open_database& data) {
  if (!data.files.updates) return;
  const folder_lock turn(data.files.career_file, data.files.watcher);
  settle_update(data);
  slot_file file = whole_records(data);
  record_lists lists = records_in(file);
  add_match_to_records(match, data, file, lists);
  replace_file(data.files.record_file, file.bytes());
}

}  // namespace velorin
