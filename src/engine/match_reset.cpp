// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/match_reset.h"

#include <array>
#include <cstddef>
#include <string>

#include "model/match_state.h"

namespace velorin {

namespace {

// Clearing in place keeps the memory that texts and lists have, and writes no more than it has to.

void clear(std::string& text) { text.clear(); }

void clear(player_rec& man) {
  man.name.clear();
  man.bat_skill = 0;
  man.bowl_sr = 0;
  man.econ = 0;
  man.is_keeper = 0;
  man.bat_type.clear();
  man.bowler_type.clear();
  man.reserved = {};
}

void clear(chosen_team& team) {
  team.name.clear();
  team.record = 0;
}

void clear(batting_card_rec& line) {
  for (integer* figure :
       {&line.runs, &line.balls, &line.fours, &line.sixes, &line.twos, &line.threes, &line.singles, &line.dots}) {
    *figure = 0;
  }
  line.how = dismissal::none;
  line.taken = fielding::none;
  line.fielder_position = 0;
  for (std::string* text : {&line.name, &line.how_out, &line.fielder}) text->clear();
}

void clear(bowling_card_rec& line) {
  line.name.clear();
  for (integer* figure : {&line.balls, &line.maidens, &line.runs, &line.wickets}) *figure = 0;
}

void clear(bowler_pool_rec& man) {
  man.name.clear();
  man.rating = 0;
  man.position = 0;
  man.econ_class = 0;
  man.bowler_type.clear();
}

template <class Entry, std::size_t Size>
void clear(std::array<Entry, Size>& table) {
  for (Entry& entry : table) clear(entry);
}

void clear(match_sides& sides) {
  sides.team1_name.clear();
  sides.team2_name.clear();
  clear(sides.batting_xi);
  clear(sides.bowling_xi);
  sides.computer_bats = sides.computer_bowls = true;
}

void clear(match_books& books) {
  clear(books.batting_card);
  clear(books.first_batting_card);
  clear(books.bowling_card);
  clear(books.first_bowling_card);
  books.deliveries.clear();
  books.first_deliveries.clear();
  books.commentary_stored = books.last_stand_closed = false;
  books.falls_shown = books.first_falls_shown = -1;
}

void clear(match_achievements& lists) {
  for (auto* list : {&lists.fifty_list, &lists.hundred_list, &lists.five_wicket_list}) clear(*list);
  for (auto* list : {&lists.century_and_half_list, &lists.double_century_list}) clear(*list);
  for (auto* list : {&lists.stand50_list, &lists.stand100_list, &lists.stand150_list, &lists.stand200_list,
                     &lists.stand250_list, &lists.stand300_list}) {
    clear(*list);
  }
}

void clear(match_set_up& set_up) {
  set_up.step = match_step::none;
  set_up.practice = false;
  set_up.occasion = {};
  set_up.team_count = 0;
  clear(set_up.team_list);
  clear(set_up.squads);
  clear(set_up.selected);
  set_up.elevens_exchanged = false;
  set_up.elevens_unsaved = false;
  set_up.first_team_done = false;
  set_up.exchange_tried = false;
  clear(set_up.chosen);
  set_up.conditions_drawn = {};
  set_up.toss_call.clear();
  set_up.toss = {};
  set_up.elevens_before = {};
  set_up.result_before.reset();
}

}  // namespace

void reset_match(match_state& match) {
  clear(static_cast<match_sides&>(match));
  static_cast<match_position&>(match) = {};
  static_cast<match_play_place&>(match) = {};
  static_cast<match_totals&>(match) = {};
  clear(static_cast<match_books&>(match));
  clear(static_cast<match_achievements&>(match));
  static_cast<match_known_achievements&>(match) = {};
  static_cast<match_conditions&>(match) = {};
  clear(static_cast<match_set_up&>(match));
  clear(match.bowler_pool);
}

}  // namespace velorin
