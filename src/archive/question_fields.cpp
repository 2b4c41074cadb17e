// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/question_fields.h"

#include <algorithm>
#include <array>
#include <string>

namespace velorin {

namespace {

using field_kind = row_field::kind;
using figure_kind = sum_figure::kind;

constexpr std::string_view played_at_sql = "strftime('%Y-%m-%dT%H:%M:%SZ', m.played_at, 'unixepoch')";
constexpr std::string_view date_sql = "strftime('%Y-%m-%d', m.played_at, 'unixepoch')";
constexpr std::string_view year_sql = "CAST(strftime('%Y', m.played_at, 'unixepoch') AS INTEGER)";
constexpr std::string_view result_sql = "CASE r.result WHEN 1 THEN 'won' WHEN -1 THEN 'lost' ELSE 'tied' END";

/// No index leads to the first or the second innings of all matches: the sign keeps SQLite from taking one for it.
constexpr std::string_view innings_sql = "+r.innings";

constexpr std::array match_fields = {
    row_field{"id", "m.id", field_kind::number, true, "match"},
    row_field{"played_at", played_at_sql, field_kind::text, true, "time of play"},
    row_field{"competition", "m.competition", field_kind::name, true},
    row_field{"stage", "m.stage", field_kind::name, true},
    row_field{"ground", "m.ground", field_kind::name, true},
    row_field{"country", "m.country", field_kind::name, true},
    row_field{"first", "m.first", field_kind::name, true, "side batting first"},
    row_field{"second", "m.second", field_kind::name, true, "side batting second"},
    row_field{"winner", "m.winner", field_kind::name, true},
    row_field{"margin", "m.margin", field_kind::name, true},
    row_field{"first_runs", "m.first_runs", field_kind::number, true, "first total"},
    row_field{"first_wickets", "m.first_wickets", field_kind::number, true, "first innings' wickets"},
    row_field{"first_balls", "m.first_balls", field_kind::number, true, "first innings' balls"},
    row_field{"second_runs", "m.second_runs", field_kind::number, true, "second total"},
    row_field{"second_wickets", "m.second_wickets", field_kind::number, true, "second innings' wickets"},
    row_field{"second_balls", "m.second_balls", field_kind::number, true, "second innings' balls"},
    row_field{"human", "m.human", field_kind::number, true, "human captain"},
    row_field{"runs", "m.first_runs + m.second_runs", field_kind::number, false, "runs of both sides"},
    row_field{"wickets", "m.first_wickets + m.second_wickets", field_kind::number, false, "wickets of both sides"},
    row_field{"difference", "abs(m.first_runs - m.second_runs)", field_kind::number, false, "difference in runs"},
    row_field{"balls_left", "300 - m.second_balls", field_kind::number, false, "balls left"},
    row_field{"number", "m.number", field_kind::number, false, "number in the competition"},
    row_field{"date", date_sql, field_kind::text},
    row_field{"year", year_sql, field_kind::number},
};

/// The fields that every row has from its match.
constexpr row_field of_match[] = {
    {"result", result_sql, field_kind::text, false},
    {"ground", "m.ground", field_kind::name, false},
    {"country", "m.country", field_kind::name, false},
    {"competition", "m.competition", field_kind::name, false},
    {"stage", "m.stage", field_kind::name, false},
    {"played_at", played_at_sql, field_kind::text, false, "time of play"},
    {"date", date_sql, field_kind::text, false},
    {"year", year_sql, field_kind::number, false},
    {"human", "m.human", field_kind::number, false, "human captain"},
};

template <std::size_t n>
constexpr auto with_match(const row_field (&own)[n]) {
  std::array<row_field, n + std::size(of_match)> all{};
  std::copy(std::begin(of_match), std::end(of_match), std::copy(std::begin(own), std::end(own), all.begin()));
  return all;
}

constexpr auto innings_fields = with_match({
    {"match_id", "r.match_id", field_kind::number, true, "match"},
    {"innings", innings_sql, field_kind::number, true},
    {"team", "r.team", field_kind::name, true},
    {"opponent", "r.opponent", field_kind::name, true},
    {"runs", "r.runs", field_kind::number, true},
    {"wickets", "r.wickets", field_kind::number, true},
    {"balls", "r.balls", field_kind::number, true},
    {"wides", "r.wides", field_kind::number, true},
    {"no_balls", "r.no_balls", field_kind::number, true, "no balls"},
    {"byes", "r.byes", field_kind::number, true},
    {"leg_byes", "r.leg_byes", field_kind::number, true, "leg byes"},
    {"extras", "r.byes + r.leg_byes", field_kind::number, false, "byes and leg byes"},
    {"fours", "r.fours", field_kind::number},
    {"sixes", "r.sixes", field_kind::number},
    {"boundaries", "r.fours + r.sixes", field_kind::number},
    {"top_score", "r.top_score", field_kind::number, false, "highest score of a man"},
    {"hundreds", "r.hundreds", field_kind::number},
    {"run_rate", "r.runs * 6.0 / nullif(r.balls, 0)", field_kind::rate, false, "run rate"},
});

constexpr auto batting_fields = with_match({
    {"match_id", "r.match_id", field_kind::number, true, "match"},
    {"innings", innings_sql, field_kind::number, true},
    {"team", "r.team", field_kind::name, true},
    {"opponent", "r.opponent", field_kind::name, true},
    {"position", "r.position", field_kind::number, true},
    {"player", "r.player", field_kind::name, true},
    {"out", "r.out", field_kind::number, true},
    {"how_out", "r.how_out", field_kind::name, true, "dismissal"},
    {"bowler", "r.bowler", field_kind::name, true},
    {"fielder", "r.fielder", field_kind::name, true},
    {"runs", "r.runs", field_kind::number, true},
    {"balls", "r.balls", field_kind::number, true},
    {"dots", "r.dots", field_kind::number, true},
    {"ones", "r.ones", field_kind::number, true},
    {"twos", "r.twos", field_kind::number, true},
    {"threes", "r.threes", field_kind::number, true},
    {"fours", "r.fours", field_kind::number, true},
    {"sixes", "r.sixes", field_kind::number, true},
    {"boundaries", "r.fours + r.sixes", field_kind::number},
    {"not_out", "r.not_out", field_kind::number, false, "not out"},
    {"fifty_balls", "r.fifty_balls", field_kind::number, false, "balls to fifty"},
    {"hundred_balls", "r.hundred_balls", field_kind::number, false, "balls to a hundred"},
    {"strike_rate", "r.runs * 100.0 / nullif(r.balls, 0)", field_kind::rate, false, "strike rate"},
});

constexpr auto bowling_fields = with_match({
    {"match_id", "r.match_id", field_kind::number, true, "match"},
    {"innings", innings_sql, field_kind::number, true},
    {"team", "r.team", field_kind::name, true},
    {"opponent", "r.opponent", field_kind::name, true},
    {"player", "r.player", field_kind::name, true},
    {"balls", "r.balls", field_kind::number, true},
    {"maidens", "r.maidens", field_kind::number, true},
    {"runs", "r.runs", field_kind::number, true},
    {"wickets", "r.wickets", field_kind::number, true},
    {"economy", "r.runs * 6.0 / nullif(r.balls, 0)", field_kind::rate},
    {"figures", "r.wickets * 10000 - r.runs", field_kind::number, false, "wickets, and fewest runs for them",
     "r.wickets DESC, r.runs", "r.wickets, r.runs DESC"},
    {"came_on", "r.came_on", field_kind::number, false, "place among the bowlers"},
});

constexpr auto stand_fields = with_match({
    {"match_id", "r.match_id", field_kind::number, true, "match"},
    {"innings", innings_sql, field_kind::number, true},
    {"team", "r.team", field_kind::name, true},
    {"wicket", "r.wicket", field_kind::number, true},
    {"runs", "r.runs", field_kind::number, true},
    {"player1", "r.player1", field_kind::name, true, "first man"},
    {"player2", "r.player2", field_kind::name, true, "second man"},
    {"unbroken", "r.unbroken", field_kind::number, true},
    {"opponent", "r.opponent", field_kind::name},
    {"balls", "r.balls", field_kind::number},
});

constexpr auto meeting_fields = with_match({
    {"match_id", "r.match_id", field_kind::number, true, "match"},
    {"innings", innings_sql, field_kind::number, true},
    {"team", "r.team", field_kind::name, true},
    {"opponent", "r.opponent", field_kind::name, true},
    {"player", "r.player", field_kind::name, true},
    {"bowler", "r.bowler", field_kind::name, true},
    {"balls", "r.balls", field_kind::number, true},
    {"runs", "r.runs", field_kind::number, true},
    {"dots", "r.dots", field_kind::number, true},
    {"fours", "r.fours", field_kind::number, true},
    {"sixes", "r.sixes", field_kind::number, true},
    {"outs", "r.outs", field_kind::number, true, "dismissals"},
    {"strike_rate", "r.runs * 100.0 / nullif(r.balls, 0)", field_kind::rate, false, "strike rate"},
});

constexpr std::array match_figures = {
    sum_figure{"matches", "count(*)", ""},
    sum_figure{"first_wins", "sum(m.winner = m.first)", ""},
    sum_figure{"second_wins", "sum(m.winner = m.second)", ""},
    sum_figure{"ties", "sum(m.winner <> m.first AND m.winner <> m.second)", ""},
    sum_figure{"runs", "sum(m.first_runs + m.second_runs)", ""},
    sum_figure{"wickets", "sum(m.first_wickets + m.second_wickets)", ""},
    sum_figure{"run_rate", "sum(m.first_runs + m.second_runs) * 6.0 / nullif(sum(m.first_balls + m.second_balls), 0)",
               "", figure_kind::rate},
};

constexpr std::array innings_figures = {
    sum_figure{"matches", "count(DISTINCT r.match_id)", ""},
    sum_figure{"innings", "count(*)", ""},
    sum_figure{"won", "sum(r.result = 1)", ""},
    sum_figure{"lost", "sum(r.result = -1)", ""},
    sum_figure{"tied", "sum(r.result = 0)", ""},
    sum_figure{"runs", "sum(r.runs)", ""},
    sum_figure{"wickets", "sum(r.wickets)", ""},
    sum_figure{"balls", "sum(r.balls)", ""},
    sum_figure{"average", "sum(r.runs) * 1.0 / nullif(sum(r.wickets), 0)", "", figure_kind::rate},
    sum_figure{"run_rate", "sum(r.runs) * 6.0 / nullif(sum(r.balls), 0)", "", figure_kind::rate},
    sum_figure{"highest", "max(r.runs)", ""},
    sum_figure{"lowest", "min(r.runs)", ""},
    sum_figure{"fours", "sum(r.fours)", ""},
    sum_figure{"sixes", "sum(r.sixes)", ""},
    sum_figure{"hundreds", "sum(r.hundreds)", ""},
};

/// A man has played in matches in which he has neither batted nor bowled.
constexpr std::string_view matches_of_man =
    "sum((SELECT p.matches FROM man_sums p WHERE p.player = s.player AND p.team = s.team))";

constexpr std::array batting_figures = {
    sum_figure{"matches", "count(DISTINCT r.match_id)", matches_of_man},
    sum_figure{"innings", "count(*)", "sum(s.matches)"},
    sum_figure{"not_outs", "sum(r.not_out)", "sum(s.not_outs)"},
    sum_figure{"runs", "sum(r.runs)", "sum(s.runs)"},
    sum_figure{"balls", "sum(r.balls)", "sum(s.balls)"},
    sum_figure{"average", "sum(r.runs) * 1.0 / nullif(sum(1 - r.not_out), 0)",
               "sum(s.runs) * 1.0 / nullif(sum(s.matches - s.not_outs), 0)", figure_kind::rate},
    sum_figure{"strike_rate", "sum(r.runs) * 100.0 / nullif(sum(r.balls), 0)",
               "sum(s.runs) * 100.0 / nullif(sum(s.balls), 0)", figure_kind::rate},
    sum_figure{"hundreds", "sum(r.runs >= 100)", "sum(s.hundreds)"},
    sum_figure{"fifties", "sum(r.runs >= 50 AND r.runs < 100)", "sum(s.fifties)"},
    sum_figure{"ducks", "sum(r.out = 1 AND r.runs = 0)", "sum(s.ducks)"},
    sum_figure{"fours", "sum(r.fours)", "sum(s.fours)"},
    sum_figure{"sixes", "sum(r.sixes)", "sum(s.sixes)"},
    sum_figure{"best", "max(r.runs * 2 + r.not_out)", "max(s.best)", figure_kind::best_score},
};

constexpr std::array bowling_figures = {
    sum_figure{"matches", "count(DISTINCT r.match_id)", matches_of_man},
    sum_figure{"innings", "count(*)", "sum(s.matches)"},
    sum_figure{"overs", "sum(r.balls)", "sum(s.balls)", figure_kind::overs},
    sum_figure{"balls", "sum(r.balls)", "sum(s.balls)"},
    sum_figure{"maidens", "sum(r.maidens)", "sum(s.maidens)"},
    sum_figure{"runs", "sum(r.runs)", "sum(s.runs)"},
    sum_figure{"wickets", "sum(r.wickets)", "sum(s.wickets)"},
    sum_figure{"average", "sum(r.runs) * 1.0 / nullif(sum(r.wickets), 0)",
               "sum(s.runs) * 1.0 / nullif(sum(s.wickets), 0)", figure_kind::rate},
    sum_figure{"strike_rate", "sum(r.balls) * 1.0 / nullif(sum(r.wickets), 0)",
               "sum(s.balls) * 1.0 / nullif(sum(s.wickets), 0)", figure_kind::rate},
    sum_figure{"economy", "sum(r.runs) * 6.0 / nullif(sum(r.balls), 0)", "sum(s.runs) * 6.0 / nullif(sum(s.balls), 0)",
               figure_kind::rate},
    sum_figure{"five_wickets", "sum(r.wickets >= 5)", "sum(s.five_wickets)"},
    sum_figure{"best", "max(r.wickets * 10000 - r.runs)", "max(s.best)", figure_kind::best_bowling},
};

constexpr std::array stand_figures = {
    sum_figure{"matches", "count(DISTINCT r.match_id)", ""},
    sum_figure{"stands", "count(*)", ""},
    sum_figure{"runs", "sum(r.runs)", ""},
    sum_figure{"balls", "sum(r.balls)", ""},
    sum_figure{"average", "sum(r.runs) * 1.0 / nullif(sum(1 - r.unbroken), 0)", "", figure_kind::rate},
    sum_figure{"hundreds", "sum(r.runs >= 100)", ""},
    sum_figure{"fifties", "sum(r.runs >= 50 AND r.runs < 100)", ""},
    sum_figure{"highest", "max(r.runs)", ""},
};

constexpr std::array meeting_figures = {
    sum_figure{"matches", "count(DISTINCT r.match_id)", ""},
    sum_figure{"runs", "sum(r.runs)", ""},
    sum_figure{"balls", "sum(r.balls)", ""},
    sum_figure{"outs", "sum(r.outs)", ""},
    sum_figure{"average", "sum(r.runs) * 1.0 / nullif(sum(r.outs), 0)", "", figure_kind::rate},
    sum_figure{"strike_rate", "sum(r.runs) * 100.0 / nullif(sum(r.balls), 0)", "", figure_kind::rate},
    sum_figure{"dots", "sum(r.dots)", ""},
    sum_figure{"fours", "sum(r.fours)", ""},
    sum_figure{"sixes", "sum(r.sixes)", ""},
};

constexpr std::array<row_source, 6> sources = {{
    {rows_of::matches, "matches", "match_row m", "", "", "m.id", "", "", match_fields, match_figures, "Matches"},
    {rows_of::innings, "innings", "innings_row r", "team, match_id, innings", "", "r.match_id, r.innings", "", "",
     innings_fields, innings_figures, "Innings of teams"},
    {rows_of::batting, "batting", "batting_row r", "player, match_id, innings, position", "",
     "r.match_id, r.innings, r.position", "batting_sums s", "runs", batting_fields, batting_figures,
     "Innings of batsmen"},
    {rows_of::bowling, "bowling", "bowling_row r", "player, match_id, innings, position", "r.came_on > 0",
     "r.match_id, r.innings, r.position", "bowling_sums s", "figures", bowling_fields, bowling_figures,
     "Figures of bowlers"},
    {rows_of::stands, "stands", "stand_row r", "match_id, innings, wicket",
     "r.player1 <> (SELECT id FROM name WHERE text = '')", "r.match_id, r.innings, r.wicket", "", "runs", stand_fields,
     stand_figures, "Stands"},
    {rows_of::meetings, "meetings", "meeting_row r", "player, match_id, innings, position, bowler_position", "",
     "r.match_id, r.innings, r.position, r.bowler_position", "", "", meeting_fields, meeting_figures,
     "Batsmen against bowlers"},
}};

template <class Part>
std::vector<std::string> names_of(std::span<const Part> parts) {
  std::vector<std::string> names;
  for (const Part& part : parts) names.emplace_back(part.name);
  return names;
}

template <class Part>
const Part* named(std::span<const Part> parts, std::string_view name) {
  const auto found = std::find_if(parts.begin(), parts.end(), [&](const Part& part) { return part.name == name; });
  return found == parts.end() ? nullptr : &*found;
}

template <class Part>
const Part& required(std::span<const Part> parts, std::string_view name, const std::string& what) {
  if (const Part* found = named(parts, name)) return *found;
  throw question_error("Unknown " + what, std::string(name), names_of(parts));
}

}  // namespace

const row_source& source_of(rows_of from) { return sources.at(static_cast<std::size_t>(from)); }

const row_field* find_field(const row_source& source, std::string_view name) { return named(source.fields, name); }
const sum_figure* find_figure(const row_source& source, std::string_view name) { return named(source.figures, name); }

const row_field& field_of(const row_source& source, std::string_view name) {
  return required(source.fields, name, "field of " + std::string(source.name));
}

const sum_figure& figure_of(const row_source& source, std::string_view name) {
  return required(source.figures, name, "figure of " + std::string(source.name));
}

std::optional<rows_of> source_named(std::string_view name) {
  for (const row_source& source : sources) {
    if (source.name == name) return source.from;
  }
  return std::nullopt;
}

std::string_view source_name(rows_of from) { return source_of(from).name; }
std::vector<std::string> row_fields(rows_of from) { return names_of(source_of(from).fields); }
std::vector<std::string> sum_figures(rows_of from) { return names_of(source_of(from).figures); }

}  // namespace velorin
