// SPDX-License-Identifier: GPL-3.0-or-later
// The ground file. The input: a byte that chooses what happens to the file once it is read, then the file, folded.
#include <vector>

#include "database/configuration.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "finished_match.h"
#include "setup/new_match.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t most_slots = 40;
constexpr int most_grounds = 60;

/// Grounds beyond the end of the file are empty and take long to look at in their thousands, so high counts are left
/// out.
bool is_slow(const std::string& file) {
  integer count;
  slot_reader(file, team_slot)("ground_count", count);
  return count > most_grounds;
}

std::vector<std::string> encoded_grounds(const std::vector<ground_rec>& grounds) {
  std::vector<std::string> slots;
  for (const ground_rec& ground : grounds) slots.push_back(encoded(ground));
  return slots;
}

void write_and_read_again(const std::vector<std::string>& slots) {
  slot_file written({}, team_slot, "again.grd");
  written.put(1, encoded_field(integer(slots.size())), {});
  for (std::size_t i = 0; i < slots.size(); ++i) written.put(static_cast<long>(i) + 2, slots[i], {});
  const auto grounds = written.counted_records<ground_rec>("ground_count", 32767);
  require(encoded_grounds(grounds) == slots, "grounds are read as they were written");
}

void dump_and_build_again(const std::vector<std::string>& slots) {
  dump_database(data.files, scratch() / "dump");
  build_database(scratch() / "dump", scratch() / "again.team", scratch() / "again.grd");
  data.files.ground_file = scratch() / "again.grd";
  require(encoded_grounds(read_grounds(data)) == slots, "grounds are built as they were dumped");
}

/// The list of a form that offers grounds.
void offer(std::size_t grounds) {
  new_match_form form{in_play()};
  form.open();
  require(form.grounds.size() <= grounds, "the grounds on offer are those of the file");
}

}  // namespace

void prepare() {
  lay_out_database();
  shrink_database();
}

void take(std::string_view input) {
  fresh_state();
  const int choice = input.empty() ? 0 : input.front() & 3;
  if (!input.empty()) input.remove_prefix(1);
  const std::string file = unfolded(input, team_slot, most_slots);
  if (is_slow(file)) return;
  std::vector<std::string> slots;
  bool faultless = false;
  {
    const unchanged grd(data.files.ground_file, file);
    faultless = check_database(data.files).empty();
    const bool read = done("base.grd", [&] { slots = encoded_grounds(read_grounds(data)); });
    require(read || !faultless, "what cannot be read is a fault");
    const bool whole = done("base.grd", [] { require_whole_database(data); });
    require(whole || !faultless, "a file cut short is a fault");
    if (!read) return;
    if (choice == 0) write_and_read_again(slots);
    if (choice == 1) offer(slots.size());
    if (choice == 2 && !faultless) done("base.grd", [] { dump_database(data.files, scratch() / "dump"); });
  }
  if (choice == 2 && faultless) dump_and_build_again(slots);
}

}  // namespace velorin::fuzz
