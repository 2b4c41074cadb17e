// SPDX-License-Identifier: GPL-3.0-or-later
// The recordings of tests/data/recordings were made by earlier builds. This one plays them to what is noted beside
// them: a line for each card at which play stopped and for each match, with the check of what was to be read there.
// Whoever changes what they play raises rules_version and puts recordings of his build in their place.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "headless/headless_user.h"
#include "recording/packing.h"
#include "recording/recording.h"
#include "recording/replay.h"
#include "reports/export.h"
#include "reports/scorecard.h"
#include "support/folder_contents.h"
#include "support/stopping_user.h"

namespace velorin::testing {
namespace {

const std::filesystem::path folder = std::filesystem::path(VELORIN_TEST_DATA) / "data" / "recordings";

/// Notes what there is to read of a recording.
class noting_watcher : public headless_user {
 public:
  explicit noting_watcher(const game_state& game) : headless_user(game.match), game_(game) {}

  using headless_user::show;
  void open(report) override {
    const match_state& match = game_.match;
    scorecard_form card(match);
    card.open();
    notes += fmt::format("{} {}/{} {:08x}\n", match.team1_name, match.score_runs, match.score_wickets,
                         crc_32(text_scorecard(match, card) + ball_by_ball(match, card)));
  }
  void match_ends() { notes += game_.match.result_winner + game_.match.result_margin + "\n"; }

  std::string notes;

 private:
  const game_state& game_;
};

std::string notes_of(const std::filesystem::path& file) {
  const recording recorded = read_recording(file);
  game_state game = game_at_beginning(recorded);
  noting_watcher watcher(game);
  replay_options options;
  options.watcher = &watcher;
  options.match_ends = [&](const game_state&) { watcher.match_ends(); };
  const match_state& match = game.match;
  if (replay(recorded, file.filename().string(), game, options) == replay_end::open) {
    watcher.notes += fmt::format("{} {}/{}, {} overs, goes on: {:08x}\n", match.team1_name, match.score_runs,
                                 match.score_wickets, match.overs_text(), crc_32(end_of(game)));
  }
  return watcher.notes;
}

class OfEarlierBuilds : public ::testing::TestWithParam<const char*> {};

TEST_P(OfEarlierBuilds, ARecordingPlaysAsItDid) {
  const std::filesystem::path file = folder / (std::string(GetParam()) + ".velorin");
  EXPECT_EQ(notes_of(file), file_bytes(folder / (std::string(GetParam()) + ".txt")));
}

INSTANTIATE_TEST_SUITE_P(Recordings, OfEarlierBuilds,
                         ::testing::Values("match", "attended", "tri_series", "world_cup", "series", "practice_fresh",
                                           "practice_same", "scripted", "by_clock", "within_an_over", "quit"),
                         [](const auto& name) { return std::string(name.param); });

}  // namespace
}  // namespace velorin::testing
