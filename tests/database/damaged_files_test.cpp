// SPDX-License-Identifier: GPL-3.0-or-later
// Files with damage anywhere are read, refused with a run-time error or listed as faulty, and nothing else happens.
#include <algorithm>
#include <random>

#include "database/career_update.h"
#include "database/lasting_records.h"
#include "database/slots.h"
#include "database/teams_file.h"
#include "database/world_fixture.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

using testing::bytes_of;
using testing::write_bytes;

constexpr int rounds = 100;

class DamagedFiles : public testing::world_fixture {
 protected:
  /// A database that has played a match.
  void SetUp() override {
    world_fixture::SetUp();
    build({testing::orr}, {testing::park});
    testing::set_up_finished_match();
    update_career(match, data);
    update_records(match, data);
  }

  /// The file with some bytes changed among the first of its slots, and sometimes an end that comes early.
  std::string damaged(const std::string& bytes, std::size_t slot) {
    std::string copy = bytes;
    for (std::uint_fast32_t changes = 1 + random_() % 6; changes > 0; --changes) {
      const std::size_t record = random_() % (bytes.size() / slot);
      copy[record * slot + random_() % std::min<std::size_t>(slot, 120)] = static_cast<char>(random_());
    }
    if (random_() % 8 == 0) copy.resize(random_() % copy.size());
    return copy;
  }

  /// Runs a procedure; true if it raised a run-time error. Anything else that it raises fails the test.
  template <typename Procedure>
  static bool refused(Procedure procedure) {
    try {
      procedure();
      return false;
    } catch (const run_time_error& error) {
      EXPECT_STRNE(error.what(), "");
      return true;
    }
  }

 private:
  std::mt19937 random_{7};
};

TEST_F(DamagedFiles, AreReadRefusedOrListed) {
  const std::string team = bytes_of(data.files.team_file);
  const std::string ground_file = bytes_of(data.files.ground_file);
  const std::string career_file = bytes_of(data.files.career_file);
  const std::string record_file = bytes_of(data.files.record_file);
  ASSERT_TRUE(check_database(data.files).empty());
  int listed = 0;
  int refusals = 0;
  for (int round = 0; round < rounds; ++round) {
    write_bytes(data.files.team_file, damaged(team, team_slot));
    write_bytes(data.files.ground_file, damaged(ground_file, team_slot));
    write_bytes(data.files.career_file, damaged(career_file, career_slot));
    write_bytes(data.files.record_file, damaged(record_file, records_slot));
    const bool faulty = !check_database(data.files).empty();
    bool any = refused([] { read_team_list(data); });
    any |= refused([] { read_grounds(data); });
    any |= refused([] { read_career_table(data); });
    any |= refused([] { read_record_lists(data); });
    EXPECT_TRUE(faulty || !any) << "round " << round << ": what cannot be read is a fault";
    listed += faulty ? 1 : 0;
    refusals += any ? 1 : 0;
    if (round % 4 != 0) continue;
    refused([&] { dump_database(data.files, folder / "dump"); });
    refused([] { update_career(match, data); });
    refused([] { update_records(match, data); });
  }
  EXPECT_GT(listed, rounds / 2);
  EXPECT_GT(refusals, rounds / 4);
  EXPECT_LT(refusals, rounds) << "some damage is only a wrong figure";
}

}  // namespace
}  // namespace velorin
