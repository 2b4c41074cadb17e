// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/cli_fixture.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "database/configuration.h"
#include "database/world.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::testing {

scratch_folder::scratch_folder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "velorin-cli-XXXXXX").string();
  if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for a test");
  path_ = pattern;
}

scratch_folder::~scratch_folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path small_tables() { return std::filesystem::path(VELORIN_TEST_DATA) / "data" / "small"; }

void write_bytes(const std::filesystem::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error("a test's file cannot be written");
}

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::size_t start = 0;
  for (std::size_t end = text.find('\n'); end != std::string::npos; end = text.find('\n', start)) {
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  EXPECT_EQ(start, text.size()) << "the last line has no end";
  return lines;
}

void CliTest::SetUp() { build_database(small_tables(), teams() / "small.team", teams() / "small.grd"); }

void CliTest::TearDown() {
  match = match_state();
  data.settings = configuration();
  data.files = database_files();
  chance.use_clock();
}

std::string CliTest::text(const std::vector<std::string>& arguments) const {
  const run_result result = run(arguments);
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  return result.out;
}

std::string CliTest::error(int status, const std::vector<std::string>& arguments) const {
  const run_result result = run(arguments);
  EXPECT_EQ(result.status, status) << result.err;
  EXPECT_EQ(result.out, "");
  const std::vector<std::string> lines = lines_of(result.err);
  EXPECT_EQ(lines.size(), 1U) << result.err;
  return lines.empty() ? "" : lines.front();
}

std::vector<json> CliTest::matches(const std::string& seed, const std::vector<std::string>& options) const {
  std::vector<std::string> arguments = {"--seed", seed, "match", "--json", "-"};
  arguments.insert(arguments.end(), options.begin(), options.end());
  std::vector<json> objects;
  for (const std::string& line : lines_of(text(arguments))) objects.push_back(json::parse(line));
  if (objects.empty()) throw std::runtime_error("no match was played");
  return objects;
}

}  // namespace velorin::testing
