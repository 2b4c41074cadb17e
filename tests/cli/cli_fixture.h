// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/report_run.h"
#include "support/folder_contents.h"

namespace velorin::testing {

using json = nlohmann::json;

/// A folder that is gone with the object.
class scratch_folder {
 public:
  scratch_folder();
  ~scratch_folder();
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

/// Where the tables of the small database of the tests are.
std::filesystem::path small_tables();

void write_bytes(const std::filesystem::path& file, const std::string& bytes);
/// The lines of a text, without their ends. The last one must have an end, too.
std::vector<std::string> lines_of(const std::string& text);

/// Runs of the companion, in this process, on a teams folder with the small database.
class CliTest : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  const std::filesystem::path& teams() const { return teams_.path(); }
  /// A file outside of the teams folder.
  std::string file(const std::string& name) const { return (scratch_.path() / name).string(); }

  run_result run(const std::vector<std::string>& arguments) const { return run_on(teams(), arguments); }
  /// The standard output of a run that works and says nothing else.
  std::string text(const std::vector<std::string>& arguments) const;
  /// The message of a run that fails with `status` and prints nothing.
  std::string error(int status, const std::vector<std::string>& arguments) const;
  /// The objects of a run of `match --json -`, one a line; at least one.
  std::vector<json> matches(const std::string& seed, const std::vector<std::string>& options = {}) const;

 private:
  scratch_folder teams_;
  scratch_folder scratch_;
};

}  // namespace velorin::testing
