// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/photos.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "database/configuration.h"
#include "model/code_page.h"
#include "support/game_in_play.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Photos : public ::testing::Test {
 protected:
  void SetUp() override { data.settings.photo_path = database_.folder().string(); }
  void TearDown() override { data.settings = configuration(); }

  /// Lays down pictures; names in UTF-8.
  void lay(std::initializer_list<const char*> names) const {
    for (const char* name : names) std::ofstream(database_.folder() / name) << "picture";
  }
  static std::vector<std::string> photos(const std::string& surname) {
    std::vector<std::string> names;
    for (const auto& photo : photos_of(data, surname)) names.push_back(photo.filename());
    return names;
  }
  static std::string console(const std::string& name) { return console_photo(data, name).value_or("none").filename(); }
  static std::string profile(const std::string& name) { return profile_photo(data, name).value_or("none").filename(); }

  const std::filesystem::path& folder() const { return database_.folder(); }

 private:
  small_database database_;
};

TEST_F(Photos, AreTheFilesThatBeginWithTheSurname) {
  lay({"Smithson.bmp", "Smith.bmp", "Smith jb.bmp", "Blacksmith.bmp", "Smit.bmp"});
  EXPECT_THAT(photos("Smith"), ElementsAre("Smith jb.bmp", "Smith.bmp", "Smithson.bmp"));
}

TEST_F(Photos, HaveOneOfThreeExtensions) {
  lay({"Smith1.png", "Smith2.jpg", "Smith3.bmp", "Smith4.gif", "Smith5.jpeg", "Smith6", "Smith7.bmp.txt", "Smithbmp"});
  EXPECT_THAT(photos("Smith"), ElementsAre("Smith1.png", "Smith2.jpg", "Smith3.bmp"));
}

TEST_F(Photos, TakeCapitalsAndSmallLettersAlike) {
  lay({"SMITH A.BMP", "smith B.Png", "sMiTh.jPG"});
  EXPECT_THAT(photos("Smith"), ElementsAre("SMITH A.BMP", "sMiTh.jPG", "smith B.Png"));
}

TEST_F(Photos, AreNoFolders) {
  std::filesystem::create_directory(folder() / "Smith.bmp");
  EXPECT_THAT(photos("Smith"), IsEmpty());
}

TEST_F(Photos, AreNotFoundWhereThereIsNoFolder) {
  data.settings.photo_path = (folder() / "gone").string();
  EXPECT_THAT(photos("Smith"), IsEmpty());
  data.settings.photo_path = "";
  EXPECT_THAT(photos("Smith"), IsEmpty());
  EXPECT_EQ(console_photo(data, "A.Smith"), std::nullopt);
  EXPECT_EQ(profile_photo(data, "A.Smith"), std::nullopt);
}

TEST_F(Photos, AreFoundByNamesOutsideAscii) {
  std::filesystem::create_directory(folder() / "Spieler é");
  data.settings.photo_path = *from_utf8((folder() / "Spieler é").string());
  std::ofstream(folder() / "Spieler é" / "Müller éa.bmp") << "picture";
  std::ofstream(folder() / "Spieler é" / "Müller Ж.bmp") << "picture";  // no place in the code page
  EXPECT_THAT(photos("M\xFCller"), ElementsAre("Müller éa.bmp"));
  EXPECT_EQ(profile("\xC9.M\xFCller"), "Müller éa.bmp");
  EXPECT_EQ(profile("E.M\xFCller"), "none");
}

TEST_F(Photos, OfTheConsoleIsTheFirstOfTheSurname) {
  lay({"Smith zz.bmp", "Smith aa.bmp", "Jones.bmp"});
  EXPECT_EQ(console("X.Y.Smith"), "Smith aa.bmp");
  EXPECT_EQ(console("Smith"), "Smith aa.bmp");
  EXPECT_EQ(console("A.Nobody"), "none");
}

TEST_F(Photos, OfTheProfileHasTheFirstInitialInItsLastThreeLetters) {
  lay({"Smith abc.bmp", "Smith bcd.bmp", "Smith cde.bmp"});
  EXPECT_EQ(profile("A.Smith"), "Smith abc.bmp");
  EXPECT_EQ(profile("C.Smith"), "Smith abc.bmp");    // the first hit, whatever comes later
  EXPECT_EQ(profile("D.A.Smith"), "Smith bcd.bmp");  // the second initial does not count
  EXPECT_EQ(profile("e.Smith"), "Smith cde.bmp");
  EXPECT_EQ(profile("F.Smith"), "none");
}

TEST_F(Photos, OfTheProfileLooksAtThreeLettersOnly) {
  lay({"Smithxabc.bmp"});
  EXPECT_EQ(profile("X.Smith"), "none");
  EXPECT_EQ(profile("A.Smith"), "Smithxabc.bmp");
}

TEST_F(Photos, OfTheProfileTakesTheSurnamesOwnLettersToo) {
  lay({"Ng.bmp"});  // a stem shorter than three letters
  EXPECT_EQ(profile("G.Ng"), "Ng.bmp");
  EXPECT_EQ(profile("B.Ng"), "none");
}

TEST_F(Photos, OfTheProfileTakesCapitalsInTheFileToo) {
  lay({"SMITH JB.BMP"});
  EXPECT_EQ(profile("j.smith"), "SMITH JB.BMP");
}

TEST_F(Photos, OfAManWithoutInitialsIsTheFirstOfHisSurname) {
  lay({"Ronan xyz.bmp", "Ronan abc.bmp"});
  EXPECT_EQ(profile("Ronan"), "Ronan abc.bmp");
}

TEST_F(Photos, OfAManWithManyInitialsGoByTheFirstAndTheLastPart) {
  lay({"Long abc.bmp"});
  EXPECT_EQ(profile("A.Q.R.S.T.U.V.W.Long"), "Long abc.bmp");
  EXPECT_EQ(profile("Q.A.R.S.T.U.V.W.Long"), "none");
}

}  // namespace
}  // namespace velorin::testing
