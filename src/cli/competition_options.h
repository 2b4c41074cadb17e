// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}  // namespace CLI

namespace velorin {
struct world_cup_form;
}  // namespace velorin

namespace velorin::cli {

struct competition_options {
  std::vector<std::string> teams;  // in the order of the command's names
  std::vector<std::string> group_a;
  std::vector<std::string> group_b;
  std::vector<std::string> hosts;
  int count = 1;  // matches or rounds
  bool update = false;
  bool json = false;
};

/// Adds the options that choose a World Cup: its groups and hosts.
void add_cup_choice(CLI::App& command, competition_options& options);
/// Opens the form and enters the choice. Raises run_time_error: too few teams, a name that is not known.
void fill(world_cup_form& form, const competition_options& options);

}  // namespace velorin::cli
