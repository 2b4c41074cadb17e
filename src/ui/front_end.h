// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "model/message_kind.h"

// The seam between the game and whoever shows it. The game asks; a request returns when the user is done with it. Forms
// are plain records with handlers: whoever shows one calls its handlers and returns once the form is closed.

namespace velorin {

struct captain_answer;
struct entered_game;
struct aggression_form;
struct player_rankings_form;
struct next_batsman_form;
struct batsman_details_form;
struct bowler_choice_form;
struct console_form;
struct match_report_form;
struct player_profile_form;
struct series_results_form;
struct team_selection_form;
struct toss_form;
struct tri_series_table_form;
struct world_cup_fixtures_form;
struct world_cup_tables_form;
struct conditions_form;

/// A modal message with the information icon. Texts are single bytes of Windows-1252.
struct message_box {
  std::string title;
  std::string text;
  message_kind kind = message_kind::other;
};

/// A save of the game that has failed. Texts are single bytes of Windows-1252.
struct failed_save {
  std::string cause;    ///< what happened and where, in one line
  std::string without;  ///< what it means to go on without it
};

/// What is to be done about it. Given up, it is a failure like any other.
enum class save_answer { retry, go_on, give_up };

/// The reading screens, which need nothing but the match.
enum class report {
  scorecard,
  first_scorecard,
  bowling_card,
  first_bowling_card,
  partnerships,
  first_partnerships,
  overs_graph,
  worm_graph
};

class front_end {
 public:
  virtual ~front_end() = default;

  /// Shows a message until it is dismissed.
  virtual void show(const message_box& message) = 0;
  /// Tells of a save that has failed, and asks what is to be done.
  virtual save_answer answer(const failed_save& failed) = 0;

  /// Set-up: shows the form modally until one of its handlers has closed it.
  virtual void show(conditions_form& form) = 0;
  virtual void show(team_selection_form& form) = 0;
  virtual void show(toss_form& form) = 0;

  /// The captain's dialogs: likewise.
  virtual void show(next_batsman_form& form) = 0;
  virtual void show(bowler_choice_form& form) = 0;
  virtual void show(aggression_form& form) = 0;
  virtual void show(batsman_details_form& form) = 0;

  /// The match console of a match with a human side, modal: presses its buttons until the form is closed.
  virtual void show(console_form& form) = 0;
  /// Such a match begins or goes on, with this console: it can be seen, but not used, while the captains are asked for
  /// what comes before it is shown. However the match is left, console_closes() tells of it.
  virtual void console_opens(console_form& /*form*/) {}
  virtual void console_closes() {}
  /// At this console the next ball or over has been asked for, and nothing of it has happened: what its user leaves to
  /// others can still be done by the form.
  virtual void about_to_bowl(console_form& /*form*/) {}

  // What is told to whoever keeps a record of the game; others need not listen.

  /// A match by itself or a competition has been entered, and is about to make its first draw.
  virtual void game_begins(const entered_game& /*entered*/) {}
  /// The user has done something that play follows from, in a form that stays open: it is about to act.
  virtual void answered(const captain_answer& /*answer*/) {}
  /// The over that a user asked for has been bowled, with all that follows on it: the console waits for him again.
  virtual void over_bowled() {}
  /// The match in play is about to be added to the careers and records. Returns the name under which it is added, so
  /// that it is added once; "" for none.
  virtual std::string saves_match() { return {}; }
  /// Asked behind saves_match() where the match is kept: the bytes of a recording of it up to its end; "" for none.
  virtual std::string match_recording() { return {}; }
  /// It has been added, or is to be missing from them.
  virtual void match_saved() {}

  /// A ball has been bowled and booked, and the figures of the console are up to date.
  virtual void ball_bowled() = 0;
  /// An unattended match begins its i-th over, from 1.
  virtual void progress(int over) = 0;
  /// The unattended match is over: the progress window closes.
  virtual void progress_done() = 0;

  /// A reading screen, modal.
  virtual void open(report which) = 0;

  /// A match has been decided, and its report can be opened: shown modally where somebody sits before the match.
  virtual void show(match_report_form& form) = 0;

  /// Browsers opened from a form, modal.
  virtual void show(player_profile_form& form) = 0;
  virtual void show(player_rankings_form& form) = 0;

  /// Standings of a competition, modal, between its matches.
  virtual void show(series_results_form& form) = 0;
  virtual void show(tri_series_table_form& form) = 0;
  virtual void show(world_cup_fixtures_form& form) = 0;
  virtual void show(world_cup_tables_form& form) = 0;
};

}  // namespace velorin
