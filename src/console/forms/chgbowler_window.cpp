// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/chgbowler_window.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "browsers/sqdet.h"
#include "console/captain_forms.h"
#include "console/forms/man_list.h"
#include "desktop/shown_text.h"
#include "model/rules.h"
#include "model/teams.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Overs, maidens, runs and wickets so far; nothing for a man who has not bowled.
QString figures(int row) {
  const bowling_card_rec& card = match.bowling_card[row];
  return card.balls == 0 ? QString() : shown(bowling_figures(card.balls, card.maidens, card.runs, card.wickets));
}

}  // namespace

ChgbowlerWindow::ChgbowlerWindow(chgbowler& form, QWidget* parent)
    : Form(QStringLiteral("chgbowler"),
           form.shown_for == chgbowler::use::change ? Dismissal::closes : Dismissal::refused, parent),
      form_(form) {
  limit_body(1000);
  set_title(shown(form.title), shown(form.title));
  set_subheading(shown(match.team2_name));
  men_ = new ManList(QStringLiteral("Bowler"), {{shown(chgbowler::label1_heading), true, "Label1"},
                                                {shown(chgbowler::label2_heading), true, "Label2"},
                                                {QStringLiteral("O-M-R-W"), true, "figures", true},
                                                {QStringLiteral("Bowler type"), false, nullptr, true},
                                                {QString(), false, "note", true}});
  for (int row = 1; row <= men_in_eleven; ++row) {
    men_->set_row(row, shown(form_.option1(row)), form_.enabled[row],
                  {shown(form_.label1(row)), shown(form_.label2(row)), figures(row),
                   shown(match.bowling_xi[row].bowler_type), note(row)});
  }
  body()->addWidget(men_, 1);
  body()->addStretch();
  men_->on_chosen([this](int row) {
    form_.option1_click(row);
    show_choice();
  });
  add_acts();
  // A bowler who has bowled his overs does not start chosen: Return would only bring him back.
  if (form_.shown_for != chgbowler::use::quota) men_->choose(form_.chosen);
  const int best = form_.best_row();
  if (best > 0 && !men_->has_choice()) men_->focus_on(best);
  show_choice();
}

QString ChgbowlerWindow::note(int row) const {
  const int other_end = form_.shown_for == chgbowler::use::second_opener ? match.bowler : match.next_bowler;
  if (match.bowling_card[row].balls >= balls_of_quota) return QStringLiteral("10 overs bowled");
  if (row == other_end) return QStringLiteral("Bowls at the other end");
  if (match.bowling_xi[row].is_keeper != 0) return QStringLiteral("Wicket-keeper");
  return {};
}

void ChgbowlerWindow::add_acts() {
  add_button(QStringLiteral("Profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, [this] {
    if (form_.chosen > 0) show_profile(match.team2_name, form_.option1(form_.chosen));
  });
  const Act act{.caption = QStringLiteral("OK"), .mnemonic = u'O'};
  const auto confirm = [this] {
    form_.command_click();
    if (form_.closed) accept();
  };
  using use = chgbowler::use;
  const use wanted = form_.shown_for == use::quota ? use::change : form_.shown_for;
  int number = 0;
  for (const use shown : {use::change, use::first_opener, use::second_opener}) {
    const QString name = QStringLiteral("Command%1").arg(++number);
    if (shown == wanted) {
      ok_ = add_default_button(name, act, confirm);
    } else {
      add_button(name, act, confirm)->hide();
    }
  }
}

void ChgbowlerWindow::show_choice() {
  // A side without a man who can be chosen keeps its bowler.
  const bool any = std::find(form_.enabled.begin() + 1, form_.enabled.end(), true) != form_.enabled.end();
  ok_->setEnabled(men_->has_choice() || !any);
}

}  // namespace velorin
