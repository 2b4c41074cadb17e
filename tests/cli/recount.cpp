// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/recount.h"
#include "support/game_in_play.h"

#include <algorithm>

namespace velorin::testing {

using json = nlohmann::json;

/// One side of a match at its end.
struct recount::side {
  std::string team;
  std::string against;
  std::string venue;
  bool at_home = false;
  const json& batting;
  const json& bowling;
  const json& opposing;
  json falls;
  std::string not_out;  // `how_out` of a man who stood
  int runs = 0;
  int wickets = 0;
  int other_runs = 0;
  int other_wickets = 0;
};

namespace {

int number(const json& object, const char* field) { return object.at(field).get<int>(); }
std::string text(const json& object, const char* field) { return object.at(field).get<std::string>(); }

/// The falls of the second innings, with the stand that its end left unbroken.
json completed_falls(const json& state) {
  json falls = state.at("fall_of_wicket");
  const int wickets = number(state, "score_wickets");
  if (wickets >= 10) return falls;
  const json& men = state.at("batting_xi");
  const int striker = number(state, "striker");
  const int lower = std::min(striker, number(state, "non_striker"));
  json& last = falls[wickets + 1];
  last["batsman_a"] = men[lower - 1].at("name");
  last["batsman_b"] = text(men[striker - 1], "name") + " * ";
  last["partner_runs"] = number(state, "score_runs") - number(falls[wickets], "score");
  last["partner_balls"] = number(state, "innings_balls") - number(falls[wickets], "balls");
  return falls;
}

void add_bowling(career_rec& man, const json& line, const std::string& against) {
  const int wickets = number(line, "wickets");
  const int runs = number(line, "runs");
  man.matches += 1;
  man.wickets += wickets;
  man.balls_bowled += number(line, "balls");
  man.runs_given += runs;
  man.maidens += number(line, "maidens");
  man.five_wickets += wickets > 4 ? 1 : 0;
  if (wickets > man.best_wickets || (wickets == man.best_wickets && runs < man.best_runs)) {
    man.best_wickets = wickets;
    man.best_runs = runs;
    man.best_against = against;
  }
}

void add_batting(career_rec& man, const json& line, bool stood, const std::string& against) {
  const int runs = number(line, "runs");
  man.innings += 1;
  man.not_outs += stood ? 1 : 0;
  man.runs += runs;
  man.balls_faced += number(line, "balls");
  man.fours += number(line, "fours");
  man.sixes += number(line, "sixes");
  man.hundreds += runs > 99 ? 1 : 0;
  man.fifties += runs > 49 && runs < 100 ? 1 : 0;
  const bool better = runs > man.high_score;
  if (better || (runs == man.high_score && stood && man.high_not_out == 0)) {
    man.high_score = runs;
    man.high_against = against;
    if (stood) man.high_not_out = -1;
  }
}

void add_fielding(career_rec& man, const json& opposing) {
  for (const json& line : opposing) {
    const std::string fielder = text(line, "fielder");
    man.catches += fielder == " c " + man.name ? 1 : 0;
    man.catches += text(line, "how_out") == " c && b " + man.name ? 1 : 0;
    man.stumpings += fielder == " st " + man.name ? 1 : 0;
  }
}

}  // namespace

void recount::add(const json& match) {
  const json& state = match.at("scorecards").back();
  const std::string chasing = text(state, "team1_name");
  const std::string setting = text(state, "team2_name");
  const std::string venue = text(state, "venue_name");
  const std::string& home = home_of_.at(venue);
  const int first = number(state, "first_total");
  const int first_wickets = number(state, "first_wickets");
  const int second = number(state, "score_runs");
  const int second_wickets = number(state, "score_wickets");
  const side chase{chasing,
                   setting,
                   venue,
                   chasing == home,
                   state.at("batting_card"),
                   state.at("first_bowling_card"),
                   state.at("first_batting_card"),
                   completed_falls(state),
                   "",
                   second,
                   second_wickets,
                   first,
                   first_wickets};
  const side lead{setting,
                  chasing,
                  venue,
                  setting == home,
                  state.at("first_batting_card"),
                  state.at("bowling_card"),
                  state.at("batting_card"),
                  state.at("first_fall_of_wicket"),
                  "not out",
                  first,
                  first_wickets,
                  second,
                  second_wickets};
  for (const side& played : {chase, lead}) {
    add_careers(played);
    add_stands(played);
    add_win_record(played, match.at("result"));
    add_scores(played);
  }
  add_analyses(lead);
  add_analyses(chase);
  // Of two equal totals the second innings enters as if no wicket had fallen.
  const int counted = number(state, "innings_wickets");
  insert_highest(highest_, {first, first_wickets, setting, chasing}, first_wickets);
  insert_highest(highest_, {second, second_wickets, chasing, setting}, counted);
  insert_lowest(lowest_, {first, first_wickets, setting, chasing}, first_wickets);
  insert_lowest(lowest_, {second, second_wickets, chasing, setting}, counted);
}

void recount::add_careers(const side& played) {
  auto team = std::find_if(careers_.begin(), careers_.end(), [&](const auto& row) { return row.first == played.team; });
  if (team == careers_.end()) team = careers_.insert(careers_.end(), {played.team, {}});
  std::vector<career_rec>& all = team->second;
  const auto find = [&all](const std::string& name) {
    return std::find_if(all.begin(), all.end(), [&](const career_rec& man) { return man.name == name; });
  };
  for (const json& line : played.bowling) {
    auto man = find(text(line, "name"));
    if (man == all.end()) {
      man = all.insert(man, career_rec());
      man->name = text(line, "name");
    }
    add_bowling(*man, line, played.against);
  }
  for (const json& line : played.batting) {
    const auto man = find(text(line, "name"));
    if (man != all.end()) add_batting(*man, line, text(line, "how_out") == played.not_out, played.against);
  }
  for (career_rec& man : all) add_fielding(man, played.opposing);
}

void recount::add_scores(const side& played) {
  for (const json& line : played.batting) {
    if (number(line, "runs") == 0) continue;
    scores_.push_back(
        {number(line, "runs"), number(line, "balls"), text(line, "name"), played.team, played.against, played.venue});
  }
}

void recount::add_analyses(const side& played) {
  for (const json& line : played.bowling) {
    if (number(line, "wickets") == 0) continue;
    analyses_.push_back(
        {number(line, "wickets"), number(line, "runs"), text(line, "name"), played.team, played.against, played.venue});
  }
}

void recount::add_stands(const side& played) {
  for (int wicket = 1; wicket <= 10; ++wicket) {
    const json& fall = played.falls[wicket];
    const int runs = number(fall, "partner_runs");
    const int balls = number(fall, "partner_balls");
    stand& best = stands_[wicket];
    if (std::pair(runs, balls) <= std::pair(best.runs, best.balls)) continue;
    std::string second = text(fall, "batsman_b");
    const bool unbroken = second.ends_with(" * ");
    if (unbroken) second.resize(second.size() - 3);
    best = {runs, balls, text(fall, "batsman_a") + " && " + second, unbroken, played.team, played.against};
  }
}

void recount::add_win_record(const side& played, const json& result) {
  auto row = std::find_if(win_records_.begin(), win_records_.end(),
                          [&](const win_record& record) { return record.team == played.team; });
  if (row == win_records_.end()) {
    row = win_records_.insert(row, win_record());
    row->team = played.team;
  }
  const char* came_to = "Tied";
  if (text(result, "result_winner") == played.team) came_to = "Won";
  if (text(result, "result_loser") == played.team) came_to = "Lost";
  row->counts[std::string(played.at_home ? "Home " : "Away ") + came_to] += 1;
  const std::string there = played.against + " at " + played.venue;
  if (played.runs > row->high_for.runs) row->high_for = {played.runs, " vs " + there};
  if (played.other_runs > row->high_against.runs) row->high_against = {played.other_runs, " by " + there};
  if (played.runs < row->low_for.runs && played.wickets == 10) row->low_for = {played.runs, " vs " + there};
  if (played.other_runs < row->low_against.runs && played.other_wickets == 10) {
    row->low_against = {played.other_runs, " by " + there};
  }
}

void recount::insert_highest(std::vector<total>& list, const total& made, int wickets) {
  auto place = list.begin();
  while (place != list.end() && !(place->runs < made.runs || (place->runs == made.runs && place->wickets > wickets))) {
    ++place;
  }
  list.insert(place, made);
  if (list.size() > 15) list.pop_back();
}

void recount::insert_lowest(std::vector<total>& list, const total& made, int wickets) {
  auto place = list.begin();
  while (place != list.end() && !(place->runs > made.runs || (place->runs == made.runs && place->wickets < wickets))) {
    ++place;
  }
  list.insert(place, made);
  if (list.size() > 15) list.pop_back();
}

}  // namespace velorin::testing
