// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/match_story.h"

#include <algorithm>
#include <cstddef>
#include <sstream>
#include <utility>

#include "model/commentary.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

bool is_lead(line_kind kind) { return kind != line_kind::wicket_card && kind != line_kind::over_end; }

/// A no ball or wide that counts is not told, as the commentary has it.
bool is_told(const delivery& ball) { return !ball.is_no_ball_or_wide() || !ball.counted; }

/// An empty line, or one that is drawn to part others.
bool is_rule(const std::string& text) { return text.find_first_not_of(" -=") == std::string::npos; }

/// Joins the lines of this kind from `at` on, rules left out; leaves `at` behind them.
std::string block_of(const std::vector<commentary_line>& lines, std::size_t& at, line_kind kind) {
  std::string text;
  for (; at < lines.size() && lines[at].kind == kind; ++at) {
    if (is_rule(lines[at].text)) continue;
    if (!text.empty()) text += '\n';
    text += lines[at].text;
  }
  return text;
}

std::vector<story_line> commentary_of(const told_innings& innings) {
  const std::vector<commentary_line> lines = tell(innings);
  std::size_t at = 0;
  std::vector<story_line> told;
  const auto& balls = innings.deliveries;
  for (std::size_t i = 0; i < balls.size(); ++i) {
    const delivery& ball = balls[i];
    if (is_told(ball) && at < lines.size() && is_lead(lines[at].kind)) {
      story_line line{.over = ball.over, .ball = ball.ball, .batsman = ball.striker, .bowler = ball.bowler};
      line.wicket = ball.is_wicket();
      line.boundary = ball.outcome == four_runs || ball.outcome == six_runs;
      line.text = lines[at++].text;
      const std::string card = block_of(lines, at, line_kind::wicket_card);
      if (!card.empty()) line.text += '\n' + card;
      told.push_back(std::move(line));
    }
    if (i + 1 < balls.size() && balls[i + 1].over == ball.over) continue;
    std::string end = block_of(lines, at, line_kind::over_end);
    if (!end.empty()) told.push_back({.over = ball.over, .bowler = ball.bowler, .text = std::move(end)});
  }
  return told;
}

/// `target`: runs that win; 0 in a first innings.
std::vector<story_over> overs_of(const delivery_list& deliveries, int target) {
  std::vector<story_over> overs;
  story_over now;
  int balls = 0;
  for (const delivery& ball : deliveries) {
    if (ball.over != now.over) now = {.over = ball.over, .score = now.score, .down = now.down};
    now.bowler = ball.bowler;
    now.runs += ball.score();
    now.score += ball.score();
    now.wickets += int(ball.is_wicket());
    now.down += int(ball.is_wicket());
    balls += int(ball.counted);
    now.run_rate = balls == 0 ? 0 : double{balls_of_over} * now.score / balls;
    now.required_rate = std::nullopt;
    const int left = balls_of_innings - balls;
    if (target > now.score && left > 0) now.required_rate = double{balls_of_over} * (target - now.score) / left;
    if (overs.empty() || overs.back().over != now.over) overs.emplace_back();
    overs.back() = now;
  }
  return overs;
}

std::array<std::string, men_in_eleven + 1> batting_names(const batting_card_table& card, const eleven& men) {
  std::array<std::string, men_in_eleven + 1> names;
  for (std::size_t i = 1; i <= men_in_eleven; ++i) names[i] = card[i].name.empty() ? men[i].name : card[i].name;
  return names;
}

std::array<std::string, men_in_eleven + 1> bowling_names(const bowling_card_table& card, const eleven& men) {
  std::array<std::string, men_in_eleven + 1> names;
  for (std::size_t i = 1; i <= men_in_eleven; ++i) names[i] = card[i].name.empty() ? men[i].name : card[i].name;
  return names;
}

std::string lower(std::string text) {
  for (char& letter : text) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return text;
}

}  // namespace

match_story story_of(const match_state& match) {
  match_story story{.ground = match.venue_name(), .result = match.result_winner + match.result_margin};
  story.practice = match.practice;
  const auto place = static_cast<std::size_t>(chart_place(match, match.team1_name));
  story.teams[place] = match.team1_name;
  story.teams[1 - place] = match.team2_name;
  const bool chase = match.first_total != 0;
  if (chase) {
    innings_story first{.card = report_on_first_innings(match)};
    first.batting = batting_names(match.first_batting_card, match.bowling_xi);
    first.bowling = bowling_names(match.first_bowling_card, match.batting_xi);
    first.deliveries = match.first_deliveries;
    first.commentary = commentary_of(innings_before(match));
    first.overs = overs_of(first.deliveries, 0);
    story.innings.push_back(std::move(first));
  }
  innings_story now{.card = report_on_innings_in_play(match)};
  now.batting = batting_names(match.batting_card, match.batting_xi);
  now.bowling = bowling_names(match.bowling_card, match.bowling_xi);
  now.deliveries = match.deliveries;
  now.commentary = commentary_of(innings_in_play(match));
  now.overs = overs_of(now.deliveries, chase ? int(match.first_total) + 1 : 0);
  story.innings.push_back(std::move(now));
  for (const innings_story& innings : story.innings) add_batting_milestones(story.milestones, match, innings.card);
  for (const innings_story& innings : story.innings) add_bowling_milestones(story.milestones, match, innings.card);
  return story;
}

std::vector<int> lines_with(const innings_story& innings, const story_filter& filter) {
  std::istringstream parts(lower(filter.words));
  std::vector<std::string> words;
  for (std::string word; parts >> word;) words.push_back(word);
  const bool by_ball = filter.which != story_filter::kind::all || filter.batsman != 0 || filter.bowler != 0;
  std::vector<int> places;
  for (std::size_t i = 0; i < innings.commentary.size(); ++i) {
    const story_line& line = innings.commentary[i];
    if (by_ball && line.batsman == 0) continue;
    if (filter.which == story_filter::kind::wickets && !line.wicket) continue;
    if (filter.which == story_filter::kind::boundaries && !line.boundary) continue;
    if (filter.batsman != 0 && filter.batsman != line.batsman) continue;
    if (filter.bowler != 0 && filter.bowler != line.bowler) continue;
    const std::string text = lower(line.text);
    const auto stands = [&](const std::string& word) { return text.find(word) != std::string::npos; };
    if (std::all_of(words.begin(), words.end(), stands)) places.push_back(static_cast<int>(i));
  }
  return places;
}

}  // namespace velorin
