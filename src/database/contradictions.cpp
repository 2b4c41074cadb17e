// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "database/agreement.h"
#include "database/layout.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr int men_of_a_side = 11;
constexpr long high_for_field = 6;  ///< its place in a row of the team table

int table_place(const record_lists& lists, const std::string& team) {
  int t = 1;
  while (t <= lists.table_team_count && lists.teams[t].team_name.text() != team) ++t;
  return t <= lists.table_team_count ? t : 0;
}

const career_team_rec* careers_of(const career_table& careers, const std::string& team) {
  for (int t = 1; t <= careers.career_team_count; ++t) {
    if (careers.teams[t].team_name == team) return &careers.teams[t];
  }
  return nullptr;
}

const career_rec* career_of(const career_table& careers, const std::string& team, const std::string& player) {
  const career_team_rec* of_team = careers_of(careers, team);
  if (of_team == nullptr) return nullptr;
  const auto first = of_team->players.begin() + 1;
  const auto last = first + of_team->player_count;
  const auto found = std::find_if(first, last, [&](const career_rec& man) { return man.name == player; });
  return found == last ? nullptr : &*found;
}

double matches_of(const team_table& row) {
  return row.away_won.number() + row.away_tied.number() + row.away_lost.number() + row.home_won.number() +
         row.home_tied.number() + row.home_lost.number();
}

/// What a career or a row of the team table holds as its best, as far as a list goes: the list has a line of it unless
/// its last line keeps it out. An equal of the last line may have come too late.
template <typename List, typename KeptOut, typename IsOfIt>
bool is_listed(const List& lines, KeptOut kept_out, IsOfIt is_of_it) {
  return kept_out(lines.back()) || std::any_of(lines.begin() + 1, lines.end(), is_of_it);
}

/// Compares careers and lists, and collects where they differ.
class comparison {
 public:
  explicit comparison(const record_books& books) : books_(books) {}

  std::vector<database_fault> faults() && {
    for (int t = 1; t <= books_.careers.career_team_count; ++t) compare_team(t);
    compare_lists();
    compare_all_totals();
    for (int t = 1; t <= books_.lists.table_team_count; ++t) {
      const std::string name = books_.lists.teams[t].team_name.text();
      if (careers_of(books_.careers, name) != nullptr) continue;
      add(books_.record_file_name, table_record(t + 1) - 1, "team_name", fmt::format("\"{}\" has no careers", name));
    }
    return std::move(faults_);
  }

 private:
  void compare_team(int place) {
    const career_team_rec& team = books_.careers.teams[place];
    const int row = table_place(books_.lists, team.team_name);
    if (row == 0) {
      add(books_.career_file_name, place + 1, "team_name",
          fmt::format("\"{}\" has no row in the team table", team.team_name));
      return;
    }
    compare_high_total(team.team_name, row);
    std::int64_t appearances = 0;
    for (int p = 1; p <= team.player_count; ++p) {
      compare_career(team, place, p);
      appearances += team.players[p].matches;
    }
    const double matches = matches_of(books_.lists.teams[row]);
    if (static_cast<double>(appearances) == men_of_a_side * matches || !std::isfinite(matches)) return;
    add(books_.career_file_name, place + 1, "matches",
        fmt::format("{} appearances of the men of \"{}\", but {} matches in the team table", appearances,
                    team.team_name, number_text(matches)));
  }

  /// Every innings and every analysis has been a candidate for the lists, so also the best of each man.
  void compare_career(const career_team_rec& team, int place, int p) {
    const career_rec& man = team.players[p];
    const auto is_his = [&](const auto& line) { return line.player == man.name && line.team == team.team_name; };
    const bool score_is_listed = is_listed(
        books_.lists.top_scores, [&](const top_score_rec& last) { return last.runs >= man.high_score; },
        [&](const top_score_rec& line) { return line.runs == man.high_score && is_his(line); });
    if (!score_is_listed) {
      add(books_.career_file_name, place + 1, fmt::format("players[{}].high_score", p),
          fmt::format("{} by \"{}\" is not among the highest scores", man.high_score, man.name));
    }
    const bool bowling_is_listed = is_listed(
        books_.lists.top_bowling,
        [&](const top_bowling_rec& last) {
          return last.wickets > man.best_wickets || (last.wickets == man.best_wickets && last.runs <= man.best_runs);
        },
        [&](const top_bowling_rec& line) {
          return line.wickets == man.best_wickets && line.runs == man.best_runs && is_his(line);
        });
    if (!bowling_is_listed) {
      add(books_.career_file_name, place + 1, fmt::format("players[{}].best_wickets", p),
          fmt::format("{}/{} by \"{}\" is not among the best bowling", man.best_wickets, man.best_runs, man.name));
    }
  }

  void compare_high_total(const std::string& team, int row) {
    const double highest = books_.lists.teams[row].high_for.number();
    const bool total_is_listed = is_listed(
        books_.lists.highest_totals, [&](const top_total_rec& last) { return int{last.total} >= highest; },
        [&](const top_total_rec& line) { return int{line.total} == highest && line.team == team; });
    if (total_is_listed) return;
    add(books_.record_file_name, table_record(row) + high_for_field, "high_for",
        fmt::format("{} by \"{}\" is not among the highest totals", number_text(highest), team));
  }

  /// What holds for the totals of all teams together.
  void compare_all_totals() {
    const record_lists& lists = books_.lists;
    double highest = 0;
    double innings = 0;
    for (int t = 1; t <= lists.table_team_count; ++t) {
      highest = std::max(highest, lists.teams[t].high_for.number());
      innings += matches_of(lists.teams[t]);
    }
    // Each total below that of a free line takes one, also those that are not lowest for their team.
    const auto free = std::find_if(lists.lowest_totals.begin() + 1, lists.lowest_totals.end(),
                                   [](const top_total_rec& line) { return line.team.empty(); });
    const auto taken = free - lists.lowest_totals.begin() - 1;
    if (highest < no_total_yet && free != lists.lowest_totals.end() && static_cast<double>(taken) < innings) {
      add(books_.record_file_name, lowest_totals_record + taken, "team",
          fmt::format("a free line of the lowest totals after {} innings", number_text(innings)));
    }
    // A total is the sum of its stands, and each stand is at most the record for its wicket.
    int stands = 0;
    for (int w = 1; w <= 10; ++w) stands += int{lists.partnerships[w].partner_runs};
    if (stands < highest) {
      add(books_.record_file_name, partnerships_record, "partner_runs",
          fmt::format("the record partnerships add up to {}, less than a total of {}", stands, number_text(highest)));
    }
  }

  void compare_lists() {
    const record_lists& lists = books_.lists;
    for (int i = 1; i <= 15; ++i) compare_score(lists.top_scores[i], top_scores_record + i - 1);
    for (int i = 1; i <= 15; ++i) compare_bowling(lists.top_bowling[i], top_bowling_record + i - 1);
    for (int i = 1; i <= 15; ++i) compare_highest(lists.highest_totals[i], highest_totals_record + i - 1);
    for (int i = 1; i <= 15; ++i) compare_lowest(lists.lowest_totals[i], lowest_totals_record + i - 1);
    for (int i = 1; i <= 10; ++i) compare_partnership(lists.partnerships[i], partnerships_record + i - 1);
  }

  void compare_score(const top_score_rec& line, long record) {
    if (line.player.empty()) return;
    const career_rec* const career = require_career(line.team, line.player, record);
    if (career == nullptr || line.runs <= career->high_score) return;
    add(books_.record_file_name, record, "runs",
        fmt::format("{} by \"{}\", whose highest score is {}", int{line.runs}, line.player, career->high_score));
  }

  void compare_bowling(const top_bowling_rec& line, long record) {
    if (line.player.empty()) return;
    const career_rec* const career = require_career(line.team, line.player, record);
    if (career == nullptr) return;
    const bool borne_out =
        line.wickets < career->best_wickets || (line.wickets == career->best_wickets && line.runs >= career->best_runs);
    if (borne_out) return;
    add(books_.record_file_name, record, "wickets",
        fmt::format("{}/{} by \"{}\", whose best bowling is {}/{}", int{line.wickets}, int{line.runs}, line.player,
                    career->best_wickets, career->best_runs));
  }

  void compare_highest(const top_total_rec& line, long record) {
    if (line.team.empty()) return;
    compare_sides(line.team, line.against, record);
    const int row = table_place(books_.lists, line.team);
    if (row == 0) return;
    const double highest = books_.lists.teams[row].high_for.number();
    if (int{line.total} <= highest) return;
    add(books_.record_file_name, record, "total",
        fmt::format("{} by \"{}\", whose highest total is {}", int{line.total}, line.team, number_text(highest)));
  }

  /// The table counts a lowest total only all out.
  void compare_lowest(const top_total_rec& line, long record) {
    if (line.team.empty()) return;
    compare_sides(line.team, line.against, record);
    const int row = table_place(books_.lists, line.team);
    if (row == 0 || line.wickets != 10) return;
    const double lowest = books_.lists.teams[row].low_for.number();
    if (int{line.total} >= lowest) return;
    add(books_.record_file_name, record, "total",
        fmt::format("{} by \"{}\", whose lowest total is {}", int{line.total}, line.team, number_text(lowest)));
  }

  void compare_partnership(const top_partnership_rec& line, long record) {
    if (line.batsman_a.empty()) return;
    compare_sides(line.team, line.against, record);
    const int row = table_place(books_.lists, line.team);
    if (row == 0) return;
    const double highest = books_.lists.teams[row].high_for.number();
    if (int{line.partner_runs} <= highest) return;
    add(books_.record_file_name, record, "partner_runs",
        fmt::format("{} by \"{}\", whose highest total is {}", int{line.partner_runs}, line.team,
                    number_text(highest)));
  }

  void compare_sides(const std::string& team, const std::string& against, long record) {
    for (const auto& [field, name] : {std::pair("team", &team), std::pair("against", &against)}) {
      if (table_place(books_.lists, *name) != 0) continue;
      add(books_.record_file_name, record, field, fmt::format("\"{}\" has no row in the team table", *name));
    }
  }

  const career_rec* require_career(const std::string& team, const std::string& player, long record) {
    const career_rec* const career = career_of(books_.careers, team, player);
    if (career == nullptr)
      add(books_.record_file_name, record, "player", fmt::format("\"{}\" of \"{}\" has no career", player, team));
    return career;
  }

  void add(const std::string& file, long record, std::string field, std::string what) {
    faults_.push_back({file, record, std::move(field), std::move(what)});
  }

  const record_books& books_;
  std::vector<database_fault> faults_;
};

}  // namespace

std::vector<database_fault> contradictions(const record_books& books) { return comparison(books).faults(); }

}  // namespace velorin
