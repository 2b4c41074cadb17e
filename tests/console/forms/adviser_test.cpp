// SPDX-License-Identifier: GPL-3.0-or-later
// The adviser in the captain's sheets, and the choices left to the computer.
#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>
#include <vector>

#include "console/captain_forms.h"
#include "console/forms/advised_men.h"
#include "console/forms/aggression_window.h"
#include "console/forms/bowler_choice_window.h"
#include "console/forms/next_batsman_window.h"
#include "desktop/level_slider.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "forecast/computers_choice.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/table_reader.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class AdviserInSheets : public ::testing::Test {
 protected:
  AdviserInSheets() : in_use_(user_) {
    preferences::set_adviser(false);
    chance.use_seed(21);
    set_up_sample_match(false, false);
    open_console(in_play());
    for (int over = 0; over < 16; ++over) next_over(in_play());
  }
  ~AdviserInSheets() override { preferences::set_adviser(false); }

  /// Plays on until the next batsman is asked for.
  static void play_to_a_wicket() {
    while (match.next_step != play_step::next_batsman && match.next_step != play_step::closed) {
      if (match.next_step == play_step::between_overs) match.next_step = play_step::over_begins;
      take_step(in_play());
    }
    ASSERT_EQ(match.next_step, play_step::next_batsman);
  }
  /// What the adviser says of a man; "" while he is hidden.
  static QString advice_of(const QWidget& window, int man) {
    const auto* men = window.findChild<TableView*>(QStringLiteral("men"));
    const QString told = cell_text(*men, man, QStringLiteral("To win"));
    EXPECT_TRUE(told.isEmpty() || shows(*men, QStringLiteral("To win")));
    return told;
  }
  static bool shows(const TableView& view, const QString& heading) {
    return !view.isColumnHidden(static_cast<int>(headings_of(view).indexOf(heading)));
  }
  static QString text(const QWidget& window, const QString& label) { return window.findChild<QLabel*>(label)->text(); }

 private:
  headless_user user_{match};
  front_end_scope in_use_;
};

const QRegularExpression difference(QStringLiteral("^[+\u2212]\\d+\\.\\d % \u00B1 \\d+\\.\\d$"));

TEST_F(AdviserInSheets, EachBowlerHasHisDifferenceOnceTheAdviserIsTurnedOn) {
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  EXPECT_EQ(advice_of(window, 10), "");
  press(window, "adviser");
  EXPECT_TRUE(preferences::adviser());
  const auto advised = [&] { return difference.match(advice_of(window, 10)).hasMatch(); };
  EXPECT_TRUE(QTest::qWaitFor(advised, 60'000)) << advice_of(window, 10).toStdString();
  const std::vector<advice> wanted =
      advise(match, advised_side::bowling, {{captains_choice::kind::bowler, 10}, {captains_choice::kind::bowler, 11}},
             {.runs = runs_of_advice, .seed = 1, .threads = 2, .stop = {}});
  int told = 0;
  for (const advice& each : wanted) {
    if (each.choice.what != captains_choice::kind::bowler) continue;
    ++told;
    EXPECT_EQ(advice_of(window, each.choice.position), shown_difference(each));
    const auto* man = window.findChild<QRadioButton*>(QStringLiteral("man_%1").arg(each.choice.position));
    EXPECT_TRUE(man->accessibleName().contains("To win " + shown_difference(each)));
  }
  EXPECT_EQ(told, 2);
  EXPECT_EQ(advice_of(window, match.next_bowler), "");
  check_window_at_sizes(window);
  check_terms(window);
  take_picture(window, "adviser_bowlers");
  press(window, "adviser");
  EXPECT_EQ(advice_of(window, 10), "");
  EXPECT_FALSE(preferences::adviser());
}

TEST_F(AdviserInSheets, EachManToComeHasHisDifference) {
  preferences::set_adviser(true);
  play_to_a_wicket();
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  const auto advised = [&] { return difference.match(advice_of(window, 11)).hasMatch(); };
  EXPECT_TRUE(QTest::qWaitFor(advised, 60'000)) << advice_of(window, 11).toStdString();
  EXPECT_EQ(advice_of(window, 1), "");
  check_window_at_sizes(window);
  take_picture(window, "adviser_batsmen");
}

TEST_F(AdviserInSheets, EachLevelOfAnAggressionHasItsDifference) {
  preferences::set_adviser(true);
  for (const bool batsman : {true, false}) {
    aggression_form form = batsman ? aggression_form::of_batsman(match, 0) : aggression_form::of_bowler(match, 1);
    AggressionWindow window(form);
    window.show();
    const auto advised = [&] { return text(window, "advice").count(QChar(0xB1)) == 5; };
    EXPECT_TRUE(QTest::qWaitFor(advised, 60'000)) << text(window, "advice").toStdString();
    check_window_at_sizes(window);
    take_picture(window, batsman ? "adviser_aggression" : "adviser_bowling_aggression");
    press(window, "adviser");
    EXPECT_EQ(text(window, "advice"), "");
    preferences::set_adviser(true);
  }
}

/// What stands in a man's place while it is worked out.
const QString worked_out(QStringLiteral("\u2026"));

TEST_F(AdviserInSheets, WhereACaptainMustChooseABowlerEachManIsWeighed) {
  preferences::set_adviser(true);
  using use = bowler_choice_form::use;
  begin_play(match);
  const auto weighs = [&](use asked, int man, int none) {
    bowler_choice_form form(match, asked, "Select");
    BowlerChoiceWindow window(in_play(), form);
    window.show();
    EXPECT_EQ(advice_of(window, man), worked_out) << static_cast<int>(asked);
    EXPECT_EQ(advice_of(window, none), "") << static_cast<int>(asked);
  };
  weighs(use::first_opener, 10, 7);
  match.bowler = 9;
  match.next_step = play_step::second_opening_bowler;
  weighs(use::second_opener, 10, 9);
  match.next_bowler = 8;
  match.next_step = play_step::quota_choice;
  match.bowling_card[9].balls = balls_of_quota;
  weighs(use::quota, 10, 9);
}

TEST_F(AdviserInSheets, EachManWhoCanOpenIsWeighed) {
  preferences::set_adviser(true);
  using use = next_batsman_form::use;
  begin_play(match);
  const auto weighs = [&](use asked, int none) {
    next_batsman_form form(match, asked);
    NextBatsmanWindow window(in_play(), form);
    window.show();
    EXPECT_EQ(advice_of(window, 11), worked_out) << static_cast<int>(asked);
    if (none > 0) {
      EXPECT_EQ(advice_of(window, none), "");
    }
  };
  match.bowler = 9;
  match.next_bowler = 8;
  match.next_step = play_step::openers;
  weighs(use::first_opener, 0);
  match.striker = 1;
  match.next_step = play_step::second_opener;
  weighs(use::second_opener, 1);
}

TEST_F(AdviserInSheets, ASheetClosedInTheMidstOfItWaitsForNothing) {
  preferences::set_adviser(true);
  for (int i = 0; i < 5; ++i) {
    bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
    BowlerChoiceWindow window(in_play(), form);
    window.show();
    QTest::qWait(5 * i);
  }
  QTest::qWait(20);
}

TEST_F(AdviserInSheets, LeftToTheComputerASheetTakesItsChoiceAndTellsWhy) {
  {
    bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
    BowlerChoiceWindow window(in_play(), form);
    window.show();
    press(window, "leave_to_computer");
    const auto wanted = computers_bowler(match, form.shown_for);
    ASSERT_TRUE(wanted);
    EXPECT_EQ(form.chosen, wanted->choice);
    EXPECT_EQ(text(window, "reason"), shown(wanted->reason));
    press(window, "accept_change");
    EXPECT_EQ(int(match.bowler), wanted->choice);
  }
  {
    aggression_form form = aggression_form::of_batsman(match, 1);
    form.aggression = 1;
    AggressionWindow window(form);
    window.show();
    press(window, "leave_to_computer");
    const auto wanted = computers_batting_aggression(match, 1);
    ASSERT_TRUE(wanted);
    EXPECT_EQ(form.aggression, wanted->choice);
    EXPECT_TRUE(text(window, "reason").startsWith(QStringLiteral("Aggression %1: ").arg(wanted->choice)));
    take_picture(window, "left_aggression");
  }
  play_to_a_wicket();
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  press(window, "leave_to_computer");
  const auto wanted = computers_next_batsman(match, form.shown_for);
  ASSERT_TRUE(wanted);
  EXPECT_EQ(form.chosen, wanted->choice);
  EXPECT_EQ(text(window, "reason"), shown(wanted->reason));
}

}  // namespace
}  // namespace velorin::testing
