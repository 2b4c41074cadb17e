// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of the archive against a second telling over its matches, and the ways between them.
#include "archive/archive_pages.h"

#include <algorithm>
#include <set>
#include <utility>

#include "archive/archive_fixture.h"
#include "archive/archive_place.h"
#include "archive/second_telling.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using kind = archive_subject::kind;

class ArchivePages : public ArchiveTest {
 protected:
  void SetUp() override {
    ArchiveTest::SetUp();
    text({"--seed", "5", "match", "--update", "--matches", "30", "--quiet"});
    matches_ = archived_matches();
  }

  /// The sections with a question have as many rows as the second telling, and the same where it knows the field.
  void expect_told(const archive_subject& about) const {
    const archive_page page = page_of(about);
    EXPECT_FALSE(page.heading.empty());
    ASSERT_FALSE(page.sections.empty());
    const archive_file book = archive();
    for (const page_section& section : page.sections) {
      SCOPED_TRACE(section.title);
      const answer told = section_answer(book, about, section);
      if (section.how != page_section::kind::asked) continue;
      // The second telling knows no dates, and no order of bowlers.
      if (section.asked.by == std::vector<std::string>{"year"} || section.asked.sort == "came_on") continue;
      const std::vector<told_row> wanted = tell(matches_, section.asked);
      const std::size_t most = section.asked.top > 0 ? static_cast<std::size_t>(section.asked.top) : wanted.size();
      ASSERT_EQ(told.rows.size(), std::min(most, wanted.size()));
      for (std::size_t i = 0; i < told.rows.size() && !section.asked.sort.empty(); ++i) {
        const std::string& by = section.asked.sort;
        const auto column = std::find_if(told.columns.begin(), told.columns.end(),
                                         [&](const answer_column& each) { return each.name == by; });
        ASSERT_NE(column, told.columns.end());
        const auto at = static_cast<std::size_t>(column - told.columns.begin());
        const auto value = wanted[i].find(by);
        if (value == wanted[i].end()) break;
        EXPECT_EQ(value_text(told.rows[i][at]), value->second) << i;
        ++compared_;
      }
    }
  }

  /// A man who has batted and bowled in many matches.
  std::pair<std::string, std::string> busy_man() const {
    std::map<std::pair<std::string, std::string>, int> overs;
    for (const archived_match& match : matches_) {
      for (int i = 0; i < 2; ++i) {
        for (const archived_bowler& man : match.innings[i].bowling) {
          overs[{man.player, match.innings[1 - i].team}] += man.balls;
        }
      }
    }
    return std::max_element(overs.begin(), overs.end(),
                            [](const auto& a, const auto& b) { return a.second < b.second; })
        ->first;
  }

  std::vector<archived_match> matches_;
  mutable int compared_ = 0;  ///< values
};

TEST_F(ArchivePages, TellWhatTheMatchesTell) {
  const auto [man, team] = busy_man();
  const archived_match& last = matches_.back();
  const std::string other = last.innings[0].team == team ? last.innings[1].team : last.innings[0].team;
  for (const archive_subject& about :
       {archive_subject{.what = kind::player, .name = man, .team = team},
        archive_subject{.what = kind::team, .name = team}, archive_subject{.what = kind::ground, .name = last.ground},
        archive_subject{.what = kind::match, .match = last.id},
        archive_subject{.what = kind::two_teams, .name = team, .other = other}}) {
    SCOPED_TRACE(about.name);
    expect_told(about);
  }
  EXPECT_GT(compared_, 100);
}

TEST_F(ArchivePages, MilestonesStandInTheirMatches) {
  const auto [man, team] = busy_man();
  const archive_subject about{.what = kind::player, .name = man, .team = team};
  const archive_page page = page_of(about);
  const auto section = std::find_if(page.sections.begin(), page.sections.end(), [](const page_section& each) {
    return each.how == page_section::kind::milestones;
  });
  ASSERT_NE(section, page.sections.end());
  std::vector<std::string> told;
  for (const auto& row : section_answer(archive(), about, *section).rows) {
    told.push_back(value_text(row[0]) + " " + value_text(row[1]) + " " + value_text(row[2]) + " " + value_text(row[3]));
  }
  std::multiset<std::string> wanted;
  int wickets = 0;
  bool batted = false;
  bool fifty = false;
  bool hundred = false;
  bool five = false;
  int runs = 0;
  for (const archived_match& match : matches_) {
    for (int i = 0; i < 2; ++i) {
      const archived_innings& innings = match.innings[i];
      const std::string against = match.innings[1 - i].team;
      const auto add = [&](const std::string& what, const std::string& opponent) {
        wanted.insert(what + " " + std::to_string(match.id) + " " + opponent + " " + match.ground);
      };
      for (const archived_batsman& at_bat : innings.batting) {
        if (at_bat.player != man || innings.team != team) continue;
        if (!std::exchange(batted, true)) add("First innings", against);
        if (at_bat.runs >= 50 && at_bat.runs < 100 && !std::exchange(fifty, true)) add("First fifty", against);
        if (at_bat.runs >= 100 && !std::exchange(hundred, true)) add("First hundred", against);
        if (runs < 1000 && runs + at_bat.runs >= 1000) add("1000 runs", against);
        runs += at_bat.runs;
      }
      for (const archived_bowler& bowler : innings.bowling) {
        if (bowler.player != man || against != team || bowler.came_on == 0) continue;
        if (wickets == 0 && bowler.wickets > 0) add("First wicket", innings.team);
        if (bowler.wickets >= 5 && !std::exchange(five, true)) add("First five wickets", innings.team);
        if (wickets < 50 && wickets + bowler.wickets >= 50) add("50 wickets", innings.team);
        wickets += bowler.wickets;
      }
    }
  }
  EXPECT_EQ(std::multiset<std::string>(told.begin(), told.end()), wanted);
  EXPECT_GE(wanted.size(), 2U);
}

answer rows_of_runs(std::initializer_list<std::int64_t> runs) {
  answer told;
  for (const char* name : {"match_id", "opponent", "runs", "ground"}) {
    told.columns.push_back({name, column_kind::text});
  }
  std::int64_t id = 0;
  for (const std::int64_t made : runs) told.rows.push_back({++id, std::string("Cork"), made, std::string("Park")});
  return told;
}

TEST(Milestones, AreReachedOnceAndInOrder) {
  answer none = rows_of_runs({});
  none.columns[2].name = "wickets";
  const answer told = milestones_of(rows_of_runs({60, 99, 120, 900, 100}), none);
  std::vector<std::string> lines;
  for (const auto& row : told.rows) lines.push_back(value_text(row[0]) + " " + value_text(row[1]));
  EXPECT_THAT(lines, ElementsAre("First innings 1", "First fifty 1", "First hundred 3", "1000 runs 4"));
}

TEST(SideBySide, StandTwoOfAKind) {
  const archive_subject man{.what = kind::player, .name = "A", .team = "X"};
  const archive_subject other{.what = kind::player, .name = "B", .team = "Y"};
  const archive_subject team{.what = kind::team, .name = "X"};
  const auto both = side_by_side(man, other);
  ASSERT_TRUE(both);
  EXPECT_EQ(both->what, kind::two_players);
  EXPECT_EQ(both->other_team, "Y");
  EXPECT_FALSE(side_by_side(man, man));
  EXPECT_FALSE(side_by_side(man, team));
  EXPECT_FALSE(side_by_side({.what = kind::ground, .name = "P"}, {.what = kind::ground, .name = "Q"}));
}

TEST_F(ArchivePages, ShowTheFiguresOfACareerOneBelowTheOther) {
  const auto [man, team] = busy_man();
  const archive_subject about{.what = kind::player, .name = man, .team = team};
  const page_section bowling = page_of(about).sections.at(1);
  ASSERT_EQ(bowling.how, page_section::kind::figures);
  const answer told = section_answer(archive(), about, bowling);
  const told_row wanted = tell(matches_, bowling.asked).at(0);
  std::map<std::string, std::string> figures;
  for (const auto& row : told.rows) figures[value_text(row[0])] = value_text(row[1]);
  for (const auto& [caption, field] : std::map<std::string, std::string>{
           {"Runs", "runs"}, {"Wickets", "wickets"}, {"Strike rate", "strike_rate"}, {"Best", "best"}}) {
    EXPECT_EQ(figures[caption], wanted.at(field)) << caption;
  }
}

TEST_F(ArchivePages, StandSideBySideWithTheFiguresOfEach) {
  const auto [man, team] = busy_man();
  const archived_match& last = matches_.back();
  const archive_subject about{.what = kind::two_players,
                              .name = man,
                              .team = team,
                              .other = last.innings[0].batting.front().player,
                              .other_team = last.innings[0].team};
  const page_section batting = page_of(about).sections.front();
  const answer told = section_answer(archive(), about, batting);
  ASSERT_EQ(told.columns.size(), 3U);
  EXPECT_EQ(told.columns[1].name, man);
  const answer his = ask(archive(), batting.asked);
  const answer others = ask(archive(), batting.other);
  ASSERT_EQ(told.rows.size(), his.columns.size() - 2) << "all but the names";
  for (std::size_t i = 0; i < told.rows.size(); ++i) {
    EXPECT_EQ(told.rows[i][1], his.rows.at(0)[i + 2]);
    EXPECT_EQ(told.rows[i][2], others.rows.at(0)[i + 2]);
  }
}

TEST(Links, LeadToWhatACellNamesElseToTheMatch) {
  answer told;
  told.columns = {{"match_id", column_kind::number}, {"player", column_kind::text},   {"team", column_kind::text},
                  {"bowler", column_kind::text},     {"opponent", column_kind::text}, {"runs", column_kind::number}};
  told.rows = {{std::int64_t{7}, "A.Man", "Cork", "B.Owler", "Hull", std::int64_t{50}},
               {std::int64_t{8}, "A.Man", "Cork", "", "Hull", std::int64_t{3}}};
  EXPECT_EQ(led_to_by(told, 0, 0), (archive_subject{.what = kind::match, .match = 7}));
  EXPECT_EQ(led_to_by(told, 0, 1), (archive_subject{.what = kind::player, .name = "A.Man", .team = "Cork"}));
  EXPECT_EQ(led_to_by(told, 0, 2), (archive_subject{.what = kind::team, .name = "Cork"}));
  EXPECT_EQ(led_to_by(told, 0, 3), (archive_subject{.what = kind::player, .name = "B.Owler", .team = "Hull"}));
  EXPECT_EQ(led_to_by(told, 0, 5), (archive_subject{.what = kind::match, .match = 7}));
  EXPECT_EQ(led_to_by(told, 1, 3), (archive_subject{.what = kind::match, .match = 8})) << "nobody took it";
  told.columns[0].name = "wickets";
  EXPECT_EQ(led_to_by(told, 0, 5), (archive_subject{.what = kind::player, .name = "A.Man", .team = "Cork"}));
}

TEST(History, GoesBackAndForwardAsABrowserDoes) {
  const archive_subject man{.what = kind::player, .name = "A"};
  const archive_subject ground{.what = kind::ground, .name = "P"};
  archive_history past({});
  EXPECT_FALSE(past.has_back());
  past.here().scrolled = 12;
  past.go_to({.about = man});
  past.go_to({.about = ground});
  EXPECT_FALSE(past.has_forward());
  past.go_back();
  past.go_back();
  EXPECT_EQ(past.here().scrolled, 12) << "what was chosen is there again";
  ASSERT_TRUE(past.has_forward());
  past.go_forward();
  EXPECT_EQ(past.here().about, man);
  past.go_to({});
  EXPECT_FALSE(past.has_forward()) << "what lay ahead is forgotten";
  past.go_back();
  EXPECT_EQ(past.here().about, man);
}

}  // namespace
}  // namespace velorin::testing
