// SPDX-License-Identifier: GPL-3.0-or-later
// How many presses lead to play.
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <array>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "desktop/message_kinds.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class Presses : public GameTest {
 protected:
  Presses() {
    preferences::set_quick_answers({});
    preferences::set_last_sides({});
    preferences::set_captains({true, false});
  }
};

TEST_F(Presses, TwoLeadToTheFirstBallOfAQuickMatch) {
  ClickingUser user;
  user.robot.next("quick", [](QWidget& window) {
    check_window(window);
    press(window, "accept");  // the second press
  });
  std::vector<std::string> met;
  user.robot.next("main", [&](QWidget& window) {
    met = user.robot.met();
    EXPECT_EQ(match.over_no, 1) << "the first over begins by itself";
    EXPECT_TRUE(match.deliveries.empty());
    EXPECT_TRUE(window.isVisible());
  });
  bool bowled = false;
  user.robot.always("main", [&](QWidget& window) {
    bowled = bowled || match.over_no == 2;
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) { press(menu, "quick_match"); });  // the first press
  EXPECT_EQ(met, (std::vector<std::string>{"quick", "main"}));
  EXPECT_TRUE(bowled);
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(Presses, AQuickMatchHasTheSidesOfTheLastOne) {
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("as_last_time")), nullptr) << "there was none";
    ClickingUser::choose_match(window, 6, 3, false, true);
    press(window, "accept");
  });
  QStringList sides;
  const auto note = [&](QWidget& window) {
    for (const char* list : {"first_team", "second_team", "grounds"}) {
      sides << control<QComboBox>(window, list)->currentText();
    }
    press(window, "cancel");
  };
  user.robot.next("quick", note);
  user.robot.next("teamfrm", [&](QWidget& window) {
    press(window, "as_last_time");
    note(window);
  });
  play([&](MenuWindow& menu) {
    choose(menu, "start_game", "new_match");
    press(menu, "quick_match");
    choose(menu, "start_game", "new_match");
  });
  ASSERT_EQ(sides.size(), 6);
  EXPECT_EQ(sides[0], QStringLiteral("Ghent"));
  EXPECT_EQ(sides[1], QStringLiteral("Dorset"));
  EXPECT_EQ(sides.mid(0, 3), sides.mid(3, 3));
}

TEST_F(Presses, ARematchIsOfferedWhereAMatchEndsAndTakesTwo) {
  ClickingUser user;
  QStringList sides;
  const auto note = [&](QWidget& window) {
    for (const char* list : {"first_team", "second_team", "grounds"}) {
      sides << control<QComboBox>(window, list)->currentText();
    }
  };
  user.robot.next("teamfrm", [&](QWidget& window) {
    ClickingUser::choose_match(window, 6, 3, true, false);
    note(window);
    press(window, "accept");
  });
  user.robot.next("matchrep", [](QWidget& window) { press(window, "rematch"); });  // the first press
  user.robot.next("quick", [&](QWidget& window) {
    EXPECT_FALSE(match.result_margin.empty()) << "the match before has come to its end";
    note(window);
    press(window, "accept");  // the second
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  ASSERT_EQ(sides.size(), 6);
  EXPECT_EQ(sides.mid(0, 3), sides.mid(3, 3));
  EXPECT_EQ(user.robot.met("matchrep"), 2) << "played once more, and no third time";
  EXPECT_EQ(user.robot.met("quick"), 1);
}

TEST_F(Presses, WhatWasPlayedOfACompetitionIsChosenAgainByOne) {
  const std::vector<std::pair<const char*, const char*>> entries = {
      {"series1", "new_series"}, {"series2", "tri_series"}, {"wctable", "world_cup"}};
  for (const auto& [name, entry] : entries) {
    SCOPED_TRACE(name);
    preferences::set_last_choices(QString::fromLatin1(name), {});
    preferences::set_plays_without_stopping(QString::fromLatin1(name), true);
    ClickingUser user;
    QStringList chosen;
    const auto note = [&](QWidget& window) {
      QStringList all;
      for (const auto* list : window.findChildren<QComboBox*>()) all << list->currentText();
      for (const auto* field : window.findChildren<QLineEdit*>()) all << field->text();
      for (const auto* button : window.findChildren<QAbstractButton*>()) all << QString::number(button->isChecked());
      chosen << all.join(u'|');
    };
    user.robot.next(name, [&](QWidget& window) {
      EXPECT_EQ(window.findChild<QWidget*>(QStringLiteral("as_last_time")), nullptr) << "nothing was played";
      const QList<QComboBox*> lists = window.findChildren<QComboBox*>();
      // The first two lists of teams change their sides.
      const int first = lists[0]->currentIndex();
      lists[0]->setCurrentIndex(lists[1]->currentIndex());
      lists[1]->setCurrentIndex(first);
      for (auto* field : window.findChildren<QLineEdit*>()) field->setText(QStringLiteral("2"));
      note(window);
      press(window, "accept");
    });
    user.robot.next(name, [&](QWidget& window) {
      // As it opens at first, wherever it stayed loaded.
      const QList<QComboBox*> lists = window.findChildren<QComboBox*>();
      lists[0]->setCurrentIndex(5);
      lists[1]->setCurrentIndex(6);
      press(window, "as_last_time");
      chosen << QString();
      QStringList all;
      for (const auto* list : window.findChildren<QComboBox*>()) all << list->currentText();
      for (const auto* field : window.findChildren<QLineEdit*>()) all << field->text();
      chosen.last() = all.join(u'|');
      press(window, "cancel");
    });
    play([&, entry = entry](MenuWindow& menu) {
      choose(menu, "start_game", entry);
      choose(menu, "start_game", entry);
    });
    ASSERT_EQ(chosen.size(), 2);
    EXPECT_TRUE(chosen[0].startsWith(chosen[1])) << chosen[0].toStdString() << "\n" << chosen[1].toStdString();
    preferences::set_plays_without_stopping(QString::fromLatin1(name), false);
  }
}

TEST_F(Presses, WhatTheComputerAnswersIsShownAndCanBeChanged) {
  ClickingUser user;
  user.robot.next("quick", [](QWidget& window) {
    for (const char* answer : {"conditions", "elevens", "toss", "openers"}) {
      const std::string name = std::string("answers_") + answer;
      auto* box = control<QCheckBox>(window, name.c_str());
      const auto* words = control<QLabel>(window, (name + "_words").c_str());
      EXPECT_TRUE(box->isChecked());
      EXPECT_NE(words->text(), QStringLiteral("you are asked"));
      if (std::string(answer) != "toss") box->click();
      EXPECT_EQ(words->text() == QStringLiteral("you are asked"), std::string(answer) != "toss");
    }
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { press(menu, "quick_match"); });
  EXPECT_EQ(user.robot.met("wecond"), 1);
  EXPECT_EQ(user.robot.met("Teamsel"), 2);
  EXPECT_EQ(user.robot.met("toss"), 0);
  EXPECT_GT(user.robot.met("batorder") + user.robot.met("chgbowler"), 0);
  EXPECT_FALSE(preferences::quick_answers().elevens) << "remembered";
  EXPECT_TRUE(preferences::quick_answers().toss);
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(Presses, AQuickMatchIsPlayedAsItsPageShows) {
  ClickingUser user;
  QStringList openers;
  std::array<int, 4> levels{};
  QString side;
  user.robot.next("quick", [&](QWidget& window) {
    side = control<QComboBox>(window, "first_team")->currentText();
    EXPECT_TRUE(control<QLabel>(window, "quick_eleven_0")->text().startsWith(side + u':'));
    EXPECT_EQ(control<QLabel>(window, "quick_eleven_1")->text().count(u','), 10);
    auto* weather = control<QComboBox>(window, "quick_weather");
    weather->setCurrentIndex(3 - weather->currentIndex());
    const char* const names[] = {"quick_weather", "quick_pitch", "quick_bounce", "quick_outfield"};
    for (std::size_t i = 0; i < 4; ++i) levels[i] = control<QComboBox>(window, names[i])->currentIndex() + 1;
    // The second opener opens with the last man of the order, and the first bowler changes places with the second.
    auto* second = control<QComboBox>(window, "quick_opener_0_1");
    second->setCurrentIndex(10);
    emit second->activated(10);
    auto* bowler = control<QComboBox>(window, "quick_opener_0_2");
    auto* other = control<QComboBox>(window, "quick_opener_0_3");
    const QString before = bowler->currentText();
    bowler->setCurrentIndex(other->currentIndex());
    emit bowler->activated(other->currentIndex());
    EXPECT_EQ(other->currentText(), before) << "nobody opens twice";
    EXPECT_FALSE(control<QComboBox>(window, "quick_opener_1_0")->isVisible()) << "the computer's side";
    for (const char* place : {"quick_opener_0_0", "quick_opener_0_1", "quick_opener_0_2", "quick_opener_0_3"}) {
      openers << control<QComboBox>(window, place)->currentText();
    }
    press(window, "accept");
  });
  bool seen = false;
  user.robot.always("main", [&](QWidget& window) {
    if (!seen && match.over_no == 2) {
      seen = true;
      const auto& found = match;
      EXPECT_EQ(
          (std::array<int, 4>{found.weather, found.ground.pitch_surface, found.ground.pitch_bounce, found.outfield}),
          levels);
      if (match.team1_name == side.toStdString()) {
        EXPECT_EQ(match.batting_xi[1].name, openers[0].toStdString());
        EXPECT_EQ(match.batting_xi[2].name, openers[1].toStdString());
      } else {
        std::set<std::string> bowled;
        for (int row = 1; row <= 11; ++row) {
          if (row == match.bowler || row == match.next_bowler) bowled.insert(match.bowling_xi[row].name);
        }
        EXPECT_EQ(bowled, (std::set<std::string>{openers[2].toStdString(), openers[3].toStdString()}));
      }
    }
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) { press(menu, "quick_match"); });
  EXPECT_TRUE(seen);
}

TEST_F(Presses, OneBowlsAnOver) {
  ClickingUser user;
  user.robot.next("quick", pressing("accept"));
  int over = 0;
  user.robot.always("main", [&](QWidget& window) {
    const bool in_first = over != 0 && match.innings_number == 1;
    EXPECT_TRUE(!in_first || match.over_no == over + 1) << match.over_no;
    over = match.over_no;
    press(window, "next_over");
  });
  play([&](MenuWindow& menu) { press(menu, "quick_match"); });
  EXPECT_FALSE(match.result_margin.empty());
}

TEST_F(Presses, ThreePlayAWholeUnattendedWorldCup) {
  preferences::set_plays_without_stopping(QStringLiteral("wctable"), true);
  ClickingUser user;
  user.robot.next("wctable", pressing("accept"));  // the third press
  play([&](MenuWindow& menu) {
    press(menu, "start_game");
    press(menu, "world_cup");
  });
  preferences::set_plays_without_stopping(QStringLiteral("wctable"), false);
  const auto& met = user.robot.met();
  std::vector<std::string> waited;
  for (const std::string& window : met) {
    if (window != "unstopped" && window != "Progressbar") waited.push_back(window);
  }
  EXPECT_EQ(waited, (std::vector<std::string>{"wctable", "wc_fix", "wcsstab"})) << "the end alone waits to be read";
}

TEST_F(Presses, OnceDeclinedNoBoxOfAMatchWaitsWhereNothingIsChosen) {
  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, false);
  std::map<std::string, int> waited;
  int overs = 0;
  for (const std::uint64_t seed : {3U, 8U}) {
    begin_again_with_seed(seed);
    ClickingUser user;
    user.robot.always("quick", pressing("accept"));
    user.robot.at_sight([&](QWidget& window) {
      const std::string name = window.objectName().toStdString();
      if (match.deliveries.empty() || !match.result_margin.empty()) return;  // before the first ball, after the last
      ++waited[name];
    });
    play([&](MenuWindow& menu) { press(menu, "quick_match"); });
    EXPECT_FALSE(match.result_margin.empty());
    overs += user.robot.met("main");
  }
  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, true);
  // The console, and what asks whom the captain sends in or gives the ball.
  for (const char* asks : {"main", "batorder", "chgbowler"}) waited.erase(asks);
  const std::map<std::string, int> cards = {{"scorecard", 2}};
  EXPECT_EQ(waited, cards) << "no box; the card at the end of each first innings is a page to read";
  EXPECT_GT(overs, 150);
}

}  // namespace
}  // namespace velorin::testing
