// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/levels_adviser.h"

#include <gtest/gtest.h>

#include <QTest>
#include <vector>

#include "desktop/level_segments.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "engine/forms/console_fixture.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class LevelsOnTheConsole : public ConsoleWindowTest {
 protected:
  LevelsOnTheConsole() { preferences::set_adviser(true); }
  ~LevelsOnTheConsole() override {
    window_.reset();
    preferences::set_adviser(false);
  }

  LevelsAdviser& adviser() const { return *window_->findChild<LevelsAdviser*>(QStringLiteral("levels_adviser")); }
  void wait_for_advice() const {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !adviser().is_working(); }, 60'000));
  }
  /// What a segment tells besides what it brings.
  QString told(const char* segment) const {
    const auto* control = window_->findChild<LevelSegment*>(QString::fromLatin1(segment));
    const QString name = control->accessibleName().section(QStringLiteral("; to win "), 1);
    EXPECT_EQ(name, control->toolTip().section(QStringLiteral("\nTo win: "), 1));
    return name;
  }
};

TEST_F(LevelsOnTheConsole, EachLevelOfAHumanSidesMenTellsWhatItDoes) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 40; ++over) form_.bowl_next_over();
  window.refresh();
  EXPECT_EQ(told("batsman_level_0_5"), "") << "not known yet";
  wait_for_advice();
  std::vector<captains_choice> choices;
  for (int level = least_aggression; level <= most_aggression; ++level) {
    choices.push_back({captains_choice::kind::batting_aggression, match.lower_batsman(), level});
  }
  const std::vector<advice> found =
      advise(match, advised_side::batting, choices, {.runs = LevelsAdviser::runs, .seed = 1, .threads = 2, .stop = {}});
  ASSERT_EQ(found.size(), 6U);
  for (int level = least_aggression; level <= most_aggression; ++level) {
    const QString wanted =
        shown(difference_words(found[static_cast<std::size_t>(level)])).replace(QLatin1Char('-'), QChar(0x2212));
    EXPECT_EQ(told(qPrintable(QStringLiteral("batsman_level_0_%1").arg(level))), wanted);
  }
  EXPECT_NE(told("batsman_level_1_3"), "");
  EXPECT_EQ(told("bowler_level_0_3"), "") << "the computer's man";
  window.resize(1280, 800);
  check_window_at_sizes(window);
  form_.bowl_ball();
  window.refresh();
  EXPECT_EQ(told("batsman_level_0_5"), "") << "the match stands elsewhere";
}

TEST_F(LevelsOnTheConsole, TurnedOffNothingIsAsked) {
  preferences::set_adviser(false);
  open(false, true);
  form_.bowl_next_over();
  window_->refresh();
  EXPECT_FALSE(adviser().is_working());
}

}  // namespace
}  // namespace velorin::testing
