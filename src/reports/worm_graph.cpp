// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/worm_graph.h"

#include <algorithm>

#include "model/booking.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

std::string score_text(const worm_line& line) {
  if (!line.score_set) return {};
  return number_text(line.score_runs) + "/" + number_text(line.score_wickets);
}

std::vector<worm_point> points_of(const worm_line& line) {
  std::vector<worm_point> points;
  for (int row = 1; row <= overs_of_innings + 1; ++row) {
    if (line.row_set[row]) points.push_back({row, line.row[row]});
  }
  return points;
}

/// The last row that the match in play has written in this line, 0 for none.
int last_row_of_match(const match_state& match, const worm_line& line) {
  // Of two lines of one name the first is written.
  if (&line != &match.worm[0] && line.team == match.worm[0].team) return 0;
  const bool bats = line.team == match.team1_name && match.ball_commentary.size() > 0;
  const bool has_batted = line.team == match.team2_name && match.first_total != 0;
  return std::max(bats ? match.innings_balls / balls_of_over + 1 : 0,
                  has_batted ? match.first_balls / balls_of_over + 1 : 0);
}

std::vector<worm_point> points_of_match(const match_state& match, const worm_line& line) {
  std::vector<worm_point> points = points_of(line);
  const int last = last_row_of_match(match, line);
  std::erase_if(points, [last](const worm_point& point) { return point.row > last; });
  return points;
}

}  // namespace

std::string standing_worms(const match_state& match) {
  if (!match.loaded) return {};
  return "The Score Comparison Graph stays with " + match.worm[0].team + " and " + match.worm[1].team + ".";
}

void start_worms_afresh(match_state& match) { static_cast<match_worms&>(match) = {}; }

void load_worms(match_state& match) {
  if (match.loaded) return;
  match.loaded = true;
  match.worm[0].team = match.team1_name;
  match.worm[1].team = match.team2_name;
}

void feed_worms(match_state& match) {
  load_worms(match);
  for (worm_line& line : match.worm) {
    if (line.team != match.team1_name) continue;
    const int row = match.innings_balls / balls_of_over + 1;
    if (row <= overs_of_innings + 1) {  // an innings that goes on with the balls of an earlier one has no row left
      book_as(line.row[row], match.score_runs, "worm.row", line.team);
      line.row_set[row] = true;
    }
    line.score_runs = match.score_runs;
    line.score_wickets = match.score_wickets;
    line.score_set = true;
    return;
  }
}

int chart_place(const match_state& match, const std::string& team) {
  const auto& [first, second] = match.worm;
  const bool bats_first = (team == match.team1_name) == (match.first_total == 0);
  if (!match.loaded || first.team == second.team) return bats_first ? 0 : 1;
  if (team == first.team) return 0;
  if (team == second.team) return 1;
  // A stranger to the lines has the colour that his opponent leaves.
  const std::string& opponent = team == match.team1_name ? match.team2_name : match.team1_name;
  if (opponent == first.team) return 1;
  if (opponent == second.team) return 0;
  return bats_first ? 0 : 1;
}

void worm_graph_form::open() {
  load_worms(match_);
  first_side = match_.worm[0].team;
  second_side = match_.worm[1].team;
  first_score = score_text(match_.worm[0]);
  second_score = score_text(match_.worm[1]);
  series = {points_of(match_.worm[0]), points_of(match_.worm[1])};
  of_match = {points_of_match(match_, match_.worm[0]), points_of_match(match_, match_.worm[1])};
  has_old_rows_ = false;
  for (const std::size_t i : {0U, 1U}) {
    const std::string& name = match_.worm[i].team;
    const bool plays = name == match_.team1_name || name == match_.team2_name;
    has_old_rows_ |= !plays || of_match[i].size() < series[i].size();
  }
}

}  // namespace velorin
