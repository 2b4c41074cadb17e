// SPDX-License-Identifier: GPL-3.0-or-later
// The views of an innings, held against the books of played matches.
#include "reports/innings_views.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <numeric>

#include "competitions/game_state.h"
#include "database/configuration.h"
#include "headless/headless_user.h"
#include "model/rules.h"
#include "model/stands.h"
#include "setup/new_match.h"
#include "support/small_database.h"

namespace velorin {
namespace {

using ::testing::ElementsAre;

constexpr int seeds = 40;

/// Keeps the match as the last card of it was shown.
class watching_user : public headless_user {
 public:
  explicit watching_user(const match_state& play) : headless_user(play), match_(play) {}
  using headless_user::show;
  void open(report which) override {
    if (which == report::scorecard) last = match_;
  }
  match_state last;

 private:
  const match_state& match_;
};

/// An innings with its books.
struct innings_books {
  const delivery_list& balls;
  const batting_card_table& batting;
  const bowling_card_table& bowling;
  fall_of_wicket_table falls;
  int runs, wickets, counted, wides, no_balls, byes, leg_byes;
};

class InningsViews : public ::testing::Test {
 protected:
  template <class Visit>
  void each_innings(Visit visit) {
    testing::small_database from;
    for (const std::string name : {"Aden", "Bali", "Cork"}) {
      from.add_team(name);
      from.add_ground(name, name + " Oval");
      from.add_ground(name, name + " Park", 2, 4);
    }
    from.write();
    for (int seed = 1; seed <= seeds; ++seed) {
      SCOPED_TRACE(seed);
      const auto game = std::make_unique<game_state>();
      game->data.files = database_paths(from.folder(), "world");
      game->data.files.updates = false;
      game->data.files.elevens_in_memory = true;
      watching_user user(game->match);
      new_match_form form({game->match, game->chance, user, game->data});
      form.open();
      form.computer_captains_first = form.computer_captains_second = true;
      game->chance.use_seed(static_cast<std::uint64_t>(seed));
      form.accept();
      match_state& end = user.last;
      end.last_stand_closed = true;
      visit(innings_books{end.first_deliveries, end.first_batting_card, end.first_bowling_card, falls_before(end),
                          end.first_total, end.first_wickets, end.first_balls, end.first_wides, end.first_no_balls,
                          end.first_byes, end.first_leg_byes});
      visit(innings_books{end.deliveries, end.batting_card, end.bowling_card, falls_in_play(end), end.score_runs,
                          end.score_wickets, end.innings_balls, end.innings_wides, end.innings_no_balls,
                          end.innings_byes, end.innings_leg_byes});
    }
  }
};

TEST_F(InningsViews, PhasesAddUpToTheInnings) {
  each_innings([](const innings_books& books) {
    ball_figures all;
    int fours = 0;
    int sixes = 0;
    for (const phase& one : phases_of(books.balls)) {
      all.runs += one.figures.runs;
      all.balls += one.figures.balls;
      all.wickets += one.figures.wickets;
      all.fours += one.figures.fours;
      all.sixes += one.figures.sixes;
    }
    for (int i = 1; i <= men_in_eleven; ++i) fours += books.batting[i].fours, sixes += books.batting[i].sixes;
    EXPECT_EQ(all.runs, books.runs);
    EXPECT_EQ(all.balls, books.counted);
    EXPECT_EQ(all.wickets, books.wickets);
    EXPECT_EQ(all.fours, fours);
    EXPECT_EQ(all.sixes, sixes);
  });
}

TEST_F(InningsViews, StandsAreThoseOfTheFallsOfWickets) {
  each_innings([](const innings_books& books) {
    const std::vector<stand> all = stands_of(books.balls);
    for (const stand& one : all) {
      SCOPED_TRACE(one.wicket);
      const fall_of_wicket_rec& fall = books.falls[static_cast<std::size_t>(one.wicket)];
      EXPECT_EQ(one.runs, fall.partner_runs);
      EXPECT_EQ(one.balls, fall.partner_balls);
      EXPECT_EQ(one.runs, one.parts[0].runs + one.parts[1].runs + one.body_extras);
      EXPECT_EQ(one.unbroken, fall.batsman_b.ends_with(" * "));
    }
    std::array<int, men_in_eleven + 1> runs{};
    for (const stand& one : all) {
      for (const stand::share& part : one.parts) runs[static_cast<std::size_t>(part.position)] += part.runs;
    }
    for (int i = 1; i <= men_in_eleven; ++i) EXPECT_EQ(runs[static_cast<std::size_t>(i)], books.batting[i].runs) << i;
  });
}

TEST_F(InningsViews, MeetingsAndKindsOfRunsAreThoseOfTheCards) {
  each_innings([](const innings_books& books) {
    std::array<int, men_in_eleven + 1> faced{};
    std::array<int, men_in_eleven + 1> given{};
    std::array<int, men_in_eleven + 1> taken{};
    for (const meeting& one : meetings_of(books.balls)) {
      faced[static_cast<std::size_t>(one.batsman)] += one.balls;
      given[static_cast<std::size_t>(one.bowler)] += one.runs;
      taken[static_cast<std::size_t>(one.bowler)] += int(one.out);
    }
    for (int i = 1; i <= men_in_eleven; ++i) {
      SCOPED_TRACE(i);
      const batting_card_rec& card = books.batting[i];
      const kinds_of_runs his = kinds_of(books.balls, i);
      EXPECT_EQ(faced[static_cast<std::size_t>(i)], card.balls);
      EXPECT_EQ(given[static_cast<std::size_t>(i)], books.bowling[i].runs);
      EXPECT_EQ(taken[static_cast<std::size_t>(i)], books.bowling[i].wickets);
      EXPECT_EQ(his.off_the_bat(), card.runs);
      EXPECT_THAT((std::array{his.ones, his.twos, his.threes, his.fours, his.sixes}),
                  ElementsAre(card.singles, card.twos, card.threes, card.fours, card.sixes));
    }
    const kinds_of_runs all = kinds_of(books.balls);
    EXPECT_EQ(all.runs(), books.runs);
    EXPECT_THAT((std::array{all.wickets, all.wides, all.no_balls, all.byes, all.leg_byes}),
                ElementsAre(books.wickets, books.wides, books.no_balls, books.byes, books.leg_byes));
  });
}

TEST_F(InningsViews, SpellsAddUpToTheBowlersFigures) {
  each_innings([](const innings_books& books) {
    std::array<spell, men_in_eleven + 1> sums{};
    const std::vector<spell> all = spells_of(books.balls);
    for (const spell& one : all) {
      spell& sum = sums[static_cast<std::size_t>(one.bowler)];
      EXPECT_TRUE(sum.balls == 0 || sum.last_over + 2 < one.first_over) << "one spell told as two";
      sum.last_over = one.last_over;
      sum.balls += one.balls;
      sum.maidens += one.maidens;
      sum.runs += one.runs;
      sum.wickets += one.wickets;
    }
    for (int i = 1; i <= men_in_eleven; ++i) {
      SCOPED_TRACE(i);
      const spell& sum = sums[static_cast<std::size_t>(i)];
      const bowling_card_rec& card = books.bowling[i];
      EXPECT_EQ(sum.balls, card.balls);
      EXPECT_EQ(sum.maidens, card.maidens);
      EXPECT_EQ(sum.runs, card.runs);
      EXPECT_EQ(sum.wickets, card.wickets);
    }
  });
}

TEST_F(InningsViews, TheScorebookEndsAtTheTotal) {
  each_innings([](const innings_books& books) {
    const std::vector<scorebook_over> book = scorebook_of(books.balls);
    ASSERT_FALSE(book.empty());
    EXPECT_EQ(book.back().score, books.runs);
    EXPECT_EQ(book.back().down, books.wickets);
    std::size_t symbols = 0;
    for (const scorebook_over& over : book) symbols += over.symbols.size();
    EXPECT_EQ(symbols, books.balls.size());
  });
}

TEST(InningsViewsByHand, TheScorebookWritesWhatHappened) {
  const auto of = [](int outcome, int runs, int extras) {
    delivery ball;
    ball.outcome = static_cast<std::uint8_t>(outcome);
    ball.runs = static_cast<std::uint8_t>(runs);
    ball.extras = static_cast<std::uint8_t>(extras);
    return scorebook_symbol(ball);
  };
  EXPECT_EQ(of(dot_ball, 0, 0), ".");
  EXPECT_EQ(of(four_runs, 4, 0), "4");
  EXPECT_EQ(of(wicket, 0, 0), "W");
  EXPECT_EQ(of(no_ball, 0, 1), "nb");
  EXPECT_EQ(of(wide_ball, 0, 1), "wd");
  EXPECT_EQ(of(leg_byes, 0, 2), "2lb");
  EXPECT_EQ(of(byes, 0, 4), "4b");
}

TEST(InningsViewsByHand, ARestOfMoreThanAnOverEndsASpell) {
  delivery_list innings;
  for (const int over : {1, 3, 5, 9}) {
    for (int ball = 1; ball <= balls_of_over; ++ball) {
      delivery bowled;
      bowled.over = static_cast<std::uint8_t>(over);
      bowled.bowler = 4;
      bowled.striker = 1;
      bowled.non_striker = 2;
      innings.push_back(bowled);
    }
  }
  const std::vector<spell> all = spells_of(innings);
  ASSERT_EQ(all.size(), 2U);
  EXPECT_EQ(all[0].last_over, 5);
  EXPECT_EQ(all[0].maidens, 3);
  EXPECT_EQ(all[1].first_over, 9);
  EXPECT_FALSE(phases_of(innings)[2].figures.rate());
  EXPECT_EQ(phases_of(innings)[0].figures.rate(), 0.0);
}

}  // namespace
}  // namespace velorin
