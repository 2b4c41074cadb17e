// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/aggression_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTest>

#include "console/captain_forms.h"
#include "desktop/meter_bar.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class AggressionWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match(false, false);
    match.striker = 2;
    match.non_striker = 1;
    match.batting_card[1].name = "H.Bat1";
    match.batting_card[1].runs = 41;
    match.batting_card[1].balls = 60;
    match.batting_card[2].name = "H.Bat2";
    match.bowler = 8;
    match.next_bowler = 9;
    match.bowling_card[9].name = "A.Bowl9";
    match.bowling_card[9].balls = 27;
    match.bowling_card[9].maidens = 1;
    match.bowling_card[9].runs = 19;
    match.bowling_card[9].wickets = 2;
    match.score_runs = 83;
    match.score_wickets = 1;
    match.innings_balls = 100;
    match.batsman_aggression = {4, 2};
    match.bowling_aggression = {1, 5};
  }
  static QString text(const QWidget& window, const char* label) { return control<QLabel>(window, label)->text(); }
  static bool is_shown(const QWidget& window, const char* name) { return control<QWidget>(window, name)->isVisible(); }
};

TEST_F(AggressionWindowTest, ShowsABatsman) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  take_picture(window, "aggr_batsman");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "player_name"), " H.Bat1 ");
  EXPECT_EQ(text(window, "heading_0"), "Runs");
  EXPECT_EQ(text(window, "figure_0"), "41");
  EXPECT_EQ(text(window, "heading_1"), "Balls");
  EXPECT_EQ(text(window, "figure_1"), "60");
  EXPECT_EQ(text(window, "heading_2"), "SR");
  EXPECT_EQ(text(window, "figure_2"), "68.33");
  EXPECT_EQ(text(window, "heading_3"), "Settled  :");
  EXPECT_FALSE(is_shown(window, "figure_3"));
  EXPECT_TRUE(is_shown(window, "settled_meter"));
  EXPECT_DOUBLE_EQ(control<MeterBar>(window, "settled_meter")->value(), 5 * (82 + 30));
  EXPECT_EQ(text(window, "score_sentence"), QString::fromStdString(form.score_sentence));
  EXPECT_TRUE(text(window, "score_sentence").endsWith("at 4.98 runs per over."));
  EXPECT_EQ(control<QSlider>(window, "aggression")->value(), 4);
  EXPECT_TRUE(is_shown(window, "accept_for_batsman"));
  EXPECT_FALSE(is_shown(window, "accept_for_bowler"));
}

TEST_F(AggressionWindowTest, TellsWhatEachAggressionWouldBring) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window({"3.9 an over, no wicket", "b", "c", "d", "e"}, form);
  window.show();
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "level_answer_1"), "1: 3.9 an over, no wicket");
  EXPECT_EQ(text(window, "level_answer_4"), QStringLiteral("\u25B8 4: d"));
  control<QSlider>(window, "aggression")->setValue(5);
  EXPECT_EQ(text(window, "level_answer_4"), "4: d");
  EXPECT_EQ(text(window, "level_answer_5"), QStringLiteral("\u25B8 5: e"));
  AggressionWindow unknown(form);
  unknown.show();
  EXPECT_FALSE(is_shown(unknown, "level_answers"));
}

TEST_F(AggressionWindowTest, ShowsABowler) {
  aggression_form form = aggression_form::of_bowler(match, 1);
  AggressionWindow window(form);
  window.show();
  take_picture(window, "aggr_bowler");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "player_name"), " A.Bowl9 ");
  EXPECT_EQ(text(window, "heading_0"), "Overs");
  EXPECT_EQ(text(window, "figure_0"), "4.3");
  EXPECT_EQ(text(window, "heading_1"), "Mdns");
  EXPECT_EQ(text(window, "figure_1"), "1");
  EXPECT_EQ(text(window, "heading_2"), "Runs");
  EXPECT_EQ(text(window, "figure_2"), "19");
  EXPECT_EQ(text(window, "heading_3"), "Wkts");
  EXPECT_EQ(text(window, "figure_3"), "2");
  EXPECT_TRUE(is_shown(window, "figure_3"));
  EXPECT_FALSE(is_shown(window, "settled_meter"));
  EXPECT_FALSE(is_shown(window, "score_sentence"));
  EXPECT_EQ(control<QSlider>(window, "aggression")->value(), 5);
  EXPECT_FALSE(is_shown(window, "accept_for_batsman"));
  EXPECT_TRUE(is_shown(window, "accept_for_bowler"));
}

TEST_F(AggressionWindowTest, ABatsmanBeforeHisFirstBall) {
  aggression_form form = aggression_form::of_batsman(match, 1);
  AggressionWindow window(form);
  window.show();
  EXPECT_EQ(text(window, "figure_2"), " - ");
  EXPECT_DOUBLE_EQ(control<MeterBar>(window, "settled_meter")->value(), 0);
}

TEST_F(AggressionWindowTest, OkSetsTheAggression) {
  aggression_form form = aggression_form::of_batsman(match, 1);
  AggressionWindow window(form);
  window.show();
  ASSERT_NE(window.focusWidget(), nullptr);
  EXPECT_EQ(window.focusWidget()->objectName(), "aggression");
  QTest::keyClick(window.focusWidget(), Qt::Key_5);
  press(window, "accept_for_batsman");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.batsman_aggression[0], 4);
  EXPECT_EQ(match.batsman_aggression[1], 5);

  aggression_form bowling = aggression_form::of_bowler(match, 0);
  AggressionWindow other(bowling);
  other.show();
  control<QSlider>(other, "aggression")->setValue(3);
  press(other, "accept_for_bowler");
  EXPECT_EQ(match.bowling_aggression[0], 3);
  EXPECT_EQ(match.bowling_aggression[1], 5);
}

TEST_F(AggressionWindowTest, EscapeChangesNothing) {
  aggression_form form = aggression_form::of_batsman(match, 0);
  AggressionWindow window(form);
  window.show();
  control<QSlider>(window, "aggression")->setValue(1);
  window.reject();
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.batsman_aggression[0], 4);
}

}  // namespace
}  // namespace velorin::testing
