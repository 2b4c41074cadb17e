// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace velorin::house {

/// A text file of a tree.
struct source_file {
  std::string path;  ///< below the root, with slashes
  std::vector<std::string> lines;
};

/// The text files of the named folders and the named files themselves, below root, in the order of the names; within a
/// folder in the order of their paths. What is missing is left out. Raises std::runtime_error for what cannot be read.
std::vector<source_file> gather_all(const std::filesystem::path& root, std::initializer_list<std::string_view> names);

/// True for a file of C++ and for a template that the build makes one of.
bool is_code(const source_file& file);

/// "path:line: what"; `line` counts from 0.
std::string breach(const source_file& file, std::size_t line, const std::string& what);

}  // namespace velorin::house
