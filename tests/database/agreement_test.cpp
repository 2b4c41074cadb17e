// SPDX-License-Identifier: GPL-3.0-or-later
// Careers and record lists that are cut short, or not of one state, take no match and are faults for the check.
#include "database/agreement.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <chrono>
#include <limits>

#include "database/career_update.h"
#include "database/slots.h"
#include "database/whole_file.h"
#include "database/world_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using ::testing::Contains;
using ::testing::ElementsAre;
using testing::error_of;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::IsSupersetOf;
using ::testing::StartsWith;
using testing::write_bytes;

class Agreement : public testing::world_fixture {
 protected:
  /// A database that has played two matches; `rec_` and `ptr_` are the files of the first.
  void SetUp() override {
    world_fixture::SetUp();
    build({testing::halden, "Tamar,T.One,20,30,4,no,RH ,Opener,x"}, {testing::park});
    testing::set_up_finished_match();
    update_career_and_records(match, data);
    career_file_ = bytes_of(data.files.career_file);
    record_file_ = bytes_of(data.files.record_file);
    update_career_and_records(match, data);
  }

  /// The faults as lines.
  static std::vector<std::string> faults() {
    std::vector<std::string> lines;
    for (const database_fault& fault : check_database(data.files)) {
      lines.push_back(fmt::format("{}:{}:{}: {}", fault.file, fault.record, fault.field, fault.what));
    }
    return lines;
  }

  /// The refusal of an update; both files must stay as they are.
  static std::string refusal() {
    const auto career_file = read_file(data.files.career_file);
    const auto record_file = read_file(data.files.record_file);
    const run_time_error error = error_of([] { update_career_and_records(match, data); });
    EXPECT_EQ(error.kind(), failure::file);
    EXPECT_TRUE(read_file(data.files.career_file) == career_file && read_file(data.files.record_file) == record_file)
        << "a file has changed";
    return error.what();
  }

  std::string career_file_;
  std::string record_file_;
};

TEST_F(Agreement, IsKeptByMatchAfterMatch) {
  EXPECT_THAT(faults(), IsEmpty());
  update_career_and_records(match, data);
  EXPECT_THAT(faults(), IsEmpty());
}

TEST_F(Agreement, CareersCutAnywhereAreRefused) {
  const std::string whole = bytes_of(data.files.career_file);
  career_table read = read_career_table(data);
  const std::size_t end = 2 * career_slot + encoded(read.teams[2]).size();
  for (std::size_t size = end; size-- > 1; size -= size > 20 ? size % 19 : 0) {
    std::filesystem::resize_file(data.files.career_file, size);
    ASSERT_THAT(refusal(), StartsWith("The file is not whole: the file ends ")) << size;
    ASSERT_EQ(faults().size(), 1U) << size;
  }
  write_bytes(data.files.career_file, whole.substr(0, 2 * career_slot));
  EXPECT_EQ(refusal(), "The file is not whole: the file ends before this record (file base.rec, record 3)");
  EXPECT_THAT(faults(), ElementsAre("base.rec:3:: the file ends before this record"));
  write_bytes(data.files.career_file, whole.substr(0, end));
  EXPECT_THAT(faults(), IsEmpty()) << "what has no meaning may be missing";
  update_career_and_records(match, data);
}

TEST_F(Agreement, RecordsCutAnywhereAreRefused) {
  const std::string whole = bytes_of(data.files.record_file);
  for (std::size_t size = (table_record(3) - 2) * records_slot; size > records_slot; size -= records_slot) {
    std::filesystem::resize_file(data.files.record_file, size);
    ASSERT_THAT(refusal(), StartsWith("The file is not whole: the file ends before this record")) << size;
    ASSERT_THAT(faults(), Contains(HasSubstr(": the file ends before this "))) << size;
  }
  write_bytes(data.files.record_file, whole.substr(0, 70 * records_slot));
  EXPECT_EQ(refusal(), "The file is not whole: the file ends before this record (file base.ptr, record 71)");
  write_bytes(data.files.record_file, whole.substr(0, 70 * records_slot + 2));
  EXPECT_EQ(refusal(),
            "The file is not whole: the file ends before this field (file base.ptr, record 71, field "
            "table_team_count)");
  write_bytes(data.files.record_file, whole.substr(0, 1));
  EXPECT_THAT(faults(), ElementsAre("base.ptr:1:player: the file ends within this field"));
}

TEST_F(Agreement, OneFileAloneTakesNoMatchEither) {
  std::filesystem::resize_file(data.files.career_file, career_slot + 7);
  EXPECT_EQ(error_of([] { update_career(match, data); }).place().file, "base.rec");
  std::filesystem::resize_file(data.files.record_file, records_slot + 7);
  EXPECT_EQ(error_of([] { update_records(match, data); }).place().file, "base.ptr");
}

TEST_F(Agreement, AMissingOrEmptyFileBesideAFullOneIsRefused) {
  const std::string record_file = bytes_of(data.files.record_file);
  std::filesystem::remove(data.files.record_file);
  EXPECT_EQ(refusal(),
            "base.rec and base.ptr do not belong together: \"Tamar\" has no row in the team table (file base.rec, "
            "record 2, field team_name)");
  EXPECT_THAT(faults(), ElementsAre("base.rec:2:team_name: \"Tamar\" has no row in the team table",
                                    "base.rec:3:team_name: \"Alba\" has no row in the team table"));
  write_bytes(data.files.record_file, record_file);
  write_bytes(data.files.career_file, "");
  EXPECT_THAT(refusal(), StartsWith("base.rec and base.ptr do not belong together: "));
  EXPECT_THAT(faults(), Contains("base.ptr:90:team_name: \"Tamar\" has no careers"));
}

TEST_F(Agreement, AFileOfAnotherDayIsRefused) {
  const std::string now = bytes_of(data.files.career_file);
  write_bytes(data.files.career_file, career_file_);
  EXPECT_EQ(
      refusal(),
      "base.rec and base.ptr do not belong together: 11 appearances of the men of \"Tamar\", but 2 matches in the "
      "team table (file base.rec, record 2, field matches)");
  EXPECT_EQ(faults().size(), 2U);
  write_bytes(data.files.career_file, now);
  write_bytes(data.files.record_file, record_file_);
  EXPECT_EQ(faults().size(), 2U);
  write_bytes(data.files.career_file, career_file_);
  EXPECT_THAT(faults(), IsEmpty()) << "both are of that day";
  update_career_and_records(match, data);
}

TEST_F(Agreement, TheListsAreBorneOutByTheCareersAndTheTable) {
  record_lists lists = read_record_lists(data);
  lists.top_scores[1].runs = 121;
  lists.top_scores[2].player = "Nobody";
  lists.top_bowling[1].runs = 30;
  lists.highest_totals[1].total = 232;
  lists.lowest_totals[1].against = "Zoll";
  lists.partnerships[1].team = "Yser";
  write_record_lists(data, lists);
  EXPECT_THAT(faults(),
              ElementsAre("base.rec:3:players[2].high_score: 120 by \"A.Man2\" is not among the highest scores",
                          "base.ptr:1:runs: 121 by \"A.Man2\", whose highest score is 120",
                          "base.ptr:2:player: \"Nobody\" of \"Alba\" has no career",
                          "base.ptr:16:wickets: 5/30 by \"A.Man9\", whose best bowling is 5/31",
                          "base.ptr:31:total: 232 by \"Alba\", whose highest total is 231",
                          "base.ptr:46:against: \"Zoll\" has no row in the team table",
                          "base.ptr:61:team: \"Yser\" has no row in the team table"));
  EXPECT_THAT(refusal(), StartsWith("base.rec and base.ptr do not belong together: 120 by"));
}

TEST_F(Agreement, TheBestOfCareersAndTableStandsInTheLists) {
  record_lists lists = read_record_lists(data);
  const record_lists whole = lists;
  const auto with = [&](auto change) {
    lists = whole;
    change();
    write_record_lists(data, lists);
    const std::vector<std::string> found = faults();
    if (found.empty()) return found;
    EXPECT_THAT(refusal(), StartsWith("base.rec and base.ptr do not belong together: "));
    return found;
  };
  EXPECT_THAT(with([] {}), IsEmpty());
  EXPECT_THAT(with([&] { lists.top_scores = {}; }),
              Contains("base.rec:3:players[2].high_score: 120 by \"A.Man2\" is not among the highest scores"));
  EXPECT_THAT(with([&] { lists.top_scores[2] = lists.top_scores[1] = lists.top_scores[3]; }),
              ElementsAre("base.rec:3:players[2].high_score: 120 by \"A.Man2\" is not among the highest scores"));
  EXPECT_THAT(with([&] { lists.top_bowling = {}; }),
              Contains("base.rec:3:players[9].best_wickets: 5/31 by \"A.Man9\" is not among the best bowling"));
  EXPECT_THAT(with([&] { lists.highest_totals = {}; }),
              ElementsAre("base.ptr:78:high_for: 174 by \"Tamar\" is not among the highest totals",
                          "base.ptr:97:high_for: 231 by \"Alba\" is not among the highest totals"));
  EXPECT_THAT(with([&] { lists.lowest_totals = {}; }),
              ElementsAre("base.ptr:46:team: a free line of the lowest totals after 4 innings"));
  EXPECT_THAT(with([&] { lists.lowest_totals[4] = {}; }),
              ElementsAre("base.ptr:49:team: a free line of the lowest totals after 4 innings"));
  EXPECT_THAT(with([&] { lists.lowest_totals[1].total = 173; }),
              ElementsAre("base.ptr:46:total: 173 by \"Tamar\", whose lowest total is 174"));
  EXPECT_THAT(with([&] { lists.partnerships = {}; }),
              ElementsAre("base.ptr:61:partner_runs: the record partnerships add up to 0, less than a total of 231"));
  EXPECT_THAT(with([&] { lists.partnerships[1].partner_runs = 232; }),
              ElementsAre("base.ptr:61:partner_runs: 232 by \"Alba\", whose highest total is 231"));
}

TEST_F(Agreement, EqualsOfTheLastLineMayBeKeptOut) {
  for (int i = 0; i < 15; ++i) update_career_and_records(match, data);
  record_lists lists = read_record_lists(data);
  ASSERT_EQ(lists.top_scores[15].runs, 120);
  EXPECT_THAT(faults(), IsEmpty());
}

TEST_F(Agreement, AFaultOfAFileHidesNoDisagreement) {
  write_bytes(data.files.career_file, career_file_);
  career_table careers = read_career_table(data);
  careers.teams[1].players[1].best_against = "A\x01";
  write_career_table(data, careers);
  EXPECT_THAT(
      faults(),
      ElementsAre("base.rec:2:players[1].best_against: \"A\x01\" has a control character",
                  "base.rec:2:matches: 11 appearances of the men of \"Tamar\", but 2 matches in the team table",
                  "base.rec:3:matches: 11 appearances of the men of \"Alba\", but 2 matches in the team table"));
}

TEST_F(Agreement, ResultsThatDoNotAddUpAreFaults) {
  record_lists lists = read_record_lists(data);
  lists.teams[1].home_won = {1e308};
  lists.teams[1].away_lost = {1.7e308};
  lists.teams[2].home_won = {1.5};
  lists.teams[2].high_for_venue = {std::numeric_limits<double>::quiet_NaN()};
  lists.teams[2].low_for_venue = {std::string("Old\nField")};
  write_record_lists(data, lists);
  EXPECT_THAT(faults(), ElementsAre("base.ptr:72:away_won: the results are too many to add up",
                                    "base.ptr:94:home_won: 1.5 is no count",
                                    "base.ptr:99:high_for_venue: a value that is no number",
                                    "base.ptr:105:low_for_venue: \"Old\nField\" has a control character"));
}

TEST_F(Agreement, EveryTextOfCareersAndListsIsRead) {
  career_table careers = read_career_table(data);
  careers.teams[1].players[1].high_against = "A\x01";
  careers.teams[2].team_name = "Al\x7F";
  write_career_table(data, careers);
  record_lists lists = read_record_lists(data);
  lists.top_scores[1].venue = "V\n";
  lists.partnerships[1].batsman_b = "\x9D";
  write_record_lists(data, lists);
  EXPECT_THAT(faults(), IsSupersetOf({"base.rec:2:players[1].high_against: \"A\x01\" has a control character",
                                      "base.rec:3:team_name: \"Al\x7F\" has a control character",
                                      "base.ptr:1:venue: \"V\n\" has a control character",
                                      "base.ptr:61:batsman_b: \"\x9D\" has a control character"}));
}

TEST_F(Agreement, AnUpdateCutOffBetweenTheFilesIsNoFault) {
  const auto time = std::filesystem::last_write_time(data.files.career_file);
  std::filesystem::rename(data.files.record_file, folder / "base.ptr.next");
  std::filesystem::last_write_time(folder / "base.ptr.next", time - std::chrono::hours(1));
  write_bytes(data.files.record_file, record_file_);
  EXPECT_THAT(faults(),
              Contains("base.rec:2:matches: 22 appearances of the men of \"Tamar\", but 1 matches in the team "
                       "table"));
  std::filesystem::last_write_time(folder / "base.ptr.next", time);
  EXPECT_THAT(faults(), IsEmpty()) << "the next update finishes it";
  update_career_and_records(match, data);
  EXPECT_THAT(faults(), IsEmpty());
}

}  // namespace
}  // namespace velorin
