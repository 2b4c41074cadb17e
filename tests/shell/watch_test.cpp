// SPDX-License-Identifier: GPL-3.0-or-later
// A game that was played is watched again: through its controls, with its reports, and nothing of it changes.
#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "database/whole_file.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "recording/kept_games.h"
#include "recording/recording_player.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// What a report tells.
QString text_of(const QWidget& window) {
  QString text;
  for (const QLabel* label : window.findChildren<QLabel*>()) text += label->text() + QLatin1Char('|');
  for (const QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
    const QAbstractItemModel& cells = *view->model();
    for (int row = 0; row < cells.rowCount(); ++row) {
      for (int column = 0; column < cells.columnCount(); ++column) {
        text += cells.index(row, column).data().toString() + QLatin1Char('|');
      }
    }
  }
  return text;
}

class Watch : public GameTest {
 protected:
  Watch() { chance.use_seed(3); }
  ~Watch() override { preferences::set_pace(Pace::instant); }

  void start(const std::function<void(MenuWindow&)>& then) {
    match = {};
    series = {};
    chance.use_seed(3);
    QtFrontEnd shown_by(tested_game, folder_);
    play_shown_by(shown_by, then);
  }

  /// Plays a match as captain of the first team to its end, and keeps each card at which it stopped; quits after so
  /// many overs, 0 for never.
  void play_match(int overs = 0) {
    start([&](MenuWindow& menu) {
      ClickingUser user;
      user.robot.next("teamfrm", [](QWidget& window) {
        ClickingUser::choose_match(window, 4, 7, true, false);
        press(window, "accept");
      });
      user.robot.always("scorecard", [this](QWidget& window) {
        cards_ << text_of(window);
        press(window, "accept");
      });
      user.robot.always("keep_question", pressing("keep"));
      if (overs != 0) {
        user.robot.always("main", [left = std::make_shared<int>(overs)](QWidget& window) {
          press(window, --*left >= 0 ? "next_over" : "quit");
        });
      }
      choose(menu, "start_game", "new_match");
    });
  }

  /// Opens the list of saved games and watches the first one.
  void watch(const std::function<void(QWidget&, Robot&)>& then) {
    const std::filesystem::path file = games_in(folder_).front().file;
    const auto bytes = read_file(file);
    const std::vector<std::string> lasting = lasting_files();
    start([&](MenuWindow& menu) {
      ClickingUser user;
      user.robot.next("savedgames", [](QWidget& window) {
        check_window(window);
        press(window, "watch");
      });
      user.robot.next("savedgames", pressing("close"));
      bool watched = false;
      user.robot.next("watch", [&](QWidget& window) {
        watched = true;
        then(window, user.robot);
        press(window, "close");
      });
      press(menu, "saved_games");
      EXPECT_TRUE(watched);
      EXPECT_EQ(user.robot.left(), 0);
      EXPECT_TRUE(match.deliveries.empty()) << "the user's own game is none of it";
    });
    EXPECT_EQ(read_file(file), bytes);
    EXPECT_EQ(lasting_files(), lasting);
    EXPECT_EQ(games_in(folder_).size(), 1U);
  }

  static QString overs(QWidget& window) { return control<QLabel>(window, "watched_overs")->text(); }
  static int place(QWidget& window) { return control<QSlider>(window, "ball")->value(); }
  static bool can(QWidget& window, const char* name) { return control<QAbstractButton>(window, name)->isEnabled(); }

  QTemporaryDir temporary_;
  std::filesystem::path folder_ = std::filesystem::path(temporary_.path().toStdString()) / "games";
  QStringList cards_;
};

TEST_F(Watch, GoesThroughAMatchByEveryControl) {
  play_match();
  recording_player player(read_recording(games_in(folder_).front().file), "played");
  const ball_index& index = player.index();
  watch([&](QWidget& window, Robot&) {
    take_picture(window, "watch");
    window.window()->resize(smallest_screen);
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
    check_window(window);
    EXPECT_EQ(place(window), 0);
    EXPECT_FALSE(can(window, "ball_back"));
    press(window, "over_on");
    EXPECT_EQ(overs(window), QStringLiteral("1.0"));
    press(window, "ball_on");
    press(window, "ball_back");
    EXPECT_EQ(overs(window), QStringLiteral("1.0"));
    press(window, "over_back");
    EXPECT_EQ(place(window), 0);
    const std::pair<const char*, ball_mark> jumps[] = {{"next_wicket", ball_mark::wicket},
                                                       {"next_boundary", ball_mark::boundary},
                                                       {"next_milestone", ball_mark::milestone},
                                                       {"innings_end", ball_mark::innings_end}};
    for (const auto& [button, mark] : jumps) {
      press(window, "innings_1");
      for (std::optional<int> next = next_mark(index, 0, mark); next; next = next_mark(index, *next, mark)) {
        press(window, button);
        ASSERT_EQ(place(window), *next) << button;
      }
      EXPECT_FALSE(can(window, button)) << button;
    }
    press(window, "innings_2");
    const int second = place(window);
    EXPECT_EQ(index[static_cast<std::size_t>(second)].innings, 2);
    EXPECT_TRUE(index[static_cast<std::size_t>(second)].opens_innings());
    EXPECT_EQ(control<QSlider>(window, "ball")->minimum(), second);
    control<QSlider>(window, "ball")->setValue(second + 20);
    EXPECT_EQ(overs(window), QString::fromStdString(player.at(second + 20).overs_text()));
    press(window, "innings_1");
    EXPECT_EQ(control<QListView>(window, "commentary")->model()->rowCount(), 0) << "nothing of the other innings";
  });
}

TEST_F(Watch, ReportsReadAsAtTheMoment) {
  play_match();
  ASSERT_EQ(cards_.size(), 2);
  watch([&](QWidget& window, Robot& robot) {
    QString read;
    robot.always("scorecard", [&](QWidget& card) {
      read = text_of(card);
      press(card, "accept");
    });
    robot.always("worms", pressing("accept"));
    robot.always("graphs", pressing("accept"));
    press(window, "innings_end");
    press(window, "show_scorecard");
    EXPECT_EQ(read, cards_[0]);
    press(window, "innings_end");
    press(window, "show_scorecard");
    EXPECT_EQ(read, cards_[1]);
    press(window, "show_worm");
    press(window, "show_overs_graph");
    press(window, "innings_1");
    press(window, "show_scorecard");
    EXPECT_NE(read, cards_[0]);
  });
}

TEST_F(Watch, PlaysByItselfAtThePaceAndStops) {
  play_match();
  watch([&](QWidget& window, Robot& robot) {
    preferences::set_pace(Pace::quick);
    press(window, "play");
    EXPECT_EQ(control<QAbstractButton>(window, "play")->accessibleName(), QStringLiteral("Pause"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(window) >= 3; }));
    QTest::keyClick(&window, Qt::Key_Escape);
    const int there = place(window);
    QTest::qWait(400);
    EXPECT_EQ(place(window), there) << "Escape stops it";
    EXPECT_TRUE(window.isVisible());
    // At once means over by over.
    preferences::set_pace(Pace::instant);
    press(window, "over_on");
    press(window, "play");
    EXPECT_TRUE(QTest::qWaitFor([&] { return overs(window) == QStringLiteral("3.0"); }));
    press(window, "play");
    EXPECT_EQ(control<QAbstractButton>(window, "play")->accessibleName(), QStringLiteral("Play"));
    // The last moment stops it; from there it begins anew.
    for (int i = 0; i < 2; ++i) press(window, "innings_end");
    const int end = place(window);
    press(window, "ball_back");
    preferences::set_pace(Pace::quick);
    press(window, "play");
    EXPECT_TRUE(QTest::qWaitFor([&] { return place(window) == end; }));
    EXPECT_EQ(control<QAbstractButton>(window, "play")->accessibleName(), QStringLiteral("Play"));
    press(window, "play");
    EXPECT_EQ(place(window), 0);
    // A report that opens over it stops it.
    robot.always("scorecard", [](QWidget& card) {
      QTest::qWait(400);
      press(card, "accept");
    });
    press(window, "show_scorecard");
    EXPECT_EQ(control<QAbstractButton>(window, "play")->accessibleName(), QStringLiteral("Play"));
  });
}

TEST_F(Watch, WhatWasToldPassesByInTheBar) {
  play_match();
  recording_player player(read_recording(games_in(folder_).front().file), "played");
  watch([&](QWidget& window, Robot&) {
    const auto* frame = qobject_cast<Frame*>(window.window());
    ASSERT_NE(frame, nullptr);
    const std::optional<int> first = next_mark(player.index(), 0, ball_mark::milestone);
    ASSERT_TRUE(first);
    press(window, "next_milestone");
    const QString words = QString::fromStdString(player.index()[static_cast<std::size_t>(*first)].told.front());
    bool seen = false;
    for (const QLabel* label : frame->findChildren<QLabel*>()) seen |= label->text().contains(words.simplified());
    EXPECT_TRUE(seen) << words.toStdString();
  });
}

TEST_F(Watch, NobodyIsTheCaptainOfAMatchThatHasBeen) {
  play_match(4);
  recording_player player(read_recording(games_in(folder_).front().file), "played");
  watch([&](QWidget& window, Robot&) {
    press(window, "over_on");
    press(window, "ball_on");
    int choices = 0;
    for (const QRadioButton* choice : window.findChildren<QRadioButton*>()) {
      if (!choice->isVisible()) continue;
      ++choices;
      EXPECT_FALSE(choice->isEnabled()) << qPrintable(choice->objectName());
    }
    EXPECT_GT(choices, 20) << "aggressions and the attack";
    for (const char* name : {"next_over", "play_to", "change_bowler", "quit"}) {
      EXPECT_EQ(window.findChild<QWidget*>(QString::fromLatin1(name)), nullptr) << name;
    }
    EXPECT_FALSE(control<QWidget>(window, "take_back")->isVisible());
    control<QSlider>(window, "ball")->setValue(static_cast<int>(player.index().size()) - 1);
    EXPECT_FALSE(can(window, "ball_on")) << "it was left there";
    EXPECT_EQ(overs(window),
              QString::fromStdString(player.at(static_cast<int>(player.index().size()) - 1).overs_text()));
  });
}

TEST_F(Watch, EachMatchOfACompetitionIsOnOffer) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("series1", [](QWidget& window) {
      control<QLineEdit>(window, "matches")->setText("3");
      press(window, "accept");
    });
    choose(menu, "start_game", "new_series");
  });
  watch([&](QWidget& window, Robot&) {
    auto* matches = control<QComboBox>(window, "match");
    ASSERT_EQ(matches->count(), 3);
    EXPECT_EQ(matches->currentIndex(), 2) << "the last one";
    press(window, "innings_end");
    take_picture(window, "watch_series");
    const QString last = text_of(window);
    matches->setCurrentIndex(0);
    EXPECT_EQ(place(window), 0);
    EXPECT_TRUE(matches->itemText(0).startsWith(QStringLiteral("match 1: "))) << qPrintable(matches->itemText(0));
    press(window, "innings_end");
    EXPECT_EQ(control<QSlider>(window, "ball")->maximum(), place(window));
    EXPECT_NE(text_of(window), last) << "another match";
    window.window()->resize(smallest_screen);
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
    check_window(window);
  });
}

TEST_F(Watch, AFinishedGameOfTheCommandLineIsWatchedWhereItIs) {
  play_match();
  const std::filesystem::path elsewhere = folder_.parent_path() / "velorin-sent.velorin";
  std::filesystem::rename(games_in(folder_).front().file, elsewhere);
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("watch", pressing("close"));
    menu.open_game(QString::fromStdString(elsewhere.string()));
    EXPECT_EQ(user.robot.left(), 0);
  });
  EXPECT_TRUE(games_in(folder_).empty());
}

TEST_F(Watch, IsReachedByTypingItsName) {
  play_match();
  const QString name = QString::fromStdString(games_in(folder_).front().name);
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("jump", [&](QWidget& window) {
      control<QLineEdit>(window, "words")->setText(QStringLiteral("Watch ") + name);
      auto* found = control<QListWidget>(window, "found");
      ASSERT_EQ(found->count(), 1);
      press(window, "accept");
    });
    user.robot.next("watch", pressing("close"));
    QTest::keyClick(menu.window(), Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(user.robot.left(), 0);
  });
}

}  // namespace
}  // namespace velorin::testing
