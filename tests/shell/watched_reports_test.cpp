// SPDX-License-Identifier: GPL-3.0-or-later
// Each report of a watched match reads, at each ball, as that of the match in play read at that ball.
#include <QAbstractItemView>
#include <QLabel>
#include <QMenu>
#include <QSlider>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <map>
#include <utility>

#include "desktop/preferences.h"
#include "forecast/forms/match_line_window.h"
#include "model/match_state.h"
#include "recording/kept_games.h"
#include "recording/recording_player.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// All that a window tells, seen or not: its words, its tables, and its charts in words.
QStringList told_by(const QWidget& window) {
  QStringList told = {window.objectName(), window.windowTitle()};
  for (const QLabel* label : window.findChildren<QLabel*>()) told << label->text();
  for (const QWidget* each : window.findChildren<QWidget*>()) told << each->accessibleDescription();
  for (const QAbstractItemView* view : window.findChildren<QAbstractItemView*>()) {
    const QAbstractItemModel& cells = *view->model();
    for (int row = 0; row < cells.rowCount(); ++row) {
      for (int column = 0; column < cells.columnCount(); ++column) {
        told << cells.index(row, column).data().toString();
      }
    }
  }
  return told;
}

class WatchedReports : public GameTest {
 protected:
  WatchedReports() {
    chance.use_clock();
    preferences::set_forecast(true);
  }
  ~WatchedReports() override { preferences::set_forecast(false); }

  /// Reads whatever opens into read_, and goes on from there to what the window leads to.
  void read_all(Robot& robot) {
    const auto reads = [this](std::initializer_list<const char*> leads_to) {
      return [this, leads_to = std::vector<const char*>(leads_to)](QWidget& window) {
        read_ << told_by(window);
        for (const char* name : leads_to) {
          const auto* button = window.findChild<QAbstractButton*>(QString::fromLatin1(name));
          if (button == nullptr || !button->isEnabled()) continue;
          press(window, name);
          if (window.objectName() == QStringLiteral("matchcentre")) read_ << told_by(window);
        }
        press(window, "accept");
      };
    };
    robot.always("scorecard", reads({"show_first_innings", "show_bowling", "show_partnerships"}));
    robot.always("scorecard2", reads({"show_bowling", "show_partnerships"}));
    robot.always("matchcentre", reads({"innings_1"}));
    for (const char* name : {"Bowlcard", "bowlcard2nd", "partners", "partners2", "graphs", "worms", "nextball"}) {
      robot.always(name, reads({}));
    }
    robot.always("matchline", [this](QWidget& window) {
      const auto& line = dynamic_cast<const MatchLineWindow&>(window);
      EXPECT_TRUE(QTest::qWaitFor([&] { return !line.is_working(); }, 60'000));
      read_ << told_by(window);
      press(window, "accept");
    });
  }

  /// What all reports tell now.
  QStringList reports(QWidget& window, bool with_line) {
    read_.clear();
    for (const char* name : {"show_scorecard", "show_worm", "show_overs_graph", "show_match_centre", "next_ball"}) {
      press(window, name);
    }
    if (with_line) press(window, "show_match_line");
    return read_;
  }

  /// By innings and the balls bowled in it.
  using Moment = std::pair<int, int>;
  static Moment moment_of(const match_state& now) {
    return {now.innings_number, static_cast<int>(now.deliveries.size())};
  }

  /// Plays a match as captain of the first team up to its second innings, and reads its reports now and then.
  void play_and_read(const std::filesystem::path& folder) {
    QtFrontEnd shown_by(tested_game, folder);
    play_shown_by(shown_by, [this](MenuWindow& menu) {
      ClickingUser user;
      read_all(user.robot);
      user.robot.next("teamfrm", [](QWidget& window) {
        ClickingUser::choose_match(window, 4, 7, true, false);
        press(window, "accept");
      });
      user.robot.always("keep_question", pressing("keep"));
      int visits = 0;
      user.robot.always("main", [&](QWidget& window) {
        ++visits;
        if (visits > 1 && !live_.contains(moment_of(match))) {
          const QStringList told = reports(window, live_.empty());
          // Between two dialogs of a skip the console opens nothing.
          if (!told.empty()) live_[moment_of(match)] = told;
        }
        if (match.innings_number == 2 && visits > 4 && match.deliveries.size() > 6) return press(window, "quit");
        if (visits == 1) return press(window, "next_over");
        press(window, "play_to");
        QMenu& ways = *control<QMenu>(window, "play_to_menu");
        // The next wicket, and once the end of the innings.
        auto* way = visits == 4 ? ways.actions().constLast() : ways.actions().constFirst();
        way->trigger();
        ways.close();
      });
      choose(menu, "start_game", "new_match");
    });
  }

  std::map<Moment, QStringList> live_;
  QStringList read_;
};

TEST_F(WatchedReports, ReadAsThoseOfTheMatchInPlayAtTheSameBall) {
  const QTemporaryDir place;
  const std::filesystem::path folder = std::filesystem::path(place.path().toStdString()) / "games";
  play_and_read(folder);
  ASSERT_GE(live_.size(), 2U);
  EXPECT_EQ(live_.begin()->first.first, 1);
  EXPECT_EQ(live_.rbegin()->first.first, 2);
  recording_player player(read_recording(games_in(folder).front().file), "played");
  QtFrontEnd shown_by(tested_game, folder);
  int compared = 0;
  play_shown_by(shown_by, [&](MenuWindow& menu) {
    Robot robot;
    robot.next("savedgames", pressing("watch"));
    robot.next("savedgames", pressing("close"));
    robot.next("watch", [&](QWidget& window) {
      read_all(robot);
      for (int ball = 0; ball < static_cast<int>(player.index().size()); ++ball) {
        const auto live = live_.find({player.index()[ball].innings, player.index()[ball].balls});
        if (live == live_.end()) continue;
        control<QSlider>(window, "ball")->setValue(0);
        if (player.index()[ball].innings == 2) press(window, "innings_2");
        control<QSlider>(window, "ball")->setValue(ball);
        const QStringList watched = reports(window, live == live_.begin());
        ASSERT_GT(watched.size(), 500);
        ASSERT_EQ(watched.size(), live->second.size());
        for (qsizetype i = 0; i < watched.size(); ++i) {
          ASSERT_EQ(watched[i], live->second[i]) << "at " << live->first.first << ", " << live->first.second;
        }
        ++compared;
      }
      press(window, "close");
    });
    press(menu, "saved_games");
  });
  EXPECT_EQ(compared, static_cast<int>(live_.size()));
}

}  // namespace
}  // namespace velorin::testing
