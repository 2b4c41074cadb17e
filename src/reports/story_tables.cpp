// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/story_tables.h"

#include <array>
#include <cstddef>
#include <utility>

#include <fmt/format.h>

#include "model/texts.h"
#include "reports/innings_views.h"
#include "reports/match_story.h"

namespace velorin {

namespace {

story_column text(const std::string& heading, bool wide = false) {
  return {.heading = heading, .spoken = heading, .wide = wide};
}
story_column number(std::string heading, std::string spoken) {
  return {.heading = std::move(heading), .spoken = std::move(spoken), .numbers = true};
}

std::string at(const std::array<std::string, men_in_eleven + 1>& men, int position) {
  return position >= 1 && position <= men_in_eleven ? men[static_cast<std::size_t>(position)] : std::string();
}

std::string rate_text(std::optional<double> rate) { return rate ? fmt::format("{:.2f}", *rate) : std::string(); }
std::string rate_text(int runs, int balls, double per) {
  return balls == 0 ? std::string() : fmt::format("{:.2f}", per * runs / balls);
}

std::string overs_text(int first, int last) {
  return first == last ? number_text(first) : fmt::format("{}-{}", first, last);
}

story_row phase_row(std::string name, const ball_figures& of) {
  return {{std::move(name), number_text(of.runs), number_text(of.wickets), overs_from_balls(of.balls),
           rate_text(of.rate()), number_text(of.dots), number_text(of.fours), number_text(of.sixes)}};
}

void add(ball_figures& to, const ball_figures& of) {
  to.runs += of.runs;
  to.balls += of.balls;
  to.wickets += of.wickets;
  to.dots += of.dots;
  to.fours += of.fours;
  to.sixes += of.sixes;
}

story_row kinds_row(std::string name, int runs, const kinds_of_runs& kinds) {
  story_row row{{std::move(name), number_text(runs)}};
  for (const int figure : {kinds.dots, kinds.ones, kinds.twos, kinds.threes, kinds.fours, kinds.sixes, kinds.byes,
                           kinds.leg_byes, kinds.wides, kinds.no_balls}) {
    row.cells.push_back(number_text(figure));
  }
  return row;
}

std::string share_text(const innings_story& innings, const stand::share& part) {
  return fmt::format("{} {} ({})", at(innings.batting, part.position), part.runs, part.balls);
}

}  // namespace

story_table phases_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", phases"};
  table.columns = {text("Overs", true),       number("R", "Runs"),  number("W", "Wickets"), number("O", "Overs bowled"),
                   number("RPO", "Run rate"), number("0s", "Dots"), number("4s", "Fours"),  number("6s", "Sixes")};
  ball_figures all;
  for (const phase& one : phases_of(innings.deliveries)) {
    table.rows.push_back(phase_row(overs_text(one.first_over, one.last_over), one.figures));
    table.rows.back().first_over = one.first_over;
    table.rows.back().last_over = one.last_over;
    add(all, one.figures);
  }
  table.rows.push_back(phase_row("Innings", all));
  table.rows.back().total = true;
  return table;
}

story_table stands_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", stands"};
  table.columns = {number("Wicket", "Wicket"), number("R", "Runs"),   number("B", "Balls"), number("RPO", "Run rate"),
                   text("Batsman", true),      text("Partner", true), number("x", "Extras")};
  for (const stand& one : stands_of(innings.deliveries)) {
    table.rows.push_back(
        {{number_text(one.wicket), number_text(one.runs) + (one.unbroken ? "*" : ""), number_text(one.balls),
          rate_text(one.runs, one.balls, balls_of_over), share_text(innings, one.parts[0]),
          share_text(innings, one.parts[1]), number_text(one.body_extras)}});
  }
  return table;
}

story_table meetings_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", batsman against bowler"};
  table.columns = {text("Batsman"),       text("Bowler", true),        number("R", "Runs"),
                   number("B", "Balls"),  number("0s", "Dots"),        number("4s", "Fours"),
                   number("6s", "Sixes"), number("SR", "Strike rate"), text("Out")};
  for (const meeting& one : meetings_of(innings.deliveries)) {
    table.rows.push_back({{at(innings.batting, one.batsman), at(innings.bowling, one.bowler), number_text(one.runs),
                           number_text(one.balls), number_text(one.dots), number_text(one.fours),
                           number_text(one.sixes), rate_text(one.runs, one.balls, 100), one.out ? "out" : ""}});
  }
  return table;
}

story_table spells_story(const innings_story& innings) {
  story_table table{.name = innings.card.bowling_side + ", spells"};
  table.columns = {text("Bowler", true), text("Overs"),          number("O", "Overs bowled"), number("M", "Maidens"),
                   number("R", "Runs"),  number("W", "Wickets"), number("Econ", "Economy")};
  for (const spell& one : spells_of(innings.deliveries)) {
    table.rows.push_back({{at(innings.bowling, one.bowler), overs_text(one.first_over, one.last_over),
                           overs_from_balls(one.balls), number_text(one.maidens), number_text(one.runs),
                           number_text(one.wickets), rate_text(one.runs, one.balls, balls_of_over)},
                          one.first_over,
                          one.last_over});
  }
  return table;
}

story_table kinds_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", types of runs"};
  table.columns = {text("Batsman", true), number("R", "Runs"),      number("0s", "Dots"),  number("1s", "Singles"),
                   number("2s", "Twos"),  number("3s", "Threes"),   number("4s", "Fours"), number("6s", "Sixes"),
                   number("b", "Byes"),   number("lb", "Leg byes"), number("wd", "Wides"), number("nb", "No balls")};
  for (const reported_batsman& man : innings.card.batsmen) {
    const kinds_of_runs kinds = kinds_of(innings.deliveries, man.position);
    table.rows.push_back(kinds_row(man.name, kinds.off_the_bat(), kinds));
  }
  const kinds_of_runs all = kinds_of(innings.deliveries);
  table.rows.push_back(kinds_row("Innings", all.runs(), all));
  table.rows.back().total = true;
  return table;
}

story_table scorebook_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", scorebook"};
  table.columns = {number("Over", "Over"), text("Bowler"),         text("Balls", true),
                   number("R", "Runs"),    number("W", "Wickets"), number("Score", "Score")};
  for (const scorebook_over& one : scorebook_of(innings.deliveries)) {
    std::string balls;
    for (const std::string& symbol : one.symbols) balls += (balls.empty() ? "" : " ") + symbol;
    table.rows.push_back({{number_text(one.over), at(innings.bowling, one.bowler), balls + (one.maiden ? "  M" : ""),
                           number_text(one.runs), number_text(one.wickets), fmt::format("{}/{}", one.score, one.down)},
                          one.over,
                          one.over});
  }
  return table;
}

story_table overs_story(const innings_story& innings) {
  story_table table{.name = innings.card.side + ", over by over"};
  table.columns = {number("Over", "Over"),
                   text("Bowler", true),
                   number("R", "Runs"),
                   number("W", "Wickets"),
                   number("Score", "Score"),
                   number("RPO", "Run rate"),
                   number("RR Reqd.", "Required rate")};
  for (const story_over& one : innings.overs) {
    table.rows.push_back(
        {{number_text(one.over), at(innings.bowling, one.bowler), number_text(one.runs), number_text(one.wickets),
          fmt::format("{}/{}", one.score, one.down), rate_text(one.run_rate), rate_text(one.required_rate)},
         one.over,
         one.over});
  }
  return table;
}

story_table notes_story(const match_story& match) {
  story_table table{.name = "Milestones"};
  table.columns = {text("Milestone"), text("Player", true), text("Team"), number("Figures", "Figures")};
  for (const reported_milestone& one : match.milestones) {
    table.rows.push_back({{one.what, one.player, one.side, one.figures}});
  }
  return table;
}

std::string words_of(const story_table& table) {
  std::string words = table.name + ".";
  if (table.rows.empty()) return words + " Nothing yet.";
  for (const story_row& row : table.rows) {
    std::string sentence;
    for (std::size_t i = 0; i < row.cells.size(); ++i) {
      if (row.cells[i].empty()) continue;
      const story_column& column = table.columns[i];
      sentence += sentence.empty() ? "" : ", ";
      sentence += column.numbers ? column.spoken + " " + row.cells[i] : row.cells[i];
    }
    words += " " + sentence + ".";
  }
  return words;
}

std::optional<int> row_of_over(const story_table& table, int over) {
  for (std::size_t i = 0; i < table.rows.size(); ++i) {
    const story_row& row = table.rows[i];
    if (row.first_over != 0 && row.first_over <= over && over <= row.last_over) return static_cast<int>(i);
  }
  return std::nullopt;
}

}  // namespace velorin
