// SPDX-License-Identifier: GPL-3.0-or-later
// The two seasons that come with the bundled database: as the build has played them, played once more, and put in place
// as each build does it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "archive/archive_check.h"
#include "database/agreement.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "database/world.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;
using ::testing::IsEmpty;

const fs::path project = fs::path(VELORIN_TEST_DATA).parent_path();
const fs::path seasons = VELORIN_SEASONS;
const fs::path bundled_teams = VELORIN_BUNDLED_TEAMS;
const char* const all[] = {"world.rec", "world.ptr", "world.matches"};

std::string text_of(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

void write(const fs::path& file, const std::string& text) { std::ofstream(file, std::ios::binary) << text; }

/// An argument of the shell.
std::string quoted(const fs::path& path) { return "'" + path.string() + "'"; }

class Seasons : public ::testing::Test {
 protected:
  void SetUp() override {
    std::string pattern = (fs::temp_directory_path() / "velorin-seasons-XXXXXX").string();
    ASSERT_NE(::mkdtemp(pattern.data()), nullptr);
    folder_ = pattern;
  }
  void TearDown() override { fs::remove_all(folder_); }

  /// Runs what the build runs to put the seasons in place.
  int lay_out() const {
    const std::string line = std::string(VELORIN_CMAKE) + " -DSOURCE=" + quoted(seasons) +
                             " -DTEAMS=" + quoted(folder_) + " -P " + quoted(project / "data" / "first_seasons.cmake");
    return std::system(line.c_str());
  }

  open_database use_seasons() const {
    for (const char* name : {"world.team", "world.grd"}) fs::copy_file(bundled_teams / name, folder_ / name);
    for (const char* name : all) fs::copy_file(seasons / name, folder_ / name);
    open_database data;
    data.files = database_paths(folder_, "world");
    return data;
  }

  fs::path folder_;
};

TEST_F(Seasons, PlayedOnceMoreAreTheSameBytes) {
  const std::string line = quoted(project / "scripts" / "make-seasons") + " " + VELORIN_CLI + " " +
                           quoted(bundled_teams) + " " + quoted(folder_ / "made") + " 2>&1";
  ASSERT_EQ(std::system(line.c_str()), 0);
  for (const char* name : {"world.rec", "world.ptr", "world.matches", "seasons.md"}) {
    EXPECT_FALSE(text_of(seasons / name).empty());
    EXPECT_TRUE(text_of(folder_ / "made" / name) == text_of(seasons / name)) << name;
  }
}

TEST_F(Seasons, StandInTheDocumentsAsPlayed) {
  EXPECT_EQ(text_of(project / "docs" / "seasons.md"), text_of(seasons / "seasons.md"))
      << "docs/seasons.md is a copy of seasons/seasons.md in the build folder";
}

TEST_F(Seasons, AreFoundInOrder) {
  const open_database data = use_seasons();
  EXPECT_THAT(check_database(data.files), IsEmpty());
  const archive_findings found = check_archive(data.files);
  EXPECT_EQ(found.matches, 316);
  EXPECT_EQ(found.matches_before, 0);
  EXPECT_THAT(found.differences, IsEmpty());
}

TEST_F(Seasons, GiveEveryNationItsMatchesAndEveryListItsLines) {
  const open_database data = use_seasons();
  const record_lists lists = read_record_lists(data);
  const career_table careers = read_career_table(data);
  ASSERT_EQ(lists.table_team_count, 10);
  ASSERT_EQ(careers.career_team_count, 10);
  for (int t = 1; t <= 10; ++t) {
    int appearances = 0;
    for (int p = 1; p <= careers.teams[t].player_count; ++p) appearances += careers.teams[t].players[p].matches;
    EXPECT_EQ(appearances % 11, 0);
    EXPECT_GE(appearances / 11, 2 * 9 * 3 + 4) << careers.teams[t].team_name << ": the series and a World Cup's group";
  }
  for (int place = 1; place <= 15; ++place) {
    EXPECT_GE(lists.top_scores[place].runs, 100);
    EXPECT_GE(lists.top_bowling[place].wickets, 5);
    EXPECT_FALSE(lists.highest_totals[place].team.empty());
    EXPECT_FALSE(lists.lowest_totals[place].team.empty());
  }
  for (int wicket = 1; wicket <= 10; ++wicket) EXPECT_GT(lists.partnerships[wicket].partner_runs, 0);
}

TEST_F(Seasons, ArePutInPlaceWhereThereIsNothing) {
  ASSERT_EQ(lay_out(), 0);
  for (const char* name : all) EXPECT_TRUE(text_of(folder_ / name) == text_of(seasons / name)) << name;
  // Played on.
  write(folder_ / "world.rec", "mine");
  ASSERT_EQ(lay_out(), 0);
  EXPECT_EQ(text_of(folder_ / "world.rec"), "mine");
}

TEST_F(Seasons, NeverTakeThePlaceOfCareersOrRecords) {
  for (const char* kept : all) {
    for (const char* text : {"mine", ""}) {
      SCOPED_TRACE(kept);
      for (const char* name : all) fs::remove(folder_ / name);
      write(folder_ / kept, text);
      ASSERT_EQ(lay_out(), 0);
      EXPECT_EQ(text_of(folder_ / kept), text);
      int there = 0;
      for (const char* name : all) there += fs::exists(folder_ / name) ? 1 : 0;
      EXPECT_EQ(there, 1);
    }
  }
}

TEST_F(Seasons, WhatAStoppedBuildHasLeftIsFinished) {
  fs::copy_file(seasons / "world.ptr", folder_ / "world.ptr");
  ASSERT_EQ(lay_out(), 0);
  EXPECT_TRUE(text_of(folder_ / "world.rec") == text_of(seasons / "world.rec"));
}

}  // namespace
}  // namespace velorin::testing
