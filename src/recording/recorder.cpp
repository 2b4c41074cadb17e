// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recorder.h"

#include <fmt/format.h>

#include <algorithm>
#include <ctime>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/run_time_error.h"
#include "recording/beginning.h"
#include "reports/match_report.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "ui/saving.h"

namespace velorin {

namespace {

constexpr const char* without_recording = "If you go on without it, this game cannot be continued or watched again.";

std::uint32_t packed_levels(const conditions_form& form) {
  const std::array<int, 4> levels = {form.weather, form.pitch_surface, form.pitch_bounce, form.outfield};
  std::uint32_t packed = 0;
  for (std::size_t i = 0; i < levels.size(); ++i) packed |= static_cast<std::uint32_t>(levels[i]) << 4 * i;
  return packed;
}

std::uint32_t packed_ticks(const team_selection_form& form) {
  std::uint32_t packed = 0;
  for (std::size_t place = 1; place < form.ticks.size(); ++place) packed |= form.ticks[place] ? 1U << place : 0U;
  return packed;
}

/// What was bowled last was asked for as an over, and not as a ball by itself.
bool broke_off_in_over(const recording& before) {
  for (auto event = before.events.rbegin(); event != before.events.rend(); ++event) {
    const auto* answer = std::get_if<captain_answer>(&*event);
    if (answer == nullptr) continue;
    if (answer->kind == answer_kind::next_over || answer->kind == answer_kind::go_on) return true;
    // An over whose ball was taken back is asked for anew.
    if (answer->kind == answer_kind::next_ball || answer->kind == answer_kind::take_back) return false;
  }
  return false;
}

}  // namespace

recorder::recorder(front_end& shown_by, game_state& game, recording_sink& sink, std::string program,
                   checked_overs checked)
    : shown_by_(shown_by), game_(game), sink_(sink), program_(std::move(program)), checked_(checked) {}

recorder::~recorder() { game_.chance.log_to(nullptr); }

void recorder::go_on_with(const recording& before, practice_history remembered) {
  remembered_ = std::move(remembered);
  entries_ = entry_writer(before);
  entered_ = before.beginning.game;
  id_ = text_of(before.beginning.id);
  matches_saved_ =
      static_cast<int>(std::count(before.events.begin(), before.events.end(), recorded_event(recorded_saving{})));
  last_ = before.events.empty() ? recorded_event() : before.events.back();
  goes_on_within_over_ = broke_off_in_over(before);
  log_ = {};
  game_.chance.log_to(&log_);
  on_ = true;
  played_ = matches_saved_ > 0 || !game_.match.deliveries.empty() || !game_.match.first_deliveries.empty();
}

void recorder::game_begins(const entered_game& entered) {
  shown_by_.game_begins(entered);
  stop();
  const bool same_squads = begin(begun_, entered, game_);
  entered_ = entered;
  begun_.id = new_recording_id();
  begun_.begun_at = std::time(nullptr);
  begun_.program = program_;
  entries_.start();
  entries_.beginning(begun_, same_squads);
  id_ = text_of(begun_.id);
  matches_saved_ = 0;
  last_ = {};
  goes_on_within_over_ = false;
  remembered_ = {};
  log_ = {};
  game_.chance.log_to(&log_);
  on_ = true;
  played_ = false;
  save([&] { sink_.begin(begun_); });
  flush(true);
}

void recorder::game_over() {
  if (!on_) return;
  entries_.chance(log_);
  write(recorded_end{});
  flush(true);
  stop();
}

void recorder::stop() {
  game_.chance.log_to(nullptr);
  if (std::exchange(on_, false)) sink_.end();
}

void recorder::save(const std::function<void()>& act) {
  if (!saved(shown_by_, without_recording, act)) stop();
}

void recorder::write(const recorded_event& event) {
  if (!on_) return;
  entries_.chance(log_);
  // Where a game that broke off goes on, it comes by its last check once more.
  if (std::holds_alternative<recorded_check>(event) && event == last_) return;
  entries_.event(event);
  last_ = event;
}

void recorder::flush(bool settle) {
  if (!on_) return;
  entries_.chance(log_);
  if (!entries_.empty()) {
    const std::string bytes = entries_.take();
    save([&] { sink_.append(bytes); });
  }
  if (on_ && settle) sink_.settle();
}

void recorder::record(const captain_answer& answer) {
  write(answer);
  flush(true);
}

void recorder::answered(const captain_answer& answer) {
  shown_by_.answered(answer);
  const bool asked_before = std::exchange(goes_on_within_over_, false) && answer.kind == answer_kind::go_on;
  if (asked_before) return;
  if (answer.kind == answer_kind::next_over) write(check_of(game_.match));
  record(answer);
}

void recorder::over_bowled() {
  flush(true);
  shown_by_.over_bowled();
}

std::string recorder::saves_match() {
  write(check_of(game_.match));
  flush(true);
  return on_ ? fmt::format("{}-{}", id_, matches_saved_ + 1) : std::string();
}

std::string recorder::match_recording() {
  if (!on_) return {};
  entry_writer ending = entries_;
  ending.event(recorded_saving{});
  ending.event(recorded_end{});
  try {
    return sink_.written() + ending.take();
  } catch (const run_time_error&) {
    return {};  // the match counts without it
  }
}

void recorder::match_saved() {
  ++matches_saved_;
  write(recorded_saving{});
  flush(true);
  shown_by_.match_saved();
}

template <class Asked>
void recorder::ask(Asked& asked) {
  flush(false);
  shown_by_.show(asked);
  record({answer_kind::read});
}

void recorder::show(const message_box& message) { ask(message); }
void recorder::show(batsman_details_form& form) { ask(form); }
void recorder::show(match_report_form& form) { ask(form); }
void recorder::show(series_results_form& form) { ask(form); }
void recorder::show(tri_series_table_form& form) { ask(form); }

void recorder::show(world_cup_tables_form& form) {
  // From the fixture list the user opens them of himself.
  if (game_.world_cup.step == cup_step::list) return shown_by_.show(form);
  ask(form);
}

void recorder::show(world_cup_fixtures_form& form) {
  flush(false);
  const bool before = std::exchange(game_.world_cup.quit_requested, false);
  shown_by_.show(form);
  const bool quits = game_.world_cup.quit_requested;
  game_.world_cup.quit_requested = before || quits;
  record({quits ? answer_kind::quit_cup : answer_kind::read});
}

void recorder::show(conditions_form& form) {
  flush(false);
  shown_by_.show(form);
  record(form.left ? captain_answer{answer_kind::left} : captain_answer{answer_kind::conditions, packed_levels(form)});
}

void recorder::show(team_selection_form& form) {
  flush(false);
  shown_by_.show(form);
  record(form.left ? captain_answer{answer_kind::left} : captain_answer{answer_kind::selection, packed_ticks(form)});
}

void recorder::show(toss_form& form) {
  flush(false);
  shown_by_.show(form);
  if (form.left) record({answer_kind::left});
}

void recorder::show(next_batsman_form& form) {
  flush(false);
  shown_by_.show(form);
  record({answer_kind::next_batsman, static_cast<std::uint32_t>(form.chosen),
          static_cast<std::uint32_t>(form.aggression)});
}

void recorder::show(bowler_choice_form& form) {
  flush(false);
  shown_by_.show(form);
  record({answer_kind::bowler, static_cast<std::uint32_t>(form.chosen), form.closed ? 1U : 0U});
}

void recorder::show(aggression_form& form) {
  flush(false);
  shown_by_.show(form);
  record({answer_kind::aggression, form.closed ? static_cast<std::uint32_t>(form.aggression) : 0U});
}

void recorder::show(console_form& form) {
  flush(false);
  shown_by_.show(form);
}

void recorder::console_opens(console_form& form) {
  if (remembered_.can_take_back()) form.remember(std::exchange(remembered_, {}));
  shown_by_.console_opens(form);
}

void recorder::ball_bowled() {
  played_ = true;
  // Of an unattended match no ball is shown.
  if (game_.match.human_involved()) flush(false);
  shown_by_.ball_bowled();
}

void recorder::progress(int over) {
  if (checked_ == checked_overs::each || is_always_checked(over)) {
    write(check_of(game_.match));
    flush(false);
  }
  shown_by_.progress(over);
}

void recorder::progress_done() { shown_by_.progress_done(); }

void recorder::open(report which) {
  const play_step step = game_.match.next_step;
  const bool stops = step == play_step::innings_card_shown || step == play_step::match_card_shown;
  // What is opened from the card at which play stops is no card.
  if (stops && which == report::scorecard) {
    flush(false);
    shown_by_.open(which);
    record({answer_kind::read});
    return;
  }
  if (which == report::partnerships || which == report::first_partnerships || which == report::worm_graph) {
    record({answer_kind::looked, static_cast<std::uint32_t>(which)});
  }
  shown_by_.open(which);
}

}  // namespace velorin
