// SPDX-License-Identifier: GPL-3.0-or-later
#include "layers/source_files.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace velorin::house {

namespace fs = std::filesystem;

namespace {

std::optional<source_file> read_text(const fs::path& root, const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  const std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  if (bytes.find('\0') != std::string::npos) return std::nullopt;  // no text
  source_file read{fs::relative(file, root).generic_string(), {}};
  std::string line;
  for (const char c : bytes) {
    if (c != '\n') {
      line += c;
      continue;
    }
    read.lines.push_back(std::move(line));
    line.clear();
  }
  if (!line.empty()) read.lines.push_back(std::move(line));
  return read;
}

/// The text files of a folder or the one file of that name below root.
void gather(const fs::path& root, const fs::path& below, std::vector<source_file>& files) {
  const fs::path start = root / below;
  std::vector<fs::path> found;
  if (fs::is_regular_file(start)) {
    found.push_back(start);
  } else if (fs::is_directory(start)) {
    for (const auto& entry : fs::recursive_directory_iterator(start)) {
      if (entry.is_regular_file()) found.push_back(entry.path());
    }
  }
  std::sort(found.begin(), found.end());
  for (const auto& file : found) {
    if (auto read = read_text(root, file)) files.push_back(std::move(*read));
  }
}

}  // namespace

std::vector<source_file> gather_all(const fs::path& root, std::initializer_list<std::string_view> names) {
  std::vector<source_file> files;
  for (const auto name : names) gather(root, name, files);
  return files;
}

bool is_code(const source_file& file) {
  return file.path.ends_with(".h") || file.path.ends_with(".cpp") || file.path.ends_with(".h.in");
}

std::string breach(const source_file& file, std::size_t line, const std::string& what) {
  return file.path + ":" + std::to_string(line + 1) + ": " + what;
}

}  // namespace velorin::house
