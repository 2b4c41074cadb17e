// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/match_progress_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QLabel>

#include "competitions/match_entry.h"
#include "desktop/theme.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// How much of the bar's middle line is filled, in the window's pixels.
double filled(const QWidget& window) {
  const QImage bar = control<QWidget>(window, "bar")->grab().toImage();
  int count = 0;
  for (int x = 0; x < bar.width(); ++x) {
    if (bar.pixelColor(x, bar.height() / 2) == theme().accent) ++count;
  }
  return count / bar.devicePixelRatio();
}

TEST(MatchProgressWindow, AppearsWithTheFirstOverAndCounts) {
  MatchProgressWindow window;
  EXPECT_FALSE(window.isVisible());
  window.show_over(1);
  EXPECT_TRUE(window.isVisible());
  EXPECT_EQ(window.windowTitle(), "Simming Match... (1% finished )");
  window.show_over(42);
  EXPECT_EQ(window.windowTitle(), "Simming Match... (42% finished )");
  EXPECT_EQ(control<QLabel>(window, "heading")->text(), "Simming Match... (42% finished )");
  EXPECT_EQ(control<QWidget>(window, "bar")->accessibleName(), "Simming Match... (42% finished )");
  take_picture(window, "progressbar_42");
  check_window_at_sizes(window);
}

TEST(MatchProgressWindow, HasABarOfItsLength) {
  MatchProgressWindow window;
  window.show_over(1);
  const auto width = [&] { return static_cast<double>(control<QWidget>(window, "bar")->width()); };
  for (const int over : {1, 10, 50, 90}) {
    window.show_over(over);
    EXPECT_NEAR(filled(window), width() * over * 49.95 / 4935, 3) << over;
  }
  window.show_over(100);
  take_picture(window, "progressbar_100");
  const double from = width() * match_progress::bar_position / 4935;
  EXPECT_NEAR(filled(window), width() - from, 3) << "no longer than the frame";
}

TEST(MatchProgressWindow, TakesNoInput) {
  MatchProgressWindow window;
  window.show_over(5);
  EXPECT_FALSE(window.isModal());
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  window.reject();
  window.close();
  EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace velorin::testing
