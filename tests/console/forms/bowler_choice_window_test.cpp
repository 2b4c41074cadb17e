// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/bowler_choice_window.h"

#include <gmock/gmock.h>

#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "console/captain_forms.h"
#include "console/forms/profile_reader.h"
#include "desktop/table_columns.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/table_reader.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

class BowlerChoiceWindowTest : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }

  static void start_play() {
    match.bowler = 8;
    match.next_bowler = 9;
    match.bowling_card[6].balls = 60;
    match.bowling_card[6].runs = 48;
    match.bowling_card[6].wickets = 2;
    match.bowling_card[8].balls = 34;
    match.bowling_card[8].maidens = 1;
    match.bowling_card[8].runs = 27;
    match.bowling_card[8].wickets = 3;
    match.bowling_card[9].balls = 30;
    match.bowling_card[9].runs = 31;
  }
  static QRadioButton* option(const QWidget& window, int row) {
    return control<QRadioButton>(window, ("man_" + std::to_string(row)).c_str());
  }
  static QString text(const QWidget& window, const char* heading, int row) {
    return cell_text(*control<TableView>(window, "men"), row, QString::fromLatin1(heading));
  }
  static bool ok_enabled(const QWidget& window, const char* name) {
    return control<QPushButton>(window, name)->isEnabled();
  }
};

TEST_F(BowlerChoiceWindowTest, PassesTheChecks) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  take_picture(window, "chgbowler");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Change Bowler");
}

TEST_F(BowlerChoiceWindowTest, ShowsWhatACaptainNeeds) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  for (int row = 1; row <= 11; ++row) {
    EXPECT_EQ(option(window, row)->text(), QString::fromStdString(form.name(row))) << row;
    EXPECT_EQ(option(window, row)->isEnabled(), row != 7 && row != 9) << row;
    EXPECT_EQ(text(window, "Skill", row), QString::fromStdString(form.skill(row))) << row;
    EXPECT_EQ(text(window, "R.P.O", row), QString::fromStdString(form.economy(row))) << row;
  }
  EXPECT_TRUE(option(window, 8)->isChecked());
  EXPECT_EQ(text(window, "O-M-R-W", 8), "5.4-1-27-3");
  EXPECT_EQ(text(window, "O-M-R-W", 1), "");
  EXPECT_EQ(text(window, "Note", 6), "10 overs bowled");
  EXPECT_EQ(text(window, "Note", 7), "Wicket-keeper");
  EXPECT_EQ(text(window, "Note", 9), "Bowls at the other end");
  EXPECT_EQ(text(window, "Note", 8), "");
}

TEST_F(BowlerChoiceWindowTest, TheHeadingsStandAsTheyAreTold) {
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  const QStringList headings = headings_of(*control<TableView>(window, "men"));
  EXPECT_EQ(headings, QStringList({"Bowler", "Skill", "R.P.O", "O-M-R-W", "Bowler type", "To win", ""}));
}

TEST_F(BowlerChoiceWindowTest, ASortedRowKeepsItsMan) {
  start_play();
  match.bowling_xi[2].econ = 3.5F;
  match.bowling_xi[10].econ = 3.25F;
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  auto* men = control<TableView>(window, "men");
  men->columns().sort(2, Qt::AscendingOrder);
  QCoreApplication::processEvents();
  ASSERT_EQ(shown_place(*men, 10), 0) << "of all he gives the least";
  ASSERT_EQ(shown_place(*men, 2), 1);
  const QPoint first = men->visualRect(men->model()->index(0, 4)).center();
  QTest::mouseClick(men->viewport(), Qt::LeftButton, {}, first);
  EXPECT_EQ(form.chosen, 10);
  EXPECT_TRUE(option(window, 10)->isChecked());
  EXPECT_LT(option(window, 10)->y(), option(window, 2)->y());
  for (int row = 1; row <= 11; ++row) {
    EXPECT_TRUE(row == 10 || row == 2 || option(window, 2)->y() < option(window, row)->y()) << row;
  }
  EXPECT_EQ(option(window, 10)->nextInFocusChain(), option(window, 2)) << "the tab key goes by what is shown";
  check_window(window);
  press(window, "accept_change");
  EXPECT_EQ(match.bowler, 10);
}

TEST_F(BowlerChoiceWindowTest, APressOnAManWhoCannotBowlChoosesNobody) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  QCoreApplication::processEvents();
  auto* men = control<TableView>(window, "men");
  QTest::mouseClick(men->viewport(), Qt::LeftButton, {}, men->visualRect(men->model()->index(8, 2)).center());
  EXPECT_EQ(form.chosen, 8);
  EXPECT_FALSE(option(window, 9)->isChecked());
}

TEST_F(BowlerChoiceWindowTest, TheCaptainChangesTheBowler) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "accept_first_opener")->isVisible());
  EXPECT_FALSE(control<QPushButton>(window, "accept_second_opener")->isVisible());
  option(window, 10)->click();
  press(window, "accept_change");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.bowler, 10);
  EXPECT_EQ(match.next_bowler, 9);
}

TEST_F(BowlerChoiceWindowTest, EscapeKeepsTheBowler) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  option(window, 10)->click();
  window.reject();
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(form.closed);
  EXPECT_EQ(match.bowler, 8);
}

TEST_F(BowlerChoiceWindowTest, TheFirstOpenerMustBeChosen) {
  bowler_choice_form form(match, bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  EXPECT_FALSE(ok_enabled(window, "accept_first_opener"));
  EXPECT_EQ(window.focusWidget(), option(window, form.best_row()));
  window.reject();
  EXPECT_TRUE(window.isVisible());
  option(window, 8)->click();
  EXPECT_TRUE(ok_enabled(window, "accept_first_opener"));
  press(window, "accept_first_opener");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.bowler, 8);
  EXPECT_EQ(match.next_bowler, 0);
}

TEST_F(BowlerChoiceWindowTest, TheSecondOpenerMustBeAnotherMan) {
  match.bowler = 8;
  bowler_choice_form form(match, bowler_choice_form::use::second_opener, "Select 2nd Opening Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  take_picture(window, "chgbowler_second");
  check_window_at_sizes(window);
  EXPECT_TRUE(option(window, 8)->isChecked());
  EXPECT_FALSE(option(window, 8)->isEnabled());
  EXPECT_EQ(text(window, "Note", 8), "Bowls at the other end");
  EXPECT_FALSE(ok_enabled(window, "accept_second_opener"));
  EXPECT_EQ(window.focusWidget(), option(window, form.best_row()));
  EXPECT_TRUE(window.focusWidget()->isEnabled());
  QTest::keyClick(&window, Qt::Key_Return);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form.closed);
  option(window, 9)->click();
  EXPECT_FALSE(option(window, 8)->isChecked());
  QTest::keyClick(&window, Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.bowler, 8);
  EXPECT_EQ(match.next_bowler, 9);
}

TEST_F(BowlerChoiceWindowTest, AManWithHisQuotaCanBeChosen) {
  start_play();
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  option(window, 6)->click();
  press(window, "accept_change");
  EXPECT_EQ(match.bowler, 6);
}

TEST_F(BowlerChoiceWindowTest, AQuotaNeedsAManWhoIsChosenHimself) {
  start_play();
  match.bowling_card[8].balls = 60;
  match.bowling_xi[11].bowl_sr = 25;
  match.bowling_xi[8].bowl_sr = 20;
  bowler_choice_form form(match, bowler_choice_form::use::quota, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  take_picture(window, "chgbowler_quota");
  check_window_at_sizes(window);
  EXPECT_EQ(window.focusWidget(), option(window, 11)) << "the best of those with overs left";
  EXPECT_FALSE(ok_enabled(window, "accept_change"));
  EXPECT_FALSE(control<QPushButton>(window, "accept_first_opener")->isVisible());
  window.reject();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(ok_enabled(window, "accept_change"));
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_TRUE(window.isVisible()) << "the first Return chooses";
  EXPECT_FALSE(form.closed);
  EXPECT_TRUE(ok_enabled(window, "accept_change"));
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.bowler, 11);
}

TEST_F(BowlerChoiceWindowTest, ASideOfKeepersIsNotStuck) {
  for (int row = 1; row <= 11; ++row) match.bowling_xi[row].is_keeper = flag_true;
  bowler_choice_form form(match, bowler_choice_form::use::first_opener, "Select 1st Opening Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  EXPECT_TRUE(ok_enabled(window, "accept_first_opener"));
}

TEST_F(BowlerChoiceWindowTest, TheProfileOpensFromItsButtonOnly) {
  start_play();
  profile_reader user("Away", "A.Bowl11");
  const front_end_scope scope(user);
  bowler_choice_form form(match, bowler_choice_form::use::change, "Change Bowler");
  BowlerChoiceWindow window(in_play(), form);
  window.show();
  option(window, 11)->click();
  EXPECT_THAT(user.requests, ElementsAre());
  press(window, "profile");
  EXPECT_THAT(user.requests, ElementsAre("profile Away | A.Bowl11 locked"));
  option(window, 10)->click();
  press(window, "profile");
  ASSERT_EQ(user.requests.size(), 2u);
  EXPECT_THAT(user.requests.back(), StartsWith("message Error - Player Details | ")) << "he has no career";
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace velorin::testing
