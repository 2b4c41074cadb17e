// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/partnerships.h"

#include "model/commentary.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/stands.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr const char* between_names = "  &&  ";

void fill(partnership_screen& screen, const fall_of_wicket_table& falls) {
  for (int i = 1; i <= wickets_of_innings; ++i) {
    const fall_of_wicket_rec& fall = falls[i];
    screen.rows[i] = {fall.batsman_a + between_names + fall.batsman_b,
                      number_text(fall.partner_runs) + " (" + number_text(fall.partner_balls) + ")",
                      number_text(fall.score),
                      fall.overs_text,
                      number_text(i),
                      !fall.batsman_a.empty()};
  }
}

/// The row of the two men at the crease.
void fill_current_stand(const match_state& match, partnership_row& row, const fall_of_wicket_rec& last_fall) {
  row.batsmen =
      match.batting_card[match.lower_batsman()].name + between_names + match.batting_card[match.higher_batsman()].name;
  row.partnership = number_text(match.score_runs - last_fall.score) + "*  (" +
                    number_text(match.innings_balls - last_fall.balls) + ")";
  row.visible = true;
}

}  // namespace

void partnerships_form::open() {
  static_cast<partnership_screen&>(*this) = {};
  const int wickets = match_.falls_shown = match_.score_wickets;
  shares = stand_shares(innings_in_play(match_));
  const fall_of_wicket_table falls = falls_in_play(match_);
  fill(*this, falls);
  if (wickets < wickets_of_innings) fill_current_stand(match_, rows[wickets + 1], falls[wickets]);
}

void first_partnerships_form::open() {
  static_cast<partnership_screen&>(*this) = {};
  match_.first_falls_shown = match_.first_wickets;
  shares = stand_shares(innings_before(match_));
  const fall_of_wicket_table falls = falls_before(match_);
  fill(*this, falls);
  for (int i = 1; i <= wickets_of_innings; ++i) {
    if (falls[i].balls != 0) continue;
    rows[i].score.clear();
    rows[i].overs.clear();
  }
}

}  // namespace velorin
