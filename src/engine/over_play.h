// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <utility>

#include "engine/practice_history.h"
#include "engine/skip.h"
#include "model/random.h"
#include "ui/match_play.h"

// Starts, resumes and hands over a match; the console's buttons. What a ball causes is a row of steps (play_steps.h).

namespace velorin {

struct match_state;
class front_end;

/// A fresh set of the console's values for the match that the set-up left; its opening comes next. Asks nothing.
void begin_play(match_state& match);

/// Opens the console on the match that the set-up left: a fresh set of its values, opening bowlers and openers, clock.
/// Requires the sides, the elevens, the conditions and the ground. A human captain is asked for his choices. An
/// unattended match is played here to its end; one that is unfinished after 100 overs has no result and is reset.
/// Raises run_time_error: a bowler not chosen (subscript), whatever play raises.
void open_console(const match_play& play);

/// Bowls one over, or what is left of the innings; an over that was left at a ball is gone on with. Requires an open
/// console. Draws, for each ball, the delivery and what follows from it. Tells the front end of each ball. Raises
/// run_time_error: a position that nobody fills or an over beyond the log's fifty (subscript), a figure beyond its
/// width (overflow, with its field and whose it is), what the model, the books, the captains and the end of a match
/// raise.
void next_over(const match_play& play);

/// Bowls the next ball alone, with all that follows from it: play then awaits the next ball, or, after the last of an
/// over, of an innings or of the match, what next_over() leaves it with. A ball that was left on its way is gone on
/// with, and none is bowled after it. As many of these as an over has balls are a next_over(). Draws, tells and raises
/// as that does.
void bowl_next_ball(const match_play& play);

/// Plays the match that the set-up left: opens the console and, with a human side, shows it until the match is over.
/// Draws and raises as open_console() and next_over().
void play_match(const match_play& play);
/// Goes on with a match that was left at any point of play, as a copy of it stands: the question that was open is asked
/// again. Returns and raises as play_match(). Nothing happens where no match is in play.
void resume_play(const match_play& play);

/// Takes the match out of play wherever it stands: its deliveries go, nobody is asked any more. The books stay.
void leave_play(match_state& match);

/// A side of the match in play.
enum class match_side { batting, bowling };
/// Gives a side to the computer or to a human captain, at any step of play. What the computer needs of the innings so
/// far is made up for. He sets the aggressions from the next ball on when he bats, from the next over
/// on when he bowls; a change of bowler that is still to be told is told no more. An unattended match that gets a human
/// captain asks him from then on, but has no console. Raises run_time_error (type, overflow): an economy rate with
/// which the bowlers cannot be ranked; nothing is changed then.
void set_captain(match_state& match, match_side side, bool computer);

/// Copies the names of positions 1 and 2 of batting_xi to the batting card.
void name_openers(match_state& match);
/// Copies the names of all eleven of bowling_xi to the bowling card.
void name_bowlers(match_state& match);
/// Shows an over that is over, 1 to the number of overs completed. Other values are left alone.
void show_past_over(match_state& match, int over);

/// The console's form: its buttons. The values it shows are in the match.
struct console_form {
  explicit console_form(const match_play& play) : play_(play) {}

  /// "Next Over"; goes on with an over that was left at a ball.
  void bowl_next_over();
  /// Plays on as by that, over after over, until the target is reached, at the latest to the end of the innings. To a
  /// wicket it stops after the ball, also within an over. Does nothing where the target is not ahead.
  void play_to(skip_target target);
  /// Bowls the next ball alone, with what follows on it.
  void bowl_ball();
  /// Asks a play_to() that is on its way to stop after the ball that the front end is just told of.
  void stop();
  /// An over, or what follows on it, has been left on the way: bowl_next_over() goes on with it.
  bool has_over_in_play() const;
  /// A practice match: there is a ball to be taken back.
  bool can_take_back() const;
  /// Takes the last ball back, or the over in play or else the last one, also over the end of an innings. What comes
  /// then has the same luck or fresh one. Does nothing where there is nothing to be taken back.
  void take_back(taken_back how_far, luck wanted);
  /// What it remembers for that, to go on with in another console of the match as it stands. Chance goes with it.
  const practice_history& remembered() const { return history_; }
  void remember(practice_history history) { history_ = std::move(history); }
  /// The scorecard.
  void show_scorecard();
  /// Changes the bowler; only while a human bowls, and not within an over.
  void change_bowler();
  /// Aggression of the batsman in slot 0 or 1; only while a human bats.
  void change_batsman_aggression(int slot);
  /// Aggression of the bowler (0) or the next bowler (1); only while a human bowls.
  void change_bowler_aggression(int slot);
  /// The same without a dialog, under the same rules: sets an aggression, 1 to 5. Other levels are left alone.
  void set_batsman_aggression(int slot, int level);
  void set_bowler_aggression(int slot, int level);
  /// Gives this over to the man at a position of the bowling eleven, as the dialog would. One who cannot be chosen
  /// there, or has bowled his overs, is left alone.
  void choose_bowler(int position);
  /// The worm and the graph of overs.
  void show_worm();
  void show_overs_graph();
  /// The profiles of the bowler (7), the next bowler (9), and the batsmen in slot 0 (8) and slot 1 (10). Asks the front
  /// end; a man without a career is a message.
  void show_bowler_profile();
  void show_lower_batsman_profile();
  void show_next_bowler_profile();
  void show_higher_batsman_profile();
  /// The profile of any man of the batting or the bowling eleven, by his position from 1 to 11.
  void show_profile_of_batsman(int position);
  void show_profile_of_bowler(int position);
  /// Shows a past over: 1 to the number of overs completed. Other values are left alone.
  void browse_over(int over);

  bool closed() const;

 private:
  /// Bowls the next ball; in a practice match it can be taken back.
  void bowl_ball_on_record();

  match_play play_;
  practice_history history_;
  bool stop_asked_ = false;
};

}  // namespace velorin
