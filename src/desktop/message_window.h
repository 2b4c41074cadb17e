// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>

#include "desktop/form.h"
#include "desktop/moment.h"
#include "ui/front_end.h"

namespace velorin {

/// A message box of the game: title, icon, text, "OK". Return, Space and Escape dismiss it.
class MessageWindow : public Form {
  Q_OBJECT

 public:
  enum class Kind { information, failure };

  explicit MessageWindow(const message_box& message, Kind kind = Kind::information, QWidget* parent = front_window());

  /// The message tells of a great moment: it has its sign, unless moments are turned off.
  void show_moment(MomentKind kind);
};

/// Tells of a save that failed: the cause, what it means to go on without it, "Retry" and "Go on without saving". It
/// needs an answer: Escape and the close box do nothing.
class SaveFailedWindow : public Form {
  Q_OBJECT

 public:
  explicit SaveFailedWindow(const failed_save& failed, QWidget* parent = front_window());

  /// What the user has chosen, once the window is closed.
  save_answer answer() const { return answer_; }

 private:
  save_answer answer_ = save_answer::give_up;
};

/// Tells over `window` that something failed which ends nothing, and waits until the user has read it.
void show_failure(const QString& title, const std::exception& error, QWidget* window);

}  // namespace velorin
