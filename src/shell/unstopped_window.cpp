// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unstopped_window.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"

namespace velorin {

UnstoppedWindow::UnstoppedWindow(const match_state& match, std::function<void()> stop, QWidget* parent)
    : Form(QStringLiteral("unstopped"), Dismissal::refused, parent), match_(match) {
  stand_as(Place::sheet);
  set_title(QStringLiteral("Playing"), {});
  title_ = new_named_label(QStringLiteral("match"), {}, TextRole::heading);
  score_ = new_named_label(QStringLiteral("score"), {}, TextRole::title);
  left_ = new_named_label(QStringLiteral("left"), {}, TextRole::muted);
  title_->setMinimumWidth(420);
  body()->addWidget(title_);
  body()->addWidget(score_);
  body()->addWidget(left_);
  body()->addStretch(1);
  const auto ask = [this, stop = std::move(stop)] {
    stop();
    stop_->setEnabled(false);
    left_->setText(QStringLiteral("Stops after this match"));
  };
  stop_ = add_default_button(QStringLiteral("stop"),
                             {.caption = QStringLiteral("Stop at the Next Match"), .mnemonic = u'S'}, ask);
  on_dismiss([this] { stop_->click(); });
}

void UnstoppedWindow::show_progress(int left) {
  title_->setText(QStringLiteral("%1 v %2, %3")
                      .arg(shown(match_.team1_name), shown(match_.team2_name), shown(match_.venue_name())));
  const score_view view = view_score(match_);
  score_->setText(
      QStringLiteral("%1 %2 (%3)").arg(shown(view.batting_short_name), shown(view.score), shown(view.overs)));
  if (stop_->isEnabled()) {
    left_->setText(QStringLiteral("%1 %2 left after this one").arg(left).arg(left == 1 ? "match" : "matches"));
  }
}

}  // namespace velorin
