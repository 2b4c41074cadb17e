// SPDX-License-Identifier: GPL-3.0-or-later
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/run_time_error.h"
#include "setup/new_match.h"
#include "setup/selection_rules.h"
#include "support/squad_table.h"

// Auto Select and the order of a squad against their rules told a second time, on squads made up at random.

namespace velorin::testing {
namespace {

class RandomSquads : public ::testing::Test {
 protected:
  int number(int from, int to) { return std::uniform_int_distribution(from, to)(dice_); }
  std::string one_of(const std::vector<std::string>& texts) {
    return texts[static_cast<std::size_t>(number(0, static_cast<int>(texts.size()) - 1))];
  }

  /// Figures in few steps, so that ties and halves are frequent; `strange` brings in unknown roles and blank places.
  squad random_squad(bool strange) {
    static const std::vector<std::string> roles = {"Opener", "Middle Order", "Middle Order", "Lower Order",
                                                   "Lower Order"};
    static const std::vector<std::string> odd_roles = {"Opener", "Middle Order", "Lower Order", "",     "opener",
                                                       "Keeper", "\xC9lite",     "Opener ",     "Lower"};
    static const std::vector<std::string> kinds = {"Fast Bowler", "Medium Pacer", "spinner", "", "Wk", "spinner/Wk"};
    squad men;
    const int count = strange ? number(0, 20) : number(11, 20);
    for (int i = 1; i <= count; ++i) {
      player_rec& man = men[i];
      man.name = "p" + std::to_string(i);
      man.bat_skill = number(strange ? -1 : 1, 3) + 10 * number(0, 4);
      man.bowl_sr = static_cast<float>(number(60, 140)) / 2;
      man.econ = static_cast<float>(number(35, 65)) / 10;
      man.is_keeper = number(0, 9) == 0 ? flag_true : 0;
      man.bat_type = (number(0, 1) == 0 ? "RH " : "LH ") + one_of(strange ? odd_roles : roles);
      man.bowler_type = number(0, 3) == 0 ? one_of(kinds) : "spinner";
      if (strange && number(0, 9) == 0) man.name.clear();
      if (strange && number(0, 19) == 0) man.bat_type = "RH";
    }
    return men;
  }

  /// How many squads led to this many ticks; element 0 counts the endless ones.
  std::array<int, 21> compare(int rounds, bool strange) {
    std::array<int, 21> results{};
    for (int round = 0; round < rounds; ++round) {
      selection screen(random_squad(strange));
      const rules::auto_selection expected = rules::auto_select(screen.form);
      bool endless = false;
      try {
        screen.form.auto_select();
      } catch (const run_time_error& error) {
        EXPECT_EQ(error.kind(), failure::endless);
        endless = true;
      }
      EXPECT_EQ(endless, expected.endless) << "round " << round;
      if (!endless) {
        EXPECT_EQ(screen.form.ticks, expected.ticks) << "round " << round;
      }
      if (HasFailure()) break;
      ++results[static_cast<std::size_t>(endless ? 0 : screen.form.ticked())];
    }
    return results;
  }

  std::mt19937 dice_{19750607};
};

TEST_F(RandomSquads, OrdinaryOnesAreSelectedAlike) {
  const auto results = compare(6000, false);
  EXPECT_GT(results[11], 5000);
  EXPECT_GT(results[12], 0) << "twelve ticked men are among the cases";
}

TEST_F(RandomSquads, StrangeOnesAreSelectedAlike) {
  const auto results = compare(6000, true);
  EXPECT_GT(results[11], 4000);
  EXPECT_GT(results[0], 0) << "endless searches are among the cases";
}

TEST_F(RandomSquads, AreOrderedAlike) {
  for (int round = 0; round < 6000; ++round) {
    squad men = random_squad(true);
    squad told = men;
    sort_squad(men);
    rules::order_squad(told);
    for (int i = 1; i <= 20; ++i) {
      ASSERT_EQ(men[i].name, told[i].name) << "round " << round << ", place " << i;
      ASSERT_EQ(men[i].bat_type, told[i].bat_type) << "round " << round << ", place " << i;
      ASSERT_EQ(men[i].bat_skill, told[i].bat_skill) << "round " << round << ", place " << i;
    }
  }
}

}  // namespace
}  // namespace velorin::testing
