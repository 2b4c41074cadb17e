// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace velorin::house {

/// The tree of this project.
inline const std::filesystem::path project = std::filesystem::path(VELORIN_TEST_DATA).parent_path();

/// A small tree of made-up files, gone at the end of the test.
class RulesTest : public testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (std::filesystem::temp_directory_path() / "velorin-house-XXXXXX").string();
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    root_ = pattern;
  }
  void TearDown() override { std::filesystem::remove_all(root_); }

  void write(const std::string& path, const std::string& text) const {
    std::filesystem::create_directories((root_ / path).parent_path());
    std::ofstream(root_ / path, std::ios::binary) << text;
  }

  std::filesystem::path root_;
};

}  // namespace velorin::house
