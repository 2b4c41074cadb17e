// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench_world.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>

#include "database/configuration.h"
#include "setup/new_match.h"
#include "support/game_in_play.h"

namespace velorin::bench {

namespace fs = std::filesystem;

void keeping_user::ball_bowled() {
  ++balls;
  if (keeping && match.innings_balls == 150 && match.first_total == 0) in_mid_play = match;
  if (keeping && match.innings_balls == 1 && match.first_total != 0) at_half = match;
  const bool is_close = match.score_wickets <= 7 && match.first_total - match.score_runs > 40;
  if (keeping && match.innings_balls == 240 && match.first_total != 0 && is_close) in_last_ten = match;
}

void keeping_user::open(report) {
  if (keeping && match.first_total != 0) at_end = match;
}

keeping_user& the_user() {
  static keeping_user shown_by;
  return shown_by;
}

bench_world::bench_world(const fs::path& teams) {
  std::string pattern = (fs::temp_directory_path() / "velorin-bench-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the benchmarks");
  folder_ = pattern;
  for (const char* name : {"world.team", "world.grd"}) fs::copy_file(teams / name, folder_ / name);
  data.files = database_paths(folder_, "world");
  data.files.elevens_in_memory = true;
  data.files.read_once = true;
  data.files.updates = false;
}

bench_world::~bench_world() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

void play_match() {
  new_match_form form(in_play());
  form.open();
  form.accept();
}

void put_on_record() {
  static bool done = false;
  if (done) return;
  done = true;
  data.files.updates = true;
  for (int played = 0; played < 300; ++played) {
    new_match_form form(in_play());
    form.open();
    const int teams = static_cast<int>(form.teams.size()) - 1;  // the last of twenty cannot be played
    form.choose_first_team(played % teams);
    form.choose_second_team((played + 1 + played / teams % (teams - 1)) % teams);
    form.accept();
  }
  data.files.updates = false;
}

long peak_memory(int matches) {
  const pid_t process = fork();
  if (process == 0) {
    for (int played = 0; played < matches; ++played) play_match();
    _exit(0);
  }
  int status = 0;
  rusage used{};
  if (process < 0 || wait4(process, &status, 0, &used) < 0 || status != 0) {
    throw std::runtime_error("the matches whose memory is measured have failed");
  }
  return used.ru_maxrss;
}

}  // namespace velorin::bench
