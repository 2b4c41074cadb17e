// SPDX-License-Identifier: GPL-3.0-or-later
// The two elevens. The input: both files one behind the other, eleven slots each, folded.
#include "database/elevens.h"

#include <algorithm>

#include "database/configuration.h"
#include "database/slots.h"
#include "model/match_state.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t first_size = 11 * eleven_slot;

std::string encoded_men(const eleven& men) {
  std::string bytes;
  for (int i = 1; i <= 11; ++i) bytes += encoded(men[i]);
  return bytes;
}

void require_elevens(const std::string& batting, const std::string& bowling) {
  match.batting_xi = match.bowling_xi = eleven();
  read_elevens(match, data);
  require(encoded_men(match.batting_xi) == batting, "the first eleven is read as it was written");
  require(encoded_men(match.bowling_xi) == bowling, "the second eleven is read as it was written");
}

/// Writes both elevens, reads them, exchanges them and reads them again.
void go_round() {
  const eleven batting = match.batting_xi;
  const eleven bowling = match.bowling_xi;
  write_eleven(data, side::first, batting);
  write_eleven(data, side::second, bowling);
  require_elevens(encoded_men(batting), encoded_men(bowling));
  swap_elevens(data);
  require_elevens(encoded_men(bowling), encoded_men(batting));
}

}  // namespace

void prepare() {}

void take(std::string_view input) {
  fresh_state();
  const std::filesystem::path first = data.files.folder / "team1r.txt";
  const std::filesystem::path second = data.files.folder / "team2r.txt";
  const std::string both = unfolded(input, eleven_slot, 22);
  const std::string_view all = both;
  {
    const unchanged first_file(first, all.substr(0, first_size));
    const unchanged second_file(second, all.substr(std::min(first_size, all.size())));
    try {
      read_elevens(match, data);
    } catch (const run_time_error& error) {
      const std::string& named = error.place().file;
      require(named == "team1r.txt" || named == "team2r.txt", "the error is of a file of the elevens", error.what());
      require(error.place().record >= 1 && error.place().record <= 11, "the error tells the record", error.what());
      require_named(error, named);
      return;
    }
  }
  go_round();
  data.files.elevens_in_memory = true;
  go_round();
}

}  // namespace velorin::fuzz
