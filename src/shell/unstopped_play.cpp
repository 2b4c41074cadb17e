// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unstopped_play.h"

#include <QCoreApplication>
#include <optional>
#include <utility>

#include "competitions/forms/played_matches.h"
#include "competitions/game_state.h"
#include "competitions/next_match.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "shell/unstopped_window.h"

namespace velorin {

namespace {

constexpr int frame = 16;  // milliseconds between two looks at the screen

std::optional<coming_match> next_match_of(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return next_match(game.series);
    case Activity::series_of_three:
      return next_match(game.tri);
    case Activity::cup:
      return next_match(game.world_cup);
    case Activity::single_match:
      break;
  }
  return std::nullopt;
}

QString name_of(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return QStringLiteral("%1 v %2").arg(shown(game.series.home.team), shown(game.series.away.team));
    case Activity::series_of_three:
      return QStringLiteral("Tri Series");
    case Activity::cup:
      return QStringLiteral("World Cup");
    case Activity::single_match:
      break;
  }
  return {};
}

}  // namespace

int matches_left(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return matches_after_this(game.series);
    case Activity::series_of_three:
      return matches_after_this(game.tri);
    case Activity::cup:
      return matches_after_this(game.world_cup);
    case Activity::single_match:
      break;
  }
  return 0;
}

bool is_over(const game_state& game, Activity activity) { return !next_match_of(game, activity); }

bool next_match_has_human(const game_state& game, Activity activity) {
  const auto coming = next_match_of(game, activity);
  return coming && coming->has_human();
}

UnstoppedPlay::UnstoppedPlay(const game_state& game, std::function<PlayedMatches()> played)
    : game_(game), played_(std::move(played)), user_(game.match) {}
UnstoppedPlay::~UnstoppedPlay() { delete window_.data(); }

void UnstoppedPlay::begin(Activity activity) {
  end();
  activity_ = activity;
}

void UnstoppedPlay::end() {
  answering_ = running_ = stop_asked_ = false;
  delete window_.data();
}

bool UnstoppedPlay::switched_on() const {
  switch (activity_) {
    case Activity::series_of_two:
      return preferences::plays_without_stopping(QStringLiteral("series1"));
    case Activity::series_of_three:
      return preferences::plays_without_stopping(QStringLiteral("series2"));
    case Activity::cup:
      return preferences::plays_without_stopping(QStringLiteral("wctable"));
    case Activity::single_match:
      break;
  }
  return false;
}

void UnstoppedPlay::match_begins() {
  answering_ = switched_on() && !game_.match.human_involved();
  if (answering_) {
    running_ = true;
    if (window_) window_->show_results(played_());
  } else {
    end();
  }
}

bool UnstoppedPlay::passes_standings() {
  answering_ = false;
  if (running_ && !stop_asked_ && switched_on() && !is_over(game_, activity_) &&
      !next_match_has_human(game_, activity_)) {
    return true;
  }
  end();
  return false;
}

void UnstoppedPlay::ball_bowled() {
  if (!answering_) return;
  if (window_ && since_shown_.elapsed() < frame) return;
  show_progress();
}

void UnstoppedPlay::show_progress() {
  if (!window_) {
    window_ = new UnstoppedWindow(game_.match, name_of(game_, activity_), [this] { ask_to_stop(); });
    window_->show_results(played_());
    window_->show();
  }
  window_->show_progress(matches_left(game_, activity_));
  QCoreApplication::processEvents();
  since_shown_.start();
  if (program_is_ending()) throw ProgramEnds{};
}

}  // namespace velorin
