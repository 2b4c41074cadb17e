// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/match_report.h"

#include <algorithm>
#include <sstream>

#include "database/agreement.h"
#include "database/lasting_records.h"
#include "database/open_database.h"
#include "model/batsman_figures.h"
#include "model/match_state.h"
#include "model/run_time_error.h"
#include "model/stands.h"
#include "model/texts.h"
#include "reports/brought_records.h"
#include "reports/scorecard.h"

namespace velorin {

namespace {

/// The books of one innings, wherever they stand.
struct innings_books {
  const std::string& side;
  const std::string& bowling_side;
  const batting_card_table& batting;
  const bowling_card_table& bowling;
  const eleven& men;
  const delivery_list& deliveries;
  fall_of_wicket_table falls;
  int total;
  int wickets;
  int balls;
  std::array<int, 4> extras;
};

innings_books first_books(const match_state& match) {
  return {match.team2_name,
          match.team1_name,
          match.first_batting_card,
          match.first_bowling_card,
          match.bowling_xi,
          match.first_deliveries,
          falls_before(match),
          match.first_total,
          match.first_wickets,
          match.first_balls,
          {match.first_no_balls, match.first_wides, match.first_leg_byes, match.first_byes}};
}

innings_books second_books(const match_state& match) {
  return {match.team1_name,
          match.team2_name,
          match.batting_card,
          match.bowling_card,
          match.batting_xi,
          match.deliveries,
          falls_in_play(match),
          match.score_runs,
          match.score_wickets,
          match.innings_balls,
          {match.innings_no_balls, match.innings_wides, match.innings_leg_byes, match.innings_byes}};
}

bool is_not_out(const batting_card_rec& man) { return man.how == dismissal::none || man.how == dismissal::not_out; }

/// The two parts of a dismissal in one line, a blank between words; the cards part them by columns and by blanks.
std::string words_of(const batting_card_rec& man) {
  if (is_not_out(man)) return "not out";
  std::istringstream parts(man.fielder + " " + man.how_out);
  std::string words;
  for (std::string word; parts >> word;) words += (words.empty() ? "" : " ") + word;
  return words;
}

std::string rate_of(int runs, int balls) {
  return balls == 0 ? std::string() : number_text(runs_per_over(runs, balls));
}

void add_batsmen(reported_innings& told, const innings_books& books) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& man = books.batting[i];
    if (man.name.empty()) {
      told.did_not_bat.push_back(books.men[i].name);
      continue;
    }
    told.batsmen.push_back({man.name, words_of(man), man.runs, man.balls, man.fours, man.sixes,
                            man.balls == 0 ? std::string() : number_text(strike_rate(man.runs, man.balls)),
                            is_not_out(man), i});
  }
}

void add_bowlers(reported_innings& told, const innings_books& books) {
  std::array<bool, men_in_eleven + 1> seen{};
  for (const delivery& ball : books.deliveries) {
    if (ball.bowler == 0 || seen[ball.bowler]) continue;
    seen[ball.bowler] = true;
    const bowling_card_rec& man = books.bowling[ball.bowler];
    told.bowlers.push_back({man.name, overs_from_balls(man.balls), man.maidens, man.runs, man.wickets,
                            rate_of(man.runs, man.balls), ball.bowler});
  }
}

void add_falls(reported_innings& told, const innings_books& books) {
  for (int wicket = 1; wicket <= std::min(books.wickets, wickets_of_innings); ++wicket) {
    const fall_of_wicket_rec& fall = books.falls[wicket];
    told.falls.push_back({wicket, fall.score, overs_from_balls(fall.balls), fall.batsman_b});
  }
}

void add_running_score(reported_innings& told, const innings_books& books) {
  told.runs_after = {0};
  int runs = 0;
  int balls = 0;
  for (const delivery& ball : books.deliveries) {
    runs += ball.score();
    balls += ball.counted ? 1 : 0;
    if (ball.counted && balls % balls_of_over == 0) told.runs_after.push_back(runs);
  }
  if (balls % balls_of_over != 0) told.runs_after.push_back(runs);
  told.balls = balls;
}

reported_innings innings_of(const innings_books& books) {
  reported_innings told;
  told.side = books.side;
  told.bowling_side = books.bowling_side;
  told.total = books.total;
  told.wickets = books.wickets;
  told.overs = overs_from_balls(books.balls);
  told.run_rate = rate_of(books.total, books.balls);
  told.extras = books.extras;
  add_batsmen(told, books);
  add_bowlers(told, books);
  add_falls(told, books);
  add_running_score(told, books);
  return told;
}

template <std::size_t n>
bool is_on(const std::array<std::string, n>& list, const std::string& name) {
  return std::find(list.begin() + 1, list.end(), name) != list.end();
}

/// The highest of the batting milestones for which a man was congratulated. The lists know names alone, and two men may
/// bear one: the runs tell which of them it was.
const char* batting_milestone(const match_state& match, const reported_batsman& man) {
  if (man.runs >= 2 * century && is_on(match.double_century_list, man.name)) return "Double hundred";
  if (man.runs >= 3 * half_century && is_on(match.century_and_half_list, man.name)) return "150";
  if (man.runs >= century && is_on(match.hundred_list, man.name)) return "Hundred";
  if (man.runs >= half_century && is_on(match.fifty_list, man.name)) return "Fifty";
  return nullptr;
}

}  // namespace

reported_innings report_on_first_innings(const match_state& match) { return innings_of(first_books(match)); }

reported_innings report_on_innings_in_play(const match_state& match) { return innings_of(second_books(match)); }

void add_batting_milestones(std::vector<reported_milestone>& to, const match_state& match,
                            const reported_innings& innings) {
  for (const reported_batsman& man : innings.batsmen) {
    const char* what = batting_milestone(match, man);
    if (what == nullptr) continue;
    const std::string runs = number_text(man.runs) + (man.not_out ? "*" : "");
    to.push_back({man.name, innings.side, what, runs + " (" + number_text(man.balls) + ")"});
  }
}

void add_bowling_milestones(std::vector<reported_milestone>& to, const match_state& match,
                            const reported_innings& innings) {
  for (const reported_bowler& man : innings.bowlers) {
    if (man.wickets < five_wicket_haul || !is_on(match.five_wicket_list, man.name)) continue;
    to.push_back(
        {man.name, innings.bowling_side, "Five wickets",
         man.overs + "-" + number_text(man.maidens) + "-" + number_text(man.runs) + "-" + number_text(man.wickets)});
  }
}

match_report report_on(const match_state& match, const record_lists* before) {
  match_report report;
  report.ground = match.venue_name();
  report.winner = match.result_winner;
  report.result = match.result_winner + match.result_margin;
  report.practice = match.practice;
  report.innings = {report_on_first_innings(match), report_on_innings_in_play(match)};
  for (const reported_innings& innings : report.innings) add_batting_milestones(report.milestones, match, innings);
  for (const reported_innings& innings : report.innings) add_bowling_milestones(report.milestones, match, innings);
  if (before == nullptr) return report;
  report.records_known = true;
  report.records = records_brought(match, *before);
  return report;
}

void match_report_form::open() {
  if (data_.files.updates && !match_.practice) {
    try {
      const record_lists before = records_in(current_record_file(data_.files));
      report = report_on(match_, &before);
      return;
    } catch (const run_time_error&) {
      // The save of the match fails likewise, and asks what is to be done.
    }
  }
  report = report_on(match_, nullptr);
}

bool match_report_form::attended() const { return match_.human_involved(); }

}  // namespace velorin
