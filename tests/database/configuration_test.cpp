// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/configuration.h"

#include <gmock/gmock.h>

#include "database/database_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::ElementsAre;
using testing::error_of;
using testing::names_in;
using testing::write_bytes;

class Configuration : public testing::database_fixture {
 protected:
  void write_options_file(std::string_view text) { write_bytes(folder / "options.mc", text); }
};

TEST_F(Configuration, TheFourPathsFollowFromTheBaseName) {
  const database_files paths = database_paths("/srv/teams", "world.2");
  EXPECT_EQ(paths.folder, "/srv/teams");
  EXPECT_EQ(paths.base, "world.2");
  EXPECT_EQ(paths.team_file, "/srv/teams/world.2.team");
  EXPECT_EQ(paths.ground_file, "/srv/teams/world.2.grd");
  EXPECT_EQ(paths.career_file, "/srv/teams/world.2.rec");
  EXPECT_EQ(paths.record_file, "/srv/teams/world.2.ptr");
  EXPECT_FALSE(paths.elevens_in_memory);
  EXPECT_TRUE(paths.updates);
}

TEST_F(Configuration, FileNamesAreUtf8) {
  EXPECT_EQ(database_paths("/srv", "caf\xE9").team_file, "/srv/caf\xC3\xA9.team");
}

TEST_F(Configuration, AnotherDatabaseKeepsTheSwitches) {
  data.files.elevens_in_memory = true;
  data.files.updates = false;
  use_database(data, "other");
  EXPECT_EQ(data.files.base, "other");
  EXPECT_EQ(data.files.career_file, folder / "other.rec");
  EXPECT_TRUE(data.files.elevens_in_memory);
  EXPECT_FALSE(data.files.updates);
}

TEST_F(Configuration, OptionsAreReadWithEitherLineEnd) {
  write_options_file("/photos\r\nworld\r\n112233\r\nFFEEDD\r\nSans Serif\r\n");
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.photo_path, "/photos");
  EXPECT_EQ(data.settings.database_name, "world");
  EXPECT_EQ(data.settings.text_color, "112233");
  EXPECT_EQ(data.settings.back_color, "FFEEDD");
  EXPECT_EQ(data.settings.font_name, "Sans Serif");
  write_options_file("/p\nw\n1\n2\nlast line without an end");
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.photo_path, "/p");
  EXPECT_EQ(data.settings.font_name, "last line without an end");
}

TEST_F(Configuration, ALeadingBlankIsDroppedAndACommaEndsTheValue) {
  write_options_file(" /photos, mine\r\nworld \r\n\r\n,x\r\nf\r\n");
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.photo_path, "/photos");
  EXPECT_EQ(data.settings.database_name, "world ");
  EXPECT_EQ(data.settings.text_color, "");
  EXPECT_EQ(data.settings.back_color, "");
  EXPECT_EQ(data.settings.font_name, "f");
}

TEST_F(Configuration, WithoutAReadableFileTheSettingsStay) {
  data.settings.database_name = "kept";
  EXPECT_FALSE(read_options(data)) << "missing";
  write_options_file("a\r\nb\r\nc\r\nd\r\n");
  EXPECT_FALSE(read_options(data)) << "four lines";
  write_options_file("");
  EXPECT_FALSE(read_options(data)) << "empty";
  std::filesystem::remove(folder / "options.mc");
  std::filesystem::create_directory(folder / "options.mc");
  EXPECT_FALSE(read_options(data)) << "a folder";
  EXPECT_EQ(error_of([] { require_readable_options(data); }).kind(), failure::file) << "there, and not to be read";
  EXPECT_EQ(data.settings.database_name, "kept");
}

TEST_F(Configuration, WhatIsWrittenIsReadBack) {
  const configuration written{"/photos/caf\xE9", "world", "000000", "FFFFFF", "Serif"};
  data.settings = written;
  write_options(data);
  data.settings = configuration();
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.photo_path, written.photo_path);
  EXPECT_EQ(data.settings.database_name, written.database_name);
  EXPECT_EQ(data.settings.text_color, written.text_color);
  EXPECT_EQ(data.settings.back_color, written.back_color);
  EXPECT_EQ(data.settings.font_name, written.font_name);
  EXPECT_THAT(names_in(folder), ElementsAre("options.mc"));
}

TEST_F(Configuration, ALoneCarriageReturnEndsNoLine) {
  write_options_file("C:\\photos\r\nsmall\r\n0000\rFF\r\nFFFFFF\r\nArial\r\n");
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.text_color, "0000\rFF");
  write_options(data);
  data.settings = configuration();
  ASSERT_TRUE(read_options(data));
  EXPECT_EQ(data.settings.text_color, "0000\rFF");
  EXPECT_EQ(data.settings.back_color, "FFFFFF");
}

TEST_F(Configuration, CareersAreInUseWithoutTeamsAndGrounds) {
  write_options_file("photos\r\nsmall\r\n000000\r\nFFFFFF\r\nArial\r\n");
  EXPECT_EQ(take_first_settings(data), first_settings::not_on_offer);
  EXPECT_EQ(data.files.base, "");
  write_bytes(folder / "small.rec", "careers");
  EXPECT_EQ(take_first_settings(data), first_settings::in_use);
  EXPECT_EQ(data.files.career_file, folder / "small.rec");
  for (const std::string& elsewhere :
       {std::string("/etc/small"), std::string("../small"), std::string("deep/small"), std::string(300, 'n')}) {
    data.settings.database_name = elsewhere;
    write_options(data);
    EXPECT_EQ(take_first_settings(data), first_settings::not_on_offer) << elsewhere;
  }
}

TEST_F(Configuration, AFailedWriteLeavesNothingBehind) {
  std::filesystem::create_directory(folder / "options.mc");
  const auto error = error_of([] { write_options(data); });
  EXPECT_EQ(error.kind(), failure::file);
  EXPECT_EQ(error.place().file, "options.mc");
  EXPECT_THAT(names_in(folder), ElementsAre("options.mc"));
}

TEST_F(Configuration, ADatabaseNeedsATeamAndAGroundFile) {
  for (const char* name : {"b.team", "b.grd", "a.team", "a.grd", "only.team", "lone.grd", "x.y.team", "x.y.grd",
                           "B.team", "B.grd", ".team", ".grd", "c.team.new", "c.grd", "b.rec"}) {
    write_bytes(folder / name, "");
  }
  std::filesystem::create_directory(folder / "d.team");
  write_bytes(folder / "d.grd", "");
  EXPECT_THAT(databases_on_offer(folder), ElementsAre("B", "a", "b", "x.y"));
}

TEST_F(Configuration, NamesOnOfferAreWindows1252) {
  write_bytes(folder / "caf\xC3\xA9.team", "");
  write_bytes(folder / "caf\xC3\xA9.grd", "");
  write_bytes(folder / "\xE6\xBC\xA2.team", "");
  write_bytes(folder / "\xE6\xBC\xA2.grd", "");
  EXPECT_THAT(databases_on_offer(folder), ElementsAre("caf\xE9"));
}

TEST_F(Configuration, AnUnreadableFolderOffersNothing) { EXPECT_TRUE(databases_on_offer(folder / "missing").empty()); }

TEST(Colors, AreTurnedIntoSixHexadecimalDigits) {
  EXPECT_EQ(change_to_hex(255), "FF0000");
  EXPECT_EQ(change_to_hex(16711680), "0000FF");
  EXPECT_EQ(change_to_hex(0), "000000");
  EXPECT_EQ(change_to_hex(657930), "0A0A0A");
  EXPECT_EQ(change_to_hex(16777215), "FFFFFF");
  EXPECT_EQ(change_to_hex(0x123456), "563412");
  EXPECT_EQ(error_of([] { change_to_hex(-1); }).kind(), failure::type);
  EXPECT_EQ(error_of([] { change_to_hex(16777216); }).kind(), failure::type);
}

TEST(Colors, AreTurnedBack) {
  EXPECT_EQ(change_to_rgb("FF0000"), "255");
  EXPECT_EQ(change_to_rgb("0000ff"), "16711680");
  EXPECT_EQ(change_to_rgb("000000"), "0");
  EXPECT_EQ(change_to_rgb("0A0A0A"), "657930");
  for (const char* text : {"", "12345", "1234567", "12345G", "-10000", "+10000", " 10000", "1 2 3 ", "0x1234"}) {
    EXPECT_EQ(error_of([&] { change_to_rgb(text); }).kind(), failure::type) << text;
  }
}

}  // namespace
}  // namespace velorin
