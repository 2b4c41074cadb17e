// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/bowling_figures.h"

#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "reports/scorecard.h"

namespace velorin {

namespace {

void fill(bowling_screen& screen, const bowling_card_table& card) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const bowling_card_rec& bowler = card[i];
    screen.names[i] = bowler.name;
    if (bowler.balls == 0) continue;
    screen.overs[i] = overs_from_balls(bowler.balls);
    screen.maidens[i] = number_text(bowler.maidens);
    screen.runs[i] = number_text(bowler.runs);
    screen.wickets[i] = number_text(bowler.wickets);
    screen.economy_rates[i] = number_text(runs_per_over(bowler.runs, bowler.balls));
  }
}

}  // namespace

void bowling_card_form::open() {
  static_cast<bowling_screen&>(*this) = {};
  fill(*this, match_.bowling_card);
}

void first_bowling_card_form::open() {
  static_cast<bowling_screen&>(*this) = {};
  fill(*this, match_.first_bowling_card);
}

}  // namespace velorin
