// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

// The computer captain: every choice of a side that no human captains. It never reads the conditions.

namespace velorin {

struct match_state;
class random_source;
struct message_box;

/// What the toss screen shows once the coin has fallen.
struct toss_outcome {
  std::string headline;
  std::string deciding_line;  ///< the team for which the two buttons speak
  std::string other_line;
  bool bat_enabled = true;
  bool bowl_enabled = true;
};

/// The toss of a computer first team against a human second team. Requires the team names. Draws, after reseeding,
/// the coin (1 the computer won) and, if it won, the election (1 field, 2 bat).
toss_outcome decide_toss(const match_state& match, random_source& chance);

/// The next man in: the first remaining "Opener", else the best remaining "Middle Order", else the best remaining
/// "Lower Order" by bat_skill, earlier place on a tie. Sets next_batsman_slot to the higher of striker and non_striker
/// and moves the choice to the place after it in batting_xi. Reads striker, non_striker, batting_xi.
void choose_next_batsman(match_state& match);

/// Builds bowler_pool from bowling_xi, best first, and sets bowler and next_bowler. Draws, after reseeding, the offset
/// of the innings, -10 to 10. Raises run_time_error for an economy rate that is no number (type) or beyond a figure
/// (overflow).
void choose_opening_bowlers(match_state& match, random_source& chance);

/// Builds bowler_pool from bowling_xi, best first; each rating is raised by `offset`, which leaves their order. Raises
/// as choose_opening_bowlers(); nothing is changed then.
void rank_bowlers(match_state& match, int offset);

/// The second of two opening bowlers, where bowler is the first. Requires bowler_pool; sets next_bowler.
void choose_second_opening_bowler(match_state& match);

/// Sets batsman_aggression of both batsmen. Requires striker, non_striker and bowler; reads the score, the cards, in a
/// second innings the projection. Raises run_time_error: a bat_skill of 0 (division), a projection that is no number
/// (type).
void set_batting_aggression(match_state& match);

/// A change of bowler is pending, and there is somebody to be told.
bool has_bowler_change_to_tell(const match_state& match);
/// The message that tells of the pending change of bowler. Requires one.
message_box bowler_change_message(const match_state& match);

/// Reviews the man who has just finished an over, replaces him where he is tired, expensive or through, and sets
/// bowling_aggression[0]. The change that was pending has been told. Requires: the end of an over, after bowlers and
/// batsmen have been exchanged, so that next_bowler is the man under review; bowler_pool. Changes next_bowler,
/// bowling_aggression[0], opening_bowlers and the pending change. Raises run_time_error: a projection that is no number
/// (type), no replacement to be found (endless).
void review_bowler(match_state& match);

/// Sets bowling_aggression[0] of the man at bowler. Requires striker, non_striker and bowler; reads the score and the
/// cards, in a second innings the projection. Raises run_time_error (type): a projection that is no number.
void set_bowling_aggression(match_state& match);

/// What the review makes of a man's figures.
struct bowler_standing {
  double score = 0;       ///< of his overs, runs and wickets: the less, the better
  double limit = 0;       ///< above which he is changed
  bool too_slow = false;  ///< at this stage nobody bowls but fast men
};
/// Nothing where nobody is reviewed, or for a man who has not bowled.
std::optional<bowler_standing> standing_of_bowler(const match_state& match, int position);

/// A search for another bowler. Positions of the bowling eleven; -1 excludes nobody.
struct replacement_search {
  std::string_view type_a;
  std::string_view type_b;
  int exclude_a = -1;
  int exclude_b = -1;  ///< the outgoing man
  int exclude_c = -1;
  int exclude_d = -1;
  int min_balls = 0;
  int max_balls = 0;
};

/// The best-ranked man of bowler_pool who fits: by kind in the first pass, of any kind in the second. Records the
/// change as pending and returns his position. Raises run_time_error (endless) if nobody fits.
int pick_replacement(match_state& match, const replacement_search& wanted);

}  // namespace velorin
