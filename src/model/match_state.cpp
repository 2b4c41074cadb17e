// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/match_state.h"

#include "model/innings_log.h"
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

std::array<std::string, balls_of_over> over_symbols(const match_state& match) {
  const over_shown& shown = match.over_on_show;
  const delivery_list& deliveries = shown.of_innings_before ? match.first_deliveries : match.deliveries;
  if (shown.in_play) return live_symbols(deliveries, shown.over);
  const over_entries entries = entries_of_over(deliveries, shown.over);
  std::array<std::string, balls_of_over> symbols;
  for (std::size_t i = 0; i < symbols.size(); ++i) symbols[i] = entries.balls[i + 1].text();
  return symbols;
}

std::string bowler_of_over(const match_state& match, int over) {
  const auto balls = deliveries_of_over(match.deliveries, over);
  if (balls.empty() || over > overs_closed(match)) return {};
  return match.bowling_card[balls.front().bowler].name;
}

bool is_last_ball_open(const match_state& match) {
  return match.next_step == play_step::wicket_told || match.next_step == play_step::next_batsman ||
         match.next_step == play_step::ball_booked;
}

int overs_closed(const match_state& match) { return match.over_no - 1; }

int score_at_last_fall(const match_state& match) {
  const last_wicket_note& last = match.last_wicket;
  return last.position != 0 && last.innings_number == match.innings_number ? last.score_runs : 0;
}

told_innings innings_in_play(const match_state& match) {
  return {.deliveries = match.deliveries,
          .batting = match.batting_card,
          .bowling = match.bowling_card,
          .team = match.team1_name,
          .score_runs = match.score_runs,
          .score_wickets = match.score_wickets,
          .innings_balls = match.innings_balls,
          .overs_closed = overs_closed(match),
          .last_ball_open = is_last_ball_open(match)};
}

told_innings innings_before(const match_state& match) {
  return {.deliveries = match.first_deliveries,
          .batting = match.first_batting_card,
          .bowling = match.first_bowling_card,
          .team = match.team2_name,
          .score_runs = match.first_total,
          .score_wickets = match.first_wickets,
          .innings_balls = match.first_balls,
          .overs_closed = match.first_deliveries.empty() ? 0 : match.first_deliveries.back().over - 1,
          .last_ball_open = false};
}

namespace {

std::vector<std::string> texts_of(std::vector<commentary_line> lines) {
  std::vector<std::string> texts;
  texts.reserve(lines.size() + 1);
  for (commentary_line& line : lines) texts.push_back(std::move(line.text));
  return texts;
}

}  // namespace

std::vector<std::string> commentary_lines(const match_state& match) { return texts_of(tell(innings_in_play(match))); }

std::vector<std::string> stored_commentary_lines(const match_state& match) {
  if (!match.commentary_stored) return {};
  std::vector<std::string> lines = texts_of(tell(innings_before(match)));
  lines.emplace_back();
  return lines;
}

}  // namespace velorin
