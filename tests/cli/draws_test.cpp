// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "cli/cli_fixture.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::HasSubstr;

class Draws : public CliTest {
 protected:
  /// A draws file of the first numbers of a seed.
  std::string draws_of(std::uint64_t seed, int count) const {
    random_source source;
    source.use_seed(seed);
    std::string lines;
    for (int i = 0; i < count; ++i) lines += fmt::format("{:.17g}\n", source.rnd());
    return written(lines);
  }
  std::string written(const std::string& lines) const {
    write_bytes(file("draws.txt"), lines);
    return file("draws.txt");
  }
};

TEST_F(Draws, ScriptedDrawsPlayTheMatchOfTheirSeed) {
  const std::string out = text({"--seed", "7", "match", "--json", "-"});
  const int used = json::parse(out)["draws_used"];
  EXPECT_EQ(text({"--draws", draws_of(7, used), "match", "--json", "-"}), out) << "with exactly as many as it takes";
  EXPECT_EQ(text({"--draws", draws_of(7, used + 50), "match", "--json", "-"}), out) << "what is left over is left";
}

TEST_F(Draws, TheSameFileTwiceIsTheSameMatch) {
  const std::string draws = draws_of(8, 2000);
  EXPECT_EQ(text({"--draws", draws, "match"}), text({"--draws", draws, "match"}));
}

TEST_F(Draws, CompetitionsTakeThemToo) {
  const std::vector<std::string> series = {"series", "--home", "Vestria", "--away", "Orland", "--matches", "2"};
  std::vector<std::string> seeded = {"--seed", "9"};
  std::vector<std::string> scripted = {"--draws", draws_of(9, 4000)};
  seeded.insert(seeded.end(), series.begin(), series.end());
  scripted.insert(scripted.end(), series.begin(), series.end());
  EXPECT_EQ(text(scripted), text(seeded));
}

TEST_F(Draws, RunningOutNamesTheCountUsed) {
  for (const int count : {0, 1, 3, 4, 100, 333}) {
    const std::string message = error(1, {"--draws", draws_of(7, count), "match"});
    EXPECT_THAT(message, HasSubstr("all " + std::to_string(count) + " are used"));
    EXPECT_THAT(message, HasSubstr("draws.txt"));
  }
}

TEST_F(Draws, OneShortOfAMatchIsOneShort) {
  const int used = matches("7")[0]["draws_used"];
  EXPECT_THAT(error(1, {"--draws", draws_of(7, used - 1), "match"}), HasSubstr(std::to_string(used - 1)));
}

TEST_F(Draws, AFileThatIsNoneIsAnErrorWithItsLine) {
  for (const char* bad : {"1", "1.0", "-0.5", "x", "0.5 0.5", "", "0,5", "nan", "0.5x"}) {
    const std::string message = error(1, {"--draws", written(std::string("0.5\n0.25\n") + bad + "\n0.5\n"), "match"});
    EXPECT_THAT(message, HasSubstr("draws.txt")) << bad;
    EXPECT_THAT(message, HasSubstr("3")) << bad;
    EXPECT_THAT(message, HasSubstr(std::string("\"") + bad + "\" is no number in [0,1)"));
  }
  EXPECT_THAT(error(1, {"--draws", file("missing.txt"), "match"}), HasSubstr("missing.txt"));
}

TEST_F(Draws, BrokenFilesAreRefusedWithFileAndLine) {
  const std::filesystem::path broken = std::filesystem::path(VELORIN_TEST_DATA) / "data" / "broken";
  const auto refusal = [&](const char* name) { return error(1, {"--draws", (broken / name).string(), "match"}); };
  EXPECT_EQ(refusal("BrokenNumberNotBelowOne.draws"),
            "velorin-cli: \"1.0\" is no number in [0,1) (file BrokenNumberNotBelowOne.draws, record 2)");
  EXPECT_EQ(refusal("BrokenZeroByte.draws"),
            "velorin-cli: \"0.2?5\" is no number in [0,1) (file BrokenZeroByte.draws, record 2)");
}

TEST_F(Draws, LinesMayEndAsElsewhere) {
  const std::string out = text({"--draws", draws_of(7, 2000), "match"});
  std::string lines = file_bytes(file("draws.txt"));
  std::string with_returns;
  for (const char c : lines) with_returns += c == '\n' ? std::string("\r\n") : std::string(1, c);
  EXPECT_EQ(text({"--draws", written(with_returns), "match"}), out);
  lines.pop_back();
  EXPECT_EQ(text({"--draws", written(lines), "match"}), out) << "the last line needs no end";
}

}  // namespace
}  // namespace velorin::testing
