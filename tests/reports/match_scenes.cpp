// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/match_scenes.h"

#include <cstdint>
#include <vector>

#include "database/configuration.h"
#include "support/cards.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"
namespace velorin {

namespace {

const char* const south_isles[] = {"",         "A.Tamuera", "B.Okell", "C.Vanterpool", "D.Sealing", "E.Marrack",
                                   "F.Uluila", "G.Penhall", "H.Dray",  "I.Quennell",   "J.Abara",   "K.Stote"};

batting_card_rec batsman(const char* name, int runs, int balls, int fours, int sixes, dismissal how = dismissal::none,
                         const char* bowler = "", const man_in_the_field& fielder = {}) {
  batting_card_rec card;
  card.name = name;
  card.runs = runs;
  card.balls = balls;
  card.fours = fours;
  card.sixes = sixes;
  put_out(card, how, bowler, fielder);
  return card;
}

bowling_card_rec bowler(const char* name, int balls, int maidens, int runs, int wickets) {
  bowling_card_rec card;
  card.name = name;
  card.balls = balls;
  card.maidens = maidens;
  card.runs = runs;
  card.wickets = wickets;
  return card;
}

/// Gives each over its bowler.
void share_overs(delivery_list& deliveries, const std::vector<int>& bowlers) {
  for (delivery& ball : deliveries) ball.bowler = static_cast<std::uint8_t>(bowlers[ball.over - 1U]);
}

void play_south_isles_stands() {
  delivery_list& deliveries = match.deliveries;
  deliveries.clear();
  add_stand(deliveries, {31, 42, 2, 1});
  add_stand(deliveries, {0, 1, 3, 2});
  add_stand(deliveries, {68, 77, 3, 4});
  add_unbroken_stand(deliveries, {31, 16, 3, 5});
  deliveries.push_back(ball_of_runs(1, {3, 5, 3}, 23, 5));
  deliveries.push_back(wide_on(5, {3, 3, 5}, 23));
  share_overs(deliveries, {11, 8, 9, 11, 8, 9, 11, 8, 9, 11, 8, 9, 11, 8, 9, 11, 8, 9, 11, 8, 11, 8, 3});
}

void play_northlands_stands() {
  delivery_list& deliveries = match.first_deliveries;
  deliveries.clear();
  for (const stand_made& stand :
       {stand_made{88, 94, 1, 2}, stand_made{21, 27, 1, 3}, stand_made{0, 1, 1, 4}, stand_made{53, 69, 1, 5},
        stand_made{48, 47, 1, 6}, stand_made{16, 22, 7, 1}, stand_made{9, 8, 8, 7}, stand_made{3, 5, 9, 8},
        stand_made{3, 4, 10, 9}, stand_made{20, 13, 11, 10}}) {
    add_stand(deliveries, stand);
  }
  std::vector<int> bowlers;
  for (int i = 0; i < 9; ++i) bowlers.insert(bowlers.end(), {11, 10, 9, 8, 5});
  bowlers.insert(bowlers.end(), {10, 9, 8, 11});
  share_overs(deliveries, bowlers);
}

/// The innings of South Isles in the fields of the innings in play.
void set_south_isles_innings() {
  for (int i = 1; i <= 11; ++i) match.batting_xi[i].name = south_isles[i];
  match.striker = 5;
  match.non_striker = 3;
  match.over_no = 23;
  match.score_runs = 131;
  match.score_wickets = 3;
  match.innings_balls = 137;
  match.innings_no_balls = 2;
  match.innings_wides = 7;
  match.innings_leg_byes = 5;
  match.innings_byes = 1;
  match.batting_card[1] = batsman("A.Tamuera", 12, 20, 2, 0, dismissal::caught, "I.Nettle", {2, "B.Lindqvist-Ramsden"});
  match.batting_card[2] = batsman("B.Okell", 0, 1, 0, 0, dismissal::leg_before, "K.Foss");
  match.batting_card[3] = batsman("C.Vanterpool", 102, 101, 11, 3);
  match.batting_card[4] = batsman("D.Sealing", 3, 9, 0, 0, dismissal::run_out, "F.Aldous");
  match.batting_card[5] = batsman("E.Marrack", 8, 6, 0, 1);
}

/// Northland's eleven bowl to South Isles. The table of bowlers is in the order in which they came on.
void set_northland_bowling() {
  const char* const names[] = {"",
                               "A.Harrow",
                               "B.Lindqvist-Ramsden",
                               "C.Featherstonehaughs",
                               "D.Moss",
                               "E.Sandoval",
                               "F.Aldous",
                               "G.Bright",
                               "H.Ekwueme",
                               "I.Nettle",
                               "J.Orme",
                               "K.Foss"};
  for (int i = 1; i <= 11; ++i) match.bowling_card[i].name = names[i];
  match.bowling_card[11] = bowler("K.Foss", 48, 2, 29, 1);
  match.bowling_card[8] = bowler("H.Ekwueme", 48, 0, 44, 0);
  match.bowling_card[9] = bowler("I.Nettle", 36, 11, 42, 1);
  match.bowling_card[3] = bowler("C.Featherstonehaughs", 5, 0, 10, 0);
  match.bowler = 3;
  match.next_bowler = 8;
  match.bowler_list[1].position = 11;
  match.bowler_list[2].position = 8;
  match.bowler_list[3].position = 9;
  match.bowler_list[4].position = 3;
}

void set_northland_batting() {
  batting_card_table& card = match.first_batting_card;
  card[1] = batsman("A.Harrow", 123, 131, 14, 2, dismissal::caught_and_bowled, "J.Abara", {10, "J.Abara"});
  card[2] = batsman("B.Lindqvist-Ramsden", 40, 44, 5, 0, dismissal::caught, "K.Stote", {5, "E.Marrack"});
  card[3] = batsman("C.Featherstonehaughs", 9, 12, 1, 0, dismissal::stumped, "H.Dray", {7, "G.Penhall"});
  card[4] = batsman("D.Moss", 0, 1, 0, 0, dismissal::bowled, "K.Stote");
  card[5] = batsman("E.Sandoval", 17, 30, 0, 0, dismissal::leg_before, "J.Abara");
  card[6] = batsman("F.Aldous", 22, 20, 1, 1, dismissal::caught, "I.Quennell", {7, "G.Penhall"});
  card[7] = batsman("G.Bright", 11, 19, 1, 0, dismissal::run_out, "A.Tamuera");
  card[8] = batsman("H.Ekwueme", 5, 9, 0, 0, dismissal::caught, "H.Dray", {6, "F.Uluila"});
  card[9] = batsman("I.Nettle", 1, 4, 0, 0, dismissal::bowled, "J.Abara");
  card[10] = batsman("J.Orme", 19, 16, 2, 1, dismissal::caught, "K.Stote", {4, "D.Sealing"});
  card[11] = batsman("K.Foss", 2, 4, 0, 0);  // nothing is written for the man whom the last wicket strands
}

void set_first_innings_of_northland() {
  set_northland_batting();
  match.first_total = 261;
  match.first_wickets = 10;
  match.first_balls = 290;
  match.first_no_balls = 1;
  match.first_wides = 12;
  match.first_leg_byes = 9;
  match.first_byes = 3;
  for (int i = 1; i <= 11; ++i) match.first_bowling_card[i].name = south_isles[i];
  match.first_bowling_card[5] = bowler("E.Marrack", 54, 0, 101, 0);
  match.first_bowling_card[8] = bowler("H.Dray", 60, 1, 43, 2);
  match.first_bowling_card[9] = bowler("I.Quennell", 60, 0, 52, 1);
  match.first_bowling_card[10] = bowler("J.Abara", 60, 3, 30, 3);
  match.first_bowling_card[11] = bowler("K.Stote", 56, 10, 23, 3);
  play_northlands_stands();
  match.commentary_stored = true;
}

}  // namespace

void leave_the_last_pair_in() {
  batting_card_table& card = match.first_batting_card;
  put_out(card[10], dismissal::not_out);
  put_out(card[11], dismissal::not_out);
  match.first_wickets = 9;
  match.first_balls = 300;
  match.first_deliveries.resize(match.first_deliveries.size() - 13);
  add_unbroken_stand(match.first_deliveries, {20, 23, 10, 11}, 11);
}

void reports_test::SetUp() {
  match = match_state{};
  data.settings = configuration{};
  data.settings.text_color = "FFFF00";
  data.settings.back_color = "004020";
}

void set_first_innings_in_play() {
  match.ground.ground_name = "Lake End";
  match.team1_name = "South Isles";
  match.team2_name = "Northland";
  set_south_isles_innings();
  set_northland_bowling();
  play_south_isles_stands();
}

void set_second_innings_in_play() {
  set_first_innings_in_play();
  set_first_innings_of_northland();
}

}  // namespace velorin
