// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/scoreboard.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/enlarged.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "model/match_state.h"

namespace velorin {

namespace {

QVBoxLayout* stacked(std::initializer_list<QLabel*> labels, Qt::Alignment aligned) {
  auto* rows = new QVBoxLayout;
  rows->setSpacing(2);
  rows->addStretch(1);
  for (QLabel* label : labels) rows->addWidget(label, 0, aligned);
  rows->addStretch(1);
  return rows;
}

}  // namespace

Scoreboard::Scoreboard(const match_state& match, QWidget* parent) : QWidget(parent), match_(match) {
  setObjectName(QStringLiteral("head"));
  setAttribute(Qt::WA_StyledBackground);
  side_ = new_named_label(QStringLiteral("batting_side"), {}, TextRole::title);
  score_ = new_named_label(QStringLiteral("score"), {}, TextRole::score);
  overs_ = new_named_label(QStringLiteral("overs"), {}, TextRole::heading);
  rate_ = new_named_label(QStringLiteral("run_rate"), {}, TextRole::body);
  target_ = new_named_label(QStringLiteral("target"), {}, TextRole::title);
  needed_ = new_named_label(QStringLiteral("needed"), {}, TextRole::heading);
  first_innings_ = new_named_label(QStringLiteral("first_innings"), {}, TextRole::body);
  teams_ = new_named_label(QStringLiteral("teams"), {}, TextRole::heading);
  ground_ = new_named_label(QStringLiteral("ground"), {}, TextRole::body);
  practice_ = new_named_label(QStringLiteral("practice"), QStringLiteral("Practice"), TextRole::strong);
  practice_->setToolTip(QStringLiteral("Counts for no career; balls can be taken back"));
  clock_ = new_named_label(QStringLiteral("time_of_day"), {}, TextRole::strong);
  explain(*overs_, QStringLiteral("Overs"));
  explain(*rate_, QStringLiteral("Run rate"));
  explain(*target_, QStringLiteral("Target"));
  explain(*needed_, QStringLiteral("Runs Reqd."));
  whole_ = new QHBoxLayout(this);
  QBoxLayout* row = whole_;
  row->setContentsMargins(24, 5, 24, 5);
  row->setSpacing(16);
  auto* now = new QHBoxLayout;
  now->setSpacing(16);
  now->addWidget(crest_ = new CrestView(QStringLiteral("batting_crest"), 44));
  now->addWidget(side_, 0, Qt::AlignVCenter);
  now->addWidget(score_, 0, Qt::AlignVCenter);
  now->addLayout(stacked({overs_, rate_}, Qt::AlignLeft));
  now->addStretch(1);
  row->addLayout(now, 1);
  chase_ = stacked({target_, needed_}, Qt::AlignHCenter);
  row->addLayout(chase_);
  around_ = new QWidget;
  auto* place = new QHBoxLayout;
  place->setSpacing(12);
  place->addStretch(1);
  place->addWidget(practice_);
  place->addWidget(ground_);
  place->addWidget(clock_);
  auto* right = stacked({teams_}, Qt::AlignRight);
  right->insertLayout(2, place);
  right->insertWidget(3, first_innings_, 0, Qt::AlignRight);
  right->setContentsMargins(0, 0, 0, 0);
  around_->setLayout(right);
  row->addWidget(around_, 1);
}

void Scoreboard::set_look(Look look) {
  const bool stacks = look == Look::stacked;
  whole_->setDirection(stacks ? QBoxLayout::TopToBottom : QBoxLayout::LeftToRight);
  chase_->setDirection(stacks ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
  const bool low = look == Look::low;
  set_usual_room(*this, *whole_, low ? QMargins(16, 1, 16, 1) : QMargins(24, 8, 24, 8), stacks ? 0 : 16);
  set_usual_room(*this, *chase_, {}, stacks ? 16 : low ? 0 : 2);
  around_->setVisible(!stacks);
  teams_->setVisible(!low);
  const auto set_type = [this](QLabel* label, TypeStep step) { label->setFont(type_font(*this, step)); };
  set_type(score_, low ? TypeStep::title : TypeStep::score);
  set_type(side_, low ? TypeStep::heading : TypeStep::title);
  set_type(target_, low ? TypeStep::heading : TypeStep::title);
  for (QLabel* label : {overs_, needed_}) set_type(label, low ? TypeStep::strong : TypeStep::heading);
  for (QLabel* label : {rate_, ground_, first_innings_}) set_type(label, low ? TypeStep::small : TypeStep::body);
  set_type(clock_, low ? TypeStep::small : TypeStep::strong);
  crest_->set_size(enlarged(*this, low ? 32 : 44));
}

void Scoreboard::refresh() {
  const score_view view = view_score(match_);
  side_->setText(shown(view.batting_short_name));
  crest_->show_team(shown(view.batting_team));
  score_->setText(shown(view.score));
  overs_->setText(shown(view.overs));
  rate_->setText(QStringLiteral("Run rate %1").arg(shown(view.run_rate).trimmed()));
  target_->setText(shown(view.target));
  needed_->setText(shown(view.needed));
  target_->setVisible(!view.target.empty());
  needed_->setVisible(!view.needed.empty());
  teams_->setText(QStringLiteral("%1 v %2").arg(shown(view.batting_team), shown(view.bowling_team)));
  ground_->setText(shown(match_.venue_name()));
  practice_->setVisible(match_.practice);
  clock_->setText(shown(view.time_of_day));
  // The clock starts with the innings.
  clock_->setVisible(!match_.batting_card[match_.lower_batsman()].name.empty() || match_.innings_number > 1);
  const rates_view rates = view_rates(match_);
  first_innings_->setText(rates.chase ? shown(rates.first_innings + " in " + rates.first_innings_overs) : QString());
  first_innings_->setVisible(rates.chase);
  setAccessibleName(QStringLiteral("%1 %2 in %3. %4 %5")
                        .arg(shown(view.batting_team), score_->text(), overs_->text(), target_->text(), needed_->text())
                        .trimmed());
}

}  // namespace velorin
