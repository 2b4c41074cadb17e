// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/export.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

#include "database/configuration.h"
#include "model/stands.h"
#include "reports/match_scenes.h"
#include "reports/opened.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using Export = reports_test;

std::vector<std::string> lines_of(const std::string& file) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = file.find("\r\n"); end != std::string::npos; end = file.find("\r\n", start)) {
    lines.push_back(file.substr(start, end - start));
    start = end + 2;
  }
  EXPECT_EQ(start, file.size()) << "the last line has an end, too";
  return lines;
}

/// The place of a line, or -1.
int place_of(const std::vector<std::string>& lines, const std::string& line) {
  const auto found = std::find(lines.begin(), lines.end(), line);
  return found == lines.end() ? -1 : static_cast<int>(found - lines.begin());
}

/// The four lines behind the n-th line "Fall of Wickets :".
std::vector<std::string> fall_lines(const std::string& file, int n) {
  const auto lines = lines_of(file);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    if (lines[i] == "Fall of Wickets :" && --n == 0 && i + 4 < lines.size())
      return {lines.begin() + i + 1, lines.begin() + i + 5};
  }
  ADD_FAILURE() << "no such list";
  return {};
}

std::string blanks(int count) { return std::string(count, ' '); }

/// Compares with tests/golden/reports/<name>, byte by byte. With VELORIN_APPROVE set the file is written anew instead,
/// and the test fails to say so.
void expect_golden(const std::string& name, const std::string& bytes) {
  const std::string path = std::string(VELORIN_TEST_DATA) + "/golden/reports/" + name;
  if (std::getenv("VELORIN_APPROVE") != nullptr) {
    std::ofstream(path, std::ios::binary) << bytes;
    ADD_FAILURE() << name << " was written anew; read it through";
    return;
  }
  std::ifstream in(path, std::ios::binary);
  ASSERT_TRUE(in) << path;
  std::ostringstream wanted;
  wanted << in.rdbuf();
  const auto got_lines = lines_of(bytes);
  const auto wanted_lines = lines_of(wanted.str());
  for (std::size_t i = 0; i < std::min(got_lines.size(), wanted_lines.size()); ++i) {
    ASSERT_EQ(got_lines[i], wanted_lines[i]) << name << ", line " << i + 1;
  }
  EXPECT_EQ(bytes, wanted.str()) << name;
}

/// The file without the lines of all overs but the last of each innings, so that it can be read as a whole.
std::string with_last_overs(const std::string& file) {
  const std::string over_end = std::string(17, '=') + "\r\n\r\n";
  std::string left = file;
  std::size_t from = 0;
  for (;;) {
    // The commentary of an innings begins behind an empty line or the ground, and goes on to the next empty line.
    const std::size_t begin = left.find(" to ", from);
    if (begin == std::string::npos) return left;
    const std::size_t first = left.rfind("\r\n", begin) + 2;
    const std::size_t card = left.find("Scorecard", first);
    const std::size_t last = left.rfind(over_end, card);
    if (last != std::string::npos && last > first) left.erase(first, last + over_end.size() - first);
    from = left.find("Scorecard", first);
    if (from == std::string::npos) return left;
  }
}

TEST_F(Export, GoldenOneInnings) {
  set_first_innings_in_play();
  expect_golden("one_innings.html", html_scorecard(match, data, opened<scorecard_form>()));
  expect_golden("one_innings.txt", text_scorecard(match, opened<scorecard_form>()));
  expect_golden("one_innings_by_ball.txt", with_last_overs(ball_by_ball(match, opened<scorecard_form>())));
}

TEST_F(Export, GoldenTwoInnings) {
  set_second_innings_in_play();
  expect_golden("two_innings.html", html_scorecard(match, data, opened<scorecard_form>()));
  expect_golden("two_innings.txt", text_scorecard(match, opened<scorecard_form>()));
  expect_golden("two_innings_by_ball.txt", with_last_overs(ball_by_ball(match, opened<scorecard_form>())));
}

TEST_F(Export, GoldenBeforeTheFirstBall) {
  match.ground.ground_name = "Lake End";
  match.team1_name = "South Isles";
  match.team2_name = "Northland";
  match.batting_card[1].name = "A.Tamuera";
  match.batting_card[2].name = "B.Okell";
  match.bowling_card[11].name = "K.Foss";
  match.striker = 1;
  match.non_striker = 2;
  expect_golden("no_ball_bowled.txt", text_scorecard(match, opened<scorecard_form>()));
}

TEST_F(Export, TheHeaderNamesTheBoundariesOnly) {
  set_first_innings_in_play();
  EXPECT_NE(
      place_of(lines_of(html_scorecard(match, data, opened<scorecard_form>())), blanks(71) + "4s" + blanks(4) + "6s"),
      -1);
  EXPECT_NE(place_of(lines_of(text_scorecard(match, opened<scorecard_form>())), blanks(69) + "4s" + blanks(2) + "6s"),
            -1);
}

TEST_F(Export, ANameBreaksItsRowOnlyBehindColumn20) {
  set_second_innings_in_play();
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  EXPECT_NE(
      place_of(lines, "B.Lindqvist-Ramsden c E.Marrack" + blanks(8) + " b K.Stote" + blanks(10) + " 40   44  5   0 "),
      -1);
  const int place = place_of(lines, "C.Featherstonehaughs");
  ASSERT_NE(place, -1);
  EXPECT_EQ(lines[place + 1], blanks(19) + " st G.Penhall" + blanks(7) + " b H.Dray" + blanks(11) + " 9    12  1   0 ");
}

TEST_F(Export, AHundredBallsBreakTheRowsOfThePlainFilesOnly) {
  set_second_innings_in_play();
  const auto text = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const std::string lead = "A.Harrow" + blanks(31) + " c && b J.Abara" + blanks(5);
  const int place = place_of(text, lead + " 123  131 ");
  ASSERT_NE(place, -1);
  EXPECT_EQ(text[place + 1], blanks(68) + " 14  2 ");
  EXPECT_NE(place_of(lines_of(html_scorecard(match, data, opened<scorecard_form>())), lead + " 123   131  14    2 "),
            -1);
}

TEST_F(Export, ALongCatcherBreaksTheRow) {
  set_first_innings_in_play();
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const int place = place_of(lines, "A.Tamuera" + blanks(10) + " c B.Lindqvist-Ramsden");
  ASSERT_NE(place, -1);
  EXPECT_EQ(lines[place + 1], blanks(39) + " b I.Nettle" + blanks(9) + " 12   20  2   0 ");
}

TEST_F(Export, OnlyMenWhoHaveComeInHaveARow) {
  set_first_innings_in_play();
  const std::string file = text_scorecard(match, opened<scorecard_form>());
  EXPECT_NE(file.find("E.Marrack"), std::string::npos);
  EXPECT_EQ(file.find("F.Uluila"), std::string::npos);
}

TEST_F(Export, TheTotalsOfTheTwoInningsDifferInForm) {
  set_second_innings_in_play();
  match.first_wickets = 9;
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  EXPECT_NE(place_of(lines, blanks(33) + " (9 wickets , 48.2  Overs) 261 "), -1);
  EXPECT_NE(place_of(lines, blanks(33) + "(3 wickets , 22.5  Overs) 131"), -1);
}

TEST_F(Export, TenWicketsBreakTheTotalLineOfTheFirstInningsOnly) {
  set_second_innings_in_play();
  match.score_wickets = 10;
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const int place = place_of(lines, blanks(33) + " (10 wickets , 48.2  Overs)");
  ASSERT_NE(place, -1);
  EXPECT_EQ(lines[place + 1], blanks(59) + " 261 ");
  EXPECT_NE(place_of(lines, blanks(33) + "(10 wickets , 22.5  Overs)131"), -1);
}

TEST_F(Export, TheSecondListOfWicketsGoesOnWithTheFirst) {
  set_second_innings_in_play();
  for (const std::string& file :
       {html_scorecard(match, data, opened<scorecard_form>()), text_scorecard(match, opened<scorecard_form>()),
        ball_by_ball(match, opened<scorecard_form>())}) {
    const auto first = fall_lines(file, 1);
    const auto second = fall_lines(file, 2);
    EXPECT_EQ(first[0], "88 (15.4,B.Lindqvist-Ramsden)");
    EXPECT_EQ(second[0], "31 (7.0,A.Tamuera)      31 (7.1,B.Okell)         99 (20.0,D.Sealing)");
    EXPECT_EQ(second[1], "162 (31.5,E.Sandoval)   210 (39.4,F.Aldous)      226 (43.2,A.Harrow)");
    EXPECT_EQ(second[2], "235 (44.4,G.Bright)     238 (45.3,H.Ekwueme)     241 (46.1,I.Nettle)");
    EXPECT_EQ(second[3], "261 (48.2,J.Orme)");
  }
}

TEST_F(Export, ALongEntryBreaksTheListOfWickets) {
  set_second_innings_in_play();
  const auto list = fall_lines(text_scorecard(match, opened<scorecard_form>()), 1);
  EXPECT_EQ(list[0], "88 (15.4,B.Lindqvist-Ramsden)");
  EXPECT_EQ(list[1], blanks(24) + "109 (20.1,C.Featherstonehaughs)");
  EXPECT_EQ(list[2], blanks(49) + "109 (20.2,D.Moss)");
}

TEST_F(Export, AnEmptyListOfWicketsIsBlanks) {
  const auto list = fall_lines(text_scorecard(match, opened<scorecard_form>()), 1);
  const std::vector<std::string> wanted = {blanks(49), blanks(49), blanks(49), ""};
  EXPECT_EQ(list, wanted);
}

TEST_F(Export, AnUnbrokenStandIsNoWicket) {
  set_second_innings_in_play();
  leave_the_last_pair_in();
  ASSERT_EQ(falls_before(match)[10].batsman_b, "K.Foss * ");
  EXPECT_EQ(text_scorecard(match, opened<scorecard_form>()).find("261 (48.2"), std::string::npos);
  EXPECT_EQ(text_scorecard(match, opened<scorecard_form>()).find("K.Foss * "), std::string::npos);
}

TEST_F(Export, BowlersOfTheFirstInningsComeBackward) {
  set_second_innings_in_play();
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const int header = place_of(lines, blanks(20) + "O" + blanks(5) + "M" + blanks(4) + "R" + blanks(4) + "W");
  ASSERT_NE(header, -1);
  EXPECT_EQ(lines[header + 1], "K.Stote" + blanks(12) + "9.2" + blanks(3) + " 10   23   3 ");
  EXPECT_EQ(lines[header + 2], "J.Abara" + blanks(12) + "10.0" + blanks(2) + " 3    30   3 ");
  EXPECT_EQ(lines[header + 3], "I.Quennell" + blanks(9) + "10.0" + blanks(2) + " 0    52   1 ");
  EXPECT_EQ(lines[header + 4], "H.Dray" + blanks(13) + "10.0" + blanks(2) + " 1    43   2 ");
  EXPECT_EQ(lines[header + 5], "E.Marrack" + blanks(10) + "9.0" + blanks(3) + " 0    101  0 ");
  EXPECT_EQ(lines[header + 6], "");
}

TEST_F(Export, BowlersOfTheInningsInPlayFollowTheConsole) {
  set_first_innings_in_play();
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const int header = place_of(lines, blanks(20) + "O" + blanks(5) + "M" + blanks(4) + "R" + blanks(4) + "W");
  ASSERT_NE(header, -1);
  EXPECT_EQ(lines[header + 1], "K.Foss" + blanks(13) + "8.0" + blanks(3) + " 2    29   1 ");
  EXPECT_EQ(lines[header + 2], "H.Ekwueme" + blanks(10) + "8.0" + blanks(3) + " 0    44   0 ");
  EXPECT_EQ(lines[header + 3], "I.Nettle" + blanks(11) + "6.0" + blanks(3) + " 11   42   1 ");
  EXPECT_EQ(lines[header + 4], "C.Featherstonehaughs");
  EXPECT_EQ(lines[header + 5], blanks(19) + "0.5" + blanks(3) + " 0    10   0 ");
  EXPECT_EQ(lines[header + 6], "");
}

TEST_F(Export, TheListOfBowlersEndsAtItsFirstEmptyRow) {
  set_first_innings_in_play();
  match.bowler_list[3].position = 0;
  const std::string file = text_scorecard(match, opened<scorecard_form>());
  EXPECT_NE(file.find("\r\nH.Ekwueme "), std::string::npos);
  EXPECT_EQ(file.find("\r\nI.Nettle "), std::string::npos);
  EXPECT_EQ(file.find("\r\nC.Featherstonehaughs"), std::string::npos);
}

TEST_F(Export, TheListOfBowlersEndsAtAManWithoutAName) {
  set_first_innings_in_play();
  match.bowling_card[9].name.clear();
  for (const std::string& file :
       {html_scorecard(match, data, opened<scorecard_form>()), text_scorecard(match, opened<scorecard_form>()),
        ball_by_ball(match, opened<scorecard_form>())}) {
    const auto lines = lines_of(file);
    const int header = place_of(lines, blanks(20) + "O" + blanks(5) + "M" + blanks(4) + "R" + blanks(4) + "W");
    ASSERT_NE(header, -1);
    EXPECT_EQ(lines[header + 2], "H.Ekwueme" + blanks(10) + "8.0" + blanks(3) + " 0    44   0 ");
    EXPECT_TRUE(lines[header + 3].empty() || lines[header + 3] == "</pre>") << lines[header + 3];
    EXPECT_EQ(place_of(lines, "C.Featherstonehaughs"), -1) << "nobody behind him has a row, either";
  }
}

TEST_F(Export, AManWithoutANameHasARowWhereTheFirstInningsListsWhoBowled) {
  set_second_innings_in_play();
  match.first_bowling_card[10].name.clear();
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  const int stote = place_of(lines, "K.Stote" + blanks(12) + "9.2" + blanks(3) + " 10   23   3 ");
  ASSERT_NE(stote, -1);
  EXPECT_EQ(lines[stote + 1], blanks(19) + "10.0" + blanks(2) + " 3    30   3 ");
  EXPECT_EQ(lines[stote + 2], "I.Quennell" + blanks(9) + "10.0" + blanks(2) + " 0    52   1 ");
}

TEST_F(Export, AManWithoutANameHasNoBattingRowInEitherInnings) {
  set_second_innings_in_play();
  const std::size_t before = lines_of(html_scorecard(match, data, opened<scorecard_form>())).size();
  match.first_batting_card[4].name.clear();
  EXPECT_EQ(lines_of(html_scorecard(match, data, opened<scorecard_form>())).size(), before - 1);
  match.batting_card[4].name.clear();
  const auto lines = lines_of(html_scorecard(match, data, opened<scorecard_form>()));
  EXPECT_EQ(lines.size(), before - 2);
  EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                          [](const std::string& line) { return line.find("run out (F.Aldous)") != std::string::npos; }),
            0);
}

TEST_F(Export, TenBowlersFillTheList) {
  set_first_innings_in_play();
  for (int k = 1; k <= 10; ++k) match.bowler_list[k].position = k;
  const auto lines = lines_of(text_scorecard(match, opened<scorecard_form>()));
  EXPECT_NE(place_of(lines, "J.Orme" + blanks(13) + "0.0" + blanks(3) + " 0    0    0 "), -1);
}

TEST_F(Export, ThePageTakesItsColoursFromTheSettings) {
  data.settings.text_color = "0000A0";
  data.settings.back_color = "FFFFE0";
  EXPECT_EQ(lines_of(html_scorecard(match, data, opened<scorecard_form>()))[3],
            "<BODY TEXT =#0000A0 BGCOLOR=#FFFFE0 LINK=#00FF00 VLINK=#80FF80>");
}

TEST_F(Export, AFirstInningsOf0IsNoFirstInnings) {
  set_second_innings_in_play();
  match.first_total = 0;
  EXPECT_EQ(html_scorecard(match, data, opened<scorecard_form>()).find("Northland - Batting"), std::string::npos);
  EXPECT_EQ(lines_of(text_scorecard(match, opened<scorecard_form>()))[2], blanks(22) + "============================");
  EXPECT_EQ(lines_of(ball_by_ball(match, opened<scorecard_form>()))[1], blanks(16) + "Velorin Ball-by-Ball Output");
}

TEST_F(Export, AtMost1500LinesOfTheFirstInnings) {
  set_second_innings_in_play();
  match.first_deliveries.assign(1600, ball_of_runs(2, {11, 1, 4}, 49));
  const auto lines = lines_of(ball_by_ball(match, opened<scorecard_form>()));
  EXPECT_EQ(std::count(lines.begin(), lines.end(), "K.Stote to A.Harrow : 2 runs."), 1500);
  EXPECT_EQ(place_of(lines, "Scorecard"), 8 + 1500 + 1);
}

TEST_F(Export, ANameIsNoTagOfThePage) {
  set_second_innings_in_play();
  match.team1_name = "C\xF4te <b> & co";
  match.team2_name = "<>";
  match.batting_card[1].name = "A.<i>";
  match.batting_card[4].name = "Z.<u>";
  const std::string page = html_scorecard(match, data, opened<scorecard_form>());
  EXPECT_NE(page.find("<center><h2>C\xF4te &lt;b&gt; & co vs &lt;&gt;</center></h3>\r\n"), std::string::npos);
  EXPECT_NE(page.find("<h4>C\xF4te &lt;b&gt; & co - Batting</h4>"), std::string::npos);
  // Every column of a row up to the runs stands in the same place on the page, as it is shown, and in the text.
  const std::string text = text_scorecard(match, opened<scorecard_form>());
  const std::size_t row = page.find("\r\nA.&lt;i&gt; ");
  const std::size_t plain = text.find("\r\nA.<i> ");
  ASSERT_NE(row, std::string::npos);
  ASSERT_NE(plain, std::string::npos);
  EXPECT_EQ(page.substr(row + 13, 56), text.substr(plain + 7, 56));
  EXPECT_NE(page.find("Z.&lt;u&gt;"), std::string::npos);
  for (const char* name : {"<b>", "<i> ", "<u>"}) EXPECT_EQ(page.find(name), std::string::npos) << name;
  EXPECT_NE(text.find("C\xF4te <b> & co"), std::string::npos) << "no page, no tags";
}

}  // namespace
}  // namespace velorin
