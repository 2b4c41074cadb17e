// SPDX-License-Identifier: GPL-3.0-or-later
// The end of a match: who has won, by what, what is shown and what remains.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "database/configuration.h"
#include "database/lasting_records.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/stands.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

class Result : public match_test {
 protected:
  /// Home bat first: these balls off the 50th over, and the innings is over.
  void home_make(const std::vector<ball>& last_over) {
    open(false, false);
    skip_to_over(50);
    play(last_over);
    ASSERT_EQ(match.innings_number, 2);
    user.requests.clear();
  }

  static void expect_result(const std::string& winner, const std::string& loser, const std::string& margin) {
    EXPECT_EQ(match.result_ground, "The Oval");
    EXPECT_EQ(match.result_winner, winner);
    EXPECT_EQ(match.result_loser, loser);
    EXPECT_EQ(match.result_margin, margin);
    EXPECT_EQ(match.rate_first.team, "Home");
    EXPECT_EQ(match.rate_second.team, "Away");
  }

  static void expect_rates(double first, double second) {
    EXPECT_EQ(match.rate_first.delta, first);
    EXPECT_EQ(match.rate_second.delta, second);
  }

  static void expect_reset() {
    EXPECT_EQ(match.innings_balls, 0);
    EXPECT_EQ(match.first_total, 0);
    EXPECT_EQ(match.over_no, 0);
    EXPECT_EQ(match.team1_name, "");
    EXPECT_EQ(match.next_step, play_step::closed);
    EXPECT_FALSE(match.console_open);
  }

  static std::vector<ball> six_off_the_last() { return times(5, hit(0)) + std::vector{hit(6)}; }
};

TEST_F(Result, TheReportIsShownBeforeTheEndIsTold) {
  home_make(times(6, hit(4)));
  skip_to_over(50);
  int shown = 0;
  user.on_match_report = [&](match_report_form& form) {
    ++shown;
    EXPECT_THAT(user.requests, ElementsAre("message End of Innings | End of Innings"));
    EXPECT_TRUE(form.attended());
    form.open();
    EXPECT_EQ(form.report.result, "Home  won by  17  runs");
    EXPECT_EQ(form.report.innings[0].side, "Home");
    EXPECT_EQ(form.report.innings[0].total, 24);
    EXPECT_EQ(form.report.innings[1].side, "Away");
    EXPECT_EQ(form.report.innings[1].total, 7);
    EXPECT_EQ(match.next_step, play_step::match_reported) << "a copy taken here asks again";
  };
  play(std::vector{hit(1), hit(6)} + times(4, hit(0)));
  EXPECT_EQ(shown, 1);
  EXPECT_EQ(user.requests.size(), 3U) << "the told messages and cards as ever";
  EXPECT_EQ(user.requests[1], "message End of Match | Home  wins by  17  runs");
}

TEST_F(Result, AWinByRuns) {
  home_make(times(6, hit(4)));
  skip_to_over(50);
  user.on_report = [](report) {
    EXPECT_EQ(match.result_winner, "Home");
    EXPECT_EQ(match.score_runs, 7);
    EXPECT_EQ(match.first_total, 24);
    EXPECT_EQ(match.batting_card[1].how_out, "");
  };
  play(std::vector{hit(1), hit(6)} + times(4, hit(0)));
  EXPECT_THAT(user.requests, ElementsAre("message End of Innings | End of Innings",
                                         "message End of Match | Home  wins by  17  runs", "report 0"));
  expect_result("Home", "Away", "  won by  17  runs");
  expect_rates(17 / 50.0, -17 / 50.0);
  expect_reset();
}

TEST_F(Result, AWinByOneRunKeepsThePlural) {
  home_make(six_off_the_last());
  skip_to_over(50);
  play(std::vector{hit(4), hit(1)} + times(4, hit(0)));
  EXPECT_EQ(user.messages.back().text, "Home  wins by  1  runs");
  expect_result("Home", "Away", "  won by  1  runs");
}

TEST_F(Result, AllOutBelowTheTarget) {
  home_make(six_off_the_last());
  user.on_report = [](report) {
    EXPECT_EQ(match.score_wickets, 10);
    EXPECT_EQ(falls_in_play(match)[10].balls, 11);
  };
  play(std::vector{hit(2)} + times(10, out()));
  expect_result("Home", "Away", "  won by  4  runs");
  expect_rates(4 / 50.0, -4 / 50.0);  // over fifty, however short the innings
  expect_reset();
}

TEST_F(Result, ATieAfterFiftyOvers) {
  home_make(six_off_the_last());
  skip_to_over(50);
  play(six_off_the_last());
  EXPECT_THAT(user.requests, ElementsAre("message End of Innings | End of Innings",
                                         "message End of Match | The match was a tie.", "report 0"));
  expect_result("", "", "Match tied.");
  expect_rates(0, 0);
  EXPECT_FALSE(std::signbit(match.rate_second.delta));
  expect_reset();
}

TEST_F(Result, ATieWithTheLastWicket) {
  home_make(six_off_the_last());
  play(std::vector{hit(6)} + times(10, out()));
  expect_result("", "", "Match tied.");
  expect_reset();
}

TEST_F(Result, ATieForgetsAnEarlierWinner) {
  match.result_winner = "Somebody";
  match.result_loser = "Another";
  home_make(six_off_the_last());
  match.result_winner = "Somebody";
  match.result_loser = "Another";
  skip_to_over(50);
  play(six_off_the_last());
  expect_result("", "", "Match tied.");
}

TEST_F(Result, AChaseThatSucceeds) {
  home_make(six_off_the_last());
  user.on_report = [](report) {
    EXPECT_EQ(match.score_runs, 8);
    EXPECT_EQ(match.innings_balls, 5);
    EXPECT_EQ(log_of_over(innings_in_play(match), 1)[5], "");
  };
  play({hit(4), out(), hit(0), hit(0), hit(4)});
  EXPECT_THAT(user.requests, ElementsAre("batsmandetails A.Bowl1   b H.Bat1  4 (2).", "batorder Select Next Batsman",
                                         "message End of Match | Away   wins by  9  wickets ", "report 0"));
  expect_result("Away", "Home", "  won by  9  wickets ");
  expect_rates(6 / 50.0 - 6.0 * 8 / 5, 6.0 * 8 / 5 - 6 / 50.0);
  expect_reset();
}

TEST_F(Result, NineDownTheMarginKeepsThePlural) {
  home_make(six_off_the_last());
  play(std::vector{hit(4)} + times(9, out()) + std::vector{hit(3)});
  EXPECT_EQ(user.messages.back().text, "Away   wins by  1  wickets ");
  expect_result("Away", "Home", "  won by  1  wickets ");
  expect_rates(6 / 50.0 - 6.0 * 7 / 11, 6.0 * 7 / 11 - 6 / 50.0);
}

TEST_F(Result, ScoresLevelIsNoWinYet) {
  home_make(six_off_the_last());
  play({hit(6)});
  EXPECT_EQ(match.score_runs, 6);
  EXPECT_THAT(user.requests, ElementsAre());
  EXPECT_TRUE(match.console_open);
}

TEST_F(Result, AWinWithByesOffThePad) {
  home_make(six_off_the_last());
  play({hit(6), off_the_pad(leg_byes, 1)});
  expect_result("Away", "Home", "  won by  10  wickets ");
}

TEST_F(Result, AWinOnThe299thBall) {
  home_make(six_off_the_last());
  skip_to_over(50);
  play(times(3, hit(0)) + std::vector{hit(6), hit(1)});
  expect_result("Away", "Home", "  won by  10  wickets ");
  expect_rates(6 / 50.0 - 6.0 * 7 / 299, 6.0 * 7 / 299 - 6 / 50.0);
  EXPECT_THAT(user.requests, ElementsAre("message End of Match | Away   wins by  10  wickets ", "report 0"));
}

TEST_F(Result, ATargetPassedWithThe300thBallIsADefeat) {
  home_make(six_off_the_last());
  skip_to_over(50);
  play(times(4, hit(0)) + std::vector{hit(4), hit(4)});
  EXPECT_THAT(user.requests, ElementsAre("message End of Innings | End of Innings",
                                         "message End of Match | Home  wins by  -2  runs", "report 0"));
  expect_result("Home", "Away", "  won by  -2  runs");
  expect_rates(-2 / 50.0, 2 / 50.0);
  expect_reset();
}

TEST_F(Result, ATargetPassedBeforeTheLastWicketIsAWin) {
  home_make(six_off_the_last());
  play(times(9, out()) + std::vector{hit(6), hit(1)});
  expect_result("Away", "Home", "  won by  1  wickets ");
}

TEST_F(Result, AnUnattendedConsoleIsLeftOpen) {
  set_up_sample_match(true, true);
  chance.use_seed(4);
  open_console(in_play());
  EXPECT_EQ(match.over_no, 0);
  EXPECT_TRUE(match.console_open);
}

/// A database of its own, into which matches are entered.
class Lasting : public Result {
 protected:
  void SetUp() override {
    Result::SetUp();
    before_ = data.files;
    std::string pattern = (std::filesystem::temp_directory_path() / "velorin-engine-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    data.files = database_paths(folder_, "world");
    data.files.elevens_in_memory = true;
  }
  void TearDown() override {
    data.files = before_;
    std::filesystem::remove_all(folder_);
    Result::TearDown();
  }

 private:
  database_files before_;
  std::filesystem::path folder_;
};

TEST_F(Lasting, TheLastStandOfTheMatchIsEntered) {
  home_make({hit(6), hit(6), hit(0), hit(0), hit(0), out()});
  data.files.updates = true;
  play({hit(4), hit(4), hit(1), out(), hit(2), hit(2)});
  expect_result("Away", "Home", "  won by  9  wickets ");
  const record_lists lists = read_record_lists(data);
  EXPECT_EQ(lists.partnerships[1].batsman_b, "H.Bat1");
  EXPECT_EQ(lists.partnerships[1].partner_runs, 12);
  EXPECT_EQ(lists.partnerships[2].batsman_a, "A.Bowl1");
  EXPECT_EQ(lists.partnerships[2].batsman_b, "A.Bowl3 * ");
  EXPECT_EQ(lists.partnerships[2].partner_runs, 4);
  EXPECT_EQ(lists.partnerships[2].partner_balls, 2);
  EXPECT_EQ(lists.partnerships[2].team, "Away");
  EXPECT_EQ(read_career_table(data).career_team_count, 2);
}

TEST_F(Lasting, AllOutThereIsNoLastStand) {
  home_make(times(6, hit(6)));
  data.files.updates = true;
  play(std::vector{hit(4)} + times(10, out()));
  const record_lists lists = read_record_lists(data);
  EXPECT_EQ(lists.partnerships[10].batsman_b, "A.Bowl11");
  EXPECT_EQ(lists.partnerships[10].partner_balls, 1);
  EXPECT_EQ(lists.lowest_totals[1].total, 4);
}

TEST_F(Lasting, AStrikerWhoIsTheLowerIsNamedTwice) {
  home_make({out(), hit(0), hit(0), hit(0), hit(0), hit(1)});
  data.files.updates = true;
  play({hit(2)});
  const record_lists lists = read_record_lists(data);
  EXPECT_EQ(lists.partnerships[1].batsman_a, "A.Bowl1");
  EXPECT_EQ(lists.partnerships[1].batsman_b, "A.Bowl1 * ");
}

TEST_F(Lasting, AFailedSaveIsTriedAgainAndTheMatchIsAddedOnce) {
  home_make(times(6, hit(6)));
  data.files.updates = true;
  std::filesystem::create_directory(data.files.record_file);
  user.on_failed_save.push_back([](const failed_save& failed) {
    EXPECT_TRUE(failed.cause.ends_with("(file world.ptr)")) << failed.cause;
    EXPECT_EQ(failed.without, "If you go on without saving, this match is missing from the careers and records.");
    return save_answer::retry;
  });
  user.on_failed_save.push_back([](const failed_save&) {
    std::filesystem::remove(data.files.record_file);
    return save_answer::retry;
  });
  play(std::vector{hit(4)} + times(10, out()));
  EXPECT_TRUE(user.on_failed_save.empty());
  expect_result("Home", "Away", "  won by  32  runs");
  expect_reset();
  EXPECT_EQ(read_record_lists(data).lowest_totals[1].total, 4);
  const career_table careers = read_career_table(data);
  EXPECT_EQ(careers.career_team_count, 2);
  EXPECT_EQ(careers.teams[1].players[1].matches, 1);
}

TEST_F(Lasting, TheUserCanGoOnWithoutSaving) {
  home_make(times(6, hit(6)));
  data.files.updates = true;
  std::filesystem::create_directory(data.files.record_file);
  user.on_failed_save.push_back([](const failed_save&) { return save_answer::go_on; });
  play(std::vector{hit(4)} + times(10, out()));
  expect_result("Home", "Away", "  won by  32  runs");
  expect_reset();
  EXPECT_FALSE(std::filesystem::exists(data.files.career_file));
}

TEST_F(Lasting, AFailedSaveThatNobodyAnswersIsRaised) {
  home_make(times(6, hit(6)));
  data.files.updates = true;
  std::filesystem::create_directory(data.files.record_file);
  EXPECT_THROW(play(std::vector{hit(4)} + times(10, out())), run_time_error);
  EXPECT_EQ(user.requests_of("failed save").size(), 1U);
}

}  // namespace
}  // namespace velorin::testing
