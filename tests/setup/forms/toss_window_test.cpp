// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/toss_window.h"

#include <gmock/gmock.h>

#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <memory>

#include "desktop/crest.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "forecast/adviser.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/forms/check_leaving.h"
#include "setup/forms/toss_adviser.h"
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

class AdviserAtTheToss : public TossWindowTest {
 protected:
  AdviserAtTheToss() { preferences::set_adviser(true); }
  ~AdviserAtTheToss() override { preferences::set_adviser(false); }

  /// A toss with this winner, of sides of which the first wins few matches.
  void decide(double winner) {
    match.step = match_step::toss;
    match.selected = {sample_eleven("H"), sample_eleven("A")};
    for (player_rec& man : match.selected[0]) man.bat_skill = 4;
    form_.open();
    script_draws({winner});
    window_ = std::make_unique<TossWindow>(match, form_);
    window_->show();
    EXPECT_EQ(window_->findChild<QLabel*>("advice"), nullptr) << "nobody decides yet";
    press(*window_, "heads");
  }
  QString advice_told() const {
    const auto advised = [&] { return text(*window_, "advice").count(QChar(0xB1)) == 2; };
    EXPECT_TRUE(QTest::qWaitFor(advised, 60'000)) << text(*window_, "advice").toStdString();
    return text(*window_, "advice");
  }

  std::unique_ptr<TossWindow> window_;
};

TEST_F(AdviserAtTheToss, TellsTheFirstSideItsOwnChances) {
  decide(first_wins);
  const auto found = QRegularExpression("bat (\\S+) % .*bowl (\\S+) %").match(advice_told());
  EXPECT_LT(found.captured(1).toDouble(), 20) << found.captured(0).toStdString();
  EXPECT_LT(found.captured(2).toDouble(), 45);
  ASSERT_TRUE(found.hasMatch());
}

TEST_F(AdviserAtTheToss, TellsTheSecondSideItsOwnChances) {
  decide(second_wins);
  const QString told = advice_told();
  const auto found =
      advise(match, advised_side::bowling, {{captains_choice::kind::bat_first}, {captains_choice::kind::bowl_first}},
             {.runs = runs_of_toss, .seed = 1, .threads = 2, .stop = {}});
  ASSERT_EQ(found.size(), 3U);
  EXPECT_GT(found[1].win, 0.8);
  EXPECT_NE(found[1].win, found[2].win);
  EXPECT_EQ(told, QStringLiteral("Chance of winning:   bat %1   bowl %2")
                      .arg(shown(win_words(found[2], runs_of_toss)), shown(win_words(found[1], runs_of_toss))));
  take_picture(*window_, "toss_advised");
  check_window_at_sizes(*window_);
  press(*window_, "adviser");
  EXPECT_EQ(text(*window_, "advice"), "");
}

TEST_F(TossWindowTest, LeftToTheComputerTheTossTakesItsCoin) {
  form_.open();
  script_draws({first_wins});
  TossWindow window(match, form_);
  window.show();
  press(window, "tails");
  const auto drawn = chance.draws_used();
  bool bats = false;
  bool bowls = false;
  for (int i = 0; i < 200 && !(bats && bowls); ++i) {
    press(window, "leave_to_computer");
    const QString preferred = window.focusWidget()->objectName();
    (preferred == "bat" ? bats : bowls) = true;
    EXPECT_TRUE(text(window, "reason").endsWith(preferred + ".")) << text(window, "reason").toStdString();
  }
  EXPECT_TRUE(bats && bowls) << "either comes";
  EXPECT_EQ(chance.draws_used(), drawn) << "the match's own draws stay";
  take_picture(window, "toss_left");
  check_window_at_sizes(window);
}

TEST_F(TossWindowTest, EscapeAndTheCloseBoxAskBeforeTheyLeave) {
  form_.open();
  TossWindow window(match, form_);
  check_leaving(window, form_);
}

}  // namespace
}  // namespace velorin::testing
