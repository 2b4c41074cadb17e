// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unstopped_play.h"

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>

#include "competitions/series.h"
#include "competitions/world_cup_form.h"
#include "desktop/form.h"
#include "desktop/preferences.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "shell/unstopped_window.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

// Matches between two computer sides that run without stopping.

namespace velorin::testing {
namespace {

class UnstoppedPlayTest : public GameTest {
 protected:
  /// A World Cup of computer sides by clicking; notes presses and milliseconds from the first list to the end.
  struct Cup {
    int presses = 0;
    qint64 milliseconds = 0;
    std::vector<std::string> met;
    std::vector<std::string> files;
  };
  Cup play_cup(bool without_stopping) {
    begin_again_with_seed(1);
    preferences::set_plays_without_stopping("wctable", without_stopping);
    ClickingUser user;
    QElapsedTimer clock;
    user.robot.next("wctable", [](QWidget& window) { press(window, "accept"); });
    user.robot.next("wc_fix", [&](QWidget& window) {
      user.presses = 1;
      clock.start();
      press(window, "accept");
    });
    play([](MenuWindow& menu) { choose(menu, "start_game", "world_cup"); });
    return {user.presses, clock.elapsed(), user.robot.met(), lasting_files()};
  }
};

TEST_F(UnstoppedPlayTest, AWorldCupGivesTheSameBooksWithAndWithoutStops) {
  const Cup stopping = play_cup(false);
  const std::string winner = world_cup.grand_final.winner;
  const Cup unstopped = play_cup(true);
  RecordProperty("presses_stopping", stopping.presses);
  RecordProperty("presses_unstopped", unstopped.presses);
  std::printf("World Cup: %d presses in %lld ms with stops, %d in %lld ms without\n", stopping.presses,
              static_cast<long long>(stopping.milliseconds), unstopped.presses,
              static_cast<long long>(unstopped.milliseconds));
  EXPECT_EQ(world_cup.grand_final.winner, winner);
  EXPECT_TRUE(stopping.files == unstopped.files) << "the career or record files differ";

  begin_again_with_seed(1);
  BookkeepingUser reference;
  const front_end_scope in_use(reference);
  world_cup_form form(in_play(), world_cup);
  form.open();
  form.accept();
  EXPECT_TRUE(unstopped.files == lasting_files()) << "the files differ from the core's";
  EXPECT_LT(unstopped.presses, 5);
  EXPECT_GT(stopping.presses, 32 * 5);
}

TEST_F(UnstoppedPlayTest, ItStopsForAHumanSide) {
  preferences::set_plays_without_stopping("wctable", true);
  ClickingUser user;
  user.robot.next("wctable", [](QWidget& window) {
    control<QCheckBox>(window, "group_b_human_4")->click();
    press(window, "accept");
  });
  std::vector<std::string> sides;
  user.robot.always("wecond", [&](QWidget& window) {
    EXPECT_TRUE(match.human_involved());
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "world_cup"); });
  EXPECT_GE(user.robot.met("wecond"), 4);
  EXPECT_LE(user.robot.met("wecond"), 11);
  EXPECT_EQ(user.robot.met("toss"), user.robot.met("wecond"));
}

/// What is known of the next match as standings are shown.
TEST_F(UnstoppedPlayTest, ItKnowsTheHumanSidesOfTheNextCupMatch) {
  world_cup = world_cup_record();
  world_cup.stage = cup_stage::super_six_draw;
  world_cup.next_match = 21;
  world_cup.super_six_human[6] = true;
  EXPECT_FALSE(next_match_has_human(tested_game, Activity::cup)) << "nothing is drawn yet";
  world_cup.fixtures[21].stage = "SS";
  world_cup.fixtures[21].index_a = 1;
  world_cup.fixtures[21].index_b = 2;
  EXPECT_FALSE(next_match_has_human(tested_game, Activity::cup));
  world_cup.fixtures[21].index_b = 3;
  EXPECT_TRUE(next_match_has_human(tested_game, Activity::cup)) << "the first match of the Super Six";

  world_cup.stage = cup_stage::super_six_matches;
  world_cup.next_match = 29;
  world_cup.fixtures[29].index_a = 1;
  world_cup.fixtures[29].index_b = 1;
  EXPECT_FALSE(next_match_has_human(tested_game, Activity::cup));
  world_cup.next_match = 30;
  for (int place = 1; place <= 6; ++place) world_cup.super_six[static_cast<std::size_t>(place)].points = place;
  EXPECT_TRUE(next_match_has_human(tested_game, Activity::cup)) << "place 6 is the first of the table";
  world_cup.super_six[6].points = 4;
  world_cup.super_six[6].net_run_rate = 1;
  EXPECT_FALSE(next_match_has_human(tested_game, Activity::cup)) << "the second plays in the other semi-final";
  EXPECT_EQ(world_cup.super_six[1].points, 1) << "the table itself is left alone";
  world_cup = world_cup_record();
}

TEST_F(UnstoppedPlayTest, ItCanBeAskedToStopAtTheNextMatch) {
  preferences::set_plays_without_stopping("series1", true);
  ClickingUser user;
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("10"));
    press(window, "accept");
  });
  int asked_in = 0;
  user.robot.next("unstopped", [&](QWidget& window) {
    check_window(window);
    take_picture(window, "unstopped");
    EXPECT_EQ(static_cast<Form&>(window).place(), Form::Place::page) << "the menu is not seen";
    const auto* results = control<TableView>(window, "results");
    EXPECT_EQ(results->model()->rowCount(), series.match_no - 1) << "one row for each match that is over";
    asked_in = series.match_no;
    press(window, "stop");
  });
  int stopped_at = 0;
  user.robot.next("sri_result", [&](QWidget& window) {
    stopped_at = series.match_no;
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  EXPECT_GE(asked_in, 1);
  EXPECT_EQ(stopped_at, asked_in);
  EXPECT_EQ(user.robot.met("sri_result"), 2) << "once as asked, once at the end";
  EXPECT_EQ(user.robot.met("scorecard"), 0);
}

TEST_F(UnstoppedPlayTest, ASingleMatchAlwaysStops) {
  for (const char* form : {"series1", "series2", "wctable", "teamfrm"}) {
    preferences::set_plays_without_stopping(form, true);
  }
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  EXPECT_EQ(user.robot.met("wecond"), 1);
  EXPECT_EQ(user.robot.met("Teamsel"), 2);
  EXPECT_EQ(user.robot.met("scorecard"), 2);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_TRUE(user.messages[0].starts_with("End of Match"));
}

TEST_F(UnstoppedPlayTest, TheChoiceOfOneFormSilencesNoOther) {
  preferences::set_plays_without_stopping("wctable", true);
  preferences::set_plays_without_stopping("series2", true);
  ClickingUser user;
  user.robot.next("series1", pressing("accept"));
  user.robot.next("series2", pressing("accept"));
  play([](MenuWindow& menu) {
    choose(menu, "start_game", "new_series");
    choose(menu, "start_game", "tri_series");
  });
  EXPECT_EQ(user.robot.met("wecond"), 1) << "the series stops, the tri series does not";
  EXPECT_EQ(user.robot.met("scorecard"), 2);
}

}  // namespace
}  // namespace velorin::testing
