// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/file_rules.h"

#include <algorithm>
#include <map>
#include <regex>
#include <set>

#include "layers/source_files.h"

namespace velorin::house {

namespace {

constexpr const char* vocabulary = "docs/vocabulary.md";

/// A file as a row has it.
struct named_file {
  std::string path;  ///< below src, without its ending
  std::string at;    ///< "path:line: ", the place that a breach names
  bool in_its_room = true;
};

/// The names between backquotes, in order.
std::vector<std::string> quoted_names(const std::string& text) {
  static const std::regex name("`([\\w/]+)`");
  std::vector<std::string> names;
  for (std::sregex_iterator found(text.begin(), text.end(), name), end; found != end; ++found) {
    names.push_back((*found)[1]);
  }
  return names;
}

/// The files that a row of a table under these rooms names.
void add_row(const std::string& line, const std::vector<std::string>& rooms, const std::string& at,
             std::vector<named_file>& named) {
  std::string folder = rooms.size() == 1 ? rooms[0] + "/" : "";
  for (const std::string& name : quoted_names(line.substr(0, line.find('|', 1)))) {
    const std::string path = name.find('/') == std::string::npos ? folder + name : name;
    folder = path.substr(0, path.rfind('/') + 1);
    const bool in_its_room = std::find(rooms.begin(), rooms.end(), path.substr(0, path.find('/'))) != rooms.end();
    named.push_back({path, at, in_its_room});
  }
}

/// The files that the tables name.
std::vector<named_file> listed_files(const std::vector<source_file>& files) {
  static const std::regex window_row("^\\| `\\w+` \\| [^|]+ \\| `src/([\\w/]+)` \\| .*");
  std::vector<named_file> named;
  for (const source_file& file : files) {
    std::vector<std::string> rooms;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string& line = file.lines[i];
      std::smatch found;
      if (line.starts_with('#')) {
        rooms = line.starts_with("### ") ? quoted_names(line) : std::vector<std::string>();
      } else if (std::regex_match(line, found, window_row)) {
        named.push_back({found[1], breach(file, i, "")});
      } else if (!rooms.empty() && line.starts_with("| `")) {
        add_row(line, rooms, breach(file, i, ""), named);
      }
    }
  }
  return named;
}

/// The files of src, by their paths without endings; with each the place that a breach names.
std::map<std::string, std::string> present_files(const std::filesystem::path& root) {
  static const std::string folder = "src/";
  std::map<std::string, std::string> present;
  for (const source_file& file : gather_all(root, {"src"})) {
    if (!file.path.ends_with(".h") && !file.path.ends_with(".cpp")) continue;
    present.emplace(file.path.substr(folder.size(), file.path.rfind('.') - folder.size()), breach(file, 0, ""));
  }
  return present;
}

}  // namespace

std::vector<std::string> check_file_list(const std::filesystem::path& root) {
  const std::map<std::string, std::string> present = present_files(root);
  const std::vector<named_file> listed = listed_files(gather_all(root, {vocabulary}));
  std::set<std::string> names;
  for (const named_file& one : listed) names.insert(one.path);

  std::vector<std::string> breaches;
  for (const auto& [path, at] : present) {
    if (!names.contains(path)) breaches.push_back(at + "`" + path + "` is not in " + vocabulary);
  }
  for (const named_file& one : listed) {
    if (!present.contains(one.path)) {
      breaches.push_back(one.at + "no file src/" + one.path);
    } else if (!one.in_its_room) {
      breaches.push_back(one.at + "`" + one.path + "` stands under another room");
    }
  }
  return breaches;
}

}  // namespace velorin::house
