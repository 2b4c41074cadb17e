// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

/// A question before an act that cannot be taken back: the buttons `yes` and `no`. Return and Escape mean No.
class QuestionWindow : public Form {
  Q_OBJECT

 public:
  /// `name`: objectName of the window, such as "quit_question".
  QuestionWindow(const QString& name, const QString& title, const QString& text, QWidget* parent = front_window());
};

/// Asks over `window`. True for Yes. Raises ProgramEnds if the program is ending by then.
bool ask(QWidget& window, const QString& name, const QString& title, const QString& text);

}  // namespace velorin
