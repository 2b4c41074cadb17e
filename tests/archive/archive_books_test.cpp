// SPDX-License-Identifier: GPL-3.0-or-later
// The archive and the careers and records tell the same.
#include "archive/archive_fixture.h"
#include "archive/question.h"
#include "database/open_database.h"
#include "model/code_page.h"

namespace velorin::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class ArchiveBooks : public ArchiveTest {
 protected:
  career_table careers() const { return read_career_table(files().career_file); }

  /// A figure of the sums of a man, from an answer by player and team.
  static std::int64_t figure(const answer& told, const std::vector<answer_value>& row, const std::string& name) {
    for (std::size_t i = 0; i < told.columns.size(); ++i) {
      if (told.columns[i].name == name) return std::get<std::int64_t>(row[i]);
    }
    ADD_FAILURE() << "no column " << name;
    return 0;
  }

  /// The rows of a source summed by player and team, under "player/team".
  std::map<std::string, std::map<std::string, std::int64_t>> sums(rows_of from,
                                                                  const std::vector<std::string>& names) const {
    const answer told = ask(archive(), {.from = from, .by = {"player", "team"}, .where = {}, .having = {}, .sort = {}});
    std::map<std::string, std::map<std::string, std::int64_t>> all;
    for (const auto& row : told.rows) {
      auto& man = all[std::get<std::string>(row[0]) + "/" + std::get<std::string>(row[1])];
      for (const std::string& name : names) man[name] = figure(told, row, name);
    }
    return all;
  }
};

TEST_F(ArchiveBooks, AgreeAfterMatchesOfEveryCompetition) {
  play_everything();
  const archive_findings found = check_archive(files());
  EXPECT_EQ(found.matches, 49);
  EXPECT_EQ(found.matches_before, 0);
  EXPECT_THAT(found.differences, IsEmpty());
}

TEST_F(ArchiveBooks, SumUpToTheCareers) {
  play_everything();
  auto batting =
      sums(rows_of::batting, {"innings", "not_outs", "runs", "balls", "hundreds", "fifties", "fours", "sixes"});
  auto bowling = sums(rows_of::bowling, {"balls", "maidens", "runs", "wickets", "five_wickets"});
  const career_table table = careers();
  int men = 0;
  for (int t = 1; t <= table.career_team_count; ++t) {
    const career_team_rec& team = table.teams[t];
    for (int p = 1; p <= team.player_count; ++p, ++men) {
      const career_rec& man = team.players[p];
      SCOPED_TRACE(man.name);
      const std::string who = to_utf8(man.name) + "/" + to_utf8(team.team_name);
      EXPECT_EQ(batting[who]["innings"], man.innings);
      EXPECT_EQ(batting[who]["not_outs"], man.not_outs);
      EXPECT_EQ(batting[who]["runs"], man.runs);
      EXPECT_EQ(batting[who]["balls"], man.balls_faced);
      EXPECT_EQ(batting[who]["hundreds"], man.hundreds);
      EXPECT_EQ(batting[who]["fifties"], man.fifties);
      EXPECT_EQ(batting[who]["fours"], man.fours);
      EXPECT_EQ(batting[who]["sixes"], man.sixes);
      EXPECT_EQ(bowling[who]["balls"], man.balls_bowled);
      EXPECT_EQ(bowling[who]["maidens"], man.maidens);
      EXPECT_EQ(bowling[who]["runs"], man.runs_given);
      EXPECT_EQ(bowling[who]["wickets"], man.wickets);
      EXPECT_EQ(bowling[who]["five_wickets"], man.five_wickets);
    }
  }
  EXPECT_GE(men, 110);
}

TEST_F(ArchiveBooks, AChangedCareerIsNamed) {
  play("1", 3);
  career_table table = careers();
  table.teams[1].players[4].runs += 7;
  open_database data;
  data.files = files();
  write_career_table(data, table);
  const std::string who = table.teams[1].players[4].name;
  EXPECT_THAT(differences(), ElementsAre(HasSubstr("career of " + who + " (" + table.teams[1].team_name + "): runs")));
}

TEST_F(ArchiveBooks, AChangedRecordIsNamed) {
  play("1", 3);
  record_lists lists = read_record_lists(files().record_file);
  lists.top_scores[2].venue = "Elsewhere";
  lists.teams[1].home_won = {7.0};
  open_database data;
  data.files = files();
  write_record_lists(data, lists);
  EXPECT_THAT(differences(), ElementsAre(HasSubstr("highest scores: line 2: venue"), HasSubstr("home_won")));
}

TEST_F(ArchiveBooks, AMissingMatchIsNamed) {
  play("1", 3);
  change("DELETE FROM match_row WHERE id = 2");
  EXPECT_THAT(differences(), Contains("matches: the archive has 2 after 0 from before it, the careers hold 3"));
}

TEST_F(ArchiveBooks, MatchesFromBeforeTheArchiveAreTold) {
  play("1", 4);
  std::filesystem::remove(archive_path(files()));
  play("2", 3);
  const archive_findings found = check_archive(files());
  EXPECT_EQ(found.matches, 3);
  EXPECT_EQ(found.matches_before, 4);
  EXPECT_THAT(found.differences, IsEmpty());
}

TEST_F(ArchiveBooks, WrongSumsAreNamedAndMended) {
  play("1", 5);
  const auto before = archived_matches();
  change("UPDATE batting_sums SET runs = runs + 1 WHERE player = (SELECT min(player) FROM batting_sums)");
  EXPECT_THAT(differences(), ElementsAre(HasSubstr("rebuild mends them")));
  rebuild_archive(files());
  EXPECT_THAT(differences(), IsEmpty());
  EXPECT_EQ(archived_matches().size(), before.size());
  play("2", 1);
  EXPECT_EQ(archived_matches().back().id, 6);
}

}  // namespace
}  // namespace velorin::testing
