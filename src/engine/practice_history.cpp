// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/practice_history.h"

#include <utility>

namespace velorin {

void practice_history::note(const match_state& match, random_source& chance) {
  if (places_.empty()) chance.keep_readings();
  if (points_.size() < places_.size()) {
    chance.return_to(places_[points_.size()], luck::same);
  } else {
    places_.push_back(chance.here());
  }
  points_.push_back(match);
}

void practice_history::go_back(match_state& match, random_source& chance, taken_back how_far, luck wanted) {
  if (points_.empty()) return;
  if (how_far == taken_back::over) {
    while (points_.size() > 1 && points_.back().next_step != play_step::between_overs) points_.pop_back();
  }
  match = std::move(points_.back());
  points_.pop_back();
  const std::size_t ball = points_.size();
  chance.return_to(places_[ball], wanted);
  if (wanted == luck::fresh) places_.resize(ball);
}

void practice_history::clear(random_source& chance) {
  points_.clear();
  places_.clear();
  chance.forget_readings();
}

}  // namespace velorin
