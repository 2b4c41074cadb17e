// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>
#include <fstream>

#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

// Many matches by clicking in one run of the game, from one menu: captains of all kinds, teams in turn, every report
// read now and then. Nothing may grow. VELORIN_SOAK_MATCHES says how many.

namespace velorin::testing {
namespace {

int matches_wanted() {
  const char* told = std::getenv("VELORIN_SOAK_MATCHES");
  return told == nullptr ? 12 : std::atoi(told);
}

#ifdef VELORIN_SANITIZED
// Freed memory is kept back there.
constexpr bool memory_tells = false;
#else
constexpr bool memory_tells = true;
#endif

/// Memory of the process that is in use, in kilobytes.
long resident_memory() {
  std::ifstream in("/proc/self/statm");
  long all = 0;
  long resident = 0;
  in >> all >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

class DesktopSoak : public GameTest {
 protected:
  /// One match from the menu back to the menu.
  void play_match(MenuWindow& menu, ClickingUser& user, int number) {
    user.robot.next("teamfrm", [number](QWidget& window) {
      const int first = number % 10;
      ClickingUser::choose_match(window, first, (first + 1 + number / 10 % 9) % 10, number % 2 == 1, number % 4 >= 2);
      press(window, "accept");
    });
    if (number % 5 == 1) {
      for (const char* report : {"show_bowling", "show_partnerships", "show_overs_graph", "show_worm_graph"}) {
        user.robot.next("scorecard", pressing(report));
      }
    }
    choose(menu, "start_game", "new_match");
    // Everything that a window leaves to the event loop.
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
};

TEST_F(DesktopSoak, NothingGrowsOverManyMatches) {
  const int matches = matches_wanted();
  ASSERT_GE(matches, 10);
  const int warm_up = matches / 5;
  ClickingUser user;
  qsizetype windows = 0;
  long memory_early = 0;
  long memory_late = 0;
  std::size_t shown = 0;
  play([&](MenuWindow& menu) {
    for (int number = 1; number <= matches; ++number) {
      SCOPED_TRACE(number);
      match.result_margin.clear();
      play_match(menu, user, number);
      ASSERT_EQ(user.robot.left(), 0);
      ASSERT_NE(match.result_margin, "");
      ASSERT_TRUE(match.team1_name.empty()) << "the match was not reset";
      shown += user.books_shown.size();
      user.books_shown.clear();
      user.messages.clear();
      if (number == warm_up) {
        windows = QApplication::topLevelWidgets().size();
        memory_early = resident_memory();
      }
      if (number > warm_up) {
        ASSERT_EQ(QApplication::topLevelWidgets().size(), windows);
      }
    }
    memory_late = resident_memory();
  });
  EXPECT_GE(shown, 2U * static_cast<std::size_t>(matches));
  RecordProperty("memory_early_kb", static_cast<int>(memory_early));
  RecordProperty("memory_late_kb", static_cast<int>(memory_late));
  std::printf("%d matches; %ld kB after %d of them, %ld kB at the end; %d windows\n", matches, memory_early, warm_up,
              memory_late, static_cast<int>(windows));
  // The careers of all teams grow with the first matches, the caches of glyphs and styles with what has been shown.
  const long growth = matches < 100 ? 12 * 1024 : 2 * 1024;
  if (memory_tells) {
    EXPECT_LT(memory_late - memory_early, growth);
  }
}

}  // namespace
}  // namespace velorin::testing
