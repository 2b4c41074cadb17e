// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/computers_choice.h"

#include <fmt/format.h>

#include <string_view>
#include <utility>

#include "captain/computer_captain.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin {

namespace {

using bowler_use = bowler_choice_form::use;
using batsman_use = next_batsman_form::use;

/// Runs a rule; nothing where it has no answer.
template <class Rule>
std::optional<computers_choice> answered(const Rule& rule) {
  try {
    return rule();
  } catch (const run_time_error&) {
    return std::nullopt;
  }
}

/// What both aggressions go by of the innings.
std::string situation(const match_state& match) {
  if (match.innings_balls == 0) return "no ball has been bowled";
  const int in_hand = wickets_of_innings - match.score_wickets;
  const std::string wickets = in_hand == 1 ? "1 wicket in hand" : fmt::format("{} wickets in hand", in_hand);
  if (match.first_total == 0) {
    return fmt::format("{}, {:.1f} an over after {} overs", wickets,
                       double{balls_of_over} * match.score_runs / match.innings_balls, match.overs_text());
  }
  return fmt::format("{}, {} balls left, and a first innings projected at {}", wickets,
                     balls_of_innings - match.innings_balls, match.first_innings_projection.number());
}

std::string strikes(const player_rec& bowler) {
  return fmt::format("{} takes a wicket every {:.0f} balls", bowler.name, static_cast<double>(bowler.bowl_sr));
}

computers_choice batting_choice(const match_state& match, int slot) {
  match_state asked = match;
  set_batting_aggression(asked);
  const int position = slot == 0 ? match.lower_batsman() : match.higher_batsman();
  const batting_card_rec& card = match.batting_card[position];
  const int level = asked.batsman_aggression[slot];
  return {level, fmt::format("Aggression {}: {}; {} has {} from {} balls, and {}.", level, situation(match),
                             match.batting_xi[position].name, int(card.runs), int(card.balls),
                             strikes(match.bowling_xi[match.bowler]))};
}

computers_choice bowling_choice(const match_state& match, int slot) {
  match_state asked = match;
  if (slot == 1) std::swap(asked.bowler, asked.next_bowler);
  set_bowling_aggression(asked);
  const int level = asked.bowling_aggression[0];
  const int wickets = match.bowling_card[asked.bowler].wickets;
  return {level, fmt::format("Aggression {}: {}; {} has {}, and the pair has made {} and {}.", level, situation(match),
                             match.bowling_xi[asked.bowler].name,
                             wickets == 1 ? "1 wicket" : fmt::format("{} wickets", wickets),
                             int(match.batting_card[match.lower_batsman()].runs),
                             int(match.batting_card[match.higher_batsman()].runs))};
}

computers_choice batsman_choice(const match_state& match) {
  match_state asked = match;
  choose_next_batsman(asked);
  const player_rec& man = asked.batting_xi[asked.next_batsman_slot + 1];
  int row = asked.next_batsman_slot + 1;
  while (row < men_in_eleven && match.batting_xi[row].name != man.name) ++row;
  const std::string_view role = man.role();
  if (role == "Opener") return {row, man.name + " is the next of the openers."};
  if (role == "Middle Order") {
    return {row, fmt::format("No opener is left, and {} is the best of the middle order, with a skill of {}.", man.name,
                             int(man.bat_skill))};
  }
  return {row, fmt::format("Only the lower order is left, and {} is the best of it, with a skill of {}.", man.name,
                           int(man.bat_skill))};
}

computers_choice opening_bowler(const match_state& match, bowler_use asked_for) {
  match_state asked = match;
  const bool second = asked_for == bowler_use::second_opener;
  rank_bowlers(asked, 0);
  if (second) {
    choose_second_opening_bowler(asked);
  } else {
    random_source of_its_own;  // the offset that it draws leaves the order
    of_its_own.use_seed(1);
    choose_opening_bowlers(asked, of_its_own);
  }
  const int position = second ? asked.next_bowler : asked.bowler;
  const player_rec& man = asked.bowling_xi[position];
  const std::string rank = second ? "the next best" : "the best";
  const std::string_view bowls = man.bowler_type;
  if (bowls == "Fast Bowler") return {position, fmt::format("{} is {} of the fast bowlers.", man.name, rank)};
  if (bowls == "Medium Pacer") {
    return {position, fmt::format("No fast bowler is left, and {} is {} of the medium pacers.", man.name, rank)};
  }
  return {position, fmt::format("{} is {} of the attack, which has no pace left.", man.name, rank)};
}

/// The man who is to bowl comes under the review that the computer holds at the end of an over.
computers_choice bowler_by_review(const match_state& match) {
  match_state asked = match;
  set_captain(asked, match_side::bowling, true);
  std::swap(asked.bowler, asked.next_bowler);
  review_bowler(asked);
  const int before = match.bowler;
  const int after = asked.next_bowler;
  const bowling_card_rec& card = match.bowling_card[before];
  const std::string figures = bowling_figures(card.balls, card.maidens, card.runs, card.wickets);
  const auto standing = standing_of_bowler(match, before);
  const std::string& name = match.bowling_xi[before].name;
  if (after == before) {
    if (!standing) return {before, name + " stays: at this stage nobody is changed."};
    return {before, fmt::format("{} stays: his {} weigh {:.1f}, and he is changed above {:.1f}.", name, figures,
                                standing->score, standing->limit)};
  }
  const std::string& other = match.bowling_xi[after].name;
  if (standing && standing->too_slow) {
    return {after, fmt::format("{} bowls for {}: at this stage fast bowlers are wanted.", other, name)};
  }
  if (card.balls >= balls_of_quota || !standing) {
    return {after, fmt::format("{} bowls for {}, who has bowled his overs.", other, name)};
  }
  return {after, fmt::format("{} bowls for {}, whose {} weigh {:.1f}, above {:.1f}.", other, name, figures,
                             standing->score, standing->limit)};
}

/// Who has overs left and may bowl, by the best figures of his career.
std::optional<computers_choice> best_left(const match_state& match, bowler_use asked) {
  match_state copy = match;
  const bowler_choice_form form(copy, asked, {});
  const int best = form.best_row();
  if (best == 0) return std::nullopt;
  return computers_choice{best, match.bowling_xi[best].name + " is the best of those with overs left."};
}

}  // namespace

std::optional<computers_choice> computers_batting_aggression(const match_state& match, int slot) {
  if (match.striker == 0 || match.non_striker == 0 || match.bowler == 0) return std::nullopt;
  return answered([&]() -> std::optional<computers_choice> { return batting_choice(match, slot); });
}

std::optional<computers_choice> computers_bowling_aggression(const match_state& match, int slot) {
  if (match.striker == 0 || match.non_striker == 0) return std::nullopt;
  if ((slot == 0 ? match.bowler : match.next_bowler) == 0) return std::nullopt;
  return answered([&]() -> std::optional<computers_choice> { return bowling_choice(match, slot); });
}

std::optional<computers_choice> computers_next_batsman(const match_state& match, batsman_use) {
  if (match.higher_batsman() >= men_in_eleven) return std::nullopt;
  return answered([&]() -> std::optional<computers_choice> { return batsman_choice(match); });
}

std::optional<computers_choice> computers_bowler(const match_state& match, bowler_use asked) {
  return answered([&]() -> std::optional<computers_choice> {
    if (asked == bowler_use::first_opener || asked == bowler_use::second_opener) return opening_bowler(match, asked);
    if (match.bowler == 0 || match.next_bowler == 0) return best_left(match, asked);
    const computers_choice chosen = bowler_by_review(match);
    match_state copy = match;
    const bowler_choice_form form(copy, asked, {});
    const bool can_bowl = form.enabled[static_cast<std::size_t>(chosen.choice)] &&
                          match.bowling_card[static_cast<std::size_t>(chosen.choice)].balls < balls_of_quota;
    return can_bowl ? std::optional(chosen) : best_left(match, asked);
  });
}

bool computers_toss_bats() {
  random_source own;
  own.use_clock();
  own.reseed();
  return coin(own) == 1;
}

}  // namespace velorin
