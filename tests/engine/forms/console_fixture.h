// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QLabel>
#include <QTest>
#include <functional>
#include <memory>

#include "desktop/preferences.h"
#include "engine/forms/console_window.h"
#include "engine/over_play.h"
#include "model/random.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "windows/robot.h"

// The fixture of the tests of the console's window.

namespace velorin::testing {

/// Answers dialogs as the headless user does, and shows the console.
class ConsoleUser : public scripted_user {
 public:
  ConsoleWindow* window = nullptr;
  std::function<void()> before_batsman;  // a man is about to be asked for

  using scripted_user::show;
  void show(next_batsman_form& form) override {
    if (before_batsman) before_batsman();
    scripted_user::show(form);
  }
  void ball_bowled() override {
    scripted_user::ball_bowled();
    if (window != nullptr) window->ball_bowled();
  }
};

class ConsoleWindowTest : public ::testing::Test {
 protected:
  ConsoleWindowTest() : in_use_(user) {
    preferences::set_pace(Pace::instant);
    chance.use_seed(12);
  }

  /// Opens the console of a match with these captains.
  ConsoleWindow& open(bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    open_console(in_play());
    window_.reset();
    window_ = std::make_unique<ConsoleWindow>(match, data, form_);
    user.window = window_.get();
    window_->show();
    window_->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    return *window_;
  }

  QString text(const char* label) const { return control<QLabel>(*window_, label)->text(); }

  ConsoleUser user;
  console_form form_{in_play()};
  std::unique_ptr<ConsoleWindow> window_;

 private:
  front_end_scope in_use_;
};

}  // namespace velorin::testing
