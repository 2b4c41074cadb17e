// SPDX-License-Identifier: GPL-3.0-or-later
// Many matches of the bundled database from the choice of teams to the result, each checked after every ball; now and
// then a match is played again from a fresh state, and must be the same.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <string>

#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/random.h"
#include "reports/export.h"
#include "reports/scorecard.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"
#include "support/referee.h"
#include "support/soak_run.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

constexpr int replay_every = 200;

/// Watches a match and, when told so, writes down all that its end shows.
class watching_user : public test_user {
 public:
  referee* watch = nullptr;
  bool notes = false;
  std::string noted;
  int results = 0;

  using headless_user::show;
  void ball_bowled() override { watch->watch_ball(); }
  void open(report) override {
    watch->watch_innings_end();
    if (notes) note_innings();
  }
  void show(const message_box& message) override {
    results += message.title == "End of Match" ? 1 : 0;
    if (notes) noted += message.title + "|" + message.text + "\n";
  }

 private:
  void note_innings() {
    scorecard_form card(match);
    card.open();
    noted += text_scorecard(match, card);
    noted += ball_by_ball(match, card);
    for (const std::string& line : commentary_lines(match)) noted += line + "\n";
    for (const double meter : match.settled_meter) noted += std::to_string(meter) + " ";
    for (int i = 1; i <= 11; ++i) noted += match.bowler_pool[i].name + "|";
    for (const std::string& name : match.fifty_list) noted += name + "|";
    for (const std::string& pair : match.stand50_list) noted += pair + "|";
  }
};

/// The bundled database, compiled into a folder of its own. The elevens stay in memory, and at first nothing is
/// updated.
class ChainSoak : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "velorin-soak-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
    data.files = database_paths(folder_, "world");
    data.files.elevens_in_memory = true;
    data.files.read_once = true;
    data.files.updates = false;
    forget_teams_and_grounds(data);
    const auto tables = std::filesystem::path(VELORIN_TEST_DATA) / ".." / "data" / "world";
    build_database(tables, data.files.team_file, data.files.ground_file);
    match = match_state();
  }
  void TearDown() override {
    std::filesystem::remove_all(folder_);
    data.files = database_files();
    match = match_state();
    chance.use_clock();
    forget_teams_and_grounds(data);
  }

  /// Teams and ground follow from the number, all else from the generator that it starts.
  void play(int number) {
    std::mt19937 any(static_cast<std::uint32_t>(number));
    new_match_form form(in_play());
    form.open();
    const auto teams = static_cast<std::uint32_t>(form.teams.size());
    const auto first = any() % teams;
    form.choose_first_team(static_cast<int>(first));
    form.choose_second_team(static_cast<int>((first + 1 + any() % (teams - 1)) % teams));
    form.ground_index = static_cast<int>(any() % form.grounds.size());
    chance.use_seed(static_cast<std::uint64_t>(number));
    static_cast<match_result&>(match) = {};
    form.accept();
  }

  /// Plays and watches a match; false, with the test failed, if it broke a rule.
  bool play_watched(int number, int& balls) {
    referee watch(number);
    user_.watch = &watch;
    user_.results = 0;
    play(number);
    const bool finished = !match.result_margin.empty();
    watch.watch_result(finished);
    EXPECT_EQ(watch.complaint(), "");
    EXPECT_EQ(user_.results, finished ? 1 : 0) << "match " << number;
    EXPECT_TRUE(match.team1_name.empty() && match.over_no == 0 && !match.console_open) << "no reset after " << number;
    balls = watch.balls();
    return !HasFailure();
  }

  /// The notes of a match already played, played from a fresh state.
  std::string notes_from_fresh_state(int number) {
    match = match_state();
    user_.noted.clear();
    int balls = 0;
    play_watched(number, balls);
    return user_.noted;
  }

  std::filesystem::path folder_;
  watching_user user_;
  front_end_scope scope_{user_};
};

TEST_F(ChainSoak, Unattended) {
  soak_run run(soak_matches(50000, 400));
  int without_result = 0;
  for (int number = 1; number <= run.matches(); ++number) {
    user_.notes = number % replay_every == 0;
    user_.noted.clear();
    int balls = 0;
    ASSERT_TRUE(play_watched(number, balls));
    run.after_match(balls);
    without_result += match.result_margin.empty() ? 1 : 0;
    if (!user_.notes) continue;
    const std::string before = user_.noted;
    ASSERT_GT(before.size(), 1000U);
    ASSERT_EQ(notes_from_fresh_state(number), before) << "match " << number << " depends on those before it";
  }
  EXPECT_GT(run.balls(), 300L * run.matches());
  EXPECT_LE(without_result, run.matches() / 1000);
  EXPECT_EQ(run.growth(), "");
  run.report();
}

// Each writes and synchronises both files: a thousand are enough.
constexpr int most_updates = 1000;

TEST_F(ChainSoak, WithUpdates) {
  data.files.updates = true;
  soak_run run(std::min(soak_matches(most_updates, 60), most_updates));
  int finished = 0;
  for (int number = 1; number <= run.matches(); ++number) {
    int balls = 0;
    ASSERT_TRUE(play_watched(number, balls));
    run.after_match(balls);
    finished += match.result_margin.empty() ? 0 : 1;
  }
  EXPECT_EQ(run.growth(), "");
  run.report();
  EXPECT_TRUE(check_database(data.files).empty());
  int careers = 0;
  for (const career_team_rec& team : read_career_table(data).teams) {
    for (const career_rec& man : team.players) careers += man.matches;
  }
  EXPECT_EQ(careers, 22 * finished);
  double results = 0;
  for (const team_table& team : read_record_lists(data).teams) {
    for (const tagged* count :
         {&team.home_won, &team.home_tied, &team.home_lost, &team.away_won, &team.away_tied, &team.away_lost}) {
      results += count->number();
    }
  }
  EXPECT_EQ(results, 2 * finished);
}

}  // namespace
}  // namespace velorin::testing
