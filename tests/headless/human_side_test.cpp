// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "engine/over_play.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"

// Two human sides in the hands of the headless user.

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;

/// One over: who bowled it and how many balls he had bowled before, this innings.
struct over_bowled {
  int bowler = 0;
  int balls_before = 0;
};

/// The first innings of a match, over by over, ended overs only.
class HumanSide : public ::testing::Test {
 protected:
  void play_first_innings(std::uint64_t seed) {
    set_up_sample_match(false, false);
    chance.use_seed(seed);
    open_console(in_play());
    console_form console(in_play());
    while (match.innings_number == 1) {
      std::array<int, 12> before{};
      for (int i = 1; i <= 11; ++i) before[i] = match.bowling_card[i].balls;
      const int over = match.over_no;
      console.bowl_next_over();
      if (match.innings_number != 1) break;
      ASSERT_EQ(match.over_no, over + 1);
      overs_.push_back({match.next_bowler, before[match.next_bowler]});
      EXPECT_EQ(match.batsman_aggression, (std::array<int, 2>{3, 3}));
    }
  }
  std::vector<int> bowlers_in_order() const {
    std::vector<int> order;
    for (const over_bowled& over : overs_) {
      if (std::find(order.begin(), order.end(), over.bowler) == order.end()) order.push_back(over.bowler);
    }
    return order;
  }

  scripted_user user_;
  front_end_scope shown_{user_};
  std::vector<over_bowled> overs_;
};

TEST_F(HumanSide, BowlsInListedOrderAndChangesOnlyAtTheQuota) {
  play_first_innings(2);
  ASSERT_EQ(overs_.size(), 49U) << "the sample innings lasts its fifty overs";
  EXPECT_THAT(bowlers_in_order(), ElementsAre(1, 2, 3, 4, 5, 6));
  std::map<int, int> balls;
  for (std::size_t i = 0; i < overs_.size(); ++i) {
    EXPECT_LT(overs_[i].balls_before, 60);
    if (i < 2) continue;
    const over_bowled& before = overs_[i - 2];
    if (overs_[i].bowler == before.bowler) continue;
    EXPECT_GE(before.balls_before + 6, 60) << "over " << i + 1 << " has another bowler";
  }
  EXPECT_EQ(user_.requests_of("message Full Quota Bowled").size(), 4U);
  EXPECT_EQ(user_.requests_of("message Full Quota Bowled").front(),
            "message Full Quota Bowled | A.Bowl1 has bowled his full quota of 10 overs.Please select a new bowler");
}

TEST_F(HumanSide, BatsInListedOrder) {
  play_first_innings(2);
  int in = 0;
  for (int i = 1; i <= 11; ++i) {
    const std::string& name = match.first_batting_card[i].name;
    if (!name.empty()) {
      EXPECT_EQ(name, "H.Bat" + std::to_string(i));
      in = i;
    }
    EXPECT_EQ(match.bowling_xi[i].name, "H.Bat" + std::to_string(i)) << "the order of the list stands";
  }
  EXPECT_GE(in, 3) << "a wicket or more has fallen";
}

TEST_F(HumanSide, AsksForEveryPickOfACaptain) {
  play_first_innings(2);
  const std::vector<std::string> first(user_.requests.begin(), user_.requests.begin() + 4);
  EXPECT_THAT(first, ElementsAre("chgbowler Select 1st Opening Bowler", "chgbowler Select 2nd Opening Bowler",
                                 "batorder Select 1st Opener", "batorder Select 2nd Opener"));
  const auto wickets = user_.requests_of("batsmandetails");
  EXPECT_EQ(user_.requests_of("batorder Select Next Batsman").size(), wickets.size());
  EXPECT_EQ(user_.requests_of("batorder Select 1st Opener").size(), 2U) << "once an innings";
  EXPECT_EQ(user_.requests_of("chgbowler Change Bowler").size(), 4U);
}

}  // namespace
}  // namespace velorin::testing
