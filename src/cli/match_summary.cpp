// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_summary.h"

#include <cmath>
#include <ostream>

#include <fmt/format.h>

#include "model/code_page.h"
#include "model/match_state.h"
#include "model/rules.h"

namespace velorin::cli {

namespace {

/// A catch or stumping without a name on the card counts as bowled, as the card reads.
const char* words_of(const batting_card_rec& card) {
  switch (card.how) {
    case dismissal::run_out:
      return "run out";
    case dismissal::leg_before:
      return "lbw";
    case dismissal::caught_and_bowled:
      return "caught and bowled";
    default:
      break;
  }
  switch (card.taken) {
    case fielding::stumped:
      return "stumped";
    case fielding::caught:
      return "caught";
    case fielding::none:
      break;
  }
  return "bowled";
}

}  // namespace

void spread::add(double value) {
  ++count;
  sum += value;
  squares += value * value;
}

void spread::add(const spread& other) {
  count += other.count;
  sum += other.sum;
  squares += other.squares;
}

double spread::mean() const { return count == 0 ? 0 : sum / static_cast<double>(count); }

double spread::deviation() const {
  if (count < 2) return 0;
  const double n = static_cast<double>(count);
  return std::sqrt(std::max(0.0, (squares - sum * sum / n) / (n - 1)));
}

void match_summary::add_innings(const match_state& match) {
  innings_figures& figures = innings_[match.first_total == 0 ? 0 : 1];
  figures.totals.add(match.score_runs);
  figures.wickets.add(match.score_wickets);
  figures.runs += match.score_runs;
  figures.balls += match.innings_balls;
  figures.all_out += match.score_wickets == wickets_of_innings ? 1 : 0;
  for (const batting_card_rec& card : match.batting_card) {
    if (card.how != dismissal::none) ++dismissals_[words_of(card)];
  }
}

void match_summary::add_result(const match_result& result) {
  ++matches_;
  switch (result.decided) {
    case match_decision::none:
      ++unfinished_;
      return;
    case match_decision::tie:
      ++ties_;
      return;
    case match_decision::runs:
    case match_decision::walkover:
      ++first_wins_;
      break;
    case match_decision::wickets:
      ++chases_;
      break;
  }
  ++wins_[result.result_winner];
}

void match_summary::add(const match_summary& other) {
  for (std::size_t i = 0; i < innings_.size(); ++i) {
    const innings_figures& added = other.innings_[i];
    innings_[i].totals.add(added.totals);
    innings_[i].wickets.add(added.wickets);
    innings_[i].runs += added.runs;
    innings_[i].balls += added.balls;
    innings_[i].all_out += added.all_out;
  }
  for (const auto& [kind, count] : other.dismissals_) dismissals_[kind] += count;
  for (const auto& [team, wins] : other.wins_) wins_[team] += wins;
  first_wins_ += other.first_wins_;
  chases_ += other.chases_;
  ties_ += other.ties_;
  unfinished_ += other.unfinished_;
  matches_ += other.matches_;
}

void match_summary::print(std::ostream& out) const {
  out << fmt::format("{:<24}{}\n", "Matches", matches_);
  for (const auto& [team, wins] : wins_) out << fmt::format("{:<24}{}\n", "Won by " + shown_line(team), wins);
  out << fmt::format("{:<24}{}\n", "Tied", ties_);
  if (unfinished_ != 0) out << fmt::format("{:<24}{}\n", "Without a result", unfinished_);
  out << fmt::format("{:<24}{}\n{:<24}{}\n", "Won batting first", first_wins_, "Won chasing", chases_);
  out << fmt::format("\n{:<24}{:>14}{:>16}\n", "", "First innings", "Second innings");
  const auto row = [&](const char* name, auto value) {
    out << fmt::format("{:<24}{:>14.2f}{:>16.2f}\n", name, value(innings_[0]), value(innings_[1]));
  };
  const auto share = [](double part, double whole) { return whole == 0 ? 0 : part / whole; };
  row("Total, mean", [](const innings_figures& f) { return f.totals.mean(); });
  row("Total, spread", [](const innings_figures& f) { return f.totals.deviation(); });
  row("Wickets, mean", [](const innings_figures& f) { return f.wickets.mean(); });
  row("All out, share", [&](const innings_figures& f) { return share(f.all_out, f.totals.count); });
  row("Run rate", [&](const innings_figures& f) { return share(6.0 * f.runs, f.balls); });
  long all = 0;
  for (const auto& [kind, count] : dismissals_) all += count;
  out << '\n';
  for (const auto& [kind, count] : dismissals_) {
    out << fmt::format("{:<24}{:>14}{:>15.1f}%\n", "Out " + kind, count, 100.0 * share(count, all));
  }
}

}  // namespace velorin::cli
