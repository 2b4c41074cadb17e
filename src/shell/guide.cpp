// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/guide.h"

#include <algorithm>

#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/hint.h"

namespace velorin {

const std::vector<GuideHint>& guide_hints() {
  static const std::vector<GuideHint> hints = {
      {"quick", "accept", "Here is your match. Change what you like; Play leads to the first ball."},
      {"main", "next_over", "This bowls six balls. N or Return do the same, at the pace chosen beside it."},
      {"main", "batsman_aggression_0",
       "How hard a batsman goes for runs, from 1 to 5. Harder brings runs, and wickets. Let him settle first."},
      {"main", "show_scorecard", "The scorecard, and from it all other reports and files."},
      {"batorder", "accept", "A wicket has fallen. Choose who comes in next."},
      {"chgbowler", "accept_change", "Choose who bowls. Nobody bowls more than ten overs. F1 tells more, everywhere."},
  };
  return hints;
}

Guide::Guide(Frame& frame) : QObject(&frame), frame_(frame), waiting_(guide_hints()) {
  connect(&frame, &Frame::top_changed, this, [this](Form* top) { look(top); });
}

void Guide::look(Form* top) {
  if (top == nullptr || (shown_ && shown_->isVisible())) return;
  const QString id = top->objectName();
  for (auto hint = waiting_.begin(); hint != waiting_.end(); ++hint) {
    if (id != QLatin1String(hint->form)) continue;
    auto* control = top->findChild<QWidget*>(QString::fromLatin1(hint->control));
    if (control == nullptr || !control->isVisible()) continue;
    shown_ = new Hint(*top, *control, QString::fromLatin1(hint->words), [this] {
      if (waiting_.empty()) return deleteLater();
      look(frame_.top());
    });
    waiting_.erase(hint);
    return;
  }
}

}  // namespace velorin
