// SPDX-License-Identifier: GPL-3.0-or-later
#include <memory>

#include "reports/bowling_figures.h"
#include "reports/forms/bowlcard2nd_window.h"
#include "reports/forms/bowlcard_window.h"
#include "reports/forms/graphs_window.h"
#include "reports/forms/partners2_window.h"
#include "reports/forms/partners_window.h"
#include "reports/forms/played_match.h"
#include "reports/forms/scorecard2_window.h"
#include "reports/forms/scorecard_window.h"
#include "reports/forms/worms_window.h"
#include "reports/graphs.h"
#include "reports/partnerships.h"
#include "reports/worms.h"
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

class ReportStatesTest : public ReportWindowTest, public ::testing::WithParamInterface<State> {
 protected:
  void SetUp() override { match = played_match().*GetParam().moment; }

  template <class Screen, class Window>
  void check(const char* name) {
    Screen screen;
    screen.open();
    Window window(screen);
    window.show();
    EXPECT_EQ(window.objectName(), QString::fromLatin1(name));
    take_pictures(window, std::string(name) + "-" + GetParam().name);
    check_window_at_sizes(window);
    press(window, "Command1");
    EXPECT_FALSE(window.isVisible());
    Window again(screen);
    again.show();
    again.reject();
    EXPECT_FALSE(again.isVisible()) << "Escape closes what is only read";
  }
};

TEST_P(ReportStatesTest, Scorecard) { check<scorecard, ScorecardWindow>("scorecard"); }
TEST_P(ReportStatesTest, Scorecard2) { check<scorecard2, Scorecard2Window>("scorecard2"); }
TEST_P(ReportStatesTest, Bowlcard) { check<bowlcard, BowlcardWindow>("Bowlcard"); }
TEST_P(ReportStatesTest, Bowlcard2nd) { check<bowlcard2nd, Bowlcard2ndWindow>("bowlcard2nd"); }
TEST_P(ReportStatesTest, Partners) { check<partners, PartnersWindow>("partners"); }
TEST_P(ReportStatesTest, Partners2) { check<partners2, Partners2Window>("partners2"); }
TEST_P(ReportStatesTest, Graphs) { check<graphs, GraphsWindow>("graphs"); }
TEST_P(ReportStatesTest, Worms) { check<worms, WormsWindow>("worms"); }

INSTANTIATE_TEST_SUITE_P(AtEveryStage, ReportStatesTest, ::testing::ValuesIn(states),
                         [](const auto& stage) { return std::string(stage.param.name); });

}  // namespace
}  // namespace velorin::testing
