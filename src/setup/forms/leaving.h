// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"
#include "desktop/question.h"

namespace velorin {

/// Gives a form of the set-up its way out: Escape and the close box ask "Leave this match?", and Yes leaves it. `form`
/// is the core's, and outlives the window.
template <class CoreForm>
void let_leave(Form& window, CoreForm& form) {
  window.name_way_back(QStringLiteral("Leave"));
  window.on_dismiss([&window, &form] {
    const QString question = QStringLiteral("Leave this match?");
    if (!ask(window, QStringLiteral("leave_question"), question, QStringLiteral("Nothing of it is kept."))) return;
    form.leave();
    window.done(QDialog::Rejected);
  });
}

}  // namespace velorin
