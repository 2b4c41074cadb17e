// SPDX-License-Identifier: GPL-3.0-or-later
// A file of scripted draws, and a match that is played with them.
#include <cstdlib>
#include <vector>

#include "cli/commands.h"
#include "database/configuration.h"
#include "finished_match.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "support.h"
#include "support/game_in_play.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

constexpr std::size_t enough = 8;          ///< draws from which on they are repeated for a whole match
constexpr std::size_t whole_match = 8000;  ///< more than a match takes, but for the strangest draws

/// Plays a match with the draws, over and over if there are enough of them: it ends, or is refused as what it is.
void play(std::vector<double> draws) {
  const std::size_t given = draws.size();
  if (given >= enough) {
    draws.reserve(whole_match);
    for (std::size_t i = 0; draws.size() < whole_match; ++i) draws.push_back(draws[i % given]);
  }
  chance.use_script(std::move(draws), "draws.txt");
  data.files.elevens_in_memory = true;
  data.files.read_once = true;
  data.files.updates = false;
  headless_user user{match};
  const front_end_scope scope(user);
  try {
    new_match_form form{in_play()};
    form.open();
    form.accept();
  } catch (const run_time_error& error) {
    require(*error.what() != '\0', "an error says something");
  }
}

}  // namespace

void prepare() { lay_out_database(); }

void take(std::string_view input) {
  match = match_state();
  data.files = database_paths(scratch(), "base");
  const std::filesystem::path file = scratch() / "draws.txt";
  std::vector<double> draws;
  {
    const unchanged script(file, input);
    if (!done("draws.txt", [&] { draws = cli::read_draws(file); })) return;
  }
  for (const double draw : draws) require(draw >= 0 && draw < 1, "a draw is a number in [0,1)");
  if (!draws.empty()) play(std::move(draws));
}

}  // namespace velorin::fuzz
