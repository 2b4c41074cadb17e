// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/run_time_error.h"

#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

namespace velorin {
namespace {

std::string text_of(const error_place& place) { return run_time_error(failure::file, "It broke", place).what(); }

error_place place_of(std::string file, long record, std::string field, std::string player) {
  return {std::move(file), record, std::move(field), std::move(player)};
}

TEST(RunTimeError, WithoutAPlaceItSaysWhatHappened) {
  const run_time_error error(failure::division, "Division by zero");
  EXPECT_STREQ(error.what(), "Division by zero");
  EXPECT_EQ(error.kind(), failure::division);
}

TEST(RunTimeError, NamesEachPartOfThePlace) {
  EXPECT_EQ(text_of(place_of("world.team", 0, "", "")), "It broke (file world.team)");
  EXPECT_EQ(text_of(place_of("", 3, "", "")), "It broke (record 3)");
  EXPECT_EQ(text_of(place_of("", 0, "econ", "")), "It broke (field econ)");
  EXPECT_EQ(text_of(place_of("", 0, "", "T.Marrow")), "It broke (at \"T.Marrow\")");
}

TEST(RunTimeError, NamesTheWholePlaceFromTheFileInwards) {
  EXPECT_EQ(text_of(place_of("world.team", 12, "bat_skill", "T.Marrow")),
            "It broke (file world.team, record 12, field bat_skill, at \"T.Marrow\")");
  EXPECT_EQ(text_of(place_of("world.grd", 0, "", "Old Mill")), "It broke (file world.grd, at \"Old Mill\")");
}

TEST(RunTimeError, IsOneLineWhateverItNames) {
  using namespace std::string_literals;
  const run_time_error error(failure::type, "\"1\0\n2\" is no number"s, place_of("a\r.csv", 0, "econ", "A\x1B[2J\x7F"));
  EXPECT_STREQ(error.what(), "\"1??2\" is no number (file a?.csv, field econ, at \"A?[2J?\")");
}

TEST(RunTimeError, ControlsAboveTheLettersAreNotPassedOnEither) {
  EXPECT_EQ(text_of(place_of("", 0, "", "a\x9D\x81z")), "It broke (at \"a??z\")") << "Windows-1252";
  EXPECT_EQ(text_of(place_of("", 0, "", "a\xC2\x9D\xC2\x80z\u00DD")), "It broke (at \"a??z\u00DD\")") << "UTF-8";
}

TEST(RunTimeError, KeepsThePlaceForItsReaders) {
  const run_time_error error(failure::subscript, "A 21st team", place_of("world.rec", 21, "team_name", "Norvale"));
  EXPECT_EQ(error.kind(), failure::subscript);
  EXPECT_EQ(error.place().file, "world.rec");
  EXPECT_EQ(error.place().record, 21);
  EXPECT_EQ(error.place().field, "team_name");
  EXPECT_EQ(error.place().player, "Norvale");
}

TEST(RunTimeError, IsCaughtAsARuntimeErrorOfTheLibrary) {
  const auto raise = [] { throw run_time_error(failure::endless, "No man fits"); };
  EXPECT_THROW(raise(), std::runtime_error);
}

}  // namespace
}  // namespace velorin
