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

/// What the draw decides. A ball that the keeper takes is a stumping off a spinner and a catch off another.
enum class fate : std::uint8_t { bowled, caught_behind, run_out, by_the_keeper, caught_in_the_field, leg_before };

/// A fate and the last of the draws that bring it; they begin behind those of the kind before.
struct fate_share {
  fate kind;
  int last_draw;
};

/// In rising order of the draws, of which the last kind ends the scale.
constexpr std::array<fate_share, 6> fates = {{{fate::bowled, 11},
                                              {fate::caught_behind, 30},
                                              {fate::run_out, 40},
                                              {fate::by_the_keeper, 45},
                                              {fate::caught_in_the_field, 100},
                                              {fate::leg_before, 110}}};

fate draw_fate(random_source& chance) {
  const int draw = die(chance, fates.back().last_draw);
  return std::find_if(fates.begin(), fates.end(), [draw](const fate_share& share) { return draw <= share.last_draw; })
      ->kind;
}

/// The keeper's position: of several the highest counts. 0 without one.
int keeper(const match_state& match) {
  for (int i = men_in_eleven; i >= 1; --i) {
    if (match.bowling_xi[i].is_keeper != 0) return i;
  }
  return 0;
}

void name_fielder(const match_state& match, batting_card_rec& out, int position, fielding taken) {
  out.taken = taken;
  out.fielder_position = static_cast<std::uint8_t>(position);
  out.fielder = (taken == fielding::stumped ? " st " : " c ") + match.bowling_xi[position].name;
}

void name_nobody(batting_card_rec& out) {
  out.taken = fielding::none;
  out.fielder_position = 0;
  out.fielder.clear();
}

/// The keeper has taken it. Without one nobody is named, and what the card has of a fielder stays. Returns the keeper's
/// position, 0 without one.
int taken_behind(const match_state& match, batting_card_rec& out, fielding taken) {
  out.how = taken == fielding::stumped ? dismissal::stumped : dismissal::caught;
  out.how_out = " b " + match.bowling_xi[match.bowler].name;
  const int position = keeper(match);
  if (position != 0) name_fielder(match, out, position, taken);
  return position;
}

void caught_in_the_field(const match_state& match, int catcher, batting_card_rec& out, const std::string& bowler) {
  if (catcher == match.bowler) {
    name_nobody(out);
    out.how = dismissal::caught_and_bowled;
    out.how_out = " c && b " + bowler;
    out.fielder_position = static_cast<std::uint8_t>(catcher);
  } else {
    out.how = dismissal::caught;
    out.how_out = " b " + bowler;
    name_fielder(match, out, catcher, fielding::caught);
  }
}

/// Nobody but the bowler has a part in it.
void beaten(batting_card_rec& out, dismissal how, const char* words, const std::string& bowler) {
  name_nobody(out);
  out.how = how;
  out.how_out = words + bowler;
}

/// What the card has of a fielder stays.
void run_out(const match_state& match, int thrower, batting_card_rec& out) {
  out.how = dismissal::run_out;
  out.how_out = " run out (" + match.bowling_xi[thrower].name + ")";
}

/// The fate of the striker, and the man of the field who had part in it, drawn in this order; 0 where none is drawn.
struct drawn_dismissal {
  fate kind;
  int fielder;
};

drawn_dismissal draw_dismissal(random_source& chance) {
  const fate kind = draw_fate(chance);
  const bool of_the_field = kind == fate::run_out || kind == fate::caught_in_the_field;
  return {kind, of_the_field ? die(chance, men_in_eleven) : 0};
}

}  // namespace

void load_elevens(match_state& match, const open_database& data) { read_elevens(match, data); }

template <keeping Kept>
void record_runs(match_state& match) {
  const int outcome = match.ball_outcome;
  if (outcome > six_runs) return;
  // After one or three runs the batsmen have changed ends already.
  const std::array<integer, 2> ends = {match.striker, match.non_striker};
  batting_card_rec& batsman = match.batting_card[ends[static_cast<std::size_t>(outcome) & 1U]];
  bowling_card_rec& bowler = match.bowling_card[match.bowler];
  book(batsman.balls, 1, "batting_card.balls", batsman.name);
  if constexpr (Kept == keeping::everything) {
    const counter& counted = counters[static_cast<std::size_t>(outcome)];
    book(batsman.*counted.figure, 1, counted.field, batsman.name);
  }
  book(batsman.runs, outcome, "batting_card.runs", batsman.name);
  book(bowler.runs, outcome, "bowling_card.runs", bowler.name);
  match.maiden_flag = match.maiden_flag && outcome == dot_ball;
}

template void record_runs<keeping::everything>(match_state& match);
template void record_runs<keeping::rules>(match_state& match);

template <keeping Kept>
void record_dismissal(match_state& match, random_source& chance, delivery& ball) {
  const drawn_dismissal drawn = draw_dismissal(chance);
  if constexpr (Kept == keeping::rules) {
    // The bowler has no part in a run out alone; how else a man was out is no rule's business.
    ball.how = drawn.kind == fate::run_out ? dismissal::run_out : dismissal::bowled;
    return;
  }
  batting_card_rec& out = match.batting_card[match.striker];
  const player_rec& bowler = match.bowling_xi[match.bowler];
  int fielder = drawn.fielder;
  switch (drawn.kind) {
    case fate::bowled:
      beaten(out, dismissal::bowled, " b ", bowler.name);
      break;
    case fate::caught_behind:
      fielder = taken_behind(match, out, fielding::caught);
      break;
    case fate::run_out:
      run_out(match, fielder, out);
      break;
    case fate::by_the_keeper:
      fielder = taken_behind(match, out, bowler.bowler_type == "spinner" ? fielding::stumped : fielding::caught);
      break;
    case fate::caught_in_the_field:
      caught_in_the_field(match, fielder, out, bowler.name);
      break;
    case fate::leg_before:
      beaten(out, dismissal::leg_before, " lbw ", bowler.name);
      break;
  }
  ball.how = out.how;
  ball.fielder = static_cast<std::uint8_t>(fielder);
}

template void record_dismissal<keeping::everything>(match_state& match, random_source& chance, delivery& ball);
template void record_dismissal<keeping::rules>(match_state& match, random_source& chance, delivery& ball);

}  // namespace velorin
