// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <array>
#include <cstdint>
#include <cstdlib>

#include "cli/cli_fixture.h"

namespace velorin::testing {
namespace {

/// A sum over bytes that tells any two texts apart (FNV-1a, 64 bits).
class signature {
 public:
  void add(std::string_view bytes) {
    for (const char c : bytes) sum_ = (sum_ ^ static_cast<unsigned char>(c)) * 0x100000001B3U;
  }
  std::string text() const { return fmt::format("{:016x}", sum_); }

 private:
  std::uint64_t sum_ = 0xCBF29CE484222325U;
};

constexpr std::array<const char*, 10> all_teams = {"Northland",   "South Isles", "Harrowmark", "Vestria",
                                                   "New Zealand", "Orland",      "Cape Tavor", "Lindemark",
                                                   "Sorrel Bay",  "Marenne"};

/// The figures of a thousand matches, all that they print and write included: what has not changed here has changed
/// nowhere. scripts/approve writes the lines anew.
class GoldenSignature : public CliTest {
 protected:
  enum part { print, object, page, card, ball_by_ball, database_files };
  using signatures = std::array<signature, 6>;

  /// The match of a seed: other teams, captains and conditions for each.
  void play(int seed, bool update, signatures& sums) const {
    std::vector<std::string> line = {"--seed",
                                     std::to_string(seed),
                                     "match",
                                     "--team1",
                                     team(seed),
                                     "--team2",
                                     team(seed + 1 + seed / 10 % 9),
                                     "--json",
                                     file("match.json"),
                                     "--html",
                                     file("page.html"),
                                     "--text",
                                     file("card.txt"),
                                     "--ball-by-ball",
                                     file("balls.txt")};
    if (update) line.push_back("--update");
    if (seed % 10 == 3) line.insert(line.end(), {"--captain1", "human"});
    if (seed % 10 == 5) line.insert(line.end(), {"--captain2", "human"});
    if (seed % 4 == 1) line.insert(line.end(), {"--conditions", seed % 8 == 1 ? "1,1,1,1" : "4,4,4,4"});
    if (seed % 7 == 0) line.insert(line.end(), {"--export-innings", "1"});
    const run_result result = run(line);
    ASSERT_EQ(result.status, 0) << "seed " << seed << ": " << result.err;
    sums[print].add(result.out);
    sums[object].add(file_bytes(file("match.json")));
    sums[page].add(file_bytes(file("page.html")));
    sums[card].add(file_bytes(file("card.txt")));
    sums[ball_by_ball].add(file_bytes(file("balls.txt")));
    for (const auto& [name, bytes] : contents_of(teams())) {
      // The archive tells when a match was played, and its bytes are SQLite's; its own tests hold what it tells.
      if (name.ends_with(".matches")) continue;
      sums[database_files].add(name);
      sums[database_files].add(bytes);
    }
  }

  /// A line for each hundred matches. The last four hundred are played with updates.
  std::string lines() const {
    std::string all;
    for (int hundred = 0; hundred < 10 && !HasFatalFailure(); ++hundred) {
      signatures sums;
      for (int i = 1; i <= 100; ++i) play(100 * hundred + i, hundred >= 6, sums);
      all += fmt::format("{:>4} to {:>4}  print {}  object {}  page {}  text {}  ball by ball {}  files {}\n",
                         100 * hundred + 1, 100 * hundred + 100, sums[print].text(), sums[object].text(),
                         sums[page].text(), sums[card].text(), sums[ball_by_ball].text(), sums[database_files].text());
    }
    return all;
  }

  /// Expects what the file holds, or, when approving, writes it there.
  static void expect_approved(const std::filesystem::path& path, const std::string& now) {
    if (std::getenv("VELORIN_APPROVE") != nullptr) {
      write_bytes(path, now);
      FAIL() << "the signature was written anew; make sure that a change was wanted";
    }
    EXPECT_EQ(now, file_bytes(path));
  }

 private:
  static std::string team(int number) { return all_teams[static_cast<std::size_t>(number % 10)]; }
};

TEST_F(GoldenSignature, ThousandMatches) {
  const std::filesystem::path path = std::filesystem::path(VELORIN_TEST_DATA) / "golden" / "cli" / "signature.txt";
  expect_approved(path, lines());
}

/// Many matches of one run: each begins with what the one before has left.
TEST_F(GoldenSignature, MatchesOfOneRun) {
  const std::filesystem::path path = std::filesystem::path(VELORIN_TEST_DATA) / "golden" / "cli" / "one_run.txt";
  signature objects;
  // The speed goes to standard error, so that it is no part of what must stay the same.
  const run_result run_of_many = run({"--seed", "7", "match", "--matches", "200", "--json", file("matches.json")});
  EXPECT_EQ(run_of_many.status, 0);
  const std::string& summary = run_of_many.out;
  objects.add(file_bytes(file("matches.json")));
  expect_approved(path, summary + "\nobjects " + objects.text() + "\n");
}

/// Each of these begins afresh, with a seed of its own.
TEST_F(GoldenSignature, MatchesOfSeveralJobs) {
  const std::filesystem::path path = std::filesystem::path(VELORIN_TEST_DATA) / "golden" / "cli" / "several_jobs.txt";
  const run_result jobs =
      run({"--seed", "7", "match", "--matches", "40", "--jobs", "2", "--json", file("matches.json")});
  EXPECT_EQ(jobs.status, 0) << jobs.err;
  signature objects;
  objects.add(file_bytes(file("matches.json")));
  expect_approved(path, jobs.out + "\nobjects " + objects.text() + "\n");
}

}  // namespace
}  // namespace velorin::testing
