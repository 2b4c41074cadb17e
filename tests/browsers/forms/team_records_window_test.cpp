// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/team_records_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "browsers/forms/browser_fixture.h"
#include "browsers/team_records.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class TeamRecordsWindowTest : public BrowserTest {
 protected:
  void check_contents(const QWidget& window) const {
    EXPECT_EQ(window.windowTitle(), shown(form.title));
    const Table& table = control<TableView>(window, "results")->table();
    ASSERT_EQ(table.columns.size(), 4U);
    ASSERT_EQ(table.rows.size(), 5U);
    for (std::size_t c = 0; c < 3; ++c) {
      EXPECT_EQ(table.columns[c + 1].heading, shown(form.results[c].heading));
      for (std::size_t r = 0; r < 5; ++r) {
        EXPECT_EQ(table.rows[r].cells[c + 1].text, shown(form.results[c].texts[r]));
        EXPECT_EQ(table.rows[r].cells[0].text, shown(team_records_form::result_captions[r]));
      }
    }
    EXPECT_EQ(control<QLabel>(window, "ranking")->text(), "World Ranking : " + shown(form.world_ranking.text));
    for (std::size_t i = 0; i < 4; ++i) {
      const std::string at = std::to_string(i + 1);
      EXPECT_EQ(control<QLabel>(window, ("extreme_" + at).c_str())->text(), shown(form.extremes[i].text));
      const TableRow& record = control<TableView>(window, "individual")->table().rows.at(i);
      EXPECT_EQ(record.cells[0].text, shown(form.individual[i].caption));
      EXPECT_EQ(record.cells[1].text, shown(form.individual[i].text));
    }
  }

  team_records_form form{data};
};

TEST_F(TeamRecordsWindowTest, ShowsNothingOfAnEmptyDatabase) {
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  take_picture(window, "teamdet_empty");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Team Records - ");
  EXPECT_EQ(control<QComboBox>(window, "teams")->count(), 0);
  EXPECT_EQ(control<QLabel>(window, "empty")->text(), "No records yet");
  check_contents(window);
}

TEST_F(TeamRecordsWindowTest, ShowsTheChosenTeam) {
  play_matches(20);
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  check_contents(window);
  EXPECT_EQ(window.findChild<QLabel*>("empty"), nullptr);
  auto* list = control<QComboBox>(window, "teams");
  ASSERT_EQ(list->count(), 4);
  EXPECT_EQ(list->currentIndex(), -1);
  for (int team = 0; team < 4; ++team) {
    list->setCurrentIndex(team);
    EXPECT_EQ(form.chosen_team, team);
    EXPECT_EQ(control<CrestView>(window, "crest")->team(), list->itemText(team));
    EXPECT_EQ(window.windowTitle(), "Team Records - " + list->currentText());
    check_contents(window);
    check_window_at_sizes(window);
  }
  take_picture(window, "teamdet_season");
  press(window, "accept");
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(TeamRecordsWindowTest, OpensTheProfilesOfItsMen) {
  add_team("Alba", {1, 0, 0}, {});
  career_rec best = batsman("A.Best", 1, 0, 90, 80);
  best.high_score = 90;
  add("Alba", best);
  career_rec fast = bowler("A.Fast", 60, 30, 5);
  fast.best_wickets = 5;
  add("Alba", fast);
  write();
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "profile")->isEnabled()) << "no team is chosen";
  control<QComboBox>(window, "teams")->setCurrentIndex(0);
  auto* records = control<TableView>(window, "individual");
  QTest::keyClick(records, Qt::Key_Return);
  QTest::keyClick(records, Qt::Key_Down);
  QTest::keyClick(records, Qt::Key_Down);
  press(window, "profile");
  emit records->doubleClicked(records->model()->index(3, 1));
  EXPECT_EQ(user_.profiles, (std::vector<std::string>{"A.Best of Alba", "A.Fast of Alba", "A.Fast of Alba"}));
  EXPECT_TRUE(window.isVisible());
  records->clearSelection();
  QTest::keyClick(records, Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(QApplication::clipboard()->text().startsWith("Record\tPlayer\nHighest Score:\tA.Best  90 vs "));
}

TEST_F(TeamRecordsWindowTest, WithoutCareersNamesNobody) {
  add_team("Alba", {1, 0, 0}, {});
  write();
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  control<QComboBox>(window, "teams")->setCurrentIndex(0);
  EXPECT_FALSE(control<QPushButton>(window, "profile")->isEnabled());
  QTest::keyClick(control<TableView>(window, "individual"), Qt::Key_Return);
  EXPECT_TRUE(user_.profiles.empty());
  EXPECT_TRUE(user_.messages.empty());
}

TEST_F(TeamRecordsWindowTest, ShowsWhatIsNotAvailable) {
  play_matches(1);
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  control<QComboBox>(window, "teams")->setCurrentIndex(1);
  take_picture(window, "teamdet_one");
  check_contents(window);
  check_window_at_sizes(window);
}

TEST_F(TeamRecordsWindowTest, HoldsLongNames) {
  team_table& team = add_team("West Carrington Islands", {10, 20, 3}, {});
  team.high_for = {integer(451)};
  team.high_for_against = {std::string("North Wetherby Territories")};
  team.high_for_venue = {std::string("Sir Humphrey Longname Memorial Ground")};
  career_rec man = batsman("A.B.C.Longsurname-Wetherby", 110, 24, 10600, 11111);
  man.high_against = "North Wetherby Territories";
  man.high_score = 183;
  add("West Carrington Islands", man);
  write();
  form.open();
  TeamRecordsWindow window(user_in_use(), data, form);
  window.show();
  control<QComboBox>(window, "teams")->setCurrentIndex(0);
  take_picture(window, "teamdet_long");
  check_contents(window);
  check_window_at_sizes(window);
  window.reject();
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace velorin::testing
