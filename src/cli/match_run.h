// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>

#include "cli/match_json.h"
#include "cli/match_summary.h"
#include "database/fresh_file.h"
#include "database/open_database.h"
#include "headless/headless_user.h"

// What a run of matches asks for, and what it keeps of them.

namespace velorin::cli {

struct match_options {
  std::string team1;
  std::string team2;
  std::string ground;
  std::string captain1 = "cpu";
  std::string captain2 = "cpu";
  std::string conditions;
  long matches = 1;
  std::optional<int> jobs;  ///< threads that play; each match has a seed of its own then
  bool update = false;
  std::string record;              ///< a recording
  bool records_to_folder = false;  ///< `record` is a folder, for one recording a match
  std::string json;
  std::string html;
  std::string text;
  std::string ball_by_ball;
  int export_innings = 2;
  bool quiet = false;

  /// One match and nothing else asked of standard output.
  bool prints_scorecard() const { return matches == 1 && !quiet && json != "-"; }
  bool prints_summary() const { return matches > 1 && !quiet && json != "-"; }
};

/// The headless user, who also keeps what the command prints. What it is given must outlive it.
class match_recorder : public headless_user {
 public:
  match_recorder(const match_state& match, open_database& data, const match_options& options, match_summary& summary)
      : headless_user(match), match_(match), data_(data), options_(options), summary_(summary) {}

  using headless_user::show;

  /// `last`: the match whose scorecard is printed and exported.
  void begin_match(bool last);

  void show(const message_box& message) override;
  /// Raises run_time_error (file) if an export cannot be written.
  void open(report which) override;

  /// Raises run_time_error (file) if a file was asked for and its innings never came to an end.
  void require_exports() const;

  /// The line of the match just played, which drew so many numbers; taken once.
  std::string match_line(std::uint64_t draws);

  /// The text scorecard of the last innings shown, UTF-8 with plain line ends.
  std::string shown_scorecard() const;

 private:
  void save_exports() const;

  const match_state& match_;
  open_database& data_;
  const match_options& options_;
  match_summary& summary_;
  bool last_ = false;
  bool exported_ = false;
  int innings_ = 0;
  std::string line_;  // what is written of the match so far: as a value it would take ten times the room
  json messages_;
  std::string shown_;
};

/// The output of --json: a file or standard output. What cannot be written is a run_time_error (file).
class json_output {
 public:
  json_output(const std::string& path, std::ostream& out);

  void write(std::string_view line);
  void close();

 private:
  std::ostream* out_;
  std::unique_ptr<fresh_file> file_;
};

}  // namespace velorin::cli
