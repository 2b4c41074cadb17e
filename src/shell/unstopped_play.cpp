// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/unstopped_play.h"

#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <utility>

#include "competitions/game_state.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "shell/unstopped_window.h"

namespace velorin {

namespace {

constexpr int frame = 16;  // milliseconds between two looks at the screen

constexpr int group_matches = 20;
constexpr int super_six_end = 29;  // the last fixture of the Super Six
constexpr int knock_outs = 3;

bool next_tri_match_has_human(const tri_record& tri) {
  if (tri.matches_played < 3 * tri.rounds) {
    static constexpr std::array<std::array<std::size_t, 2>, 3> pairs = {{{1, 2}, {1, 3}, {2, 3}}};
    const auto [a, b] = pairs[static_cast<std::size_t>(tri.matches_played % 3)];
    return tri.sides[a].human || tri.sides[b].human;
  }
  for (const entered_side& side : tri.sides) {
    if (side.human && (side.team == tri.tri_table[1].note || side.team == tri.tri_table[2].note)) return true;
  }
  return false;
}

bool super_six_match_has_human(const world_cup_record& world_cup, const cup_fixture& fixture) {
  return world_cup.super_six_human[static_cast<std::size_t>(int(fixture.index_a))] ||
         world_cup.super_six_human[static_cast<std::size_t>(fixture.index_b + 3)];
}

/// The first semi-final is played by places 1 and 4 of the Super Six, whose table is sorted only after its last
/// standings were shown.
bool first_semifinal_has_human(const world_cup_record& world_cup) {
  super_six_league table = world_cup.super_six;
  std::array<bool, 7> human = world_cup.super_six_human;
  sort_league(table, 6, [&](int j) {
    const auto at = static_cast<std::size_t>(j);
    std::swap(human[at], human[at + 1]);
  });
  return human[1] || human[4];
}

bool next_cup_match_has_human(const world_cup_record& world_cup) {
  const int next = world_cup.next_match;
  const cup_fixture& fixture = world_cup.fixtures[static_cast<std::size_t>(std::min(next, super_six_end))];
  switch (world_cup.stage) {
    case cup_stage::group_matches: {
      if (next > group_matches) break;
      const std::array<bool, 5>& human = fixture.stage == "A" ? world_cup.human_a : world_cup.human_b;
      return human[static_cast<std::size_t>(fixture.index_a - 1)] ||
             human[static_cast<std::size_t>(fixture.index_b - 1)];
    }
    case cup_stage::super_six_draw: {
      // Nobody knows the first match before it is drawn.
      const cup_fixture& first = world_cup.fixtures[group_matches + 1];
      return first.stage == "SS" && super_six_match_has_human(world_cup, first);
    }
    case cup_stage::super_six_matches:
      return next > super_six_end ? first_semifinal_has_human(world_cup)
                                  : super_six_match_has_human(world_cup, fixture);
    case cup_stage::knock_out: {
      if (next == knock_outs) break;
      // The tables are shown before the next tie is entered.
      if (next == 1) return world_cup.semi_finals[2].human_a || world_cup.semi_finals[2].human_b;
      const auto winner_human = [](const cup_knockout& semi) {
        return semi.team_a == semi.winner ? semi.human_a : semi.human_b;
      };
      return winner_human(world_cup.semi_finals[1]) || winner_human(world_cup.semi_finals[2]);
    }
    default:
      break;
  }
  return false;
}

}  // namespace

int matches_left(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return game.series.matches - game.series.match_no;
    case Activity::series_of_three:
      return game.tri.matches_played < 3 * game.tri.rounds ? 3 * game.tri.rounds - game.tri.matches_played : 0;
    case Activity::cup:
      if (game.world_cup.stage == cup_stage::knock_out) return knock_outs - game.world_cup.next_match;
      return super_six_end + knock_outs - game.world_cup.next_match;
    case Activity::single_match:
      break;
  }
  return 0;
}

bool is_over(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return game.series.series_over;
    case Activity::series_of_three:
      return game.tri.final_played;
    case Activity::cup:
      return game.world_cup.stage == cup_stage::knock_out && game.world_cup.next_match == knock_outs;
    case Activity::single_match:
      break;
  }
  return true;
}

bool next_match_has_human(const game_state& game, Activity activity) {
  switch (activity) {
    case Activity::series_of_two:
      return game.series.home.human || game.series.away.human;
    case Activity::series_of_three:
      return next_tri_match_has_human(game.tri);
    case Activity::cup:
      return next_cup_match_has_human(game.world_cup);
    case Activity::single_match:
      break;
  }
  return false;
}

UnstoppedPlay::UnstoppedPlay(const game_state& game) : game_(game), user_(game.match) {}
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
    window_ = new UnstoppedWindow(game_.match, [this] { ask_to_stop(); });
    window_->show();
  }
  window_->show_progress(matches_left(game_, activity_));
  QCoreApplication::processEvents();
  since_shown_.start();
  if (program_is_ending()) throw ProgramEnds{};
}

}  // namespace velorin
