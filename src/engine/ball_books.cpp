// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/ball_books.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "database/elevens.h"
#include "database/open_database.h"
#include "engine/delivery_model.h"
#include "model/booking.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rules.h"

namespace velorin {

namespace {

/// A figure of the batsman's card and its name.
struct counter {
  integer batting_card_rec::*figure;
  const char* field;
};

/// What a ball counts as on the batsman's card, by its runs off the bat. Five do not happen.
constexpr std::array<counter, 7> counters = {{{&batting_card_rec::dots, "batting_card.dots"},
                                              {&batting_card_rec::singles, "batting_card.singles"},
                                              {&batting_card_rec::twos, "batting_card.twos"},
                                              {&batting_card_rec::threes, "batting_card.threes"},
                                              {&batting_card_rec::fours, "batting_card.fours"},
                                              {&batting_card_rec::sixes, "batting_card.sixes"},
                                              {&batting_card_rec::sixes, "batting_card.sixes"}}};

/// How a batsman can be out. A ball that the keeper takes is a stumping off a spinner and a catch off another.
enum class dismissal : std::uint8_t { bowled, caught_behind, run_out, by_the_keeper, caught_in_the_field, leg_before };

/// A kind of dismissal and the last of the draws that bring it; they begin behind those of the kind before.
struct dismissal_share {
  dismissal kind;
  int last_draw;
};

/// In rising order of the draws, of which the last kind ends the scale.
constexpr std::array<dismissal_share, 6> dismissals = {{{dismissal::bowled, 11},
                                                        {dismissal::caught_behind, 30},
                                                        {dismissal::run_out, 40},
                                                        {dismissal::by_the_keeper, 45},
                                                        {dismissal::caught_in_the_field, 100},
                                                        {dismissal::leg_before, 110}}};

dismissal draw_dismissal(random_source& chance) {
  const int draw = die(chance, dismissals.back().last_draw);
  return std::find_if(dismissals.begin(), dismissals.end(),
                      [draw](const dismissal_share& share) { return draw <= share.last_draw; })
      ->kind;
}

/// The keeper's name: of several the man of the highest position counts. nullptr without one.
const std::string* keeper_name(const match_state& match) {
  for (int i = men_in_eleven; i >= 1; --i) {
    if (match.bowling_xi[i].is_keeper != 0) return &match.bowling_xi[i].name;
  }
  return nullptr;
}

void caught_behind(const match_state& match, batting_card_rec& out, const player_rec& bowler, const char* how) {
  out.how_out = " b " + bowler.name;
  if (const std::string* keeper = keeper_name(match)) out.fielder = how + *keeper;
}

void caught_in_the_field(const match_state& match, random_source& chance, batting_card_rec& out,
                         const player_rec& bowler) {
  const int catcher = die(chance, men_in_eleven);
  if (catcher == match.bowler) {
    out.how_out = " c && b " + bowler.name;
    out.fielder.clear();
    return;
  }
  out.how_out = " b " + bowler.name;
  out.fielder = " c " + match.bowling_xi[catcher].name;
}

}  // namespace

void load_elevens(match_state& match, open_database& data) { read_elevens(match, data); }

void record_runs(match_state& match) {
  const int outcome = match.ball_outcome;
  if (outcome > six_runs) return;
  // After one or three runs the batsmen have changed ends already.
  const std::array<integer, 2> ends = {match.striker, match.non_striker};
  batting_card_rec& batsman = match.batting_card[ends[static_cast<std::size_t>(outcome) & 1U]];
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  const counter& counted = counters[static_cast<std::size_t>(outcome)];
  book(batsman.balls, 1, "batting_card.balls", batsman.name);
  book(batsman.*counted.figure, 1, counted.field, batsman.name);
  book(batsman.runs, outcome, "batting_card.runs", batsman.name);
  book(bowler.runs, outcome, "bowling_card.runs", bowler.name);
  match.maiden_flag = match.maiden_flag && outcome == dot_ball;
}

void record_fall_of_wicket(match_state& match) {
  const int k = match.score_wickets;
  fall_of_wicket_rec& fall = match.fall_of_wicket[k];
  const fall_of_wicket_rec& before = match.fall_of_wicket[k - 1];
  const std::string& striker = match.batting_xi[match.striker].name;
  book_as(fall.score, match.score_runs, "fall_of_wicket.score", striker);
  fall.batsman_a = match.batting_xi[match.non_striker].name;
  fall.batsman_b = striker;
  book_as(fall.partner_runs, fall.score - before.score, "fall_of_wicket.partner_runs", striker);
  book_as(fall.balls, match.innings_balls + 1, "fall_of_wicket.balls", striker);
  book_as(fall.partner_balls, fall.balls - before.balls, "fall_of_wicket.partner_balls", striker);
}

void record_dismissal(match_state& match, random_source& chance, bool& run_out) {
  batting_card_rec& out = match.batting_card[match.striker];
  const player_rec& bowler = match.bowling_xi[match.bowler];
  switch (draw_dismissal(chance)) {
    case dismissal::bowled:
      out.how_out = " b " + bowler.name;
      out.fielder.clear();
      break;
    case dismissal::caught_behind:
      caught_behind(match, out, bowler, " c ");
      break;
    case dismissal::run_out:
      out.how_out = " run out (" + match.bowling_xi[die(chance, men_in_eleven)].name + ")";
      run_out = true;
      break;
    case dismissal::by_the_keeper:
      caught_behind(match, out, bowler, bowler.bowler_type == "spinner" ? " st " : " c ");
      break;
    case dismissal::caught_in_the_field:
      caught_in_the_field(match, chance, out, bowler);
      break;
    case dismissal::leg_before:
      out.how_out = " lbw " + bowler.name;
      out.fielder.clear();
      break;
  }
}

}  // namespace velorin
