// SPDX-License-Identifier: GPL-3.0-or-later
// A match left at any question, message or ball goes on from a copy as if it had never stopped.
#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "cli/match_json.h"
#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "headless/headless_user.h"
#include "model/match_state.h"
#include "reports/export.h"
#include "reports/scorecard.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

// The woven-in checks of a sanitizer take their time.
#ifdef VELORIN_SANITIZED
constexpr std::uint64_t seeds = 10;
constexpr int request_step = 83;
#elif defined(NDEBUG)
constexpr std::uint64_t seeds = 1000;
constexpr int request_step = 1;
#else
constexpr std::uint64_t seeds = 200;
constexpr int request_step = 1;
#endif

/// All that a match needs to go on.
struct left_match {
  match_state match;
  random_source chance;
};

/// A game of its own, whose user notes what he is told, and takes a copy of the match at one of his requests.
class watched_game : public headless_user {
 public:
  watched_game(const left_match& from, const open_database& files, bool whole_objects)
      : headless_user(game_.match), game_(from), data_(files), whole_objects_(whole_objects) {}

  void play_from_start() { play_match(play()); }
  void go_on() { resume_play(play()); }

  /// Takes the copy at the n-th request, from 1.
  void stop_at(int n) { stop_ = n; }
  const std::optional<left_match>& copy() const { return copy_; }
  int requests() const { return requests_; }
  /// All that was told, the request at which the copy was taken and those behind it alone if there is one.
  std::string told() const { return told_.substr(told_before_copy_) + result_; }

  /// Every so many requests a captain gives a side to the computer, or takes it.
  void change_captains_every(int requests) { change_every_ = requests; }

  using headless_user::show;
  void show(const message_box& message) override { ask("message " + message.title + ": " + message.text); }
  void show(next_batsman_form& form) override {
    ask("next batsman");
    headless_user::show(form);
  }
  void show(bowler_choice_form& form) override {
    ask("bowler");
    headless_user::show(form);
  }
  void show(batsman_details_form& form) override { ask("details " + form.figures.headline); }
  void show(console_form& form) override { headless_user::show(form); }
  void ball_bowled() override { ask("ball"); }
  void progress(int over) override { ask("over " + std::to_string(over)); }
  void progress_done() override {
    ask("done");
    note_result();
  }
  void open(report which) override {
    if (which != report::scorecard) return;
    ask("scorecard");
    scorecard_form card(game_.match);
    card.open();
    told_ += ball_by_ball(game_.match, card);
    if (whole_objects_) told_ += cli::state_text(game_.match);
  }
  void note_result() { result_ = cli::result_json(game_.match).dump() + std::to_string(game_.chance.draws_used()); }

 private:
  match_play play() { return {game_.match, game_.chance, *this, data_}; }

  void ask(const std::string& what) {
    if (++requests_ == stop_) {
      copy_ = game_;
      told_before_copy_ = told_.size();
    }
    told_ += what + '\n';
    // A change of captain is an act of the user, which the copy has to meet at the same request.
    if (change_every_ != 0 && what == "ball" && game_.match.deliveries.size() % change_every_ == 0) {
      set_captain(game_.match, match_side::batting, !game_.match.computer_bats);
      set_captain(game_.match, match_side::bowling, !game_.match.computer_bowls);
    }
  }

  left_match game_;
  open_database data_;
  bool whole_objects_;
  int requests_ = 0;
  int stop_ = 0;
  std::size_t change_every_ = 0;
  std::optional<left_match> copy_;
  std::size_t told_before_copy_ = 0;
  std::string told_;
  std::string result_;
};

class ResumedPlay : public ::testing::Test {
 protected:
  static left_match seeded(std::uint64_t seed, bool computer_bats, bool computer_bowls) {
    set_up_sample_match(computer_bats, computer_bowls);
    left_match start{match, {}};
    start.chance.use_seed(seed);
    return start;
  }

  static int count_requests(const left_match& start, int change_every = 0) {
    watched_game game(start, data, false);
    game.change_captains_every(change_every);
    game.play_from_start();
    return game.requests();
  }

  /// Plays on from a copy taken at the n-th request, and expects what the match that never stopped has told since.
  static void expect_same_from(const left_match& start, int n, bool whole_objects = false, int change_every = 0) {
    std::optional<left_match> copy;
    std::string wanted;
    {
      watched_game game(start, data, whole_objects);
      game.change_captains_every(change_every);
      game.stop_at(n);
      game.play_from_start();
      game.note_result();
      wanted = game.told();
      copy = game.copy();
    }
    ASSERT_TRUE(copy) << "request " << n;
    watched_game resumed(*copy, data, whole_objects);
    resumed.change_captains_every(change_every);
    resumed.go_on();
    resumed.note_result();
    ASSERT_EQ(resumed.told(), wanted) << "request " << n;
  }
};

TEST_F(ResumedPlay, EachRequestOfAMatchIsAskedAgain) {
  for (const bool computer_bats : {false, true}) {
    for (const bool computer_bowls : {false, true}) {
      const left_match start = seeded(7, computer_bats, computer_bowls);
      const int requests = count_requests(start);
      ASSERT_GT(requests, 500);
      // Every request of one match; of the others a few of each kind.
      const int step = computer_bats || computer_bowls ? std::max(11, request_step) : request_step;
      for (int n = 1; n <= requests; n += step) {
        expect_same_from(start, n);
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST_F(ResumedPlay, SeededMatchesGoOnFromAnyRequest) {
  std::mt19937 draw(2026);
  for (std::uint64_t seed = 1; seed <= seeds; ++seed) {
    const left_match start = seeded(seed, seed % 2 == 0, seed % 4 < 2);
    const int requests = count_requests(start);
    expect_same_from(start, std::uniform_int_distribution(1, requests)(draw), true);
    if (HasFatalFailure()) return;
  }
}

TEST_F(ResumedPlay, CaptainsChangeAtAnyBall) {
  std::mt19937 draw(11);
  for (std::uint64_t seed = 1; seed <= std::min<std::uint64_t>(100, seeds); ++seed) {
    const int change_every = 1 + static_cast<int>(seed % 23);
    const left_match start = seeded(seed, true, false);
    const int requests = count_requests(start, change_every);
    expect_same_from(start, std::uniform_int_distribution(1, requests)(draw), seed % 10 == 0, change_every);
    if (HasFatalFailure()) return;
  }
}

TEST_F(ResumedPlay, NothingIsResumedBehindTheEnd) {
  left_match start = seeded(3, true, true);
  watched_game game(start, data, false);
  game.play_from_start();
  const std::string told = game.told();
  game.go_on();
  EXPECT_EQ(game.told(), told);
}

TEST_F(ResumedPlay, AComputerThatTakesOverAnInningsBowlsItToItsEnd) {
  for (std::uint64_t seed = 1; seed <= std::min<std::uint64_t>(200, seeds); ++seed) {
    left_match start = seeded(seed, true, false);
    headless_user user(start.match);
    const match_play play{start.match, start.chance, user, data};
    open_console(play);
    for (std::uint64_t over = 0; over < seed % 30; ++over) next_over(play);
    if (start.match.innings_number != 1 || start.match.next_step == play_step::closed) continue;
    const std::uint64_t draws = start.chance.draws_used();
    set_captain(start.match, match_side::bowling, true);
    EXPECT_EQ(start.chance.draws_used(), draws) << "nothing is drawn";
    EXPECT_EQ(start.match.bowler_pool[1].name.empty(), false);
    while (start.match.innings_number == 1 && start.match.console_open) next_over(play);
    for (const delivery& ball : start.match.first_deliveries) {
      ASSERT_NE(start.match.batting_xi[ball.bowler].name, "") << "now the side that bats";
    }
    ASSERT_TRUE(start.match.console_open) << "somebody still sits before the match";
  }
}

}  // namespace
}  // namespace velorin::testing
