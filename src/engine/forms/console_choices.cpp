// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>

#include "desktop/form.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/choice_button.h"
#include "engine/forms/console_window.h"
#include "engine/over_play.h"
#include "engine/skip.h"
#include "model/match_state.h"

// How far the console plays on or takes back with one press.

namespace velorin {

namespace {

/// The names stand in users' files, and do not change.
struct ShownTarget {
  skip_target target;
  const char* name;
  const char* caption;
};

constexpr ShownTarget shown_targets[] = {
    {skip_target::next_wicket, "wicket", "&Next wicket"},
    {skip_target::end_of_spell, "spell", "End of this bowler's &spell"},
    {skip_target::over_10, "over_10", "&10th over"},
    {skip_target::over_20, "over_20", "&20th over"},
    {skip_target::over_30, "over_30", "&30th over"},
    {skip_target::over_40, "over_40", "&40th over"},
    {skip_target::end_of_innings, "innings", "&End of the innings"},
};

/// The target of this name; the next wicket for any other.
skip_target target_of(const QString& name) {
  for (const ShownTarget& shown : shown_targets) {
    if (name == QLatin1String(shown.name)) return shown.target;
  }
  return skip_target::next_wicket;
}

struct ShownTakeBack {
  taken_back how_far;
  luck wanted;
  const char* name;
};

constexpr ShownTakeBack shown_take_backs[] = {
    {taken_back::ball, luck::fresh, "ball_fresh"},
    {taken_back::over, luck::fresh, "over_fresh"},
    {taken_back::ball, luck::same, "ball_same"},
    {taken_back::over, luck::same, "over_same"},
};

QString caption_of(const ShownTakeBack& shown, bool within_an_over) {
  const bool fresh = shown.wanted == luck::fresh;
  if (shown.how_far == taken_back::ball) {
    return fresh ? QStringLiteral("Last &ball, fresh luck") : QStringLiteral("Last b&all, same luck");
  }
  const QString over = within_an_over ? QStringLiteral("This ") : QStringLiteral("Last ");
  return over + (fresh ? QStringLiteral("&over, fresh luck") : QStringLiteral("o&ver, same luck"));
}

}  // namespace

QWidget* ConsoleWindow::new_skip_choice() {
  const auto offer = [this] {
    std::vector<ChoiceButton::Choice> choices;
    if (playing_) return choices;
    const skip_target first = nearest_ahead(match_, target_of(preferences::last_skip()));
    for (const ShownTarget& shown : shown_targets) {
      if (!is_ahead(match_, shown.target)) continue;
      choices.push_back({QStringLiteral("skip_") + QLatin1String(shown.name), QString::fromLatin1(shown.caption),
                         [this, &shown] { skip_to(shown.target); }});
      if (shown.target == first) std::rotate(choices.begin(), choices.end() - 1, choices.end());
    }
    return choices;
  };
  return new ChoiceButton(
      QStringLiteral("play_to"),
      {.caption = QStringLiteral("Play to"),
       .mnemonic = u'P',
       .key = QKeySequence(Qt::Key_G),
       .hint = QStringLiteral("Plays on to a wicket, an over or the end of the innings; Escape stops "
                              "after the ball")},
      QKeySequence(Qt::SHIFT | Qt::Key_G), offer);
}

QPushButton* ConsoleWindow::new_take_back_choice() {
  const auto offer = [this] {
    std::vector<ChoiceButton::Choice> choices;
    if (playing_ || !form_.can_take_back()) return choices;
    const bool within_an_over = form_.has_over_in_play();
    for (const ShownTakeBack& shown : shown_take_backs) {
      choices.push_back({QStringLiteral("take_back_") + QLatin1String(shown.name), caption_of(shown, within_an_over),
                         [this, &shown] { take_back(shown.how_far, shown.wanted); }});
      if (shown.how_far == taken_ && shown.wanted == luck_) {
        std::rotate(choices.begin(), choices.end() - 1, choices.end());
      }
    }
    return choices;
  };
  return new ChoiceButton(QStringLiteral("take_back"),
                          {.caption = QStringLiteral("Take Back"),
                           .mnemonic = u'k',
                           .key = QKeySequence(Qt::Key_Z),
                           .hint = QStringLiteral("Takes the last ball or over back; it is played anew with the same "
                                                  "luck or fresh luck")},
                          QKeySequence(Qt::SHIFT | Qt::Key_Z), offer);
}

void ConsoleWindow::skip_to(skip_target target) {
  if (playing_) return;
  for (const ShownTarget& shown : shown_targets) {
    if (shown.target == target) preferences::set_last_skip(QLatin1String(shown.name));
  }
  skipping_ = true;
  play([&] { form_.play_to(target); });
}

void ConsoleWindow::take_back(taken_back how_far, luck wanted) {
  if (playing_) return;
  taken_ = how_far;
  luck_ = wanted;
  form_.take_back(how_far, wanted);
  refresh();
}

/// What can be done in a practice match, and in one that rests between two balls of an over.
void ConsoleWindow::refresh_choices() {
  take_back_->setVisible(match_.practice && next_over_ != nullptr);
  if (next_over_ == nullptr) return;
  take_back_->setEnabled(form_.can_take_back());
  const bool resting = in_use_ && !playing_ && form_.has_over_in_play();
  change_bowler_->setEnabled(!match_.computer_bowls && !resting);
  attack_->setEnabled(!resting);
  const QString caption = resting ? QStringLiteral("Finish Over") : QStringLiteral("Next Over");
  if (next_over_->accessibleName() == caption) return;
  next_over_->setText(button_text(caption, u'N'));
  next_over_->setAccessibleName(caption);
}

}  // namespace velorin
