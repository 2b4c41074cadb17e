// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/house_rules.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <string_view>

#include "layers/source_files.h"

namespace velorin::house {

namespace fs = std::filesystem;

namespace {

struct room {
  std::string_view name;
  int floor;
};

constexpr room rooms[] = {
    {"model", 1},    {"ui", 2},        {"database", 2}, {"captain", 3}, {"console", 3},      {"reports", 3},
    {"browsers", 3}, {"archive", 3},   {"engine", 4},   {"setup", 5},   {"competitions", 6}, {"forecast", 7},
    {"headless", 7}, {"recording", 7}, {"shell", 8},    {"desktop", 8}, {"cli", 8},
};
constexpr int highest_core_floor = 7;

/// Floor of a room, 0 for a folder that is none.
int floor_of(std::string_view name) {
  const auto* const found =
      std::find_if(std::begin(rooms), std::end(rooms), [&](const room& r) { return r.name == name; });
  return found == std::end(rooms) ? 0 : found->floor;
}

/// Where a source stands: src/<room>/... or src/<room>/forms/...
struct place {
  std::string room;
  bool window = false;
};

/// The place of a path below src, such as "console/forms/board.h". No room for a file that lies in no folder.
place place_of(const std::string& path) {
  const auto slash = path.find('/');
  if (slash == std::string::npos) return {};
  return {path.substr(0, slash), path.compare(slash, 7, "/forms/") == 0};
}

bool may_include(const place& from, const place& to) {
  if (from.room == to.room) return from.window || !to.window || from.room == "shell";
  const int floor = floor_of(to.room);
  if (from.room == "shell" && !from.window) return to.window || to.room == "desktop" || floor <= highest_core_floor;
  if (from.room == "desktop") return !to.window && (to.room == "model" || to.room == "ui");
  if (from.window) return !to.window && (to.room == "desktop" || floor <= highest_core_floor);
  return !to.window && floor < floor_of(from.room);
}

struct include_line {
  std::size_t line = 0;
  std::string header;
  bool quoted = false;
};

/// The include directives of a file, blanks allowed wherever the language allows them.
std::vector<include_line> includes_of(const source_file& file) {
  std::vector<include_line> includes;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    std::string_view rest = file.lines[i];
    const auto skip = [&rest](std::string_view word) {
      rest.remove_prefix(std::min(rest.find_first_not_of(" \t"), rest.size()));
      if (!rest.starts_with(word)) return false;
      rest.remove_prefix(word.size());
      return true;
    };
    if (!skip("#") || !skip("include")) continue;
    const bool quoted = skip("\"");
    if (!quoted && !skip("<")) continue;
    includes.push_back({i, std::string(rest.substr(0, rest.find(quoted ? '"' : '>'))), quoted});
  }
  return includes;
}

constexpr std::string_view source_root = "src/";

place place_of(const source_file& file) { return place_of(file.path.substr(source_root.size())); }

std::string described(const place& at) { return at.window ? at.room + "/forms" : at.room; }

void check_include(const fs::path& root, const source_file& file, const include_line& include,
                   std::vector<std::string>& breaches) {
  const place from = place_of(file);
  const place to = place_of(include.header);
  if (floor_of(to.room) == 0) {
    breaches.push_back(breach(file, include.line, "\"" + include.header + "\" does not begin with a room"));
  } else if (const fs::path header = root / "src" / include.header;
             !fs::is_regular_file(header) && !fs::is_regular_file(header.string() + ".in")) {
    breaches.push_back(breach(file, include.line, "\"" + include.header + "\" is no file of src"));
  } else if (!may_include(from, to)) {
    breaches.push_back(breach(file, include.line, described(from) + " may not include " + described(to)));
  }
}

/// QWidget, QtWidgets/QLabel and the like, but no word that only begins with that letter.
bool names_qt(const std::string& header) {
  const std::size_t next = header.starts_with("Qt") ? 2 : 1;
  return header.size() > next && header[0] == 'Q' && std::isupper(static_cast<unsigned char>(header[next])) != 0;
}

/// Standard headers have neither a folder nor an ending; the system's are named here.
bool is_allowed_in_core(const std::string& header) {
  static constexpr std::string_view system[] = {"dirent.h",   "fcntl.h",    "sys/file.h", "sys/mman.h",
                                                "sys/stat.h", "sys/time.h", "unistd.h"};
  if (std::find(std::begin(system), std::end(system), header) != std::end(system)) return true;
  return header.starts_with("fmt/") || header.find_first_of("./") == std::string::npos;
}

/// The database of the archive is nobody else's business.
bool is_of_the_archive(const std::string& room, const std::string& header) {
  return room == "archive" && (header.starts_with("SQLiteCpp/") || header == "sqlite3.h");
}

char lower(char c) { return static_cast<char>(std::tolower(static_cast<unsigned char>(c))); }
bool is_digit(char c) { return c >= '0' && c <= '9'; }

/// True if `line` has a numbered section's name: the word, a blank, digits, a point, a digit.
bool names_section(const std::string& line) {
  static const std::string word = "part";
  for (std::size_t at = 0; at + word.size() < line.size(); ++at) {
    if (!std::equal(word.begin(), word.end(), line.begin() + static_cast<std::ptrdiff_t>(at),
                    [](char a, char b) { return a == lower(b); })) {
      continue;
    }
    std::size_t next = at + word.size();
    if (next < line.size() && lower(line[next]) == 's') ++next;
    if (next >= line.size() || line[next] != ' ') continue;
    const std::size_t number = ++next;
    while (next < line.size() && is_digit(line[next])) ++next;
    if (next > number && next + 1 < line.size() && line[next] == '.' && is_digit(line[next + 1])) return true;
  }
  return false;
}

bool has_word(const std::string& line, const std::string& word) {
  return std::search(line.begin(), line.end(), word.begin(), word.end(),
                     [](char a, char b) { return lower(a) == b; }) != line.end();
}

/// True if `line` has a path that begins with one of the folders in which people and machines keep their own files.
bool names_machine_path(const std::string& line) {
  static constexpr std::string_view folders[] = {"home", "root", "work", "Users"};
  for (auto at = line.find('/'); at != std::string::npos; at = line.find('/', at + 1)) {
    const char before = at == 0 ? ' ' : line[at - 1];
    if (std::isalnum(static_cast<unsigned char>(before)) != 0 ||
        std::string_view("._-})$*/").find(before) != std::string::npos) {
      continue;  // goes on from a relative path, a variable or an address
    }
    for (const auto folder : folders) {
      const std::size_t end = at + 1 + folder.size();
      if (line.compare(at + 1, folder.size(), folder) == 0 && end + 1 < line.size() && line[end] == '/' &&
          std::isalnum(static_cast<unsigned char>(line[end + 1])) != 0) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace

std::vector<std::string> check_floors(const fs::path& root) {
  std::vector<std::string> breaches;
  for (const auto& file : gather_all(root, {"src"})) {
    if (!is_code(file)) continue;
    if (floor_of(place_of(file).room) == 0) {
      breaches.push_back(breach(file, 0, "lies in no room"));
      continue;
    }
    for (const auto& include : includes_of(file)) {
      if (include.quoted) check_include(root, file, include, breaches);
    }
  }
  return breaches;
}

std::vector<std::string> check_libraries(const fs::path& root) {
  std::vector<std::string> breaches;
  for (const auto& file : gather_all(root, {"src"})) {
    const place at = is_code(file) ? place_of(file) : place();
    const int floor = floor_of(at.room);
    const bool core = floor >= 1 && floor <= highest_core_floor;
    if (at.window || (!core && at.room != "cli")) continue;
    for (const auto& include : includes_of(file)) {
      if (names_qt(include.header)) {
        breaches.push_back(breach(file, include.line, at.room + " may not include a Qt header: " + include.header));
      } else if (core && !include.quoted && !is_allowed_in_core(include.header) &&
                 !is_of_the_archive(at.room, include.header)) {
        breaches.push_back(breach(file, include.line, at.room + " may not use this library: " + include.header));
      }
    }
  }
  return breaches;
}

std::vector<std::string> check_licence_lines(const fs::path& root) {
  static const std::string words = "SPDX-License-Identifier: GPL-3.0-or-later";
  std::vector<std::string> breaches;
  for (const auto& file :
       gather_all(root, {".ci", "CMakeLists.txt", "benchmarks", "cmake", "data", "fuzz", "scripts", "src", "tests"})) {
    const bool script = !file.lines.empty() && file.lines[0].starts_with("#!");
    const bool build = file.path.ends_with("CMakeLists.txt") || file.path.ends_with(".cmake");
    if (!is_code(file) && !build && !script) continue;
    const std::string wanted = (is_code(file) ? "// " : "# ") + words;
    const std::size_t line = script ? 1 : 0;
    if (file.lines.size() <= line || file.lines[line] != wanted) {
      breaches.push_back(breach(file, line, "here stands \"" + wanted + "\""));
    }
  }
  return breaches;
}

std::vector<std::string> check_words(const fs::path& root) {
  // Put together here, so that this file does not have the word itself.
  static const std::string document = std::string("specif") + "ication";
  std::vector<std::string> breaches;
  for (const auto& file :
       gather_all(root, {".ci", "CHANGELOG.md", "CMakeLists.txt", "CMakePresets.json", "CONTRIBUTING.md", "README.md",
                         "benchmarks", "cmake", "data", "docs", "fuzz", "packaging", "scripts", "src", "tests"})) {
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string& line = file.lines[i];
      if (has_word(line, document)) breaches.push_back(breach(file, i, "names the " + document));
      if (names_section(line)) breaches.push_back(breach(file, i, "names a numbered section"));
      if (names_machine_path(line)) breaches.push_back(breach(file, i, "names a path of one machine"));
    }
  }
  return breaches;
}

}  // namespace velorin::house
