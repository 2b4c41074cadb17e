// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/aggression_window.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>
#include <utility>
#include <vector>

#include "console/captain_forms.h"
#include "console/forms/advised_men.h"
#include "console/forms/level_choice.h"
#include "desktop/controls.h"
#include "desktop/meter_bar.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"

namespace velorin {

AggressionWindow::AggressionWindow(aggression_form& form, QWidget* parent)
    : AggressionWindow(aggression_odds{}, form, parent) {}

AggressionWindow::AggressionWindow(const aggression_odds& odds, aggression_form& form, QWidget* parent)
    : Form(QStringLiteral("aggr"), Dismissal::closes, parent), form_(form) {
  stand_as(Place::sheet, QStringLiteral("%1_%2")
                             .arg(form.for_batsman ? QStringLiteral("batsman") : QStringLiteral("bowler"))
                             .arg(form.player_slot));
  limit_body(720);
  set_title(QStringLiteral("Aggression"), shown(form.player_name).trimmed());
  set_subheading(form.for_batsman ? QStringLiteral("Batting for %1").arg(shown(form.match().team1_name))
                                  : QStringLiteral("Bowling for %1").arg(shown(form.match().team2_name)));
  name_heading(QStringLiteral("player_name"));
  body()->addWidget(new_figures());
  body()->addWidget(new_aggression(odds));
  levels_->take_keyboard();
  auto* sentence = new_named_label(QStringLiteral("score_sentence"), shown(form_.score_sentence), TextRole::muted);
  body()->addWidget(sentence);
  sentence->setVisible(!form_.score_sentence.empty());
  add_adviser();
  const Act ok{.caption = QStringLiteral("OK"), .mnemonic = u'O'};
  const auto confirm = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  for (const bool for_batsman : {true, false}) {
    const QString name = for_batsman ? QStringLiteral("accept_for_batsman") : QStringLiteral("accept_for_bowler");
    if (for_batsman == form_.for_batsman) {
      add_default_button(name, ok, confirm);
    } else {
      add_button(name, ok, confirm)->hide();
    }
  }
}

void AggressionWindow::add_adviser() {
  SheetAdviser::Acts acts = advised_levels();
  acts.leave = [this] {
    const auto chosen = form_.for_batsman ? computers_batting_aggression(form_.match(), form_.player_slot)
                                          : computers_bowling_aggression(form_.match(), form_.player_slot);
    if (!chosen) return QStringLiteral("The computer has no choice here.");
    levels_->choose(chosen->choice);
    return shown(chosen->reason);
  };
  new SheetAdviser(*this, std::move(acts));
}

/// The levels of this man, in a line below the segments.
SheetAdviser::Acts AggressionWindow::advised_levels() const {
  const match_state& match = form_.match();
  const auto side = form_.for_batsman ? advised_side::batting : advised_side::bowling;
  const auto what =
      form_.for_batsman ? captains_choice::kind::batting_aggression : captains_choice::kind::bowling_aggression;
  const bool first = form_.player_slot == 0;
  const int position = form_.for_batsman ? (first ? match.lower_batsman() : match.higher_batsman())
                                         : int(first ? match.bowler : match.next_bowler);
  SheetAdviser::Acts acts;
  if (position == 0 || match.next_step == play_step::closed || !can_be_forecast(match)) return acts;
  acts.advise = [this, side, what, position]() -> BackWork::Work {
    advised_->setText(QStringLiteral("To win: …"));
    advised_->show();
    const auto state = std::make_shared<const match_state>(form_.match());
    return [this, state, side, what, position](const std::stop_token& stop, const auto&) -> BackWork::Show {
      std::vector<captains_choice> choices;
      for (int level = least_aggression; level <= most_aggression; ++level) choices.push_back({what, position, level});
      const std::vector<advice> found = advise(
          *state, side, choices, {.runs = runs_of_advice, .seed = 1, .threads = threads_of_advice(), .stop = stop});
      return [this, found] {
        QStringList levels;
        for (const advice& told : found) {
          if (told.choice.level == 0) continue;
          levels << QStringLiteral("%1: %2").arg(told.choice.level).arg(shown_difference(told));
        }
        advised_->setText(QStringLiteral("To win:  %1").arg(levels.join(QStringLiteral("   "))));
        advised_->setAccessibleName(QStringLiteral("To win, by level: %1").arg(levels.join(QStringLiteral("; "))));
        advised_->show();
      };
    };
  };
  acts.clear = [this] {
    advised_->clear();
    advised_->hide();
  };
  return acts;
}

QWidget* AggressionWindow::new_figures() {
  QFrame* card = new_card();
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(32);
  grid->setVerticalSpacing(4);
  for (int i = 0; i < 4; ++i) {
    const auto at = static_cast<std::size_t>(i);
    // The caption of a bar ends in a colon, which is not shown over it.
    QString heading = shown(form_.headings[at]);
    if (heading.endsWith(u':')) heading.chop(1);
    grid->addWidget(new_named_label(QStringLiteral("heading_%1").arg(i), heading.trimmed(), TextRole::small_muted), 0,
                    i);
    auto* figure =
        new_named_label(QStringLiteral("figure_%1").arg(i), shown(form_.figures[at]), TextRole::heading, card);
    grid->addWidget(figure, 1, i);
    figure->setVisible(i < 3 || !form_.settled_visible);
    grid->setColumnStretch(i, 1);
    grid->setColumnMinimumWidth(i, 72);
  }
  auto* settled = new MeterBar(QStringLiteral("settled_meter"), spoken_name(shown(form_.headings[3])),
                               aggression_form::settled_full, card);
  settled->set_value(form_.settled_width);
  settled->setMinimumWidth(140);
  const int share = static_cast<int>(100 * form_.settled_width / aggression_form::settled_full);
  auto* told = new_named_label(QStringLiteral("settled_share"), QStringLiteral("%1 %").arg(share), TextRole::heading);
  auto* meter = new QHBoxLayout;
  meter->setSpacing(12);
  meter->addWidget(settled, 1, Qt::AlignVCenter);
  meter->addWidget(told);
  grid->addLayout(meter, 1, 3);
  settled->setVisible(form_.settled_visible);
  told->setVisible(form_.settled_visible);
  card_rows(card)->addLayout(grid);
  return card;
}

QWidget* AggressionWindow::new_aggression(const aggression_odds& odds) {
  QFrame* card = new_card();
  levels_ = new LevelChoice({.caption = QStringLiteral("Aggression"),
                             .low = shown(aggression_form::aggression_low),
                             .high = shown(aggression_form::aggression_high)},
                            form_.aggression, [this](int level) { form_.aggression = level; });
  levels_->show_answers(shown(form_.player_name), odds);
  levels_->answer_figures(*this);
  card_rows(card)->addWidget(levels_);
  advised_ = new_named_label(QStringLiteral("advice"), {}, TextRole::muted);
  advised_->hide();
  advised_->setToolTip(meaning_of(QStringLiteral("To win")));
  card_rows(card)->addWidget(advised_);
  return card;
}

}  // namespace velorin
