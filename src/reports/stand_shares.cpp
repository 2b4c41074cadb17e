// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/stand_shares.h"

#include <algorithm>
#include <cstddef>

#include "model/commentary.h"
#include "model/delivery.h"
#include "model/match_records.h"

namespace velorin {

namespace {

stand_share opened_with(const delivery& ball, const batting_card_table& batting) {
  const auto name = [&](int position) { return batting[static_cast<std::size_t>(position)].name; };
  stand_share stand;
  stand.batsmen = {name(std::min(ball.striker, ball.non_striker)), name(std::max(ball.striker, ball.non_striker))};
  stand.unbroken = true;
  return stand;
}

}  // namespace

std::vector<stand_share> stand_shares(const told_innings& innings) {
  std::vector<stand_share> all;
  for (const delivery& ball : innings.deliveries) {
    if (all.empty() || !all.back().unbroken) all.push_back(opened_with(ball, innings.batting));
    stand_share& stand = all.back();
    if (ball.is_off_the_bat()) stand.runs[ball.striker < ball.non_striker ? 0 : 1] += ball.runs;
    if (ball.is_body_extra()) stand.extras += ball.extras;
    if (ball.is_wicket()) stand.unbroken = false;
  }
  return all;
}

}  // namespace velorin
