// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// What becomes of a game that the user leaves.
enum class KeepAnswer { keep, discard, stay };

/// Where the user goes from a game.
enum class WayOut { to_menu, out_of_program };

/// Asks whoever leaves a game whether to keep it: the buttons `keep`, `discard` and `stay`. Return means to keep it,
/// Escape to stay.
class KeepQuestion : public Form {
  Q_OBJECT

 public:
  explicit KeepQuestion(WayOut way, QWidget* parent = front_window());

  /// Once it has closed.
  KeepAnswer answer() const { return answer_; }

 private:
  KeepAnswer answer_ = KeepAnswer::stay;
};

/// Asks over `window`. Raises ProgramEnds if the program is ending by then.
KeepAnswer ask_to_keep(WayOut way, QWidget& window);

}  // namespace velorin
