// SPDX-License-Identifier: GPL-3.0-or-later
// The career file. The input: a byte that chooses who looks at it, or who changes it; then the file, folded.
#include "browsers/century_makers.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "browsers/team_records.h"
#include "database/career_update.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/slots.h"
#include "database/world.h"
#include "finished_match.h"
#include "model/code_page.h"
#include "shown_texts.h"
#include "slots_of.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t most_slots = 24;

std::string records;  ///< the file of records that goes with the careers

void require_same(const career_table& a, const career_table& b) {
  require(a.career_team_count == b.career_team_count, "as many teams are read as were written");
  for (int t = 1; t <= a.career_team_count; ++t) {
    require(encoded(a.teams[t]) == encoded(b.teams[t]), "careers are read as they were written");
  }
}

/// Writes careers into an empty file.
void write_and_read_again(const career_table& careers) {
  write_bytes(data.files.career_file, {});
  write_career_table(data, careers);
  require_same(read_career_table(data), careers);
}

void look_at_profiles(const career_table& careers) {
  player_profile_form form{data};
  form.open();
  for (int t = 0; t < careers.career_team_count; ++t) {
    form.choose_team(t);
    if (form.players.empty()) continue;
    form.choose_player(static_cast<int>(form.players.size()) - 1);
    for (const auto* block : {&form.batting, &form.bowling, &form.fielding}) require_shown(*block);
  }
}

/// Looks with the records of a match.
void look_at_teams() {
  write_bytes(data.files.record_file, records);
  team_records_form form{data};
  form.open();
  for (std::size_t t = 0; t < form.teams.size(); ++t) {
    form.choose_team(static_cast<int>(t));
    require_shown(form.world_ranking.text);
  }
  std::filesystem::remove(data.files.record_file);
}

void look(int choice, const career_table& careers) {
  player_rankings_form list{data};
  if (choice >= 1 && choice <= 9) {
    list.open(choice, careers.teams[1].team_name);
    require_shown(list.table);
  } else if (choice == 10) {
    century_makers_form centuries{data};
    centuries.open();
    require_shown(centuries.table);
  } else if (choice == 11) {
    look_at_profiles(careers);
  } else if (choice == 12) {
    look_at_teams();
  } else if (choice == 13) {
    dump_database(data.files, scratch() / "dump");
  } else if (choice == 14) {
    require_report({"list", "averages"});
  } else if (choice == 15) {
    require_report({"player", "--team", to_utf8(careers.teams[1].team_name), "--name",
                    to_utf8(careers.teams[1].players[1].name), "--json"});
  }
}

/// Adds a match: done, or refused with the file as it was. Done, it can be read and looked at again.
void update(std::string_view before) {
  stage_finished_match();
  if (!done("base.rec", [] { update_career(match, data); })) {
    require_bytes(data.files.career_file, before);
    return;
  }
  read_career_table(data);
}

}  // namespace

void take(std::string_view input) {
  fresh_state();
  const int choice = input.empty() ? 0 : input.front() & 31;
  if (!input.empty()) input.remove_prefix(1);
  const std::string file = unfolded(input, career_slot, most_slots);
  career_table careers;
  bool faultless = false;
  {
    const unchanged rec(data.files.career_file, file);
    write_bytes(data.files.record_file, records);
    faultless = check_database(data.files).empty();
    std::filesystem::remove(data.files.record_file);
    const bool read = done("base.rec", [&] { careers = read_career_table(data); });
    require(read || !faultless, "what cannot be read is a fault");
    if (read) look(choice, careers);
  }
  if (choice >= 28) {
    update_both(data.files.career_file, file, data.files.record_file, records);
  } else if (choice >= 24) {
    update(file);
  } else if (choice >= 16) {
    write_and_read_again(careers);
  }
}

void prepare() {
  lay_out_database();
  records = bytes_of(data.files.record_file);
  shrink_database();
}

}  // namespace velorin::fuzz
