// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/recorded_points.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <system_error>
#include <utility>

#include "competitions/game_state.h"
#include "forecast/match_start.h"
#include "model/rules.h"

namespace velorin::cli {

namespace {

std::size_t balls_so_far(const match_state& match) { return match.first_deliveries.size() + match.deliveries.size(); }

/// Looks on while a recording is played.
class point_keeper {
 public:
  explicit point_keeper(const asked_points& asked) : asked_(asked) {}

  void see(const match_state& now) {
    if (ended_) begin_match();
    // What was taken back has not been: it is played anew.
    drop_from(balls_so_far(now));
    last_ = now;
    if (now.innings_number < 1 || now.innings_number > 2) return;
    const innings_place place{static_cast<int>(now.innings_number), static_cast<int>(now.innings_balls)};
    if (wanted(place) && !kept(place)) states_.emplace_back(place, now);
  }

  void match_ends() { ended_ = true; }

  /// `end`: the match where the recording leaves it.
  recorded_points points(const match_state& end) {
    const bool tossing = end.step == match_step::toss_call || end.step == match_step::toss;
    if (ended_ && tossing) begin_match();
    if (!ended_ && can_be_forecast(end)) {
      drop_from(balls_so_far(end));
      last_ = end;
    }
    recorded_points points;
    if (!asked_.places.empty()) {
      const std::optional<innings_place> missing = first_missing();
      if (missing && whole_.empty()) {
        points.missing = missing;
        return points;
      }
      for (const innings_place place : asked_.places) {
        points.states.push_back(state_at(missing ? whole_ : states_, place)->second);
      }
      return points;
    }
    for (auto& [place, state] : states_) points.states.push_back(std::move(state));
    // After a whole over the end is the last point already.
    if (last_ && (points.states.empty() || last_->innings_balls != points.states.back().innings_balls ||
                  last_->innings_number != points.states.back().innings_number)) {
      points.states.push_back(std::move(*last_));
    }
    return points;
  }

 private:
  using placed_states = std::vector<std::pair<innings_place, match_state>>;

  static placed_states::const_iterator state_at(const placed_states& states, innings_place place) {
    return std::find_if(states.begin(), states.end(), [&](const auto& kept) { return kept.first == place; });
  }
  bool kept(innings_place place) const { return state_at(states_, place) != states_.end(); }

  bool wanted(innings_place place) const {
    if (asked_.each_over) return place.balls % balls_of_over == 0;
    return std::find(asked_.places.begin(), asked_.places.end(), place) != asked_.places.end();
  }

  std::optional<innings_place> first_missing() const {
    const auto missing =
        std::find_if(asked_.places.begin(), asked_.places.end(), [&](innings_place place) { return !kept(place); });
    return missing == asked_.places.end() ? std::nullopt : std::optional(*missing);
  }

  void drop_from(std::size_t balls) {
    states_.erase(std::remove_if(states_.begin(), states_.end(),
                                 [&](const auto& kept) { return balls_so_far(kept.second) > balls; }),
                  states_.end());
  }

  void begin_match() {
    if (!asked_.places.empty() && !first_missing()) whole_ = std::move(states_);
    states_.clear();
    last_.reset();
    ended_ = false;
  }

  const asked_points& asked_;
  placed_states states_;             // of the match in play, in the order in which they came
  placed_states whole_;              // of the last match before it that reached every place
  std::optional<match_state> last_;  // the last moment of the match in play
  bool ended_ = false;
};

}  // namespace

std::optional<innings_place> parse_place(const std::string& text) {
  int innings = 0;
  int over = 0;
  int ball = 0;
  const char* at = text.data();
  const char* const end = at + text.size();
  const auto number = [&](int& value, char behind) {
    const auto [next, error] = std::from_chars(at, end, value);
    const bool good = error == std::errc() && next != at && *at >= '0' && *at <= '9';
    at = next;
    if (behind == '\0') return good && at == end;
    return good && at != end && *at++ == behind;
  };
  if (!number(innings, ':') || !number(over, '.') || !number(ball, '\0')) return std::nullopt;
  const innings_place place{innings, over * balls_of_over + ball};
  if (innings < 1 || innings > 2 || ball >= balls_of_over || over > overs_of_innings ||
      place.balls > balls_of_innings) {
    return std::nullopt;
  }
  return place;
}

std::string text_of(innings_place place) {
  return fmt::format("{}:{}.{}", place.innings, place.balls / balls_of_over, place.balls % balls_of_over);
}

std::string is_place(const std::string& text) {
  return parse_place(text) ? "" : "not an innings and overs such as 2:31.4: " + text;
}

recorded_points states_of(const recording& recorded, const std::string& name, const asked_points& asked) {
  game_state game = game_at_beginning(recorded);
  point_keeper keeper(asked);
  replay_options options;
  options.stops_at = [&](const game_state& now) {
    keeper.see(now.match);
    return false;
  };
  options.waits = [&](const game_state& now) { keeper.see(now.match); };
  options.match_ends = [&](const game_state&) { keeper.match_ends(); };
  replay(recorded, name, game, options);
  return keeper.points(game.match);
}

}  // namespace velorin::cli
