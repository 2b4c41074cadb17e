// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/console_view.h"

#include <fmt/format.h>

#include "console/console_figures.h"
#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

std::string shortened_name(const std::string& name) {
  if (name.size() < 12) return name;
  return name.substr(0, 8) + "'" + name.substr(name.size() - 2);
}

score_view view_score(const match_state& match) {
  score_view view;
  view.batting_short_name = short_name(match.team1_name);
  view.score = fmt::format("{}/{}", match.score_runs, match.score_wickets);
  view.overs = match.overs_text() + " Overs";
  view.run_rate = match.innings_balls < 1
                      ? std::string(" - ")
                      : number_text(round_to(double{balls_of_over} * match.score_runs / match.innings_balls, 2));
  view.time_of_day = fmt::format("{:02}:{:02}", match.clock_minutes / 60, match.clock_minutes % 60);
  view.batting_team = match.team1_name;
  view.bowling_team = match.team2_name;
  if (match.first_total != 0) {
    const int target = match.first_total + 1;
    const int left = balls_of_innings - match.innings_balls;
    view.target = fmt::format("Target {}", target);
    const int needed = target - match.score_runs;
    if (needed > 0) view.needed = fmt::format("need {} from {} {}", needed, left, left == 1 ? "ball" : "balls");
  }
  return view;
}

batsman_view view_batsman(const match_state& match, int slot) {
  batsman_view view;
  view.position = slot == 0 ? match.lower_batsman() : match.higher_batsman();
  const batting_card_rec& card = match.batting_card[view.position];
  view.name = card.name + (view.position != 0 && view.position == match.striker ? " *" : "");
  view.runs = card.runs;
  view.balls = card.balls;
  view.fours = card.fours;
  view.sixes = card.sixes;
  // Not as of the last ball: he may have come in since.
  view.settled_meter = meter_of(match, view.position);
  view.aggression = match.batsman_aggression[slot];
  view.aggression_enabled = !match.computer_bats;
  return view;
}

bowlers_view view_bowlers(const match_state& match) {
  bowlers_view view;
  const bowling_card_rec& now = match.bowling_card[match.bowler];
  view.bowler = now.name;
  view.overs = overs_from_balls(now.balls);
  view.maidens = number_text(int(now.maidens));
  view.runs = number_text(int(now.runs));
  view.wickets = number_text(int(now.wickets));
  const bowling_card_rec& next = match.bowling_card[match.next_bowler];
  view.next_bowler = next.name;
  view.next_figures = bowling_figures(next.balls, next.maidens, next.runs, next.wickets, " - ");
  view.aggression = match.bowling_aggression;
  view.change_enabled = !match.computer_bowls;
  return view;
}

std::vector<bowler_line> view_bowler_list(const match_state& match) {
  std::vector<bowler_line> lines;
  for (int row = 1; row <= 10; ++row) {
    const bowler_row& filled = match.bowler_list[row];
    if (filled.position == 0) break;
    lines.push_back({filled.position,
                     shortened_name(match.bowling_card[filled.position].name),
                     {overs_from_balls(filled.balls), number_text(int(filled.maidens)), number_text(int(filled.runs)),
                      number_text(int(filled.wickets))}});
  }
  return lines;
}

std::string view_last_wicket(const match_state& match) {
  const last_wicket_note& note = match.last_wicket;
  if (note.position == 0) return {};
  // The cards of two innings change places with every innings, so an even distance means the current one.
  const bool current = (match.innings_number - note.innings_number) % 2 == 0;
  const batting_card_rec& out = current ? match.batting_card[note.position] : match.first_batting_card[note.position];
  return fmt::format("{} {} {} {}({}) at {}.", out.name, out.fielder, out.how_out, int(out.runs), int(out.balls),
                     note.score_runs);
}

}  // namespace velorin
