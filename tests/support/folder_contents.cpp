// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/folder_contents.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace velorin::testing {

std::string file_bytes(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  EXPECT_TRUE(in) << file << " cannot be read";
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

std::map<std::string, std::string> contents_of(const std::filesystem::path& folder) {
  std::map<std::string, std::string> files_found;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
    const std::string name = std::filesystem::relative(entry.path(), folder).string();
    files_found[name] = entry.is_directory() ? "a folder" : file_bytes(entry.path());
  }
  return files_found;
}

}  // namespace velorin::testing
