// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/next_match.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <utility>

#include "competitions/cup_fixture.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "setup/conditions.h"
#include "support/game_in_play.h"

// What is told of the match that comes next whenever standings are shown, against the match that is then entered.

namespace velorin::testing {
namespace {

using ::testing::SizeIs;

using telling = std::optional<coming_match>;

class ForeseeingUser : public competition_user {
 public:
  template <class Record>
  explicit ForeseeingUser(const Record& record)
      : next_([&record] { return next_match(record); }), after_([&record] { return matches_after_this(record); }) {}

  std::vector<std::vector<telling>> told;  ///< before each match, at each showing of standings
  std::vector<int> after;                  ///< matches left, asked as each match is entered
  std::vector<telling> now;                ///< since the last match was entered

  using competition_user::show;
  void show(conditions_form& form) override {
    told.push_back(std::exchange(now, {}));
    after.push_back(after_());
    competition_user::show(form);
  }
  void show(series_results_form& form) override {
    now.push_back(next_());
    competition_user::show(form);
  }
  void show(tri_series_table_form& form) override {
    now.push_back(next_());
    competition_user::show(form);
  }
  void show(world_cup_fixtures_form& form) override {
    now.push_back(next_());
    competition_user::show(form);
  }
  void show(world_cup_tables_form& form) override {
    now.push_back(next_());
    competition_user::show(form);
  }

 private:
  std::function<telling()> next_;
  std::function<int()> after_;
};

struct place_in_competition {
  match_stage stage;
  int number_in_stage;
};

class NextMatch : public CupTest {
 protected:
  /// Match `number` of `of`, from 1, was told as it was entered. Returns the tellings that knew no sides.
  static int expect_told(const ForeseeingUser& user, int number, int of, place_in_competition where) {
    SCOPED_TRACE(number);
    const auto at = static_cast<std::size_t>(number - 1);
    const entered_match& entered = user.matches[at];
    EXPECT_EQ(user.after[at], of - number);
    int unknown = 0;
    for (const telling& coming : user.told[at]) {
      EXPECT_TRUE(coming.has_value());
      if (!coming) continue;
      EXPECT_EQ(coming->stage, where.stage);
      EXPECT_EQ(coming->number_in_stage, where.number_in_stage);
      EXPECT_EQ(coming->number, number);
      EXPECT_EQ(coming->left, of - number);
      EXPECT_EQ(coming->ground.value_or(entered.ground), entered.ground);
      if (!coming->sides) {
        ++unknown;
        continue;
      }
      const auto& [first, second] = *coming->sides;
      EXPECT_EQ(first.team, entered.first);
      EXPECT_EQ(second.team, entered.second);
      EXPECT_EQ(first.human, entered.first_human);
      EXPECT_EQ(second.human, entered.second_human);
    }
    return unknown;
  }
  /// The standings behind the last match know of no other.
  static void expect_over(const ForeseeingUser& user) {
    ASSERT_THAT(user.now, SizeIs(1));
    EXPECT_FALSE(user.now.front());
  }

  static place_in_competition cup_place(int number) {
    if (number <= 20) return {match_stage::cup_groups, number};
    if (number <= 29) return {match_stage::super_six, number - 20};
    if (number <= 31) return {match_stage::semi_finals, number - 29};
    return {match_stage::grand_final, 1};
  }

  /// A World Cup with a human side in each group, from an empty record.
  static void play_cup(ForeseeingUser& user, std::uint32_t seed) {
    const front_end_scope in_use(user);
    world_cup = {};
    chance.use_seed(seed);
    world_cup_form form(in_play(), world_cup);
    form.open();
    form.human_a[1] = form.human_b[3] = true;
    form.accept();
  }
};

TEST_F(NextMatch, BeforeACompetitionThereIsNone) {
  EXPECT_FALSE(next_match(series_record()));
  EXPECT_FALSE(next_match(tri_record()));
  EXPECT_FALSE(next_match(world_cup_record()));
}

TEST_F(NextMatch, OfASeriesIsTheOneEnteredThen) {
  ForeseeingUser user(series);
  const front_end_scope in_use(user);
  series_form form(in_play(), series);
  form.open();
  form.set_matches(4);
  form.computer_captains_away = false;
  form.accept();
  ASSERT_THAT(user.matches, SizeIs(4));
  for (int number = 1; number <= 4; ++number) {
    EXPECT_THAT(user.told[static_cast<std::size_t>(number) - 1], SizeIs(number == 1 ? 0 : 1));
    EXPECT_EQ(expect_told(user, number, 4, {match_stage::series, number}), 0);
  }
  expect_over(user);
}

TEST_F(NextMatch, OfATriSeriesIsTheOneEnteredThen) {
  ForeseeingUser user(tri);
  const front_end_scope in_use(user);
  tri_series_form form(in_play(), tri);
  form.open();
  form.set_rounds(2);
  form.computer_captains[2] = false;
  form.accept();
  ASSERT_THAT(user.matches, SizeIs(7));
  for (int number = 1; number <= 7; ++number) {
    EXPECT_THAT(user.told[static_cast<std::size_t>(number) - 1], SizeIs(number == 1 ? 0 : 1));
    const bool final = number == 7;
    const place_in_competition where =
        final ? place_in_competition{match_stage::tri_final, 1} : place_in_competition{match_stage::tri_league, number};
    EXPECT_EQ(expect_told(user, number, 7, where), 0);
  }
  expect_over(user);
}

TEST_F(NextMatch, OfAWorldCupIsTheOneEnteredThen) {
  for (const std::uint32_t seed : {3U, 4U}) {
    ForeseeingUser user(world_cup);
    play_cup(user, seed);
    ASSERT_THAT(user.matches, SizeIs(32));
    for (int number = 1; number <= 32; ++number) {
      const std::vector<telling>& told = user.told[static_cast<std::size_t>(number) - 1];
      const std::size_t showings = number == 1 ? 1 : number == 21 ? 4 : number > 30 ? 1 : 2;
      EXPECT_THAT(told, SizeIs(showings)) << number;
      // The first match of the Super Six is known once it is drawn, before the last of those showings.
      EXPECT_EQ(expect_told(user, number, 32, cup_place(number)), number == 21 ? 3 : 0);
      for (const telling& coming : told) {
        const bool ground_known = coming && coming->ground;
        EXPECT_EQ(ground_known, number <= 29 && coming->sides) << number;
      }
    }
    expect_over(user);
    EXPECT_FALSE(next_match(world_cup));
  }
}

TEST_F(NextMatch, AsksNothingOfTheSuperSixBeforeItIsThisTournaments) {
  ForeseeingUser first(world_cup);
  play_cup(first, 5);
  ASSERT_EQ(world_cup.fixtures[cup_first_super_six].stage, "SS");
  world_cup.stage = cup_stage::group_matches;
  world_cup.next_match = cup_first_super_six;
  const telling coming = next_match(world_cup);
  ASSERT_TRUE(coming);
  EXPECT_EQ(coming->stage, match_stage::super_six);
  EXPECT_EQ(coming->number_in_stage, 1);
  EXPECT_FALSE(coming->sides) << "the fixtures of the earlier tournament stand there";
  EXPECT_FALSE(coming->has_human());
}

}  // namespace
}  // namespace velorin::testing
