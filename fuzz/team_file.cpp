// SPDX-License-Identifier: GPL-3.0-or-later
// The team file. The input: a byte that chooses what happens to the file once it is read, then the file, folded.
#include <vector>

#include "database/configuration.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "finished_match.h"
#include "headless/headless_user.h"
#include "setup/new_match.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t most_slots = 24;

std::vector<std::string> encoded_teams(const std::vector<team_rec>& teams) {
  std::vector<std::string> slots;
  for (const team_rec& team : teams) slots.push_back(encoded(team));
  return slots;
}

/// Teams written into a new file are read from it again.
void write_and_read_again(const std::vector<std::string>& slots) {
  slot_file written({}, team_slot, "again.team");
  written.put(1, encoded_field(integer(slots.size())), {});
  for (std::size_t i = 0; i < slots.size(); ++i) written.put(static_cast<long>(i) + 2, slots[i], {});
  const auto teams = written.counted_records<team_rec>("team_count", team_limit);
  require(encoded_teams(teams) == slots, "teams are read as they were written");
}

/// True if a free place of a squad holds something. That is no fault, but a table may not be able to keep it.
bool has_left_overs() {
  for (const team_rec& team : read_team_list(data)) {
    for (int place = 1; place <= player_limit; ++place) {
      const player_rec& man = team.squad[place];
      if (man.name.empty() && encoded(man) != encoded(player_rec())) return true;
    }
  }
  return false;
}

/// A file without a fault is dumped and built again without loss.
void dump_and_build_again(const std::vector<std::string>& slots) {
  const bool dumped = done("base.team", [] { dump_database(data.files, scratch() / "dump"); });
  require(dumped || has_left_overs(), "a file without a fault can be dumped");
  if (!dumped) return;
  build_database(scratch() / "dump", scratch() / "again.team", scratch() / "again.grd");
  data.files.team_file = scratch() / "again.team";
  require(encoded_teams(read_team_list(data)) == slots, "teams are built as they were dumped");
}

/// A match of the first two teams: it is played, or refused as what it is.
void play() {
  data.files.elevens_in_memory = true;
  data.files.updates = false;
  headless_user user{match};
  const front_end_scope scope(user);
  try {
    new_match_form form{in_play()};
    form.open();
    if (form.teams.size() < 2) return;
    form.choose_first_team(0);
    form.choose_second_team(1);
    form.accept();
  } catch (const run_time_error& error) {
    require(*error.what() != '\0', "an error says something");
  }
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
  std::vector<std::string> slots;
  bool faultless = false;
  {
    const unchanged team(data.files.team_file, file);
    faultless = check_database(data.files).empty();
    const bool read = done("base.team", [&] { slots = encoded_teams(read_team_list(data)); });
    require(read || !faultless, "what cannot be read is a fault");
    const bool one_read = done("base.team", [] { read_team(data, 2); });
    require(one_read || !read || slots.empty(), "what is read with all others is read alone");
    const bool whole = done("base.team", [] { require_whole_database(data); });
    require(whole || !faultless, "a file cut short is a fault");
    if (!read) return;
    if (choice == 0) write_and_read_again(slots);
    if (choice == 1) play();
    if (choice == 2 && !faultless) done("base.team", [] { dump_database(data.files, scratch() / "dump"); });
  }
  if (choice == 2 && faultless) dump_and_build_again(slots);
}

}  // namespace velorin::fuzz
