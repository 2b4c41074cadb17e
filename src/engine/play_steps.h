// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "engine/ball_books.h"
#include "engine/delivery_model.h"
#include "model/match_state.h"

// The steps of play: what each does, and which one follows it. Between two of them the match is whole and can be
// copied.

namespace velorin {

class front_end;
class random_source;
struct match_play;
struct standing_orders;

/// Takes step after step until the next over is awaited or no match is in play. Raises what the steps raise; the match
/// then stands in the step that failed, with what this has done so far.
void take_steps(const match_play& play);

/// Takes the steps of play up to the decision of the match or, where it is unattended, to the end of its hundred overs:
/// next_step is match_reported, or unattended_over then. By the same rules and draws as take_steps(), but of what is
/// read of a match nothing is kept that no rule reads. Requires that the computer leads both sides and that nobody sits
/// before the match; the match is of no use for anything else afterwards. The user is asked for nothing but a bowler in
/// the place of one who has bowled his overs. `orders` may be nullptr.
void play_unread(const match_play& play, bool unattended, const standing_orders* orders);

/// The same, but no further than to the next delivery: next_step is ball_bowled where one comes.
void play_unread_to_ball(const match_play& play, bool unattended);

/// An unattended match is over: decided and closed, or a first innings of 0, which is taken for its end, or after a
/// hundred overs.
bool is_unattended_over(const match_state& match);

/// Takes one step, or all those of one ball up to the first that asks; nothing happens where the next over is awaited
/// or no match is in play.
void take_step(const match_play& play);

// The opening of an innings.

/// The computer's two opening bowlers, or a human captain's first. Draws the offset of the computer's bowlers.
play_step open_bowling(const match_play& play);
play_step ask_second_bowler(match_state& match, front_end& user);
void tell_opening_bowlers(const match_state& match, front_end& user);
/// The computer's two openers, or a human captain's first.
play_step open_batting(match_state& match, front_end& user);
play_step ask_second_opener(match_state& match, front_end& user);
/// The names of those who begin, the figures of the console, and in a first innings the clock.
void open_innings(match_state& match);

// An over.

/// The first ball, or the message that the bowler has bowled his overs.
play_step begin_over(match_state& match);
void tell_quota(const match_state& match, front_end& user);
void ask_bowler_for_quota(match_state& match, front_end& user);
/// Books the over and exchanges ends.
play_step end_over(match_state& match);

// A ball.

/// Settles a delivery, records it and acts upon its outcome, but for the man who comes in. Draws the delivery and what
/// follows from it.
template <keeping Kept = keeping::everything>
play_step bowl_ball(match_state& match, random_source& chance, known_contests& known);
void tell_wicket(const match_state& match, front_end& user);
/// The next man comes in, chosen by the captain of the batting side, or the innings is over.
void bring_in_next_batsman(match_state& match, front_end& user);
/// The same where the computer chooses and nobody reads who it was.
void bring_in_computers_choice(match_state& match);
/// Neither of the pair is the last man: another one can come in.
bool has_man_to_come(const match_state& match);
/// The man in the place after next_batsman_slot comes in for the striker.
void send_in(match_state& match);
/// The books of the ball and the figures of the console.
template <keeping Kept = keeping::everything>
void book_ball(match_state& match);

// The end of an innings and of a match.

/// Has the innings or the match ended with the ball just booked?
play_step judge_innings(const match_state& match);
/// A first innings is to be changed, another one decides the match.
play_step close_innings(match_state& match);
/// How a match ends that has been decided: `runs` for the side now bowling, `wickets` for the side now batting, `tie`.
match_decision decision_on(const match_state& match);
/// What the side now bowling has gained in runs an over on the side now batting. Requires a match that has been
/// decided.
double rate_gain(const match_state& match);
/// Writes the result block of a match that has been decided.
void conclude(match_state& match);
/// Requires the result block.
void show_match_report(const match_play& play);
void tell_match_end(const match_state& match, front_end& user);
/// Stores the commentary, swaps the sides and their books. Requires innings_total and innings_wickets. Raises
/// run_time_error (subscript): a commentary beyond its 1500 places.
template <keeping Kept = keeping::everything>
void change_innings(match_state& match);
/// Records the unbroken stand of the last innings. Requires the result block.
void close_books(match_state& match);
/// Updates careers and records, but for a practice match; where that fails, the user is asked. Raises what it raises if
/// he gives no answer.
void save_match(const match_play& play);
/// Closes the console and resets the match.
play_step close_match(match_state& match);

}  // namespace velorin
