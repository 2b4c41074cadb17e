// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/acts.h"

#include <algorithm>
#include <regex>
#include <stdexcept>

namespace velorin::testing {

namespace {

namespace fs = std::filesystem;

const std::string cli = VELORIN_CLI;
const std::string settings_writer = VELORIN_SETTINGS_WRITER;
const std::string elevens_writer = VELORIN_ELEVENS_WRITER;

/// The text with the first `from` in it replaced.
std::string with(std::string text, const std::string& from, const std::string& to) {
  const std::size_t at = text.find(from);
  if (at == std::string::npos) throw std::runtime_error("the small database has no " + from);
  return text.replace(at, from.size(), to);
}

/// Tables that differ from those of the small database in one man and one ground.
file_map other_tables() {
  const fs::path small = fs::path(VELORIN_TEST_DATA) / "data" / "small";
  return {{"tables", a_folder},
          {"tables/players.csv", with(bytes_of_file(small / "players.csv"), "N.B.Zanmere", "N.B.Zander")},
          {"tables/grounds.csv", with(bytes_of_file(small / "grounds.csv"), "Fjordside", "Fjordend")}};
}

file_map small_database_files() {
  workbench bench;
  const std::string small = (fs::path(VELORIN_TEST_DATA) / "data" / "small").string();
  const ending end = bench.run({{cli, "db", "build", small, (bench.data() / "small").string()}, {}, {}});
  if (end.status != 0) throw std::runtime_error("the small database cannot be built: " + end.err);
  return bench.found();
}

const std::vector<std::string> match_words = {cli, "--teams-dir", "@", "--seed", "7", "match", "--quiet"};

std::vector<std::string> joined(std::vector<std::string> words, const std::vector<std::string>& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

act first_update() {
  act what;
  what.words = joined(match_words, {"--update"});
  what.before = small_database_files();
  what.before["options.mc"] = "\r\nsmall\r\n000000\r\nFFFFFF\r\nSans\r\n";
  what.writes = {"small.ptr", "small.rec"};
  what.archived = true;
  return what;
}

act update() {
  act what = first_update();
  what.before = after(what, what.before);
  return what;
}

act build() {
  act what;
  what.words = {cli, "db", "build", "@/tables", "@/small"};
  what.before = small_database_files();
  what.before.merge(other_tables());
  what.writes = {"small.grd", "small.team"};
  return what;
}

act build_anew() {
  act what;
  what.words = {cli, "db", "build", "@/tables", "@/new/deep/small"};
  what.before = other_tables();
  what.writes = {"new/deep/small.grd", "new/deep/small.team"};
  return what;
}

act dump_anew() {
  act what;
  what.words = {cli, "db", "dump", "@/small", "@/out"};
  what.before = update().before;
  for (const char* name : {"careers", "grounds", "highest_totals", "lowest_totals", "partnerships", "players",
                           "team_table", "top_bowling", "top_scores"}) {
    what.writes.push_back("out/" + std::string(name) + ".csv");
  }
  return what;
}

act exports() {
  act what;
  what.words = joined(
      match_words, {"--html", "@/m.html", "--text", "@/m.txt", "--ball-by-ball", "@/balls.txt", "--json", "@/m.json"});
  what.before = first_update().before;
  what.writes = {"balls.txt", "m.html", "m.json", "m.txt"};
  what.apart = true;
  what.exports = true;
  return what;
}

act draws() {
  act what;
  what.words = {cli, "--teams-dir", "@", "--draws", "@/draws.txt", "match", "--quiet", "--text", "@/m.txt"};
  what.before = first_update().before;
  std::string lines;
  for (int i = 0; i < 4000; ++i) lines += "0." + std::to_string(1000 + i * 7919 % 9000) + "\n";
  what.before["draws.txt"] = lines;
  what.writes = {"m.txt"};
  what.apart = true;
  what.exports = true;
  return what;
}

act settings() {
  act what;
  what.words = {settings_writer, "@", "small", "112233"};
  what.before = first_update().before;
  what.writes = {"options.mc"};
  return what;
}

act begin_anew() {
  act what = update();
  what.words = {settings_writer, "@", "small", "begin_anew"};
  what.archived = false;  // there is none here yet
  return what;
}

act elevens() {
  act what;
  what.words = {elevens_writer, "@", "write"};
  what.before = {{"team1r.txt", old_bytes}, {"team2r.txt", old_bytes}};
  what.writes = {"team1r.txt", "team2r.txt"};
  what.apart = true;
  return what;
}

act exchange() {
  act what = elevens();
  what.before = after(what, what.before);
  what.words.back() = "exchange";
  what.apart = false;
  what.spare = "dummy.txt";
  return what;
}

/// Without the files that the act replaces.
act anew(act what) {
  for (const std::string& file : what.writes) what.before.erase(file);
  return what;
}

/// With something else in the files that the act replaces.
act over_old(act what) {
  for (const std::string& file : what.writes) {
    if (const fs::path folder = fs::path(file).parent_path(); !folder.empty()) what.before[folder.string()] = a_folder;
    what.before[file] = old_bytes;
  }
  return what;
}

}  // namespace

program act::on(const workbench& bench) const {
  program started{words, {}, {}};
  for (std::string& word : started.line) {
    if (word.starts_with('@')) word = bench.data().string() + word.substr(1);
  }
  return started;
}

bool act::may_leave(const std::string& file) const {
  if (!spare.empty()) return file == spare;
  const std::regex mark(exports ? "\\.[A-Za-z0-9]{6}$" : "\\.(new|next)$");
  const std::string target = std::regex_replace(file, mark, "");
  return target != file && std::find(writes.begin(), writes.end(), target) != writes.end();
}

file_map act::settled(file_map found) const {
  if (!found.contains(spare)) return found;
  for (const std::string& file : {writes.at(1), writes.at(0)}) {
    if (found.contains(file)) continue;
    found[file] = found.at(spare);
    found.erase(spare);
    break;
  }
  return found;
}

std::vector<std::string> writing_act_names() {
  return {"build",   "build_anew", "update",   "first_update",   "dump",   "dump_anew",
          "exports", "draws",      "settings", "first_settings", "elevens"};
}

std::vector<std::string> act_names() { return joined(writing_act_names(), {"begin_anew", "exchange"}); }

act act_of(const std::string& name) {
  const std::map<std::string, std::function<act()>> makers = {{"build", build},
                                                              {"build_anew", build_anew},
                                                              {"update", update},
                                                              {"first_update", first_update},
                                                              {"dump", [] { return over_old(dump_anew()); }},
                                                              {"dump_anew", dump_anew},
                                                              {"exports", [] { return over_old(exports()); }},
                                                              {"draws", draws},
                                                              {"settings", settings},
                                                              {"first_settings", [] { return anew(settings()); }},
                                                              {"begin_anew", begin_anew},
                                                              {"elevens", elevens},
                                                              {"exchange", exchange}};
  act what = makers.at(name)();
  what.name = name;
  return what;
}

file_map after(const act& what, const file_map& before) {
  workbench bench;
  bench.lay_out(before);
  const ending end = bench.run(what.on(bench));
  if (end.status != 0) throw std::runtime_error("an undisturbed run fails: " + end.err);
  return bench.found();
}

ending archive_check(workbench& bench) {
  return bench.run({{cli, "--teams-dir", bench.data().string(), "archive", "check"}, {}, {}});
}

}  // namespace velorin::testing
