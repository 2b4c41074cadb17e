// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/team_selection.h"

#include <algorithm>

#include "browsers/player_rankings.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"
#include "setup/elevens_in_play.h"
#include "ui/front_end.h"

namespace velorin {

void team_selection_form::open(const std::string& team, const squad& men) {
  ticks.fill(false);
  closed = left = false;
  team_ = team;
  squad_ = &men;
  counted_ = false;
  best_bowlers_ = {};
  batting_bowler_ = 0;
}

bool team_selection_form::row_visible(int place) const { return !man(place).name.empty(); }
std::string team_selection_form::batting_type(int place) const { return man(place).bat_type; }
std::string team_selection_form::batting_skill(int place) const { return number_text(int(man(place).bat_skill)); }
std::string team_selection_form::bowling_type(int place) const {
  return man(place).bowler_type + (man(place).is_keeper ? "/Wk" : "");
}
std::string team_selection_form::balls_per_wicket(int place) const { return number_text(man(place).bowl_sr); }
std::string team_selection_form::economy(int place) const { return number_text(man(place).econ); }

int team_selection_form::ticked() const { return static_cast<int>(std::count(ticks.begin() + 1, ticks.end(), true)); }

std::string team_selection_form::selected_count() const {
  return (counted_ ? number_text(ticked()) : std::string(" 0 ")) + "/11 players selected so far.";
}

void team_selection_form::toggle(int place) {
  ticks[place] = !ticks[place];
  counted_ = true;
}

void team_selection_form::clear_selection() {
  counted_ = counted_ || ticked() != 0;
  ticks.fill(false);
}

void team_selection_form::show_career_averages(int index) const {
  player_rankings_form form(play_.data);
  form.open(index == 0 ? player_rankings_form::career_batting : player_rankings_form::career_bowling, team_);
  play_.user.show(form);
}

void team_selection_form::take_ticked(eleven& chosen) const {
  int filled = 0;
  for (int place = 1; place <= men_in_squad; ++place) {
    if (!ticks[place]) continue;
    const player_rec& from = man(place);
    player_rec& to = chosen[++filled];
    to.name = from.name;
    to.bat_skill = from.bat_skill;
    to.bowl_sr = from.bowl_sr;
    to.econ = from.econ;
    to.is_keeper = from.is_keeper;
    to.bat_type = from.bat_type;
    to.bowler_type = from.bowler_type;
  }
}

eleven team_selection_form::chosen_men() const {
  eleven men;
  take_ticked(men);
  return men;
}

void team_selection_form::confirm(int side_index) {
  take_ticked(play_.match.selected[side_index]);
  save_selected(play_, side_index);
  closed = true;
}

void team_selection_form::accept_first() {
  if (ticked() != men_in_eleven) return;
  play_.match.first_team_done = true;
  play_.match.elevens_exchanged = false;
  play_.match.elevens_unsaved = false;
  confirm(0);
}

void team_selection_form::accept_second() {
  if (ticked() != men_in_eleven) return;
  play_.match.first_team_done = false;
  confirm(1);
}

void team_selection_form::accept() { play_.match.first_team_done ? accept_second() : accept_first(); }

}  // namespace velorin
