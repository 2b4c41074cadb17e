// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_fixture.h"
#include "competitions/world_cup_form.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/scripted_user.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

/// What the runs leave in the teams folder.
class Update : public CliTest {
 protected:
  career_table careers() const { return read_career_table(teams() / "small.rec"); }
  record_lists records() const { return read_record_lists(teams() / "small.ptr"); }

  /// The sum of a figure over all careers.
  template <class Figure>
  long sum(Figure figure) const {
    const career_table table = careers();
    long total = 0;
    for (int t = 1; t <= table.career_team_count; ++t) {
      for (int p = 1; p <= table.teams[t].player_count; ++p) total += table.teams[t].players[p].*figure;
    }
    return total;
  }

  /// Won, lost and tied over the whole team table.
  std::array<double, 3> outcomes() const {
    const record_lists lists = records();
    std::array<double, 3> sums{};
    for (int t = 1; t <= lists.table_team_count; ++t) {
      const team_table& team = lists.teams[t];
      sums[0] += team.home_won.number() + team.away_won.number();
      sums[1] += team.home_lost.number() + team.away_lost.number();
      sums[2] += team.home_tied.number() + team.away_tied.number();
    }
    return sums;
  }
};

TEST_F(Update, WithoutItNothingUnderTheTeamsFolderChanges) {
  const auto before = contents_of(teams());
  run({"match"});
  run({"match", "--matches", "5", "--json", file("m.json"), "--html", file("p.html"), "--text", file("t.txt")});
  run({"match", "--captain1", "human", "--captain2", "human"});
  run({"series", "--home", "Vestria", "--away", "Orland", "--matches", "2"});
  run({"tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne"});
  run({"worldcup"});
  run({"match", "--team1", "nobody"});
  run({"report", "rankings"});
  run({"db", "check", "small"});
  run({"db", "dump", "small", file("dump")});
  EXPECT_EQ(contents_of(teams()), before);
}

TEST_F(Update, FilesCutShortTakeNoMatch) {
  run({"--seed", "1", "match", "--matches", "3", "--update", "--quiet"});
  for (const auto& [name, size] : {std::pair("small.rec", 6000), std::pair("small.ptr", 175'000)}) {
    const std::string whole = file_bytes(teams() / name);
    ASSERT_GT(whole.size(), static_cast<std::size_t>(size));
    std::filesystem::resize_file(teams() / name, size);
    const auto before = contents_of(teams());
    EXPECT_THAT(error(1, {"--seed", "2", "match", "--update"}),
                ::testing::AllOf(HasSubstr("The file is not whole: the file ends "), HasSubstr(name)));
    EXPECT_EQ(run({"db", "check", "small"}).status, 1);
    EXPECT_EQ(contents_of(teams()), before);
    write_bytes(teams() / name, whole);
  }
}

TEST_F(Update, AFileOfAnotherDayTakesNoMatch) {
  run({"--seed", "1", "match", "--update", "--quiet"});
  const std::string career_file = file_bytes(teams() / "small.rec");
  run({"--seed", "2", "match", "--update", "--quiet"});
  write_bytes(teams() / "small.rec", career_file);
  EXPECT_THAT(error(1, {"--seed", "3", "match", "--update"}),
              HasSubstr("small.rec and small.ptr do not belong together"));
  const run_result checked = run({"db", "check", "small"});
  EXPECT_EQ(checked.status, 1);
  EXPECT_THAT(checked.out, HasSubstr("small.rec: record 2: matches: "));
}

TEST_F(Update, WithoutItFiguresStayAsTheyAre) {
  EXPECT_EQ(run({"--seed", "1", "match", "--update"}).status, 0);
  const auto before = contents_of(teams());
  run({"--seed", "2", "match"});
  run({"--seed", "2", "worldcup"});
  EXPECT_EQ(contents_of(teams()), before);
}

TEST_F(Update, AMatchMakesTheThreeFiles) {
  const auto before = contents_of(teams());
  const run_result result = run({"--seed", "1", "match", "--update"});
  EXPECT_EQ(result.out, text({"--seed", "1", "match"})) << "the same match";
  auto after = contents_of(teams());
  EXPECT_EQ(after.erase("small.rec"), 1U);
  EXPECT_EQ(after.erase("small.ptr"), 1U);
  EXPECT_EQ(after.erase("small.matches"), 1U);
  EXPECT_EQ(after, before) << "nothing else is changed or left behind";
  EXPECT_EQ(sum(&career_rec::matches), 22);
  EXPECT_EQ(run({"db", "check", "small"}).status, 0);
}

TEST_F(Update, CareersAddUpToTheMatch) {
  run({"--seed", "4", "match", "--update", "--json", file("match.json"), "--quiet"});
  const json object = json::parse(file_bytes(file("match.json")));
  long runs = 0;
  long balls = 0;
  long wickets = 0;
  long innings = 0;
  long caught = 0;
  long stumped = 0;
  for (const json& state : object["scorecards"]) {
    balls += state["innings_balls"].get<int>();
    for (const json& man : state["batting_card"]) {
      runs += man["runs"].get<int>();
      innings += man["name"] == "" ? 0 : 1;
      const std::string fielder = man["fielder"];
      caught += fielder.starts_with(" c ") || man["how_out"].get<std::string>().starts_with(" c && b ") ? 1 : 0;
      stumped += fielder.starts_with(" st ") ? 1 : 0;
    }
    for (const json& man : state["bowling_card"]) wickets += man["wickets"].get<int>();
  }
  EXPECT_EQ(sum(&career_rec::matches), 22);
  EXPECT_EQ(sum(&career_rec::runs), runs);
  EXPECT_EQ(sum(&career_rec::runs_given), runs);
  EXPECT_EQ(sum(&career_rec::balls_bowled), balls);
  EXPECT_EQ(sum(&career_rec::wickets), wickets);
  EXPECT_EQ(sum(&career_rec::innings), innings);
  EXPECT_EQ(sum(&career_rec::catches), caught);
  EXPECT_EQ(sum(&career_rec::stumpings), stumped);
}

TEST_F(Update, SeveralMatchesAreAdded) {
  run({"--seed", "5", "match", "--matches", "6", "--update"});
  EXPECT_EQ(sum(&career_rec::matches), 6 * 22);
  run({"--seed", "6", "match", "--update"});
  EXPECT_EQ(sum(&career_rec::matches), 7 * 22);
  const std::array<double, 3> all = outcomes();
  EXPECT_EQ(all[0] + all[1] + all[2], 14);
}

TEST_F(Update, SeriesAndTriSeriesAreAdded) {
  run({"--seed", "5", "series", "--home", "Vestria", "--away", "Orland", "--matches", "3", "--update"});
  EXPECT_EQ(sum(&career_rec::matches), 3 * 22);
  run({"--seed", "5", "tri", "--team1", "Vestria", "--team2", "Orland", "--team3", "Marenne", "--update"});
  EXPECT_EQ(sum(&career_rec::matches), 7 * 22) << "three matches and the final";
  EXPECT_EQ(run({"db", "check", "small"}).status, 0);
}

TEST_F(Update, AMatchThatBreaksOffLeavesTheFilesAsTheyWere) {
  run({"--seed", "1", "match", "--update"});
  const auto before = contents_of(teams());
  std::string draws;
  for (int i = 0; i < 300; ++i) draws += "0.5\n";
  write_bytes(file("draws"), draws);
  EXPECT_EQ(run({"--draws", file("draws"), "match", "--update"}).status, 1);
  EXPECT_EQ(contents_of(teams()), before);
}

/// A user who adds up the innings of a tournament.
class counting_user : public scripted_user {
 public:
  int matches = 0;
  int ties = 0;
  long runs = 0;  ///< off the bat
  long totals = 0;
  long body_extras = 0;
  long balls = 0;
  long wickets = 0;
  long faced = 0;
  long run_outs = 0;
  long last_men = 0;  ///< left over when a first innings was all out: neither out nor "not out"
  int highest = 0;

  using scripted_user::show;
  void open(report which) override {
    scripted_user::open(which);
    totals += match.score_runs;
    body_extras += match.innings_byes + match.innings_leg_byes;
    balls += match.innings_balls;
    wickets += match.score_wickets;
    highest = std::max(highest, match.score_runs);
    last_men += match.first_total == 0 && match.score_wickets == 10 ? 1 : 0;
    for (const batting_card_rec& man : match.batting_card) {
      faced += man.balls;
      run_outs += man.how_out.starts_with(" run out (") ? 1 : 0;
    }
  }
  void show(const message_box& message) override {
    scripted_user::show(message);
    if (message.title != "End of Match") return;
    ++matches;
    ties += match.result_winner.empty() ? 1 : 0;
  }
};

TEST_F(Update, TheFiguresOfAWorldCupAreTheSumOfItsMatches) {
  const run_result result = run({"--seed", "3", "worldcup", "--update", "--json"});
  ASSERT_EQ(result.status, 0) << result.err;
  const json shown = json::parse(result.out)["windows"];

  // The same tournament once more, counted ball by ball and written nowhere.
  const auto after = contents_of(teams());
  match = match_state();
  world_cup = world_cup_record();
  data.files = database_paths(teams(), "small");
  data.files.updates = false;
  data.files.elevens_in_memory = true;
  chance.use_seed(3);
  counting_user user;
  const front_end_scope scope(user);
  world_cup_form form(in_play(), world_cup);
  form.open();
  form.accept();
  ASSERT_EQ(contents_of(teams()), after);
  ASSERT_EQ(user.cup_tables.back().winners_line, shown.back()["winners"]) << "it is the same tournament";
  ASSERT_EQ(user.cup_tables.back().grand_final, shown.back()["grand_final"]);

  EXPECT_EQ(user.matches, 32);
  EXPECT_EQ(sum(&career_rec::matches), 11 * 2 * user.matches);
  EXPECT_EQ(sum(&career_rec::runs), user.totals - user.body_extras);
  EXPECT_EQ(sum(&career_rec::runs_given), user.totals - user.body_extras);
  EXPECT_EQ(sum(&career_rec::balls_bowled), user.balls);
  EXPECT_EQ(sum(&career_rec::balls_faced), user.faced);
  EXPECT_EQ(sum(&career_rec::wickets), user.wickets - user.run_outs);
  EXPECT_EQ(sum(&career_rec::innings) - sum(&career_rec::not_outs), user.wickets + user.last_men);
  const std::array<double, 3> all = outcomes();
  EXPECT_EQ(all[0], user.matches - user.ties);
  EXPECT_EQ(all[1], user.matches - user.ties);
  EXPECT_EQ(all[2], 2 * user.ties);
  EXPECT_EQ(records().highest_totals[1].total, user.highest);
  EXPECT_EQ(records().table_team_count, 10);
  EXPECT_EQ(careers().career_team_count, 10);
  EXPECT_EQ(run({"db", "check", "small"}).status, 0);
}

}  // namespace
}  // namespace velorin::testing
