// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/elevens.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include "database/database_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::error_of;
using ::testing::HasSubstr;
using testing::names_in;
using testing::write_bytes;

eleven men_called(const std::string& prefix) {
  eleven men;
  for (int i = 1; i <= 11; ++i) {
    men[i].name = fmt::format("{}{}", prefix, i);
    men[i].bat_skill = 20 + i;
    men[i].bowl_sr = 30.25F;
    men[i].econ = 4.7F;
    men[i].is_keeper = i == 7 ? flag_true : 0;
    men[i].bat_type = "RH Opener";
    men[i].bowler_type = "spinner";
  }
  return men;
}

/// A man whose record has `size` bytes.
player_rec man_of_size(std::size_t size) {
  player_rec man;
  man.name = std::string(size - 30, 'x');
  return man;
}

class Elevens : public testing::database_fixture, public ::testing::WithParamInterface<bool> {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    data.files.elevens_in_memory = GetParam();
    write_eleven(data, side::first, eleven());
    write_eleven(data, side::second, eleven());
  }
};

INSTANTIATE_TEST_SUITE_P(, Elevens, ::testing::Values(false, true),
                         [](const auto& where) { return where.param ? "InMemory" : "InFiles"; });

TEST_P(Elevens, TravelIntoTheMatch) {
  write_eleven(data, side::first, men_called("A"));
  write_eleven(data, side::second, men_called("B"));
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "A1");
  EXPECT_EQ(match.batting_xi[7].is_keeper, flag_true);
  EXPECT_EQ(match.batting_xi[11].bat_skill, 31);
  EXPECT_EQ(match.bowling_xi[11].name, "B11");
  EXPECT_EQ(match.bowling_xi[2].bowl_sr, 30.25F);
  EXPECT_EQ(match.bowling_xi[2].econ, 4.7F);
  EXPECT_EQ(match.bowling_xi[2].bat_type, "RH Opener");
  EXPECT_EQ(match.bowling_xi[2].bowler_type, "spinner");
}

TEST_P(Elevens, AreExchanged) {
  write_eleven(data, side::first, men_called("A"));
  write_eleven(data, side::second, men_called("B"));
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "B1");
  EXPECT_EQ(match.bowling_xi[1].name, "A1");
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "A1");
}

TEST_P(Elevens, ARecordOf125BytesFits) {
  eleven men = men_called("A");
  men[4] = man_of_size(125);
  write_eleven(data, side::first, men);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[4].name, men[4].name);
}

TEST_P(Elevens, ALongerRecordIsRefusedAndTheOldElevenStays) {
  write_eleven(data, side::second, men_called("B"));
  eleven men = men_called("A");
  men[4] = man_of_size(126);
  const auto error = error_of([&] { write_eleven(data, side::second, men); });
  EXPECT_EQ(error.kind(), failure::overflow);
  EXPECT_EQ(error.place().file, "team2r.txt");
  EXPECT_EQ(error.place().record, 4);
  EXPECT_EQ(error.place().player, men[4].name);
  read_elevens(match, data);
  EXPECT_EQ(match.bowling_xi[1].name, "B1");
  EXPECT_EQ(match.bowling_xi[4].name, "B4");
}

class ElevenFiles : public testing::database_fixture {};

TEST_F(ElevenFiles, InMemoryTheFolderIsLeftAlone) {
  data.files.elevens_in_memory = true;
  write_eleven(data, side::first, men_called("A"));
  write_eleven(data, side::second, men_called("B"));
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_TRUE(names_in(folder).empty());
}

TEST_F(ElevenFiles, MissingFilesAreEmptyElevens) {
  match.batting_xi = men_called("old");
  match.bowling_xi = men_called("old");
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "");
  EXPECT_EQ(match.bowling_xi[11].bat_skill, 0);
}

TEST_F(ElevenFiles, AShortFileLeavesEmptyRecords) {
  write_eleven(data, side::first, men_called("A"));
  std::filesystem::resize_file(folder / "team1r.txt", 3 * 125);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[3].name, "A3");
  EXPECT_EQ(match.batting_xi[4].name, "");
}

TEST_F(ElevenFiles, BytesBehindTheLastFieldStay) {
  write_bytes(folder / "team1r.txt", std::string(1400, 'x'));
  eleven men = men_called("A");
  write_eleven(data, side::first, men);
  const std::string bytes = bytes_of(folder / "team1r.txt");
  const std::size_t used = 30 + 2 + 9 + 7;  // "A1", "RH Opener", "spinner"
  EXPECT_EQ(bytes.substr(used, 125 - used), std::string(125 - used, 'x'));
  EXPECT_EQ(bytes.substr(1375), std::string(25, 'x') + std::string(100, '\0'))
      << "a twelfth slot stays and is filled up";
}

TEST_F(ElevenFiles, AFileInTheWayOfTheExchangeIsAnError) {
  write_eleven(data, side::first, men_called("A"));
  write_eleven(data, side::second, men_called("B"));
  write_bytes(folder / "dummy.txt", "mine");
  const auto error = error_of([] { swap_elevens(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_THAT(error.what(), HasSubstr("File exists (file dummy.txt)"));
  EXPECT_EQ(bytes_of(folder / "dummy.txt"), "mine");
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "A1");
  EXPECT_EQ(match.bowling_xi[1].name, "B1");
}

/// An exchange that was killed behind so many of its renames.
class KilledExchange : public ElevenFiles, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override {
    ElevenFiles::SetUp();
    write_eleven(data, side::first, men_called("A"));
    write_eleven(data, side::second, men_called("B"));
    std::filesystem::rename(folder / "team2r.txt", folder / "dummy.txt");
    if (GetParam() == 2) std::filesystem::rename(folder / "team1r.txt", folder / "team2r.txt");
  }
};

INSTANTIATE_TEST_SUITE_P(, KilledExchange, ::testing::Values(1, 2),
                         [](const auto& of) { return of.param == 1 ? "BehindTheFirst" : "BehindTheSecond"; });

TEST_P(KilledExchange, IsSettledByTheNextSelection) {
  write_eleven(data, side::first, men_called("C"));
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "C1");
  EXPECT_EQ(match.bowling_xi[1].name, GetParam() == 1 ? "B1" : "A1");
  EXPECT_THAT(names_in(folder), ElementsAre("team1r.txt", "team2r.txt"));
  write_eleven(data, side::second, men_called("D"));
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "D1");
  EXPECT_EQ(match.bowling_xi[1].name, "C1");
  EXPECT_THAT(names_in(folder), ElementsAre("team1r.txt", "team2r.txt"));
}

TEST_P(KilledExchange, IsSettledByTheNextExchange) {
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, GetParam() == 1 ? "B1" : "A1");
  EXPECT_EQ(match.bowling_xi[1].name, GetParam() == 1 ? "A1" : "B1");
  EXPECT_THAT(names_in(folder), ElementsAre("team1r.txt", "team2r.txt"));
}

TEST_F(ElevenFiles, ASelectionClearsTheWayOfTheExchange) {
  write_eleven(data, side::first, men_called("A"));
  write_bytes(folder / "team2r.txt", {});
  write_bytes(folder / "dummy.txt", "idle");
  write_eleven(data, side::second, men_called("B"));
  swap_elevens(data);
  read_elevens(match, data);
  EXPECT_EQ(match.batting_xi[1].name, "B1");
  EXPECT_THAT(names_in(folder), ElementsAre("team1r.txt", "team2r.txt"));
}

TEST_F(ElevenFiles, AFailedExchangeIsUndone) {
  write_eleven(data, side::second, men_called("B"));
  const std::string second = bytes_of(folder / "team2r.txt");
  const auto error = error_of([] { swap_elevens(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_EQ(error.place().file, "team1r.txt");
  EXPECT_THAT(names_in(folder), ElementsAre("team2r.txt"));
  EXPECT_EQ(bytes_of(folder / "team2r.txt"), second);
}

}  // namespace
}  // namespace velorin
