// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/guide.h"

#include <QAbstractButton>
#include <string_view>

#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/hint.h"
#include "engine/forms/console_window.h"
#include "model/rules.h"

namespace velorin {

namespace {

/// The control is on show, and of several choices the user has one.
bool is_live(const QWidget& control) {
  const auto* choice = control.findChild<QAbstractButton*>();
  return control.isVisible() && (choice == nullptr || choice->isEnabled());
}

}  // namespace

QWidget* control_of(const QWidget& form, const char* control) {
  if (control != std::string_view("man")) return form.findChild<QWidget*>(QString::fromLatin1(control));
  for (int row = 1; row <= men_in_eleven; ++row) {
    auto* man = form.findChild<QAbstractButton*>(QStringLiteral("man_%1").arg(row));
    if (man != nullptr && man->isEnabled()) return man;
  }
  return nullptr;
}

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
      {"batorder", {{"man", "Choose who goes in, and how hard he is to go for runs."}}},
      {"chgbowler", {{"man", "Choose who bowls. Nobody bowls more than ten overs. F1 tells more, everywhere."}}},
  };
  return hints;
}

Guide::Guide(Frame& frame) : QObject(&frame), frame_(frame), waiting_(guide_hints()) {
  // A page may be covered at once.
  connect(&frame, &Frame::top_changed, this, &Guide::look_again, Qt::QueuedConnection);
}

void Guide::look_again() { look(frame_.top()); }

void Guide::look(Form* top) {
  if (top == nullptr || (shown_ && shown_->isVisible())) return;
  if (const auto* console = qobject_cast<ConsoleWindow*>(top)) {
    connect(console, &ConsoleWindow::over_ended, this, &Guide::look_again,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::UniqueConnection));
    if (!console->rests()) return;
  }
  const QString id = top->objectName();
  for (auto hint = waiting_.begin(); hint != waiting_.end(); ++hint) {
    if (id != QLatin1String(hint->form)) continue;
    for (const GuideHint::Words& words : hint->about) {
      QWidget* control = control_of(*top, words.control);
      if (control == nullptr || !is_live(*control)) continue;
      shown_ = new Hint(*top, *control, QString::fromLatin1(words.words), [this] {
        if (waiting_.empty()) return deleteLater();
        look_again();
      });
      waiting_.erase(hint);
      return;
    }
  }
}

}  // namespace velorin
