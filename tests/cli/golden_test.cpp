// SPDX-License-Identifier: GPL-3.0-or-later
#include <cstdlib>

#include "cli/cli_fixture.h"

namespace velorin::testing {
namespace {

/// Transcripts of whole runs on the small database. scripts/approve writes them anew.
class Golden : public CliTest {
 protected:
  void expect_transcript(const std::string& name, const std::vector<std::string>& arguments) const {
    const std::filesystem::path path = std::filesystem::path(VELORIN_TEST_DATA) / "golden" / "cli" / (name + ".txt");
    const std::string out = text(arguments);
    if (std::getenv("VELORIN_APPROVE") != nullptr) {
      write_bytes(path, out);
      ADD_FAILURE() << name << " was written anew; read it through";
      return;
    }
    const std::vector<std::string> got = lines_of(out);
    const std::vector<std::string> wanted = lines_of(file_bytes(path));
    for (std::size_t i = 0; i < std::min(got.size(), wanted.size()); ++i) {
      ASSERT_EQ(got[i], wanted[i]) << name << ", line " << i + 1;
    }
    EXPECT_EQ(got.size(), wanted.size()) << name;
  }
};

TEST_F(Golden, Match) { expect_transcript("match", {"--seed", "1", "match"}); }

TEST_F(Golden, HumanMatch) {
  expect_transcript("human_match", {"--seed", "2", "match", "--captain1", "human", "--captain2", "human"});
}

TEST_F(Golden, Series) {
  expect_transcript("series",
                    {"--seed", "1", "series", "--home", "New Zealand", "--away", "Northland", "--matches", "5"});
}

TEST_F(Golden, TriSeries) {
  expect_transcript("tri", {"--seed", "1", "tri", "--team1", "New Zealand", "--team2", "South Isles", "--team3",
                            "Cape Tavor", "--rounds", "2"});
}

TEST_F(Golden, WorldCup) { expect_transcript("worldcup", {"--seed", "1", "worldcup", "--hosts", "Vestria,Orland"}); }

}  // namespace
}  // namespace velorin::testing
