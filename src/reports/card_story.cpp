// SPDX-License-Identifier: GPL-3.0-or-later
// The scorecard's tables among the views of an innings.
#include <algorithm>
#include <string>

#include <fmt/format.h>

#include "model/texts.h"
#include "reports/innings_views.h"
#include "reports/match_story.h"
#include "reports/story_tables.h"

namespace velorin {

namespace {

/// Balls of the innings for which `counts` holds.
template <class Counts>
std::string count(const innings_story& innings, Counts counts) {
  const auto& balls = innings.deliveries;
  return number_text(static_cast<int>(std::count_if(balls.begin(), balls.end(), counts)));
}

}  // namespace

story_table batting_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + " batting"};
  table.columns = {{"Batsman", "Batsman", false, false}, {"Dismissal", "Dismissal", false, true},
                   {"R", "Runs", true, false},           {"B", "Balls", true, false},
                   {"0s", "Dots", true, false},          {"4s", "Fours", true, false},
                   {"6s", "Sixes", true, false},         {"SR", "Strike rate", true, false}};
  for (const reported_batsman& man : innings.card.batsmen) {
    const auto is_dot = [&](const delivery& ball) {
      return ball.striker == man.position && ball.is_faced() && ball.runs == 0;
    };
    table.rows.push_back({{man.name, man.how_out, number_text(man.runs), number_text(man.balls), count(innings, is_dot),
                           number_text(man.fours), number_text(man.sixes), man.strike_rate}});
  }
  return table;
}

story_table bowling_story(const innings_story& innings) {
  story_table table{.name = innings.card.bowling_side + " bowling"};
  table.columns = {{"Bowler", "Bowler", false, true}, {"O", "Overs", true, false},   {"M", "Maidens", true, false},
                   {"R", "Runs", true, false},        {"W", "Wickets", true, false}, {"0s", "Dots", true, false},
                   {"Econ", "Economy", true, false}};
  for (const reported_bowler& man : innings.card.bowlers) {
    const auto is_dot = [&](const delivery& ball) {
      return ball.bowler == man.position && ball.is_faced() && ball.runs == 0;
    };
    table.rows.push_back({{man.name, man.overs, number_text(man.maidens), number_text(man.runs),
                           number_text(man.wickets), count(innings, is_dot), man.economy}});
  }
  return table;
}

story_table falls_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", fall of wickets"};
  table.columns = {{"Wicket", "Wicket", true, false},
                   {"Score", "Score", true, false},
                   {"Batsman", "Batsman", false, true},
                   {"Overs", "Overs", true, false}};
  const auto& balls = innings.deliveries;
  auto ball = balls.begin();
  for (const reported_fall& fall : innings.card.falls) {
    ball = std::find_if(ball, balls.end(), [](const delivery& one) { return one.is_wicket(); });
    const int over = ball == balls.end() ? 0 : ball++->over;
    table.rows.push_back({{number_text(fall.wicket), number_text(fall.score), fall.batsman, fall.overs}, over, over});
  }
  return table;
}

std::string card_words(const innings_story& innings) {
  const reported_innings& card = innings.card;
  const auto& [no_balls, wides, leg_byes, byes] = card.extras;
  std::string words = fmt::format("{} {}/{}, {} overs", card.side, card.total, card.wickets, card.overs);
  if (!card.run_rate.empty()) words += fmt::format(", {} an over", card.run_rate);
  words += fmt::format(". Extras {} (no balls {}, wides {}, leg byes {}, byes {}).", card.extras_sum(), no_balls, wides,
                       leg_byes, byes);
  if (no_balls + wides > 0) words += " The total does not count no balls and wides.";
  for (std::size_t i = 0; i < card.did_not_bat.size(); ++i) {
    words += (i == 0 ? " Did not bat: " : ", ") + card.did_not_bat[i];
  }
  return card.did_not_bat.empty() ? words : words + ".";
}

}  // namespace velorin
