// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "headless/headless_user.h"
#include "support/game_in_play.h"

namespace velorin {

/// The headless user of the tests' game.
class test_user : public headless_user {
 public:
  test_user() : headless_user(match) {}
};

}  // namespace velorin
