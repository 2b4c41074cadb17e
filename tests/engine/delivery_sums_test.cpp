// SPDX-License-Identifier: GPL-3.0-or-later
// Over many matches the deliveries of an innings add up to its books.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <utility>

#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/innings_log.h"
#include "model/random.h"
#include "model/stands.h"
#include "reports/worm_graph.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"

namespace velorin::testing {
namespace {

constexpr int matches = 200;

/// The books of one innings.
struct innings_books {
  const told_innings& innings;
  fall_of_wicket_table falls;
  int no_balls = 0;
  int wides = 0;
  int byes = 0;
  int leg_byes = 0;
};

/// What the deliveries bring, counted by the test's own rules.
struct recount {
  batting_card_table batting;
  bowling_card_table bowling;
  fall_of_wicket_table falls;
  std::array<int, 12> of{};      ///< extras that do not count as runs of a bowler, by outcome
  std::array<int, 52> scores{};  ///< after the last ball of each row of the graph, -1 for none
  int runs = 0;
  int wickets = 0;
  int balls = 0;
  int lines = 0;

  recount() { scores.fill(-1); }

  void add_bat(const delivery& ball) {
    batting_card_rec& man = batting[ball.striker];
    man.balls += 1;
    man.runs += ball.runs;
    man.dots += ball.runs == 0 ? 1 : 0;
    man.singles += ball.runs == 1 ? 1 : 0;
    man.twos += ball.runs == 2 ? 1 : 0;
    man.threes += ball.runs == 3 ? 1 : 0;
    man.fours += ball.runs == 4 ? 1 : 0;
    man.sixes += ball.runs == 6 ? 1 : 0;
  }

  void add_wicket(const delivery& ball) {
    batting[ball.striker].how = ball.how;
    batting[ball.striker].fielder_position = ball.how == dismissal::run_out ? std::uint8_t{0} : ball.fielder;
    bowling[ball.bowler].wickets += ball.how == dismissal::run_out ? 0 : 1;
    wickets += 1;
    falls[wickets].score = runs;
    falls[wickets].balls = balls + 1;
  }

  void add(const delivery& ball) {
    const bool beside = ball.outcome == no_ball || ball.outcome == wide_ball;
    if (ball.outcome == wicket) add_wicket(ball);
    if (!beside) add_bat(ball);
    bowling[ball.bowler].runs += ball.runs;
    bowling[ball.bowler].balls += ball.counted ? 1 : 0;
    of[ball.outcome] += ball.extras;
    runs += ball.runs + (beside ? 0 : ball.extras);
    balls += ball.counted ? 1 : 0;
    scores[static_cast<std::size_t>(balls / 6 + 1)] = runs;
    lines += ball.outcome == wicket ? 5 : beside && ball.counted ? 0 : 1;
  }
};

/// The next delivery's batsmen follow from this one.
bool follow(const delivery& ball, const delivery& next) {
  int striker = ball.next_batsman != 0 ? ball.next_batsman : ball.striker;
  int other = ball.non_striker;
  const bool beside = ball.outcome == no_ball || ball.outcome == wide_ball;
  if (!beside && (ball.runs + ball.extras) % 2 == 1) std::swap(striker, other);
  if (next.over != ball.over) std::swap(striker, other);
  return next.striker == striker && next.non_striker == other;
}

bool same_batting(const batting_card_rec& a, const batting_card_rec& b) {
  const dismissal how = b.how == dismissal::not_out ? dismissal::none : b.how;
  return a.runs == b.runs && a.balls == b.balls && a.dots == b.dots && a.singles == b.singles && a.twos == b.twos &&
         a.threes == b.threes && a.fours == b.fours && a.sixes == b.sixes && a.how == how &&
         a.fielder_position == b.fielder_position;
}

recount count(const told_innings& innings) {
  recount sums;
  const delivery* before = nullptr;
  for (const delivery& ball : innings.deliveries) {
    if (before != nullptr) {
      EXPECT_TRUE(follow(*before, ball)) << "over " << int(ball.over) << "." << int(ball.ball);
      EXPECT_GE(ball.over, before->over);
    }
    sums.add(ball);
    before = &ball;
  }
  sums.lines += 12 * innings.overs_closed;
  return sums;
}

void check_maidens(const told_innings& innings) {
  std::array<int, 12> maidens{};
  for (int over = 1; over <= innings.overs_closed; ++over) {
    const auto balls = deliveries_of_over(innings.deliveries, over);
    ASSERT_FALSE(balls.empty());
    if (std::all_of(balls.begin(), balls.end(), [](const delivery& ball) { return ball.runs == 0; })) {
      ++maidens[balls.front().bowler];
    }
  }
  for (std::size_t i = 1; i <= 11; ++i) EXPECT_EQ(maidens[i], innings.bowling[i].maidens) << i;
}

void check_log(const told_innings& innings, const recount& sums) {
  int runs = 0;
  int wickets = 0;
  for (const over_entries& over : log_of(innings.deliveries)) {
    runs += over.runs();
    wickets += over.wickets();
  }
  EXPECT_EQ(runs, sums.runs + sums.of[no_ball] + sums.of[wide_ball]);
  EXPECT_EQ(wickets, sums.wickets);
}

void check_innings(const innings_books& books) {
  const told_innings& innings = books.innings;
  const recount sums = count(innings);
  EXPECT_EQ(sums.runs, innings.score_runs);
  EXPECT_EQ(sums.wickets, innings.score_wickets);
  EXPECT_EQ(sums.balls, innings.innings_balls);
  EXPECT_EQ(sums.of[no_ball], books.no_balls);
  EXPECT_EQ(sums.of[wide_ball], books.wides);
  EXPECT_EQ(sums.of[byes], books.byes);
  EXPECT_EQ(sums.of[leg_byes], books.leg_byes);
  for (int i = 1; i <= 11; ++i) {
    EXPECT_TRUE(same_batting(sums.batting[i], innings.batting[i])) << "batsman " << i;
    EXPECT_EQ(sums.bowling[i].balls, innings.bowling[i].balls) << i;
    EXPECT_EQ(sums.bowling[i].runs, innings.bowling[i].runs) << i;
    EXPECT_EQ(sums.bowling[i].wickets, innings.bowling[i].wickets) << i;
  }
  for (int i = 1; i <= sums.wickets; ++i) {
    EXPECT_EQ(sums.falls[i].score, books.falls[i].score) << i;
    EXPECT_EQ(sums.falls[i].balls, books.falls[i].balls) << i;
  }
  check_maidens(innings);
  check_log(innings, sums);
  EXPECT_EQ(count_lines(innings.deliveries, innings.overs_closed), sums.lines);
  EXPECT_EQ(static_cast<int>(tell(innings).size()), sums.lines);
}

void check_worm(const told_innings& innings) {
  const recount sums = count(innings);
  const match_worms worms = worms_with_this_innings(match);
  const auto line = std::find_if(worms.worm.begin(), worms.worm.end(),
                                 [&](const worm_line& one) { return one.team == innings.team; });
  ASSERT_NE(line, worms.worm.end());
  EXPECT_EQ(line->score_runs, innings.score_runs);
  EXPECT_EQ(line->score_wickets, innings.score_wickets);
  for (std::size_t row = 1; row <= 51; ++row) {
    if (sums.scores[row] < 0) {
      EXPECT_FALSE(line->row_set[row]) << row;
    } else {
      EXPECT_TRUE(line->row_set[row]) << row;
      EXPECT_EQ(line->row[row], sums.scores[row]) << row;
    }
  }
}

/// Looks at both innings before the match is reset.
class recounting_user : public headless_user {
 public:
  using headless_user::headless_user;
  int looked = 0;

  void open(report) override {
    if (match.first_total == 0) return;  // the first innings has ended, and its sides have not changed yet
    ++looked;
    const told_innings before = innings_before(match);
    const told_innings now = innings_in_play(match);
    check_innings(
        {before, falls_before(match), match.first_no_balls, match.first_wides, match.first_byes, match.first_leg_byes});
    check_innings({now, falls_in_play(match), match.innings_no_balls, match.innings_wides, match.innings_byes,
                   match.innings_leg_byes});
    check_worm(before);
    check_worm(now);
  }
};

TEST(DeliverySums, AddUpToTheBooksOfBothInnings) {
  recounting_user user(match);
  const front_end_scope in_use(user);
  for (int seed = 1; seed <= matches && !::testing::Test::HasFailure(); ++seed) {
    SCOPED_TRACE("seed " + std::to_string(seed));
    match = match_state();
    set_up_sample_match(true, true);
    for (int i = 1; i <= 11; ++i) {
      // From sides all out to chases.
      match.batting_xi[i].bat_skill = match.batting_xi[i].bat_skill * (1 + seed % 3);
      match.bowling_xi[i].bat_skill = match.bowling_xi[i].bat_skill * (1 + seed / 3 % 3);
    }
    chance.use_seed(static_cast<std::uint64_t>(seed));
    open_console(in_play());
    while (match.over_no != 0) next_over(in_play());
    EXPECT_EQ(user.looked, seed);
  }
  match = match_state();
  chance.use_clock();
}

}  // namespace
}  // namespace velorin::testing
