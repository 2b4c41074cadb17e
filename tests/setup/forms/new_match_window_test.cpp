// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/new_match_window.h"

#include <gmock/gmock.h>

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>

#include "desktop/crest.h"
#include "desktop/message_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"
#include "support/small_database.h"
#include "windows/accessible_user.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

QStringList texts(const QComboBox& list) {
  QStringList all;
  for (int i = 0; i < list.count(); ++i) all << list.itemText(i);
  return all;
}

class NewMatchWindowTest : public ::testing::Test {
 protected:
  void SetUp() override {
    match = match_state();
    preferences::set_captains({.first_human = false, .second_human = false});
    chance.use_seed(7);
  }

  void open(const std::vector<std::string>& teams) {
    for (const std::string& team : teams) database_.add_team(team);
    database_.add_ground("Alba", "Harbour Park");
    database_.add_ground("Neutral", "Crown & Anchor Oval");
    database_.add_ground("Brook", "Green Lane");
    database_.add_ground("Carse", "Hill Road");
    database_.add_ground("Brook", "Mill Field");
    database_.write();
    form_.open();
  }

  small_database database_;
  scripted_user user_;
  front_end_scope shown_{user_};
  new_match_form form_{in_play()};
};

const std::vector<std::string> three = {"Alba", "Brook", "Carse"};

TEST_F(NewMatchWindowTest, PassesTheChecks) {
  open(three);
  NewMatchWindow window(match, form_);
  window.show();
  take_picture(window, "teamfrm");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "New Match");
  EXPECT_EQ(window.objectName(), "teamfrm");
}

TEST_F(NewMatchWindowTest, ShowsTheFormAsItOpened) {
  open(three);
  preferences::set_captains({.first_human = false, .second_human = true});
  NewMatchWindow window(match, form_);
  const auto* first = control<QComboBox>(window, "first_team");
  EXPECT_EQ(texts(*first), (QStringList{"Alba", "Brook", "Carse"}));
  EXPECT_EQ(first->currentText(), "Brook");
  EXPECT_EQ(first->currentData().toInt(), 3);
  EXPECT_EQ(control<QComboBox>(window, "second_team")->currentText(), "Carse");
  const auto* grounds = control<QComboBox>(window, "grounds");
  EXPECT_EQ(texts(*grounds), (QStringList{"Crown & Anchor Oval", "Green Lane", "Hill Road", "Mill Field"}));
  EXPECT_EQ(grounds->currentText(), "Green Lane");
  EXPECT_TRUE(control<QRadioButton>(window, "first_computer")->isChecked());
  EXPECT_TRUE(control<QRadioButton>(window, "second_human")->isChecked());
  EXPECT_EQ(control<QRadioButton>(window, "first_computer")->text(), "CPU");
  EXPECT_EQ(control<QRadioButton>(window, "second_human")->text(), "Human");
}

TEST_F(NewMatchWindowTest, TheGroundsFollowTheTeams) {
  open(three);
  NewMatchWindow window(match, form_);
  control<QComboBox>(window, "first_team")->setCurrentIndex(0);
  EXPECT_EQ(form_.first_team_name(), "Alba");
  const auto* grounds = control<QComboBox>(window, "grounds");
  EXPECT_EQ(texts(*grounds), (QStringList{"Harbour Park", "Crown & Anchor Oval", "Hill Road"}));
  EXPECT_EQ(grounds->currentText(), "Crown & Anchor Oval");
  EXPECT_EQ(form_.ground_name(), "Crown & Anchor Oval");
  control<QComboBox>(window, "second_team")->setCurrentIndex(1);
  EXPECT_EQ(texts(*grounds), (QStringList{"Harbour Park", "Crown & Anchor Oval", "Green Lane", "Mill Field"}));
}

TEST_F(NewMatchWindowTest, TheCrestsFollowTheTeams) {
  open(three);
  NewMatchWindow window(match, form_);
  const auto* crest = control<CrestView>(window, "first_crest");
  EXPECT_EQ(crest->team(), "Brook");
  EXPECT_EQ(control<CrestView>(window, "second_crest")->team(), "Carse");
  auto* first = control<QComboBox>(window, "first_team");
  first->setCurrentIndex(0);
  EXPECT_EQ(crest->team(), "Alba");
  EXPECT_EQ(crest->accessibleName(), "Crest of Alba");
  for (int team = 0; team < first->count(); ++team) EXPECT_FALSE(first->itemIcon(team).isNull());
}

TEST_F(NewMatchWindowTest, ChoicesReachTheForm) {
  open(three);
  NewMatchWindow window(match, form_);
  control<QComboBox>(window, "grounds")->setCurrentIndex(3);
  EXPECT_EQ(form_.ground_name(), "Mill Field");
  control<QRadioButton>(window, "first_human")->click();
  EXPECT_FALSE(form_.computer_captains_first);
  EXPECT_TRUE(form_.computer_captains_second) << "each side has a captain of its own";
  control<QRadioButton>(window, "second_human")->click();
  control<QRadioButton>(window, "first_computer")->click();
  EXPECT_TRUE(form_.computer_captains_first);
  EXPECT_FALSE(form_.computer_captains_second);
}

TEST_F(NewMatchWindowTest, PracticeIsOffEachTimeAndIsSwitchedOnByATick) {
  open(three);
  {
    NewMatchWindow window(match, form_);
    window.show();
    auto* practice = control<QCheckBox>(window, "practice");
    EXPECT_FALSE(practice->isChecked());
    EXPECT_TRUE(practice->accessibleName().contains("Practice"));
    press(window, "practice");
    EXPECT_TRUE(form_.practice);
    bool played = false;
    user_.on_match_report = [&](match_report_form&) { played = match.practice; };
    press(window, "accept");
    EXPECT_TRUE(played);
  }
  new_match_form next(in_play());
  next.open();
  NewMatchWindow window(match, next);
  EXPECT_FALSE(control<QCheckBox>(window, "practice")->isChecked()) << "no match is practice unawares";
  window.show();
  EXPECT_GT(check_toggles(window), 0);
}

TEST_F(NewMatchWindowTest, ASmallDatabaseLeavesEmptyTexts) {
  open({"Alba"});
  NewMatchWindow window(match, form_);
  window.show();
  EXPECT_EQ(control<QComboBox>(window, "first_team")->currentText(), "");
  EXPECT_EQ(control<QComboBox>(window, "second_team")->currentText(), "");
  EXPECT_EQ(control<QComboBox>(window, "grounds")->currentText(), "");
  check_window_at_sizes(window);
}

TEST_F(NewMatchWindowTest, OkPlaysTheMatchWhileTheWindowIsHidden) {
  open(three);
  data.files.elevens_in_memory = true;
  NewMatchWindow window(match, form_);
  control<QComboBox>(window, "first_team")->setCurrentIndex(2);
  control<QComboBox>(window, "second_team")->setCurrentIndex(0);
  control<QRadioButton>(window, "second_human")->click();
  bool hidden = false;
  user_.on_conditions.push_back([&](conditions_form& conditions) {
    hidden = !window.isVisible();
    MessageWindow within({"The match", "A window within the match"});
    run_modal(within);
    conditions.accept();
  });
  user_.on_console = [](console_form&) { match.console_open = false; };
  Robot robot;
  robot.next("teamfrm", pressing("accept"));
  robot.next("message", pressing("accept"));
  EXPECT_EQ(window.exec(), QDialog::Accepted);
  EXPECT_TRUE(hidden);
  EXPECT_THAT(user_.requests_of("teamsel"), ElementsAre("teamsel Carse", "teamsel Alba"));
  EXPECT_EQ(user_.requests_of("console").size(), 1u);
  EXPECT_EQ(match.ground.ground_name, "Crown & Anchor Oval");
  EXPECT_THAT(robot.met(), ElementsAre("teamfrm", "message"));
}

TEST_F(NewMatchWindowTest, AFailureInTheMatchIsReported) {
  open(three);
  std::string failure;
  on_failure([&](const std::exception& error) { failure = error.what(); });
  NewMatchWindow window(match, form_);
  window.show();
  std::filesystem::remove(data.files.ground_file);
  press(window, "accept");
  on_failure({});
  EXPECT_THAT(failure, ::testing::HasSubstr("world.grd"));
}

TEST_F(NewMatchWindowTest, CancelAndEscapeCloseAndDoNothing) {
  open(three);
  NewMatchWindow window(match, form_);
  window.show();
  press(window, "cancel");
  EXPECT_FALSE(window.isVisible());
  EXPECT_FALSE(form_.visible);
  form_.open();
  NewMatchWindow again(match, form_);
  again.show();
  again.reject();
  EXPECT_FALSE(again.isVisible());
  EXPECT_FALSE(form_.visible);
  EXPECT_THAT(user_.requests, ElementsAre());
}

TEST_F(NewMatchWindowTest, AMatchIsNeverPlayedWithoutStopping) {
  open(three);
  const NewMatchWindow window(match, form_);
  EXPECT_EQ(window.findChild<QCheckBox*>("play_without_stopping"), nullptr);
}

TEST_F(NewMatchWindowTest, AtFirstTheUserCaptainsTheFirstTeam) {
  preferences::use_file(QString::fromStdString((database_.folder() / "fresh.ini").string()));
  open(three);
  NewMatchWindow window(match, form_);
  EXPECT_TRUE(control<QRadioButton>(window, "first_human")->isChecked());
  EXPECT_TRUE(control<QRadioButton>(window, "second_computer")->isChecked());
  EXPECT_FALSE(form_.computer_captains_first);
  EXPECT_TRUE(form_.computer_captains_second);
}

TEST_F(NewMatchWindowTest, TheCaptainsOfTheLastMatchAreRemembered) {
  open(three);
  user_.on_conditions.assign(2, [](conditions_form& conditions) { conditions.leave(); });
  for (const bool first_human : {false, true}) {
    {
      NewMatchWindow window(match, form_);
      window.show();
      control<QRadioButton>(window, first_human ? "first_human" : "first_computer")->click();
      control<QRadioButton>(window, first_human ? "second_computer" : "second_human")->click();
      press(window, "accept");
    }
    {
      NewMatchWindow cancelled(match, form_);
      cancelled.show();
      control<QRadioButton>(cancelled, first_human ? "first_computer" : "first_human")->click();
      press(cancelled, "cancel");
    }
    new_match_form fresh(in_play());
    fresh.open();
    NewMatchWindow next(match, fresh);
    EXPECT_EQ(fresh.computer_captains_first, !first_human);
    EXPECT_EQ(fresh.computer_captains_second, first_human);
  }
}

TEST_F(NewMatchWindowTest, OkWaitsForTeamsAndAGround) {
  open({"Alba", "Brook"});
  NewMatchWindow window(match, form_);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "Choose both teams");
  take_picture(window, "teamfrm_waiting");
  control<QComboBox>(window, "second_team")->setCurrentIndex(0);
  EXPECT_TRUE(control<QPushButton>(window, "accept")->isEnabled());
  control<QComboBox>(window, "grounds")->setCurrentIndex(-1);
  EXPECT_FALSE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "Choose a ground");
  control<QComboBox>(window, "grounds")->setCurrentIndex(0);
  EXPECT_TRUE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "");
}

TEST_F(NewMatchWindowTest, AMatchThatIsLeftClosesTheWindow) {
  open(three);
  user_.on_conditions.push_back([](conditions_form& conditions) { conditions.leave(); });
  Robot robot;
  robot.next("teamfrm", pressing("accept"));
  NewMatchWindow window(match, form_);
  window.exec();
  EXPECT_TRUE(form_.left);
  EXPECT_FALSE(window.isVisible());
}

}  // namespace
}  // namespace velorin::testing
