// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "shell/clicking_user.h"
#include "shell/menu_window.h"
#include "shell/qt_front_end.h"
#include "support/small_database.h"

namespace velorin::testing {

/// The whole game on a small database of ten teams with two grounds each, its settings written, updates on, chance
/// seeded, overs at once.
class GameTest : public ::testing::Test {
 protected:
  GameTest();
  ~GameTest() override;

  /// Opens the menu and starts; then runs `then` within the program's event loop, and leaves the program.
  void play(const std::function<void(MenuWindow&)>& then);
  /// Likewise, with windows shown by this front end.
  static void play_shown_by(QtFrontEnd& shown_by, const std::function<void(MenuWindow&)>& then);
  /// Presses an entry of the menu's main panel, then one of the panel it opens. Returns when the menu is back.
  static void choose(MenuWindow& menu, const char* panel, const char* entry);

  /// Starts anew for a second run that must equal the first: blank records, the files as at the start, the same seed.
  void begin_again_with_seed(std::uint64_t seed);
  /// The career and record files as they stand.
  std::vector<std::string> lasting_files() const;

  small_database database_;
};

}  // namespace velorin::testing
