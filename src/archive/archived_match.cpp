// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/archived_match.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "model/rules.h"
#include "model/stands.h"

namespace velorin {

namespace {

constexpr std::string_view unbroken_mark = " * ";

/// An innings in the books of a match.
struct innings_books {
  const std::string& team;
  const batting_card_table& batting;
  const bowling_card_table& bowling;
  const delivery_list& deliveries;
  const fall_of_wicket_table& falls;

  const std::string& bowler(int position) const { return bowling[static_cast<std::size_t>(position)].name; }
};

/// What the deliveries tell of a batsman beside his card.
void add_ball(archived_batsman& man, const delivery& ball, const innings_books& books) {
  man.runs += ball.runs;
  man.balls += int(ball.is_faced());
  if (man.runs >= half_century && man.fifty_balls == 0) man.fifty_balls = man.balls;
  if (man.runs >= century && man.hundred_balls == 0) man.hundred_balls = man.balls;
  if (!ball.is_wicket()) return;
  if (ball.how != dismissal::run_out) man.bowler = books.bowler(ball.bowler);
  if (ball.fielder != 0) man.fielder = books.bowler(ball.fielder);
}

archived_batsman batsman_of(const innings_books& books, int position) {
  const batting_card_rec& line = books.batting[static_cast<std::size_t>(position)];
  archived_batsman man;
  man.player = line.name;
  man.position = position;
  for (const delivery& ball : books.deliveries) {
    if (ball.striker == position) add_ball(man, ball, books);
  }
  man.how = line.how;
  man.out = line.how != dismissal::none && line.how != dismissal::not_out;
  man.taken = line.taken;
  man.fielder_position = line.fielder_position;
  man.runs = line.runs;
  man.balls = line.balls;
  man.dots = line.dots;
  man.ones = line.singles;
  man.twos = line.twos;
  man.threes = line.threes;
  man.fours = line.fours;
  man.sixes = line.sixes;
  return man;
}

void add_bowling(archived_innings& innings, const innings_books& books) {
  for (std::size_t j = 1; j <= men_in_eleven; ++j) {
    const bowling_card_rec& line = books.bowling[j];
    innings.bowling.push_back({.player = line.name,
                               .came_on = 0,
                               .balls = line.balls,
                               .maidens = line.maidens,
                               .runs = line.runs,
                               .wickets = line.wickets});
  }
  int came_on = 0;
  for (const delivery& ball : books.deliveries) {
    archived_bowler& bowler = innings.bowling[ball.bowler - 1U];
    if (bowler.came_on == 0) bowler.came_on = ++came_on;
  }
}

void add_stands(archived_innings& innings, const fall_of_wicket_table& falls) {
  for (std::size_t k = 1; k < falls.size(); ++k) {
    const fall_of_wicket_rec& fall = falls[k];
    archived_stand stand{.runs = fall.partner_runs,
                         .balls = fall.partner_balls,
                         .score = fall.score,
                         .at_balls = fall.balls,
                         .unbroken = fall.batsman_b.ends_with(unbroken_mark),
                         .overs = fall.overs_text,
                         .player1 = fall.batsman_a,
                         .player2 = fall.batsman_b};
    if (stand.unbroken) stand.player2.erase(stand.player2.size() - unbroken_mark.size());
    innings.stands.push_back(std::move(stand));
  }
}

void add_overs(archived_innings& innings, const innings_books& books) {
  for (const delivery& ball : books.deliveries) {
    if (innings.overs.empty() || innings.overs.back().over != ball.over) {
      innings.overs.push_back({ball.over, books.bowler(ball.bowler), 0, 0});
    }
    innings.overs.back().runs += ball.score();
    innings.overs.back().wickets += int(ball.is_wicket());
  }
}

void add_meetings(archived_innings& innings, const delivery_list& deliveries) {
  std::map<std::pair<int, int>, archived_meeting> all;
  for (const delivery& ball : deliveries) {
    if (!ball.is_faced()) continue;
    archived_meeting& one = all[{ball.striker, ball.bowler}];
    one.position = ball.striker;
    one.bowler_position = ball.bowler;
    ++one.balls;
    one.runs += ball.runs;
    one.dots += int(ball.runs == 0);
    one.fours += int(ball.outcome == four_runs);
    one.sixes += int(ball.outcome == six_runs);
    one.outs += int(ball.is_wicket() && ball.how != dismissal::run_out);
  }
  for (const auto& [men, one] : all) innings.meetings.push_back(one);
}

/// `not_out`: what the card has of a man whom careers count as not out. The end of an innings writes it into the first
/// innings only.
archived_innings innings_of(const innings_books& books, dismissal not_out) {
  archived_innings innings;
  innings.team = books.team;
  for (int j = 1; j <= men_in_eleven; ++j) {
    if (books.batting[static_cast<std::size_t>(j)].name.empty()) continue;
    innings.batting.push_back(batsman_of(books, j));
    innings.batting.back().not_out = innings.batting.back().how == not_out;
  }
  add_bowling(innings, books);
  add_stands(innings, books.falls);
  add_overs(innings, books);
  add_meetings(innings, books.deliveries);
  return innings;
}

void fill_cards(const archived_innings& innings, batting_card_table& batting, bowling_card_table& bowling) {
  for (const archived_batsman& man : innings.batting) {
    batting_card_rec& line = batting.at(static_cast<std::size_t>(man.position));
    line.name = man.player;
    line.how = man.how;
    line.taken = man.taken;
    line.fielder_position = static_cast<std::uint8_t>(man.fielder_position);
    line.runs = man.runs;
    line.balls = man.balls;
    line.dots = man.dots;
    line.singles = man.ones;
    line.twos = man.twos;
    line.threes = man.threes;
    line.fours = man.fours;
    line.sixes = man.sixes;
  }
  for (std::size_t j = 0; j < innings.bowling.size() && j < men_in_eleven; ++j) {
    const archived_bowler& man = innings.bowling[j];
    bowling_card_rec& line = bowling[j + 1];
    line.name = man.player;
    line.balls = man.balls;
    line.maidens = man.maidens;
    line.runs = man.runs;
    line.wickets = man.wickets;
  }
}

fall_of_wicket_table falls_of(const archived_innings& innings) {
  fall_of_wicket_table falls;
  for (std::size_t k = 0; k < innings.stands.size() && k < wickets_of_innings; ++k) {
    const archived_stand& stand = innings.stands[k];
    fall_of_wicket_rec& fall = falls[k + 1];
    fall.score = stand.score;
    fall.overs_text = stand.overs;
    fall.partner_runs = stand.runs;
    fall.partner_balls = stand.balls;
    fall.balls = stand.at_balls;
    fall.batsman_a = stand.player1;
    fall.batsman_b = stand.player2;
    if (stand.unbroken) fall.batsman_b += unbroken_mark;
  }
  return falls;
}

}  // namespace

archived_match archived(const match_state& match) {
  archived_match kept;
  kept.competition = competition_name(match.occasion.competition);
  kept.stage = match.occasion.stage;
  kept.number = match.occasion.number;
  kept.ground = match.ground.ground_name;
  kept.country = match.ground.country;
  kept.weather = match.weather;
  kept.pitch_surface = match.ground.pitch_surface;
  kept.pitch_bounce = match.ground.pitch_bounce;
  kept.outfield = match.outfield;
  kept.human = !match.computer_bats || !match.computer_bowls;
  kept.winner = match.result_winner;
  kept.margin = match.result_margin;

  archived_innings& first = kept.innings[0];
  first = innings_of({match.team2_name, match.first_batting_card, match.first_bowling_card, match.first_deliveries,
                      falls_before(match)},
                     dismissal::not_out);
  first.runs = match.first_total;
  first.wickets = match.first_wickets;
  first.balls = match.first_balls;
  first.noted_wickets = match.first_wickets;
  first.wides = match.first_wides;
  first.no_balls = match.first_no_balls;
  first.byes = match.first_byes;
  first.leg_byes = match.first_leg_byes;

  archived_innings& second = kept.innings[1];
  second =
      innings_of({match.team1_name, match.batting_card, match.bowling_card, match.deliveries, falls_in_play(match)},
                 dismissal::none);
  second.runs = match.score_runs;
  second.wickets = match.score_wickets;
  second.balls = match.innings_balls;
  second.noted_wickets = match.innings_wickets;
  second.wides = match.innings_wides;
  second.no_balls = match.innings_no_balls;
  second.byes = match.innings_byes;
  second.leg_byes = match.innings_leg_byes;
  return kept;
}

match_state state_of(const archived_match& match) {
  match_state state;
  const archived_innings& first = match.innings[0];
  const archived_innings& second = match.innings[1];
  state.team1_name = second.team;
  state.team2_name = first.team;
  state.ground.ground_name = match.ground;
  state.ground.country = match.country;
  state.result_winner = match.winner;
  if (!match.winner.empty()) state.result_loser = match.winner == first.team ? second.team : first.team;
  state.first_total = first.runs;
  state.first_wickets = first.wickets;
  state.first_balls = first.balls;
  state.score_runs = second.runs;
  state.score_wickets = second.wickets;
  state.innings_wickets = second.noted_wickets;
  state.innings_balls = second.balls;
  fill_cards(first, state.first_batting_card, state.first_bowling_card);
  fill_cards(second, state.batting_card, state.bowling_card);
  return state;
}

falls_of_match falls_of(const archived_match& match) {
  return {.in_play = falls_of(match.innings[1]), .before = falls_of(match.innings[0])};
}

std::string_view competition_name(game_kind kind) {
  switch (kind) {
    case game_kind::match:
      return "Match";
    case game_kind::series:
      return "Series";
    case game_kind::tri_series:
      return "Tri Series";
    case game_kind::world_cup:
      return "World Cup";
  }
  return {};
}

std::string_view how_out_name(const archived_batsman& man) {
  switch (man.how) {
    case dismissal::none:
    case dismissal::not_out:
      return "not out";
    case dismissal::bowled:
      return "bowled";
    case dismissal::caught:
      return "caught";
    case dismissal::caught_and_bowled:
      return "caught and bowled";
    case dismissal::stumped:
      return "stumped";
    case dismissal::leg_before:
      return "lbw";
    case dismissal::run_out:
      return "run out";
  }
  return {};
}

}  // namespace velorin
