// SPDX-License-Identifier: GPL-3.0-or-later
// Plays a game to its end by clicking in the windows of the game: killed_player HOME KIND SEED
//
// HOME has the database "world" in teams, and keeps games and preferences. KIND is match, series, tri or cup. What is
// answered follows from the question and from the match alone. Where a game waits it goes on, where one is over it has
// nothing to do, else it begins one; seed 0 is the clock. Ends with 0 when the game is over. The first window behind
// "Continue" is noted in HOME/seen, a line each; innings and deliveries at every window that has shown them in
// HOME/shown.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "archive/archive_keeper.h"
#include "database/file_calls.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"
#include "recording/kept_games.h"
#include "shell/clicking_user.h"
#include "shell/game_keeper.h"
#include "shell/menu_window.h"
#include "shell/qt_front_end.h"
#include "support/game_in_play.h"

namespace {

using namespace velorin;
using namespace velorin::testing;

void press_if_in_reach(const QWidget& window, const QString& name) {
  auto* button = window.findChild<QAbstractButton*>(name);
  if (button != nullptr && button->isVisible() && button->isEnabled()) button->click();
}

/// The level that a man has in this over, by his slot.
int wanted_level(int slot) { return 1 + (match.innings_balls / 6 + 2 * slot + match.innings_number) % 5; }

void play_over(QWidget& window) {
  // An over that was left on its way goes on by itself.
  if (match.next_step != play_step::between_overs) return;
  for (int slot = 0; slot < 2; ++slot) {
    const int level = wanted_level(slot);
    const auto place = static_cast<std::size_t>(slot);
    if (!match.computer_bats && match.batsman_aggression[place] != level) {
      press_if_in_reach(window, QStringLiteral("batsman_level_%1_%2").arg(slot).arg(level));
    }
    if (!match.computer_bowls && match.bowling_aggression[place] != level) {
      press_if_in_reach(window, QStringLiteral("bowler_level_%1_%2").arg(slot).arg(level));
    }
  }
  press(window, "next_over");
}

void lay_down_entries(Robot& robot) {
  robot.always("main", play_over);
  robot.always("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, false);
    press(window, "accept");
  });
  robot.always("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("2"));
    press(window, "home_human");
    press(window, "accept");
  });
  robot.always("series2", [](QWidget& window) {
    press(window, "third_human");
    press(window, "accept");
  });
  robot.always("wctable", [](QWidget& window) {
    press(window, "group_a_human_2");
    press(window, "accept");
  });
}

const char* entry_of(const std::string& kind) {
  if (kind == "series") return "new_series";
  if (kind == "tri") return "tri_series";
  return kind == "cup" ? "world_cup" : "new_match";
}

class Player {
 public:
  Player(std::filesystem::path home, std::string kind)
      : home_(std::move(home)), kind_(std::move(kind)), shown_(home_ / "shown", std::ios::app) {
    lay_down_entries(user_.robot);
    user_.robot.at_sight([this](QWidget& window) { note(window); });
  }

  void play(MenuWindow& menu) {
    auto* waits = control<QAbstractButton>(menu, "continue");
    if (waits->isVisible()) {
      comes_back_ = true;
      return waits->click();
    }
    const std::vector<kept_game> games = games_in(home_ / "games");
    if (std::any_of(games.begin(), games.end(), [](const kept_game& game) { return game.over; })) return;
    press(menu, "start_game");
    press(menu, entry_of(kind_));
  }

 private:
  void note(const QWidget& window) {
    shown_ << match.innings_number << ' ' << match.deliveries.size() << std::endl;
    const std::string name = window.objectName().toStdString();
    if (!comes_back_ || name == "Progressbar" || name == "unstopped") return;
    comes_back_ = false;
    std::ofstream(home_ / "seen", std::ios::app) << name << std::endl;
  }

  std::filesystem::path home_;
  std::string kind_;
  std::ofstream shown_;
  ClickingUser user_;
  bool comes_back_ = false;
};

int play(const std::filesystem::path& home, const std::string& kind, std::uint64_t seed) {
  preferences::set_pace(Pace::instant);
  for (const char* form : {"series1", "series2", "wctable"}) preferences::set_plays_without_stopping(form, false);
  archive_keeper keeper;
  data.files = database_paths(home / "teams", "world");
  data.files.keeper = &keeper;
  use_database(data, "world");
  data.files.updates = true;
  seed == 0 ? chance.use_clock() : chance.use_seed(seed);
  bool failed = false;
  on_failure([&](const std::exception& failure) {
    std::fprintf(stderr, "killed_player: %s\n", failure.what());
    failed = true;
    end_program(1);
  });
  QtFrontEnd shown_by(tested_game, home / "games");
  const front_end_scope in_use(shown_by);
  Frame frame;
  MenuWindow menu(shown_by, &frame);
  frame.show();
  menu.show();
  Player player(home, kind);
  QTimer::singleShot(0, &menu, [&] {
    menu.start();
    player.play(menu);
    end_program(0);
  });
  QApplication::exec();
  return failed || ::testing::UnitTest::GetInstance()->ad_hoc_test_result().Failed() ? 1 : 0;
}

}  // namespace

int main(int count, char** words) {
  ::testing::InitGoogleTest(&count, words);
  if (count != 4 || !prepare_process()) return 2;
  const std::filesystem::path home = words[1];
  if (qEnvironmentVariableIsEmpty("XDG_RUNTIME_DIR")) qputenv("XDG_RUNTIME_DIR", home.c_str());
  QApplication application(count, words);
  QApplication::setQuitOnLastWindowClosed(false);
  preferences::use_file(QString::fromStdString((home / "preferences.ini").string()));
  apply_theme(Appearance::light);
  return play(home, words[2], std::strtoull(words[3], nullptr, 10));
}
