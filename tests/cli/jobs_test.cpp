// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_jobs.h"

#include <fmt/format.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "cli/cli_fixture.h"
#include "database/lasting_records.h"
#include "model/run_time_error.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// No process that this one has started is left.
bool no_worker_is_left() { return ::waitpid(-1, nullptr, WNOHANG) < 0 && errno == ECHILD; }

/// Matches played by several processes.
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
}

TEST_F(Jobs, TheClockSeedsWithoutASeed) {
  const run_result result = run({"match", "--matches", "20", "--jobs", "2"});
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.out, HasSubstr("Matches                 20\n"));
  EXPECT_THAT(result.out, HasSubstr("Matches a second"));
}

TEST_F(Jobs, AnErrorIsTheOneOfASingleProcess) {
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
    task.finish = [] {};
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

  cli::match_summary summary;
  std::vector<std::string> taken;
  cli::worker_task task{
      .matches = 10, .jobs = 3, .summary = summary, .play = {}, .finish = {}, .progress = {}, .take = {}};
};

TEST_F(Workers, TheLowestMatchThatBreaksOffDecides) {
  task.play = [](long number) -> std::string {
    if (number == 5) ::usleep(50'000);  // by then the seventh has been played
    if (number >= 5 && number != 7) throw std::runtime_error(fmt::format("match {} broke off", number));
    return fmt::format("{}", number);
  };
  EXPECT_EQ(failure_of_play(), "match 5 broke off");
  EXPECT_THAT(taken, ElementsAre("1", "2", "3", "4"));
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Workers, LongLinesArriveWhole) {
  task.play = [](long number) { return std::string(300'000, static_cast<char>('a' + number)); };
  EXPECT_EQ(failure_of_play(), "");
  ASSERT_EQ(taken.size(), 10U);
  for (std::size_t i = 0; i < taken.size(); ++i) {
    EXPECT_EQ(taken[i], std::string(300'000, static_cast<char>('b' + i)));
  }
}

TEST_F(Workers, AWorkerThatIsGoneIsAnError) {
  task.play = [](long number) -> std::string {
    if (number == 2) ::_exit(0);
    return "line";
  };
  EXPECT_THAT(failure_of_play(), HasSubstr("ended before its work was done"));
  EXPECT_TRUE(no_worker_is_left());
}

TEST_F(Workers, TheOneWithTheLastMatchFinishes) {
  task.play = [](long) { return std::string(); };
  task.take = nullptr;
  task.finish = [] { throw std::runtime_error("finished"); };
  EXPECT_EQ(failure_of_play(), "finished");
}

TEST(PackedSummary, ComesBackAsItWas) {
  cli::match_summary summary;
  match_result won;
  won.result_winner = "King's 11, \"Vest\"";
  won.result_margin = "  won by  3  wickets ";
  summary.add_result(won);
  summary.add_result(match_result());
  std::ostringstream before;
  summary.print(before);
  cli::match_summary back = cli::match_summary::unpacked(summary.packed());
  std::ostringstream after;
  back.print(after);
  EXPECT_EQ(after.str(), before.str());
  back.add(summary);
  EXPECT_EQ(back.matches(), 4);
  EXPECT_THROW(cli::match_summary::unpacked("nothing"), std::logic_error);
}

}  // namespace
}  // namespace velorin::testing
