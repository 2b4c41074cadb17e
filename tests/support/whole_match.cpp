// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/whole_match.h"

#include <sstream>

#include "model/match_state.h"

namespace velorin::testing {

namespace {

void tell(std::ostream& out, const delivery_list& balls) {
  for (const delivery& ball : balls) {
    for (const int figure :
         {int(ball.innings), int(ball.over), int(ball.ball), int(ball.bowler), int(ball.striker), int(ball.non_striker),
          int(ball.batting_aggression), int(ball.bowling_aggression), int(ball.outcome), int(ball.runs),
          int(ball.extras), int(ball.how), int(ball.fielder), int(ball.next_batsman), int(ball.counted)}) {
      out << figure << ',';
    }
    out << '\n';
  }
}

void tell(std::ostream& out, const batting_card_table& card) {
  for (const batting_card_rec& man : card) {
    out << man.name << '|' << man.how_out << '|' << man.fielder << '|' << man.runs << '|' << man.balls << '|'
        << man.fours << '|' << man.sixes << '|' << man.dots << '\n';
  }
}

void tell(std::ostream& out, const bowling_card_table& card) {
  for (const bowling_card_rec& man : card) {
    out << man.name << '|' << man.balls << '|' << man.maidens << '|' << man.runs << '|' << man.wickets << '\n';
  }
}

template <class List>
void tell_entries(std::ostream& out, const List& list) {
  for (const auto& entry : list) out << entry << ',';
  out << '\n';
}

}  // namespace

std::string whole_match(const match_state& match) {
  std::ostringstream out;
  out << match.team1_name << '|' << match.team2_name << '|' << match.computer_bats << match.computer_bowls << '\n';
  for (const eleven* men : {&match.batting_xi, &match.bowling_xi}) {
    for (const player_rec& man : *men) out << man.name << ',';
  }
  out << '\n' << int(match.next_step) << ' ' << match.ball_no << ' ' << match.announcements.size() << '\n';
  for (const integer& figure :
       {match.over_no, match.bowler, match.next_bowler, match.striker, match.non_striker, match.next_batsman_slot,
        match.clock_minutes, match.innings_balls, match.innings_no_balls, match.innings_wides, match.innings_byes,
        match.innings_leg_byes, match.first_total, match.first_balls, match.first_wickets, match.innings_number,
        match.bowler_change_out, match.bowler_change_in}) {
    out << figure << ',';
  }
  out << match.maiden_flag << match.bowler_change_pending << '\n';
  tell(out, match.deliveries);
  tell(out, match.first_deliveries);
  tell(out, match.batting_card);
  tell(out, match.first_batting_card);
  tell(out, match.bowling_card);
  tell(out, match.first_bowling_card);
  tell_entries(out, match.fifty_list);
  tell_entries(out, match.stand50_list);
  tell_entries(out, match.batsman_aggression);
  tell_entries(out, match.bowling_aggression);
  tell_entries(out, match.settled_meter);
  for (const bowler_pool_rec& man : match.bowler_pool) out << man.position << ':' << man.rating << ',';
  out << '\n' << match.score_runs << '/' << match.score_wickets << ' ' << match.browsed_over << '\n';
  return out.str();
}

}  // namespace velorin::testing
