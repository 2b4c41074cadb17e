// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/match_steps.h"

#include <cmath>
#include <optional>
#include <utility>

#include "database/configuration.h"
#include "database/elevens.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "engine/match_reset.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"
#include "reports/worm_graph.h"
#include "setup/conditions.h"
#include "setup/new_match.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// Refuses a man with a rating that is no number: nothing can be reckoned with it.
void require_ratings(const open_database& data, const squad& men, int record) {
  for (int place = 1; place <= men_in_squad; ++place) {
    const player_rec& man = men[place];
    if (man.name.empty() || (std::isfinite(man.bowl_sr) && std::isfinite(man.econ))) continue;
    const char* field = std::isfinite(man.bowl_sr) ? "econ" : "bowl_sr";
    throw run_time_error(failure::type, "Type mismatch: a rating that is no number",
                         {.file = file_name_text(data.files.team_file),
                          .record = record,
                          .field = "squad[" + number_text(place) + "]." + field,
                          .player = man.name});
  }
}

/// Reads and sorts the squad of team 0 or 1, from which its eleven is to be selected.
void begin_selection(const match_play& play, int place) {
  const chosen_team& team = play.match.chosen[place];
  (place == 0 ? play.match.team1_name : play.match.team2_name) = team.name;
  play.match.squads[place] = squad_of(play.data, team);
  sort_squad(play.match.squads[place]);
  play.match.step = place == 0 ? match_step::first_selection : match_step::second_selection;
}

// Each step asks its question; once that is answered the next one is prepared. False if the user leaves the match.

bool ask_for_conditions(const match_play& play) {
  conditions_form form(play);
  form.show_drawn();
  play.user.show(form);
  if (form.left) return false;
  begin_selection(play, 0);
  return true;
}

bool ask_for_eleven(const match_play& play, int place) {
  play.match.first_team_done = place == 1;
  team_selection_form form(play);
  form.open(play.match.chosen[place].name, play.match.squads[place]);
  play.user.show(form);
  if (form.left) return false;
  if (place == 0) {
    begin_selection(play, 1);
  } else {
    begin_toss(play);
  }
  return true;
}

bool tell_the_call(const match_play& play) {
  play.user.show(message_box{"The toss", play.match.toss_call, message_kind::toss_call});
  go_on_to_toss(play);
  return true;
}

/// Plays the match, or goes on with it where it was left.
bool play_on(const match_play& play) {
  if (play.match.next_step == play_step::closed) {
    play_match(play);
  } else {
    resume_play(play);
  }
  play.match.step = match_step::none;
  return true;
}

bool take_step(const match_play& play) {
  switch (play.match.step) {
    case match_step::conditions:
      return ask_for_conditions(play);
    case match_step::first_selection:
      return ask_for_eleven(play, 0);
    case match_step::second_selection:
      return ask_for_eleven(play, 1);
    case match_step::toss_call:
      return tell_the_call(play);
    case match_step::toss:
      return hold_toss(play);
    case match_step::play:
      return play_on(play);
    case match_step::none:
      break;
  }
  return true;
}

void undo_set_up(const match_play& play) {
  put_back_elevens(play.data, play.match.elevens_before, play.match.selected);
  std::optional<match_result> result = std::move(play.match.result_before);
  reset_match(play.match);
  if (result) static_cast<match_result&>(play.match) = *std::move(result);
}

}  // namespace

const squad& squad_of(open_database& data, const chosen_team& team) {
  if (team.record == 0) {
    throw run_time_error(failure::subscript, "Subscript out of range: no team is chosen",
                         {.file = {}, .record = 0, .field = "team_name", .player = {}});
  }
  // The record is read into the place of the team list with its own number, one behind that of the team, so the last of
  // twenty teams has none.
  if (team.record > 20) {
    throw run_time_error(failure::subscript, "Subscript out of range: the twentieth team cannot be played",
                         {.file = {}, .record = team.record, .field = "team_name", .player = team.name});
  }
  const squad& men = read_team(data, team.record).squad;
  require_ratings(data, men, team.record);
  return men;
}

bool resume_match(const match_play& play) {
  try {
    while (play.match.step != match_step::none) {
      if (take_step(play)) continue;
      undo_set_up(play);
      return false;
    }
  } catch (const run_time_error&) {
    play.match.step = match_step::none;
    keep_worms(play.match);
    leave_play(play.match);
    throw;
  }
  return true;
}

}  // namespace velorin
