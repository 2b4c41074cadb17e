// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fmt/format.h>

#include <cstdint>
#include <string>

#include "competitions/game_state.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/run_time_error.h"
#include "recording/recording.h"
#include "recording/replay.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "ui/front_end.h"

namespace velorin {

/// Leaves the game where it stands. No error: play can be gone on with from there.
struct play_left {
  replay_end where;
};

/// Answers the game as the recording has it.
class recorded_user : public front_end {
 public:
  recorded_user(const recording& recorded, const std::string& name, game_state& game, const replay_options& options)
      : recorded_(recorded), name_(name), game_(game), options_(options) {}

  void show(const message_box& message) override {
    // Before the first entry a form may refuse what was entered; nothing of it was recorded.
    need(answer_kind::read);
    if (options_.watcher != nullptr) options_.watcher->show(message);
    ++next_;
  }
  save_answer answer(const failed_save&) override { return save_answer::give_up; }

  void show(conditions_form& form) override {
    const captain_answer answer = take(answer_kind::conditions, answer_kind::left);
    if (answer.kind == answer_kind::left) return form.leave();
    const auto level = [&](int i) { return static_cast<int>(answer.first >> 4 * i & 0xF); };
    form.weather = in_range(level(0), 1, 4);
    form.pitch_surface = in_range(level(1), 1, 4);
    form.pitch_bounce = in_range(level(2), 1, 4);
    form.outfield = in_range(level(3), 1, 4);
    form.accept();
  }

  void show(team_selection_form& form) override {
    const captain_answer answer = take(answer_kind::selection, answer_kind::left);
    if (answer.kind == answer_kind::left) return form.leave();
    for (std::size_t place = 1; place < form.ticks.size(); ++place) {
      form.ticks[place] = (answer.first >> place & 1) != 0 && form.row_visible(static_cast<int>(place));
    }
    form.accept();
    if (!form.closed) raise_unfit();
  }

  void show(toss_form& form) override {
    while (!form.closed) {
      const captain_answer answer = take();
      switch (answer.kind) {
        case answer_kind::toss_call:
          form.call_coin(static_cast<int>(answer.first));
          break;
        case answer_kind::toss_bat:
          form.choose_to_bat();
          break;
        case answer_kind::toss_bowl:
          form.choose_to_bowl();
          break;
        case answer_kind::left:
          form.leave();
          break;
        default:
          raise_unfit();
      }
    }
  }

  void show(next_batsman_form& form) override {
    const captain_answer answer = take(answer_kind::next_batsman);
    if (answer.first != 0) form.choose(in_range(static_cast<int>(answer.first), 1, men_in_eleven));
    form.aggression = in_range(static_cast<int>(answer.second), least_aggression, most_aggression);
    form.accept();
  }

  void show(bowler_choice_form& form) override {
    const captain_answer answer = take(answer_kind::bowler);
    if (answer.first != 0) form.choose(in_range(static_cast<int>(answer.first), 1, men_in_eleven));
    if (answer.second != 0) form.accept();
  }

  void show(aggression_form& form) override {
    const captain_answer answer = take(answer_kind::aggression);
    if (answer.first == 0) return;
    form.aggression = in_range(static_cast<int>(answer.first), least_aggression, most_aggression);
    form.accept();
  }

  void show(batsman_details_form&) override { take(answer_kind::read); }

  void show(console_form& form) override {
    if (options_.waits) options_.waits(game_);
    try {
      while (!form.closed()) act(form, take());
    } catch (...) {
      if (options_.console_left) options_.console_left(form);
      throw;
    }
  }
  void over_bowled() override {
    if (options_.waits) options_.waits(game_);
  }

  void ball_bowled() override {
    if (options_.watcher != nullptr) options_.watcher->ball_bowled();
    if (options_.stops_at && options_.stops_at(game_)) throw play_left{replay_end::stopped};
    if (game_.match.human_involved()) stop_at_end();
  }

  void progress(int over) override {
    stop_at_end();
    take_check(!is_always_checked(over));
    if (options_.watcher != nullptr) options_.watcher->progress(over);
    if (options_.stops_at && options_.stops_at(game_)) throw play_left{replay_end::stopped};
    stop_at_end();
  }
  void progress_done() override {
    if (options_.watcher != nullptr) options_.watcher->progress_done();
  }

  void open(report which) override {
    // The worm and the graph of overs are opened by nobody here, and a card only where play stops.
    captain_answer answer = take();
    if (options_.watcher != nullptr) options_.watcher->open(which);
    for (; answer.kind == answer_kind::looked; answer = take()) look(answer.first);
    if (answer.kind != answer_kind::read) raise_unfit();
  }

  void show(match_report_form&) override { take(answer_kind::read); }
  void show(player_profile_form&) override {}
  void show(player_rankings_form&) override {}

  void show(series_results_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(tri_series_table_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(world_cup_fixtures_form& form) override {
    const captain_answer answer = take(answer_kind::read, answer_kind::quit_cup);
    if (answer.kind == answer_kind::quit_cup) return form.quit();
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }
  void show(world_cup_tables_form& form) override {
    take(answer_kind::read);
    if (options_.watcher != nullptr) return options_.watcher->show(form);
    form.accept();
  }

  std::string saves_match() override {
    take_check();
    if (options_.match_ends) options_.match_ends(game_);
    if (next_ >= recorded_.events.size()) throw play_left{replay_end::open};
    if (!std::holds_alternative<recorded_saving>(recorded_.events[next_])) raise_unfit();
    ++next_;
    return {};
  }

  /// Nothing follows in the recording.
  bool at_end() const { return next_ >= recorded_.events.size(); }

 private:
  bool goes_on(std::size_t event) const {
    return event < recorded_.events.size() &&
           recorded_.events[event] == recorded_event(captain_answer{answer_kind::go_on});
  }

  /// Where nothing follows in the recording, play stops: here it broke off. An over that was gone on with, and broke
  /// off again before its next ball, is nothing either.
  void stop_at_end() const {
    std::size_t next = next_;
    while (in_call_ && goes_on(next)) ++next;
    if (next >= recorded_.events.size() && game_.chance.left() == 0) throw play_left{replay_end::open};
  }

  [[noreturn]] void raise_unfit() const {
    throw run_time_error(failure::file,
                         fmt::format("The recording does not fit to the game at its event {}: it was made by another "
                                     "version of the program, or is damaged",
                                     next_ + 1),
                         {.file = name_, .record = 0, .field = {}, .player = {}});
  }

  int in_range(int value, int least, int most) const {
    if (value < least || value > most) raise_unfit();
    return value;
  }

  /// Holds play against a check that stands here. `or_later`: it may be one of a later over; that over finds out.
  void take_check(bool or_later = false) {
    if (at_end()) return;
    const auto* check = std::get_if<recorded_check>(&recorded_.events[next_]);
    if (check == nullptr) return;
    if (*check != check_of(game_.match)) {
      if (or_later) return;
      raise_unfit();
    }
    ++next_;
  }

  /// The next answer. Leaves play where there is none.
  const captain_answer& peek() {
    // What the recording went on with after it had been left here is still on the way in this call.
    for (; in_call_ && goes_on(next_); ++next_) rest_of_over_ = true;
    take_check();
    if (at_end()) {
      // Chance that nobody has used tells that play went another way.
      if (game_.chance.left() != 0) raise_unfit();
      throw play_left{replay_end::open};
    }
    // What is kept of a competition up to one of its matches ends before the next question.
    if (std::holds_alternative<recorded_end>(recorded_.events[next_]) && next_ > 0 &&
        recorded_.events[next_ - 1] == recorded_event(recorded_saving{})) {
      throw play_left{replay_end::over};
    }
    const auto* answer = std::get_if<captain_answer>(&recorded_.events[next_]);
    if (answer == nullptr) raise_unfit();
    return *answer;
  }
  captain_answer take() {
    const captain_answer answer = peek();
    ++next_;
    return answer;
  }
  captain_answer take(answer_kind kind, answer_kind or_kind) {
    const captain_answer answer = take();
    if (answer.kind != kind && answer.kind != or_kind) raise_unfit();
    return answer;
  }
  captain_answer take(answer_kind kind) { return take(kind, kind); }
  void need(answer_kind kind) {
    if (peek().kind != kind) raise_unfit();
  }

  void look(std::uint32_t which);

  /// A dialog that the user had opened is answered. One that was open as the game broke off is gone, and the console
  /// waits for him again.
  bool is_answered(answer_kind kind) const {
    const auto* answer = at_end() ? nullptr : std::get_if<captain_answer>(&recorded_.events[next_]);
    return answer != nullptr && answer->kind == kind;
  }

  /// Does what the user did at the console.
  void act(console_form& form, const captain_answer& answer);

  const recording& recorded_;
  const std::string& name_;
  game_state& game_;
  const replay_options& options_;
  std::size_t next_ = 0;
  bool in_call_ = false;       // an over or a ball is being bowled
  bool rest_of_over_ = false;  // and, of a ball, the over is to be gone on with
};

}  // namespace velorin
