// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "headless/headless_user.h"
#include "support/test_user.h"
#include "windows/robot.h"

namespace velorin::testing {

/// All that the books of the match in play hold, as text: the three exported files as they would be written now, the
/// figures of the rates, the result block.
std::string books();

/// Answers every window of a match through its controls as the headless user answers its form: Auto Select, Heads, Bat,
/// the first man who is free, OK, Next Over. What a test lays down with robot.next() comes first.
class ClickingUser {
 public:
  ClickingUser();

  Robot robot;
  std::vector<std::string> books_shown;  ///< books() at each showing of the batting card
  std::vector<std::string> messages;     ///< "TITLE | TEXT" of each message
  int presses = 0;                       ///< buttons pressed that closed a window or bowled an over

  /// Chooses in the open window of a new match by index, and the captains.
  static void choose_match(QWidget& window, int first, int second, bool first_human, bool second_human);

 private:
  void press_ok(QWidget& window, const char* name);
  void answer_set_up();
  void answer_captain();
  void answer_reports();
  void answer_competitions();
};

/// The headless user, who keeps the same.
class BookkeepingUser : public test_user {
 public:
  std::vector<std::string> books_shown;
  std::vector<std::string> messages;

  using headless_user::show;
  void show(const message_box& message) override { messages.push_back(message.title + " | " + message.text); }
  void open(report which) override {
    if (which == report::scorecard) books_shown.push_back(books());
  }
};

/// Chooses the first man of a captain's dialog who can be chosen: of the bowlers one with overs left.
void choose_first_batsman(QWidget& window);
void choose_first_bowler(QWidget& window);

}  // namespace velorin::testing
