// SPDX-License-Identifier: GPL-3.0-or-later
// The draws of the competitions in large numbers: grounds of series, tri series and World Cup, and the shuffled lists.
#include <array>
#include <cmath>
#include <cstddef>
#include <map>
#include <string>

#include "competitions/cup_fixture.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "support/game_in_play.h"
#include "support/shares.h"
#include "support/test_user.h"

namespace velorin::testing {
namespace {

const std::vector<std::string> seven_grounds = {"One", "Two", "Three", "Four", "Five", "Six", "Seven"};

using tally = std::map<std::string, int>;

void check_grounds(share_check& shares, const std::string& what, tally counts, int all) {
  int known = 0;
  for (const std::string& ground : seven_grounds) {
    shares.cell(what + " at " + ground, counts[ground], 1.0 / 7, all);
    known += counts[ground];
  }
  EXPECT_EQ(known, all) << what << ": another ground was drawn";
}

/// Notes the ground of each match of a competition whose teams are not chosen, so that nothing is played.
class ground_watcher : public test_user {
 public:
  tally series_grounds;
  tally tri_grounds;
  int drawn = 0;

  using headless_user::show;
  void show(series_results_form& form) override {
    ++series_grounds[series.drawn_ground];
    ++drawn;
    headless_user::show(form);
  }
  void show(tri_series_table_form& form) override {
    ++tri_grounds[tri.drawn_ground];
    ++drawn;
    headless_user::show(form);
  }
};

class DrawShares : public CupTest {
 protected:
  void SetUp() override {
    CupTest::SetUp();
    choose_groups();
    world_cup.grounds = seven_grounds;
    chance.use_seed(1975);
  }
  void TearDown() override {
    world_cup = world_cup_record();
    series = series_record();
    tri = tri_record();
    chance.use_clock();
  }

  ground_watcher watcher_;
};

TEST_F(DrawShares, GroundsOfASeries) {
  const front_end_scope scope(watcher_);
  series_form form(in_play(), series);
  form.grounds = seven_grounds;
  form.typed_matches = "10";
  while (watcher_.drawn < sample_size) form.accept();
  share_check shares;
  check_grounds(shares, "series", watcher_.series_grounds, watcher_.drawn);
  EXPECT_EQ(shares.strays(), "");
  shares.report("grounds of series", watcher_.drawn);
}

TEST_F(DrawShares, GroundsOfATriSeries) {
  const front_end_scope scope(watcher_);
  tri_series_form form(in_play(), tri);
  form.team_index = {-1, -1, -1};
  chance.use_seed(1992);
  form.grounds = seven_grounds;
  form.typed_rounds = "5";
  while (watcher_.drawn < sample_size) form.accept();
  share_check shares;
  check_grounds(shares, "tri series", watcher_.tri_grounds, watcher_.drawn);
  EXPECT_EQ(shares.strays(), "");
  shares.report("grounds of tri series", watcher_.drawn);
}

/// Where a line of a list ends up after so many exchanges of two places drawn from all: a single exchange leaves a line
/// where it is but for 2 / places of its way to equal shares.
double shuffled_share(bool stays, int places, int exchanges) {
  const double memory = std::pow(1 - 2.0 / places, exchanges);
  return stays ? (1 + (places - 1) * memory) / places : (1 - memory) / places;
}

TEST_F(DrawShares, TheGroupMatches) {
  // counts[from][to]: the place in which a pair is entered, and the one in which it is found.
  std::array<std::array<int, 21>, 21> counts{};
  std::array<std::array<int, 6>, 6> entered{};
  int next = 1;
  for (int i = 1; i <= 5; ++i) {
    for (int j = i + 1; j <= 5; ++j, next += 2) entered[i][j] = next;
  }
  tally grounds;
  tally first_grounds;
  for (int n = 0; n < sample_size; ++n) {
    draw_group_fixtures(chance, world_cup);
    for (int place = 1; place <= 20; ++place) {
      const cup_fixture& fixture = world_cup.fixtures[place];
      ++counts[entered[fixture.index_a][fixture.index_b] + (fixture.stage == "B" ? 1 : 0)][place];
    }
    ++first_grounds[world_cup.fixtures[1].venue];
    ++grounds[world_cup.fixtures[20].venue];
  }
  share_check shares;
  for (int from = 1; from <= 20; ++from) {
    for (int to = 1; to <= 20; ++to) {
      shares.cell("line " + std::to_string(from) + " in place " + std::to_string(to), counts[from][to],
                  shuffled_share(from == to, 20, 30));
    }
  }
  check_grounds(shares, "first group match", first_grounds, sample_size);
  check_grounds(shares, "last group match", grounds, sample_size);
  EXPECT_EQ(shares.strays(), "");
  shares.report("lists of group matches", sample_size);
}

TEST_F(DrawShares, TheSuperSixMatches) {
  for (int place = 1; place <= 6; ++place) world_cup.super_six[place].team = "Team " + std::to_string(place);
  std::array<std::array<int, 10>, 10> counts{};
  tally grounds;
  for (int n = 0; n < sample_size; ++n) {
    draw_super_six_fixtures(chance, world_cup);
    for (int place = 1; place <= 9; ++place) {
      const cup_fixture& fixture = world_cup.fixtures[20 + place];
      ++counts[3 * (fixture.index_a - 1) + fixture.index_b][place];
    }
    ++grounds[world_cup.fixtures[25].venue];
  }
  share_check shares;
  for (int from = 1; from <= 9; ++from) {
    for (int to = 1; to <= 9; ++to) {
      shares.cell("line " + std::to_string(from) + " in place " + std::to_string(to), counts[from][to],
                  shuffled_share(from == to, 9, 10));
    }
  }
  check_grounds(shares, "Super Six", grounds, sample_size);
  EXPECT_EQ(shares.strays(), "");
  shares.report("lists of Super Six matches", sample_size);
}

/// Cuts a match off at its conditions, and notes the ground.
class knock_out_watcher : public test_user {
 public:
  struct cut_off {};
  tally grounds;

  using headless_user::show;
  void show(conditions_form&) override {
    ++grounds[match.ground.ground_name];
    throw cut_off();
  }
};

TEST_F(DrawShares, GroundsOfASemiFinal) {
  knock_out_watcher watcher;
  const front_end_scope scope(watcher);
  data.files.read_once = true;
  world_cup.grounds = {"Ardell Oval", "Brava Oval", "Corrin Park"};
  world_cup.semi_finals[1].team_a = "Ardell";
  world_cup.semi_finals[1].team_b = "Brava";
  world_cup.stage = cup_stage::knock_out;
  for (int n = 0; n < sample_size; ++n) {
    world_cup.next_match = 0;
    world_cup.step = cup_step::entering;
    EXPECT_THROW(resume_world_cup(in_play(), world_cup), knock_out_watcher::cut_off);
  }
  share_check shares;
  for (const std::string& ground : world_cup.grounds) {
    shares.cell("semi-final at " + ground, watcher.grounds[ground], 1.0 / 3);
  }
  EXPECT_EQ(shares.strays(), "");
  shares.report("grounds of a semi-final", sample_size);
}

}  // namespace
}  // namespace velorin::testing
