// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>

#include "model/match_state.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

// Whole matches played by pressing the controls of the windows; the books equal those of the core with the same draws.

namespace velorin::testing {
namespace {

struct Captains {
  bool first_human;
  bool second_human;
};

class MatchClicking : public GameTest, public ::testing::WithParamInterface<Captains> {
 protected:
  /// The same match by the headless user.
  BookkeepingUser play_in_core(bool first_human, bool second_human, std::uint64_t seed) {
    begin_again_with_seed(seed);
    BookkeepingUser user;
    const front_end_scope in_use(user);
    new_match_form form(in_play());
    form.open();
    form.choose_first_team(4);
    form.choose_second_team(7);
    form.computer_captains_first = !first_human;
    form.computer_captains_second = !second_human;
    form.accept();
    return user;
  }
};

TEST_P(MatchClicking, TheBooksEqualThoseOfTheCore) {
  const auto [first_human, second_human] = GetParam();
  for (const std::uint64_t seed : {3U, 8U}) {
    SCOPED_TRACE(seed);
    begin_again_with_seed(seed);
    ClickingUser user;
    user.robot.next("teamfrm", [first = first_human, second = second_human](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, first, second);
      press(window, "accept");
    });
    play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
    const match_result result = match;
    const std::vector<std::string> written = lasting_files();
    EXPECT_EQ(user.robot.left(), 0);
    EXPECT_GT(written[0].size(), 0U);
    EXPECT_GT(written[1].size(), 0U);

    const BookkeepingUser reference = play_in_core(first_human, second_human, seed);
    EXPECT_EQ(user.books_shown, reference.books_shown);
    EXPECT_EQ(user.messages, reference.messages);
    EXPECT_EQ(result.result_winner, match.result_winner);
    EXPECT_EQ(result.result_margin, match.result_margin);
    EXPECT_TRUE(written == lasting_files()) << "the career or record files differ";
    EXPECT_EQ(user.books_shown.size(), 2U);
  }
}

INSTANTIATE_TEST_SUITE_P(Captains, MatchClicking,
                         ::testing::Values(Captains{false, false}, Captains{true, false}, Captains{false, true},
                                           Captains{true, true}),
                         [](const auto& which) {
                           return std::string(which.param.first_human ? "Human" : "Computer") +
                                  (which.param.second_human ? "AgainstHuman" : "AgainstComputer");
                         });

TEST_F(GameTest, ADrawnGroundListFollowsTheTeams) {
  ClickingUser user;
  std::vector<QString> grounds;
  user.robot.next("teamfrm", [&](QWidget& window) {
    ClickingUser::choose_match(window, 0, 9, false, false);
    auto* list = control<QComboBox>(window, "grounds");
    for (int i = 0; i < list->count(); ++i) grounds.push_back(list->itemText(i));
    EXPECT_EQ(list->currentIndex(), 1);
    press(window, "cancel");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  EXPECT_EQ(grounds, (std::vector<QString>{"Aden Oval", "Aden Park", "Java Oval", "Java Park"}));
  EXPECT_TRUE(match.team1_name.empty());
}

}  // namespace
}  // namespace velorin::testing
