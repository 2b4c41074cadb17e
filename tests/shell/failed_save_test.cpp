// SPDX-License-Identifier: GPL-3.0-or-later
// Saves that fail while the game is played by clicking, and other programs that keep the folder.
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QLabel>
#include <QTimer>
#include <chrono>

#include "competitions/world_cup.h"
#include "database/folder_lock.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// A program that has stopped in the middle of its turn at a folder.
class stopped_program {
 public:
  explicit stopped_program(const std::filesystem::path& folder) {
    int ready[2] = {};
    EXPECT_EQ(::pipe(ready), 0);
    process_ = ::fork();
    if (process_ == 0) {
      const folder_lock turn(folder / "f", nullptr);
      if (::write(ready[1], "x", 1) != 1) ::_exit(1);
      ::raise(SIGSTOP);
      ::_exit(0);
    }
    char signal = 0;
    EXPECT_EQ(::read(ready[0], &signal, 1), 1);
    ::close(ready[0]);
    ::close(ready[1]);
    int status = 0;
    EXPECT_EQ(::waitpid(process_, &status, WUNTRACED), process_);
    EXPECT_TRUE(WIFSTOPPED(status));
  }
  ~stopped_program() { go_on(); }
  stopped_program(const stopped_program&) = delete;
  stopped_program& operator=(const stopped_program&) = delete;

  /// Lets it come to its end.
  void go_on() {
    if (process_ == 0) return;
    ::kill(process_, SIGCONT);
    ::waitpid(std::exchange(process_, 0), nullptr, 0);
  }

 private:
  pid_t process_ = 0;
};

class FailedSave : public GameTest {
 protected:
  /// Answers the form of a World Cup of computer sides.
  static void enter_cup(ClickingUser& user) {
    user.robot.next("wctable", [](QWidget& window) { press(window, "accept"); });
  }
  static void play_cup(MenuWindow& menu) { choose(menu, "start_game", "world_cup"); }
  static void enter_match(ClickingUser& user) {
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 0, 1, false, false);
      press(window, "accept");
    });
  }
  static void play_match(MenuWindow& menu) { choose(menu, "start_game", "new_match"); }
  /// Another program takes its turn at the folder as the match ends, and stops.
  void stop_at_the_end(ClickingUser& user, std::optional<stopped_program>& other) const {
    user.robot.always("message", [this, &other](QWidget& window) {
      if (window.windowTitle() == "End of Match") other.emplace(database_.folder());
      press(window, "accept");
    });
  }
};

TEST_F(FailedSave, AWorldCupOnAFullDiskGoesOnOnceThereIsRoom) {
  preferences::set_plays_without_stopping("wctable", true);
  std::vector<std::string> undisturbed;
  std::string winner;
  {
    ClickingUser user;
    enter_cup(user);
    play(play_cup);
    undisturbed = lasting_files();
    winner = world_cup.grand_final.winner;
  }
  begin_again_with_seed(1);
  ClickingUser user;
  enter_cup(user);
  // There is no room for careers any more, from the first match on.
  std::optional<small_disk> full(20'000);
  int failures = 0;
  user.robot.always("save_failed", [&](QWidget& window) {
    const QString text = control<QLabel>(window, "text")->text();
    EXPECT_TRUE(text.startsWith("The file cannot be written: File too large (file world.")) << text.toStdString();
    if (++failures == 2) full.reset();
    press(window, "retry");
  });
  play(play_cup);
  EXPECT_EQ(failures, 2);
  EXPECT_EQ(world_cup.grand_final.winner, winner);
  EXPECT_TRUE(lasting_files() == undisturbed) << "every match has been added once";
}

TEST_F(FailedSave, AWorldCupCanBePlayedWithoutSaving) {
  preferences::set_plays_without_stopping("wctable", true);
  ClickingUser user;
  enter_cup(user);
  const small_disk full(20'000);
  user.robot.always("save_failed", pressing("go_on"));
  play(play_cup);
  EXPECT_EQ(user.robot.met("save_failed"), 32) << "each match asks";
  EXPECT_FALSE(world_cup.grand_final.winner.empty());
  EXPECT_TRUE(lasting_files()[0].empty());
}

TEST_F(FailedSave, AStoppedProgramDoesNotFreezeTheGame) {
  ClickingUser user;
  enter_match(user);
  std::optional<stopped_program> other;
  stop_at_the_end(user, other);
  int events = 0;
  QTimer ticking;
  QObject::connect(&ticking, &QTimer::timeout, [&] { ++events; });
  std::chrono::steady_clock::time_point waits_since;
  user.robot.always("waiting", [&](QWidget& window) {
    if (ticking.isActive()) return;
    const QString text = control<QLabel>(window, "text")->text();
    EXPECT_TRUE(text.contains(QString::fromStdString(database_.folder().string()))) << text.toStdString();
    check_window(window);
    take_picture(window, "waiting");
    waits_since = std::chrono::steady_clock::now();
    ticking.start(10);
  });
  user.robot.next("save_failed", [&](QWidget& window) {
    EXPECT_LT(std::chrono::steady_clock::now() - waits_since, std::chrono::seconds(13));
    EXPECT_GT(events, 50) << "the screen is kept alive";
    ticking.stop();
    EXPECT_TRUE(control<QLabel>(window, "text")->text().startsWith("Another program has kept the folder"));
    other->go_on();
    press(window, "retry");
  });
  play(play_match);
  EXPECT_EQ(user.robot.left(), 0);
  EXPECT_GT(lasting_files()[0].size(), 0U) << "the match has been played and saved";
}

TEST_F(FailedSave, AShortWaitAsksNothing) {
  ClickingUser user;
  enter_match(user);
  std::optional<stopped_program> other;
  stop_at_the_end(user, other);
  user.robot.always("waiting", [&](QWidget&) { other->go_on(); });
  play(play_match);
  EXPECT_GT(user.robot.met("waiting"), 0);
  EXPECT_EQ(user.robot.met("save_failed"), 0);
  EXPECT_GT(lasting_files()[0].size(), 0U);
}

}  // namespace
}  // namespace velorin::testing
