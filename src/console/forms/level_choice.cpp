// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/level_choice.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/level_segments.h"
#include "desktop/shown_text.h"

namespace velorin {

LevelChoice::LevelChoice(const level_words& words, int level, std::function<void(int)> chosen, QWidget* parent)
    : QFrame(parent),
      levels_(new LevelSegments(QStringLiteral("aggression"))),
      caption_(new_caption(words.caption, u'A', levels_->segment(level))),
      answer_(new_named_label(QStringLiteral("level_answer"), {}, TextRole::body)) {
  setObjectName(QStringLiteral("level_choice"));
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(6);
  rows->addWidget(caption_);
  rows->addWidget(levels_);
  auto* row = new QHBoxLayout;
  row->addWidget(new_label(words.low, TextRole::small_muted));
  row->addStretch(1);
  row->addWidget(answer_);
  row->addStretch(1);
  row->addWidget(new_label(words.high, TextRole::small_muted));
  rows->addLayout(row);
  answer_->setToolTip(QStringLiteral("Below each figure: runs an over and balls a wicket, by the model of a delivery"));
  levels_->show_levels(QString(), level, {}, true);
  levels_->on_chosen([this, chosen = std::move(chosen)](int now) {
    show_chosen();
    chosen(now);
  });
}

void LevelChoice::show_answers(const QString& whose, const aggression_odds& odds) {
  odds_ = odds;
  levels_->show_levels(whose, levels_->level(), odds, true);
  answer_->setVisible(std::any_of(odds.begin(), odds.end(), [](const auto& each) { return each.has_value(); }));
  show_chosen();
}

void LevelChoice::show_chosen() {
  const int level = levels_->level();
  caption_->setBuddy(levels_->segment(level));
  const std::string sentence = odds_sentence(odds_[static_cast<std::size_t>(level - least_aggression)]);
  answer_->setText(QStringLiteral("%1: %2").arg(level).arg(shown(sentence)));
}

void LevelChoice::choose(int level) { levels_->segment(level)->setChecked(true); }

void LevelChoice::answer_figures(QWidget& window) { levels_->answer_figures(window); }

void LevelChoice::take_keyboard() { levels_->segment(levels_->level())->setFocus(); }

}  // namespace velorin
