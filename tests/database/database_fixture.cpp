// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/database_fixture.h"
#include "support/cards.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iterator>

namespace velorin::testing {

void database_fixture::SetUp() {
  std::string name = (std::filesystem::temp_directory_path() / "velorin-database-XXXXXX").string();
  ASSERT_NE(::mkdtemp(name.data()), nullptr);
  folder = name;
  data.files = database_paths(folder, "base");
  data.settings = configuration();
  match = match_state();
}

void database_fixture::TearDown() {
  std::filesystem::remove_all(folder);
  data.files = database_files();
  data.settings = configuration();
  match = match_state();
}

std::string bytes_of(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in.is_open()) << file;
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

void write_bytes(const std::filesystem::path& file, std::string_view bytes) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  out.close();
  ASSERT_TRUE(out) << file;
}

std::vector<std::string> names_in(const std::filesystem::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) names.push_back(entry.path().filename());
  std::sort(names.begin(), names.end());
  return names;
}

std::string hex(std::string_view digits) {
  std::string bytes;
  for (std::size_t at = 0; at < digits.size();) {
    if (digits[at] == ' ') {
      ++at;
      continue;
    }
    unsigned value = 0;
    const auto parsed = std::from_chars(digits.data() + at, digits.data() + std::min(at + 2, digits.size()), value, 16);
    EXPECT_EQ(parsed.ptr, digits.data() + at + 2) << digits;
    bytes += static_cast<char>(value);
    at += 2;
  }
  return bytes;
}

std::string padded(std::string bytes, std::size_t size) {
  EXPECT_LE(bytes.size(), size);
  bytes.resize(size, '\0');
  return bytes;
}

namespace {

void bat(batting_card_rec& line, const std::string& name, int runs, int balls) {
  line.name = name;
  line.runs = runs;
  line.balls = balls;
  line.fours = runs / 20;
  line.sixes = runs / 60;
  line.twos = 1;
  line.threes = 2;
  line.singles = 3;
  line.dots = balls / 2;
}

void bowl(bowling_card_rec& line, int balls, int maidens, int runs, int wickets) {
  line.balls = balls;
  line.maidens = maidens;
  line.runs = runs;
  line.wickets = wickets;
}

void name_bowlers(bowling_card_table& card, const std::string& prefix) {
  for (int i = 1; i <= 11; ++i) card[i].name = fmt::format("{}{}", prefix, i);
}

void fill_cards() {
  batting_card_table& first = match.first_batting_card;
  bat(first[1], "A.Man1", 64, 71);
  put_out(first[1], dismissal::not_out);
  bat(first[2], "A.Man2", 120, 110);
  put_out(first[2], dismissal::bowled, "T.Man9");
  bat(first[3], "A.Man3", 0, 4);
  put_out(first[3], dismissal::caught_and_bowled, "T.Man10", {10, "T.Man10"});
  bat(first[4], "A.Man4", 40, 90);
  put_out(first[4], dismissal::caught, "T.Man9", {3, "T.Man3"});
  bat(first[5], "A.Man5", 3, 25);
  put_out(first[5], dismissal::not_out);
  name_bowlers(match.first_bowling_card, "T.Man");
  bowl(match.first_bowling_card[9], 60, 2, 48, 2);
  bowl(match.first_bowling_card[10], 60, 0, 50, 1);
  bowl(match.first_bowling_card[11], 54, 1, 61, 0);

  bat(match.batting_card[1], "T.Man1", 50, 60);
  bat(match.batting_card[2], "T.Man2", 12, 20);
  put_out(match.batting_card[2], dismissal::stumped, "A.Man9", {7, "A.Man7"});
  for (int i = 3; i <= 11; ++i) {
    bat(match.batting_card[i], fmt::format("T.Man{}", i), 12, 20);
    put_out(match.batting_card[i], dismissal::bowled, "A.Man10");
  }
  name_bowlers(match.bowling_card, "A.Man");
  bowl(match.bowling_card[9], 60, 3, 31, 5);
  bowl(match.bowling_card[10], 58, 0, 40, 4);
  bowl(match.bowling_card[11], 60, 1, 60, 1);
}

/// Alba lost its first wicket at 150 and two with the next two balls; Tamar its first at 20.
void fill_stands() {
  add_stand(match.first_deliveries, {150, 181, 1, 2});
  add_stand(match.first_deliveries, {0, 1, 1, 3});
  add_stand(match.first_deliveries, {0, 1, 1, 4});
  add_unbroken_stand(match.first_deliveries, {81, 117, 1, 5});
  match.first_falls_shown = 3;
  add_stand(match.deliveries, {20, 33, 1, 2});
  for (int i = 3; i <= 10; ++i) add_stand(match.deliveries, {0, 1, 1, i});
  add_stand(match.deliveries, {154, 221, 1, 11});
}

}  // namespace

void set_up_finished_match() {
  match = match_state();
  match.team1_name = "Tamar";
  match.team2_name = "Alba";
  match.ground.country = "Alba";
  match.ground.ground_name = "Harbour Park";
  match.first_total = 231;
  match.first_balls = 300;
  match.first_wickets = 3;
  match.score_runs = 174;
  match.score_wickets = 10;
  match.innings_total = 174;
  match.innings_balls = 262;
  match.innings_wickets = 10;
  match.result_winner = "Alba";
  match.result_loser = "Tamar";
  fill_cards();
  fill_stands();
}

}  // namespace velorin::testing
