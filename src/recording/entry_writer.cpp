// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/entry_writer.h"

#include <utility>

#include "recording/recording_layout.h"

namespace velorin {

void entry_writer::start() {
  bytes_.clear();
  bytes_.raw(recording_head_bytes());
  check_ = crc_32(bytes_.bytes());
  last_reading_ = 0;
}

void entry_writer::entry(int tag) {
  const std::size_t start = bytes_.bytes().size();
  bytes_.fixed(static_cast<std::uint64_t>(tag), 1);
  bytes_.number(content_.bytes().size());
  bytes_.raw(content_.bytes());
  content_.clear();
  check_ = crc_32(bytes_.bytes().substr(start), check_);
  bytes_.fixed(check_ & 0xFFFF, check_bytes);
}

void entry_writer::beginning(const recorded_beginning& begun, bool same_squads) {
  if (!same_squads || squads_.empty()) {
    pass_squads(content_, begun);
    squads_ = summed_bytes(content_.bytes());
    content_.clear();
  }
  pass_entered(content_, begun);
  const std::size_t ahead = content_.bytes().size();
  pass_standing(content_, begun);
  const std::size_t start = bytes_.bytes().size();
  bytes_.fixed(beginning_entry, 1);
  bytes_.number(content_.bytes().size() + squads_.bytes().size());
  bytes_.raw(content_.bytes().substr(0, ahead));
  check_ = squads_.crc_32_behind(crc_32(bytes_.bytes().substr(start), check_));
  bytes_.raw(squads_.bytes());
  check_ = crc_32(content_.bytes().substr(ahead), check_);
  bytes_.raw(content_.bytes().substr(ahead));
  content_.clear();
  bytes_.fixed(check_ & 0xFFFF, check_bytes);
}

void entry_writer::chance(chance_log& log) {
  if (!log.readings.empty()) {
    for (const std::uint64_t reading : log.readings) {
      content_.signed_number(static_cast<std::int64_t>(reading - std::exchange(last_reading_, reading)));
    }
    log.readings.clear();
    entry(readings_entry);
  }
  if (!log.draws.empty()) {
    for (const double draw : log.draws) content_.real(draw);
    log.draws.clear();
    entry(draws_entry);
  }
}

void entry_writer::event(const recorded_event& event) {
  if (const auto* answer = std::get_if<captain_answer>(&event)) {
    content_.number(static_cast<std::uint64_t>(answer->kind));
    if (answer->first != 0 || answer->second != 0) content_.number(answer->first);
    if (answer->second != 0) content_.number(answer->second);
    return entry(answer_entry);
  }
  if (const auto* check = std::get_if<recorded_check>(&event)) {
    content_.fixed(check->value, 4);
    return entry(check_entry);
  }
  entry(std::holds_alternative<recorded_saving>(event) ? saving_entry : end_entry);
}

}  // namespace velorin
