// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recording_player.h"

#include <utility>

#include "competitions/game_state.h"
#include "engine/play_steps.h"
#include "recording/kept_games.h"
#include "recording/replay.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

namespace {

/// Nobody is asked for anything: what is told is noted.
class noting_user : public front_end {
 public:
  explicit noting_user(watched_ball& ball) : ball_(ball) {}

  void show(const message_box& message) override {
    ball_.told.push_back(message.text);
    switch (message.kind) {
      case message_kind::batting_milestone:
      case message_kind::hundred:
      case message_kind::bowling_milestone:
      case message_kind::stand_milestone:
        ball_.milestone = true;
        break;
      default:
        break;
    }
  }
  save_answer answer(const failed_save&) override { return save_answer::give_up; }
  void show(conditions_form&) override {}
  void show(team_selection_form&) override {}
  void show(toss_form&) override {}
  void show(next_batsman_form&) override {}
  void show(bowler_choice_form&) override {}
  void show(aggression_form&) override {}
  void show(batsman_details_form&) override {}
  void show(console_form&) override {}
  void ball_bowled() override {}
  void progress(int) override {}
  void progress_done() override {}
  void open(report) override {}
  void show(match_report_form&) override {}
  void show(player_profile_form&) override {}
  void show(player_rankings_form&) override {}
  void show(series_results_form&) override {}
  void show(tri_series_table_form&) override {}
  void show(world_cup_fixtures_form&) override {}
  void show(world_cup_tables_form&) override {}

 private:
  watched_ball& ball_;
};

/// A ball with what follows on it has come to its end: what comes next draws, asks, or leaves the innings.
bool rests(play_step step) {
  switch (step) {
    case play_step::closed:
    case play_step::between_overs:
    case play_step::ball_bowled:
    case play_step::innings_card_shown:
    case play_step::innings_changes:
    case play_step::match_card_shown:
    case play_step::unattended_over:
      return true;
    default:
      return false;
  }
}

/// Counts the matches of a recording as it is played.
class match_counter {
 public:
  /// Play awaits an over, or a ball has been bowled. True with the first ball of a match.
  bool see(const match_state& match) {
    if (!match.deliveries.empty()) {
      if (begun_) return false;
      ++matches_;
      return begun_ = true;
    }
    if (opens_innings(match) && match.innings_number == 1) begun_ = false;
    return false;
  }
  /// The match in play, or about to begin, from 0.
  int match() const { return begun_ ? matches_ - 1 : matches_; }

  static bool opens_innings(const match_state& match) {
    const bool awaits = match.next_step == play_step::between_overs || match.next_step == play_step::over_told;
    return awaits && match.deliveries.empty();
  }

 private:
  int matches_ = 0;
  bool begun_ = false;
};

std::string sides_of(const match_state& match) { return match.team1_name + " v " + match.team2_name; }

}  // namespace

std::string watched_match::line() const {
  const std::string place = stage.empty() ? sides : stage + ": " + sides;
  return result.empty() ? place : place + ", " + result;
}

recording_player::recording_player(recording recorded, std::string name)
    : recorded_(std::move(recorded)), name_(std::move(name)) {
  list_matches();
  if (!matches_.empty()) choose_match(static_cast<int>(matches_.size()) - 1);
}

void recording_player::list_matches() {
  game_state game = game_at_beginning(recorded_);
  match_counter counter;
  replay_options options;
  options.waits = [&](const game_state& now) { counter.see(now.match); };
  options.stops_at = [&](const game_state& now) {
    if (counter.see(now.match)) {
      matches_.push_back({words_of(recorded_.beginning.game, now).stage, sides_of(now.match), {}});
    }
    return false;
  };
  options.match_ends = [&](const game_state& now) {
    matches_.back().result = now.match.result_winner + now.match.result_margin;
  };
  replay(recorded_, name_, game, options);
}

void recording_player::choose_match(int match) {
  if (match == match_) return;
  match_ = match;
  index_.clear();
  moments_.clear();
  game_state game = game_at_beginning(recorded_);
  match_counter counter;
  const auto look = [&](const match_state& now) {
    counter.see(now);
    const bool ball = now.next_step == play_step::ball_told;
    if (counter.match() == match && (ball || match_counter::opens_innings(now))) note(now);
  };
  replay_options options;
  options.waits = [&](const game_state& now) { look(now.match); };
  options.stops_at = [&](const game_state& now) {
    look(now.match);
    return counter.match() > match;
  };
  const replay_end end = replay(recorded_, name_, game, options);
  const bool breaks_off = end == replay_end::open && game.match.next_step != play_step::closed;
  // What was taken back last, and not played anew.
  if (breaks_off && counter.match() == match) {
    forget_from(game.match.innings_number, static_cast<int>(game.match.deliveries.size()) + 1);
  }
  watched_match& chosen = matches_[static_cast<std::size_t>(match)];
  // A match of practice is saved nowhere.
  if (chosen.result.empty()) chosen.result = moments_.back().result_winner + moments_.back().result_margin;
}

void recording_player::forget_from(int innings, int balls) {
  while (!index_.empty() && std::pair(index_.back().innings, index_.back().balls) >= std::pair(innings, balls)) {
    index_.pop_back();
    moments_.pop_back();
  }
}

void recording_player::note(const match_state& match) {
  watched_ball ball;
  ball.innings = match.innings_number;
  ball.balls = static_cast<int>(match.deliveries.size());
  forget_from(ball.innings, ball.balls);
  moments_.push_back(match);
  match_state& now = moments_.back();
  if (ball.balls != 0) {
    ball.bowled = now.deliveries.back();
    noting_user user(ball);
    random_source none;
    open_database data;
    const match_play play{now, none, user, data};
    do take_step(play);
    while (!rests(now.next_step));
    ball.ends_innings = now.next_step != play_step::ball_bowled && now.next_step != play_step::between_overs;
    ball.ends_over = now.next_step != play_step::ball_bowled;
  }
  now.computer_bats = now.computer_bowls = true;
  index_.push_back(std::move(ball));
}

}  // namespace velorin
