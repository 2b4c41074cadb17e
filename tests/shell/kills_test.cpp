// SPDX-License-Identifier: GPL-3.0-or-later
// The game is killed at random moments while somebody clicks through a match or a competition, and started again, until
// it is over: nothing is lost, and nothing counts twice. VELORIN_KILLS says how many kills at least.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <thread>
#include <utility>
#include <vector>

#include "archive/archive_check.h"
#include "archive/archive_keeper.h"
#include "competitions/game_state.h"
#include "competitions/resume_game.h"
#include "console/captain_forms.h"
#include "database/configuration.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/random.h"
#include "model/run_time_error.h"
#include "recording/kept_games.h"
#include "recording/replay.h"
#include "reports/match_report.h"
#include "support/folder_contents.h"
#include "support/small_database.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

constexpr std::array<const char*, 4> kinds = {"match", "series", "tri", "cup"};

int kills_wanted() {
  const char* told = std::getenv("VELORIN_KILLS");
  return told == nullptr ? 10 : std::atoi(told);
}

/// Notes by the window's id what a game that goes on asks first, and asks no more.
class first_question : public headless_user {
 public:
  explicit first_question(const game_state& game) : headless_user(game.match) {}

  std::string window;
  bool in_over = false;  ///< the console stands open by then, with an over on its way

  using headless_user::show;
  void show(const message_box&) override { stop("message"); }
  void show(conditions_form&) override { stop("wecond"); }
  void show(team_selection_form&) override { stop("Teamsel"); }
  void show(toss_form&) override { stop("toss"); }
  void show(next_batsman_form&) override { stop("batorder"); }
  void show(bowler_choice_form&) override { stop("chgbowler"); }
  void show(aggression_form&) override { stop("aggr"); }
  void show(batsman_details_form&) override { stop("batsmandetails"); }
  void show(console_form& form) override {
    in_over = form.has_over_in_play();
    if (in_over) form.bowl_next_over();
    stop(form.closed() ? "" : "main");
  }
  void open(report) override { stop("scorecard"); }
  void show(match_report_form& form) override {
    if (form.attended()) stop("matchrep");
  }
  void show(series_results_form&) override { stop("sri_result"); }
  void show(tri_series_table_form&) override { stop("triserresult"); }
  void show(world_cup_fixtures_form&) override { stop("wc_fix"); }
  void show(world_cup_tables_form&) override { stop("wcsstab"); }

 private:
  struct asked {};
  [[noreturn]] void stop(const char* id) {
    window = id;
    throw asked{};
  }

 public:
  /// The first windows that a game may be seen to go on with; none if it ends without one.
  static std::vector<std::string> of(game_state& game) {
    first_question user(game);
    try {
      resume_game(game, user);
    } catch (const asked&) {
    }
    std::vector<std::string> windows;
    if (!user.window.empty()) windows.push_back(user.window);
    if (user.in_over) windows.emplace_back("main");
    return windows;
  }
};

/// The place of one game: a database, the folder of games, and what the player has seen.
class Home {
 public:
  explicit Home(const fs::path& root) : root_(root), teams_(root / "teams") {
    fs::create_directories(teams_);
    small_database from;
    for (const std::string name :
         {"Aden", "Bali", "Cork", "Dorset", "Essen", "Fiji", "Ghent", "Hull", "Ithaca", "Java"}) {
      from.add_team(name);
      from.add_ground(name, name + " Oval");
      from.add_ground(name, name + " Park", 2, 4);
    }
    from.write();
    for (const char* file : {"world.team", "world.grd"}) fs::copy_file(from.folder() / file, teams_ / file);
    std::ofstream(teams_ / "options.mc") << "\r\nworld\r\n000000\r\nFFFFFF\r\nSans Serif\r\n";
    ready_ = contents_of(teams_);
  }

  const fs::path& root() const { return root_; }
  fs::path games() const { return root_ / "games"; }
  fs::path teams() const { return teams_; }

  /// The one recording that can be read; nothing before there is one.
  std::optional<fs::path> game() const {
    std::optional<fs::path> found;
    if (!fs::exists(games())) return found;
    for (const auto& entry : fs::directory_iterator(games())) {
      try {
        read_recording(entry.path());
      } catch (const run_time_error&) {
        continue;  // killed before its first entry was whole
      }
      EXPECT_FALSE(found) << "a second game was begun";
      found = entry.path();
    }
    return found;
  }

  /// Careers and records after an undisturbed game of this recording on the database as it was.
  std::array<std::string, 2> files_of(const recording& recorded) const {
    const fs::path fresh = root_ / "fresh";
    fs::remove_all(fresh);
    fs::create_directories(fresh);
    for (const auto& [name, bytes] : ready_) std::ofstream(fresh / name, std::ios::binary) << bytes;
    auto game = std::make_unique<game_state>(game_at_beginning(recorded));
    game->data.files = database_paths(fresh, "world");
    game->data.files.elevens_in_memory = true;
    game->data.files.updates = true;
    EXPECT_EQ(replay(recorded, "undisturbed", *game), replay_end::over);
    return {file_bytes(fresh / "world.rec"), file_bytes(fresh / "world.ptr")};
  }
  std::array<std::string, 2> files() const {
    return {file_bytes(teams_ / "world.rec"), file_bytes(teams_ / "world.ptr")};
  }

  /// The archive has the matches of this recording, each once and with its recording, and agrees with both files.
  void expect_archive_of(const recording& recorded) const {
    const database_files files = database_paths(teams_, "world");
    const archive_findings found = check_archive(files);
    EXPECT_EQ(found.matches,
              std::count(recorded.events.begin(), recorded.events.end(), recorded_event(recorded_saving{})));
    EXPECT_TRUE(found.differences.empty()) << found.differences.front();
    const archive_file archive = settled_archive(files);
    for (const listed_match& listed : archive.list()) {
      const std::optional<archived_match> match = archive.match(listed.id);
      EXPECT_EQ(match->key, text_of(recorded.beginning.id) + "-" + std::to_string(listed.id));
      EXPECT_TRUE(read_recording(match->recording, match->key).ended());
    }
  }

  std::string last_seen() const { return last_line("seen"); }
  /// Innings and deliveries that the player has been shown last.
  std::pair<int, std::size_t> last_shown() const {
    std::istringstream in(last_line("shown"));
    std::pair<int, std::size_t> last;
    in >> last.first >> last.second;
    return last;
  }
  void forget_seen() const {
    for (const char* file : {"seen", "shown"}) fs::remove(root_ / file);
  }

 private:
  std::string last_line(const char* file) const {
    std::ifstream in(root_ / file);
    std::string last;
    for (std::string line; std::getline(in, line);) last = line;
    return last;
  }

  fs::path root_;
  fs::path teams_;
  std::map<std::string, std::string> ready_;
};

class Kills : public ::testing::Test {
 protected:
  Kills() {
    std::string pattern = (fs::temp_directory_path() / "velorin-kills-XXXXXX").string();
    if (mkdtemp(pattern.data()) != nullptr) root_ = pattern;
    when_.use_seed(20);
  }
  ~Kills() override {
    std::error_code ignored;
    if (!HasFailure()) fs::remove_all(root_, ignored);
  }

  static pid_t start(const Home& home, const std::string& kind, std::uint64_t seed) {
    const pid_t child = ::fork();
    if (child != 0) return child;
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const int out = ::open((home.root() / "output").c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
    ::dup2(out, STDOUT_FILENO);
    ::dup2(out, STDERR_FILENO);
    ::execl(VELORIN_KILLED_PLAYER, "killed_player", home.root().c_str(), kind.c_str(), std::to_string(seed).c_str(),
            nullptr);
    ::_exit(127);
  }

  /// Waits so long at most; true if it has ended by itself, which must be well.
  static bool ends_within(pid_t child, std::chrono::milliseconds time) {
    const auto until = std::chrono::steady_clock::now() + time;
    int status = 0;
    for (;;) {
      if (::waitpid(child, &status, WNOHANG) == child) {
        EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "it ended with " << status;
        return true;
      }
      if (std::chrono::steady_clock::now() >= until) return false;
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
  }

  /// Sets the windows that the game of a home may come back at; none where none waits. `by_ball`: it comes back at the
  /// ball that was shown last, since its chance cannot be had again.
  void judge_return(const Home& home, bool by_ball) {
    expected_.clear();
    const recording recorded = read_recording(*home.game());
    open_database files;
    files.files = database_paths(home.teams(), "world");
    files.files.updates = false;
    files.files.elevens_in_memory = true;
    std::optional<game_state> game = game_to_continue(recorded, "waits", files);
    if (!game) return;
    const std::pair back(int{game->match.innings_number}, game->match.deliveries.size());
    if (by_ball) {
      EXPECT_GE(back, home.last_shown()) << "a ball that was shown is lost";
    }
    expected_ = first_question::of(*game);
  }

  /// One game with so many kills at most, then to its end. Returns the kills.
  int play(const std::string& kind, std::uint64_t seed, int most_kills);
  /// One start that is killed. False if it came to its end before.
  bool kill_once(const Home& home, const std::string& kind, std::uint64_t seed);

  fs::path root_;
  random_source when_;
  std::string before_;                 // of the recording at the last kill, as far as it was whole
  std::vector<std::string> expected_;  // the windows at which the next start comes back
  int games_ = 0;
  int returns_ = 0;  // starts whose first window was seen
};

bool Kills::kill_once(const Home& home, const std::string& kind, std::uint64_t seed) {
  home.forget_seen();
  const pid_t child = start(home, kind, seed);
  // A start of the game takes some of it.
  const bool over = ends_within(child, std::chrono::milliseconds(100 + die(when_, 1400)));
  if (!over) {
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }
  if (const std::string seen = home.last_seen(); !seen.empty()) {
    ++returns_;
    EXPECT_TRUE(std::find(expected_.begin(), expected_.end(), seen) != expected_.end())
        << seen << " for " << (expected_.empty() ? "nothing" : expected_.front())
        << ": it did not come back where it was left";
  }
  const std::optional<fs::path> file = home.game();
  if (!file) return !over;
  const std::string bytes = file_bytes(*file);
  EXPECT_TRUE(bytes.starts_with(before_)) << "something of the recording was lost";
  before_ = bytes.substr(0, read_recording(*file).whole_bytes);
  if (!over) judge_return(home, kind == "match" && seed == 0);
  return !over;
}

int Kills::play(const std::string& kind, std::uint64_t seed, int most_kills) {
  const Home home(root_ / std::to_string(++games_));
  SCOPED_TRACE(::testing::Message() << kind << " with seed " << seed << " in " << home.root());
  before_.clear();
  expected_.clear();
  int kills = 0;
  while (kills < most_kills && kill_once(home, kind, seed)) {
    ++kills;
    if (HasFailure()) return kills;
  }
  const pid_t child = start(home, kind, seed);
  if (!ends_within(child, std::chrono::minutes(5))) {
    ADD_FAILURE() << "it does not come to its end";
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
  }
  const std::optional<fs::path> file = home.game();
  if (HasFailure() || !file) {
    ADD_FAILURE() << "there is no game";
    return kills;
  }
  const recording recorded = read_recording(*file);
  EXPECT_TRUE(recorded.ended());
  EXPECT_TRUE(file_bytes(*file).starts_with(before_)) << "something of the recording was lost";
  EXPECT_TRUE(home.files() == home.files_of(recorded)) << "careers and records are not those of its matches";
  home.expect_archive_of(recorded);
  if (seed != 0) {
    // The same game, undisturbed.
    const Home other(root_ / (std::to_string(games_) + "u"));
    EXPECT_TRUE(ends_within(start(other, kind, seed), std::chrono::minutes(5)));
    const std::optional<fs::path> undisturbed = other.game();
    if (!undisturbed) return kills;
    EXPECT_TRUE(read_recording(*undisturbed).events == recorded.events) << "it was played otherwise";
    EXPECT_TRUE(other.files() == home.files()) << "careers and records are others";
  }
  return kills;
}

TEST_F(Kills, AtRandomMomentsLoseNothingAndCountNothingTwice) {
  ASSERT_FALSE(root_.empty());
  const int wanted = kills_wanted();
  const auto begun = std::chrono::steady_clock::now();
  int kills = 0;
  for (std::size_t game = 0; kills < wanted; ++game) {
    const std::uint64_t seed = game % 2 == 0 ? 100 + game : 0;
    kills += play(kinds[game / 2 % kinds.size()], seed, wanted <= 100 ? 6 : 40);
    if (HasFailure()) break;
  }
  EXPECT_GT(returns_, kills / 4) << "most kills came before the game was back";
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begun;
  std::printf("%d kills in %d games, %d of them seen to come back, %.0f seconds\n", kills, games_, returns_,
              taken.count());
}

}  // namespace
}  // namespace velorin::testing
