// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/quick_answers.h"

#include <cstddef>

#include "console/captain_forms.h"
#include "model/rules.h"
#include "setup/conditions.h"
#include "setup/toss.h"

namespace velorin {

namespace {

/// The row of the man of this name who can be chosen, 0 if there is none.
template <class Form>
int row_of(const Form& form, const std::string& name) {
  for (int row = 1; row <= men_in_eleven; ++row) {
    if (form.enabled[row] && form.name(row) == name) return row;
  }
  return 0;
}

const QuickOpeners* openers_of(const QuickChoices& choices, const std::string& side) {
  const auto found = choices.openers.find(side);
  return found == choices.openers.end() ? nullptr : &found->second;
}

}  // namespace

void answer_quickly(conditions_form& form, const QuickChoices& choices) {
  if (choices.conditions) {
    form.weather = (*choices.conditions)[0];
    form.pitch_surface = (*choices.conditions)[1];
    form.pitch_bounce = (*choices.conditions)[2];
    form.outfield = (*choices.conditions)[3];
  }
  form.accept();
}

void answer_quickly(toss_form& form, const QuickChoices& choices) {
  if (form.coin_visible) form.call_coin(choices.calls_tails ? 1 : 0);
  const bool bats = form.bat_enabled && !(form.bowl_enabled && choices.bowls_first);
  if (bats) {
    form.choose_to_bat();
  } else {
    form.choose_to_bowl();
  }
}

void answer_quickly(next_batsman_form& form, const QuickChoices& choices, const std::string& side) {
  const std::size_t place = form.shown_for == next_batsman_form::use::second_opener ? 1 : 0;
  if (const QuickOpeners* openers = openers_of(choices, side)) form.choose(row_of(form, openers->batsmen[place]));
  for (int row = 1; row <= men_in_eleven && form.chosen == 0; ++row) form.choose(row);
  form.accept();
}

void answer_quickly(bowler_choice_form& form, const QuickChoices& choices, const std::string& side) {
  const std::size_t place = form.shown_for == bowler_choice_form::use::second_opener ? 1 : 0;
  const QuickOpeners* openers = openers_of(choices, side);
  const int wanted = openers == nullptr ? 0 : row_of(form, openers->bowlers[place]);
  form.choose(wanted != 0 ? wanted : form.best_row());
  form.accept();
}

}  // namespace velorin
