// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>
#include <array>
#include <optional>
#include <vector>

#include "desktop/back_work.h"
#include "engine/forms/forecast_bar.h"
#include "forecast/adviser.h"

namespace velorin {

struct match_state;

class LevelSegments;

/// Tells on the console what each aggression of a human side's men does to the chance of winning: found out behind
/// play once the match has rested a moment, and forgotten as soon as it stands elsewhere.
class LevelsAdviser : public QObject {
  Q_OBJECT

 public:
  /// The segments of the two batsmen and of the two bowlers, which outlive the adviser.
  using Segments = std::array<LevelSegments*, 2>;

  /// How many times the rest is played for each level.
  static constexpr long runs = 1'000;

  LevelsAdviser(const match_state& match, const Segments& batsmen, const Segments& bowlers, QObject* parent);

  /// The match stands here. Where the adviser is off, or the match is in play, nothing is asked.
  void refresh(const ForecastBar::Standing& standing, bool on);
  /// Something is to be found out, or is being found out.
  bool is_working() const { return pause_.isActive() || work_.is_working(); }

 private:
  void forget();
  void ask();

  const match_state& match_;
  Segments batsmen_;
  Segments bowlers_;
  std::optional<ForecastBar::Standing> asked_;
  QTimer pause_;
  BackWork work_;
};

}  // namespace velorin
