// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QWidget>
#include <string>
#include <vector>

#include "headless/headless_user.h"
#include "model/match_state.h"
#include "support/game_in_play.h"
#include "support/test_user.h"

namespace velorin::testing {

/// Moments of one played match, in which both sides are bowled out.
struct PlayedMatch {
  match_state no_ball;
  match_state first_innings;   ///< in its 31st over
  match_state first_all_out;   ///< the card at the end of the first innings
  match_state second_innings;  ///< in its 27th over
  match_state second_all_out;  ///< the card at the end of the match
};

/// Played once; names of middling length.
const PlayedMatch& played_match();

/// A user who notes the reports that are asked for and the details that are shown.
class NotingUser : public test_user {
 public:
  std::vector<report> opened;
  std::vector<std::string> titles;
  std::vector<std::string> headlines;

  using headless_user::show;
  void open(report which) override { opened.push_back(which); }
  void show(batsman_details_form& form) override;
};

/// Starts each test from the second innings of the played match.
class ReportWindowTest : public ::testing::Test {
 protected:
  void SetUp() override;

  NotingUser noting;
  front_end_scope scope{noting};
};

/// Pictures of a visible window as it came and at two larger sizes, where pictures are wanted.
void take_pictures(QWidget& window, const std::string& name);

}  // namespace velorin::testing
