// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "model/match_records.h"
#include "model/rules.h"
#include "ui/match_play.h"

namespace velorin {

/// The selection of an eleven from a squad of twenty places. Shown once for each team of a match.
struct team_selection_form {
  explicit team_selection_form(const match_play& play) : play_(play) {}

  std::array<bool, men_in_squad + 1> ticks{};  ///< [1..20] ticked
  bool closed = false;
  bool left = false;  ///< the user has left the match here

  /// Shows a squad, nothing ticked. The squad must outlive the form.
  void open(const std::string& team, const squad& men);

  const std::string& heading() const { return team_; }
  std::string title() const { return team_ + " - Team Selection "; }
  bool row_visible(int place) const;  ///< the place has a man
  const player_rec& man(int place) const { return (*squad_)[place]; }
  std::string batting_type(int place) const;      ///< "Bat Type"
  std::string batting_skill(int place) const;     ///< "Bat Skill"
  std::string bowling_type(int place) const;      ///< "Bowler type", with "/Wk" behind it for a keeper
  std::string balls_per_wicket(int place) const;  ///< "Bowl SR"
  std::string economy(int place) const;           ///< "Econ."
  int ticked() const;
  /// The counter: " 0 /11 players selected so far." at the start, then the number and the same words.
  std::string selected_count() const;

  /// A box pressed by the user.
  void toggle(int place);
  /// "Auto Select". Raises run_time_error (endless) for a squad without a man of any known role.
  void auto_select();
  /// "Auto Select", with men left out again until eleven are ticked: what a user who leaves it to the computer takes.
  /// Raises run_time_error (endless) besides if no eleven can be made of the squad.
  void select_eleven();
  /// The eleven ticked, in the order of their places. Requires eleven.
  eleven chosen_men() const;
  /// "Clear Selection".
  void clear_selection();
  /// "Career Bat Avgs." (0) and "Career Bowl Avgs." (1): the records of the team's players. Asks the front end. Raises
  /// what read_career_table raises.
  void show_career_averages(int index) const;
  /// "OK" of the first team; it is shown while match.first_team_done is clear. Nothing happens unless exactly eleven
  /// are ticked. Writes the eleven and closes the form. Asks and raises what save_selected does.
  void accept_first();
  /// "OK" of the second team: likewise. The toss comes next.
  void accept_second();
  /// The OK that is shown.
  void accept();
  /// The user leaves the match: the form closes, and the set-up is undone.
  void leave() { left = closed = true; }

  /// What the last Auto Select ranked best: places of the four best bowlers, and of the man ticked as the bowler who
  /// can bat (0 for none).
  const std::array<int, 4>& best_bowlers() const { return best_bowlers_; }
  int batting_bowler() const { return batting_bowler_; }

 private:
  void confirm(int side_index);
  void take_ticked(eleven& chosen) const;

  std::string team_;
  const squad* squad_ = nullptr;
  bool counted_ = false;  // the counter has been rewritten since the form opened
  std::array<int, 4> best_bowlers_{};
  int batting_bowler_ = 0;
  match_play play_;
};

}  // namespace velorin
