// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>

#include "reports/bowling_figures.h"
#include "reports/forms/bowling_card_window.h"
#include "reports/forms/first_bowling_card_window.h"
#include "reports/forms/first_partnerships_window.h"
#include "reports/forms/first_scorecard_window.h"
#include "reports/forms/overs_graph_window.h"
#include "reports/forms/partnerships_window.h"
#include "reports/forms/played_match.h"
#include "reports/forms/scorecard_window.h"
#include "reports/forms/worm_graph_window.h"
#include "reports/overs_graph.h"
#include "reports/partnerships.h"
#include "reports/worm_graph.h"
#include "support/new_form.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

// Every report at every stage of a match.

namespace velorin::testing {
namespace {

struct State {
  const char* name;
  match_state PlayedMatch::*moment;
};

constexpr State states[] = {
    {"no_ball", &PlayedMatch::no_ball},
    {"first_innings", &PlayedMatch::first_innings},
    {"first_all_out", &PlayedMatch::first_all_out},
    {"second_innings", &PlayedMatch::second_innings},
    {"second_all_out", &PlayedMatch::second_all_out},
};

void PrintTo(const State& state, std::ostream* out) { *out << state.name; }

class ReportStates : public ReportWindowTest, public ::testing::WithParamInterface<State> {
 protected:
  void SetUp() override { match = played_match().*GetParam().moment; }

  template <class Screen, class Window>
  void check(const char* name) {
    Screen screen(match);
    screen.open();
    window_of<Window, Screen> window(screen);
    window.show();
    EXPECT_EQ(window.objectName(), QString::fromLatin1(name));
    take_pictures(window, std::string(name) + "-" + GetParam().name);
    check_window_at_sizes(window);
    press(window, "accept");
    EXPECT_FALSE(window.isVisible());
    window_of<Window, Screen> again(screen);
    again.show();
    again.reject();
    EXPECT_FALSE(again.isVisible()) << "Escape closes what is only read";
  }
};

TEST_P(ReportStates, Scorecard) { check<scorecard_form, ScorecardWindow>("scorecard"); }
TEST_P(ReportStates, Scorecard2) { check<first_scorecard_form, FirstScorecardWindow>("scorecard2"); }
TEST_P(ReportStates, Bowlcard) { check<bowling_card_form, BowlingCardWindow>("Bowlcard"); }
TEST_P(ReportStates, Bowlcard2nd) { check<first_bowling_card_form, FirstBowlingCardWindow>("bowlcard2nd"); }
TEST_P(ReportStates, Partners) { check<partnerships_form, PartnershipsWindow>("partners"); }
TEST_P(ReportStates, Partners2) { check<first_partnerships_form, FirstPartnershipsWindow>("partners2"); }
TEST_P(ReportStates, Graphs) { check<overs_graph_form, OversGraphWindow>("graphs"); }
TEST_P(ReportStates, Worms) { check<worm_graph_form, WormGraphWindow>("worms"); }

INSTANTIATE_TEST_SUITE_P(AtEveryStage, ReportStates, ::testing::ValuesIn(states),
                         [](const auto& stage) { return std::string(stage.param.name); });

}  // namespace
}  // namespace velorin::testing
