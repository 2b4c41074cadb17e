// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/levels_adviser.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

#include "desktop/level_segments.h"
#include "desktop/shown_text.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"

namespace velorin {

namespace {

using kind = captains_choice::kind;

constexpr std::chrono::milliseconds rest_before_asking{300};

/// The five levels of two men of one side, and where they are shown.
struct AdvisedSide {
  advised_side side;
  std::vector<captains_choice> choices;
  std::array<int, 2> positions;
  LevelsAdviser::Segments segments;
};

AdvisedSide side_of(advised_side side, const std::array<int, 2>& positions, const LevelsAdviser::Segments& segments) {
  AdvisedSide made{side, {}, positions, segments};
  const kind what = side == advised_side::batting ? kind::batting_aggression : kind::bowling_aggression;
  for (const int position : positions) {
    if (position == 0) continue;
    for (int level = least_aggression; level <= most_aggression; ++level) {
      made.choices.push_back({what, position, level});
    }
  }
  return made;
}

void show_found(const AdvisedSide& side, const std::vector<advice>& found) {
  for (const advice& told : found) {
    if (told.choice.level == 0) continue;
    const QString words = shown(difference_words(told)).replace(QLatin1Char('-'), QChar(0x2212));
    for (std::size_t slot = 0; slot < side.positions.size(); ++slot) {
      if (side.positions[slot] != told.choice.position) continue;
      side.segments[slot]->segment(told.choice.level)->show_advice(words);
    }
  }
}

}  // namespace

LevelsAdviser::LevelsAdviser(const match_state& match, const Segments& batsmen, const Segments& bowlers,
                             QObject* parent)
    : QObject(parent), match_(match), batsmen_(batsmen), bowlers_(bowlers) {
  pause_.setSingleShot(true);
  pause_.setInterval(rest_before_asking);
  connect(&pause_, &QTimer::timeout, this, [this] { ask(); });
}

void LevelsAdviser::refresh(const ForecastBar::Standing& standing, bool on) {
  if (on && asked_ == standing) return;
  forget();
  if (!on || match_.next_step == play_step::closed || !can_be_forecast(match_)) return;
  if (match_.computer_bats && match_.computer_bowls) return;
  asked_ = standing;
  pause_.start();
}

void LevelsAdviser::forget() {
  asked_.reset();
  pause_.stop();
  work_.drop();
  for (const Segments& two : {batsmen_, bowlers_}) {
    for (LevelSegments* segments : two) {
      for (int level = least_aggression; level <= most_aggression; ++level) segments->segment(level)->show_advice({});
    }
  }
}

void LevelsAdviser::ask() {
  std::vector<AdvisedSide> sides;
  if (!match_.computer_bats) {
    sides.push_back(side_of(advised_side::batting, {match_.lower_batsman(), match_.higher_batsman()}, batsmen_));
  }
  if (!match_.computer_bowls) {
    sides.push_back(side_of(advised_side::bowling, {int(match_.bowler), int(match_.next_bowler)}, bowlers_));
  }
  const auto state = std::make_shared<const match_state>(match_);
  work_.ask([state, sides](const std::stop_token& stop, const auto& so_far) -> BackWork::Show {
    const int threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2);
    for (const AdvisedSide& side : sides) {
      const std::vector<advice> found =
          advise(*state, side.side, side.choices, {.runs = runs, .seed = 1, .threads = threads, .stop = stop});
      if (stop.stop_requested()) return {};
      so_far([side, found] { show_found(side, found); });
    }
    return {};
  });
}

}  // namespace velorin
