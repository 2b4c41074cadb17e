// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// What becomes of a game that the user leaves.
enum class KeepAnswer { keep, discard, stay };

/// Asks whoever quits whether to keep the game: the buttons `keep`, `discard` and `stay`. Return means to keep it,
/// Escape to stay.
class KeepQuestion : public Form {
  Q_OBJECT

 public:
  explicit KeepQuestion(QWidget* parent = front_window());

  /// Once it has closed.
  KeepAnswer answer() const { return answer_; }

 private:
  KeepAnswer answer_ = KeepAnswer::stay;
};

/// Asks over `window`. Raises ProgramEnds if the program is ending by then.
KeepAnswer ask_to_keep(QWidget& window);

}  // namespace velorin
