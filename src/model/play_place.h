// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/message_kind.h"

// Where play stands: what a match that is left needs to be gone on with, beside its books.

namespace velorin {

/// What play does next. A step that asks is left when it is answered, so that a copy of the match taken while somebody
/// is asked asks him again.
enum class play_step : std::uint8_t {
  closed,                 ///< no match is in play
  opening_bowlers,        ///< the computer's two, or a human captain's first
  second_opening_bowler,  ///< asks
  opening_bowlers_named,  ///< tells
  openers,                ///< the computer's two, or a human captain's first
  second_opener,          ///< asks
  innings_opens,
  between_overs,  ///< the next over is awaited
  over_told,      ///< tells the progress of an unattended match
  over_begins,
  quota_told,    ///< tells that the bowler has bowled his overs
  quota_choice,  ///< asks for another one
  ball_bowled,   ///< the delivery and its outcome
  wicket_told,   ///< shows the man who is out
  next_batsman,  ///< asks, or lets the computer choose
  ball_booked,
  ball_told,         ///< tells of the ball
  innings_judged,    ///< has the innings or the match ended with this ball?
  innings_end_told,  ///< tells
  innings_over,
  innings_card_shown,  ///< shows the scorecard
  innings_changes,
  match_reported,    ///< shows the report, where somebody sits before the match
  match_end_told,    ///< tells
  match_card_shown,  ///< shows the scorecard
  last_stand,
  match_saved,  ///< careers and records; asks where that fails
  match_closed,
  unattended_over,  ///< tells that an unattended match is over
  milestones,
  milestone_told,  ///< tells, one after the other
  ball_over,
  over_ends,
  change_told,  ///< tells of a new bowler
  bowler_reviewed,
};

/// A message on its way to the user.
struct announcement {
  std::string title;
  std::string text;
  message_kind kind = message_kind::other;
};

/// Where play itself stands: all of it that is not told by the books. From the opening of the console on.
struct match_play_place {
  play_step next_step = play_step::closed;
  int ball_no = 1;            ///< 1 to 6: the place of the next ball in its over
  int overs_begun = 0;        ///< of an unattended match, 0 to 100
  bool attended = false;      ///< a human captained a side when the console was opened
  bool update_added = false;  ///< careers and records have this match; their folder may want synchronising
  std::vector<announcement> announcements;  ///< milestones that are still to be told
};

}  // namespace velorin
