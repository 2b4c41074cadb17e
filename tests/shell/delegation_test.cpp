// SPDX-License-Identifier: GPL-3.0-or-later
// What a captain leaves to the computer: nobody asks him for it, he can have it back at any time, and the recording of
// such a game plays it again to the byte.
#include <QCheckBox>
#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <utility>

#include "desktop/preferences.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"
#include "recording/kept_games.h"
#include "recording/recording.h"
#include "recording/replay.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/term_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class Delegation : public GameTest {
 protected:
  Delegation() { preferences::set_delegated({}); }
  ~Delegation() override { preferences::set_delegated({}); }

  /// Plays a match as captain of the first team; returns its books at the end.
  std::string play_match(ClickingUser& user) {
    QtFrontEnd shown_by(tested_game, folder_);
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    play_shown_by(shown_by, [&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
    return user.books_shown.back();
  }

  /// The books that the recording of the one game kept comes to.
  std::string books_played_again() const {
    const auto kept = games_in(folder_);
    EXPECT_EQ(kept.size(), 1U);
    const recording recorded = read_recording(kept.front().file);
    const auto game = std::make_unique<game_state>(game_at_beginning(recorded));
    std::string read;
    const match_state before = match;
    EXPECT_EQ(replay(recorded, "kept", *game,
                     {.match_ends =
                          [&](const game_state& played) {
                            match = played.match;
                            read = books();
                          }}),
              replay_end::over);
    match = before;
    return read;
  }

 private:
  QTemporaryDir place_;
  std::filesystem::path folder_ = std::filesystem::path(place_.path().toStdString()) / "games";
};

TEST_F(Delegation, NobodyAsksForWhatIsLeftToTheComputer) {
  preferences::set_delegated({.toss = true, .line_up = true, .bowling = true, .aggressions = true});
  ClickingUser user;
  int aggressions = 0;
  int overs = 0;
  user.robot.always("main", [&](QWidget& window) {
    const int slot = 0;
    const bool bats = !match.computer_bats;
    const int level = bats ? match.batsman_aggression[slot] : match.bowling_aggression[slot];
    aggressions += level == 3 ? 0 : 1;
    ++overs;
    press(window, "next_over");
  });
  const std::string books = play_match(user);
  for (const char* asked : {"Teamsel", "toss", "batorder", "chgbowler", "aggr"}) {
    EXPECT_EQ(user.robot.met(asked), 0) << asked;
  }
  EXPECT_GT(overs, 20);
  EXPECT_GT(aggressions, overs / 4) << "a captain's stay where they began";
  EXPECT_EQ(preferences::delegated(), (Delegated{true, true, true, true}));
  EXPECT_EQ(books_played_again(), books);
}

TEST_F(Delegation, WhatIsChangedByHandIsTheCaptainsAgain) {
  preferences::set_delegated({.toss = true, .line_up = true, .bowling = true, .aggressions = true});
  ClickingUser user;
  int overs = 0;
  user.robot.next("captaincy", [](QWidget& window) {
    EXPECT_FALSE(control<QCheckBox>(window, "leave_aggressions")->isChecked());
    EXPECT_TRUE(control<QCheckBox>(window, "leave_bowling")->isChecked());
    check_controls(window);
    check_terms(window);
    check_window_at_sizes(window);
    take_picture(window, "captaincy");
    press(window, "leave_line_up");
    press(window, "accept");
  });
  user.robot.always("keep_question", pressing("discard"));
  user.robot.always("main", [&](QWidget& window) {
    if (++overs == 3) {
      const bool bats = !match.computer_bats;
      const int now = bats ? match.batsman_aggression[0] : match.bowling_aggression[0];
      const QString level = QString::number(now == 5 ? 1 : 5);
      for (QAbstractButton* segment : window.findChildren<QAbstractButton*>()) {
        if (segment->isEnabled() && segment->isVisible() && segment->objectName().endsWith('_' + level) &&
            segment->inherits("velorin::LevelSegment")) {
          segment->click();
          break;
        }
      }
      EXPECT_EQ(preferences::delegated(), (Delegated{true, true, true, false}));
      press(window, "captaincy");
      EXPECT_EQ(preferences::delegated(), (Delegated{true, false, true, false}));
    }
    press(window, overs < 6 ? "next_over" : "quit");
  });
  QTemporaryDir place;
  QtFrontEnd shown_by(tested_game, std::filesystem::path(place.path().toStdString()) / "games");
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 4, 7, true, false);
    press(window, "accept");
  });
  play_shown_by(shown_by, [&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  EXPECT_EQ(user.robot.met("captaincy"), 1);
}

TEST_F(Delegation, ChoicesLeftOneByOneAreRecordedAsTheCaptains) {
  ClickingUser user;
  int left = 0;
  user.robot.always("batorder", [&](QWidget& window) {
    press(window, "leave_to_computer");
    ++left;
    press(window, "accept");
  });
  user.robot.always("chgbowler", [&](QWidget& window) {
    press(window, "leave_to_computer");
    ++left;
    for (const char* ok : {"accept_change", "accept_first_opener", "accept_second_opener"}) {
      const auto* button = window.findChild<QAbstractButton*>(QString::fromLatin1(ok));
      if (button != nullptr && button->isVisible()) return press(window, ok);
    }
  });
  const std::string books = play_match(user);
  EXPECT_GT(left, 5);
  EXPECT_EQ(books_played_again(), books);
}

}  // namespace
}  // namespace velorin::testing
