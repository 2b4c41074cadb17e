// SPDX-License-Identifier: GPL-3.0-or-later
// Years of matches in all competitions, with a kill and a full disk in each: the archive has what the objects of these
// matches tell, field by field; its sums are those of careers and records; and each classic question is answered as the
// objects tell. VELORIN_DECADE: how many years, 1 unless told; scripts/check-decade plays ten.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <memory>
#include <thread>

#include "archive/archive_fixture.h"
#include "archive/classic_questions.h"
#include "archive/second_telling.h"
#include "archive/told_match.h"
#include "cli/match_json.h"
#include "competitions/game_state.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_form.h"
#include "headless/headless_user.h"
#include "setup/new_match.h"

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;

int years() {
  const char* told = std::getenv("VELORIN_DECADE");
  return told == nullptr ? 1 : std::max(1, std::atoi(told));
}

/// Keeps matches as the game does, and tells each as its object has it.
class witness : public archive_keeper {
 public:
  std::string waiting_with(const database_files& files, std::string_view waiting, const counted_match& added) override {
    const match_state& match = added.match;
    archived_match told = told_match(json::parse(cli::state_text(match)), cli::result_json(match));
    told.competition = competition_name(match.occasion.competition);
    told.stage = match.occasion.stage;
    told.number = match.occasion.number;
    told.country = match.ground.country;
    seen.push_back(std::move(told));
    return archive_keeper::waiting_with(files, waiting, added);
  }

  std::vector<archived_match> seen;  ///< since they were taken last
};

class Decade : public ArchiveTest {
 protected:
  /// Plays what `act` enters, and takes over what its matches tell, behind those that are archived already.
  template <class Act>
  void play_told(std::uint64_t seed, Act act) {
    const std::int64_t before = last_id();
    witness keeper;
    const auto game = std::make_unique<game_state>();
    game->data.files = files();
    game->data.files.elevens_in_memory = true;
    game->data.files.updates = true;
    game->data.files.keeper = &keeper;
    headless_user user(game->match);
    game->chance.use_seed(seed);
    act(match_play{game->match, game->chance, user, game->data}, *game);
    std::int64_t id = before;
    for (archived_match& told : keeper.seen) {
      told.id = ++id;
      told_[id] = std::move(told);
    }
    EXPECT_EQ(last_id(), id);
  }

  std::int64_t last_id() const { return std::filesystem::exists(archive_path(files())) ? archive().last_id() : 0; }

  void play_match(std::uint64_t seed) {
    play_told(seed, [](const match_play& play, game_state&) {
      new_match_form form(play);
      form.open();
      form.computer_captains_first = form.computer_captains_second = true;
      form.accept();
    });
  }

  void play_competitions(std::uint64_t seed) {
    play_told(seed, [&](const match_play& play, game_state& game) {
      series_form form(play, game.series);
      form.open();
      form.choose_home(static_cast<int>(seed % 2));
      form.choose_away(2);
      form.set_matches(5);
      form.accept();
    });
    play_told(seed + 1, [](const match_play& play, game_state& game) {
      tri_series_form form(play, game.tri);
      form.open();
      for (int box = 0; box < tri_teams; ++box) form.choose_team(box, box);
      form.set_rounds(3);
      form.accept();
    });
    play_told(seed + 2, [](const match_play& play, game_state& game) {
      world_cup_form form(play, game.world_cup);
      form.open();
      form.accept();
    });
  }

  /// A program that is killed in the midst of its matches: what they tell is lost with it.
  void play_and_be_killed(int milliseconds) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      run({"match", "--update", "--matches", "1000000", "--quiet"});
      ::_exit(1);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }

  /// The archive has no room to grow; its matches wait.
  void play_on_a_full_disk(std::uint64_t seed) {
    // The archive is the largest of the files.
    change("CREATE TABLE IF NOT EXISTS padding (bytes BLOB)");
    change("INSERT INTO padding SELECT zeroblob(2000000) WHERE NOT EXISTS (SELECT 1 FROM padding)");
    const auto size = static_cast<rlim_t>(std::filesystem::file_size(archive_path(files())));
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    rlimit full = before;
    full.rlim_cur = size;
    const auto ignored = std::signal(SIGXFSZ, SIG_IGN);
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &full), 0);
    text({"--seed", std::to_string(seed), "match", "--update", "--matches", "10", "--quiet"});
    const bool waits = std::filesystem::exists(waiting_file(files()));
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, ignored);
    EXPECT_TRUE(waits) << "the disk was not full";
  }

  /// All matches, as they are told; those that no object tells as the archive has them.
  std::vector<archived_match> all_told() const {
    std::vector<archived_match> all = archived_matches();
    for (archived_match& match : all) {
      const auto told = told_.find(match.id);
      if (told == told_.end()) continue;
      archived_match other = told->second;
      // What no object tells.
      other.played_at = match.played_at;
      for (const int innings : {0, 1}) {
        std::vector<archived_stand>& stands = other.innings.at(innings).stands;
        const std::vector<archived_stand>& kept = match.innings.at(innings).stands;
        stands.insert(stands.end(), kept.begin() + static_cast<std::ptrdiff_t>(stands.size()), kept.end());
      }
      match = std::move(other);
    }
    return all;
  }

  void expect_told(const question& asked, const std::vector<archived_match>& matches) const {
    const answer told = ask(archive(), asked);
    const std::vector<told_row> wanted = tell(matches, asked);
    const std::size_t rows = asked.top > 0 ? std::min<std::size_t>(wanted.size(), asked.top) : wanted.size();
    ASSERT_EQ(told.rows.size(), rows);
    std::vector<told_row> left = wanted;
    for (std::size_t i = 0; i < rows; ++i) {
      told_row found;
      for (std::size_t c = 0; c < told.columns.size(); ++c) found[told.columns[c].name] = value_text(told.rows[i][c]);
      EXPECT_EQ(found.at(asked.sort), wanted[i].at(asked.sort)) << "row " << i;
      found.erase("played_at");
      // Rows of one place may stand in any order.
      const auto same = std::find_if(left.begin(), left.end(), [&](const told_row& line) {
        return std::all_of(found.begin(), found.end(), [&](const auto& field) {
          const auto at = line.find(field.first);
          return at == line.end() || at->second == field.second;
        });
      });
      ASSERT_NE(same, left.end()) << "row " << i << " is told by nobody";
      left.erase(same);
    }
  }

  std::map<std::int64_t, archived_match> told_;
};

TEST_F(Decade, IsInTheArchiveAsItsMatchesTell) {
  std::uint64_t seed = 1;
  for (int year = 0; year < years(); ++year) {
    play_competitions(seed);
    for (int match = 0; match < 4; ++match) play_match(seed + 10 + match);
    play_and_be_killed(20 + year * 7 % 40);
    play_match(seed + 20);
    play_on_a_full_disk(seed + 30);
    play_match(seed + 31);
    seed += 100;
    const archive_findings found = check_archive(files());
    ASSERT_THAT(found.differences, IsEmpty()) << "in year " << year + 1;
  }
  for (int more = 0; years() >= 10 && archive().count() < 1000; ++more) play_match(10'000 + more);
  const std::vector<archived_match> kept = archived_matches();
  int compared = 0;
  for (const archived_match& match : kept) {
    const auto told = told_.find(match.id);
    if (told == told_.end()) continue;
    ++compared;
    ASSERT_EQ(differences_of(match, told->second), "") << "match " << match.id;
  }
  EXPECT_GE(compared, 45 * years()) << "in all competitions";
  ASSERT_THAT(check_archive(files()).differences, IsEmpty());
  const std::vector<archived_match> matches = all_told();
  int answered = 0;
  for (const classic_question& classic : classic_questions()) {
    SCOPED_TRACE(classic.title);
    expect_told(classic.asked, matches);
    answered += ask(archive(), classic.asked).rows.empty() ? 0 : 1;
  }
  EXPECT_GE(answered, 40) << "of fifty";
  std::printf("%zu matches, %d of them held against their objects; %d of the classic questions have an answer\n",
              kept.size(), compared, answered);
}

}  // namespace
}  // namespace velorin::testing
