// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/teamsel.h"

#include <algorithm>

#include "browsers/allrecs.h"
#include "model/rules.h"
#include "model/teams.h"
#include "model/texts.h"
#include "setup/elevens_in_play.h"
#include "setup/toss.h"
#include "ui/front_end.h"

namespace velorin {

void teamsel::open(const std::string& team, const squad& men) {
  *this = teamsel();
  team_ = team;
  squad_ = &men;
}

bool teamsel::row_visible(int place) const { return !man(place).name.empty(); }
std::string teamsel::label2(int place) const { return man(place).bat_type; }
std::string teamsel::label3(int place) const { return number_text(int(man(place).bat_skill)); }
std::string teamsel::label4(int place) const { return man(place).bowler_type + (man(place).is_keeper ? "/Wk" : ""); }
std::string teamsel::label5(int place) const { return number_text(man(place).bowl_sr); }
std::string teamsel::label6(int place) const { return number_text(man(place).econ); }

int teamsel::ticked() const { return static_cast<int>(std::count(check1.begin() + 1, check1.end(), true)); }

std::string teamsel::selected_count() const {
  return (counted_ ? number_text(ticked()) : std::string(" 0 ")) + "/11 players selected so far.";
}

void teamsel::check1_click(int place) {
  check1[place] = !check1[place];
  counted_ = true;
}

void teamsel::command4_click() {
  counted_ = counted_ || ticked() != 0;
  check1.fill(false);
}

void teamsel::command5_click(int index) const {
  allrecs form;
  form.open(index == 0 ? allrecs::career_batting : allrecs::career_bowling, team_);
  user().show(form);
}

void teamsel::confirm(int side_index) {
  eleven& chosen = match.selected[side_index];
  int filled = 0;
  for (int place = 1; place <= men_in_squad; ++place) {
    if (!check1[place]) continue;
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
  save_selected(side_index);
  closed = true;
}

void teamsel::command1_click() {
  if (ticked() != men_in_eleven) return;
  match.first_team_done = true;
  match.elevens_exchanged = false;
  match.elevens_unsaved = false;
  confirm(0);
}

void teamsel::command2_click() {
  if (ticked() != men_in_eleven) return;
  match.first_team_done = false;
  confirm(1);
  left = !toss_and_play();
}

void teamsel::ok_click() { match.first_team_done ? command2_click() : command1_click(); }

}  // namespace velorin
