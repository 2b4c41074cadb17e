// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QObject>
#include <QTemporaryDir>
#include <filesystem>
#include <initializer_list>
#include <set>
#include <string>
#include <vector>

#include "shell/game_fixture.h"
#include "windows/hand.h"

namespace velorin::testing {

/// A walk through pages of the game in its main window, by a user who works them in one way. Each page met is looked
/// at in several sizes of the window: nothing is clipped, overlaps, has no name or is out of reach. VELORIN_WALK=whole
/// has every size looked at in every way, otherwise the sizes are spread over the ways.
class Walk : public QObject, public GameTest {
 protected:
  Walk();
  ~Walk() override;

  bool eventFilter(QObject* watched, QEvent* event) override;

  /// Lays down what the user does in each window, by hand.
  void begin(Way way);
  /// Plays with games kept in a folder.
  void walk(const std::function<void(MenuWindow&)>& then);
  /// Presses an entry of the menu's main panel, then one of the panel it opens, and comes back.
  void choose_by_hand(MenuWindow& menu, const char* panel, const char* entry);
  /// A button of the main window's bar.
  QAbstractButton& of_bar(QWidget& form, const char* name);

  void look_at(QWidget& form);
  /// A page in a window of its own.
  void look_at_torn(QWidget& form);
  void expect_seen(std::initializer_list<const char*> names);

  Hand& hand() { return hand_; }
  Robot& robot() { return *robot_; }

  std::set<std::string> seen;  // the forms looked at, "NAME 2" in a second innings

 private:
  void answer_set_up();
  void answer_captain();
  void answer_the_rest();
  void look_once(QWidget& form);
  void look_in_size(QWidget& form, QSize size);
  void choose_first_man(QWidget& form);

  QTemporaryDir place_;
  Hand hand_{Way::mouse};
  Way way_ = Way::mouse;
  std::unique_ptr<Robot> robot_;
  int terms_ = 0;
  bool looking_ = false;
};

}  // namespace velorin::testing
