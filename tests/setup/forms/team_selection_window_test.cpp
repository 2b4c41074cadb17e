// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/team_selection_window.h"

#include <gmock/gmock.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/program_end.h"
#include "desktop/table_columns.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/forms/check_leaving.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "support/small_database.h"
#include "windows/robot.h"
#include "windows/table_reader.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// Twenty men, the last place as long as names come.
squad full_squad() {
  squad men;
  const char* names[] = {"P.Ashdown", "K.L.Merriweather", "T.Okoro", "R.& S.Vance", "D.Pellinore-Brackenbury"};
  const char* types[] = {"RH Opener", "LH Middle Order", "RH Middle Order", "LH Lower Order"};
  const char* bowls[] = {"Fast Bowler", "Medium Pacer", "spinner"};
  for (int place = 1; place <= 20; ++place) {
    player_rec& man = men[place];
    man.name = names[(place - 1) % 5] + std::string(place > 5 ? std::to_string(place) : "");
    man.bat_type = types[place <= 4 ? 0 : place <= 9 ? 1 : place <= 13 ? 2 : 3];
    man.bat_skill = 60 - 2 * place;
    man.bowler_type = bowls[place % 3];
    man.bowl_sr = static_cast<float>(35.5 + place);
    man.econ = static_cast<float>(4.25 + place * 0.1);
    man.is_keeper = place == 6 ? flag_true : 0;
  }
  return men;
}

class TeamSelectionWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    set_up_sample_match();
    chance.use_seed(5);
    form_.open("Alba", men_);
  }
  static QCheckBox* box(const QWidget& window, int place) {
    return control<QCheckBox>(window, ("man_" + std::to_string(place)).c_str());
  }
  static TableView& men(const QWidget& window) { return *control<TableView>(window, "men"); }
  static QString text(const QWidget& window, const char* heading, int place) {
    return cell_text(men(window), place, QString::fromLatin1(heading));
  }
  static QString counter(const QWidget& window) { return control<QLabel>(window, "selected_count")->text(); }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  squad men_ = full_squad();
  team_selection_form form_{in_play()};
};

TEST_F(TeamSelectionWindowTest, PassesTheChecksWithTwentyRows) {
  TeamSelectionWindow window(match, form_);
  window.show();
  take_picture(window, "teamsel");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Alba - Team Selection ");
  EXPECT_LE(window.sizeHint().height(), smallest_screen.height());
}

TEST_F(TeamSelectionWindowTest, ShowsTheRows) {
  TeamSelectionWindow window(match, form_);
  EXPECT_EQ(box(window, 4)->text(), "R.&& S.Vance");
  EXPECT_EQ(text(window, "Bat Type", 1), "RH Opener");
  EXPECT_EQ(text(window, "Bat Skill", 20), "20");
  EXPECT_EQ(text(window, "Bowler type", 6), "Fast Bowler/Wk");
  EXPECT_EQ(text(window, "Bowler type", 7), "Medium Pacer");
  EXPECT_EQ(text(window, "Bowl SR", 2), "37.5");
  EXPECT_EQ(text(window, "Econ.", 1), "4.35");
  EXPECT_EQ(counter(window), " 0 /11 players selected so far.");
  EXPECT_TRUE(box(window, 6)->accessibleName().contains("Bowler type Fast Bowler/Wk"));
}

TEST_F(TeamSelectionWindowTest, ATickByAnAssistiveActionCounts) {
  TeamSelectionWindow window(match, form_);
  window.show();
  QAccessibleActionInterface* action = QAccessible::queryAccessibleInterface(box(window, 3))->actionInterface();
  action->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(form_.ticks[3]);
  EXPECT_EQ(counter(window), "1/11 players selected so far.");
  action->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(form_.ticks[3]);
  EXPECT_FALSE(box(window, 3)->isChecked());
}

TEST_F(TeamSelectionWindowTest, TheHeadingsStandAsTheyAreTold) {
  TeamSelectionWindow window(match, form_);
  EXPECT_EQ(headings_of(men(window)),
            QStringList({" Player", "Bat Type", "Bat Skill", "Bowler type", "Bowl SR", "Econ."}));
}

TEST_F(TeamSelectionWindowTest, AnEmptyPlaceHasNoRow) {
  men_[3] = player_rec();
  for (int place = 12; place <= 20; ++place) men_[place] = player_rec();
  form_.open("Alba", men_);
  TeamSelectionWindow window(match, form_);
  window.show();
  take_picture(window, "teamsel_eleven");
  check_window_at_sizes(window);
  for (const int place : {3, 12, 20}) {
    EXPECT_FALSE(box(window, place)->isVisible()) << place;
    EXPECT_EQ(shown_place(men(window), place), -1) << place;
  }
  EXPECT_TRUE(box(window, 11)->isVisible());
}

TEST_F(TeamSelectionWindowTest, TicksAreCounted) {
  TeamSelectionWindow window(match, form_);
  window.show();
  box(window, 4)->click();
  box(window, 20)->click();
  EXPECT_TRUE(form_.ticks[4]);
  EXPECT_TRUE(form_.ticks[20]);
  EXPECT_EQ(counter(window), "2/11 players selected so far.");
  box(window, 4)->click();
  EXPECT_FALSE(form_.ticks[4]);
  EXPECT_EQ(counter(window), "1/11 players selected so far.");
}

TEST_F(TeamSelectionWindowTest, AClickBesideTheBoxTicksTheRow) {
  TeamSelectionWindow window(match, form_);
  window.show();
  QApplication::processEvents();
  const TableView& table = men(window);
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(8, 2)).center());
  EXPECT_TRUE(box(window, 9)->isChecked());
  EXPECT_TRUE(form_.ticks[9]);
  EXPECT_EQ(form_.ticked(), 1);
}

TEST_F(TeamSelectionWindowTest, ASortedRowKeepsItsMan) {
  TeamSelectionWindow window(match, form_);
  window.show();
  TableView& table = men(window);
  table.columns().sort(2, Qt::AscendingOrder);
  QApplication::processEvents();
  ASSERT_EQ(shown_place(table, 20), 0) << "the least skill";
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(0, 3)).center());
  QTest::mouseClick(box(window, 19), Qt::LeftButton, {}, QPoint(8, box(window, 19)->height() / 2));
  EXPECT_TRUE(form_.ticks[20]);
  EXPECT_TRUE(form_.ticks[19]);
  EXPECT_EQ(form_.ticked(), 2);
  for (int place = 2; place <= 20; ++place) EXPECT_LT(box(window, place)->y(), box(window, place - 1)->y()) << place;
  EXPECT_EQ(box(window, 20)->nextInFocusChain(), box(window, 19));
  check_window(window);
  press(window, "auto_select");
  for (int place = 1; place <= 20; ++place) EXPECT_EQ(box(window, place)->isChecked(), form_.ticks[place]) << place;
}

TEST_F(TeamSelectionWindowTest, HiddenColumnsAndTheOrderAreKept) {
  {
    TeamSelectionWindow window(match, form_);
    window.show();
    men(window).columns().set_shown(1, false);
    men(window).columns().sort(5, Qt::AscendingOrder);
    men(window).columns().set_shown(0, false);
    EXPECT_TRUE(men(window).columns().is_shown(0)) << "the ticks stay";
  }
  TeamSelectionWindow window(match, form_);
  window.show();
  QApplication::processEvents();
  EXPECT_FALSE(men(window).columns().is_shown(1));
  EXPECT_EQ(shown_place(men(window), 1), 0) << "the least runs an over";
  men(window).columns().set_shown(1, true);
  men(window).columns().sort_as_told();
}

TEST_F(TeamSelectionWindowTest, AutoSelectAndClear) {
  TeamSelectionWindow window(match, form_);
  window.show();
  press(window, "auto_select");
  EXPECT_EQ(form_.ticked(), 11);
  for (int place = 1; place <= 20; ++place) EXPECT_EQ(box(window, place)->isChecked(), form_.ticks[place]) << place;
  EXPECT_EQ(counter(window), "11/11 players selected so far.");
  take_picture(window, "teamsel_chosen");
  press(window, "clear_selection");
  EXPECT_EQ(form_.ticked(), 0);
  for (int place = 1; place <= 20; ++place) EXPECT_FALSE(box(window, place)->isChecked()) << place;
  EXPECT_EQ(counter(window), "0/11 players selected so far.");
}

TEST_F(TeamSelectionWindowTest, TheFirstTeamsOkNeedsEleven) {
  TeamSelectionWindow window(match, form_);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "accept_second_team")->isVisible());
  for (int place = 1; place <= 10; ++place) box(window, place)->click();
  press(window, "accept_first_team");
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form_.closed);
  EXPECT_FALSE(match.first_team_done);
  box(window, 15)->click();
  press(window, "accept_first_team");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_TRUE(match.first_team_done);
  EXPECT_EQ(match.selected[0][11].name, men_[15].name);
}

TEST_F(TeamSelectionWindowTest, TheSecondTeamsOkClosesTheWindowAndAsksNothing) {
  data.files.elevens_in_memory = true;
  form_.auto_select();
  form_.accept_first();
  form_.open("Brook", men_);
  match.computer_bats = match.computer_bowls = false;
  TeamSelectionWindow window(match, form_);
  EXPECT_FALSE(control<QPushButton>(window, "accept_first_team")->isVisible());
  window.show();
  press(window, "auto_select");
  press(window, "accept_second_team");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_FALSE(match.first_team_done);
  EXPECT_EQ(match.selected[1][1].name, match.selected[0][1].name);
  EXPECT_TRUE(user_.requests.empty());
}

TEST_F(TeamSelectionWindowTest, TheAveragesAreAskedFor) {
  struct : scripted_user {
    using scripted_user::show;
    void show(player_rankings_form&) override { ++shown_lists; }
    int shown_lists = 0;
  } reader;
  const front_end_scope scope(reader);
  std::string failure;
  on_failure([&](const std::exception& error) { failure = error.what(); });
  TeamSelectionWindow window(match, form_);
  window.show();
  press(window, "career_batting_averages");
  press(window, "career_bowling_averages");
  on_failure({});
  EXPECT_EQ(failure, "");
  EXPECT_EQ(reader.shown_lists, 2);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(TeamSelectionWindowTest, EscapeAndTheCloseBoxAskBeforeTheyLeave) {
  TeamSelectionWindow window(match, form_);
  check_leaving(window, form_);
}

}  // namespace
}  // namespace velorin::testing
