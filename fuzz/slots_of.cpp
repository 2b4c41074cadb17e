// SPDX-License-Identifier: GPL-3.0-or-later
#include "slots_of.h"

#include <algorithm>

namespace velorin::fuzz {

namespace {
constexpr std::size_t step_head = 3;
constexpr unsigned whole_bit = 0x8000;
}  // namespace

std::string unfolded(std::string_view folded, std::size_t slot_length, std::size_t most_slots) {
  std::string file;
  std::size_t slot = 0;
  while (folded.size() >= step_head) {
    const auto byte = [&](std::size_t at) { return static_cast<unsigned>(static_cast<std::uint8_t>(folded[at])); };
    const unsigned word = byte(1) | byte(2) << 8;
    slot += byte(0);
    folded.remove_prefix(step_head);
    if (slot >= most_slots) break;
    const std::size_t length = std::min({std::size_t{word & ~whole_bit}, slot_length, folded.size()});
    file.resize(slot * slot_length, '\0');
    file += folded.substr(0, length);
    folded.remove_prefix(length);
    ++slot;
    if ((word & whole_bit) != 0) file.resize(slot * slot_length, '\0');
  }
  return file;
}

std::string folded(std::string_view file, std::size_t slot_length) {
  std::string steps;
  unsigned passed = 0;
  for (std::size_t start = 0; start < file.size(); start += slot_length) {
    const std::string_view slot = file.substr(start, slot_length);
    const bool whole = slot.size() == slot_length;
    const bool last = start + slot_length >= file.size();
    // The zeros that an early end keeps count.
    const std::size_t length = whole ? slot.find_last_not_of('\0') + 1 : slot.size();
    if (length == 0 && !last && passed < 255) {
      ++passed;
      continue;
    }
    const unsigned word = static_cast<unsigned>(length) | (whole ? whole_bit : 0);
    for (const unsigned value : {passed, word & 0xFF, word >> 8}) steps += static_cast<char>(value);
    steps += slot.substr(0, length);
    passed = 0;
  }
  return steps;
}

}  // namespace velorin::fuzz
