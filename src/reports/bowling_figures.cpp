// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/bowling_figures.h"

#include "model/rules.h"
#include "model/teams.h"
#include "model/texts.h"
#include "reports/scorecard.h"

namespace velorin {

namespace {

void fill(bowling_screen& screen, const bowling_card_table& card) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const bowling_card_rec& bowler = card[i];
    screen.label1[i] = bowler.name;
    if (bowler.balls == 0) continue;
    screen.label2[i] = overs_from_balls(bowler.balls);
    screen.label3[i] = number_text(bowler.maidens);
    screen.label4[i] = number_text(bowler.runs);
    screen.label5[i] = number_text(bowler.wickets);
    screen.label11[i] = number_text(runs_per_over(bowler.runs, bowler.balls));
  }
}

}  // namespace

void bowlcard::open() {
  *this = {};
  fill(*this, match.bowling_card);
}

void bowlcard2nd::open() {
  *this = {};
  fill(*this, match.first_bowling_card);
}

}  // namespace velorin
