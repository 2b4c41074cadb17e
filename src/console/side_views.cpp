// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/side_views.h"

#include <algorithm>
#include <tuple>

#include <fmt/format.h>

#include "model/batsman_figures.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// Whoever has not bowled his quota may begin an over; the one that he is bowling has been begun.
int overs_left(const match_state& match, int position) {
  const int balls = std::max(0, balls_of_quota - match.bowling_card[position].balls);
  const bool in_over = !match.deliveries.empty() && match.deliveries.back().over == match.over_no &&
                       match.deliveries.back().bowler == position;
  return in_over ? balls / balls_of_over : (balls + balls_of_over - 1) / balls_of_over;
}

attack_row attack_row_of(const match_state& match, int position) {
  const bowling_card_rec& card = match.bowling_card[position];
  attack_row row;
  row.position = position;
  row.name = match.bowling_xi[position].name;
  row.overs = overs_from_balls(card.balls);
  row.maidens = number_text(int(card.maidens));
  row.runs = number_text(int(card.runs));
  row.wickets = number_text(int(card.wickets));
  row.economy = card.balls == 0 ? "-" : fmt::format("{:.1f}", double{balls_of_over} * card.runs / card.balls);
  row.overs_left = overs_left(match, position);
  row.bowls_now = position == match.bowler;
  row.bowls_next = position == match.next_bowler;
  row.can_be_chosen = !match.computer_bowls && !row.bowls_next && card.balls < balls_of_quota;
  return row;
}

std::string dismissal_words(const batting_card_rec& card) {
  std::string words = card.fielder;
  if (!words.empty() && !card.how_out.empty()) words += ' ';
  words += card.how_out;
  const std::size_t first = words.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : words.substr(first);
}

}  // namespace

std::vector<attack_row> view_attack(const match_state& match) {
  std::vector<attack_row> attack;
  for (int position = 1; position <= men_in_eleven; ++position) {
    if (match.bowling_xi[position].is_keeper == 0) attack.push_back(attack_row_of(match, position));
  }
  const auto key = [&](const attack_row& row) {
    const player_rec& man = match.bowling_xi[row.position];
    return std::tuple(match.bowling_card[row.position].balls >= balls_of_quota, man.bowl_sr, man.econ, row.position);
  };
  std::sort(attack.begin(), attack.end(), [&](const auto& a, const auto& b) { return key(a) < key(b); });
  return attack;
}

std::vector<card_row> view_card(const match_state& match) {
  std::vector<card_row> rows;
  for (int position = 1; position <= men_in_eleven; ++position) {
    const batting_card_rec& card = match.batting_card[position];
    card_row row;
    row.position = position;
    row.name = match.batting_xi[position].name;
    row.at_crease = position == match.striker || position == match.non_striker;
    row.on_strike = position == match.striker;
    row.to_come = card.name.empty();
    if (!row.to_come) {
      row.name = card.name;
      row.how_out = card.how == dismissal::none ? "not out" : dismissal_words(card);
      row.runs = number_text(int(card.runs));
      row.balls = number_text(int(card.balls));
      row.fours = number_text(int(card.fours));
      row.sixes = number_text(int(card.sixes));
      row.strike_rate = card.balls == 0 ? "-" : fmt::format("{:.1f}", strike_rate(card.runs, card.balls));
    }
    rows.push_back(std::move(row));
  }
  return rows;
}

}  // namespace velorin
