// SPDX-License-Identifier: GPL-3.0-or-later
// Every limit of the career file: what just fits is written, what is one too many is refused, and the files stay.
#include <fmt/format.h>

#include <limits>

#include "database/career_update.h"
#include "database/lasting_records.h"
#include "database/limits_fixture.h"
#include "database/slots.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::write_bytes;

class CareerLimits : public testing::limits_fixture {};

/// A figure of a career, the record of his team and a man whose match adds to it.
struct career_figure {
  const char* name;
  std::int32_t career_rec::*figure;
  int team;
  int player;
};

const std::vector<career_figure> career_figures = {
    {"matches", &career_rec::matches, 1, 1},
    {"innings", &career_rec::innings, 1, 1},
    {"runs", &career_rec::runs, 1, 1},
    {"balls_faced", &career_rec::balls_faced, 2, 3},
    {"fours", &career_rec::fours, 2, 2},
    {"sixes", &career_rec::sixes, 2, 2},
    {"twos", &career_rec::twos, 1, 11},
    {"threes", &career_rec::threes, 1, 11},
    {"singles", &career_rec::singles, 1, 5},
    {"dots", &career_rec::dots, 2, 3},
    {"wickets", &career_rec::wickets, 2, 9},
    {"catches", &career_rec::catches, 1, 3},
    {"catches", &career_rec::catches, 1, 10},
    {"stumpings", &career_rec::stumpings, 2, 7},
    {"balls_bowled", &career_rec::balls_bowled, 1, 9},
    {"maidens", &career_rec::maidens, 2, 9},
    {"runs_given", &career_rec::runs_given, 1, 11},
    {"hundreds", &career_rec::hundreds, 2, 2},
    {"fifties", &career_rec::fifties, 1, 1},
    {"five_wickets", &career_rec::five_wickets, 2, 9},
    {"not_outs", &career_rec::not_outs, 1, 1},
};

TEST_F(CareerLimits, EveryCareerFigure) {
  update_career(match, data);
  for (const career_figure& tried : career_figures) {
    const career_table before = read_career_table(data);
    career_table full = before;
    career_rec& man = full.teams[tried.team].players[tried.player];
    const std::int32_t gain = man.*tried.figure;  // the match was the only one so far
    ASSERT_GT(gain, 0) << tried.name;
    man.*tried.figure = std::numeric_limits<std::int32_t>::max() - gain + 1;
    write_career_table(data, full);
    EXPECT_EQ(
        refusal([] { update_career(match, data); }),
        fmt::format("Overflow: a career figure does not fit 32 bits (file base.rec, record {}, field {}, at \"{}\")",
                    tried.team + 1, tried.name, man.name));
    man.*tried.figure = std::numeric_limits<std::int32_t>::max() - gain;
    write_career_table(data, full);
    update_career(match, data);
    EXPECT_EQ(read_career_table(data).teams[tried.team].players[tried.player].*tried.figure,
              std::numeric_limits<std::int32_t>::max());
    write_career_table(data, before);
  }
}

TEST_F(CareerLimits, ATwentyFirstTeamWithCareers) {
  career_table table;
  table.career_team_count = 19;
  for (int t = 1; t <= 19; ++t) table.teams[t].team_name = fmt::format("Team {}", t);
  write_career_table(data, table);
  EXPECT_EQ(refusal([] { update_career(match, data); }, failure::subscript),
            "Subscript out of range: more than 20 teams with careers (file base.rec, record 22, field team_name, "
            "at \"Alba\")");
  match.team2_name = "Team 19";
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).career_team_count, 20);
  match.team1_name = "Corran";
  EXPECT_EQ(refusal([] { update_career(match, data); }, failure::subscript),
            "Subscript out of range: more than 20 teams with careers (file base.rec, record 22, field team_name, "
            "at \"Corran\")");
}

TEST_F(CareerLimits, ATwentyFirstPlayerOfEitherSide) {
  update_career(match, data);
  const career_table first = read_career_table(data);
  for (const int team : {1, 2}) {
    career_table table = first;
    career_team_rec& men = table.teams[team];
    for (int p = 12; p <= 20; ++p) men.players[p].name = fmt::format("Old {}", p);
    men.player_count = 20;
    write_career_table(data, table);
    update_career(match, data);
    EXPECT_EQ(read_career_table(data).teams[team].player_count, 20) << "known men need no place";
    bowling_card_table& card = team == 1 ? match.first_bowling_card : match.bowling_card;
    const std::string known = card[11].name;
    card[11].name = "New";
    EXPECT_EQ(
        refusal([] { update_career(match, data); }, failure::subscript),
        fmt::format("Subscript out of range: more than 20 players of {0} with careers (file base.rec, record {1}, "
                    "field players, at \"New\")",
                    team == 1 ? "Tamar" : "Alba", team + 1));
    card[11].name = known;
  }
}

TEST_F(CareerLimits, ACareerSlotUpToItsLastByte) {
  update_career(match, data);
  const std::size_t size = encoded(read_career_table(data).teams[1]).size();
  std::filesystem::remove(data.files.career_file);
  match.first_bowling_card[4].name += std::string(career_slot - size, 'x');
  match.batting_card[4].name = match.first_bowling_card[4].name;
  update_career(match, data);
  const career_team_rec full = read_career_table(data).teams[1];
  EXPECT_EQ(encoded(full).size(), career_slot);
  EXPECT_EQ(full.players[4].runs, 12);
  EXPECT_EQ(bytes_of(data.files.career_file).size(), 3 * career_slot);
  EXPECT_EQ(read_career_table(data).teams[2].team_name, "Alba") << "the next slot";

  // Another hundred, against a side whose name has a letter more.
  match.batting_card[1].runs = 100;
  match.team2_name = "Albas";
  EXPECT_EQ(refusal([] { update_career(match, data); }),
            "Overflow: a record of 5501 bytes in a slot of 5500 (file base.rec, record 2, at \"Tamar\")");
  match.team2_name = "Alba";
  update_career(match, data);
  EXPECT_EQ(read_career_table(data).teams[1].players[1].high_score, 100);
}

TEST_F(CareerLimits, ANameWhoseLengthHasNoPlace) {
  match.bowling_card[2].name = std::string(70000, 'x');
  EXPECT_EQ(refusal([] { update_career(match, data); }),
            "Overflow: a record of 72380 bytes in a slot of 5500 (file base.rec, record 3, at \"Alba\")");
}

TEST_F(CareerLimits, FilesOfZeroLengthAreNewOnes) {
  update_career(match, data);
  update_records(match, data);
  const std::string career_file = bytes_of(data.files.career_file);
  const std::string record_file = bytes_of(data.files.record_file);
  write_bytes(data.files.career_file, "");
  write_bytes(data.files.record_file, "");
  update_career(match, data);
  update_records(match, data);
  EXPECT_EQ(bytes_of(data.files.career_file), career_file);
  EXPECT_EQ(bytes_of(data.files.record_file), record_file);
  EXPECT_EQ(read_career_table(data).teams[1].players[1].matches, 1);
  EXPECT_EQ(read_record_lists(data).lowest_totals[3].total, 1000) << "the lines of 0 were freed";
}

}  // namespace
}  // namespace velorin
