// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_jobs.h"

#include <fmt/format.h>

#include <atomic>
#include <chrono>
#include <iterator>
#include <mutex>
#include <thread>

#include "cli/cli_fixture.h"
#include "cli/common_watcher.h"
#include "database/lasting_records.h"
#include "model/run_time_error.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// This process has no thread but its own. The system may list one that has been joined for a moment more.
bool no_worker_is_left() {
  for (int looks = 0; looks < 100; ++looks) {
    const std::filesystem::directory_iterator threads("/proc/self/task");
    if (std::distance(begin(threads), end(threads)) == 1) return true;
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
  }
  return false;
}

/// Matches played by several threads.
class Jobs : public CliTest {
 protected:
  std::vector<std::string> line(const std::string& matches, const std::string& jobs,
                                const std::vector<std::string>& options = {}) const {
    std::vector<std::string> arguments = {"--seed", "11", "match", "--matches", matches, "--jobs", jobs};
    arguments.insert(arguments.end(), options.begin(), options.end());
    return arguments;
  }
};

TEST_F(Jobs, TheSummaryIsTheSameForAnyNumber) {
  const run_result one = run(line("40", "1"));
  EXPECT_EQ(one.status, 0);
  EXPECT_THAT(one.out, HasSubstr("Matches                 40\n"));
  for (const char* jobs : {"2", "3", "7", "40", "64"}) {
    const run_result several = run(line("40", jobs));
    EXPECT_EQ(several.status, 0) << several.err;
    EXPECT_EQ(several.out, one.out) << jobs;
  }
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Jobs, TheObjectsAreTheSameAndInOrder) {
  const run_result one = run(line("9", "1", {"--json", "-"}));
  EXPECT_EQ(lines_of(one.out).size(), 9U);
  EXPECT_EQ(run(line("9", "4", {"--json", "-"})).out, one.out);
  EXPECT_EQ(run(line("9", "2", {"--quiet", "--json", file("matches.json")})).out, "");
  EXPECT_EQ(file_bytes(file("matches.json")), one.out);
}

TEST_F(Jobs, EightGiveTheBytesOfOne) {
  const auto all = [&](const char* jobs) {
    const run_result result =
        run(line("24", jobs, {"--json", file("m.json"), "--html", file("p.html"), "--ball-by-ball", file("b.txt")}));
    EXPECT_EQ(result.status, 0) << result.err;
    return std::vector<std::string>{result.out, file_bytes(file("m.json")), file_bytes(file("p.html")),
                                    file_bytes(file("b.txt"))};
  };
  const std::vector<std::string> one = all("1");
  EXPECT_EQ(lines_of(one[1]).size(), 24U);
  EXPECT_TRUE(all("8") == one);
}

TEST_F(Jobs, AMatchIsTheSameInALongerRun) {
  const std::vector<std::string> longer = lines_of(run(line("8", "3", {"--json", "-"})).out);
  const std::vector<std::string> shorter = lines_of(run(line("5", "2", {"--json", "-"})).out);
  EXPECT_EQ(shorter, std::vector<std::string>(longer.begin(), longer.begin() + 5));
}

TEST_F(Jobs, TheLastMatchIsExported) {
  const auto exports = [&](const char* jobs) {
    const auto options = {std::string("--html"),         file("p.html"), std::string("--text"), file("t.txt"),
                          std::string("--ball-by-ball"), file("b.txt")};
    EXPECT_EQ(run(line("7", jobs, options)).status, 0);
    return file_bytes(file("p.html")) + file_bytes(file("t.txt")) + file_bytes(file("b.txt"));
  };
  EXPECT_EQ(exports("1"), exports("3"));
}

TEST_F(Jobs, OneMatchPrintsItsScorecard) {
  EXPECT_EQ(text(line("1", "4")), text(line("1", "1")));
  EXPECT_THAT(text(line("1", "4")), HasSubstr(" by "));
}

TEST_F(Jobs, AllUpdatesAreKept) {
  EXPECT_EQ(run(line("30", "4", {"--update"})).status, 0);
  const career_table careers = read_career_table(teams() / "small.rec");
  long matches = 0;
  for (int t = 1; t <= careers.career_team_count; ++t) {
    for (int p = 1; p <= careers.teams[t].player_count; ++p) matches += careers.teams[t].players[p].matches;
  }
  EXPECT_EQ(matches, 30 * 22);
  EXPECT_EQ(run({"db", "check", "small"}).status, 0);
}

TEST_F(Jobs, TheClockSeedsWithoutASeed) {
  const run_result result = run({"match", "--matches", "20", "--jobs", "2"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr("Matches                 20\n"));
  EXPECT_THAT(result.out, HasSubstr("Matches a second"));
}

TEST_F(Jobs, AnErrorIsTheOneOfASingleJob) {
  const std::string single = error(1, {"match", "--matches", "9", "--team1", "Vestira"});
  EXPECT_EQ(error(1, line("9", "3", {"--team1", "Vestira"})), single);
  EXPECT_THAT(error(1, line("9", "3", {"--html", file("none/p.html")})), HasSubstr("cannot be written"));
  EXPECT_THAT(error(1, line("9", "3", {"--json", file("none/m.json")})), HasSubstr("cannot be written"));
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Jobs, NoSenseIsRefused) {
  write_bytes(file("draws"), "0.5\n");
  EXPECT_THAT(error(2, {"--draws", file("draws"), "match", "--matches", "9", "--jobs", "2"}), HasSubstr("--draws"));
  EXPECT_THAT(error(2, {"match", "--jobs", "2"}), HasSubstr("--matches"));
  EXPECT_THAT(error(2, {"match", "--matches", "9", "--jobs", "0"}), HasSubstr("--jobs"));
  EXPECT_THAT(error(2, {"match", "--matches", "9", "--jobs", "1025"}), HasSubstr("--jobs"));
  EXPECT_THAT(error(2, {"match", "--matches", "9", "--jobs", "two"}), HasSubstr("--jobs"));
}

/// The workers alone.
class Workers : public ::testing::Test {
 protected:
  Workers() {
    task.matches = 10;
    task.jobs = 3;
    task.finish = [](int) {};
    task.progress = [](long) {};
    task.take = [this](std::string_view one) { taken.emplace_back(one); };
  }

  /// Plays and returns the message of what was raised, "" for nothing.
  std::string failure_of_play() const {
    try {
      cli::play_in_workers(task);
    } catch (const std::exception& raised) {
      return raised.what();
    }
    return "";
  }

  std::vector<std::string> taken;
  cli::worker_task task;
};

TEST_F(Workers, TheLowestMatchThatBreaksOffDecides) {
  task.play = [](int, long number) -> std::string {
    if (number == 5) std::this_thread::sleep_for(std::chrono::milliseconds(50));  // the seventh has been played by then
    if (number >= 5 && number != 7) throw std::runtime_error(fmt::format("match {} broke off", number));
    return fmt::format("{}", number);
  };
  EXPECT_EQ(failure_of_play(), "match 5 broke off");
  EXPECT_THAT(taken, ElementsAre("1", "2", "3", "4"));
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Workers, WhatAMatchRaisesComesAsItWas) {
  task.play = [](int, long) -> std::string { throw run_time_error(failure::subscript, "broke off"); };
  EXPECT_THROW(cli::play_in_workers(task), run_time_error);
}

TEST_F(Workers, EachPlaysItsShare) {
  std::mutex guard;
  std::vector<std::vector<long>> played(3);
  std::vector<std::thread::id> threads(3);
  task.play = [&](int place, long number) {
    const std::lock_guard hold(guard);
    const auto at = static_cast<std::size_t>(place);
    EXPECT_TRUE(played[at].empty() || threads[at] == std::this_thread::get_id());
    threads[at] = std::this_thread::get_id();
    played[at].push_back(number);
    return std::string();
  };
  EXPECT_EQ(failure_of_play(), "");
  EXPECT_THAT(played, ElementsAre(ElementsAre(1, 4, 7, 10), ElementsAre(2, 5, 8), ElementsAre(3, 6, 9)));
  EXPECT_NE(threads[0], threads[1]);
  EXPECT_NE(threads[1], threads[2]);
}

TEST_F(Workers, LongLinesArriveWhole) {
  task.play = [](int, long number) { return std::string(300'000, static_cast<char>('a' + number)); };
  EXPECT_EQ(failure_of_play(), "");
  ASSERT_EQ(taken.size(), 10U);
  for (std::size_t i = 0; i < taken.size(); ++i) {
    EXPECT_EQ(taken[i], std::string(300'000, static_cast<char>('b' + i)));
  }
}

/// The first match lasts until no other worker goes on.
TEST_F(Workers, WhoIsFarAheadWaits) {
  task.matches = 100'000;
  std::atomic<long> played = 0;
  task.play = [&](int, long number) {
    for (long before = -1; number == 1 && before != played;) {
      before = played;
      std::this_thread::sleep_for(std::chrono::milliseconds(100));
    }
    if (number == 1) {
      EXPECT_LE(played, 2 * (64 + 1));
    }
    ++played;
    return std::string(1024, 'x');
  };
  EXPECT_EQ(failure_of_play(), "");
  EXPECT_EQ(taken.size(), 100'000U);
}

TEST_F(Workers, NoneWaitsBehindAMatchThatBrokeOff) {
  task.matches = 100'000;
  task.play = [](int, long number) -> std::string {
    if (number == 1) std::this_thread::sleep_for(std::chrono::milliseconds(50));
    if (number == 1) throw std::runtime_error("broke off");
    return std::string(1024, 'x');
  };
  EXPECT_EQ(failure_of_play(), "broke off");
  EXPECT_THAT(taken, ElementsAre());
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Workers, ALineThatCannotBeWrittenEndsAll) {
  task.matches = 1'000'000'000;
  task.play = [](int, long) { return std::string(1024, 'x'); };
  task.take = [&](std::string_view) {
    taken.emplace_back();
    if (taken.size() == 20) throw std::runtime_error("no room");
  };
  EXPECT_EQ(failure_of_play(), "no room");
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Workers, TheOneWithTheLastMatchFinishes) {
  std::atomic<int> finished = -1;
  task.play = [](int, long) { return std::string(); };
  task.take = nullptr;
  task.finish = [&](int place) { finished = place; };
  EXPECT_EQ(failure_of_play(), "");
  EXPECT_EQ(finished, 0);
  task.finish = [](int) { throw std::runtime_error("finished"); };
  EXPECT_EQ(failure_of_play(), "finished");
}

/// Keeps what it is told.
class noting_watcher : public turn_watcher {
 public:
  void turn_is_waited_for(const std::filesystem::path&, std::chrono::milliseconds) override { told += "waits "; }
  void wait_is_over() override { told += "over "; }

  std::string told;
};

TEST(CommonWatcher, TellsOfSeveralWaitsAsOfOne) {
  noting_watcher user;
  cli::speech shared;
  cli::common_watcher first(user, shared);
  cli::common_watcher second(user, shared);
  first.turn_is_waited_for("f", {});
  second.turn_is_waited_for("f", {});
  first.wait_is_over();
  EXPECT_EQ(user.told, "waits waits ");
  second.turn_is_waited_for("f", {});
  second.wait_is_over();
  EXPECT_EQ(user.told, "waits waits waits over ");
}

}  // namespace
}  // namespace velorin::testing
