// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <map>
#include <utility>

#include "competitions/forms/played_matches.h"
#include "reports/forms/match_report_window.h"
#include "reports/match_report.h"
#include "shell/unstopped_play.h"

namespace velorin {

struct game_state;

/// The reports of the matches of the competition under way, as they were played in this run of the program. They are
/// kept here and not in the records of the game: nothing but the windows reads them, and a game that nobody watches
/// makes none.
class PlayedReports {
 public:
  /// The menu opens an activity: what was kept of the last one goes.
  void begin(Activity activity);
  /// The activity is a competition.
  bool keeps() const { return activity_ != Activity::single_match; }

  /// Keeps the report of the match in play by its number in the competition.
  void keep(const game_state& game, const match_report& report);
  /// What the names of men in the reports do.
  void on_profile(MatchReportWindow::ShowProfile show) { profile_ = std::move(show); }

  /// For the windows of the competition; a report is shown modally.
  PlayedMatches matches() const;

 private:
  MatchReportWindow::ShowProfile profile_;
  Activity activity_ = Activity::single_match;
  std::map<int, match_report> reports_;
};

}  // namespace velorin
