// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/second_telling.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <set>
#include <stdexcept>

#include "archive/archive_fixture.h"
#include "model/code_page.h"
#include "model/rounding.h"
#include "model/texts.h"

namespace velorin::testing {

namespace {

/// A value that sorts: a number, a text, or neither.
struct value {
  std::optional<double> number;
  std::string text;

  std::string shown() const { return number ? number_text(round_to(*number, 2)) : text; }
};

using row = std::map<std::string, value>;

value of(double number) { return {number, {}}; }
value of(const std::string& text) { return {std::nullopt, to_utf8(text)}; }
value ratio(double dividend, double divisor) {
  return divisor == 0 ? value{std::nullopt, " - "} : of(dividend / divisor);
}

std::string result_of(const archived_match& match, const std::string& team) {
  return match.winner.empty() ? "tied" : match.winner == team ? "won" : "lost";
}

/// What every row has of its match, and of its side.
row side_row(const archived_match& match, int innings, const std::string& team, const std::string& opponent) {
  return {{"match_id", of(static_cast<double>(match.id))},
          {"innings", of(innings)},
          {"team", of(team)},
          {"opponent", of(opponent)},
          {"result", of(result_of(match, team))},
          {"ground", of(match.ground)},
          {"country", of(match.country)},
          {"competition", of(match.competition)},
          {"stage", of(match.stage)},
          {"human", of(int(match.human))}};
}

row match_row(const archived_match& match) {
  const archived_innings& a = match.innings[0];
  const archived_innings& b = match.innings[1];
  return {{"id", of(static_cast<double>(match.id))},
          {"competition", of(match.competition)},
          {"stage", of(match.stage)},
          {"ground", of(match.ground)},
          {"country", of(match.country)},
          {"first", of(a.team)},
          {"second", of(b.team)},
          {"winner", of(match.winner)},
          {"margin", of(match.margin)},
          {"first_runs", of(a.runs)},
          {"first_wickets", of(a.wickets)},
          {"first_balls", of(a.balls)},
          {"second_runs", of(b.runs)},
          {"second_wickets", of(b.wickets)},
          {"second_balls", of(b.balls)},
          {"human", of(int(match.human))},
          {"runs", of(a.runs + b.runs)},
          {"wickets", of(a.wickets + b.wickets)},
          {"difference", of(std::abs(a.runs - b.runs))}};
}

row innings_row(row with, const archived_innings& innings) {
  int fours = 0;
  int sixes = 0;
  int top = 0;
  int hundreds = 0;
  for (const archived_batsman& man : innings.batting) {
    fours += man.fours;
    sixes += man.sixes;
    top = std::max(top, man.runs);
    hundreds += man.runs >= 100 ? 1 : 0;
  }
  with.insert({{"runs", of(innings.runs)},
               {"wickets", of(innings.wickets)},
               {"balls", of(innings.balls)},
               {"wides", of(innings.wides)},
               {"no_balls", of(innings.no_balls)},
               {"byes", of(innings.byes)},
               {"leg_byes", of(innings.leg_byes)},
               {"extras", of(innings.byes + innings.leg_byes)},
               {"fours", of(fours)},
               {"sixes", of(sixes)},
               {"top_score", of(top)},
               {"hundreds", of(hundreds)}});
  return with;
}

row batting_row(row with, const archived_batsman& man) {
  with.insert({{"position", of(man.position)},
               {"player", of(man.player)},
               {"out", of(int(man.out))},
               {"not_out", of(int(man.not_out))},
               {"how_out", of(std::string(how_out_name(man)))},
               {"bowler", of(man.bowler)},
               {"fielder", of(man.fielder)},
               {"runs", of(man.runs)},
               {"balls", of(man.balls)},
               {"dots", of(man.dots)},
               {"ones", of(man.ones)},
               {"twos", of(man.twos)},
               {"threes", of(man.threes)},
               {"fours", of(man.fours)},
               {"sixes", of(man.sixes)},
               {"boundaries", of(man.fours + man.sixes)},
               {"fifty_balls", of(man.fifty_balls)},
               {"hundred_balls", of(man.hundred_balls)},
               {"strike_rate", ratio(man.runs * 100.0, man.balls)}});
  return with;
}

row bowling_row(row with, const archived_bowler& man) {
  with.insert({{"player", of(man.player)},
               {"balls", of(man.balls)},
               {"maidens", of(man.maidens)},
               {"runs", of(man.runs)},
               {"wickets", of(man.wickets)},
               {"figures", of(man.wickets * 10000 - man.runs)},
               {"economy", ratio(man.runs * 6.0, man.balls)}});
  return with;
}

row meeting_row(row with, const archived_innings& innings, const archived_meeting& one) {
  const auto man = std::find_if(innings.batting.begin(), innings.batting.end(),
                                [&](const archived_batsman& batsman) { return batsman.position == one.position; });
  with.insert({{"player", of(man->player)},
               {"bowler", of(innings.bowling.at(static_cast<std::size_t>(one.bowler_position) - 1).player)},
               {"balls", of(one.balls)},
               {"runs", of(one.runs)},
               {"dots", of(one.dots)},
               {"fours", of(one.fours)},
               {"sixes", of(one.sixes)},
               {"outs", of(one.outs)}});
  return with;
}

row stand_row(row with, const archived_stand& stand, int wicket) {
  with.insert({{"wicket", of(wicket)},
               {"runs", of(stand.runs)},
               {"player1", of(stand.player1)},
               {"player2", of(stand.player2)},
               {"unbroken", of(int(stand.unbroken))}});
  return with;
}

std::vector<row> rows_of_match(const archived_match& match, rows_of from) {
  if (from == rows_of::matches) return {match_row(match)};
  std::vector<row> rows;
  for (int number = 1; number <= 2; ++number) {
    const archived_innings& innings = match.innings[static_cast<std::size_t>(number) - 1];
    const std::string& other = match.innings[static_cast<std::size_t>(2 - number)].team;
    const row batting_side = side_row(match, number, innings.team, other);
    const row bowling_side = side_row(match, number, other, innings.team);
    if (from == rows_of::innings) rows.push_back(innings_row(batting_side, innings));
    if (from == rows_of::batting) {
      for (const archived_batsman& man : innings.batting) rows.push_back(batting_row(batting_side, man));
    }
    if (from == rows_of::bowling) {
      for (const archived_bowler& man : innings.bowling) {
        if (man.came_on > 0) rows.push_back(bowling_row(bowling_side, man));
      }
    }
    if (from == rows_of::meetings) {
      for (const archived_meeting& one : innings.meetings) rows.push_back(meeting_row(batting_side, innings, one));
    }
    if (from == rows_of::stands) {
      for (std::size_t i = 0; i < innings.stands.size(); ++i) {
        if (innings.stands[i].is_there()) {
          rows.push_back(stand_row(batting_side, innings.stands[i], static_cast<int>(i) + 1));
        }
      }
    }
  }
  return rows;
}

bool meets(const row& one, const condition& part) {
  const value& has = one.at(part.field);
  if (part.op == "~") return has.shown().find(part.value) != std::string::npos;
  const int way = has.number ? (*has.number > std::stod(part.value)) - (*has.number < std::stod(part.value))
                             : has.text.compare(part.value);
  if (part.op == "=") return way == 0;
  if (part.op == "!=") return way != 0;
  if (part.op == "<") return way < 0;
  if (part.op == "<=") return way <= 0;
  if (part.op == ">") return way > 0;
  if (part.op == ">=") return way >= 0;
  throw std::logic_error("no operator " + part.op);
}

double sum(const std::vector<row>& rows, const std::string& field) {
  double all = 0;
  for (const row& one : rows) all += *one.at(field).number;
  return all;
}

double count(const std::vector<row>& rows, const std::function<bool(const row&)>& is) {
  return static_cast<double>(std::count_if(rows.begin(), rows.end(), is));
}

double number(const row& one, const std::string& field) { return *one.at(field).number; }

void add_scores(row& told, const std::vector<row>& rows) {
  told["hundreds"] = of(count(rows, [](const row& r) { return number(r, "runs") >= 100; }));
  told["fifties"] = of(count(rows, [](const row& r) { return number(r, "runs") >= 50 && number(r, "runs") < 100; }));
}

void add_batting(row& told, const std::vector<row>& rows) {
  const double not_outs = sum(rows, "not_out");
  told["not_outs"] = of(not_outs);
  told["average"] = ratio(sum(rows, "runs"), static_cast<double>(rows.size()) - not_outs);
  told["strike_rate"] = ratio(sum(rows, "runs") * 100, sum(rows, "balls"));
  told["ducks"] = of(count(rows, [](const row& r) { return number(r, "runs") == 0 && number(r, "out") == 1; }));
  told["fours"] = of(sum(rows, "fours"));
  told["sixes"] = of(sum(rows, "sixes"));
  add_scores(told, rows);
  const row& best = *std::max_element(rows.begin(), rows.end(), [](const row& a, const row& b) {
    return std::pair(number(a, "runs"), number(a, "not_out")) < std::pair(number(b, "runs"), number(b, "not_out"));
  });
  told["best"] = {std::nullopt, best.at("runs").shown() + (number(best, "not_out") == 1 ? "*" : "")};
}

void add_bowling(row& told, const std::vector<row>& rows) {
  told["overs"] = {std::nullopt, overs_from_balls(static_cast<long>(sum(rows, "balls")))};
  told["maidens"] = of(sum(rows, "maidens"));
  told["wickets"] = of(sum(rows, "wickets"));
  told["average"] = ratio(sum(rows, "runs"), sum(rows, "wickets"));
  told["strike_rate"] = ratio(sum(rows, "balls"), sum(rows, "wickets"));
  told["economy"] = ratio(sum(rows, "runs") * 6, sum(rows, "balls"));
  told["five_wickets"] = of(count(rows, [](const row& r) { return number(r, "wickets") >= 5; }));
  const row& best = *std::max_element(rows.begin(), rows.end(), [](const row& a, const row& b) {
    return std::pair(number(a, "wickets"), -number(a, "runs")) < std::pair(number(b, "wickets"), -number(b, "runs"));
  });
  told["best"] = {std::nullopt, best.at("wickets").shown() + "/" + best.at("runs").shown()};
}

void add_innings(row& told, const std::vector<row>& rows) {
  for (const char* name : {"won", "lost", "tied"}) {
    told[name] = of(count(rows, [&](const row& r) { return r.at("result").text == name; }));
  }
  told["wickets"] = of(sum(rows, "wickets"));
  told["average"] = ratio(sum(rows, "runs"), sum(rows, "wickets"));
  told["run_rate"] = ratio(sum(rows, "runs") * 6, sum(rows, "balls"));
}

row summed(const std::vector<row>& rows, const question& asked) {
  row told;
  for (const std::string& name : asked.by) told[name] = rows.front().at(name);
  if (asked.from == rows_of::matches) {
    told["matches"] = of(static_cast<double>(rows.size()));
    told["runs"] = of(sum(rows, "runs"));
    return told;
  }
  std::set<std::string> matches;
  for (const row& one : rows) matches.insert(one.at("match_id").shown());
  told["matches"] = of(static_cast<double>(matches.size()));
  told["runs"] = of(sum(rows, "runs"));
  if (asked.from == rows_of::meetings) {
    told["balls"] = of(sum(rows, "balls"));
    told["outs"] = of(sum(rows, "outs"));
    told["average"] = ratio(sum(rows, "runs"), sum(rows, "outs"));
    told["strike_rate"] = ratio(sum(rows, "runs") * 100, sum(rows, "balls"));
    for (const char* name : {"dots", "fours", "sixes"}) told[name] = of(sum(rows, name));
    return told;
  }
  if (asked.from != rows_of::stands) {
    told["innings"] = of(static_cast<double>(rows.size()));
    told["balls"] = of(sum(rows, "balls"));
  }
  if (asked.from == rows_of::batting) add_batting(told, rows);
  if (asked.from == rows_of::bowling) add_bowling(told, rows);
  if (asked.from == rows_of::innings) add_innings(told, rows);
  return told;
}

std::vector<row> grouped(const std::vector<row>& rows, const question& asked) {
  std::map<std::vector<std::string>, std::vector<row>> groups;
  for (const row& one : rows) {
    std::vector<std::string> key;
    for (const std::string& name : asked.by) key.push_back(one.at(name).shown());
    groups[key].push_back(one);
  }
  std::vector<row> told;
  for (const auto& [key, men] : groups) told.push_back(summed(men, asked));
  return told;
}

/// A man has played in matches in which he has neither batted nor bowled: where nothing but man and team is asked for,
/// his matches are those in which he was one of the eleven.
void tell_matches_played(std::vector<row>& rows, const std::vector<archived_match>& matches, const question& asked) {
  const auto is_kept = [](const std::string& name) { return name == "player" || name == "team"; };
  const auto by = [&](const char* name) { return std::find(asked.by.begin(), asked.by.end(), name) != asked.by.end(); };
  const bool of_men = asked.from == rows_of::batting || asked.from == rows_of::bowling;
  if (!of_men || !by("player") || !by("team") || asked.by.size() != 2) return;
  for (const condition& part : asked.where) {
    if (!is_kept(part.field)) return;
  }
  std::map<std::pair<std::string, std::string>, int> played;
  for (const archived_match& match : matches) {
    for (const int innings : {0, 1}) {
      const std::string team = match.innings.at(1 - innings).team;
      for (const archived_bowler& man : match.innings.at(innings).bowling) {
        ++played[{of(man.player).text, of(team).text}];
      }
    }
  }
  for (row& one : rows) one["matches"] = of(played[{one.at("player").text, one.at("team").text}]);
}

}  // namespace

std::vector<told_row> tell(const std::vector<archived_match>& matches, const question& asked) {
  std::vector<row> rows;
  for (const archived_match& match : matches) {
    for (row& one : rows_of_match(match, asked.from)) {
      const bool in = std::all_of(asked.where.begin(), asked.where.end(), [&](const auto& c) { return meets(one, c); });
      if (in) rows.push_back(std::move(one));
    }
  }
  if (!asked.by.empty()) {
    rows = grouped(rows, asked);
    tell_matches_played(rows, matches, asked);
  }
  std::erase_if(rows, [&](const row& one) {
    return !std::all_of(asked.having.begin(), asked.having.end(), [&](const auto& c) { return meets(one, c); });
  });
  // A rate without a divisor comes last.
  if (!asked.sort.empty()) {
    std::stable_sort(rows.begin(), rows.end(), [&](const row& a, const row& b) {
      const value& one = a.at(asked.sort);
      const value& other = b.at(asked.sort);
      if (one.number && other.number) {
        return asked.descending ? *one.number > *other.number : *one.number < *other.number;
      }
      return one.number.has_value() && !other.number.has_value();
    });
  }
  std::vector<told_row> told;
  for (const row& one : rows) {
    told_row& line = told.emplace_back();
    for (const auto& [name, has] : one) line[name] = has.shown();
  }
  return told;
}

}  // namespace velorin::testing
