// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractButton>
#include <QString>
#include <QWidget>

namespace velorin::testing {

/// How a user works the controls of a window.
enum class Way { mouse, keyboard, assistant };

/// A user who works controls in one way, as the desktop hands it on: the mouse on what lies under the pointer, keys
/// from the control that has the keyboard, actions of assistive technology. What cannot be worked that way is a test
/// failure. Each act returns once what it opened has closed again.
class Hand {
 public:
  explicit Hand(Way way) : way_(way) {}

  /// Presses a button; of one that is chosen already nothing. Chooses a radio button, turns a tick.
  void press(QWidget& form, const char* name);
  void press(QAbstractButton& button);
  /// Opens a row of a table view, from 0 in the order shown.
  void open_row(QWidget& form, const char* table, int row);
  /// Chooses an entry of a list to choose from, from 0. Assistive technology has keys for it.
  void choose(QWidget& form, const char* list, int entry);
  /// Replaces the text of a field.
  void write(QWidget& form, const char* field, const QString& text);
  /// Opens the menu of a button and takes an entry of it.
  void take_entry(QWidget& form, const char* button, const char* entry);

 private:
  void click(QWidget& widget, QPoint at);
  void press_by_keys(QAbstractButton& button);
  void press_by_action(QAbstractButton& button);
  /// Moves the keyboard to a widget by Tab, or to another of its group.
  bool tab_to(QWidget& widget);

  Way way_;
};

}  // namespace velorin::testing
