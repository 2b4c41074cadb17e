// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/elevens.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/slots.h"
#include "model/match_state.h"
#include "model/rules.h"

namespace velorin {

namespace {

/// The elevens while files.elevens_in_memory is set.
struct elevens_held {
  std::array<eleven, 2> men;
  bool exchanged = false;  ///< the first side's men are men[1]

  eleven& of(side which) { return men[(which == side::second) != exchanged ? 1 : 0]; }
};
elevens_held held;

std::filesystem::path first_file() { return files.folder / "team1r.txt"; }
std::filesystem::path second_file() { return files.folder / "team2r.txt"; }
std::filesystem::path spare_file() { return files.folder / "dummy.txt"; }

/// The bytes that a man takes in his slot, without writing him.
std::size_t encoded_size(const player_rec& man) {
  constexpr std::size_t without_texts = 30;
  std::size_t size = without_texts + man.name.size() + man.bat_type.size() + man.bowler_type.size();
  for (const std::string& text : man.reserved) size += text.size();
  return size;
}

constexpr const char* cannot_exchange = "The elevens cannot be exchanged";

void hold_eleven(side which, const eleven& men) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    if (encoded_size(men[i]) <= eleven_slot) continue;
    throw run_time_error(
        failure::overflow,
        fmt::format("Overflow: a record of {} bytes in a slot of {}", encoded_size(men[i]), eleven_slot),
        {.file = file_name_text(which == side::first ? first_file() : second_file()),
         .record = i,
         .field = {},
         .player = men[i].name});
  }
  held.of(which) = men;
}

void read_eleven(const std::filesystem::path& path, eleven& men) {
  const slot_file file = slot_file::read(path, eleven_slot);
  eleven fresh;
  for (int i = 1; i <= men_in_eleven; ++i) file.get(i, fresh[i]);
  men = std::move(fresh);
}

void put_men(slot_file& file, const eleven& men) {
  for (int i = 1; i <= men_in_eleven; ++i) file.put(i, encoded(men[i]), men[i].name);
}

/// Renames and tells the cause if that failed, else 0.
int error_of_rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  return rename_file(from, to) ? 0 : errno;
}

/// What has been found of an exchange that was cut off, and done about it.
enum class cut_off { nothing, undone, finished, idle_spare };

/// Settles an exchange that was cut off: one that had renamed the second file alone is undone, one that had renamed the
/// first, too, is finished. Tells of a plain dummy.txt beside both files, which is left. Requires the lock of the
/// folder. Raises run_time_error (file): `tried` tells what cannot be done then.
cut_off settle_exchange(const char* tried) {
  if (occupant_of(spare_file()) != occupant::plain_file) return cut_off::nothing;
  for (const std::filesystem::path& file : {second_file(), first_file()}) {
    if (occupant_of(file) != occupant::none) continue;
    if (const int cause = error_of_rename(spare_file(), file)) raise_file_error(tried, cause, spare_file());
    return file == first_file() ? cut_off::finished : cut_off::undone;
  }
  return cut_off::idle_spare;
}

}  // namespace

void write_eleven(side which, const eleven& men) {
  if (files.elevens_in_memory) {
    hold_eleven(which, men);
    return;
  }
  const std::filesystem::path path = which == side::first ? first_file() : second_file();
  const folder_lock turn(path);
  const bool spare_is_idle = settle_exchange("The eleven cannot be written") == cut_off::idle_spare;
  slot_file file = slot_file::read(path, eleven_slot);
  put_men(file, men);
  replace_file(path, file.bytes());
  // It would be in the way of the exchange.
  if (spare_is_idle) ::unlink(spare_file().c_str());
}

void read_elevens() {
  if (files.elevens_in_memory) {
    match.batting_xi = held.of(side::first);
    match.bowling_xi = held.of(side::second);
    return;
  }
  const folder_lock turn(first_file());
  read_eleven(first_file(), match.batting_xi);
  read_eleven(second_file(), match.bowling_xi);
}

void swap_elevens(bool again) {
  if (files.elevens_in_memory) {
    held.exchanged = !held.exchanged;
    return;
  }
  const folder_lock turn(first_file());
  if (settle_exchange(cannot_exchange) == cut_off::finished && again) return;
  if (occupant_of(spare_file()) != occupant::none) {
    raise_file_error(cannot_exchange, EEXIST, spare_file());
  }
  if (const int cause = error_of_rename(second_file(), spare_file())) {
    raise_file_error(cannot_exchange, cause, second_file());
  }
  if (const int cause = error_of_rename(first_file(), second_file())) {
    error_of_rename(spare_file(), second_file());
    raise_file_error(cannot_exchange, cause, first_file());
  }
  if (const int cause = error_of_rename(spare_file(), first_file())) {
    if (error_of_rename(second_file(), first_file()) == 0) error_of_rename(spare_file(), second_file());
    raise_file_error(cannot_exchange, cause, spare_file());
  }
}

elevens_before::elevens_before() {
  if (files.elevens_in_memory) return;
  const std::array<std::filesystem::path, 2> paths = {first_file(), second_file()};
  for (std::size_t i = 0; i < 2; ++i) {
    try {
      const bool there = occupant_of(paths[i]) != occupant::none;
      files_[i] = file_before{there, slot_file::read(paths[i], eleven_slot).bytes()};
    } catch (const run_time_error&) {
      files_[i].reset();
    }
  }
}

void elevens_before::put_back(const std::array<eleven, 2>& written) const {
  const std::array<std::filesystem::path, 2> paths = {first_file(), second_file()};
  for (std::size_t i = 0; i < 2; ++i) {
    if (!files_[i]) continue;
    const folder_lock turn(paths[i]);
    slot_file as_written(files_[i]->bytes, eleven_slot, file_name_text(paths[i]));
    put_men(as_written, written[i]);
    if (slot_file::read(paths[i], eleven_slot).bytes() != as_written.bytes()) continue;
    if (files_[i]->there) {
      replace_file(paths[i], files_[i]->bytes);
    } else {
      ::unlink(paths[i].c_str());
    }
  }
}

}  // namespace velorin
