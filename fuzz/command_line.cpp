// SPDX-License-Identifier: GPL-3.0-or-later
// The companion's arguments, one a line. It runs in this process, in a folder of its own with the small database.
//
// What keeps a run from doing harm or lasting for ever is done to the arguments here, before the companion sees them:
//   - no path leaves the folder: an argument has no "..", and a slash stands only behind a letter, a digit, "_" or "-"
//     and so never begins a path; nothing makes links there;
//   - --matches, --rounds and --jobs, in both spellings, are at most 3;
//   - without --seed and --draws a seed is put before them, so that a run can be repeated.
#include <unistd.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>
#include <vector>

#include "cli/command_line.h"
#include "database/configuration.h"
#include "finished_match.h"
#include "shown_texts.h"
#include "support.h"
#include "target.h"

namespace velorin::fuzz {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_arguments = 24;

using tree = std::map<std::string, std::string>;  ///< files below a folder and their bytes; folders have a slash

tree laid_out;  ///< the folder as each run finds it

fs::path run_folder() { return scratch() / "run"; }

tree tree_of(const fs::path& folder) {
  tree found;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    const std::string name = entry.path().native().substr(folder.native().size() + 1);
    if (entry.is_directory()) {
      found[name + "/"];
    } else {
      found[name] = bytes_of(entry.path());
    }
  }
  return found;
}

void lay_out(const tree& files_wanted) {
  fs::remove_all(run_folder());
  fs::create_directory(run_folder());
  for (const auto& [name, bytes] : files_wanted) {
    fs::create_directories((run_folder() / name).parent_path());
    if (!name.ends_with('/')) write_bytes(run_folder() / name, bytes);
  }
  fs::current_path(run_folder());
}

std::string without_ways_out(const std::string& argument) {
  std::string kept;
  for (const char c : argument) {
    if (c == '\0' || (c == '.' && kept.ends_with('.'))) continue;
    const auto before = kept.empty() ? '\0' : static_cast<unsigned char>(kept.back());
    if (c == '/' && std::isalnum(before) == 0 && before != '_' && before != '-') continue;
    kept += c;
  }
  return kept;
}

/// A number of one digit from 1 to 3 in place of one beyond.
std::string small_number(const std::string& text) {
  const auto digits = std::count_if(text.begin(), text.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
  if (digits == 0 || text == "0" || text == "1" || text == "2") return text;
  return "3";
}

std::vector<std::string> arguments_of(std::string_view input) {
  std::vector<std::string> arguments;
  bool chance_chosen = false;
  bool number_next = false;
  std::istringstream lines{std::string(input)};
  for (std::string line; arguments.size() < most_arguments && std::getline(lines, line);) {
    std::string argument = without_ways_out(line);
    if (number_next) argument = small_number(argument);
    number_next = false;
    for (const std::string& name : {std::string("--matches"), std::string("--rounds"), std::string("--jobs")}) {
      number_next = number_next || argument == name;
      if (argument.starts_with(name + "=")) argument = name + "=" + small_number(argument.substr(name.size() + 1));
    }
    chance_chosen = chance_chosen || argument.starts_with("--seed") || argument.starts_with("--draws");
    arguments.push_back(std::move(argument));
  }
  if (!chance_chosen && !arguments.empty()) arguments.insert(arguments.begin(), {"--seed", "1"});
  return arguments;
}

bool has(const std::vector<std::string>& arguments, std::string_view text) {
  return std::any_of(arguments.begin(), arguments.end(),
                     [&](const std::string& argument) { return argument.starts_with(text); });
}

/// True if the arguments have a word for a command that writes files.
bool may_write(const std::vector<std::string>& arguments) {
  for (const char* word : {"build", "dump", "--update", "--json", "--html", "--text", "--ball-by-ball"}) {
    if (has(arguments, word)) return true;
  }
  return false;
}

/// The file has an ending that a replacement gives to what it writes beside: ".new", ".next", or a point and six random
/// letters or digits.
bool is_of_replacement(const std::string& name) {
  if (name.ends_with(".new") || name.ends_with(".next")) return true;
  constexpr std::size_t random_part = 6;
  if (name.size() <= random_part || name[name.size() - random_part - 1] != '.') return false;
  return std::all_of(name.end() - random_part, name.end(), [](unsigned char c) { return std::isalnum(c) != 0; });
}

/// True if an argument ends in the name of that file, folders left out.
bool names(const std::vector<std::string>& arguments, const fs::path& file) {
  return std::any_of(arguments.begin(), arguments.end(),
                     [&](const std::string& argument) { return argument.ends_with(file.filename().native()); });
}

void check_output(int status, const std::string& out, const std::string& err, bool checks) {
  require(status == cli::done || status == cli::failed || status == cli::wrong_usage, "the exit status is known", err);
  require(out.empty() || out.ends_with('\n'), "the last line has an end", out);
  if (status == cli::done || checks) return;
  require(err.starts_with("velorin-cli: ") && err.ends_with('\n'), "an error names the program", err);
  require(std::count(err.begin(), err.end(), '\n') == 1, "an error is one line", err);
  require(err != "velorin-cli: A process that played matches ended before its work was done\n",
          "no worker breaks down");
}

}  // namespace

void take(std::string_view input) {
  fresh_state();
  const std::vector<std::string> arguments = arguments_of(input);
  std::ostringstream out;
  std::ostringstream err;
  const int status = cli::run(arguments, run_folder(), {out, err});
  check_output(status, out.str(), err.str(), has(arguments, "check"));
  // Arguments of other bytes are shown as they were typed.
  if (std::all_of(arguments.begin(), arguments.end(), is_utf8)) {
    require(is_utf8(out.str()) && is_utf8(err.str()), "output is UTF-8", err.str());
  }
  if (!may_write(arguments)) {
    require(tree_of(run_folder()) == laid_out, "files stay as they were");
    return;
  }
  const tree left = tree_of(run_folder());
  for (const auto& [name, bytes] : left) {
    require(!is_of_replacement(name) || names(arguments, name), "nothing half written is left", name);
  }
  if (left != laid_out) lay_out(laid_out);
}

/// The folder: teams/ with the small database, source/ with its tables, a file of draws.
void prepare() {
  lay_out_database();
  tree wanted;
  for (const char* ending : {".team", ".grd", ".rec", ".ptr"}) {
    wanted[std::string("teams/small") + ending] = bytes_of(scratch() / (std::string("base") + ending));
  }
  wanted["teams/options.mc"] = "\r\nsmall\r\n000000\r\nFFFFFF\r\nSans Serif\r\n";
  for (const char* table : {"players.csv", "grounds.csv"}) {
    wanted[std::string("source/") + table] = bytes_of(small_tables() / table);
  }
  for (int i = 0; i < 3000; ++i) wanted["draws.txt"] += "0." + std::to_string(1000 + i * 7919 % 9000) + "\n";
  lay_out(wanted);
  laid_out = tree_of(run_folder());
}

}  // namespace velorin::fuzz
