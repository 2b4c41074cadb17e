// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include "competitions/competition_fixture.h"
#include "competitions/forms/number_field.h"
#include "competitions/forms/series_window.h"
#include "competitions/forms/tri_series_window.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

QString chosen(const QWidget& window, const char* list) { return control<QComboBox>(window, list)->currentText(); }

/// A typed number is refused with a message, and nothing is played.
void check_refusal(const QWidget& window, const QString& typed, const QString& most) {
  SCOPED_TRACE(typed.toStdString());
  Robot robot;
  robot.next("message", [&](QWidget& message) {
    EXPECT_EQ(control<QLabel>(message, "text")->text(), "Type a whole number from 1 to " + most + ".");
    press(message, "accept");
  });
  window.findChild<NumberField*>()->text()->setText(typed);
  press(window, "accept");
  EXPECT_EQ(robot.left(), 0);
  EXPECT_TRUE(window.isVisible());
}

/// The stepper, its arrows and the arrow keys of the box.
void check_stepper(const QWidget& window, int most, const std::string& text) {
  auto* stepper = window.findChild<Stepper*>();
  auto* box = window.findChild<NumberField*>()->text();
  EXPECT_EQ(box->text(), "1");
  EXPECT_EQ(text, "1");
  EXPECT_EQ(stepper->minimum(), 1);
  EXPECT_EQ(stepper->maximum(), most);
  stepper->setValue(most);
  EXPECT_EQ(text, std::to_string(most));
  EXPECT_EQ(box->text().toStdString(), text);
  QTest::mouseClick(stepper, Qt::LeftButton, {}, QPoint(stepper->width() / 2, 4));
  EXPECT_EQ(text, std::to_string(most)) << "there is no more";
  QTest::mouseClick(stepper, Qt::LeftButton, {}, QPoint(stepper->width() / 2, stepper->height() - 4));
  EXPECT_EQ(text, std::to_string(most - 1));
  QTest::mouseClick(stepper, Qt::LeftButton, {}, QPoint(stepper->width() / 2, 4));
  EXPECT_EQ(text, std::to_string(most));
  QTest::keyClick(box, Qt::Key_Down);
  EXPECT_EQ(text, std::to_string(most - 1));
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(text, std::to_string(most));
  box->setText("3");
  EXPECT_EQ(text, "3");
  EXPECT_EQ(stepper->value(), 3);
  QTest::keyClick(box, Qt::Key_Up);
  EXPECT_EQ(text, "4");
}

class SeriesWindows : public CompetitionTest {
 protected:
  void SetUp() override {
    CompetitionTest::SetUp();
    add_teams({"Ardell", "Brava", "Corrin", "Dessa"});
  }
};

// The series.

TEST_F(SeriesWindows, TheSeriesShowsItsForm) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  take_picture(window, "series1");
  check_window_at_sizes(window);
  EXPECT_EQ(window.objectName(), "series1");
  EXPECT_EQ(control<QComboBox>(window, "home_team")->count(), 4);
  EXPECT_EQ(chosen(window, "home_team"), "Brava");
  EXPECT_EQ(chosen(window, "away_team"), "Corrin");
  EXPECT_EQ(chosen(window, "grounds"), "Brava Park");
  EXPECT_TRUE(control<QRadioButton>(window, "home_computer")->isChecked());
  EXPECT_TRUE(control<QRadioButton>(window, "away_computer")->isChecked());
  EXPECT_FALSE(control<QCheckBox>(window, "play_without_stopping")->isChecked());
}

TEST_F(SeriesWindows, TheSeriesFollowsItsUser) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  control<QComboBox>(window, "home_team")->setCurrentIndex(3);
  EXPECT_EQ(form.home_team_index, 3);
  EXPECT_EQ(chosen(window, "grounds"), "Dessa Park");
  control<QComboBox>(window, "away_team")->setCurrentIndex(0);
  EXPECT_EQ(form.away_team_index, 0);
  control<QComboBox>(window, "grounds")->setCurrentIndex(0);
  EXPECT_EQ(form.ground_index, 0);
  control<QRadioButton>(window, "home_human")->setChecked(true);
  EXPECT_FALSE(form.computer_captains_home);
  EXPECT_TRUE(form.computer_captains_away);
  control<QRadioButton>(window, "away_human")->setChecked(true);
  EXPECT_FALSE(form.computer_captains_away);
  control<QRadioButton>(window, "home_computer")->setChecked(true);
  EXPECT_TRUE(form.computer_captains_home);
  check_stepper(window, 10, form.typed_matches);
}

TEST_F(SeriesWindows, TheSeriesIsPlayedBehindItsHiddenWindow) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  control<QLineEdit>(window, "matches")->setText("2");
  int shown = 0;
  user_.on_series_results.assign(2, [&](series_results_form& results) {
    EXPECT_FALSE(window.isVisible());
    ++shown;
    results.accept();
  });
  press(window, "accept");
  EXPECT_EQ(shown, 2);
  EXPECT_THAT(user_.matches, SizeIs(2));
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
}

TEST_F(SeriesWindows, AModalSeriesReturnsWhenItIsOver) {
  series_form form(in_play(), series);
  form.open();
  form.typed_matches = "2";
  SeriesWindow window(match, data, form);
  Robot robot;
  robot.next("series1", pressing("accept"));
  run_modal(window);
  EXPECT_THAT(user_.matches, SizeIs(2));
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_EQ(robot.met("series1"), 1);
}

TEST_F(SeriesWindows, AFailureOfASeriesIsReported) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  std::string told;
  on_failure([&](const std::exception& failure) { told = failure.what(); });
  std::filesystem::remove(data.files.team_file);
  press(window, "accept");
  on_failure({});
  EXPECT_NE(told, "");
  EXPECT_THAT(user_.matches, IsEmpty());
}

TEST_F(SeriesWindows, TheSeriesRefusesWhatIsNoNumberOfMatches) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  for (const char* typed : {"11", "0", "-1", "", "two", "1.5"}) check_refusal(window, typed, "10");
  EXPECT_THAT(user_.matches, IsEmpty());
  EXPECT_FALSE(form.closed);
}

TEST_F(SeriesWindows, TheSeriesIsCancelled) {
  for (const bool escape : {false, true}) {
    series_form form(in_play(), series);
    form.open();
    SeriesWindow window(match, data, form);
    window.show();
    if (escape) {
      window.reject();
    } else {
      press(window, "cancel");
    }
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(user_.matches, IsEmpty());
  }
}

TEST_F(SeriesWindows, EachFormRemembersItsOwnSwitch) {
  series_form two(in_play(), series);
  two.open();
  tri_series_form three(in_play(), tri);
  three.open();
  const auto switched_on = [](QWidget& window) {
    return control<QCheckBox>(window, "play_without_stopping")->isChecked();
  };
  {
    SeriesWindow window(match, data, two);
    window.show();
    control<QCheckBox>(window, "play_without_stopping")->click();
  }
  EXPECT_TRUE(preferences::plays_without_stopping("series1"));
  EXPECT_FALSE(preferences::plays_without_stopping("series2"));
  EXPECT_FALSE(preferences::plays_without_stopping("wctable"));
  SeriesWindow again(match, data, two);
  TriSeriesWindow other(match, data, three);
  EXPECT_TRUE(switched_on(again));
  EXPECT_FALSE(switched_on(other));
  control<QCheckBox>(other, "play_without_stopping")->click();
  control<QCheckBox>(again, "play_without_stopping")->click();
  EXPECT_FALSE(preferences::plays_without_stopping("series1"));
  EXPECT_TRUE(preferences::plays_without_stopping("series2"));
  control<QCheckBox>(other, "play_without_stopping")->click();
}

TEST_F(SeriesWindows, AFirstMatchThatIsLeftBringsTheFormBack) {
  series_form form(in_play(), series);
  form.open();
  SeriesWindow window(match, data, form);
  window.show();
  control<QLineEdit>(window, "matches")->setText("2");
  user_.on_conditions.push_back([](conditions_form& conditions) { conditions.leave(); });
  press(window, "accept");
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form.closed);
  EXPECT_TRUE(user_.series_results.empty());
  EXPECT_EQ(control<QLineEdit>(window, "matches")->text(), "2");
  press(window, "accept");
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
  EXPECT_THAT(user_.series_results, SizeIs(2));
}

/// A host without a ground is named when OK is pressed, and nothing is played.
void check_groundless(QWidget& window, const QString& country) {
  Robot robot;
  robot.next("message", [&](QWidget& message) {
    EXPECT_EQ(control<QLabel>(message, "text")->text(), country + " has no ground.");
    press(message, "accept");
  });
  press(window, "accept");
  EXPECT_EQ(robot.left(), 0);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(SeriesWindows, AHostWithoutAGroundIsNamed) {
  database_.add_team("Elmar");
  database_.write();
  series_form two(in_play(), series);
  two.open();
  SeriesWindow window(match, data, two);
  window.show();
  control<QComboBox>(window, "home_team")->setCurrentIndex(4);
  check_groundless(window, "Elmar");
  EXPECT_FALSE(two.closed);
  tri_series_form three(in_play(), tri);
  three.open();
  TriSeriesWindow other(match, data, three);
  other.show();
  control<QComboBox>(other, "first_team")->setCurrentIndex(4);
  check_groundless(other, "Elmar");
  EXPECT_FALSE(three.closed);
  EXPECT_THAT(user_.matches, IsEmpty());
}

TEST_F(SeriesWindows, OkSaysWhichBoxesItWaitsFor) {
  small_database pair;
  for (const char* name : {"Ardell", "Brava"}) {
    pair.add_team(name);
    pair.add_ground(name, name);
  }
  pair.write();
  series_form two(in_play(), series);
  two.open();
  SeriesWindow window(match, data, two);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "Choose both teams");
  take_picture(window, "series1_waiting");
  check_window_at_sizes(window);
  control<QComboBox>(window, "away_team")->setCurrentIndex(0);
  EXPECT_TRUE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "");
  tri_series_form three(in_play(), tri);
  three.open();
  TriSeriesWindow other(match, data, three);
  other.show();
  EXPECT_FALSE(control<QPushButton>(other, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(other, "wanted")->text(), "Choose all three teams");
  control<QComboBox>(other, "second_team")->setCurrentIndex(0);
  EXPECT_FALSE(control<QPushButton>(other, "accept")->isEnabled());
  control<QComboBox>(other, "third_team")->setCurrentIndex(1);
  EXPECT_TRUE(control<QPushButton>(other, "accept")->isEnabled());
}

TEST_F(SeriesWindows, TheGraphCanBeStartedAfresh) {
  series_form form(in_play(), series);
  form.open();
  EXPECT_EQ(SeriesWindow(match, data, form).findChild<QWidget*>("afresh"), nullptr) << "nothing stands at the start";
  match.team1_name = "Ardell";
  match.team2_name = "Brava";
  load_worms(match);
  SeriesWindow window(match, data, form);
  window.show();
  take_picture(window, "series1_standing");
  check_window_at_sizes(window);
  EXPECT_EQ(control<QLabel>(window, "standing")->text(), "The Score Comparison Graph still shows Ardell and Brava.");
  press(window, "afresh");
  EXPECT_FALSE(control<QLabel>(window, "standing")->isVisible());
  EXPECT_FALSE(match.loaded);
  EXPECT_EQ(match.worm[0].team, "");
}

// The tri series.

TEST_F(SeriesWindows, TheTriSeriesShowsItsForm) {
  tri_series_form form(in_play(), tri);
  form.open();
  TriSeriesWindow window(match, data, form);
  window.show();
  take_picture(window, "series2");
  check_window_at_sizes(window);
  EXPECT_EQ(window.objectName(), "series2");
  EXPECT_EQ(chosen(window, "first_team"), "Brava");
  EXPECT_EQ(chosen(window, "second_team"), "Corrin");
  EXPECT_EQ(chosen(window, "third_team"), "Dessa");
  EXPECT_EQ(chosen(window, "grounds"), "Brava Park");
  for (const char* cpu : {"first_computer", "second_computer", "third_computer"}) {
    EXPECT_TRUE(control<QRadioButton>(window, cpu)->isChecked()) << cpu;
  }
  EXPECT_FALSE(control<QCheckBox>(window, "play_without_stopping")->isChecked());
}

TEST_F(SeriesWindows, TheTriSeriesFollowsItsUser) {
  tri_series_form form(in_play(), tri);
  form.open();
  TriSeriesWindow window(match, data, form);
  window.show();
  control<QComboBox>(window, "first_team")->setCurrentIndex(0);
  control<QComboBox>(window, "second_team")->setCurrentIndex(3);
  control<QComboBox>(window, "third_team")->setCurrentIndex(1);
  EXPECT_EQ(form.team_index, (std::array<int, 3>{0, 3, 1}));
  EXPECT_EQ(chosen(window, "grounds"), "Ardell Park");
  control<QComboBox>(window, "grounds")->setCurrentIndex(0);
  EXPECT_EQ(form.ground_index, 0);
  control<QRadioButton>(window, "second_human")->setChecked(true);
  EXPECT_EQ(form.computer_captains, (std::array<bool, 3>{true, false, true}));
  control<QRadioButton>(window, "third_human")->setChecked(true);
  EXPECT_EQ(form.computer_captains, (std::array<bool, 3>{true, false, false}));
  check_stepper(window, 5, form.typed_rounds);
}

TEST_F(SeriesWindows, TheTriSeriesIsPlayedBehindItsHiddenWindow) {
  tri_series_form form(in_play(), tri);
  form.open();
  TriSeriesWindow window(match, data, form);
  window.show();
  int shown = 0;
  user_.on_tri_series_table.assign(4, [&](tri_series_table_form& table) {
    EXPECT_FALSE(window.isVisible());
    ++shown;
    table.accept();
  });
  press(window, "accept");
  EXPECT_EQ(shown, 4);
  EXPECT_THAT(user_.matches, SizeIs(4));
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(SeriesWindows, TheTriSeriesRefusesWhatIsNoNumberOfRounds) {
  tri_series_form form(in_play(), tri);
  form.open();
  TriSeriesWindow window(match, data, form);
  window.show();
  for (const char* typed : {"6", "0", "", "x"}) check_refusal(window, typed, "5");
  EXPECT_THAT(user_.matches, IsEmpty());
  press(window, "cancel");
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(SeriesWindows, ADatabaseOfOneTeamLeavesTheListsUnchosen) {
  small_database lonely;
  lonely.add_team("Solo");
  lonely.write();
  tri_series_form form(in_play(), tri);
  form.open();
  TriSeriesWindow window(match, data, form);
  window.show();
  check_window_at_sizes(window);
  EXPECT_EQ(control<QComboBox>(window, "first_team")->currentIndex(), -1);
  EXPECT_EQ(chosen(window, "grounds"), "");
}

}  // namespace
}  // namespace velorin::testing
