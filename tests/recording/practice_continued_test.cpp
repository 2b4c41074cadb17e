// SPDX-License-Identifier: GPL-3.0-or-later
// A practice match whose balls are taken back is the same when its recording is played again, and remembers its balls
// when it is gone on with.
#include <optional>
#include <utility>

#include "competitions/resume_game.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "recording/recorded_games.h"
#include "recording/replay.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"
#include "support/stopping_user.h"

namespace velorin::testing {
namespace {

/// The program ends here.
struct killed {};

/// Does in the console what a test says, and answers all else as the same man always would.
class PracticeCaptain : public headless_user {
 public:
  using headless_user::headless_user;
  using headless_user::show;
  std::function<void(console_form&)> in_console;
  void show(console_form& form) override { in_console(form); }
};

void play_on(console_form& form) {
  while (!form.closed()) form.bowl_next_over();
}

class PracticeContinued : public RecordedGames {
 protected:
  /// A game whose captain does this in the console; its recording so far.
  std::string play_practice(std::uint64_t seed, bool by_clock, const std::function<void(console_form&)>& in_console) {
    game_ = {};
    game_.data = files();
    by_clock ? game_.chance.use_clock() : game_.chance.use_seed(seed);
    PracticeCaptain captain(game_.match);
    captain.in_console = in_console;
    recording_in_memory kept;
    recorder recorded(captain, game_, kept, "test");
    new_match_form form({game_.match, game_.chance, recorded, game_.data});
    form.open();
    form.choose_first_team(1);
    form.choose_second_team(2);
    form.practice = true;
    form.computer_captains_first = false;
    try {
      form.accept();
      recorded.game_over();
    } catch (const killed&) {
    }
    return kept.bytes();
  }

  /// Goes on behind these bytes, as the console does, with the over in which it was left; the whole recording then.
  std::string go_on(const std::string& bytes, const std::function<void(console_form&)>& in_console) {
    const recording before = read_recording(bytes, "before");
    practice_history remembered;
    std::optional<game_state> game = game_to_continue(before, "before", files(), &remembered);
    if (!game) {
      ADD_FAILURE() << "nothing to go on with";
      return bytes;
    }
    game_ = *std::move(game);
    PracticeCaptain captain(game_.match);
    captain.in_console = [&](console_form& form) {
      if (form.has_over_in_play()) form.bowl_next_over();
      in_console(form);
    };
    recording_in_memory kept;
    recorder recorded(captain, game_, kept, "test");
    recorded.go_on_with(before, std::move(remembered));
    try {
      EXPECT_TRUE(resume_game(game_, recorded));
      recorded.game_over();
    } catch (const killed&) {
    }
    return bytes + kept.bytes();
  }

  /// The recording plays the game that was played.
  void expect_same_again(const std::string& bytes) const {
    const recording whole = read_recording(bytes, "whole");
    game_state again = game_at_beginning(whole);
    ASSERT_EQ(replay(whole, "whole", again), replay_end::over);
    EXPECT_EQ(end_of(again), end_of(game_));
  }

  open_database files() const {
    open_database fresh = data;
    fresh.files.elevens_in_memory = true;
    fresh.files.updates = false;
    return fresh;
  }

  game_state game_;
};

TEST_F(PracticeContinued, OversBeforeTheStopCanBeTakenBackWithTheSameLuck) {
  for (const bool by_clock : {false, true}) {
    SCOPED_TRACE(by_clock);
    delivery_list first;
    const std::string before = play_practice(3, by_clock, [&](console_form& form) {
      for (int over = 0; over < 12; ++over) form.bowl_next_over();
      first = game_.match.deliveries;
      throw killed{};
    });
    const std::string whole = go_on(before, [&](console_form& form) {
      EXPECT_EQ(game_.match.deliveries, first);
      for (int over = 0; over < 5; ++over) form.take_back(taken_back::over, luck::same);
      EXPECT_EQ(overs_closed(game_.match), 7);
      for (int over = 0; over < 5; ++over) form.bowl_next_over();
      EXPECT_EQ(game_.match.deliveries, first) << "the same luck";
      while (form.can_take_back()) form.take_back(taken_back::over, luck::same);
      EXPECT_TRUE(game_.match.deliveries.empty()) << "back to the first ball";
      for (int over = 0; over < 12; ++over) form.bowl_next_over();
      EXPECT_EQ(game_.match.deliveries, first);
      for (int over = 0; over < 8; ++over) form.take_back(taken_back::over, luck::fresh);
      for (int over = 0; over < 8; ++over) form.bowl_next_over();
      EXPECT_NE(game_.match.deliveries, first) << "fresh luck";
      play_on(form);
    });
    expect_same_again(whole);
  }
}

TEST_F(PracticeContinued, WithinAnOverAndOverTheEndOfAnInnings) {
  for (const bool by_clock : {false, true}) {
    SCOPED_TRACE(by_clock);
    delivery_list innings;
    std::string bytes = play_practice(5, by_clock, [&](console_form& form) {
      while (game_.match.innings_number == 1) form.bowl_next_over();
      innings = game_.match.first_deliveries;
      for (int ball = 0; ball < 3; ++ball) form.bowl_ball();
      throw killed{};
    });
    bytes = go_on(bytes, [&](console_form& form) {
      for (int over = 0; over < 2; ++over) form.take_back(taken_back::over, luck::same);
      EXPECT_EQ(game_.match.innings_number, 1);
      form.bowl_next_over();
      EXPECT_EQ(game_.match.innings_number, 2);
      EXPECT_EQ(game_.match.first_deliveries, innings);
      form.bowl_ball();
      throw killed{};
    });
    bytes = go_on(bytes, [&](console_form& form) {
      form.take_back(taken_back::over, luck::fresh);
      form.take_back(taken_back::ball, luck::fresh);
      EXPECT_EQ(game_.match.innings_number, 1);
      play_on(form);
    });
    expect_same_again(bytes);
  }
}

TEST_F(PracticeContinued, StoppedRightAfterItWasTakenBack) {
  for (const luck wanted : {luck::same, luck::fresh}) {
    for (const bool by_clock : {false, true}) {
      SCOPED_TRACE(::testing::Message() << "fresh " << (wanted == luck::fresh) << ", by the clock " << by_clock);
      std::string bytes = play_practice(7, by_clock, [&](console_form& form) {
        for (int over = 0; over < 3; ++over) form.bowl_next_over();
        form.take_back(taken_back::over, wanted);
        throw killed{};
      });
      bytes = go_on(bytes, [&](console_form& form) {
        EXPECT_EQ(overs_closed(game_.match), 2);
        form.bowl_next_over();
        form.take_back(taken_back::ball, wanted);
        throw killed{};
      });
      bytes = go_on(bytes, play_on);
      expect_same_again(bytes);
    }
  }
}

TEST_F(PracticeContinued, HoweverOftenItIsTakenBackAndGoneOnWith) {
  for (std::uint64_t seed = 1; seed <= 8; ++seed) {
    SCOPED_TRACE(seed);
    const bool by_clock = seed % 2 == 0;
    random_source own;
    own.use_seed(seed);
    const auto at_random = [&](console_form& form) {
      while (!form.closed()) {
        switch (die(own, 12)) {
          case 1:
          case 2:
            form.take_back(die(own, 2) == 1 ? taken_back::ball : taken_back::over,
                           die(own, 2) == 1 ? luck::same : luck::fresh);
            break;
          case 3:
            form.bowl_ball();
            break;
          case 4:
            form.set_batsman_aggression(0, die(own, 5));
            break;
          case 5:
            if (die(own, 4) == 1) throw killed{};
            break;
          default:
            form.bowl_next_over();
        }
      }
    };
    std::string bytes = play_practice(seed, by_clock, at_random);
    int stops = 0;
    for (; !read_recording(bytes, "stopped").ended(); ++stops) {
      ASSERT_LT(stops, 200);
      bytes = go_on(bytes, at_random);
      if (HasFailure()) return;
    }
    expect_same_again(bytes);
    if (HasFailure()) return;
  }
}

}  // namespace
}  // namespace velorin::testing
