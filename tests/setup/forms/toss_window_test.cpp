// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/toss_window.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/crest.h"
#include "model/match_state.h"
#include "setup/forms/check_leaving.h"
#include "setup/toss.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

constexpr double first_wins = 0.25;
constexpr double second_wins = 0.75;
constexpr double field = 0.25;
constexpr double bat = 0.75;

class TossWindowTest : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }

  static QString text(const QWidget& window, const char* label) { return control<QLabel>(window, label)->text(); }
  static bool is_shown(const QWidget& window, const char* name) { return control<QWidget>(window, name)->isVisible(); }
  static bool enabled(const QWidget& window, const char* name) { return control<QWidget>(window, name)->isEnabled(); }

  toss_form form_{in_play()};
};

TEST_F(TossWindowTest, PassesTheChecksAtBothStages) {
  form_.open();
  script_draws({first_wins});
  TossWindow window(match, form_);
  window.show();
  take_picture(window, "toss_coin");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "headline"), "Home to call...");
  EXPECT_TRUE(is_shown(window, "heads"));
  EXPECT_TRUE(is_shown(window, "tails"));
  EXPECT_FALSE(is_shown(window, "bat"));
  EXPECT_FALSE(is_shown(window, "bowl"));
  EXPECT_FALSE(is_shown(window, "deciding_line"));
  press(window, "tails");
  take_picture(window, "toss_decision");
  check_window_at_sizes(window);
  EXPECT_EQ(text(window, "headline"), "Home have won the toss.");
  EXPECT_EQ(text(window, "deciding_line"), "Home");
  EXPECT_EQ(text(window, "other_line"), "Away");
  EXPECT_EQ(control<CrestView>(window, "deciding_crest")->team(), "Home");
  EXPECT_EQ(control<CrestView>(window, "other_crest")->team(), "Away");
  EXPECT_FALSE(is_shown(window, "heads"));
  EXPECT_FALSE(is_shown(window, "tails"));
  EXPECT_TRUE(enabled(window, "bat"));
  EXPECT_TRUE(enabled(window, "bowl"));
}

TEST_F(TossWindowTest, BatAndBowlDecide) {
  form_.open();
  script_draws({second_wins});
  TossWindow window(match, form_);
  window.show();
  press(window, "heads");
  EXPECT_EQ(text(window, "deciding_line"), "Away");
  EXPECT_EQ(text(window, "other_line"), "Home");
  press(window, "bat");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(match.team1_name, "Away") << "it bats first";

  form_.open();
  script_draws({first_wins});
  TossWindow again(match, form_);
  again.show();
  press(again, "heads");
  press(again, "bowl");
  EXPECT_FALSE(again.isVisible());
  EXPECT_EQ(match.team1_name, "Home") << "Away won and bowls";
}

TEST_F(TossWindowTest, AComputersElectionCanOnlyBeConfirmed) {
  match.computer_bowls = true;
  form_.open();
  script_draws({second_wins, field});
  TossWindow window(match, form_);
  window.show();
  press(window, "heads");
  EXPECT_EQ(text(window, "headline"), "Away have won the toss and have elected to field first.");
  EXPECT_TRUE(enabled(window, "bat"));
  EXPECT_FALSE(enabled(window, "bowl"));
  EXPECT_EQ(window.focusWidget()->objectName(), "bat");
  take_picture(window, "toss_elected");
  check_window_at_sizes(window);

  form_.open();
  script_draws({second_wins, bat});
  TossWindow again(match, form_);
  again.show();
  press(again, "tails");
  EXPECT_EQ(text(again, "headline"), "Away have won the toss and have elected to bat first.");
  EXPECT_FALSE(enabled(again, "bat"));
  EXPECT_EQ(again.focusWidget()->objectName(), "bowl");
  QTest::keyClick(again.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(again.isVisible());
  EXPECT_EQ(match.team1_name, "Away");
}

TEST_F(TossWindowTest, AComputersTossOpensOnTheDecision) {
  match.computer_bats = true;
  script_draws({0.75, 0.75, 0.75});
  form_.open_decided();
  TossWindow window(match, form_);
  window.show();
  EXPECT_FALSE(is_shown(window, "heads"));
  EXPECT_TRUE(is_shown(window, "bat"));
  EXPECT_TRUE(is_shown(window, "bowl"));
  EXPECT_EQ(enabled(window, "bat"), form_.bat_enabled);
  EXPECT_EQ(enabled(window, "bowl"), form_.bowl_enabled);
  EXPECT_EQ(text(window, "headline"), QString::fromStdString(form_.headline));
  check_window_at_sizes(window);
}

TEST_F(TossWindowTest, EscapeAndTheCloseBoxAskBeforeTheyLeave) {
  form_.open();
  TossWindow window(match, form_);
  check_leaving(window, form_);
}

}  // namespace
}  // namespace velorin::testing
