// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/captain_forms.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include <fmt/format.h>

#include "model/match_state.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

std::string title_of(next_batsman_form::use shown) {
  switch (shown) {
    case next_batsman_form::use::first_opener:
      return "Select 1st Opener";
    case next_batsman_form::use::second_opener:
      return "Select 2nd Opener";
    case next_batsman_form::use::next:
      break;
  }
  return "Select Next Batsman";
}

}  // namespace

next_batsman_form::next_batsman_form(match_state& match, use shown)
    : title(title_of(shown)), shown_for(shown), match_(match) {
  match.next_batsman_slot = match.higher_batsman();
  for (int row = 1; row <= men_in_eleven; ++row) enabled[row] = row > match.next_batsman_slot;
}

std::string next_batsman_form::name(int row) const { return match_.batting_xi[row].name; }
std::string next_batsman_form::skill(int row) const { return number_text(int(match_.batting_xi[row].bat_skill)); }

void next_batsman_form::choose(int row) {
  if (enabled[row]) chosen = row;
}

void next_batsman_form::accept() {
  const int place = match_.next_batsman_slot + 1;
  if (chosen > place) {
    const auto men = match_.batting_xi.begin();
    std::rotate(men + place, men + chosen, men + chosen + 1);
  }
  if (match_.striker <= match_.non_striker) match_.batsman_aggression[0] = match_.batsman_aggression[1];
  match_.batsman_aggression[1] = aggression;
  if (shown_for == use::first_opener) match_.batsman_aggression[0] = aggression;
  closed = true;
}

bowler_choice_form::bowler_choice_form(match_state& match, use shown, std::string title_text)
    : title(std::move(title_text)), shown_for(shown), match_(match) {
  for (int row = 1; row <= men_in_eleven; ++row) {
    enabled[row] = row != match.next_bowler && match.bowling_xi[row].is_keeper == 0;
  }
  chosen = match.bowler;
  if (shown_for == use::second_opener && match.bowler != 0) enabled[match.bowler] = false;
}

std::string bowler_choice_form::name(int row) const { return match_.bowling_xi[row].name; }

std::string bowler_choice_form::skill(int row) const {
  return number_text(round_half_even(100 - static_cast<double>(match_.bowling_xi[row].bowl_sr)));
}

std::string bowler_choice_form::economy(int row) const { return number_text(match_.bowling_xi[row].econ); }

void bowler_choice_form::choose(int row) {
  if (enabled[row]) chosen = row;
}

int bowler_choice_form::first_row() const {
  for (int row = 1; row <= men_in_eleven; ++row) {
    if (enabled[row] && match_.bowling_card[row].balls < balls_of_quota) return row;
  }
  return 0;
}

int bowler_choice_form::best_row() const {
  const auto key = [this](int row) {
    const player_rec& man = match_.bowling_xi[row];
    return std::tuple(match_.bowling_card[row].balls >= balls_of_quota, float(man.bowl_sr), float(man.econ));
  };
  int best = 0;
  for (int row = 1; row <= men_in_eleven; ++row) {
    if (enabled[row] && (best == 0 || key(row) < key(best))) best = row;
  }
  return best;
}

void bowler_choice_form::accept() {
  (shown_for == use::second_opener ? match_.next_bowler : match_.bowler) = chosen;
  closed = true;
}

aggression_form aggression_form::of_batsman(match_state& match, int slot) {
  aggression_form form(match);
  const int position = slot == 0 ? match.lower_batsman() : match.higher_batsman();
  const batting_card_rec& card = match.batting_card[position];
  form.player_slot = slot;
  form.aggression = match.batsman_aggression[slot];
  form.player_name = " " + card.name + " ";
  form.headings = {"Runs", "Balls", "SR", "Settled  :"};
  form.figures = {number_text(int(card.runs)), number_text(int(card.balls)),
                  card.balls == 0 ? " - " : number_text(strike_rate(card.runs, card.balls)), ""};
  form.settled_width = std::min(double{full_meter}, 5 * (2.0 * card.runs + card.balls / 2.0));
  const std::string rate =
      match.innings_balls == 0
          ? "0.00"
          : number_text(round_to(double{balls_of_over} * match.score_runs / match.innings_balls, 2));
  form.score_sentence = fmt::format("{} are {}/{} from {} Overs at {} runs per over.", short_name(match.team1_name),
                                    match.score_runs, match.score_wickets, match.overs_text(), rate);
  return form;
}

aggression_form aggression_form::of_bowler(match_state& match, int slot) {
  aggression_form form(match);
  const bowling_card_rec& card = match.bowling_card[slot == 0 ? match.bowler : match.next_bowler];
  form.for_batsman = false;
  form.player_slot = slot;
  form.aggression = match.bowling_aggression[slot];
  form.player_name = " " + card.name + " ";
  form.headings = {"Overs", "Mdns", "Runs", "Wkts"};
  form.figures = {overs_from_balls(card.balls), number_text(int(card.maidens)), number_text(int(card.runs)),
                  number_text(int(card.wickets))};
  form.settled_visible = false;
  return form;
}

void aggression_form::accept() {
  (for_batsman ? match_.batsman_aggression : match_.bowling_aggression)[player_slot] = aggression;
  closed = true;
}

}  // namespace velorin
