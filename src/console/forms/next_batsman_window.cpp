// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/next_batsman_window.h"

#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "browsers/player_profile.h"
#include "console/captain_forms.h"
#include "console/forms/advised_men.h"
#include "console/forms/level_choice.h"
#include "console/forms/man_list.h"
#include "desktop/controls.h"
#include "desktop/sheet_adviser.h"
#include "desktop/shown_text.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "ui/match_play.h"

namespace velorin {

NextBatsmanWindow::NextBatsmanWindow(const match_play& play, next_batsman_form& form, QWidget* parent)
    : NextBatsmanWindow(play, {}, form, parent) {}

NextBatsmanWindow::NextBatsmanWindow(const match_play& play, std::function<aggression_odds(int row)> odds,
                                     next_batsman_form& form, QWidget* parent)
    : Form(QStringLiteral("batorder"), Dismissal::refused, parent), odds_(std::move(odds)), form_(form), play_(play) {
  stand_as(Place::sheet, QStringLiteral("batsman_%1").arg(play.match.striker_slot()));
  set_title(shown(form.title), shown(form.title));
  set_subheading(shown(play.match.team1_name));
  auto* men = new ManList(shown(next_batsman_form::names_heading), {{shown(next_batsman_form::skill_heading), true},
                                                                    {QStringLiteral("Bat Type"), false, true},
                                                                    {QStringLiteral("To win"), true},
                                                                    {QString(), false, true, QStringLiteral("Note")}});
  for (int row = 1; row <= men_in_eleven; ++row) {
    const bool enabled = form_.enabled[row];
    men->set_row(row, shown(form_.name(row)), enabled,
                 {shown(form_.skill(row)), shown(play.match.batting_xi[row].bat_type), QString(),
                  enabled ? QString() : QStringLiteral("Has come in")});
  }
  men->show_rows();
  parts_ = new QBoxLayout(QBoxLayout::TopToBottom);
  parts_->addWidget(men);
  parts_->addWidget(new_aggression(), 0, Qt::AlignTop);
  body()->addLayout(parts_);
  NextBatsmanWindow::note_compact(false);
  men->on_chosen([this](int row) { choose(row); });
  if (form_.chosen == 0) {
    const auto first = std::find(form_.enabled.begin() + 1, form_.enabled.end(), true);
    if (first != form_.enabled.end()) form_.choose(static_cast<int>(first - form_.enabled.begin()));
  }
  men->choose(form_.chosen);
  choose(form_.chosen);
  const auto leave_it = [this, men] {
    const auto chosen = computers_next_batsman(play_.match, form_.shown_for);
    if (!chosen) return QStringLiteral("The computer has no choice here.");
    men->choose(chosen->choice);
    return shown(chosen->reason);
  };
  constexpr std::size_t to_win_column = 2;
  new SheetAdviser(*this, advised_men(*men, play_.match, advised_side::batting, captains_choice::kind::next_batsman,
                                      to_win_column, leave_it));
  add_button(QStringLiteral("profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, [this] {
    if (form_.chosen > 0) show_profile(play_.user, play_.data, play_.match.team1_name, form_.name(form_.chosen));
  });
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    form_.accept();
    if (form_.closed) accept();
  });
}

QWidget* NextBatsmanWindow::new_aggression() {
  QFrame* card = new_card();
  levels_ = new LevelChoice({.caption = shown(next_batsman_form::aggression_caption),
                             .low = shown(next_batsman_form::aggression_low),
                             .high = shown(next_batsman_form::aggression_high)},
                            form_.aggression, [this](int level) { form_.aggression = level; });
  levels_->show_answers(QString(), {});
  levels_->answer_figures(*this);
  card_rows(card)->addWidget(levels_);
  return card;
}

/// Where the height is little the aggression stands beside the men.
void NextBatsmanWindow::note_compact(bool compact) {
  limit_body(compact ? 940 : 800);
  parts_->setDirection(compact ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void NextBatsmanWindow::choose(int row) {
  form_.choose(row);
  if (form_.chosen == 0) return;
  levels_->show_answers(shown(form_.name(form_.chosen)), odds_ ? odds_(form_.chosen) : aggression_odds{});
}

}  // namespace velorin
