// SPDX-License-Identifier: GPL-3.0-or-later
// Matches without a human: what still stops for the user, how the loop ends, and that nothing of a match outlives it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/console_view.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "model/stands.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

class Unattended : public match_test {
 protected:
  /// The draws of an over or less of wickets, all bowled.
  static void add_wickets(std::vector<double>& draws, int wickets) {
    for (int i = 0; i < wickets; ++i) {
      draws.push_back(0);
      draws.push_back(die_draw(1, 110));
    }
  }

  /// What a set-up brings into the match, and nothing else: what the match before has left stays.
  static void set_up(bool computer_bats, bool computer_bowls) {
    const match_state left = match;
    set_up_sample_match(computer_bats, computer_bowls);
    const match_state fresh = match;
    match = left;
    static_cast<match_sides&>(match) = fresh;
    static_cast<match_conditions&>(match) = fresh;
  }

  /// Plays the sample match with one seed and returns all that was shown: requests, and state at each scorecard.
  std::vector<std::string> transcript(std::uint64_t seed, bool computer_bats = true, bool computer_bowls = true) {
    user = scripted_user();
    user.on_report = [this](report) { note_state(); };
    set_up(computer_bats, computer_bowls);
    for (int i = 1; i <= 11; ++i) match.batting_xi[i].bat_skill = match.batting_xi[i].bat_skill * 2;
    chance.use_seed(seed);
    open_console(in_play());
    while (match.over_no != 0) next_over(in_play());
    user.requests.push_back(match.result_winner + match.result_margin + " " + std::to_string(match.rate_first.delta));
    user.requests.push_back(std::to_string(chance.draws_used()));
    return user.requests;
  }

  void note_state() {
    std::vector<std::string>& lines = user.requests;
    for (const std::string& line : stored_commentary_lines(match)) lines.push_back(line);
    for (const std::string& line : commentary_lines(match)) lines.push_back(line);
    for (const bowler_line& line : view_bowler_list(match)) {
      lines.push_back(line.name);
      lines.insert(lines.end(), line.figures.begin(), line.figures.end());
    }
    for (const rate_cell& cell : view_rates(match).cells) lines.push_back(cell.heading + cell.text);
    lines.push_back(view_last_wicket(match));
    for (int over = 1; over <= 50; ++over) {
      const std::vector<std::string> entries = log_of_over(innings_in_play(match), over);
      lines.insert(lines.end(), entries.begin(), entries.end());
    }
    for (const auto& fall : falls_in_play(match)) lines.push_back(fall.batsman_a + fall.batsman_b);
    for (const std::string& name : match.fifty_list) lines.push_back(name);
    for (const std::string& name : match.stand50_list) lines.push_back(name);
    for (const std::string& name : match.five_wicket_list) lines.push_back(name);
    lines.push_back(match.first_innings_projection.text());
  }
};

TEST_F(Unattended, OnlyScorecardsAndTheResultAreShown) {
  for (const int seed : {1, 2, 3, 4, 5}) {
    user = scripted_user();
    set_up_sample_match(true, true);
    for (int i = 1; i <= 11; ++i) match.batting_xi[i].bat_skill = 90;  // for fifties and stands
    int fifties = 0;
    user.on_report = [&fifties](report) { fifties += match.fifty_list[1].empty() ? 0 : 1; };
    chance.use_seed(static_cast<std::uint64_t>(seed));
    open_console(in_play());
    ASSERT_EQ(user.requests.size(), 3U) << seed;
    EXPECT_EQ(user.requests[0], "report 0");
    EXPECT_THAT(user.requests[1], StartsWith("message End of Match | "));
    EXPECT_EQ(user.requests[2], "report 0");
    EXPECT_EQ(fifties, 2) << seed;
    EXPECT_LE(user.progress_calls, 100);
    EXPECT_FALSE(user.progress_open);
    EXPECT_EQ(match.over_no, 0);
    EXPECT_NE(match.result_margin, "");
  }
}

TEST_F(Unattended, ASideAllOutEndsTheLoopEarly) {
  set_up_sample_match(true, true);
  std::vector<double> draws = {0.5, 0.999, 0.3};  // a dot ball, and one run
  add_wickets(draws, 10);
  draws.push_back(0.5);
  add_wickets(draws, 10);
  const auto all = draws.size();
  script_draws(draws);
  open_console(in_play());
  EXPECT_EQ(chance.draws_used(), all);
  EXPECT_EQ(user.progress_calls, 4);
  EXPECT_FALSE(user.progress_open);
  EXPECT_EQ(match.result_winner, "Home");
  EXPECT_EQ(match.result_margin, "  won by  1  runs");
}

TEST_F(Unattended, AFirstInningsOfNoRunsLeavesNoResult) {
  set_up_sample_match(true, true);
  match.result_winner = "Somebody";
  match.result_margin = "by something";
  std::vector<double> draws = {0.5};
  add_wickets(draws, 10);
  draws.push_back(0.5);
  script_draws(draws);
  user.on_report = [](report) { EXPECT_EQ(match.score_wickets, 10); };
  open_console(in_play());
  EXPECT_EQ(chance.draws_used(), 22U);
  EXPECT_THAT(user.requests, ElementsAre("report 0"));
  EXPECT_EQ(user.progress_calls, 2);
  EXPECT_FALSE(user.progress_open);
  EXPECT_EQ(match.result_winner, "");
  EXPECT_EQ(match.result_loser, "");
  EXPECT_EQ(match.result_margin, "");
  EXPECT_EQ(match.result_ground, "");
  EXPECT_EQ(match.over_no, 0);
  EXPECT_EQ(match.team1_name, "");
  EXPECT_EQ(match.batting_xi[1].name, "");
  EXPECT_TRUE(match.computer_bats);
}

TEST_F(Unattended, TheQuotaIsAskedInAnUnattendedMatchToo) {
  set_up_sample_match(true, true);
  chance.use_seed(11);
  int asked = 0;
  user.on_ball = [&] {
    // The man of the coming over is through, and the balls are on the books.
    if (user.balls_bowled != 1) return;
    match.bowling_card[match.next_bowler].balls += 60;
    match.innings_balls += 60;
    asked = match.next_bowler;
  };
  open_console(in_play());
  const std::vector<std::string> messages = user.requests_of("message");
  ASSERT_FALSE(messages.empty());
  EXPECT_EQ(messages[0], "message Full Quota Bowled | A.Bowl" + std::to_string(asked) +
                             " has bowled his full quota of 10 overs.Please select a new bowler");
  EXPECT_EQ(user.requests_of("chgbowler").at(0), "chgbowler Change Bowler");
}

TEST_F(Unattended, ASeedRepeatsAMatch) {
  const std::vector<std::string> first = transcript(77);
  EXPECT_GT(first.size(), 1000U);
  EXPECT_NE(transcript(78), first);
  EXPECT_EQ(transcript(77), first);
}

TEST_F(Unattended, AMatchLeavesNothingInTheNext) {
  for (const bool human : {false, true}) {
    match = match_state();
    const std::vector<std::string> alone = transcript(21, !human, true);
    for (const int before : {22, 23, 24}) {
      transcript(static_cast<std::uint64_t>(before), before % 2 == 0, before == 24);
      EXPECT_EQ(transcript(21, !human, true), alone) << "after the match of seed " << before;
    }
  }
}

TEST_F(Unattended, TheSecondOfTwoMatchesNamesNobodyOfTheFirst) {
  transcript(5);
  set_up_sample_match(true, true);
  match.batting_xi = sample_eleven("M.North");
  match.bowling_xi = sample_eleven("N.South");
  user.requests.clear();
  chance.use_seed(6);
  open_console(in_play());
  for (const std::string& request : user.requests) {
    EXPECT_EQ(request.find("H.Bat"), std::string::npos) << request;
    EXPECT_EQ(request.find("A.Bowl"), std::string::npos) << request;
  }
}

TEST_F(Unattended, ZeroAttendedGoesOnIntoAThirdInnings) {
  open(false, false);
  play(times(10, out()));
  EXPECT_EQ(match.innings_number, 2);
  EXPECT_EQ(match.first_total, 0);
  EXPECT_EQ(match.first_wickets, 10);
  EXPECT_EQ(match.team1_name, "Away");
  user.requests.clear();
  user.messages.clear();
  play(std::vector{hit(4)} + times(10, out()));  // treated as a first innings
  EXPECT_THAT(texts_of("End of Innings"), ElementsAre("End of Innings"));
  EXPECT_THAT(texts_of("End of Match"), IsEmpty());
  EXPECT_EQ(user.requests_of("report").size(), 1U);
  EXPECT_EQ(match.innings_number, 3);
  EXPECT_EQ(match.first_total, 4);
  EXPECT_EQ(match.team1_name, "Home");
  EXPECT_EQ(match.batting_card[1].how_out, " b A.Bowl1");  // the card of their first innings goes on
  EXPECT_EQ(match.batting_card[1].balls, 1);
  EXPECT_EQ(match.first_batting_card[1].name, "A.Bowl1");
  EXPECT_THAT(commentary_lines(match), IsEmpty());
  EXPECT_EQ(stored_commentary_lines(match).at(0), "H.Bat1 to A.Bowl1 : 4 runs.");
  user.requests.clear();
  play({hit(4), hit(1)});
  EXPECT_EQ(match.result_winner, "Home");
  EXPECT_EQ(match.result_margin, "  won by  10  wickets ");
  EXPECT_EQ(match.rate_first.team, "Away");
  EXPECT_THAT(user.requests, ElementsAre("message End of Match | Home   wins by  10  wickets ", "report 0"));
}

}  // namespace
}  // namespace velorin::testing
