// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/partnerships.h"

#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr const char* between_names = "  &&  ";

/// Fills the rows of an innings from its records and writes the overs of each fall back into its record.
void fill(partnership_screen& screen, fall_of_wicket_table& falls) {
  for (int i = 1; i <= wickets_of_innings; ++i) {
    fall_of_wicket_rec& fall = falls[i];
    fall.overs_text = overs_from_balls(fall.balls);
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
  fill(*this, match_.fall_of_wicket);
  const int wickets = match_.score_wickets;
  if (wickets < wickets_of_innings) fill_current_stand(match_, rows[wickets + 1], match_.fall_of_wicket[wickets]);
}

void first_partnerships_form::open() {
  static_cast<partnership_screen&>(*this) = {};
  fill(*this, match_.first_fall_of_wicket);
  for (int i = 1; i <= wickets_of_innings; ++i) {
    if (match_.first_fall_of_wicket[i].balls != 0) continue;
    rows[i].score.clear();
    rows[i].overs.clear();
  }
}

}  // namespace velorin
