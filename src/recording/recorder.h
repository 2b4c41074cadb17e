// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <utility>

#include "competitions/game_state.h"
#include "engine/practice_history.h"
#include "recording/entry_writer.h"
#include "recording/recording.h"
#include "ui/front_end.h"

namespace velorin {

/// Where the bytes of a recording go.
class recording_sink {
 public:
  virtual ~recording_sink() = default;
  /// A game begins: what follows belongs to it. Raises run_time_error (file).
  virtual void begin(const recorded_beginning& begun) = 0;
  /// The bytes are with the system when it returns. Raises run_time_error (file): nothing of them counts then.
  virtual void append(std::string_view bytes) = 0;
  /// What has been appended is to go to the disk; need not wait for it.
  virtual void settle() = 0;
  /// Nothing follows.
  virtual void end() = 0;
  /// All that has been appended since the game began. Raises run_time_error (file).
  virtual std::string written() const = 0;
};

/// Keeps a recording in memory.
class recording_in_memory : public recording_sink {
 public:
  void begin(const recorded_beginning&) override { bytes_.clear(); }
  void append(std::string_view bytes) override { bytes_ += bytes; }
  void settle() override {}
  void end() override {}
  std::string written() const override { return bytes_; }

  const std::string& bytes() const { return bytes_; }

 private:
  std::string bytes_;
};

/// Which overs of an unattended match begin with a check. Where one stands such a match can be gone on with.
enum class checked_overs {
  each,
  every_tenth,  ///< for a match that nobody goes on with: a tenth of the cost
};

/// Stands between the game and whoever shows it, and writes down all that play follows from: each request is shown by
/// the other, and its answer recorded. What was recorded is with the sink before anything of what follows is shown, so
/// that a recording that breaks off always ends where a copy of the game could have been taken. A sink that fails is a
/// failed save: the user may go on without a recording.
class recorder : public front_end {
 public:
  /// All outlive it. `program`: the version for the recording. `checked`: which overs of an unattended match are.
  recorder(front_end& shown_by, game_state& game, recording_sink& sink, std::string program,
           checked_overs checked = checked_overs::each);
  ~recorder() override;

  /// Goes on with a recording that the game has been played to the end of: the sink goes on behind it. `remembered`:
  /// what its match of practice remembers, for the console in which it goes on.
  void go_on_with(const recording& before, practice_history remembered = {});
  /// A game is being recorded.
  bool is_on() const { return on_; }
  /// What it was entered as. Requires that one is.
  const entered_game& entered() const { return entered_; }
  /// A ball has been bowled in it.
  bool has_play() const { return played_; }
  /// The game that was recorded is over, or was left: nothing of it is to be gone on with.
  void game_over();
  /// The game stays as it is, to be gone on with some day.
  void stop();

  void game_begins(const entered_game& entered) override;
  void answered(const captain_answer& answer) override;
  void over_bowled() override;
  std::string saves_match() override;
  /// Of a competition all that was played before it stands in it as well.
  std::string match_recording() override;
  void match_saved() override;

  void show(const message_box& message) override;
  save_answer answer(const failed_save& failed) override { return shown_by_.answer(failed); }
  void show(conditions_form& form) override;
  void show(team_selection_form& form) override;
  void show(toss_form& form) override;
  void show(next_batsman_form& form) override;
  void show(bowler_choice_form& form) override;
  void show(aggression_form& form) override;
  void show(batsman_details_form& form) override;
  void show(console_form& form) override;
  void console_opens(console_form& form) override;
  void console_closes() override { shown_by_.console_closes(); }
  void about_to_bowl(console_form& form) override { shown_by_.about_to_bowl(form); }
  void ball_bowled() override;
  void progress(int over) override;
  void progress_done() override;
  void open(report which) override;
  void show(match_report_form& form) override;
  void show(player_profile_form& form) override { shown_by_.show(form); }
  void show(player_rankings_form& form) override { shown_by_.show(form); }
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

 private:
  /// Shows a form, or what else is asked, and records that it was put away.
  template <class Asked>
  void ask(Asked& asked);
  void record(const captain_answer& answer);
  void write(const recorded_event& event);
  /// Hands what was written to the sink. `settle`: it is to go to the disk.
  void flush(bool settle);
  void save(const std::function<void()>& act);

  front_end& shown_by_;
  game_state& game_;
  recording_sink& sink_;
  std::string program_;
  checked_overs checked_;
  bool on_ = false;
  bool played_ = false;
  entered_game entered_;
  std::string id_;
  int matches_saved_ = 0;
  recorded_event last_;
  bool goes_on_within_over_ = false;  // the over at which the recording broke off is still asked for
  practice_history remembered_;
  chance_log log_;
  recorded_beginning begun_;  // of the game recorded last
  entry_writer entries_;
};

}  // namespace velorin
