// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/worm_graph.h"

#include <algorithm>

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

/// The last row that the match in play has written in this line of `worms`, 0 for none.
int last_row_of_match(const match_state& match, const match_worms& worms, const worm_line& line) {
  // Of two lines of one name the first is written.
  if (&line != &worms.worm[0] && line.team == worms.worm[0].team) return 0;
  const bool bats = line.team == match.team1_name && !match.deliveries.empty();
  const bool has_batted = line.team == match.team2_name && match.first_total != 0;
  return std::max(bats ? match.innings_balls / balls_of_over + 1 : 0,
                  has_batted ? match.first_balls / balls_of_over + 1 : 0);
}

std::vector<worm_point> points_of_match(const match_state& match, const match_worms& worms, const worm_line& line) {
  std::vector<worm_point> points = points_of(line);
  const int last = last_row_of_match(match, worms, line);
  std::erase_if(points, [last](const worm_point& point) { return point.row > last; });
  return points;
}

void name_lines(const match_state& match, match_worms& worms) {
  if (worms.loaded) return;
  worms.loaded = true;
  worms.worm[0].team = match.team1_name;
  worms.worm[1].team = match.team2_name;
}

/// Writes the scores after each delivery of the innings in play into the line of its side. A side that has none leaves
/// no trace.
void write_innings(const match_state& match, match_worms& worms) {
  if (match.deliveries.empty()) return;
  name_lines(match, worms);
  const auto line = std::find_if(worms.worm.begin(), worms.worm.end(),
                                 [&](const worm_line& one) { return one.team == match.team1_name; });
  if (line == worms.worm.end()) return;
  // From the last ball back: the first that is met of a row is the last one bowled.
  int score = match.score_runs;
  int balls = match.innings_balls;
  int row_before = 0;
  auto last = match.deliveries.rbegin();
  if (is_last_ball_open(match)) ++last;  // a wicket: the score is that of the ball before
  for (auto ball = last; ball != match.deliveries.rend(); ++ball) {
    const int row = balls / balls_of_over + 1;
    // An innings that goes on with the balls of an earlier one has rows beyond the last.
    if (row != row_before && row >= 1 && row <= overs_of_innings + 1) {
      line->row[row] = score;
      line->row_set[row] = true;
    }
    row_before = row;
    score -= ball->score();
    balls -= ball->counted ? 1 : 0;
  }
  line->score_runs = match.score_runs;
  line->score_wickets = match.score_wickets;
  line->score_set = true;
}

}  // namespace

std::string standing_worms(const match_state& match) {
  if (!match.loaded) return {};
  return "The Score Comparison Graph still shows " + match.worm[0].team + " and " + match.worm[1].team + ".";
}

void start_worms_afresh(match_state& match) { static_cast<match_worms&>(match) = {}; }

void load_worms(match_state& match) { name_lines(match, match); }

void keep_worms(match_state& match) { write_innings(match, match); }

match_worms worms_with_this_innings(const match_state& match) {
  match_worms worms = match;
  write_innings(match, worms);
  return worms;
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
  const match_worms worms = worms_with_this_innings(match_);
  const auto& [first, second] = worms.worm;
  first_side = first.team;
  second_side = second.team;
  first_score = score_text(first);
  second_score = score_text(second);
  series = {points_of(first), points_of(second)};
  of_match = {points_of_match(match_, worms, first), points_of_match(match_, worms, second)};
  has_old_rows_ = false;
  for (const std::size_t i : {0U, 1U}) {
    const std::string& name = worms.worm[i].team;
    const bool plays = name == match_.team1_name || name == match_.team2_name;
    has_old_rows_ |= !plays || of_match[i].size() < series[i].size();
  }
}

}  // namespace velorin
