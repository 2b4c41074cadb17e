// SPDX-License-Identifier: GPL-3.0-or-later
// Makes the recordings that later builds must play: with VELORIN_KEEP_RECORDINGS=FOLDER they are written there, and
// belong into tests/data/recordings with what the test of earlier builds notes of them.
#include <cstdlib>
#include <fstream>
#include <string>
#include <vector>

#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "recording/recorded_games.h"
#include "recording/replay.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// Leads the console as a test says.
class ConsoleCaptain : public headless_user {
 public:
  using headless_user::headless_user;
  using headless_user::show;
  std::function<void(console_form&)> in_console;
  void show(console_form& form) override { in_console(form); }
};

/// Takes back as a user does: balls and overs, also over the start of an over.
void take_back_now_and_then(console_form& form, luck wanted) {
  for (int round = 0; !form.closed(); ++round) {
    form.bowl_next_over();
    if (form.closed() || round % 4 != 3) continue;
    form.take_back(taken_back::over, wanted);
    form.bowl_ball();
    form.bowl_ball();
    form.take_back(taken_back::ball, wanted);
    form.bowl_next_over();
    form.take_back(taken_back::ball, wanted);
    form.take_back(taken_back::over, wanted);
  }
}

class KeptRecordings : public RecordedGames {
 protected:
  std::string practice(luck wanted, std::uint64_t seed) {
    return attended(
        true, [&](random_source& own) { own.use_seed(seed); },
        [&](console_form& form) { take_back_now_and_then(form, wanted); });
  }

  /// A match whose first side somebody leads.
  std::string attended(bool is_practice, const std::function<void(random_source&)>& lay_down,
                       const std::function<void(console_form&)>& in_console) {
    game_state game;
    game.data = data;
    game.data.files.elevens_in_memory = true;
    game.data.files.updates = false;
    lay_down(game.chance);
    ConsoleCaptain captain(game.match);
    captain.in_console = in_console;
    recording_in_memory kept;
    recorder recorded(captain, game, kept, "test");
    new_match_form form({game.match, game.chance, recorded, game.data});
    form.open();
    form.choose_first_team(1);
    form.choose_second_team(2);
    form.practice = is_practice;
    form.computer_captains_first = false;
    form.accept();
    recorded.game_over();
    return kept.bytes();
  }
};

/// Cut off where a ball of an over has been bowled and others of it have not.
std::string broken_off(const std::string& whole) {
  for (std::size_t length = whole.size() * 2 / 3; length < whole.size(); ++length) {
    const recording cut = read_recording(whole.substr(0, length), "cut");
    if (cut.whole_bytes != length) continue;
    game_state game = game_at_beginning(cut);
    if (replay(cut, "cut", game) == replay_end::open && game.match.innings_balls % balls_of_over != 0) {
      return whole.substr(0, length);
    }
  }
  return {};
}

TEST_F(KeptRecordings, AreWrittenWhereAFolderIsNamed) {
  const char* named = std::getenv("VELORIN_KEEP_RECORDINGS");
  if (named == nullptr) GTEST_SKIP() << "VELORIN_KEEP_RECORDINGS names no folder";
  const auto keep = [named](const char* name, const std::string& bytes) {
    ASSERT_FALSE(bytes.empty()) << name;
    std::ofstream(std::filesystem::path(named) / (std::string(name) + ".velorin"), std::ios::binary) << bytes;
  };
  const auto plays_on = [](console_form& form) {
    while (!form.closed()) form.bowl_next_over();
  };
  keep("series", play(series_of(3, 3, 31)).bytes);
  keep("practice_fresh", practice(luck::fresh, 32));
  keep("practice_same", practice(luck::same, 33));
  const auto script = [](random_source& own) {
    random_source from;
    from.use_seed(34);
    std::vector<double> draws(6000);
    for (double& draw : draws) draw = from.rnd();
    own.use_script(draws, "draws");
  };
  keep("scripted", attended(false, script, plays_on));
  game_to_play by_clock = match_of(1, 2, 3, 35);
  by_clock.by_clock = true;
  const std::string clocked = play(by_clock).bytes;
  keep("by_clock", clocked);
  keep("within_an_over", broken_off(clocked));
  game_to_play quit = world_cup_of(1, 36);
  quit.quits_one_in = 4;
  keep("quit", play(quit).bytes);
}

}  // namespace
}  // namespace velorin::testing
