// SPDX-License-Identifier: GPL-3.0-or-later
// A recording: as it stands, and with the checks of its entries put right, so that what is in them is met. What can be
// read is played.
#include <algorithm>
#include <string>

#include "competitions/game_state.h"
#include "recording/entry_writer.h"
#include "recording/packing.h"
#include "recording/recording.h"
#include "recording/replay.h"
#include "support.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

const std::string file_name = "game.velorin";

/// The entries of an input with a head in front of them and the right check behind each.
std::string sealed(std::string_view input) {
  std::string bytes = entry_writer().take();
  std::uint32_t check = crc_32(bytes);
  std::string_view left = input.substr(std::min(input.size(), recording_head));
  while (!left.empty()) {
    unpacker in(left);
    in.fixed(1);
    const std::uint64_t length = in.number();
    if (!in.whole()) break;
    const std::size_t head = left.size() - in.left();
    const std::size_t whole = head + std::min<std::uint64_t>(length, in.left());
    check = crc_32(left.substr(0, whole), check);
    bytes += left.substr(0, whole);
    packer behind;
    behind.fixed(check & 0xFFFF, 2);
    bytes += behind.bytes();
    left.remove_prefix(std::min(left.size(), whole + 2));
  }
  return bytes;
}

/// Reads it, or sees it refused; what was read is whole up to its end, and is read again.
void read_and_play(const std::string& bytes) {
  recording read;
  if (!done(file_name, [&] { read = read_recording(bytes, file_name); })) return;
  require(read.whole_bytes >= recording_head && read.whole_bytes <= bytes.size(), "what is whole is of the file");
  const recording again = read_recording(std::string_view(bytes).substr(0, read.whole_bytes), file_name);
  require(again.events == read.events && again.check == read.check, "what was cut off is read the same");
  try {
    game_state game = game_at_beginning(read);
    replay(read, file_name, game);
  } catch (const run_time_error& error) {
    require(*error.what() != '\0', "an error says something");
  }
}

}  // namespace

void prepare() {}

void take(std::string_view input) {
  read_and_play(std::string(input));
  read_and_play(sealed(input));
}

}  // namespace velorin::fuzz
