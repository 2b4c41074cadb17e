// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/referee.h"

#include <algorithm>
#include <sstream>

#include "engine/delivery_model.h"
#include "model/check_match.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "support/game_in_play.h"

namespace velorin::testing {

void referee::complain(const std::string& what) {
  if (what.empty() || !complaint_.empty()) return;
  std::ostringstream said;
  said << "match " << match_number_ << ", innings " << match.innings_number << ", over " << match.over_no << ": "
       << what;
  complaint_ = said.str();
}

void referee::watch_ball() {
  ++balls_;
  complain(check_match(match));
  if (match.innings_number != innings_) start_innings();
  if (match.over_no != over_) start_over();
  ++innings_deliveries_;
  ++outcomes_[static_cast<std::size_t>(match.ball_outcome)];
  if (match.bowler != bowler_) complain("the bowler changed within the over");
  if (match.striker > highest_ + 1 || match.non_striker > highest_ + 1) complain("a batsman was passed over");
  highest_ = std::max<int>({highest_, match.striker, match.non_striker});
  if (!match.innings_over_flag && highest_ != match.score_wickets + 2) complain("the batsmen do not fit the wickets");
  if (match.score_runs < score_ || match.score_runs > score_ + 6) complain("the score jumped");
  if (match.score_wickets != outcomes_[wicket]) complain("not every wicket is counted");
  score_ = match.score_runs;
  check_lists();
}

void referee::watch_innings_end() {
  ++innings_ended_;
  const bool closed = match.innings_balls == 300 || match.score_wickets == 10;
  if (!closed && match.score_runs <= match.first_total) complain("the innings ended early");
  check_log();
  check_deliveries();
}

void referee::watch_result(bool finished) {
  if (!finished) return;
  if (innings_ended_ != 2) complain("not two innings");
  if (match.result_winner.empty() && match.result_margin != "Match tied.") complain("no winner and no tie");
  if (match.rate_first.delta + match.rate_second.delta != 0) complain("the rates are no mirror");
}

void referee::start_innings() {
  innings_ = match.innings_number;
  innings_deliveries_ = 0;
  over_ = 0;
  score_ = 0;
  highest_ = 2;
  outcomes_ = {};
}

void referee::start_over() {
  over_ = match.over_no;
  bowler_ = match.bowler;
  // The first ball of an over is on his card already.
  if (match.bowling_card[bowler_].balls > 60) complain("a bowler began an over beyond his quota");
}

/// Nobody is listed twice, and nobody without the figures.
void referee::check_lists() {
  if (balls_ % 61 != 0) return;
  check_names(match.fifty_list, "a fifty is listed twice");
  check_names(match.hundred_list, "a hundred is listed twice");
  check_names(match.five_wicket_list, "a five-wicket haul is listed twice");
  check_names(match.stand50_list, "a stand is listed twice");
  for (int i = 1; i <= 11; ++i) check_fifty(match.batting_card[i]);
}

void referee::check_names(std::span<const std::string> list, const char* what) {
  for (std::size_t i = 1; i < list.size() && !list[i].empty(); ++i) {
    if (std::count(list.begin() + 1, list.end(), list[i]) > 1) complain(what);
  }
}

void referee::check_fifty(const batting_card_rec& man) {
  const auto& list = match.fifty_list;
  const bool listed = !man.name.empty() && std::find(list.begin() + 1, list.end(), man.name) != list.end();
  if (listed && man.runs < 50) complain("a fifty of fewer runs is listed");
  // The ball just booked is not announced yet.
  if (!listed && man.runs > 55) complain("a fifty is not listed");
}

/// The symbols of all balls add up to the score and to the no balls and wides, which stand in them and not in it.
void referee::check_log() {
  int sum = 0;
  int wickets = 0;
  for (const over_entries& over : log_of(match.deliveries)) {
    sum += over.runs();
    wickets += over.wickets();
  }
  if (sum != match.score_runs + match.innings_no_balls + match.innings_wides)
    complain("the ball log adds up to another score");
  if (wickets != match.score_wickets) complain("the ball log has other wickets");
  // A line a delivery and four more for a wicket; none for a no ball or wide that the log had no place for. Twelve for
  // each over that came to its end before the innings did.
  const int extras = outcomes_[no_ball] + outcomes_[wide_ball] - match.innings_no_balls - match.innings_wides;
  const int lines = innings_deliveries_ - extras + 4 * match.score_wickets + 12 * (match.over_no - 1);
  if (count_lines(match.deliveries, overs_closed(match)) != lines)
    complain("the commentary has too few or too many lines");
}

/// Deliveries by outcome against the cards.
void referee::check_deliveries() {
  std::array<int, 12> strokes{};
  for (int i = 1; i <= 11; ++i) {
    const batting_card_rec& man = match.batting_card[i];
    strokes[one_run] += man.singles;
    strokes[two_runs] += man.twos;
    strokes[three_runs] += man.threes;
    strokes[four_runs] += man.fours;
    strokes[six_runs] += man.sixes;
    strokes[dot_ball] += man.dots;
  }
  for (const int outcome : {one_run, two_runs, three_runs, four_runs, six_runs}) {
    if (strokes[outcome] != outcomes_[outcome]) complain("the cards have other strokes than were played");
  }
  if (strokes[dot_ball] != outcomes_[dot_ball] + outcomes_[wicket] + outcomes_[leg_byes] + outcomes_[byes]) {
    complain("the cards have other dots than were played");
  }
  // No balls and wides for which the log had no place count as balls and leave no other trace.
  const int uncounted = match.innings_no_balls + match.innings_wides;
  if (match.innings_no_balls > outcomes_[no_ball] || match.innings_wides > outcomes_[wide_ball]) {
    complain("more no balls or wides than were bowled");
  }
  if (match.innings_balls != innings_deliveries_ - uncounted) complain("the balls do not fit the deliveries");
}

}  // namespace velorin::testing
