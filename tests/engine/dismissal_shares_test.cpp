// SPDX-License-Identifier: GPL-3.0-or-later
// Very many dismissals by bowlers of each kind, with and without a keeper.
#include <gtest/gtest.h>

#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "engine/ball_books.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/shares.h"

namespace velorin::testing {
namespace {

struct attack {
  const char* what;
  const char* kind;  ///< bowler_type of the bowler
  int bowler;        ///< position
  std::vector<int> keepers;
  int striker;
};

const std::vector<attack> attacks = {
    {"fast", "Fast Bowler", 8, {7}, 1},
    {"medium", "Medium Pacer", 11, {7}, 2},
    {"spin", "spinner", 10, {7}, 6},
    {"a spinner by another name", "Spinner", 10, {7}, 11},
    {"no kind", "", 3, {1}, 4},
    {"spin with two keepers", "spinner", 9, {2, 7}, 1},
    {"spin by the keeper", "spinner", 7, {7}, 1},
    {"pace without a keeper", "Fast Bowler", 8, {}, 1},
    {"spin without a keeper", "spinner", 10, {}, 1},
};

/// how_out and fielder of a dismissal.
using words = std::pair<std::string, std::string>;

std::string man(int position) { return "A.Bowl" + std::to_string(position); }

/// What each dismissal reads like, and its share.
std::map<words, double> shares_of(const attack& a) {
  const std::string by = man(a.bowler);
  const std::string keeper = a.keepers.empty() ? "" : man(a.keepers.back());
  std::map<words, double> shares;
  shares[{" b " + by, ""}] += 11.0 / 110;
  shares[{" b " + by, keeper.empty() ? "" : " c " + keeper}] += 19.0 / 110;
  shares[{" b " + by, keeper.empty() ? "" : (a.kind == std::string("spinner") ? " st " : " c ") + keeper}] += 5.0 / 110;
  shares[{" lbw " + by, ""}] += 10.0 / 110;
  for (int i = 1; i <= 11; ++i) {
    shares[{" run out (" + man(i) + ")", ""}] += 10.0 / 110 / 11;
    shares[i == a.bowler ? words{" c && b " + by, ""} : words{" b " + by, " c " + man(i)}] += 55.0 / 110 / 11;
  }
  return shares;
}

class DismissalShares : public ::testing::Test {
 protected:
  void TearDown() override {
    match = match_state();
    chance.use_clock();
  }

  static void set_up(const attack& a) {
    set_up_sample_match();
    match.striker = a.striker;
    match.non_striker = a.striker == 1 ? 2 : 1;
    match.bowler = a.bowler;
    match.bowling_xi[a.bowler].bowler_type = a.kind;
    for (int i = 1; i <= 11; ++i) match.bowling_xi[i].is_keeper = 0;
    for (const int keeper : a.keepers) match.bowling_xi[keeper].is_keeper = flag_true;
  }

  static void count(const attack& a, share_check& shares) {
    set_up(a);
    std::map<words, int> counts;
    int other_flag = 0;
    batting_card_rec& card = match.batting_card[a.striker];
    for (int i = 0; i < sample_size; ++i) {
      card = {};
      delivery ball;
      record_dismissal(match, chance, ball);
      other_flag += (ball.how == dismissal::run_out) == card.how_out.starts_with(" run out ") ? 0 : 1;
      ++counts[{card.how_out, card.fielder}];
    }
    EXPECT_EQ(other_flag, 0) << a.what;
    double all = 0;
    for (const auto& [text, share] : shares_of(a)) {
      shares.cell(std::string(a.what) + ":" + text.second + text.first, counts[text], share);
      all += counts[text];
    }
    EXPECT_EQ(all, sample_size) << a.what << ": some dismissals read otherwise";
  }
};

TEST_F(DismissalShares, OfEveryKindOfBowler) {
  chance.use_seed(1877);
  share_check shares;
  for (const attack& a : attacks) count(a, shares);
  EXPECT_EQ(shares.strays(), "");
  shares.report("dismissals", 1.0 * sample_size * static_cast<double>(attacks.size()));
}

}  // namespace
}  // namespace velorin::testing
