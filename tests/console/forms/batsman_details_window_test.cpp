// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/batsman_details_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>

#include "console/captain_forms.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class BatsmanDetailsWindowTest : public ::testing::Test {
 protected:
  BatsmanDetailsWindowTest() {
    form_.title = form_.figures.title = "Fall Of Wicket";
    form_.figures.headline = "K.L.Merriweather  c D.Pellinore-Brackenbury && b R.Vance  67 (71).";
    form_.figures.runs = 67;
    form_.figures.balls = 71;
    form_.figures.dots = 30;
    form_.figures.singles = 25;
    form_.figures.twos = 7;
    form_.figures.threes = 1;
    form_.figures.fours = 5;
    form_.figures.sixes = 3;
    form_.figures.strike_rate = "94.37";
  }
  static QString text(const QWidget& window, const char* label) { return control<QLabel>(window, label)->text(); }

  batsman_details_form form_;
};

TEST_F(BatsmanDetailsWindowTest, ShowsTheFigures) {
  BatsmanDetailsWindow window(form_);
  window.show();
  take_picture(window, "batsmandetails");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Fall Of Wicket");
  EXPECT_EQ(text(window, "headline"), "K.L.Merriweather c D.Pellinore-Brackenbury & b R.Vance 67 (71).");
  EXPECT_EQ(text(window, "dots"), "30");
  EXPECT_EQ(text(window, "singles"), "25");
  EXPECT_EQ(text(window, "twos"), "7");
  EXPECT_EQ(text(window, "threes"), "1");
  EXPECT_EQ(text(window, "fours"), "5");
  EXPECT_EQ(text(window, "sixes"), "3");
  EXPECT_EQ(text(window, "runs"), "67");
  EXPECT_EQ(text(window, "balls"), "71");
  EXPECT_EQ(text(window, "strike_rate"), "94.37");
}

TEST_F(BatsmanDetailsWindowTest, TheHeadingsStandAsTheyAreTold) {
  BatsmanDetailsWindow window(form_);
  QStringList texts;
  for (const QLabel* label : window.findChildren<QLabel*>()) texts << label->text();
  for (const char* heading :
       {"Dots", "Singles", "Twos", "Threes", "Fours", "Sixes", "Runs", "Balls Faced", "Strike Rate "}) {
    EXPECT_EQ(texts.count(QString::fromLatin1(heading)), 1) << heading;
  }
}

TEST_F(BatsmanDetailsWindowTest, ReturnSpaceAndEscapeCloseIt) {
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_Escape}) {
    form_.closed = false;
    BatsmanDetailsWindow window(form_);
    window.show();
    ASSERT_NE(window.focusWidget(), nullptr);
    QTest::keyClick(window.focusWidget(), key);
    EXPECT_FALSE(window.isVisible()) << key;
    EXPECT_TRUE(form_.closed) << key;
  }
}

TEST_F(BatsmanDetailsWindowTest, AManWithoutABallHasNoStrikeRate) {
  form_.figures = {};
  form_.figures.headline = "P.Ashdown";
  form_.title.clear();
  BatsmanDetailsWindow window(form_);
  window.show();
  EXPECT_EQ(text(window, "runs"), "0");
  EXPECT_EQ(text(window, "strike_rate"), "");
  check_window_at_sizes(window);
  press(window, "accept");
  EXPECT_TRUE(form_.closed);
}

}  // namespace
}  // namespace velorin::testing
