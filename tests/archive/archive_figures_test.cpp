// SPDX-License-Identifier: GPL-3.0-or-later
// What the archive has of a match is what its object tells, field by field.
#include <algorithm>

#include "archive/archive_fixture.h"
#include "model/code_page.h"

namespace velorin::testing {
namespace {

using ::testing::Contains;
using ::testing::HasSubstr;

std::string utf8(const std::string& bytes) { return to_utf8(bytes); }

/// An innings as the last state of an object has it: `prefix` is "first_" for the first.
struct told_innings_of {
  const json& state;
  std::string prefix;

  const json& at(const std::string& name) const { return state.at(prefix + name); }
};

void expect_batting(const archived_innings& innings, const told_innings_of& told) {
  std::size_t in = 0;
  for (int position = 1; position <= 11; ++position) {
    const json& line = told.at("batting_card").at(static_cast<std::size_t>(position) - 1);
    if (line.at("name") == "") continue;
    ASSERT_LT(in, innings.batting.size());
    const archived_batsman& man = innings.batting[in++];
    EXPECT_EQ(man.position, position);
    EXPECT_EQ(utf8(man.player), line.at("name"));
    EXPECT_EQ(man.runs, line.at("runs"));
    EXPECT_EQ(man.balls, line.at("balls"));
    EXPECT_EQ(man.dots, line.at("dots"));
    EXPECT_EQ(man.ones, line.at("singles"));
    EXPECT_EQ(man.twos, line.at("twos"));
    EXPECT_EQ(man.threes, line.at("threes"));
    EXPECT_EQ(man.fours, line.at("fours"));
    EXPECT_EQ(man.sixes, line.at("sixes"));
    const auto words = line.at("how_out").get<std::string>();
    EXPECT_EQ(man.out, !words.empty() && words != "not out") << words;
    if (!man.bowler.empty()) {
      EXPECT_THAT(words, HasSubstr(utf8(man.bowler)));
    }
    if (man.how == dismissal::caught) {
      EXPECT_THAT(line.at("fielder").get<std::string>(), HasSubstr(utf8(man.fielder)));
    }
    if (man.how == dismissal::run_out) {
      EXPECT_EQ(words, " run out (" + utf8(man.fielder) + ")");
    }
    EXPECT_EQ(man.out && man.how != dismissal::run_out, !man.bowler.empty());
    EXPECT_EQ(man.hundred_balls > 0, man.runs >= 100);
    EXPECT_EQ(man.fifty_balls > 0, man.runs >= 50);
    EXPECT_LE(man.hundred_balls, man.balls);
  }
  EXPECT_EQ(in, innings.batting.size());
}

void expect_bowling(const archived_innings& innings, const told_innings_of& told) {
  ASSERT_EQ(innings.bowling.size(), 11U);
  for (std::size_t i = 0; i < 11; ++i) {
    const json& line = told.at("bowling_card").at(i);
    const archived_bowler& man = innings.bowling[i];
    EXPECT_EQ(utf8(man.player), line.at("name"));
    EXPECT_EQ(man.balls, line.at("balls"));
    EXPECT_EQ(man.maidens, line.at("maidens"));
    EXPECT_EQ(man.runs, line.at("runs"));
    EXPECT_EQ(man.wickets, line.at("wickets"));
    if (man.balls > 0) {
      EXPECT_GT(man.came_on, 0);
    }
  }
}

void expect_stands(const archived_innings& innings, const told_innings_of& told) {
  for (int wicket = 1; wicket <= innings.wickets; ++wicket) {
    const json& line = told.at("fall_of_wicket").at(static_cast<std::size_t>(wicket));
    const archived_stand& stand = innings.stands.at(static_cast<std::size_t>(wicket) - 1);
    EXPECT_EQ(stand.runs, line.at("partner_runs"));
    EXPECT_EQ(stand.balls, line.at("partner_balls"));
    EXPECT_EQ(stand.score, line.at("score"));
    EXPECT_EQ(stand.at_balls, line.at("balls"));
    EXPECT_EQ(utf8(stand.player1), line.at("batsman_a"));
    EXPECT_EQ(utf8(stand.player2), line.at("batsman_b"));
    EXPECT_FALSE(stand.unbroken);
  }
}

/// The stands, the overs and the men make up the innings.
void expect_sums(const archived_innings& innings) {
  int stands = 0;
  for (const archived_stand& stand : innings.stands) stands += stand.is_there() ? stand.runs : 0;
  EXPECT_EQ(stands, innings.runs);
  int overs = 0;
  int wickets = 0;
  for (const archived_over& over : innings.overs) {
    overs += over.runs;
    wickets += over.wickets;
  }
  EXPECT_EQ(overs, innings.runs);
  EXPECT_EQ(wickets, innings.wickets);
  int men = innings.byes + innings.leg_byes;
  for (const archived_batsman& man : innings.batting) men += man.runs;
  EXPECT_EQ(men, innings.runs);
}

void expect_overs(const archived_innings& innings, const told_innings_of& told) {
  for (const archived_over& over : innings.overs) {
    const json& bowler = told.at("ball_log").at(static_cast<std::size_t>(over.over) - 1).at(6);
    if (bowler != "") {
      EXPECT_EQ(utf8(over.bowler), bowler);
    }
  }
}

void expect_innings(const archived_innings& innings, const told_innings_of& told) {
  expect_batting(innings, told);
  expect_bowling(innings, told);
  expect_stands(innings, told);
  expect_overs(innings, told);
  expect_sums(innings);
}

// The woven-in checks of a sanitizer take their time.
#ifdef VELORIN_SANITIZED
constexpr int matches_to_play = 12;
#else
constexpr int matches_to_play = 60;
#endif

class ArchiveFigures : public ArchiveTest {};

TEST_F(ArchiveFigures, AreThoseOfTheMatchsObject) {
  const std::vector<json> objects = play("7", matches_to_play);
  const std::vector<archived_match> kept = archived_matches();
  ASSERT_EQ(kept.size(), objects.size());
  for (std::size_t i = 0; i < kept.size(); ++i) {
    SCOPED_TRACE(i);
    const json& state = objects[i].at("scorecards").at(1);
    const archived_match& match = kept[i];
    const archived_innings& first = match.innings[0];
    const archived_innings& second = match.innings[1];
    EXPECT_EQ(match.id, static_cast<std::int64_t>(i) + 1);
    EXPECT_EQ(utf8(match.ground), state.at("venue_name"));
    EXPECT_EQ(utf8(match.winner), objects[i].at("result").at("result_winner"));
    EXPECT_EQ(utf8(match.margin), objects[i].at("result").at("result_margin"));
    EXPECT_EQ(match.weather, state.at("weather"));
    EXPECT_EQ(match.outfield, state.at("outfield"));
    EXPECT_EQ(match.pitch_bounce, state.at("pitch_bounce"));
    EXPECT_EQ(match.pitch_surface, state.at("pitch_surface"));
    EXPECT_FALSE(match.human);
    EXPECT_EQ(utf8(first.team), state.at("team2_name"));
    EXPECT_EQ(utf8(second.team), state.at("team1_name"));
    EXPECT_EQ(first.runs, state.at("first_total"));
    EXPECT_EQ(first.wickets, state.at("first_wickets"));
    EXPECT_EQ(first.balls, state.at("first_balls"));
    EXPECT_EQ(first.wides, state.at("first_wides"));
    EXPECT_EQ(first.no_balls, state.at("first_no_balls"));
    EXPECT_EQ(first.byes, state.at("first_byes"));
    EXPECT_EQ(first.leg_byes, state.at("first_leg_byes"));
    EXPECT_EQ(second.runs, state.at("score_runs"));
    EXPECT_EQ(second.wickets, state.at("score_wickets"));
    EXPECT_EQ(second.balls, state.at("innings_balls"));
    EXPECT_EQ(second.wides, state.at("innings_wides"));
    EXPECT_EQ(second.no_balls, state.at("innings_no_balls"));
    EXPECT_EQ(second.byes, state.at("innings_byes"));
    EXPECT_EQ(second.leg_byes, state.at("innings_leg_byes"));
    expect_innings(first, {state, "first_"});
    expect_innings(second, {state, ""});
    if (HasFailure()) break;
  }
}

TEST_F(ArchiveFigures, TellWhatAMatchWasPlayedFor) {
  play_everything();
  std::map<std::string, int> played;
  for (const archived_match& match : archived_matches()) played[match.competition + "/" + match.stage] += 1;
  const std::map<std::string, int> expected = {{"Match/", 10},
                                               {"Series/", 3},
                                               {"Tri Series/League", 3},
                                               {"Tri Series/Final", 1},
                                               {"World Cup/Group", 20},
                                               {"World Cup/Super Six", 9},
                                               {"World Cup/Semi-final", 2},
                                               {"World Cup/Final", 1}};
  EXPECT_EQ(played, expected);
}

TEST_F(ArchiveFigures, TellOfAHumanCaptain) {
  text({"--seed", "5", "match", "--captain1", "human", "--update", "--quiet"});
  text({"--seed", "5", "match", "--update", "--quiet"});
  const std::vector<archived_match> kept = archived_matches();
  ASSERT_EQ(kept.size(), 2U);
  EXPECT_TRUE(kept[0].human);
  EXPECT_FALSE(kept[1].human);
}

}  // namespace
}  // namespace velorin::testing
