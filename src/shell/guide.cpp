// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/guide.h"

#include <QAbstractButton>
#include <algorithm>

#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/hint.h"

namespace velorin {

namespace {

/// The control is on show, and of several choices the user has one.
bool is_live(const QWidget& control) {
  const auto* choice = control.findChild<QAbstractButton*>();
  return control.isVisible() && (choice == nullptr || choice->isEnabled());
}

}  // namespace

const std::vector<GuideHint>& guide_hints() {
  static const std::vector<GuideHint> hints = {
      {"quick", {{"accept", "Here is your match. Change what you like; Play leads to the first ball."}}},
      {"main", {{"next_over", "This bowls six balls. N or Return do the same, at the pace chosen beside it."}}},
      {"main",
       {{"batsman_level_0",
         "How hard a batsman goes for runs, from 1 to 5. Below each: runs an over, and balls for a wicket. Let him "
         "settle first."},
        {"bowler_level_0",
         "How hard a bowler goes for wickets, from 1 to 5. Below each: runs an over, and balls for a wicket."}}},
      {"main", {{"show_scorecard", "The scorecard, and from it all other reports and files."}}},
      {"batorder", {{"accept", "Choose who goes in, and how hard he is to go for runs."}}},
      {"chgbowler",
       {{"accept_change", "Choose who bowls. Nobody bowls more than ten overs. F1 tells more, everywhere."}}},
  };
  return hints;
}

Guide::Guide(Frame& frame) : QObject(&frame), frame_(frame), waiting_(guide_hints()) {
  // A page may be covered at once.
  connect(
      &frame, &Frame::top_changed, this, [this] { look(frame_.top()); }, Qt::QueuedConnection);
}

void Guide::look(Form* top) {
  if (top == nullptr || (shown_ && shown_->isVisible())) return;
  const QString id = top->objectName();
  for (auto hint = waiting_.begin(); hint != waiting_.end(); ++hint) {
    if (id != QLatin1String(hint->form)) continue;
    for (const GuideHint::Words& words : hint->about) {
      auto* control = top->findChild<QWidget*>(QString::fromLatin1(words.control));
      if (control == nullptr || !is_live(*control)) continue;
      shown_ = new Hint(*top, *control, QString::fromLatin1(words.words), [this] {
        if (waiting_.empty()) return deleteLater();
        look(frame_.top());
      });
      waiting_.erase(hint);
      return;
    }
  }
}

}  // namespace velorin
