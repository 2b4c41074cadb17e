// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cmath>
#include <cstdio>

#include "browsers/held_key_reference.h"
#include "cli/recount.h"

// What the reports show of the figures counted anew.

namespace velorin::testing {

using json = nlohmann::json;

namespace {

std::string str(int number) { return std::to_string(number); }

/// Two decimals at most, a half to the even neighbour.
std::string decimal(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.2f", std::nearbyint(value * 100) / 100);
  std::string shown = buffer;
  while (shown.back() == '0') shown.pop_back();
  if (shown.back() == '.') shown.pop_back();
  return shown;
}

std::string rate(double dividend, int divisor, const std::string& none) {
  return divisor > 0 ? decimal(dividend / divisor) : none;
}

std::string high_score(const career_rec& man) { return str(man.high_score) + (man.high_not_out != 0 ? "*" : ""); }
std::string best_bowling_text(const career_rec& man) { return str(man.best_wickets) + "/" + str(man.best_runs); }
std::string overs(int balls) { return str(balls / 6) + "." + str(balls % 6); }

std::vector<std::string> batting_row(const career_rec& man, int mode) {
  return {man.name,
          str(man.matches),
          str(man.innings),
          str(man.not_outs),
          rate(man.runs, man.innings - man.not_outs, " - "),
          high_score(man),
          str(man.hundreds),
          str(man.fifties),
          str(man.runs),
          mode == 4 ? rate(100.0 * (man.fifties + man.hundreds), man.innings, " - ")
                    : rate(100.0 * man.runs, man.balls_faced, " - ")};
}

std::vector<std::string> bowling_row(const career_rec& man) {
  return {man.name,
          str(man.matches),
          overs(man.balls_bowled),
          str(man.maidens),
          str(man.runs_given),
          str(man.wickets),
          rate(man.runs_given, man.wickets, " - "),
          rate(6.0 * man.runs_given, man.balls_bowled, " - "),
          str(man.five_wickets),
          best_bowling_text(man)};
}

/// The first of the men who beats all before him.
template <class Better>
const career_rec& best_man(const std::vector<career_rec>& men, Better better) {
  const career_rec* best = &men.front();
  for (const career_rec& man : men) {
    if (better(man, *best)) best = &man;
  }
  return *best;
}

void add_best_men(json& object, const std::vector<career_rec>& all) {
  const career_rec& scorer =
      best_man(all, [](const career_rec& a, const career_rec& b) { return a.high_score > b.high_score; });
  object["Highest Score:"] = scorer.name + "  " + high_score(scorer) + " vs " + scorer.high_against;
  const career_rec& batsman = best_man(all, [](const career_rec& a, const career_rec& b) { return a.runs > b.runs; });
  object["Most Runs:"] = batsman.name + "  " + str(batsman.runs) + " runs from " + str(batsman.matches) + " matches";
  const career_rec& analyst = best_man(all, [](const career_rec& a, const career_rec& b) {
    return std::pair(a.best_wickets, -a.best_runs) > std::pair(b.best_wickets, -b.best_runs);
  });
  object["Best Bowling:"] = analyst.name + "  " + best_bowling_text(analyst) + " vs " + analyst.best_against;
  const career_rec& bowler =
      best_man(all, [](const career_rec& a, const career_rec& b) { return a.wickets > b.wickets; });
  object["Most Wickets:"] =
      bowler.name + "  " + str(bowler.wickets) + " wickets from " + str(bowler.matches) + " matches";
}

}  // namespace

std::vector<std::string> recount::teams() const {
  std::vector<std::string> names;
  for (const auto& [team, men] : careers_) names.push_back(team);
  return names;
}

std::vector<career_rec> recount::men(const std::string& team) const {
  for (const auto& [name, all] : careers_) {
    if (name == team) return all;
  }
  return {};
}

std::vector<career_rec> recount::everybody() const {
  std::vector<career_rec> all;
  for (const auto& [team, men] : careers_) all.insert(all.end(), men.begin(), men.end());
  return all;
}

text_rows recount::highest_scores() const {
  std::vector<entry> list = scores_;
  std::stable_sort(list.begin(), list.end(), [](const entry& a, const entry& b) { return a.first > b.first; });
  text_rows rows;
  for (const entry& line : list) {
    if (rows.size() == 15) break;
    rows.push_back({str(line.first) + " (" + str(line.second) + ")", line.player, line.team, line.against, line.venue});
  }
  return rows;
}

text_rows recount::best_bowling() const {
  std::vector<entry> list = analyses_;
  std::stable_sort(list.begin(), list.end(), [](const entry& a, const entry& b) {
    return a.first > b.first || (a.first == b.first && a.second < b.second);
  });
  text_rows rows;
  for (const entry& line : list) {
    if (rows.size() == 15) break;
    rows.push_back({str(line.first) + " - " + str(line.second), line.player, line.team, line.against, line.venue});
  }
  return rows;
}

text_rows recount::totals(const std::vector<total>& list) {
  text_rows rows;
  for (const total& line : list) rows.push_back({str(line.runs) + " - " + str(line.wickets), line.team, line.against});
  return rows;
}

text_rows recount::partnerships() const {
  text_rows rows;
  for (int wicket = 1; wicket <= 10; ++wicket) {
    const stand& best = stands_[wicket];
    if (best.pair.empty()) continue;
    rows.push_back({str(best.runs) + (best.unbroken ? "*" : "") + " (" + str(best.balls) + ")", best.pair, best.team,
                    best.against});
  }
  return rows;
}

text_rows recount::centuries() const {
  std::vector<career_rec> all = everybody();
  std::stable_sort(all.begin(), all.end(),
                   [](const career_rec& a, const career_rec& b) { return a.hundreds > b.hundreds; });
  text_rows rows;
  for (const career_rec& man : all) {
    if (man.hundreds == 0 || rows.size() == 15) break;
    rows.push_back({man.name, str(man.matches), str(man.innings), str(man.hundreds), str(man.runs)});
  }
  return rows;
}

text_rows recount::ranking(const std::vector<career_rec>& men, int mode) {
  text_rows rows;
  for (const int man : reference_order(men, mode)) {
    if (rows.size() == 15) break;
    rows.push_back(mode <= 4 || mode == 8 ? batting_row(men[man], mode) : bowling_row(men[man]));
  }
  return rows;
}

int recount::win_record::count(const std::string& name) const {
  const auto found = counts.find(name);
  return found == counts.end() ? 0 : found->second;
}

int recount::win_record::played(const std::string& where) const {
  return count(where + "Won") + count(where + "Lost") + count(where + "Tied");
}

double recount::win_record::success() const {
  const double won = count("Home Won") + count("Away Won");
  return std::nearbyint(won * 100 / (played("Home ") + played("Away ")) * 100) / 100;
}

std::vector<recount::win_record> recount::ranked() const {
  std::vector<win_record> records = win_records_;
  std::stable_sort(records.begin(), records.end(),
                   [](const win_record& a, const win_record& b) { return a.success() > b.success(); });
  return records;
}

text_rows recount::world_ranking() const {
  text_rows rows;
  for (const win_record& record : ranked()) {
    std::vector<std::string> row = {str(static_cast<int>(rows.size()) + 1), record.team, decimal(record.success()),
                                    str(record.played("Home ") + record.played("Away "))};
    for (const char* of : {"Won", "Lost", "Tied"}) {
      row.push_back(str(record.count(std::string("Home ") + of) + record.count(std::string("Away ") + of)));
    }
    rows.push_back(row);
  }
  return rows;
}

json recount::team(const std::string& name) const {
  const std::vector<win_record> records = ranked();
  const auto record =
      std::find_if(records.begin(), records.end(), [&](const win_record& row) { return row.team == name; });
  json object;
  for (const char* of : {"Won", "Lost", "Tied"}) {
    const int home = record->count(std::string("Home ") + of);
    const int away = record->count(std::string("Away ") + of);
    object[std::string("Home ") + of] = str(home);
    object[std::string("Away ") + of] = str(away);
    object[std::string("Total ") + of] = str(home + away);
  }
  const int home = record->played("Home ");
  const int away = record->played("Away ");
  const int home_won = record->count("Home Won");
  const int away_won = record->count("Away Won");
  const auto success = [](int won, int played) {
    return played != 0 ? decimal(100.0 * won / played) + "%" : std::string("  -  ");
  };
  object["Home Played"] = str(home);
  object["Away Played"] = str(away);
  object["Total Played"] = str(home + away);
  object["Home Success %"] = success(home_won, home);
  object["Away Success %"] = success(away_won, away);
  object["Total Success %"] = success(home_won + away_won, home + away);
  object["World Ranking : "] = str(static_cast<int>(record - records.begin()) + 1);
  object["Highest total for :"] = str(record->high_for.runs) + record->high_for.text;
  object["Highest total against :"] = str(record->high_against.runs) + record->high_against.text;
  const auto lowest = [](const extreme& made) {
    return made.runs == 1000 ? std::string("Not available") : str(made.runs) + made.text;
  };
  object["Lowest total for :"] = lowest(record->low_for);
  object["Lowest total against :"] = lowest(record->low_against);
  add_best_men(object, men(name));
  return object;
}

json recount::player(const career_rec& man) {
  return {{"Name", man.name},
          {"Matches", str(man.matches)},
          {"Innings", str(man.innings)},
          {"Not Outs", str(man.not_outs)},
          {"Runs ", str(man.runs)},
          {"Balls faced", str(man.balls_faced)},
          {"Highest Score:", high_score(man) + "  vs  " + man.high_against},
          {"Batting Average", rate(man.runs, man.innings - man.not_outs, " -  ")},
          {"Batting Strike Rate", rate(100.0 * man.runs, man.balls_faced, " 0 ")},
          {"Hundreds", str(man.hundreds)},
          {"Fifties", str(man.fifties)},
          {"% 50 +", rate(100.0 * (man.hundreds + man.fifties), man.innings, " -  ")},
          {"Fours", str(man.fours)},
          {"Sixes", str(man.sixes)},
          {"Overs", overs(man.balls_bowled)},
          {"Balls Bowled", str(man.balls_bowled)},
          {"Maidens", str(man.maidens)},
          {"Runs Given", str(man.runs_given)},
          {"Wickets", str(man.wickets)},
          {"Best Bowling:", best_bowling_text(man) + "  vs  " + man.best_against},
          {"Bowling Average", rate(man.runs_given, man.wickets, " -  ")},
          {"Bowling Strike Rate", rate(man.balls_bowled, man.wickets, " -  ")},
          {"Economy", rate(6.0 * man.runs_given, man.balls_bowled, " -  ")},
          {"5 wkts ", str(man.five_wickets)},
          {"Catches", str(man.catches)},
          {"Stumpings", str(man.stumpings)}};
}

}  // namespace velorin::testing
