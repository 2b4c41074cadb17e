// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/match_state.h"

#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

std::string match_state::overs_text() const { return overs_from_balls(innings_balls); }

std::string projection_text::text() const {
  switch (what) {
    case kind::empty:
      return "";
    case kind::dash:
      return "-";
    case kind::number:
      return number_text(value);
  }
  return "";
}

void projection_text::raise_no_number() const {
  throw run_time_error(failure::type, "Type mismatch: the projected score \"" + text() + "\" is no number",
                       {.file = {}, .record = 0, .field = "first_innings_projection", .player = {}});
}

std::vector<std::string> commentary_lines(const match_state& match) {
  return match.ball_commentary.lines(match.batting_card, match.bowling_card, match.team1_name);
}

std::vector<std::string> stored_commentary_lines(const match_state& match) {
  if (!match.commentary_stored) return {};
  auto lines = match.commentary_store.lines(match.first_batting_card, match.first_bowling_card, match.team2_name);
  lines.emplace_back();
  return lines;
}

}  // namespace velorin
