// SPDX-License-Identifier: GPL-3.0-or-later
// Matches that would pass a limit of the files or of a figure: one line, status 1, and the files as they were.
#include <fmt/format.h>
#include <algorithm>

#include <limits>

#include "captain/computer_captain.h"
#include "cli/cli_fixture.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "engine/delivery_model.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

/// "South Isles" against "Harrowmark", as preselected.
class CliLimits : public CliTest {
 protected:
  void SetUp() override {
    CliTest::SetUp();
    use_files();
  }

  /// The files of the tests' database, for the test itself.
  void use_files() const {
    data.files = database_paths(teams(), "small");
    data.files.updates = false;
    data.files.elevens_in_memory = true;
    forget_teams_and_grounds(data);
  }

  /// The message of a match with updates that fails and changes nothing.
  std::string refusal(const std::vector<std::string>& arguments = {"--seed", "1", "match", "--update"}) const {
    const auto before = contents_of(teams());
    const std::string message = error(1, arguments);
    EXPECT_EQ(contents_of(teams()), before);
    use_files();
    return message;
  }

  /// Writes careers, and makes the lists of the matches played agree with them. The matches of each team's men must be
  /// a multiple of eleven, and its first men those who played.
  static void write_books(const career_table& careers) {
    const career_table before = read_career_table(data);
    write_career_table(data, careers);
    record_lists lists = read_record_lists(data);
    for (int t = 1; t <= before.career_team_count; ++t) rename_men(lists, before.teams[t], careers.teams[t]);
    lists.table_team_count = careers.career_team_count;
    for (int t = 1; t <= careers.career_team_count; ++t) {
      const career_team_rec& team = careers.teams[t];
      std::int64_t appearances = 0;
      for (int p = 1; p <= team.player_count; ++p) appearances += team.players[p].matches;
      ASSERT_EQ(appearances % 11, 0);
      team_table& row = lists.teams[t];
      for (tagged* count : {&row.away_tied, &row.away_lost, &row.home_won, &row.home_tied, &row.home_lost}) *count = {};
      row.team_name = {team.team_name};
      row.away_won = {static_cast<double>(appearances / 11)};
    }
    for (top_total_rec& line : lists.lowest_totals) {
      if (!line.team.empty()) continue;
      line.total = 999;
      line.team = line.against = careers.teams[1].team_name;
    }
    write_record_lists(data, lists);
  }

  /// Gives the men of a team's lines the names that stand in the same places now.
  static void rename_men(record_lists& lists, const career_team_rec& before, const career_team_rec& now) {
    const auto rename = [&](auto& line) {
      const auto found = std::find_if(before.players.begin() + 1, before.players.end(),
                                      [&](const career_rec& man) { return man.name == line.player; });
      if (line.player.empty() || line.team != before.team_name || found == before.players.end()) return;
      line.player = now.players[static_cast<std::size_t>(found - before.players.begin())].name;
    };
    for (auto& line : lists.top_scores) rename(line);
    for (auto& line : lists.top_bowling) rename(line);
  }

  void play_a_match() const {
    text({"--seed", "1", "match", "--update", "--quiet"});
    use_files();
  }
};

TEST_F(CliLimits, ATwentyFirstTeamWithCareers) {
  career_table table;
  table.career_team_count = 20;
  for (int t = 1; t <= 20; ++t) table.teams[t].team_name = fmt::format("Team {}", t);
  write_books(table);
  const std::string message = refusal();
  EXPECT_TRUE(message.ends_with("Subscript out of range: more than 20 teams with careers (file small.rec, record 22, "
                                "field team_name, at \"South Isles\")") ||
              message.ends_with("Subscript out of range: more than 20 teams with careers (file small.rec, record 22, "
                                "field team_name, at \"Harrowmark\")"))
      << message;
}

TEST_F(CliLimits, ATwentyFirstPlayerOfATeam) {
  play_a_match();
  career_table table = read_career_table(data);
  career_team_rec& men = table.teams[2];
  for (int p = 1; p <= 20; ++p) men.players[p].name = fmt::format("Old {}", p);
  men.player_count = 20;
  write_books(table);
  EXPECT_THAT(refusal(), ::testing::HasSubstr(fmt::format("more than 20 players of {} with careers (file small.rec, "
                                                          "record 3, field players, at \"",
                                                          men.team_name)));
}

TEST_F(CliLimits, ACareerFigureOf32Bits) {
  play_a_match();
  career_table table = read_career_table(data);
  table.teams[1].players[3].matches = std::numeric_limits<std::int32_t>::max();
  const std::string name = table.teams[1].players[3].name;
  write_books(table);
  EXPECT_THAT(refusal(), ::testing::EndsWith(fmt::format("Overflow: a career figure does not fit 32 bits (file "
                                                         "small.rec, record 2, field matches, at \"{}\")",
                                                         name)));
}

TEST_F(CliLimits, ACareerSlot) {
  play_a_match();
  career_table table = read_career_table(data);
  career_team_rec& team = table.teams[1];
  team.players[1].career_reserved_1 = std::string(career_slot - encoded(team).size(), 'x');
  // Full to the last byte; a debut takes a name more.
  team.players[2].name = "X" + team.players[2].name.substr(1);
  write_books(table);
  EXPECT_THAT(refusal(), ::testing::MatchesRegex(".*Overflow: a record of 55[0-9][0-9] bytes in a slot of 5500 \\(file "
                                                 "small.rec, record 2, at \"" +
                                                 team.team_name + "\"\\)"));
}

TEST_F(CliLimits, ATableOfMoreTeamsThanCareersHold) {
  play_a_match();
  record_lists lists = read_record_lists(data);
  lists.table_team_count = 25;
  for (int t = 3; t <= 25; ++t) lists.teams[t].team_name = {fmt::format("Team {}", t)};
  write_record_lists(data, lists);
  EXPECT_THAT(refusal(), ::testing::HasSubstr("small.rec and small.ptr do not belong together: \"Team 3\" has no "
                                              "careers (file small.ptr, record 128, field team_name)"));
}

TEST_F(CliLimits, ARatingThatIsNoNumber) {
  for (float player_rec::*rating : {&player_rec::econ, &player_rec::bowl_sr}) {
    for (const float value : {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
      slot_file team = slot_file::read(data.files.team_file, team_slot);
      const std::string whole = team.bytes();
      team_rec side = read_team(data, 3);
      side.squad[4].*rating = value;
      team.put(3, encoded(side), {});
      write_bytes(data.files.team_file, team.bytes());
      EXPECT_THAT(refusal(), ::testing::EndsWith(fmt::format(
                                 "Type mismatch: a rating that is no number (file small.team, record 3, field "
                                 "squad[4].{}, at \"{}\")",
                                 rating == &player_rec::econ ? "econ" : "bowl_sr", side.squad[4].name)));
      write_bytes(data.files.team_file, whole);
      use_files();
    }
  }
}

TEST_F(CliLimits, ARatingInAFreePlaceOfTheSquadIsNone) {
  slot_file team = slot_file::read(data.files.team_file, team_slot);
  team_rec side = read_team(data, 3);
  side.squad[20] = player_rec();
  side.squad[20].econ = std::numeric_limits<float>::quiet_NaN();
  team.put(3, encoded(side), {});
  write_bytes(data.files.team_file, team.bytes());
  play_a_match();
}

TEST_F(CliLimits, AnElevensRecord) {
  slot_file team = slot_file::read(data.files.team_file, team_slot);
  team_rec side = read_team(data, 3);
  player_rec& man = side.squad[7];  // the keeper is always selected
  man.is_keeper = flag_true;
  man.bat_skill = 99;
  man.name = std::string(125 - 30 - man.bat_type.size() - man.bowler_type.size(), 'n');
  team.put(3, encoded(side), {});
  write_bytes(data.files.team_file, team.bytes());
  play_a_match();
  man.name += 'n';
  team.put(3, encoded(side), {});
  write_bytes(data.files.team_file, team.bytes());
  EXPECT_THAT(refusal(), ::testing::MatchesRegex(".*Overflow: a record of 126 bytes in a slot of 125 \\(file "
                                                 "team1r.txt, record [0-9]+, at \"n+\"\\)"));
}

TEST_F(CliLimits, ATwentyFirstTeamOfTheDatabase) {
  slot_file team = slot_file::read(data.files.team_file, team_slot);
  team.put(1, encoded_field(integer(21)), {});
  write_bytes(data.files.team_file, team.bytes());
  EXPECT_THAT(refusal(), ::testing::EndsWith("Subscript out of range: a count of 21, at most 20 (file small.team, "
                                             "record 22, field team_count)"));
}

/// Finds, at the second ball of a match, the draw that makes the third one that does not count.
class draw_finder : public test_user {
 public:
  struct found {};
  double draw = 0;

  explicit draw_finder(int outcome) : outcome_(outcome) {}

  using headless_user::show;
  void ball_bowled() override {
    if (match.innings_balls < 2) return;
    set_batting_aggression(match);
    draw = draw_outcome(outcome_);
    throw found();
  }

 private:
  int outcome_;
};

/// An outcome that does not count, and where it is counted.
struct uncounted {
  int outcome;
  const char* field;
};

std::ostream& operator<<(std::ostream& out, const uncounted& counted) { return out << counted.field; }

class CliUncounted : public CliLimits, public ::testing::WithParamInterface<uncounted> {};

TEST_P(CliUncounted, DeliveriesWithoutEnd) {
  // The conditions, the toss, the bowlers' offset, two balls without a run.
  std::vector<double> draws(6, 0.5);
  draws.insert(draws.end(), 2, 0.9999);
  draw_finder finder(GetParam().outcome);
  std::string bowler;
  {
    const front_end_scope scope(finder);
    chance.use_script(draws, "draws");
    new_match_form form(in_play());
    form.open();
    EXPECT_THROW(form.accept(), draw_finder::found);
    bowler = match.bowling_xi[match.bowler].name;
  }
  play_a_match();
  ASSERT_EQ(contents_of(teams()).size(), 5U) << "with careers, records and the archive";
  std::string lines;
  for (const double draw : draws) lines += fmt::format("{}\n", draw);
  for (int i = 0; i < 32768; ++i) lines += fmt::format("{}\n", finder.draw);
  write_bytes(file("draws.txt"), lines);
  EXPECT_EQ(refusal({"--draws", file("draws.txt"), "match", "--update"}),
            fmt::format("velorin-cli: Overflow: 32768 does not fit a 16-bit figure (field {}, at \"{}\")",
                        GetParam().field, bowler));
}

INSTANTIATE_TEST_SUITE_P(, CliUncounted,
                         ::testing::Values(uncounted{no_ball, "innings_no_balls"},
                                           uncounted{wide_ball, "innings_wides"}),
                         [](const auto& counted) { return std::string(counted.param.field); });

}  // namespace
}  // namespace velorin::testing
