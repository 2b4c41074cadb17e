// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>
#include <tuple>

#include <fmt/format.h>

#include "cli/commands.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

[[noreturn]] void raise_file(const std::string& what, const std::filesystem::path& file, long line = 0) {
  throw run_time_error(failure::file, what,
                       {.file = file.filename().string(), .record = line, .field = {}, .player = {}});
}

std::string joined(const std::vector<std::string>& names) {
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : ", ") + name;
  return text;
}

/// How far two texts are from each other: single letters to change, add or leave out and neighbours to exchange, upper
/// and lower case alike.
struct steps_between {
  std::size_t whole = 0;      ///< to the whole of the other text
  std::size_t beginning = 0;  ///< to that beginning of it which is nearest
};

steps_between steps(const std::string& from, const std::string& to) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  const auto same = [&](std::size_t i, std::size_t j) { return lower(from[i - 1]) == lower(to[j - 1]); };
  std::vector<std::vector<std::size_t>> table(from.size() + 1, std::vector<std::size_t>(to.size() + 1));
  for (std::size_t i = 0; i <= from.size(); ++i) {
    for (std::size_t j = 0; j <= to.size(); ++j) {
      std::size_t& least = table[i][j];
      least = i + j;
      if (i == 0 || j == 0) continue;
      least = std::min({table[i - 1][j - 1] + (same(i, j) ? 0 : 1), table[i - 1][j] + 1, table[i][j - 1] + 1});
      if (i > 1 && j > 1 && same(i - 1, j) && same(i, j - 1)) least = std::min(least, table[i - 2][j - 2] + 1);
    }
  }
  const std::vector<std::size_t>& last = table.back();
  return {last.back(), *std::min_element(last.begin(), last.end())};
}

}  // namespace

std::string plain_number(std::string typed) {
  if (typed.empty() || typed.find_first_not_of("0123456789") != std::string::npos) {
    throw CLI::ValidationError("not a whole number: " + typed);
  }
  typed.erase(0, std::min(typed.find_first_not_of('0'), typed.size() - 1));
  return typed;
}

std::string not_empty(const std::string& typed) { return typed.empty() ? "an empty text" : ""; }

std::string core_text(const std::string& name) {
  const auto bytes = from_utf8(name);
  if (!bytes) {
    throw run_time_error(failure::type,
                         fmt::format("The name \"{}\" has a character that no data file can hold", name));
  }
  return *bytes;
}

std::vector<double> read_draws(const std::filesystem::path& file) {
  const std::optional<std::string> text = read_file(file);
  if (!text) raise_file("The draws file is missing", file);
  std::istringstream in(*text);
  std::vector<double> draws;
  std::string line;
  for (long number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() && in.peek() == std::ifstream::traits_type::eof()) break;
    double value = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    if (error != std::errc() || end != line.data() + line.size() || !(value >= 0 && value < 1)) {
      raise_file(fmt::format("\"{}\" is no number in [0,1)", line.substr(0, 40)), file, number);
    }
    draws.push_back(value);
  }
  return draws;
}

namespace {

/// Tells why a database with these files is not on offer, where one of them is there and cannot be read.
void require_readable_files(const database_files& database) {
  for (const std::filesystem::path& file : {database.team_file, database.ground_file}) read_file(file);
}

}  // namespace

std::string find_database(open_database& data, const program_options& program) {
  const std::vector<std::string> offered = databases_on_offer(program.teams_dir);
  std::string base = program.database.empty() ? std::string() : core_text(program.database);
  if (base.empty()) {
    data.files.folder = program.teams_dir;
    if (require_readable_options(data)) base = data.settings.database_name;
  }
  if (base.empty()) {
    if (offered.size() == 1) return offered.front();
    raise_file(offered.empty() ? "No database is on offer"
                               : "No database is chosen; on offer: " + joined(offered) + "; name one with --database",
               program.teams_dir / "options.mc");
  }
  if (std::find(offered.begin(), offered.end(), base) != offered.end()) return base;
  if (base.find('/') == std::string::npos) require_readable_files(database_paths(program.teams_dir, base));
  raise_unknown("database", base, offered);
}

run_state set_up_run(const program_options& program) {
  run_state run;
  run.data.files = database_paths(program.teams_dir, {});
  run.data.files.elevens_in_memory = true;
  run.data.files.read_once = true;
  run.data.files.updates = false;
  run.data.files.watcher = program.watcher;
  require_readable_options(run.data);
  use_database(run.data, find_database(run.data, program));
  if (program.seed) {
    run.chance.use_seed(*program.seed);
  } else if (!program.draws.empty()) {
    run.chance.use_script(read_draws(program.draws), program.draws.filename().string());
  } else {
    run.chance.use_clock();
  }
  return run;
}

std::vector<std::string> near_names(const std::string& name, const std::vector<std::string>& known) {
  std::vector<std::pair<steps_between, std::string>> near;
  const std::size_t allowed = std::max<std::size_t>(2, name.size() / 3);
  for (const std::string& candidate : known) {
    const steps_between away = steps(name, candidate);
    const bool begins = name.size() > 2 && away.beginning <= (name.size() < 5 ? 1 : allowed);
    const bool within = name.size() > 2 && candidate.find(name) != std::string::npos;
    if (away.whole <= allowed || begins || within) near.emplace_back(away, candidate);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) {
    return std::tie(a.first.beginning, a.first.whole) < std::tie(b.first.beginning, b.first.whole);
  });
  std::vector<std::string> names;
  for (std::size_t i = 0; i < near.size() && i < 3; ++i) names.push_back(near[i].second);
  return names;
}

void raise_unknown(const std::string& what, const std::string& name, const std::vector<std::string>& known) {
  std::string line = fmt::format("Unknown {} \"{}\"", what, name);
  std::vector<std::string> near = near_names(name, known);
  if (!near.empty()) {
    line += "; near: " + joined(near);
  } else if (!known.empty() && known.size() <= 20) {
    line += "; known: " + joined(known);
  }
  throw run_time_error(failure::subscript, line, {});
}

}  // namespace velorin::cli
