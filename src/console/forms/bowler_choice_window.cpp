// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/bowler_choice_window.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "browsers/player_profile.h"
#include "console/captain_forms.h"
#include "console/forms/advised_men.h"
#include "console/forms/man_list.h"
#include "desktop/sheet_adviser.h"
#include "desktop/shown_text.h"
#include "forecast/computers_choice.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

constexpr std::size_t advice_column = 4;

/// Overs, maidens, runs and wickets so far; nothing for a man who has not bowled.
QString figures(const match_state& match, int row) {
  const bowling_card_rec& card = match.bowling_card[row];
  return card.balls == 0 ? QString() : shown(bowling_figures(card.balls, card.maidens, card.runs, card.wickets));
}

}  // namespace

BowlerChoiceWindow::BowlerChoiceWindow(const match_play& play, bowler_choice_form& form, QWidget* parent)
    : Form(QStringLiteral("chgbowler"),
           form.shown_for == bowler_choice_form::use::change ? Dismissal::closes : Dismissal::refused, parent),
      form_(form),
      play_(play) {
  limit_body(1000);
  stand_as(Place::sheet, QStringLiteral("attack"));
  set_title(shown(form.title), shown(form.title));
  set_subheading(shown(play.match.team2_name));
  men_ = new ManList(QStringLiteral("Bowler"), {{shown(bowler_choice_form::skill_heading), true},
                                                {shown(bowler_choice_form::economy_heading), true},
                                                {QStringLiteral("O-M-R-W"), true, true},
                                                {QStringLiteral("Bowler type"), false, true},
                                                {QStringLiteral("To win"), true},
                                                {QString(), false, true, QStringLiteral("Note")}});
  for (int row = 1; row <= men_in_eleven; ++row) {
    men_->set_row(row, shown(form_.name(row)), form_.enabled[row],
                  {shown(form_.skill(row)),
                   shown(form_.economy(row)),
                   figures(play.match, row),
                   shown(play.match.bowling_xi[row].bowler_type),
                   {},
                   note(row)});
  }
  men_->show_rows();
  body()->addWidget(men_);
  men_->on_chosen([this](int row) {
    form_.choose(row);
    show_choice();
  });
  add_adviser();
  add_acts();
  // A bowler who has bowled his overs does not start chosen: Return would only bring him back.
  if (form_.shown_for != bowler_choice_form::use::quota) men_->choose(form_.chosen);
  const int best = form_.best_row();
  if (best > 0 && !men_->has_choice()) men_->focus_on(best);
  show_choice();
}

void BowlerChoiceWindow::add_adviser() {
  const auto leave = [this] {
    const auto chosen = computers_bowler(play_.match, form_.shown_for);
    if (!chosen) return QStringLiteral("The computer has no choice here.");
    men_->choose(chosen->choice);
    return shown(chosen->reason);
  };
  new SheetAdviser(*this, advised_men(*men_, play_.match, advised_side::bowling, captains_choice::kind::bowler,
                                      advice_column, leave));
}

QString BowlerChoiceWindow::note(int row) const {
  const int other_end =
      form_.shown_for == bowler_choice_form::use::second_opener ? play_.match.bowler : play_.match.next_bowler;
  if (play_.match.bowling_card[row].balls >= balls_of_quota) return QStringLiteral("10 overs bowled");
  if (row == other_end) return QStringLiteral("Bowls at the other end");
  if (play_.match.bowling_xi[row].is_keeper != 0) return QStringLiteral("Wicket-keeper");
  return {};
}

void BowlerChoiceWindow::add_acts() {
  add_button(QStringLiteral("profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, [this] {
    if (form_.chosen > 0) show_profile(play_.user, play_.data, play_.match.team2_name, form_.name(form_.chosen));
  });
  const Act act{.caption = QStringLiteral("OK"), .mnemonic = u'O'};
  const auto confirm = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  using use = bowler_choice_form::use;
  const use wanted = form_.shown_for == use::quota ? use::change : form_.shown_for;
  const std::pair<use, const char*> buttons[] = {{use::change, "accept_change"},
                                                 {use::first_opener, "accept_first_opener"},
                                                 {use::second_opener, "accept_second_opener"}};
  for (const auto& [shown, control] : buttons) {
    const QString name = QString::fromLatin1(control);
    if (shown == wanted) {
      ok_ = add_default_button(name, act, confirm);
    } else {
      add_button(name, act, confirm)->hide();
    }
  }
}

void BowlerChoiceWindow::show_choice() {
  // A side without a man who can be chosen keeps its bowler.
  const bool any = std::find(form_.enabled.begin() + 1, form_.enabled.end(), true) != form_.enabled.end();
  ok_->setEnabled(men_->has_choice() || !any);
}

}  // namespace velorin
