// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLabel>
#include <QTest>

#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {

/// Escape and the close box of a window of the set-up ask "Leave this match?"; No, Escape and Return change nothing,
/// Yes leaves the core's form.
template <class CoreForm>
void check_leaving(QWidget& window, CoreForm& form) {
  window.show();
  const auto asked = [&](const Robot::answer& answer, bool by_escape) {
    Robot robot;
    robot.next("leave_question", [&](QWidget& question) {
      EXPECT_EQ(question.windowTitle(), "Leave this match?");
      answer(question);
    });
    if (by_escape) {
      QTest::keyClick(&window, Qt::Key_Escape);
    } else {
      window.close();
    }
    EXPECT_EQ(robot.left(), 0) << "nobody was asked";
  };
  asked(
      [](QWidget& question) {
        take_picture(question, "leave_question");
        check_window_at_sizes(question);
        press(question, "no");
      },
      false);
  asked([](QWidget& question) { QTest::keyClick(&question, Qt::Key_Escape); }, true);
  asked([](QWidget& question) { QTest::keyClick(question.focusWidget(), Qt::Key_Return); }, true);
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form.closed);
  EXPECT_FALSE(form.left);
  asked(pressing("yes"), true);
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(form.closed);
  EXPECT_TRUE(form.left);
}

}  // namespace velorin::testing
