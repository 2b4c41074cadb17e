// SPDX-License-Identifier: GPL-3.0-or-later
// What the console keeps and shows through the change of innings: commentary, projection, panel, graph, bowlers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "console/console_view.h"
#include "engine/delivery_model.h"
#include "engine/match_fixture.h"
#include "engine/play_steps.h"
#include "model/run_time_error.h"
#include "reports/worm_graph.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

class InningsConsole : public match_test {};

/// The change of innings, and what follows on it up to the first over.
void change_innings_and_open() {
  match.next_step = play_step::innings_changes;
  take_steps(in_play());
}

TEST_F(InningsConsole, TheCommentaryIsStored) {
  play_first_innings(false, false);
  const std::vector<std::string> stored = stored_commentary_lines(match);
  ASSERT_THAT(stored, SizeIs(6 + 12 + 11 + 1));
  EXPECT_EQ(stored[0], "A.Bowl1 to H.Bat1 : 2 runs.");
  EXPECT_EQ(stored[8], "Hom   12/0");
  EXPECT_EQ(stored[18], "A.Bowl2 to H.Bat2 : 4 runs.");
  EXPECT_EQ(stored[21], "H.Bat2   c A.Bowl7  b A.Bowl2 4 (2)");
  EXPECT_EQ(stored[26], "A.Bowl2 to H.Bat3 : no ball.");
  EXPECT_EQ(stored[28], "A.Bowl2 to H.Bat3 : no run.");
  EXPECT_EQ(stored[29], "");
  EXPECT_THAT(commentary_lines(match), IsEmpty());
  play({hit(1)});
  EXPECT_THAT(commentary_lines(match), ElementsAre("H.Bat1 to A.Bowl1 : 1 run."));
  EXPECT_EQ(stored_commentary_lines(match), stored);
}

TEST_F(InningsConsole, ACommentaryBeyondItsPlacesIsAnError) {
  const auto bowl = [&](int lines) {
    open(false, false);
    match.deliveries = {ball_of_runs(0)};
    match.deliveries.insert(match.deliveries.end(), static_cast<std::size_t>(lines) - 1, wide_on(1));
    match.innings_balls = 1;
    ASSERT_THAT(commentary_lines(match), SizeIs(lines));
  };
  bowl(1498);
  match.innings_total = 4;
  change_innings_and_open();
  EXPECT_THAT(stored_commentary_lines(match), SizeIs(1499));
  bowl(1499);
  EXPECT_THROW(change_innings_and_open(), run_time_error);
}

TEST_F(InningsConsole, TheProjectionIsFrozenAtTheLastEndOfOver) {
  play_first_innings(false, false);
  EXPECT_EQ(match.first_innings_projection.text(), "18");  // 12 after 49 overs and 6
  play(times(6, hit(1)));
  EXPECT_EQ(match.first_innings_projection.text(), "18");
}

TEST_F(InningsConsole, TheProjectionOfASideAllOutLooksFarAhead) {
  open(false, false);
  play(times(6, hit(1)) + std::vector{hit(4)} + times(10, out()));
  EXPECT_EQ(match.first_total, 10);
  EXPECT_EQ(match.first_innings_projection.text(), "298");  // 10 after two overs, and 288
}

TEST_F(InningsConsole, WithoutACompletedOverThereIsNoProjection) {
  open(false, true);
  play({hit(1)});
  match.innings_total = match.score_runs;
  change_innings_and_open();
  EXPECT_EQ(match.first_innings_projection.text(), "-");
  ASSERT_TRUE(match.computer_bats);
  try {
    play({hit(0)});
    FAIL() << "the captain reckons with a dash";
  } catch (const run_time_error& error) {
    EXPECT_EQ(error.kind(), failure::type);
  }
}

TEST_F(InningsConsole, ThePanelShowsNothingOfTheFirstInningsInTheChase) {
  open(false, false);
  skip_to_over(45);
  play(times(30, hit(2)));
  EXPECT_EQ(view_rates(match).last_five_overs, "12");
  play(times(5, hit(1)) + std::vector{hit(3)});
  EXPECT_EQ(match.first_total, 68);
  const auto cells = [] {
    std::vector<std::string> texts;
    for (const rate_cell& cell : view_rates(match).cells) texts.push_back(cell.text);
    return texts;
  };
  const std::vector<std::string> nothing_bowled = {"69", "50.0 (300b)", "", "", "10", "69", "1.38"};
  EXPECT_TRUE(view_rates(match).chase);
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
  EXPECT_EQ(view_rates(match).score_now, "Awa are 0/0");
  EXPECT_EQ(view_rates(match).score_then, "Hom were 0/0");
  EXPECT_EQ(cells(), nothing_bowled);
  play(times(6, hit(4)));
  EXPECT_EQ(view_rates(match).last_five_overs, " - ");
  EXPECT_EQ(view_rates(match).score_now, "Awa are 24/0");
  EXPECT_THAT(cells(), ElementsAre("45", "49.0 (294b)", "0.92", "24", "10", "69", "1.38"));
}

TEST_F(InningsConsole, TheGraphOfScoresFollowsTheSides) {
  open(false, false);
  play({hit(4), hit(0)});
  match_worms worms = worms_with_this_innings(match);
  EXPECT_EQ(worms.worm[0].team, "Home");
  EXPECT_EQ(worms.worm[0].row[1], 4);
  EXPECT_FALSE(worms.worm[0].row_set[2]);
  EXPECT_FALSE(worms.worm[1].score_set);
  play_first_innings(false, false);
  EXPECT_EQ(match.worm[0].row[50], 22);  // at 299 balls
  EXPECT_EQ(match.worm[0].row[51], 22);  // at 300
  play(times(6, hit(1)) + std::vector{out()});
  worms = worms_with_this_innings(match);
  EXPECT_EQ(worms.worm[1].team, "Away");
  EXPECT_EQ(worms.worm[1].row[1], 5);
  EXPECT_EQ(worms.worm[1].row[2], 6);
  EXPECT_EQ(worms.worm[1].score_wickets, 1);
}

TEST_F(InningsConsole, TheTableOfBowlersStartsAnew) {
  play_first_innings(false, false);
  EXPECT_THAT(view_bowler_list(match), IsEmpty());
  play({hit(1)});
  ASSERT_THAT(view_bowler_list(match), SizeIs(1));
  EXPECT_EQ(view_bowler_list(match)[0].name, "H.Bat1");
}

}  // namespace
}  // namespace velorin::testing
