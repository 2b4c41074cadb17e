// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "competitions/world_cup.h"
#include "model/captain_answer.h"
#include "model/entered_game.h"
#include "model/match_records.h"
#include "model/match_state.h"
#include "model/random.h"
#include "recording/packing.h"

// What a game was made of: what was entered, the teams and grounds as they were, what seeded chance, every answer of a
// user. Played again it is the same game. docs/formats/recording.md describes the file.

namespace velorin {

inline constexpr std::string_view recording_magic = "velorec\n";
/// Of the files' names.
inline constexpr std::string_view recording_extension = ".velorin";
inline constexpr int recording_version = 1;
/// To be raised with every change by which a recording would be played otherwise than it was.
inline constexpr int rules_version = 1;
inline constexpr std::size_t recording_head = 12;      ///< bytes: magic, format version, rules version
inline constexpr std::size_t longest_entry = 1 << 20;  ///< bytes of an entry's content

using recording_id = std::array<std::uint8_t, 16>;
/// 32 hexadecimal digits.
std::string text_of(const recording_id& id);
/// One that nobody has, from the system's own chance.
recording_id new_recording_id();

/// What stood of earlier games of the run and is shown, or counted on, in this one.
struct standing_games {
  match_worms worms;
  std::optional<world_cup_record> world_cup;  ///< nothing where it is fresh, or is not played on
};

/// The first entry: all that the game began with.
struct recorded_beginning {
  recording_id id{};
  std::int64_t begun_at = 0;  ///< seconds since 1970, UTC
  std::string program;        ///< the version that recorded it
  entered_game game;
  std::vector<std::pair<int, team_rec>> teams;  ///< with their numbers in the team file; men without a name left out
  std::vector<ground_rec> grounds;              ///< in file order
  std::string database;                         ///< base name of the database whose careers count the matches
  std::string text_color;                       ///< of exported pages, as the settings had it
  std::string back_color;                       ///< likewise
  random_source::kind chance = random_source::kind::clock;
  std::uint64_t chance_state = 0;
  standing_games standing;
};

/// The state of play that a check holds on to.
struct recorded_check {
  std::uint32_t value = 0;
  bool operator==(const recorded_check&) const = default;
};
/// The match in play was added to the careers and records, or is to be missing from them.
struct recorded_saving {
  bool operator==(const recorded_saving&) const = default;
};
/// The game is over, or was left: nothing follows.
struct recorded_end {
  bool operator==(const recorded_end&) const = default;
};

using recorded_event = std::variant<captain_answer, recorded_check, recorded_saving, recorded_end>;

/// A recording in memory.
struct recording {
  recorded_beginning beginning;
  std::vector<recorded_event> events;   ///< in the order in which they happened
  std::vector<std::uint64_t> readings;  ///< of the clock, likewise
  std::vector<double> draws;            ///< scripted ones, likewise
  std::size_t whole_bytes = 0;          ///< of the file: what is behind them was cut off
  std::uint32_t check = 0;              ///< of these bytes, for whoever goes on with the file

  bool ended() const { return !events.empty() && std::holds_alternative<recorded_end>(events.back()); }
};

/// Reads a recording. `name` is the file's for errors. What was cut off at its end is left out. Raises run_time_error
/// (file): no recording, one of a newer format or of other rules, damaged before its end; with the number of the entry
/// and its place.
recording read_recording(std::string_view bytes, const std::string& name);
/// Raises the same, and what reading the file raises.
recording read_recording(const std::filesystem::path& file);

/// The head of a file: magic, format, rules.
std::string recording_head_bytes();

/// A file of which a stop of the program has left nothing or less than a whole beginning: no game is lost with it.
bool holds_nothing_yet(std::string_view bytes);

/// An unattended match has a check in any case where this over, 1 to 100, begins.
constexpr bool is_always_checked(int over) { return over % 10 == 0; }
/// What a check of this moment is.
recorded_check check_of(const match_state& match);

}  // namespace velorin
