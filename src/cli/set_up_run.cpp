// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <charconv>
#include <fstream>

#include <fmt/format.h>

#include "cli/commands.h"
#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/world_cup.h"
#include "database/configuration.h"
#include "model/code_page.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "model/teams.h"

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

/// Steps from one text to the other by single letters, upper and lower case alike.
std::size_t distance(const std::string& a, const std::string& b) {
  const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; };
  std::vector<std::size_t> row(b.size() + 1);
  for (std::size_t j = 0; j <= b.size(); ++j) row[j] = j;
  for (std::size_t i = 1; i <= a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      const std::size_t replaced = diagonal + (lower(a[i - 1]) == lower(b[j - 1]) ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({replaced, row[j] + 1, row[j - 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string core_text(const std::string& name) {
  const auto bytes = from_utf8(name);
  if (!bytes) {
    throw run_time_error(failure::type, fmt::format("The name \"{}\" has a character that no data file can hold", name));
  }
  return *bytes;
}

std::vector<double> read_draws(const std::filesystem::path& file) {
  std::ifstream in(file);
  if (!in) raise_file("The draws file cannot be opened", file);
  std::vector<double> draws;
  std::string line;
  for (long number = 1; std::getline(in, line); ++number) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    double value = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), value);
    if (error != std::errc() || end != line.data() + line.size() || !(value >= 0 && value < 1)) {
      raise_file(fmt::format("\"{}\" is no number in [0,1)", line.substr(0, 40)), file, number);
    }
    draws.push_back(value);
  }
  if (in.bad()) raise_file("The draws file cannot be read", file);
  return draws;
}

std::string find_database(const program_options& program) {
  const std::vector<std::string> offered = databases_on_offer(program.teams_dir);
  std::string base = program.database.empty() ? std::string() : core_text(program.database);
  if (base.empty()) {
    files.folder = program.teams_dir;
    if (read_options()) base = settings.database_name;
  }
  if (base.empty()) {
    if (offered.size() == 1) return offered.front();
    raise_file(offered.empty() ? "No database is on offer"
                               : "No database is chosen; on offer: " + joined(offered) + "; name one with --database",
               program.teams_dir / "options.mc");
  }
  if (std::find(offered.begin(), offered.end(), base) == offered.end()) raise_unknown("database", base, offered);
  return base;
}

void set_up_run(const program_options& program) {
  match = match_state();
  series = series_record();
  tri = tri_record();
  world_cup = world_cup_record();
  files = database_paths(program.teams_dir, {});
  files.elevens_in_memory = true;
  files.updates = false;
  read_options();
  use_database(find_database(program));
  if (program.seed) {
    chance.use_seed(*program.seed);
  } else if (!program.draws.empty()) {
    chance.use_script(read_draws(program.draws), program.draws.filename().string());
  } else {
    chance.use_clock();
  }
}

std::vector<std::string> near_names(const std::string& name, const std::vector<std::string>& known) {
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& candidate : known) {
    const std::size_t steps = distance(name, candidate);
    const bool begins = name.size() > 2 && distance(name, candidate.substr(0, name.size())) <= 1;
    const bool within = name.size() > 2 && candidate.find(name) != std::string::npos;
    if (steps <= std::max<std::size_t>(2, name.size() / 3) || begins || within) near.emplace_back(steps, candidate);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
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
