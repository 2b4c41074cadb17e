// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/window_rules.h"

#include <algorithm>
#include <cctype>
#include <iterator>
#include <regex>
#include <set>

#include "layers/source_files.h"

namespace velorin::house {

namespace {

constexpr const char* list_name = "docs/vocabulary.md";
const std::string table_head = "| id | name | file | what it is |";

/// A window as the sources or the table have it.
struct window {
  std::string id;
  std::string file;  ///< path without its ending
  std::string at;    ///< "path:line: ", the place that a breach names
};

/// A class that derives from another.
struct derived_class {
  std::string name;
  std::string base;
  std::string file;  ///< path without its ending
  std::string at;
};

std::string without_ending(const std::string& path) { return path.substr(0, path.rfind('.')); }

std::string whole_text(const source_file& file) {
  std::string text;
  for (const std::string& line : file.lines) text += line + '\n';
  return text;
}

std::vector<derived_class> classes_of(const source_file& file) {
  static const std::regex wanted("^class (\\w+)(?: final)? : public (\\w+)\\b.*");
  std::vector<derived_class> classes;
  for (std::size_t i = 0; i < file.lines.size(); ++i) {
    std::smatch found;
    if (!file.lines[i].starts_with("class ") || !std::regex_match(file.lines[i], found, wanted)) continue;
    classes.push_back({found[1], found[2], without_ending(file.path), breach(file, i, "")});
  }
  return classes;
}

/// The classes that derive from Form, directly or not.
std::vector<derived_class> forms_among(const std::vector<derived_class>& classes) {
  std::set<std::string> names = {"Form"};
  for (std::size_t before = 0; before != names.size();) {
    before = names.size();
    for (const derived_class& one : classes) {
      if (names.contains(one.base)) names.insert(one.name);
    }
  }
  std::vector<derived_class> forms;
  std::copy_if(classes.begin(), classes.end(), std::back_inserter(forms),
               [&](const derived_class& one) { return names.contains(one.name); });
  return forms;
}

/// The first literal text among the arguments whose bracket is open before `at`, but none of a nested call. "" if there
/// is none.
std::string literal_argument(const std::string& text, std::size_t at) {
  static const std::string literal = "QStringLiteral(\"";
  for (int depth = 1; at < text.size() && depth > 0; ++at) {
    if (depth == 1 && text.compare(at, literal.size(), literal) == 0) {
      at += literal.size();
      return text.substr(at, text.find('"', at) - at);
    }
    if (text[at] == '(' || text[at] == '{') ++depth;
    if (text[at] == ')' || text[at] == '}') --depth;
  }
  return {};
}

/// Goes on behind `word` and its open bracket, wherever it is a whole word in `text`.
template <class Visit>
void visit_calls(const std::string& text, const std::string& word, Visit&& visit) {
  const std::string call = word + "(";
  for (auto at = text.find(call); at != std::string::npos; at = text.find(call, at + 1)) {
    const char before = at == 0 ? ' ' : text[at - 1];
    if (std::isalnum(static_cast<unsigned char>(before)) == 0 && before != '_') visit(at, at + call.size());
  }
}

/// The windows to which a file gives ids, by its calls of `givers`.
std::vector<window> windows_of(const source_file& file, const std::set<std::string>& givers) {
  const std::string text = whole_text(file);
  std::vector<window> windows;
  for (const std::string& giver : givers) {
    visit_calls(text, giver, [&](std::size_t start, std::size_t behind) {
      const std::string id = literal_argument(text, behind);
      if (id.empty()) return;
      const auto line = std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(start), '\n');
      windows.push_back({id, without_ending(file.path), breach(file, static_cast<std::size_t>(line), "")});
    });
  }
  return windows;
}

/// The rows of the table of windows.
std::vector<window> listed_windows(const std::vector<source_file>& files) {
  static const std::regex row("^\\| `(\\w+)` \\| [^|]+ \\| `([\\w/]+)` \\| .* \\|$");
  std::vector<window> listed;
  for (const source_file& file : files) {
    const auto head = std::find(file.lines.begin(), file.lines.end(), table_head);
    for (auto line = head; line != file.lines.end() && line->starts_with('|'); ++line) {
      std::smatch found;
      if (!std::regex_match(*line, found, row)) continue;
      listed.push_back({found[1], found[2], breach(file, static_cast<std::size_t>(line - file.lines.begin()), "")});
    }
  }
  return listed;
}

bool holds(const std::vector<window>& windows, const window& wanted) {
  return std::any_of(windows.begin(), windows.end(),
                     [&](const window& one) { return one.id == wanted.id && one.file == wanted.file; });
}

/// The classes that neither have an id nor take one.
void check_ids(const std::vector<derived_class>& forms, const std::vector<window>& windows,
               const std::set<std::string>& named_by_users, std::vector<std::string>& breaches) {
  for (const derived_class& form : forms) {
    const bool has_id =
        std::any_of(windows.begin(), windows.end(), [&](const window& one) { return one.file == form.file; });
    if (!has_id && !named_by_users.contains(form.file)) breaches.push_back(form.at + form.name + " has no id");
  }
}

}  // namespace

std::vector<std::string> check_window_list(const std::filesystem::path& root) {
  std::vector<source_file> sources = gather_all(root, {"src"});
  std::erase_if(sources, [](const source_file& file) { return !is_code(file); });
  std::vector<derived_class> classes;
  std::set<std::string> named_by_users;
  for (const source_file& file : sources) {
    for (const derived_class& one : classes_of(file)) classes.push_back(one);
    if (whole_text(file).find("const QString& name,") != std::string::npos) {
      named_by_users.insert(without_ending(file.path));
    }
  }
  const std::vector<derived_class> forms = forms_among(classes);
  std::set<std::string> givers = {"Form", "ask", "dialog.setObjectName"};
  for (const derived_class& form : forms) givers.insert(form.name);
  std::vector<window> windows;
  for (const source_file& file : sources) {
    for (const window& one : windows_of(file, givers)) windows.push_back(one);
  }

  std::vector<std::string> breaches;
  check_ids(forms, windows, named_by_users, breaches);
  const std::vector<window> listed = listed_windows(gather_all(root, {list_name}));
  for (const window& one : windows) {
    if (!holds(listed, one)) breaches.push_back(one.at + "the window `" + one.id + "` is not in " + list_name);
  }
  for (const window& one : listed) {
    if (!holds(windows, one)) breaches.push_back(one.at + "no window `" + one.id + "` in " + one.file);
  }
  return breaches;
}

}  // namespace velorin::house
