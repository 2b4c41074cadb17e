// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/told_match.h"

#include <fmt/format.h>

#include <algorithm>
#include <map>
#include <stdexcept>
#include <string_view>
#include <utility>
#include <vector>

#include "model/code_page.h"

namespace velorin::testing {

namespace {

using nlohmann::json;

std::string bytes(const json& text) { return from_utf8(text.get<std::string>()).value(); }

/// What stands behind `mark` in a text; nothing where it does not stand there.
std::string behind(const std::string& text, std::string_view mark) {
  const std::size_t at = text.find(mark);
  return at == std::string::npos ? std::string() : text.substr(at + mark.size());
}

/// How a man was out, from the two parts of his line on the card.
void tell_dismissal(archived_batsman& man, const std::string& how, const std::string& fielder) {
  man.out = !how.empty() && how != "not out";
  if (!man.out) {
    man.how = how.empty() ? dismissal::none : dismissal::not_out;
  } else if (how.starts_with(" run out (")) {
    man.how = dismissal::run_out;
    man.fielder = behind(how, "(");
    man.fielder.pop_back();
  } else if (how.starts_with(" lbw ")) {
    man.how = dismissal::leg_before;
    man.bowler = behind(how, " lbw ");
  } else if (how.starts_with(" c && b ")) {
    man.how = dismissal::caught_and_bowled;
    man.bowler = man.fielder = behind(how, " c && b ");
  } else if (fielder.starts_with(" st ")) {
    man.how = dismissal::stumped;
    man.bowler = behind(how, " b ");
    man.fielder = behind(fielder, " st ");
  } else if (fielder.starts_with(" c ")) {
    man.how = dismissal::caught;
    man.bowler = behind(how, " b ");
    man.fielder = behind(fielder, " c ");
  } else if (how.starts_with(" b ")) {
    man.how = dismissal::bowled;
    man.bowler = behind(how, " b ");
  } else {
    throw std::logic_error("no dismissal: " + how + fielder);
  }
}

struct told_ball {
  std::string bowler;
  std::string batsman;
  std::string what;

  /// Such a ball is told with the man whom it has brought to the striker's end.
  bool is_odd_bye() const { return what.ends_with("Bye(s).") && std::stoi(what) % 2 == 1; }
  bool is_faced() const { return what != "Wide." && what != "no ball."; }
  int off_the_bat() const {
    const bool runs = what.ends_with(" run.") || what.ends_with(" runs.");
    return runs && what != "no run." ? std::stoi(what) : 0;
  }
};

std::vector<told_ball> balls_in(const json& lines) {
  std::vector<told_ball> balls;
  for (const json& line : lines) {
    const std::string words = bytes(line);
    const std::size_t to = words.find(" to ");
    const std::size_t colon = words.find(" : ");
    if (to == std::string::npos || colon == std::string::npos || to > colon) continue;
    balls.push_back({words.substr(0, to), words.substr(to + 4, colon - to - 4), words.substr(colon + 3)});
  }
  return balls;
}

int position_of(const std::vector<archived_batsman>& men, const std::string& name) {
  const auto man = std::find_if(men.begin(), men.end(), [&](const auto& one) { return one.player == name; });
  return man == men.end() ? 0 : man->position;
}

int place_of(const std::vector<archived_bowler>& men, const std::string& name) {
  const auto man = std::find_if(men.begin(), men.end(), [&](const auto& one) { return one.player == name; });
  return man == men.end() ? 0 : static_cast<int>(man - men.begin()) + 1;
}

/// Gives byes that were run an odd number of times to the man who faced them: of the two at the crease the other one.
/// Men come in as they stand on the card.
void give_odd_byes(std::vector<told_ball>& balls, const std::vector<archived_batsman>& men) {
  std::vector<std::string> in;  // at the crease
  std::size_t next = 0;
  for (told_ball& ball : balls) {
    while (in.size() < 2 && next < men.size()) in.push_back(men[next++].player);
    if (ball.is_odd_bye()) ball.batsman = in.at(0) == ball.batsman ? in.at(1) : in.at(0);
    if (ball.what == "Wicket!") std::erase(in, ball.batsman);
  }
}

/// What the commentary tells beside the cards.
void tell_balls(archived_innings& innings, std::vector<told_ball> balls) {
  give_odd_byes(balls, innings.batting);
  std::map<std::pair<int, int>, archived_meeting> meetings;
  std::map<std::string, std::pair<int, int>> made;  // runs and balls of each man so far
  int came_on = 0;
  for (const told_ball& ball : balls) {
    archived_bowler& bowler = innings.bowling.at(static_cast<std::size_t>(place_of(innings.bowling, ball.bowler)) - 1);
    if (bowler.came_on == 0) bowler.came_on = ++came_on;
    if (!ball.is_faced()) continue;
    const int position = position_of(innings.batting, ball.batsman);
    archived_batsman& man = *std::find_if(innings.batting.begin(), innings.batting.end(),
                                          [&](const auto& one) { return one.position == position; });
    archived_meeting& one = meetings[{position, place_of(innings.bowling, ball.bowler)}];
    one.position = position;
    one.bowler_position = place_of(innings.bowling, ball.bowler);
    const int runs = ball.off_the_bat();
    ++one.balls;
    one.runs += runs;
    one.dots += runs == 0 ? 1 : 0;
    one.fours += runs == 4 ? 1 : 0;
    one.sixes += runs == 6 ? 1 : 0;
    one.outs += ball.what == "Wicket!" && man.how != dismissal::run_out ? 1 : 0;
    auto& [score, faced] = made[ball.batsman];
    score += runs;
    ++faced;
    if (score >= 50 && man.fifty_balls == 0) man.fifty_balls = faced;
    if (score >= 100 && man.hundred_balls == 0) man.hundred_balls = faced;
  }
  for (const auto& [men, one] : meetings) innings.meetings.push_back(one);
}

archived_innings told_innings(const json& state, const std::string& prefix, const char* commentary) {
  archived_innings innings;
  int position = 0;
  for (const json& line : state.at(prefix + "batting_card")) {
    ++position;
    if (line.at("name") == "") continue;
    archived_batsman& man = innings.batting.emplace_back();
    man.player = bytes(line.at("name"));
    man.position = position;
    man.runs = line.at("runs");
    man.balls = line.at("balls");
    man.dots = line.at("dots");
    man.ones = line.at("singles");
    man.twos = line.at("twos");
    man.threes = line.at("threes");
    man.fours = line.at("fours");
    man.sixes = line.at("sixes");
    tell_dismissal(man, bytes(line.at("how_out")), bytes(line.at("fielder")));
    man.not_out = man.how == (prefix.empty() ? dismissal::none : dismissal::not_out);
  }
  for (const json& line : state.at(prefix + "bowling_card")) {
    innings.bowling.push_back({.player = bytes(line.at("name")),
                               .came_on = 0,
                               .balls = line.at("balls"),
                               .maidens = line.at("maidens"),
                               .runs = line.at("runs"),
                               .wickets = line.at("wickets")});
  }
  tell_balls(innings, balls_in(state.at(commentary)));
  return innings;
}

void tell_stands(archived_innings& innings, const json& falls) {
  for (int wicket = 1; wicket <= innings.wickets; ++wicket) {
    const json& line = falls.at(static_cast<std::size_t>(wicket));
    innings.stands.push_back({.runs = line.at("partner_runs"),
                              .balls = line.at("partner_balls"),
                              .score = line.at("score"),
                              .at_balls = line.at("balls"),
                              .unbroken = false,
                              .overs = {},
                              .player1 = bytes(line.at("batsman_a")),
                              .player2 = bytes(line.at("batsman_b"))});
  }
}

/// Collects what differs.
class comparison {
 public:
  explicit comparison(std::string& told) : told_(told) {}

  template <class Value>
  void operator()(const char* what, const Value& kept, const Value& wanted) {
    if (!(kept == wanted)) told_ += fmt::format("{}{}: {} and not {}\n", where, what, kept, wanted);
  }

  std::string where;

 private:
  std::string& told_;
};

void compare_men(comparison& same, const archived_innings& kept, const archived_innings& told) {
  same("men in", kept.batting.size(), told.batting.size());
  for (std::size_t i = 0; i < std::min(kept.batting.size(), told.batting.size()); ++i) {
    const archived_batsman& a = kept.batting[i];
    const archived_batsman& b = told.batting[i];
    same("player", a.player, b.player);
    same("position", a.position, b.position);
    same("out", a.out, b.out);
    same("not_out", a.not_out, b.not_out);
    same("how", static_cast<int>(a.how), static_cast<int>(b.how));
    same("bowler", a.bowler, b.bowler);
    same("fielder", a.fielder, b.fielder);
    for (const auto& [name, figure] : {std::pair("runs", &archived_batsman::runs),
                                       {"balls", &archived_batsman::balls},
                                       {"dots", &archived_batsman::dots},
                                       {"ones", &archived_batsman::ones},
                                       {"twos", &archived_batsman::twos},
                                       {"threes", &archived_batsman::threes},
                                       {"fours", &archived_batsman::fours},
                                       {"sixes", &archived_batsman::sixes},
                                       {"fifty_balls", &archived_batsman::fifty_balls},
                                       {"hundred_balls", &archived_batsman::hundred_balls}}) {
      same(name, a.*figure, b.*figure);
    }
  }
  same("bowlers", kept.bowling.size(), told.bowling.size());
  for (std::size_t i = 0; i < std::min(kept.bowling.size(), told.bowling.size()); ++i) {
    const archived_bowler& a = kept.bowling[i];
    const archived_bowler& b = told.bowling[i];
    same("bowler's name", a.player, b.player);
    same("came_on", a.came_on, b.came_on);
    same("bowled", a.balls, b.balls);
    same("maidens", a.maidens, b.maidens);
    same("conceded", a.runs, b.runs);
    same("taken", a.wickets, b.wickets);
  }
}

void compare_rest(comparison& same, const archived_innings& kept, const archived_innings& told) {
  same("team", kept.team, told.team);
  for (const auto& [name, figure] : {std::pair("runs", &archived_innings::runs),
                                     {"wickets", &archived_innings::wickets},
                                     {"balls", &archived_innings::balls},
                                     {"wides", &archived_innings::wides},
                                     {"no_balls", &archived_innings::no_balls},
                                     {"byes", &archived_innings::byes},
                                     {"leg_byes", &archived_innings::leg_byes}}) {
    same(name, kept.*figure, told.*figure);
  }
  for (std::size_t i = 0; i < told.stands.size(); ++i) {
    const archived_stand& a = kept.stands.at(i);
    const archived_stand& b = told.stands[i];
    same("stand",
         fmt::format("{} {} {} {} {} {} {}", a.runs, a.balls, a.score, a.at_balls, a.unbroken, a.player1, a.player2),
         fmt::format("{} {} {} {} {} {} {}", b.runs, b.balls, b.score, b.at_balls, b.unbroken, b.player1, b.player2));
  }
  same("meetings", kept.meetings.size(), told.meetings.size());
  for (std::size_t i = 0; i < std::min(kept.meetings.size(), told.meetings.size()); ++i) {
    const auto text = [](const archived_meeting& one) {
      return fmt::format("{}/{}: {} {} {} {} {} {}", one.position, one.bowler_position, one.balls, one.runs, one.dots,
                         one.fours, one.sixes, one.outs);
    };
    same("meeting", text(kept.meetings[i]), text(told.meetings[i]));
  }
  int over_runs = 0;
  int over_wickets = 0;
  for (const archived_over& over : kept.overs) {
    over_runs += over.runs;
    over_wickets += over.wickets;
  }
  same("runs of the overs", over_runs, told.runs);
  same("wickets of the overs", over_wickets, told.wickets);
}

}  // namespace

archived_match told_match(const json& state, const json& result) {
  archived_match match;
  match.ground = bytes(state.at("venue_name"));
  match.weather = state.at("weather");
  match.pitch_surface = state.at("pitch_surface");
  match.pitch_bounce = state.at("pitch_bounce");
  match.outfield = state.at("outfield");
  match.winner = bytes(result.at("result_winner"));
  match.margin = bytes(result.at("result_margin"));
  archived_innings& first = match.innings[0];
  first = told_innings(state, "first_", "commentary_store");
  first.team = bytes(state.at("team2_name"));
  first.runs = state.at("first_total");
  first.wickets = state.at("first_wickets");
  first.balls = state.at("first_balls");
  first.wides = state.at("first_wides");
  first.no_balls = state.at("first_no_balls");
  first.byes = state.at("first_byes");
  first.leg_byes = state.at("first_leg_byes");
  tell_stands(first, state.at("first_fall_of_wicket"));
  archived_innings& second = match.innings[1];
  second = told_innings(state, "", "ball_commentary");
  second.team = bytes(state.at("team1_name"));
  second.runs = state.at("score_runs");
  second.wickets = state.at("score_wickets");
  second.balls = state.at("innings_balls");
  second.wides = state.at("innings_wides");
  second.no_balls = state.at("innings_no_balls");
  second.byes = state.at("innings_byes");
  second.leg_byes = state.at("innings_leg_byes");
  tell_stands(second, state.at("fall_of_wicket"));
  return match;
}

std::string differences_of(const archived_match& kept, const archived_match& told) {
  std::string differences;
  comparison same(differences);
  same("ground", kept.ground, told.ground);
  same("weather", kept.weather, told.weather);
  same("pitch_surface", kept.pitch_surface, told.pitch_surface);
  same("pitch_bounce", kept.pitch_bounce, told.pitch_bounce);
  same("outfield", kept.outfield, told.outfield);
  same("winner", kept.winner, told.winner);
  same("margin", kept.margin, told.margin);
  same("competition", kept.competition, told.competition);
  same("stage", kept.stage, told.stage);
  same("number", kept.number, told.number);
  same("country", kept.country, told.country);
  for (const int innings : {0, 1}) {
    same.where = fmt::format("innings {}, ", innings + 1);
    compare_men(same, kept.innings.at(innings), told.innings.at(innings));
    compare_rest(same, kept.innings.at(innings), told.innings.at(innings));
  }
  return differences;
}

}  // namespace velorin::testing
