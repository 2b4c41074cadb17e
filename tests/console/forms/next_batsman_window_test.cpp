// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/next_batsman_window.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QTest>

#include "console/captain_forms.h"
#include "console/forms/profile_reader.h"
#include "desktop/level_segments.h"
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

class NextBatsmanWindowTest : public ::testing::Test {
 protected:
  void SetUp() override { set_up_sample_match(false, false); }

  static QRadioButton* option(const QWidget& window, int row) {
    return control<QRadioButton>(window, ("man_" + std::to_string(row)).c_str());
  }
  static QString text(const QWidget& window, const char* heading, int row) {
    return cell_text(*control<TableView>(window, "men"), row, QString::fromLatin1(heading));
  }
};

TEST_F(NextBatsmanWindowTest, PassesTheChecks) {
  match.striker = 3;
  match.non_striker = 2;
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  take_picture(window, "batorder");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Select Next Batsman");
}

TEST_F(NextBatsmanWindowTest, ShowsTheEleven) {
  match.striker = 1;
  match.non_striker = 3;
  match.batting_xi[5].name = "R.& S.Vance";
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  for (int row = 1; row <= 11; ++row) {
    EXPECT_EQ(option(window, row)->isEnabled(), row > 3) << row;
    EXPECT_EQ(text(window, "Skill", row), QString::fromStdString(form.skill(row))) << row;
    EXPECT_EQ(text(window, "Note", row), row > 3 ? "" : "Has come in") << row;
  }
  EXPECT_EQ(option(window, 5)->text(), "R.&& S.Vance");
  EXPECT_TRUE(option(window, 4)->isChecked());
}

TEST_F(NextBatsmanWindowTest, TheCaptionsStandAsTheyAreTold) {
  next_batsman_form form(match, next_batsman_form::use::first_opener);
  NextBatsmanWindow window(in_play(), form);
  QStringList texts;
  for (const QLabel* label : window.findChildren<QLabel*>()) texts << QString(label->text()).remove(u'&');
  texts << headings_of(*control<TableView>(window, "men"));
  for (const char* caption : {" Batsmen", " Skill", " Induvidual Agg.", "Defensive", "Aggressive"}) {
    EXPECT_EQ(texts.count(QString::fromLatin1(caption)), 1) << caption;
  }
}

TEST_F(NextBatsmanWindowTest, OkBringsInTheChosenMan) {
  match.striker = 1;
  match.non_striker = 2;
  match.batsman_aggression = {4, 5};
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  EXPECT_EQ(control<LevelSegments>(window, "aggression")->level(), 3);
  option(window, 9)->click();
  press(window, "aggression_2");
  press(window, "accept");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(match.batting_xi[3].name, "H.Bat9");
  EXPECT_EQ(match.batting_xi[4].name, "H.Bat3");
  EXPECT_EQ(match.batsman_aggression[1], 2);
  EXPECT_EQ(match.batsman_aggression[0], 5);
}

TEST_F(NextBatsmanWindowTest, TheAnswersAreThoseOfTheChosenMan) {
  next_batsman_form form(match, next_batsman_form::use::next);
  const auto odds = [](int row) { return aggression_odds{ball_odds{1.0 * row, 0}, {}, ball_odds{2.0 * row, 30}}; };
  NextBatsmanWindow window(in_play(), odds, form);
  window.show();
  window.activateWindow();
  QApplication::processEvents();
  option(window, 9)->click();
  EXPECT_EQ(control<QLabel>(window, "level_answer")->text(), "3: 18.0 an over, a wicket every 30 balls");
  option(window, 7)->click();
  EXPECT_EQ(control<QLabel>(window, "level_answer")->text(), "3: 14.0 an over, a wicket every 30 balls");
  QTest::keyClick(option(window, 7), Qt::Key_1);
  EXPECT_EQ(control<QLabel>(window, "level_answer")->text(), "1: 7.0 an over, no wicket");
  EXPECT_EQ(form.aggression, 1);
}

TEST_F(NextBatsmanWindowTest, OkAtOnceBringsInTheNextInOrder) {
  const eleven before = match.batting_xi;
  next_batsman_form form(match, next_batsman_form::use::first_opener);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  take_picture(window, "batorder_opener");
  EXPECT_TRUE(option(window, 1)->isEnabled());
  press(window, "accept");
  for (int row = 1; row <= 11; ++row) EXPECT_EQ(match.batting_xi[row].name, before[row].name) << row;
  EXPECT_EQ(match.batsman_aggression[0], 3) << "both slots at the first opener";
  EXPECT_EQ(match.batsman_aggression[1], 3);
}

TEST_F(NextBatsmanWindowTest, ArrowsMoveBetweenTheRowsThatAreOpen) {
  match.striker = 4;
  match.non_striker = 5;
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  window.activateWindow();
  QApplication::processEvents();
  ASSERT_NE(window.focusWidget(), nullptr);
  EXPECT_EQ(window.focusWidget()->objectName(), "man_6");
  QTest::keyClick(window.focusWidget(), Qt::Key_Down);
  QTest::keyClick(window.focusWidget(), Qt::Key_Down);
  EXPECT_EQ(form.chosen, 8);
  QTest::keyClick(window.focusWidget(), Qt::Key_Up);
  EXPECT_EQ(form.chosen, 7);
  EXPECT_TRUE(option(window, 7)->isChecked());
}

TEST_F(NextBatsmanWindowTest, TheProfileOpensFromItsButtonOnly) {
  profile_reader user("Home", "H.Bat6");
  const front_end_scope scope(user);
  next_batsman_form form(match, next_batsman_form::use::next);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  option(window, 6)->click();
  EXPECT_THAT(user.requests, ElementsAre());
  press(window, "profile");
  EXPECT_THAT(user.requests, ElementsAre("profile Home | H.Bat6 locked"));
  option(window, 10)->click();
  press(window, "profile");
  ASSERT_EQ(user.requests.size(), 2u);
  EXPECT_THAT(user.requests.back(), StartsWith("message Error - Player Details | ")) << "he has no career";
  EXPECT_TRUE(window.isVisible());
}

TEST_F(NextBatsmanWindowTest, EscapeLeavesItOpen) {
  next_batsman_form form(match, next_batsman_form::use::second_opener);
  NextBatsmanWindow window(in_play(), form);
  window.show();
  window.reject();
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form.closed);
}

}  // namespace
}  // namespace velorin::testing
