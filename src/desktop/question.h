// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// A question: the buttons `yes` and `no`. Escape means No, and so does Return, unless the question invites.
class QuestionWindow : public Form {
  Q_OBJECT

 public:
  /// `name`: objectName of the window, such as "quit_question".
  QuestionWindow(const QString& name, const QString& title, const QString& text, QWidget* parent = front_window(),
                 bool invites = false);
};

/// Asks over `window`. True for Yes. Raises ProgramEnds if the program is ending by then. `invites`: Return means Yes.
bool ask(QWidget& window, const QString& name, const QString& title, const QString& text, bool invites = false);

}  // namespace velorin
