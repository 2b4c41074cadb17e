// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/played_reports.h"

#include "competitions/game_state.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "reports/forms/match_report_window.h"

namespace velorin {

namespace {

int matches_of(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return game.series.matches;
    case Activity::series_of_three:
      return tri_round_matches * game.tri.rounds + 1;
    case Activity::cup:
      return cup_matches;
    case Activity::single_match:
      break;
  }
  return 1;
}

}  // namespace

void PlayedReports::begin(Activity activity) {
  activity_ = activity;
  reports_.clear();
}

void PlayedReports::keep(const game_state& game, const match_report& report) {
  if (keeps()) reports_[matches_of(game, activity_) - matches_left(game, activity_)] = report;
}

PlayedMatches PlayedReports::matches() const {
  PlayedMatches played;
  for (const auto& [number, report] : reports_) {
    const auto& [first, second] = report.innings;
    played.all.push_back({.number = number,
                          .sides = QStringLiteral("%1 v %2").arg(shown(first.side), shown(second.side)),
                          .ground = shown(report.ground),
                          .result = shown(report.result).simplified(),
                          .first = shown(first.side),
                          .second = shown(second.side)});
  }
  played.open = [this](int number) {
    MatchReportWindow window(reports_.at(number), profile_);
    run_modal(window);
  };
  return played;
}

}  // namespace velorin
