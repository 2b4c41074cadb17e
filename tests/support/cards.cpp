// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/cards.h"

#include <cstdint>

namespace velorin {

namespace {

/// The bowler's part of the words.
std::string words_of_bowler(dismissal how, const std::string& bowler) {
  switch (how) {
    case dismissal::none:
      return {};
    case dismissal::not_out:
      return "not out";
    case dismissal::bowled:
    case dismissal::caught:
    case dismissal::stumped:
      return " b " + bowler;
    case dismissal::caught_and_bowled:
      return " c && b " + bowler;
    case dismissal::leg_before:
      return " lbw " + bowler;
    case dismissal::run_out:
      return " run out (" + bowler + ")";
  }
  return {};
}

}  // namespace

void put_out(batting_card_rec& card, dismissal how, const std::string& bowler, const man_in_the_field& fielder) {
  card.how = how;
  card.fielder_position = static_cast<std::uint8_t>(fielder.position);
  card.how_out = words_of_bowler(how, bowler);
  card.fielder.clear();
  card.taken = fielding::none;
  if (how == dismissal::caught) {
    card.taken = fielding::caught;
    card.fielder = " c " + fielder.name;
  } else if (how == dismissal::stumped) {
    card.taken = fielding::stumped;
    card.fielder = " st " + fielder.name;
  }
}

}  // namespace velorin
