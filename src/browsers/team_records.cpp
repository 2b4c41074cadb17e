// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/team_records.h"

#include <algorithm>

#include "browsers/career_rates.h"
#include "model/texts.h"

namespace velorin {

namespace {

std::array<std::string, 5> results_texts(const team_results& results, const error_place& row) {
  const std::optional<double> success = results.success(row);
  return {number_text(results.played()), number_text(results.won), number_text(results.lost), number_text(results.tied),
          success ? number_text(*success) + "%" : "  -  "};
}

/// An extreme total, the word before the opponents, and its venue.
std::string total_text(const tagged& total, const char* word, const tagged& opponents, const tagged& venue) {
  return total.text() + word + opponents.text() + " at " + venue.text();
}

/// The same for a lowest total, which may not be there yet.
std::string lowest_text(const tagged& total, const char* word, const tagged& opponents, const tagged& venue) {
  return total.number() == no_total_yet ? "Not available" : total_text(total, word, opponents, venue);
}

/// The first of the best men of a team. `better` tells whether a man goes before the best so far. Requires one man.
template <typename Better>
const career_rec& best_of(const career_team_rec& team, Better better) {
  int best = 1;
  for (int p = 2; p <= team.player_count; ++p) {
    if (better(team.players[p], team.players[best])) best = p;
  }
  return team.players[best];
}

std::string tally_text(const career_rec& man, int tally, const char* of_what) {
  return man.name + "  " + number_text(tally) + of_what + number_text(man.matches) + " matches";
}

}  // namespace

void team_records_form::open() {
  static_cast<team_records_screen&>(*this) = {};
  title = "Team Records - ";
  lists_ = read_record_lists(data_);
  ranking_ = rank_teams(data_, lists_);
  careers_ = read_career_table(data_);
  for (int t = 1; t <= lists_.table_team_count; ++t) teams.push_back(lists_.teams[t].team_name.text());
}

void team_records_form::choose_team(int index) {
  chosen_team = index;
  if (index < 0) return;
  const team_table& team = lists_.teams[index + 1];
  const std::string& name = teams[index];
  title = "Team Records - " + name;
  const error_place place = row_place(data_, lists_, index + 1);
  results[0].texts = results_texts(home_results(team), place);
  results[1].texts = results_texts(away_results(team), place);
  results[2].texts = results_texts(total_results(team), place);
  const auto ranked =
      std::find_if(ranking_.begin(), ranking_.end(), [&](const ranked_team& row) { return row.team == name; });
  world_ranking.text = number_text(static_cast<long>(ranked - ranking_.begin()) + 1);
  extremes[0].text = total_text(team.high_for, " vs ", team.high_for_against, team.high_for_venue);
  extremes[1].text = total_text(team.high_against, " by ", team.high_against_by, team.high_against_venue);
  extremes[2].text = lowest_text(team.low_for, " vs ", team.low_for_against, team.low_for_venue);
  extremes[3].text = lowest_text(team.low_against, " by ", team.low_against_by, team.low_against_venue);
  const auto men = std::find_if(careers_.teams.begin() + 1, careers_.teams.begin() + 1 + careers_.career_team_count,
                                [&](const career_team_rec& row) { return row.team_name == name; });
  show_individual(men == careers_.teams.begin() + 1 + careers_.career_team_count ? careers_.teams[0] : *men);
}

void team_records_form::show_individual(const career_team_rec& men) {
  for (shown_field& field : individual) field.text.clear();
  men_of_records = {};
  if (men.player_count == 0) return;
  const career_rec& scorer =
      best_of(men, [](const career_rec& a, const career_rec& b) { return a.high_score > b.high_score; });
  individual[0].text = scorer.name + "  " + high_score_text(scorer) + " vs " + scorer.high_against;
  const career_rec& batsman = best_of(men, [](const career_rec& a, const career_rec& b) { return a.runs > b.runs; });
  individual[1].text = tally_text(batsman, batsman.runs, " runs from ");
  const career_rec& analysis = best_of(men, [](const career_rec& a, const career_rec& b) {
    return a.best_wickets > b.best_wickets || (a.best_wickets == b.best_wickets && a.best_runs < b.best_runs);
  });
  individual[2].text = analysis.name + "  " + best_bowling_text(analysis) + " vs " + analysis.best_against;
  const career_rec& bowler =
      best_of(men, [](const career_rec& a, const career_rec& b) { return a.wickets > b.wickets; });
  individual[3].text = tally_text(bowler, bowler.wickets, " wickets from ");
  men_of_records = {scorer.name, batsman.name, analysis.name, bowler.name};
}

}  // namespace velorin
