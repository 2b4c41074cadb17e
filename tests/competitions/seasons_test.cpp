// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/cup_fixture.h"
#include "competitions/cup_model.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "model/texts.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::SizeIs;

/// Whole competitions as they play themselves, against an account kept from the results of their matches.
class Seasons : public CupTest {
 protected:
  /// Plays a World Cup and checks every window of it.
  void play_and_check(std::uint64_t seed);
  void check_tables(const world_cup_tables_form& shown, const std::string& where, bool with_super_six);
  void check_knock_out();

  cup_model model_;
  bool six_known_ = false;  ///< the Super Six of an earlier tournament is still on show
};

/// What must hold for any league: `sum_is_zero` where both sides of every match stand in the table.
void check_arithmetic(const cup_model::table& table, bool sum_is_zero) {
  double rates = 0;
  int won = 0;
  int lost = 0;
  for (const cup_model::tally& row : table) {
    EXPECT_EQ(row.played, row.won + row.lost + row.tied);
    rates += row.rate;
    won += row.won;
    lost += row.lost;
  }
  if (!sum_is_zero) return;
  EXPECT_NEAR(rates, 0, 1e-9);
  EXPECT_EQ(won, lost);
}

void check_shown_points(const std::vector<league_texts>& table) {
  for (const league_texts& row : table) {
    EXPECT_EQ(*number_in(row[5]), 2 * *number_in(row[2]) + *number_in(row[4])) << row[0];
    EXPECT_EQ(*number_in(row[1]), *number_in(row[2]) + *number_in(row[3]) + *number_in(row[4])) << row[0];
  }
}

void Seasons::check_tables(const world_cup_tables_form& shown, const std::string& where, bool with_super_six) {
  expect_table(shown.group_a, model_.group_table(0), where + ", Group A");
  expect_table(shown.group_b, model_.group_table(1), where + ", Group B");
  check_shown_points(shown.group_a);
  check_shown_points(shown.group_b);
  if (with_super_six) {
    expect_table(shown.super_six, model_.super_six_table(), where + ", Super Six");
    check_shown_points(shown.super_six);
  } else {
    EXPECT_THAT(shown.super_six, SizeIs(0));
  }
}

void Seasons::check_knock_out() {
  const cup_model::table table = model_.super_six_table();
  const auto pairing = [](const entered_match& played) {
    return played.first + " vs " + played.second + " - " + played.result.result_winner + " " +
           played.result.result_margin;
  };
  const std::vector<entered_match>& all = user_.matches;
  EXPECT_EQ(all[29].first, table[0].team);
  EXPECT_EQ(all[29].second, table[3].team);
  EXPECT_EQ(all[30].first, table[1].team);
  EXPECT_EQ(all[30].second, table[2].team);
  const world_cup_tables_form& shown = user_.cup_tables.back();
  EXPECT_EQ(shown.first_semi_final, pairing(all[29]));
  EXPECT_EQ(shown.second_semi_final, pairing(all[30]));
  if (all.size() < 32) return;  // a semi-final was tied
  EXPECT_EQ(all[31].first, all[29].result.result_winner);
  EXPECT_EQ(all[31].second, all[30].result.result_winner);
  EXPECT_EQ(shown.grand_final, pairing(all[31]));
  EXPECT_EQ(shown.winners_line, "World Cup winners : " + all[31].result.result_winner);
}

void Seasons::play_and_check(std::uint64_t seed) {
  chance.use_seed(seed);
  const bool second = six_known_;
  user_.matches.clear();
  user_.cup_tables.clear();
  form_.accept();
  ASSERT_GE(user_.matches.size(), 31U);
  ASSERT_EQ(user_.cup_tables.size(), 33U);
  model_.begin(cup_group_a, cup_group_b);
  std::size_t showing = 0;
  for (int k = 1; k <= 20; ++k) {
    model_.book_group(world_cup.fixtures[k].stage == "A" ? 0 : 1, user_.matches[k - 1]);
    check_tables(user_.cup_tables[showing++], "after group match " + std::to_string(k), six_known_);
  }
  for (int group = 0; group < 2; ++group) check_arithmetic(model_.group_table(group), true);
  model_.cut();
  six_known_ = true;
  check_tables(user_.cup_tables[showing++], "after the cut", true);
  for (int k = 21; k <= 29; ++k) {
    model_.book_super_six(user_.matches[k - 1]);
    check_tables(user_.cup_tables[showing++], "after Super Six match " + std::to_string(k - 20), true);
  }
  // Behind a second tournament the old tallies stand under other names.
  check_arithmetic(model_.super_six_table(), !second);
  model_.close();
  check_knock_out();
}

TEST_F(Seasons, AWorldCupAddsUp) {
  for (const std::uint64_t seed : {1, 2, 3, 4, 5, 6}) {
    SCOPED_TRACE(seed);
    world_cup = world_cup_record();
    model_ = cup_model();
    six_known_ = false;
    play_and_check(seed);
    for (const cup_model::tally& row : model_.group_table(0)) EXPECT_EQ(row.played, 4);
    for (const cup_model::tally& row : model_.super_six()) EXPECT_EQ(row.played, 5) << "two carried, three played";
  }
}

TEST_F(Seasons, ASecondWorldCupAddsToTheTalliesOfTheFirst) {
  play_and_check(11);
  const std::string first_winner = user_.cup_tables.back().winners_line;
  user_.fixture_lists.clear();
  play_and_check(12);
  // The tables of the knock-out are overwritten only as it is reached.
  EXPECT_EQ(user_.cup_tables.front().winners_line, first_winner);
  EXPECT_NE(user_.cup_tables.front().grand_final, "");
  const world_cup_fixtures_form& list = user_.fixture_lists.front();
  EXPECT_EQ(list.fixtures, 29) << "the Super Six of the first still stands in the list";
  EXPECT_EQ(list.next_fixture, 0) << "with the old results no match looks unplayed";
  EXPECT_EQ(list.scroll, 1);
  int played = 0;
  for (const cup_model::tally& row : model_.group_table(0)) played += row.played;
  EXPECT_EQ(played, 2 * 20);
}

TEST_F(Seasons, AThirdAlsoDoes) {
  for (const std::uint64_t seed : {21, 22, 23}) play_and_check(seed);
}

TEST_F(Seasons, NamesAreDrawnAnewOverTheOldResults) {
  play_and_check(31);
  std::vector<std::string> old_results;
  for (int k = 1; k <= 29; ++k) old_results.push_back(world_cup.fixtures[k].result);
  quit_after(0);
  form_.accept();
  std::vector<std::string> kept;
  for (int k = 1; k <= 29; ++k) kept.push_back(world_cup.fixtures[k].result);
  EXPECT_THAT(std::vector<std::string>(kept.begin(), kept.begin() + 20),
              ::testing::UnorderedElementsAreArray(old_results.begin(), old_results.begin() + 20))
      << "the shuffle carries the old results along";
  EXPECT_TRUE(std::equal(kept.begin() + 20, kept.end(), old_results.begin() + 20));
}

TEST_F(Seasons, TriSeriesAddUp) {
  for (std::uint64_t seed = 41; seed < 46; ++seed) {
    SCOPED_TRACE(seed);
    chance.use_seed(seed);
    user_.tri_tables.clear();
    tri_series_form form(in_play(), tri);
    form.open();
    form.set_rounds(4);
    form.accept();
    for (std::size_t shown = 0; shown < 12; ++shown) {
      const tri_series_table_form& table = user_.tri_tables[shown];
      const std::vector<league_texts> rows(table.rows.begin(), table.rows.end());
      check_shown_points(rows);
      double played = 0;
      double points = 0;
      double rates = 0;
      for (const league_texts& row : rows) {
        played += *number_in(row[1]);
        points += *number_in(row[5]);
        rates += *number_in(row[6]);
      }
      EXPECT_EQ(played, 2.0 * static_cast<double>(shown + 1));
      EXPECT_EQ(points, played);
      EXPECT_NEAR(rates, 0, 0.0151) << "three rates rounded to two places";
    }
  }
}

TEST_F(Seasons, TheSameSeedPlaysTheSameSeason) {
  const auto account = [this](std::uint64_t seed) {
    chance.use_seed(seed);
    world_cup = world_cup_record();
    user_.matches.clear();
    form_.accept();
    std::vector<std::string> lines;
    for (const entered_match& played : user_.matches) {
      lines.push_back(played.first + played.second + played.ground + played.result.result_winner +
                      played.result.result_margin);
    }
    return lines;
  };
  const std::vector<std::string> once = account(51);
  EXPECT_NE(account(52), once);
  EXPECT_EQ(account(51), once);
}

}  // namespace
}  // namespace velorin::testing
