// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/conditions_window.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QLabel>
#include <QSlider>

#include "model/match_state.h"
#include "model/random.h"
#include "setup/conditions.h"
#include "setup/forms/check_leaving.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class ConditionsWindowTest : public ::testing::Test {
 protected:
  ConditionsWindowTest() {
    set_up_sample_match();
    chance.use_seed(4);
    form.open();
  }

  conditions_form form{in_play()};
};

TEST_F(ConditionsWindowTest, PassesTheChecks) {
  ConditionsWindow window(form);
  window.show();
  take_picture(window, "wecond");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Conditions in The Oval:");
}

TEST_F(ConditionsWindowTest, MovedSlidersCountAndWordsStay) {
  ConditionsWindow window(form);
  window.show();
  const QString words = control<QLabel>(window, "weather_words")->text();
  control<QSlider>(window, "weather")->setValue(4);
  control<QSlider>(window, "outfield")->setValue(2);
  EXPECT_EQ(control<QLabel>(window, "weather_words")->text(), words);
  press(window, "accept");
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(match.weather, 4);
  EXPECT_EQ(match.outfield, 2);
}

TEST_F(ConditionsWindowTest, TheSkyIsPaintedForTheSliderAsItStands) {
  ConditionsWindow window(form);
  window.show();
  auto* sky = control<QWidget>(window, "sky");
  control<QSlider>(window, "weather")->setValue(3);
  const QImage fine = sky->grab().toImage();
  EXPECT_EQ(fine.pixelColor(5, 0).red(), 0);
  EXPECT_NEAR(fine.pixelColor(5, 0).green(), 33536 / 257, 2);
  // Down to the horizon, a third of the way, where the country begins before the sky's last line.
  EXPECT_GT(fine.pixelColor(5, fine.height() / 6).green(), 33536 / 257 + 40);
  control<QSlider>(window, "weather")->setValue(1);
  EXPECT_LT(sky->grab().toImage().pixelColor(5, 0).lightness(), 4);
}

TEST_F(ConditionsWindowTest, EscapeAndTheCloseBoxAskBeforeTheyLeave) {
  ConditionsWindow window(form);
  check_leaving(window, form);
}

}  // namespace
}  // namespace velorin::testing
