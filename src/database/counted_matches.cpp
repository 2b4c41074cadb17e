// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/counted_matches.h"

#include <algorithm>

#include "database/configuration.h"

namespace velorin {

std::filesystem::path counted_file(const database_files& files) {
  return std::filesystem::path(files.career_file).replace_extension(".counted");
}

bool is_counted(std::string_view list, std::string_view name) {
  while (!list.empty()) {
    const std::string_view line = list.substr(0, list.find('\n'));
    if (line == name) return true;
    list.remove_prefix(std::min(list.size(), line.size() + 1));
  }
  return false;
}

std::string list_with(std::string_view list, std::string_view name) {
  std::string all(name);
  all += '\n';
  for (int line = 1; line < most_counted_matches && !list.empty(); ++line) {
    const std::size_t length = std::min(list.size(), list.find('\n') + 1);
    all += list.substr(0, length == 0 ? list.size() : length);
    list.remove_prefix(length == 0 ? list.size() : length);
  }
  return all;
}

}  // namespace velorin
