// SPDX-License-Identifier: GPL-3.0-or-later
// The recordings of matches, kept with them.
#include <memory>

#include "archive/archive_fixture.h"
#include "competitions/game_state.h"
#include "competitions/series.h"
#include "database/match_keeper.h"
#include "headless/headless_user.h"
#include "recording/recorder.h"
#include "recording/replay.h"
#include "setup/new_match.h"

namespace velorin::testing {
namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr int matches_of_series = 5;

class ArchiveRecordings : public ArchiveTest {
 protected:
  /// A series with updates, which is recorded; the bytes of its whole recording.
  std::string play_recorded_series() const {
    archive_keeper keeper;
    const auto game = std::make_unique<game_state>();
    game->data.files = files();
    game->data.files.keeper = &keeper;
    game->data.files.updates = true;
    game->data.files.elevens_in_memory = true;
    game->chance.use_seed(5);
    headless_user user(game->match);
    recording_in_memory bytes;
    recorder recording(user, *game, bytes, "test");
    series_form form({game->match, game->chance, recording, game->data}, game->series);
    form.open();
    form.choose_home(0);
    form.choose_away(1);
    form.set_matches(matches_of_series);
    form.accept();
    recording.game_over();
    return bytes.bytes();
  }
};

TEST_F(ArchiveRecordings, AreTheBytesOfTheRecordedMatch) {
  text({"--seed", "8", "match", "--update", "--quiet", "--record", file("as-recorded")});
  text({"archive", "record", "1", file("as-kept")});
  EXPECT_TRUE(file_bytes(file("as-kept")) == file_bytes(file("as-recorded")));
  EXPECT_EQ(text({"replay", file("as-kept")}), text({"--seed", "8", "match"}));
}

TEST_F(ArchiveRecordings, AMatchWithoutOneIsNamed) {
  play("3", 1);
  EXPECT_EQ(error(1, {"archive", "record", "1", file("none")}), "velorin-cli: Match 1 has no recording");
  EXPECT_EQ(error(1, {"archive", "record", "2", file("none")}), "velorin-cli: No match 2 in the archive");
  EXPECT_FALSE(std::filesystem::exists(file("none")));
}

TEST_F(ArchiveRecordings, OfASeriesEndWithTheirMatch) {
  const std::string whole = play_recorded_series();
  const std::vector<archived_match> kept = archived_matches();
  ASSERT_EQ(kept.size(), matches_of_series);
  for (int number = 1; number <= matches_of_series; ++number) {
    SCOPED_TRACE(number);
    const archived_match& match = kept[static_cast<std::size_t>(number) - 1];
    EXPECT_EQ(match.number, number);
    EXPECT_THAT(match.key, EndsWith("-" + std::to_string(number)));
    const recording recorded = read_recording(match.recording, "kept");
    EXPECT_TRUE(recorded.ended());
    const auto game = std::make_unique<game_state>(game_at_beginning(recorded));
    std::vector<std::string> winners;
    int last_total = 0;
    replay_options options;
    options.match_ends = [&](const game_state& now) {
      winners.push_back(now.match.result_winner);
      last_total = now.match.score_runs;
    };
    EXPECT_EQ(replay(recorded, "kept", *game, options), replay_end::over);
    ASSERT_EQ(winners.size(), static_cast<std::size_t>(number));
    EXPECT_EQ(winners.back(), match.winner);
    EXPECT_EQ(last_total, match.innings[1].runs);
  }
  EXPECT_LT(kept.front().recording.size(), kept.back().recording.size());
  EXPECT_LE(kept.back().recording.size(), whole.size());
}

TEST_F(ArchiveRecordings, WhatTheMatchesOfASeriesShareStandsOnce) {
  const std::string whole = play_recorded_series();
  change("CREATE TABLE told AS SELECT sum(length(bytes)) AS bytes FROM recording");
  change("UPDATE match_row SET human = human + (SELECT bytes FROM told)");
  const json listed = json::parse(text({"query", "matches", "--json"}));
  const long stored = listed.at("rows").at(0).at(16).get<long>();
  EXPECT_LT(stored, static_cast<long>(whole.size()) + 100 * matches_of_series);
}

TEST_F(ArchiveRecordings, RebuildFigures) {
  play_recorded_series();
  const std::vector<archived_match> before = archived_matches();
  change("UPDATE innings_row SET runs = runs + 1, noted_wickets = 0");
  change("UPDATE batting_row SET runs = 7, balls = 3");
  EXPECT_EQ(run({"archive", "check"}).status, 1);
  const run_result rebuilt = run({"archive", "rebuild"});
  EXPECT_EQ(rebuilt.status, 0);
  EXPECT_EQ(rebuilt.err, "5 matches played again from their recordings\n");
  EXPECT_THAT(differences(), IsEmpty());
  const std::vector<archived_match> after = archived_matches();
  ASSERT_EQ(after.size(), before.size());
  for (std::size_t i = 0; i < after.size(); ++i) {
    EXPECT_EQ(after[i].key, before[i].key);
    EXPECT_EQ(after[i].played_at, before[i].played_at);
    EXPECT_TRUE(after[i].recording == before[i].recording) << i;
    EXPECT_EQ(after[i].stage, before[i].stage);
    EXPECT_EQ(after[i].innings[0].batting[0].runs, before[i].innings[0].batting[0].runs);
  }
}

TEST_F(ArchiveRecordings, ADamagedOneLeavesTheFiguresAsTheyAre) {
  text({"--seed", "8", "match", "--update", "--quiet", "--record", file("as-recorded")});
  change("UPDATE recording SET bytes = x'00'");
  const run_result rebuilt = run({"archive", "rebuild"});
  EXPECT_EQ(rebuilt.status, 0);
  EXPECT_THAT(rebuilt.err, StartsWith("Match 1 keeps its figures: "));
  EXPECT_THAT(rebuilt.err, HasSubstr("\n0 matches played again"));
  EXPECT_THAT(differences(), IsEmpty());
}

TEST_F(ArchiveRecordings, AMatchOfPracticeIsInNone) {
  archive_keeper keeper;
  const auto game = std::make_unique<game_state>();
  game->data.files = files();
  game->data.files.keeper = &keeper;
  game->data.files.updates = true;
  game->data.files.elevens_in_memory = true;
  game->chance.use_seed(5);
  headless_user user(game->match);
  recording_in_memory bytes;
  recorder recording(user, *game, bytes, "test");
  new_match_form form({game->match, game->chance, recording, game->data});
  form.open();
  form.practice = true;
  form.accept();
  EXPECT_NE(game->match.result_ground, "");
  EXPECT_EQ(error(1, {"archive", "list"}),
            "velorin-cli: There is no archive yet: no match has been added (file small.matches)");
  EXPECT_FALSE(std::filesystem::exists(files().career_file) && std::filesystem::file_size(files().career_file) > 0);
  EXPECT_FALSE(std::filesystem::exists(waiting_file(files())));
}

}  // namespace
}  // namespace velorin::testing
