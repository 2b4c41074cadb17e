// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/elevens.h"

#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

#include "database/configuration.h"
#include "database/file_calls.h"
#include "database/open_database.h"
#include "database/slots.h"
#include "model/match_state.h"
#include "model/rules.h"

namespace velorin {

namespace {

std::filesystem::path first_file(const open_database& data) { return data.files.folder / "team1r.txt"; }
std::filesystem::path second_file(const open_database& data) { return data.files.folder / "team2r.txt"; }
std::filesystem::path spare_file(const open_database& data) { return data.files.folder / "dummy.txt"; }

/// The bytes that a man takes in his slot, without writing him.
std::size_t encoded_size(const player_rec& man) {
  constexpr std::size_t without_texts = 30;
  std::size_t size = without_texts + man.name.size() + man.bat_type.size() + man.bowler_type.size();
  for (const std::string& text : man.reserved) size += text.size();
  return size;
}

constexpr const char* cannot_exchange = "The elevens cannot be exchanged";

void hold_eleven(open_database& data, side which, const eleven& men) {
  for (int i = 1; i <= men_in_eleven; ++i) {
    if (encoded_size(men[i]) <= eleven_slot) continue;
    throw run_time_error(
        failure::overflow,
        fmt::format("Overflow: a record of {} bytes in a slot of {}", encoded_size(men[i]), eleven_slot),
        {.file = file_name_text(which == side::first ? first_file(data) : second_file(data)),
         .record = i,
         .field = {},
         .player = men[i].name});
  }
  data.held.of(which) = men;
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
cut_off settle_exchange(const open_database& data, const char* tried) {
  if (occupant_of(spare_file(data)) != occupant::plain_file) return cut_off::nothing;
  for (const std::filesystem::path& file : {second_file(data), first_file(data)}) {
    if (occupant_of(file) != occupant::none) continue;
    if (const int cause = error_of_rename(spare_file(data), file)) raise_file_error(tried, cause, spare_file(data));
    return file == first_file(data) ? cut_off::finished : cut_off::undone;
  }
  return cut_off::idle_spare;
}

}  // namespace

void write_eleven(open_database& data, side which, const eleven& men) {
  if (data.files.elevens_in_memory) {
    hold_eleven(data, which, men);
    return;
  }
  const std::filesystem::path path = which == side::first ? first_file(data) : second_file(data);
  const folder_lock turn(path, data.files.watcher);
  const bool spare_is_idle = settle_exchange(data, "The eleven cannot be written") == cut_off::idle_spare;
  slot_file file = slot_file::read(path, eleven_slot);
  put_men(file, men);
  replace_file(path, file.bytes());
  // It would be in the way of the exchange.
  if (spare_is_idle) ::unlink(spare_file(data).c_str());
}

void read_elevens(match_state& match, const open_database& data) {
  if (data.files.elevens_in_memory) {
    match.batting_xi = data.held.of(side::first);
    match.bowling_xi = data.held.of(side::second);
    return;
  }
  const folder_lock turn(first_file(data), data.files.watcher);
  read_eleven(first_file(data), match.batting_xi);
  read_eleven(second_file(data), match.bowling_xi);
}

void swap_elevens(open_database& data, bool again) {
  if (data.files.elevens_in_memory) {
    data.held.exchanged = !data.held.exchanged;
    return;
  }
  const folder_lock turn(first_file(data), data.files.watcher);
  if (settle_exchange(data, cannot_exchange) == cut_off::finished && again) return;
  if (occupant_of(spare_file(data)) != occupant::none) {
    raise_file_error(cannot_exchange, EEXIST, spare_file(data));
  }
  if (const int cause = error_of_rename(second_file(data), spare_file(data))) {
    raise_file_error(cannot_exchange, cause, second_file(data));
  }
  if (const int cause = error_of_rename(first_file(data), second_file(data))) {
    error_of_rename(spare_file(data), second_file(data));
    raise_file_error(cannot_exchange, cause, first_file(data));
  }
  if (const int cause = error_of_rename(spare_file(data), first_file(data))) {
    if (error_of_rename(second_file(data), first_file(data)) == 0) error_of_rename(spare_file(data), second_file(data));
    raise_file_error(cannot_exchange, cause, spare_file(data));
  }
}

eleven_files_before read_elevens_before(const open_database& data) {
  eleven_files_before before;
  if (data.files.elevens_in_memory) return before;
  const std::array<std::filesystem::path, 2> paths = {first_file(data), second_file(data)};
  for (std::size_t i = 0; i < 2; ++i) {
    try {
      const bool there = occupant_of(paths[i]) != occupant::none;
      before[i] = eleven_file_before{there, slot_file::read(paths[i], eleven_slot).bytes()};
    } catch (const run_time_error&) {
      before[i].reset();
    }
  }
  return before;
}

void put_back_elevens(const open_database& data, const eleven_files_before& before,
                      const std::array<eleven, 2>& written) {
  const std::array<std::filesystem::path, 2> paths = {first_file(data), second_file(data)};
  for (std::size_t i = 0; i < 2; ++i) {
    if (!before[i]) continue;
    const folder_lock turn(paths[i], data.files.watcher);
    slot_file as_written(before[i]->bytes, eleven_slot, file_name_text(paths[i]));
    put_men(as_written, written[i]);
    if (slot_file::read(paths[i], eleven_slot).bytes() != as_written.bytes()) continue;
    if (before[i]->there) {
      replace_file(paths[i], before[i]->bytes);
    } else {
      ::unlink(paths[i].c_str());
    }
  }
}

}  // namespace velorin
