// SPDX-License-Identifier: GPL-3.0-or-later
// The pointer over an unattended match: busy while overs are bowled, free while a window waits for the user.
#include <optional>

#include "desktop/preferences.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

bool pointer_is_busy() {
  return QApplication::overrideCursor() != nullptr && QApplication::overrideCursor()->shape() == Qt::BusyCursor;
}

/// Looks at the pointer as each over of an unattended match begins, and as the match is over.
class WatchedFrontEnd : public QtFrontEnd {
 public:
  WatchedFrontEnd() : QtFrontEnd(tested_game) {}

  int busy_overs = 0;
  int idle_overs = 0;
  int busy_ends = 0;

  void progress(int over) override {
    QtFrontEnd::progress(over);
    ++(pointer_is_busy() ? busy_overs : idle_overs);
  }
  void progress_done() override {
    QtFrontEnd::progress_done();
    if (pointer_is_busy()) ++busy_ends;
  }
};

class BusyPointer : public GameTest {
 protected:
  BusyPointer() {
    user_.robot.at_sight([this](QWidget& window) {
      const std::string name = window.objectName().toStdString();
      EXPECT_FALSE(pointer_is_busy()) << name << " waits for the user";
      if (name == "scorecard" && overs_before_break_ == 0) overs_before_break_ = shown_by_.busy_overs;
    });
  }
  ~BusyPointer() override { EXPECT_EQ(QApplication::overrideCursor(), nullptr); }

  WatchedFrontEnd shown_by_;
  ClickingUser user_;
  int overs_before_break_ = 0;  ///< overs seen busy as the first card is shown
};

TEST_F(BusyPointer, GoesForTheWindowsOfAMatchAndComesBackWithItsOvers) {
  user_.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    press(window, "accept");
  });
  play_shown_by(shown_by_, [](MenuWindow& menu) {
    choose(menu, "start_game", "new_match");
    EXPECT_FALSE(pointer_is_busy()) << "at the menu";
  });
  EXPECT_EQ(user_.robot.met("scorecard"), 2);
  EXPECT_EQ(user_.messages.size(), 1U);
  EXPECT_GT(overs_before_break_, 0);
  EXPECT_GT(shown_by_.busy_overs, overs_before_break_) << "it comes back for the second innings";
  EXPECT_EQ(shown_by_.idle_overs, 0);
  EXPECT_EQ(shown_by_.busy_ends, 0);
}

TEST_F(BusyPointer, GoesForTheQuestionOfAFailedSave) {
  user_.robot.next("series1", pressing("accept"));
  const small_disk full(20'000);
  int asked = 0;
  user_.robot.always("save_failed", [&](QWidget& window) { press(window, ++asked == 1 ? "retry" : "go_on"); });
  int standings = 0;
  user_.robot.always("sri_result", [&](QWidget& window) {
    ++standings;
    press(window, "accept");
  });
  play_shown_by(shown_by_, [](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  EXPECT_GE(asked, 2);
  EXPECT_GE(standings, 1);
  EXPECT_GT(shown_by_.busy_overs, overs_before_break_);
  EXPECT_EQ(shown_by_.idle_overs, 0);
  EXPECT_EQ(shown_by_.busy_ends, 0);
}

}  // namespace
}  // namespace velorin::testing
