// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <condition_variable>
#include <mutex>
#include <vector>

#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "forecast/forecast.h"
#include "forecast/forecast_worker.h"
#include "forecast/states_of_play.h"
#include "headless/headless_user.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "ui/match_play.h"

namespace velorin::testing {
namespace {

/// What a worker has answered.
class letter_box {
 public:
  forecast_worker::receiver receiver() {
    return [this](std::uint64_t question, const forecast_answer& answer) {
      const std::lock_guard hold(guard_);
      questions_.push_back(question);
      last_ = answer;
      arrived_.notify_all();
    };
  }
  forecast_answer wait_for(std::uint64_t question) {
    std::unique_lock hold(guard_);
    arrived_.wait(hold, [&] { return !questions_.empty() && questions_.back() == question; });
    return last_;
  }
  std::vector<std::uint64_t> questions() {
    const std::lock_guard hold(guard_);
    return questions_;
  }

 private:
  std::mutex guard_;
  std::condition_variable arrived_;
  std::vector<std::uint64_t> questions_;
  forecast_answer last_;
};

TEST(ForecastWorker, AnswersAsAForecastDoes) {
  letter_box box;
  forecast_worker worker({.runs = 300, .seed = 4, .threads = 3}, box.receiver());
  for (const match_state& state : states_of_a_match(1, 80)) {
    const forecast_answer answer = box.wait_for(worker.ask(state));
    const forecast_answer wanted = forecast_rest(state, {.runs = 300, .seed = 4, .threads = 1, .stop = {}});
    EXPECT_EQ(answer.runs, 300);
    EXPECT_EQ(answer.first, wanted.first);
    EXPECT_EQ(answer.win_first, wanted.win_first);
    EXPECT_EQ(answer.second_total.mean, wanted.second_total.mean);
  }
  const std::vector<std::uint64_t> questions = box.questions();
  ASSERT_FALSE(questions.empty());
  EXPECT_THAT(questions, ::testing::Each(::testing::Gt(0U)));
  EXPECT_EQ(questions.size(), questions.back()) << "each of them once";
}

TEST(ForecastWorker, DropsWhatIsAskedNoMore) {
  letter_box box;
  const std::vector<match_state> states = states_of_a_match(2, 60);
  forecast_worker worker({.runs = 100'000'000, .seed = 1, .threads = 2}, box.receiver());
  for (const match_state& state : states) EXPECT_NE(worker.ask(state), 0U);
  worker.withdraw();
  EXPECT_THAT(box.questions(), ::testing::IsEmpty());
}

TEST(ForecastWorker, IsNotAskedForWhatCannotBeTold) {
  letter_box box;
  forecast_worker worker({.runs = 10, .seed = 1, .threads = 1}, box.receiver());
  EXPECT_EQ(worker.ask(match_state()), 0U);
}

/// A match during which every ball asks.
class asking_user : public headless_user {
 public:
  asking_user(const match_state& played, forecast_worker* worker)
      : headless_user(played), played_(played), worker_(worker) {}
  using headless_user::show;
  void ball_bowled() override {
    if (worker_ != nullptr) last_ = worker_->ask(played_);
  }
  void open(report) override { scores.push_back(played_.score_runs); }

  std::vector<int> scores;
  std::uint64_t last() const { return last_; }

 private:
  const match_state& played_;
  forecast_worker* worker_;
  std::uint64_t last_ = 0;
};

std::vector<int> scores_of(std::uint64_t seed, forecast_worker* worker) {
  set_up_sample_match();
  match_state played = match;
  random_source drawn;
  drawn.use_seed(seed);
  asking_user user(played, worker);
  open_console({played, drawn, user, data});
  user.scores.push_back(static_cast<int>(drawn.draws_used()));
  return user.scores;
}

TEST(ForecastWorker, LeavesTheMatchAsItIsPlayed) {
  letter_box box;
  for (std::uint64_t seed = 1; seed <= 3; ++seed) {
    forecast_worker worker({.runs = 50, .seed = seed, .threads = 2}, box.receiver());
    EXPECT_EQ(scores_of(seed, &worker), scores_of(seed, nullptr));
  }
}

}  // namespace
}  // namespace velorin::testing
