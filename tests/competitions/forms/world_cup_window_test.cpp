// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/world_cup_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <algorithm>
#include <set>

#include "competitions/cup_fixture.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

class WorldCupWindowTest : public CupTest {
 protected:
  template <class Control>
  static Control* at(const QWidget& window, const char* name, int index) {
    return control<Control>(window, (std::string(name) + "_" + std::to_string(index)).c_str());
  }
};

TEST_F(WorldCupWindowTest, ShowsItsForm) {
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  take_picture(window, "wctable");
  check_window_at_sizes(window);
  EXPECT_EQ(window.objectName(), "wctable");
  EXPECT_EQ(control<QLabel>(window, "note")->text(), "Note: Select all the human controlled teams.");
  for (int i = 0; i < 5; ++i) {
    EXPECT_EQ(at<QComboBox>(window, "group_a_team", i)->currentText().toStdString(),
              cup_group_a[static_cast<std::size_t>(i)]);
    EXPECT_EQ(at<QComboBox>(window, "group_b_team", i)->currentText().toStdString(),
              cup_group_b[static_cast<std::size_t>(i)]);
    EXPECT_FALSE(at<QCheckBox>(window, "group_a_human", i)->isChecked());
    EXPECT_FALSE(at<QCheckBox>(window, "group_b_human", i)->isChecked());
  }
  EXPECT_EQ(at<QComboBox>(window, "host", 0)->currentText(), "Ardell");
  EXPECT_EQ(at<QComboBox>(window, "host", 1)->currentText(), "none");
  EXPECT_EQ(at<QComboBox>(window, "host", 2)->currentText(), "none");
  EXPECT_FALSE(control<QCheckBox>(window, "play_without_stopping")->isChecked());
}

TEST_F(WorldCupWindowTest, EveryListHasALabelAndANameOfItsOwn) {
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  std::set<QString> names;
  for (const auto* list : window.findChildren<QComboBox*>()) {
    names.insert(list->accessibleName());
    const auto labels = window.findChildren<QLabel*>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [list](const QLabel* label) {
      return label->buddy() == list && label->isVisible() && !label->text().isEmpty();
    })) << list->objectName().toStdString();
  }
  EXPECT_THAT(names, SizeIs(13));
  EXPECT_TRUE(names.contains("Group A, team 1"));
  EXPECT_TRUE(names.contains("Host nation 3"));
}

TEST_F(WorldCupWindowTest, FollowsItsUser) {
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  at<QComboBox>(window, "group_a_team", 2)->setCurrentIndex(9);
  at<QComboBox>(window, "group_b_team", 4)->setCurrentIndex(0);
  at<QCheckBox>(window, "group_a_human", 0)->click();
  at<QCheckBox>(window, "group_b_human", 3)->click();
  at<QComboBox>(window, "host", 1)->setCurrentIndex(4);
  at<QComboBox>(window, "host", 0)->setCurrentIndex(0);
  EXPECT_EQ(form_.group_a_index, (std::array<int, 5>{0, 1, 9, 3, 4}));
  EXPECT_EQ(form_.group_b_index, (std::array<int, 5>{5, 6, 7, 8, 0}));
  EXPECT_EQ(form_.human_a, (std::array<bool, 5>{true, false, false, false, false}));
  EXPECT_EQ(form_.human_b, (std::array<bool, 5>{false, false, false, true, false}));
  EXPECT_EQ(form_.host_index, (std::array<int, 3>{-1, 3, -1})) << "the empty entry stands for no host";
}

TEST_F(WorldCupWindowTest, SaysWhatNobodyHasChosen) {
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  EXPECT_EQ(at<QComboBox>(window, "host", 2)->currentText(), "none");
  const auto* wanted = window.findChild<QLabel*>(QStringLiteral("wanted"));
  EXPECT_TRUE(wanted->text().contains("the computer plays them all")) << wanted->text().toStdString();
  at<QCheckBox>(window, "group_a_human", 0)->click();
  EXPECT_EQ(wanted->text(), "");
}

TEST_F(WorldCupWindowTest, ClosesWhenTheUserHasQuit) {
  quit_after(1);
  user_.on_world_cup_fixtures.front() = [](world_cup_fixtures_form& list) { list.accept(); };
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  press(window, "accept");
  EXPECT_TRUE(form_.closed);
  EXPECT_FALSE(window.isVisible());
  EXPECT_THAT(user_.matches, SizeIs(1));
}

TEST_F(WorldCupWindowTest, ClosesAfterATournamentToItsEnd) {
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  user_.on_world_cup_tables.assign(40, [&](world_cup_tables_form& tables) {
    EXPECT_FALSE(window.isVisible());
    tables.accept();
  });
  press(window, "accept");
  EXPECT_FALSE(form_.closed);
  EXPECT_TRUE(form_.hidden);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.result(), QDialog::Accepted);
  EXPECT_THAT(user_.matches, SizeIs(32));
}

TEST_F(WorldCupWindowTest, HostsWithoutGroundsAreNamed) {
  database_.add_team("Kestle");
  database_.add_team("Lorne");
  database_.write();
  form_.open();
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  {
    Robot robot;
    robot.next("message", [](QWidget& message) {
      EXPECT_EQ(control<QLabel>(message, "text")->text(), "Kestle and Lorne have no ground.");
      press(message, "accept");
    });
    at<QComboBox>(window, "host", 0)->setCurrentIndex(11);
    at<QComboBox>(window, "host", 2)->setCurrentIndex(12);
    press(window, "accept");
    EXPECT_EQ(robot.left(), 0);
  }
  {
    Robot robot;
    robot.next("message", [](QWidget& message) {
      EXPECT_EQ(control<QLabel>(message, "text")->text(), "No host is chosen.");
      press(message, "accept");
    });
    at<QComboBox>(window, "host", 0)->setCurrentIndex(0);
    at<QComboBox>(window, "host", 2)->setCurrentIndex(0);
    press(window, "accept");
    EXPECT_EQ(robot.left(), 0);
  }
  at<QComboBox>(window, "host", 0)->setCurrentIndex(11);
  at<QComboBox>(window, "host", 1)->setCurrentIndex(1);
  press_and_answer(window, "accept", "grounds_question", "no");
  EXPECT_TRUE(window.isVisible());
  EXPECT_THAT(user_.requests, IsEmpty());
  quit_after(0);
  press_and_answer(window, "accept", "grounds_question", "yes");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(texts_of(world_cup.grounds), (std::vector<std::string>{"Ardell Oval", "Ardell Park"}));
}

TEST_F(WorldCupWindowTest, OkWaitsForEveryTeam) {
  form_.group_a_index[3] = -1;
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  EXPECT_FALSE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_EQ(control<QLabel>(window, "wanted")->text(), "Choose all ten teams");
  at<QComboBox>(window, "group_a_team", 3)->setCurrentIndex(3);
  EXPECT_TRUE(control<QPushButton>(window, "accept")->isEnabled());
  EXPECT_FALSE(control<QLabel>(window, "wanted")->text().contains("Choose"));
}

TEST_F(WorldCupWindowTest, ACupThatStandsIsToldAndCanBeStartedAfresh) {
  EXPECT_EQ(WorldCupWindow(match, data, world_cup, form_).findChild<QWidget*>("afresh"), nullptr)
      << "nothing stands at the start";
  form_.accept();
  world_cup.quit_requested = true;
  form_.show_again();
  WorldCupWindow window(match, data, world_cup, form_);
  window.show();
  take_picture(window, "wctable_standing");
  check_window_at_sizes(window);
  EXPECT_TRUE(control<QLabel>(window, "standing")
                  ->text()
                  .startsWith("The tallies and results of the World Cup before stand, and this one adds to them."));
  press(window, "afresh");
  EXPECT_FALSE(control<QLabel>(window, "standing")->isVisible());
  EXPECT_EQ(world_cup.fixtures[1].result, "");
  EXPECT_EQ(world_cup.grand_final.winner, "");
  EXPECT_FALSE(world_cup.quit_requested);
  EXPECT_FALSE(match.loaded);
}

TEST_F(WorldCupWindowTest, IsCancelled) {
  for (const bool escape : {false, true}) {
    form_.closed = false;
    WorldCupWindow window(match, data, world_cup, form_);
    window.show();
    if (escape) {
      window.reject();
    } else {
      press(window, "cancel");
    }
    EXPECT_TRUE(form_.closed);
    EXPECT_FALSE(window.isVisible());
    EXPECT_THAT(user_.matches, IsEmpty());
  }
}

}  // namespace
}  // namespace velorin::testing
