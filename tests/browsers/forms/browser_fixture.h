// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string>
#include <vector>

#include "browsers/figures_fixture.h"
#include "headless/headless_user.h"
#include "support/game_in_play.h"
#include "support/test_user.h"

namespace velorin::testing {

/// Plays its matches, and notes the profiles and messages that windows ask for.
class browsing_user : public test_user {
 public:
  using headless_user::show;
  void show(player_profile_form& form) override;
  void show(const message_box& message) override { messages.push_back(message.title); }

  std::vector<std::string> profiles;  ///< "NAME of TEAM"
  std::vector<std::string> messages;
};

/// A database for browsers: laid down by a test, or played.
class BrowserTest : public figures_fixture {
 protected:
  /// Four teams with two grounds each, and so many matches between them, careers and records kept.
  void play_matches(int count);

  browsing_user user_;
  front_end_scope scope_{user_};
};

}  // namespace velorin::testing
