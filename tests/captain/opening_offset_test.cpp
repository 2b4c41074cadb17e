// SPDX-License-Identifier: GPL-3.0-or-later
// The offset of the bowlers' ratings, drawn at the start of each innings, a million times.
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstddef>
#include <string>

#include "captain/computer_captain.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/shares.h"

namespace velorin::testing {
namespace {

TEST(OpeningOffset, IsAnyOfTwentyOneAndOneForTheWholePool) {
  set_up_sample_match();
  chance.use_seed(1844);
  choose_opening_bowlers(match, chance);
  const int first = match.bowler;
  const int second = match.next_bowler;
  std::array<int, 21> counts{};
  int other_order = 0;
  int other_offset = 0;
  for (int i = 0; i < sample_size; ++i) {
    choose_opening_bowlers(match, chance);
    const auto offset_of = [](int line) {
      const bowler_pool_rec& man = match.bowler_pool[line];
      return man.rating - static_cast<double>(match.bowling_xi[man.position].bowl_sr);
    };
    const double offset = offset_of(1);
    ASSERT_TRUE(offset >= -10 && offset <= 10 && offset == std::floor(offset)) << offset;
    ++counts[static_cast<std::size_t>(offset + 10)];
    other_offset += offset_of(11) == offset ? 0 : 1;
    other_order += match.bowler == first && match.next_bowler == second ? 0 : 1;
  }
  EXPECT_EQ(other_offset, 0);
  EXPECT_EQ(other_order, 0) << "the offset shifts every rating alike";
  share_check shares;
  for (int offset = -10; offset <= 10; ++offset) {
    shares.cell("offset " + std::to_string(offset), counts[static_cast<std::size_t>(offset + 10)], 1.0 / 21);
  }
  EXPECT_EQ(shares.strays(), "");
  shares.report("offsets of the bowlers' ratings", sample_size);
  match = match_state();
  chance.use_clock();
}

}  // namespace
}  // namespace velorin::testing
