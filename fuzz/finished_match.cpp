// SPDX-License-Identifier: GPL-3.0-or-later
#include "finished_match.h"

#include <optional>

#include "database/career_update.h"
#include "database/configuration.h"
#include "database/lasting_records.h"
#include "database/teams_file.h"
#include "database/world.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "setup/new_match.h"
#include "support.h"
#include "support/game_in_play.h"
#include "support/test_user.h"

namespace velorin::fuzz {

namespace {

std::optional<match_state> finished;

/// Keeps the match as it is when its last scorecard opens.
class match_keeper : public test_user {
 public:
  void open(report which) override {
    if (which == report::scorecard) finished = match;
  }
};

}  // namespace

void lay_out_database() {
  fresh_state();
  build_database(small_tables(), data.files.team_file, data.files.ground_file);
  data.files.elevens_in_memory = true;
  data.files.updates = false;
  match_keeper keeper;
  const front_end_scope scope(keeper);
  new_match_form form{in_play()};
  form.open();
  form.accept();
  fresh_state();
  stage_finished_match();
  update_career(match, data);
  update_records(match, data);
  fresh_state();
}

void shrink_database() {
  std::string players = "team,name,bat_skill,bowl_sr,econ,keeper,hand,role,bowler_type\n";
  for (int t = 0; t < 3; ++t) {
    for (char man = 'A'; man < 'A' + 11; ++man) {
      players += read_team_list(data)[t].team_name + "," + man + ".Man,30,40,5,no,RH ,Opener,spinner\n";
    }
  }
  write_bytes(scratch() / "players.csv", players);
  write_bytes(scratch() / "grounds.csv",
              "country,ground,pitch_bounce,pitch_surface,start_time\nNeutral,Harbour Park,3,2,1030\n");
  build_database(scratch(), data.files.team_file, data.files.ground_file);
  std::filesystem::remove(data.files.career_file);
  std::filesystem::remove(data.files.record_file);
  fresh_state();
}

void stage_finished_match() {
  require(finished.has_value(), "the database is laid out");
  match = *finished;
}

bool update_both(const std::filesystem::path& fuzzed, std::string_view before, const std::filesystem::path& other,
                 std::string_view sound) {
  write_bytes(other, sound);
  const bool faultless = check_database(data.files).empty();
  stage_finished_match();
  const bool updated = done(fuzzed.filename().native(), [] { update_career_and_records(match, data); });
  if (updated) {
    read_career_table(data);
    read_record_lists(data);
    if (faultless) require(check_database(data.files).empty(), "an update leaves no fault");
  } else {
    require_bytes(fuzzed, before);
    require_bytes(other, sound);
  }
  for (const std::filesystem::path& file : {fuzzed, other}) {
    for (const char* ending : {".new", ".next"}) {
      require(!std::filesystem::exists(file.native() + ending), "nothing is left beside a file", file.native());
    }
  }
  std::filesystem::remove(other);
  return updated;
}

}  // namespace velorin::fuzz
