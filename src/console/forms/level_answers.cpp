// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/level_answers.h"

#include <QGridLayout>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/shown_text.h"

namespace velorin {

LevelAnswers::LevelAnswers(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("level_answers"));
  auto* rows = new QGridLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setHorizontalSpacing(16);
  rows->setVerticalSpacing(0);
  constexpr int in_a_column = 3;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    lines_[i] = new_named_label(QStringLiteral("level_answer_%1").arg(i + 1), {}, TextRole::small_muted);
    rows->addWidget(lines_[i], static_cast<int>(i) % in_a_column, static_cast<int>(i) / in_a_column);
  }
}

void LevelAnswers::show_answers(const level_answers& answers) {
  answers_ = answers;
  choose(chosen_);
  setVisible(std::none_of(answers.begin(), answers.end(), [](const std::string& answer) { return answer.empty(); }));
}

void LevelAnswers::choose(int level) {
  chosen_ = level;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const bool chosen = static_cast<int>(i) + 1 == level;
    const QString mark = chosen ? QStringLiteral("\u25B8 ") : QString();
    lines_[i]->setText(mark + QStringLiteral("%1: %2").arg(i + 1).arg(shown(answers_[i])));
    QFont font = type_font(TypeStep::small);
    font.setBold(chosen);
    lines_[i]->setFont(font);
  }
}

}  // namespace velorin
