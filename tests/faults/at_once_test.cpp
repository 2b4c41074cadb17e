// SPDX-License-Identifier: GPL-3.0-or-later
// Programs that add matches to one database at the same time lose none, also where one of them is killed.
#include <gtest/gtest.h>
#include <sys/wait.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <nlohmann/json.hpp>
#include <random>
#include <sstream>
#include <thread>

#include "cli/recount.h"
#include "database/lasting_records.h"
#include "faults/acts.h"
#include "model/code_page.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// Matches that each program plays. The environment variable VELORIN_MATCHES_AT_ONCE asks for another number.
#ifdef NDEBUG
constexpr int usual_matches = 1000;
#else
constexpr int usual_matches = 200;  // their checks after each ball take long
#endif

int matches_of_each() {
  const char* const asked = std::getenv("VELORIN_MATCHES_AT_ONCE");
  return asked == nullptr ? usual_matches : std::atoi(asked);
}

/// Counts in both files.
struct books {
  std::map<std::string, int> played;   ///< by team, from the team table
  std::map<std::string, int> careers;  ///< by team, the matches of all men together
};

class AtOnce : public ::testing::Test {
 protected:
  void SetUp() override {
    const act first = act_of("first_update");
    bench_.lay_out(first.before);
  }

  /// A program that adds matches of these two teams, each match also as an object to `json`.
  program player(int seed, int matches, const std::string& team1, const std::string& team2,
                 const std::string& json = {}) {
    program what;
    what.line = {VELORIN_CLI,
                 "--teams-dir",
                 bench_.data().string(),
                 "--seed",
                 std::to_string(seed),
                 "match",
                 "--update",
                 "--quiet",
                 "--matches",
                 std::to_string(matches),
                 "--team1",
                 team1,
                 "--team2",
                 team2};
    if (!json.empty()) what.line.insert(what.line.end(), {"--json", bench_.beside(json).string()});
    return what;
  }

  static bool still_runs(pid_t process) {
    siginfo_t info{};
    return ::waitid(P_PID, static_cast<id_t>(process), &info, WEXITED | WNOHANG | WNOWAIT) == 0 && info.si_pid == 0;
  }

  /// The country of each ground of the small database.
  static std::map<std::string, std::string> homes() {
    std::map<std::string, std::string> home_of;
    std::istringstream lines(bytes_of_file(fs::path(VELORIN_TEST_DATA) / "data" / "small" / "grounds.csv"));
    for (std::string line; std::getline(lines, line);) {
      const std::size_t comma = line.find(',');
      home_of[line.substr(comma + 1, line.find(',', comma + 1) - comma - 1)] = line.substr(0, comma);
    }
    return home_of;
  }

  books read_books() const {
    books read;
    const record_lists lists = read_record_lists(bench_.data() / "small.ptr");
    for (int t = 1; t <= lists.table_team_count; ++t) {
      const team_table& row = lists.teams[t];
      for (const tagged* count :
           {&row.away_won, &row.away_tied, &row.away_lost, &row.home_won, &row.home_tied, &row.home_lost}) {
        read.played[row.team_name.text()] += static_cast<int>(count->number());
      }
    }
    const career_table careers = read_career_table(bench_.data() / "small.rec");
    for (int t = 1; t <= careers.career_team_count; ++t) {
      for (int p = 1; p <= careers.teams[t].player_count; ++p) {
        read.careers[careers.teams[t].team_name] += careers.teams[t].players[p].matches;
      }
    }
    return read;
  }

  void expect_no_fault() {
    const ending checked =
        bench_.run({{VELORIN_CLI, "--teams-dir", bench_.data().string(), "db", "check", "small"}, {}, {}});
    EXPECT_EQ(checked.status, 0) << checked.out << checked.err;
    EXPECT_EQ(checked.out, "");
  }

  workbench bench_;
};

TEST_F(AtOnce, TwoProgramsLoseNoMatch) {
  const int matches = matches_of_each();
  const auto start = std::chrono::steady_clock::now();
  const pid_t one = bench_.start(player(1, matches, "Northland", "South Isles", "one.json"), 1);
  const pid_t other = bench_.start(player(2, matches, "Northland", "South Isles", "other.json"), 2);
  const ending first = bench_.end_of(one, 1);
  const ending second = bench_.end_of(other, 2);
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(second.status, 0) << second.err;

  const int all = 2 * matches;
  const books read = read_books();
  EXPECT_EQ(read.played, (std::map<std::string, int>{{"Northland", all}, {"South Isles", all}}));
  EXPECT_EQ(read.careers, (std::map<std::string, int>{{"Northland", 11 * all}, {"South Isles", 11 * all}}));
  expect_no_fault();
  std::cout << all << " matches of two programs in " << taken.count() << " s\n";

  // The careers are those that the objects of all matches give.
  recount figures(homes());
  for (const char* name : {"one.json", "other.json"}) {
    std::istringstream lines(bytes_of_file(bench_.beside(name)));
    for (std::string line; std::getline(lines, line);) figures.add(nlohmann::json::parse(line));
  }
  const career_table careers = read_career_table(bench_.data() / "small.rec");
  int compared = 0;
  for (int t = 1; t <= careers.career_team_count; ++t) {
    const career_team_rec& team = careers.teams[t];
    for (const career_rec& counted : figures.men(to_utf8(team.team_name))) {
      const career_rec* man = nullptr;
      for (int p = 1; p <= team.player_count; ++p) {
        if (to_utf8(team.players[p].name) == counted.name) man = &team.players[p];
      }
      ASSERT_NE(man, nullptr) << counted.name;
      EXPECT_EQ(man->matches, counted.matches) << counted.name;
      EXPECT_EQ(man->runs, counted.runs) << counted.name;
      EXPECT_EQ(man->balls_faced, counted.balls_faced) << counted.name;
      EXPECT_EQ(man->wickets, counted.wickets) << counted.name;
      EXPECT_EQ(man->runs_given, counted.runs_given) << counted.name;
      EXPECT_EQ(man->high_score, counted.high_score) << counted.name;
      ++compared;
    }
  }
  EXPECT_GE(compared, 22);
}

// Two programs play one pair of teams; a third plays another pair, and is killed and started again all the time.
TEST_F(AtOnce, AProgramThatIsKilledTakesNothingFromTheOthers) {
  const int matches = matches_of_each();
  const pid_t one = bench_.start(player(1, matches, "Northland", "South Isles"), 1);
  const pid_t other = bench_.start(player(2, matches, "Northland", "South Isles"), 2);
  std::mt19937 random(20240229);
  int kills = 0;
  for (bool playing = true; playing; ++kills) {
    const pid_t third = bench_.start(player(100 + kills, 1'000'000, "Harrowmark", "Vestria"), 3);
    // Ever longer lives, so that the program comes to play on a busy machine, too.
    const auto longest = std::uint_fast32_t{40'000} << (kills / 8);
    std::this_thread::sleep_for(std::chrono::microseconds(2000 + random() % longest));
    ::kill(third, SIGKILL);
    ASSERT_EQ(bench_.end_of(third, 3).signal, SIGKILL);
    playing = still_runs(one) && still_runs(other);
  }
  const ending first = bench_.end_of(one, 1);
  const ending second = bench_.end_of(other, 2);
  EXPECT_EQ(first.status, 0) << first.err;
  EXPECT_EQ(second.status, 0) << second.err;

  const int all = 2 * matches;
  books read = read_books();
  for (const char* team : {"Northland", "South Isles"}) {
    EXPECT_EQ(read.played[team], all) << team;
    EXPECT_EQ(read.careers[team], 11 * all) << team;
  }
  const int added = read.played["Harrowmark"];
  EXPECT_GT(added, 0) << "the third program never came to play";
  EXPECT_GE(read.careers["Harrowmark"], 11 * added) << "the careers are renamed first";
  EXPECT_LE(read.careers["Harrowmark"], 11 * (added + 1)) << "an update finishes the one before";

  // One more match finishes what the last kill has cut off, and takes away what it has left.
  EXPECT_EQ(bench_.run(player(3, 1, "Harrowmark", "Vestria")).status, 0);
  read = read_books();
  for (const auto& [team, played] : read.played) EXPECT_EQ(read.careers[team], 11 * played) << team;
  for (const auto& entry : fs::directory_iterator(bench_.data())) {
    EXPECT_NE(entry.path().extension(), ".new");
    EXPECT_NE(entry.path().extension(), ".next");
  }
  expect_no_fault();
  std::cout << all << " matches of two programs beside " << kills << " kills of a third, which had added " << added
            << " matches\n";
}

}  // namespace
}  // namespace velorin::testing
