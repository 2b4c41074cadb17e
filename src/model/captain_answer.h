// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>

namespace velorin {

/// What a user answers to the game, or does of himself in it: all that play follows from besides chance. The numbers
/// stand in files, and do not change.
enum class answer_kind : std::uint8_t {
  read = 1,            ///< a message, a report or a table at which play stops is put away
  left = 2,            ///< the set-up is left
  conditions = 3,      ///< first: weather, pitch surface, pitch bounce, outfield, each 4 bits from the low end
  selection = 4,       ///< first: bit n is set if the man at place n, 1 to 20, is ticked
  toss_call = 5,       ///< first: 0 heads, 1 tails
  toss_bat = 6,        ///< "Bat"
  toss_bowl = 7,       ///< "Bowl"
  next_batsman = 8,    ///< first: the row chosen, 1 to 11, 0 for none; second: his aggression
  bowler = 9,          ///< first: the row chosen, 0 for none; second: 1 for "OK", 0 for a form put away
  aggression = 10,     ///< first: 1 to 5; 0 for a form put away
  next_over = 11,      ///< "Next Over"
  change_bowler = 12,  ///< opens the choice of a bowler
  change_batsman_aggression = 13,  ///< opens the aggression of the batsman in slot `first`
  change_bowler_aggression = 14,   ///< opens the aggression of the bowler in slot `first`
  set_batsman_aggression = 15,     ///< first: the slot; second: 1 to 5
  set_bowler_aggression = 16,      ///< likewise
  choose_bowler = 17,              ///< first: the position, 1 to 11
  browse_over = 18,                ///< first: the over
  looked = 19,                     ///< first: a `report` whose showing is noted in the match
  quit_cup = 20,                   ///< "Quit World Cup"
  go_on = 21,                      ///< the rest of an over that was left at a ball
  next_ball = 22,                  ///< a ball by itself, on the way to a place further on
  take_back = 23,                  ///< first: a `taken_back`; second: a `luck`
};

/// One answer. What the numbers mean follows from the kind; 0 where nothing is told of them.
struct captain_answer {
  answer_kind kind = answer_kind::read;
  std::uint32_t first = 0;
  std::uint32_t second = 0;

  bool operator==(const captain_answer&) const = default;
};

}  // namespace velorin
