// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <cmath>

#include "cli/cli_fixture.h"
#include "cli/match_summary.h"
#include "support/cards.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// The summary of several matches, against the matches' own objects.
class Summary : public CliTest {
 protected:
  /// Plays matches into a file of objects and keeps the lines of the summary.
  void play(const std::string& seed, const std::string& count, const std::vector<std::string>& options = {}) {
    std::vector<std::string> arguments = {"--seed", seed, "match", "--matches", count, "--json", file("matches.json")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const run_result result = run(arguments);
    EXPECT_EQ(result.status, 0) << result.err;
    lines_ = lines_of(result.out);
    for (const std::string& line : lines_of(file_bytes(file("matches.json")))) objects_.push_back(json::parse(line));
  }

  /// The figures behind a caption, or nothing.
  std::vector<std::string> figures(const std::string& caption) const {
    for (const std::string& line : lines_) {
      if (!line.starts_with(caption + " ")) continue;
      std::vector<std::string> found;
      std::istringstream rest(line.substr(caption.size()));
      for (std::string figure; rest >> figure;) found.push_back(figure);
      return found;
    }
    return {};
  }

  void expect(const std::string& caption, const std::vector<std::string>& wanted) const {
    EXPECT_EQ(figures(caption), wanted) << caption;
  }

  std::vector<std::string> lines_;
  std::vector<json> objects_;
};

struct account {
  std::vector<double> totals;
  double wickets = 0;
  double balls = 0;
  double all_out = 0;

  double count() const { return static_cast<double>(totals.size()); }
  double runs() const {
    double sum = 0;
    for (const double total : totals) sum += total;
    return sum;
  }
  double spread() const {
    const double mean = runs() / count();
    double squares = 0;
    for (const double total : totals) squares += (total - mean) * (total - mean);
    return std::sqrt(squares / (count() - 1));
  }
};

std::string kind_of(const json& line) {
  const std::string out = line["how_out"];
  const std::string fielder = line["fielder"];
  if (out.starts_with(" run out")) return "run out";
  if (out.starts_with(" lbw")) return "lbw";
  if (out.starts_with(" c && b")) return "caught and bowled";
  if (fielder.starts_with(" st")) return "stumped";
  return fielder.empty() ? "bowled" : "caught";
}

TEST_F(Summary, WinsAndInningsAreThoseOfTheMatches) {
  play("5", "40");
  ASSERT_EQ(objects_.size(), 40U);
  std::map<std::string, int> wins;
  int ties = 0;
  int batting_first = 0;
  std::array<account, 2> innings;
  for (const json& object : objects_) {
    const json& result = object["result"];
    const std::string winner = result["result_winner"];
    if (winner.empty()) {
      ++ties;
    } else {
      ++wins[winner];
      batting_first += winner == result["rate_first"]["team"] ? 1 : 0;
    }
    for (std::size_t i = 0; i < 2; ++i) {
      const json& state = object["scorecards"][i];
      innings[i].totals.push_back(state["score_runs"]);
      innings[i].wickets += state["score_wickets"].get<int>();
      innings[i].balls += state["innings_balls"].get<int>();
      innings[i].all_out += state["score_wickets"] == 10 ? 1 : 0;
    }
  }
  expect("Matches", {"40"});
  expect("Tied", {std::to_string(ties)});
  EXPECT_EQ(wins.size(), 2U);
  int decided = 0;
  for (const auto& [team, count] : wins) {
    expect("Won by " + team, {std::to_string(count)});
    decided += count;
  }
  expect("Won batting first", {std::to_string(batting_first)});
  expect("Won chasing", {std::to_string(decided - batting_first)});
  EXPECT_EQ(decided + ties, 40);
  const auto both = [&](auto value) {
    return std::vector<std::string>{fmt::format("{:.2f}", value(innings[0])), fmt::format("{:.2f}", value(innings[1]))};
  };
  expect("Total, mean", both([](const account& a) { return a.runs() / a.count(); }));
  expect("Total, spread", both([](const account& a) { return a.spread(); }));
  expect("Wickets, mean", both([](const account& a) { return a.wickets / a.count(); }));
  expect("All out, share", both([](const account& a) { return a.all_out / a.count(); }));
  expect("Run rate", both([](const account& a) { return 6 * a.runs() / a.balls; }));
}

TEST_F(Summary, DismissalsAreThoseOfTheCards) {
  play("6", "20");
  std::map<std::string, int> kinds;
  int all = 0;
  int wickets = 0;
  for (const json& object : objects_) {
    for (const json& state : object["scorecards"]) {
      wickets += state["score_wickets"].get<int>();
      for (const json& line : state["batting_card"]) {
        if (line["how_out"] == "") continue;
        ++kinds[kind_of(line)];
        ++all;
      }
    }
  }
  EXPECT_EQ(all, wickets);
  EXPECT_EQ(kinds.size(), 6U);
  for (const auto& [kind, count] : kinds) {
    expect("Out " + kind, {std::to_string(count), fmt::format("{:.1f}%", 100.0 * count / all)});
  }
}

TEST_F(Summary, ACatchWithoutANameOnTheCardCountsAsBowled) {
  match_state played;
  put_out(played.batting_card[1], dismissal::caught, "A.Bowl1", {7, "A.Bowl7"});
  put_out(played.batting_card[2], dismissal::stumped, "A.Bowl1", {7, "A.Bowl7"});
  for (const int unnamed : {3, 4}) {
    put_out(played.batting_card[unnamed], unnamed == 3 ? dismissal::caught : dismissal::stumped, "A.Bowl1");
    played.batting_card[unnamed].taken = fielding::none;
    played.batting_card[unnamed].fielder.clear();
  }
  cli::match_summary summary;
  summary.add_innings(played);
  std::ostringstream out;
  summary.print(out);
  lines_ = lines_of(out.str());
  expect("Out bowled", {"2", "50.0%"});
  expect("Out caught", {"1", "25.0%"});
  expect("Out stumped", {"1", "25.0%"});
}

TEST_F(Summary, OfATeamAgainstItselfTheMarginTellsWhoWon) {
  play("7", "15", {"--team1", "Marenne", "--team2", "Marenne"});
  int chases = 0;
  int defended = 0;
  for (const json& object : objects_) {
    const std::string margin = object["result"]["result_margin"];
    if (margin.ends_with("wickets ")) ++chases;
    if (margin.ends_with("runs")) ++defended;
  }
  EXPECT_GT(chases, 0);
  EXPECT_GT(defended, 0);
  expect("Won by Marenne", {std::to_string(chases + defended)});
  expect("Won chasing", {std::to_string(chases)});
  expect("Won batting first", {std::to_string(defended)});
}

TEST_F(Summary, HeadingsStandApart) {
  play("6", "2");
  EXPECT_THAT(lines_, ::testing::Contains(HasSubstr(" First innings  Second innings")));
}

TEST_F(Summary, AReproducibleRunKeepsTheClockOffStandardOutput) {
  const run_result once = run({"--seed", "5", "match", "--matches", "4"});
  const run_result again = run({"--seed", "5", "match", "--matches", "4"});
  EXPECT_EQ(once.out, again.out);
  EXPECT_THAT(once.out, Not(HasSubstr("Matches a second")));
  EXPECT_THAT(once.err, HasSubstr("Matches a second"));
  const run_result by_clock = run({"match", "--matches", "2"});
  EXPECT_THAT(by_clock.out, HasSubstr("Matches a second"));
  EXPECT_EQ(by_clock.err, "");
}

}  // namespace
}  // namespace velorin::testing
