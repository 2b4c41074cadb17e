// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/random.h"

#include <algorithm>
#include <ctime>
#include <utility>

#include <fmt/format.h>

#include "model/run_time_error.h"

namespace velorin {

void random_source::use_clock() {
  *this = random_source();
  reseed();
}

void random_source::use_seed(std::uint64_t seed) {
  *this = random_source();
  kind_ = kind::seed;
  state_ = mix(seed);
}

void random_source::use_script(std::vector<double> draws, std::string name) {
  *this = random_source();
  kind_ = kind::script;
  script_ = std::move(draws);
  script_name_ = std::move(name);
}

void random_source::use_readings(std::uint64_t state, std::vector<std::uint64_t> readings) {
  *this = random_source();
  kind_ = kind::readings;
  state_ = state;
  given_ = std::move(readings);
  given_alone_ = true;
}

void random_source::use_state(std::uint64_t state, std::vector<std::uint64_t> readings) {
  *this = random_source();
  kind_ = kind::seed;
  state_ = state;
  given_ = std::move(readings);
  given_alone_ = true;
}

void random_source::go_on_by_clock() {
  if (kind_ == kind::readings) kind_ = kind::clock;
  given_alone_ = false;
  given_.clear();
  given_taken_ = 0;
}

void random_source::log_to(chance_log* log) {
  log_ = log;
  if (log == nullptr) return;
  log->readings.insert(log->readings.end(), read_behind_.begin(), read_behind_.end());
  read_behind_.clear();
  clock_follows_ = false;
}

std::size_t random_source::left() const {
  if (kind_ != kind::script) return given_.size() - given_taken_;
  return script_.size() - std::min<std::size_t>(script_.size(), draws_used_);
}

std::uint64_t random_source::clock_reading() {
  if (given_taken_ < given_.size()) return given_[given_taken_++];
  if (given_alone_) {
    ran_out_ = true;
    if (!clock_follows_) {
      throw run_time_error(failure::subscript, "The readings of the clock ran out",
                           {.file = {}, .record = 0, .field = {}, .player = {}});
    }
  }
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::uint64_t reading =
      static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
  if (given_alone_ && log_ == nullptr) read_behind_.push_back(reading);
  return reading;
}

std::uint64_t random_source::next_reading() {
  std::uint64_t reading = 0;
  if (!keeps_readings_) {
    reading = clock_reading();
  } else {
    const bool kept_before = readings_used_ < readings_.size();
    if (!kept_before) readings_.push_back(clock_reading());
    // Given readings come in the order in which they were used, those that came again included.
    if (kept_before && kind_ == kind::readings) readings_[readings_used_] = clock_reading();
    reading = readings_[readings_used_++];
  }
  if (log_ != nullptr) log_->readings.push_back(reading);
  return reading;
}

void random_source::keep_readings() {
  forget_readings();
  keeps_readings_ = true;
}

void random_source::forget_readings() {
  keeps_readings_ = false;
  readings_.clear();
  readings_used_ = 0;
}

void random_source::return_to(const place& earlier, luck wanted) {
  furthest_draw_ = std::max(furthest_draw_, draws_used_);
  state_ = earlier.state;
  draws_used_ = earlier.draws_used;
  readings_used_ = std::min(earlier.readings_used, readings_.size());
  if (wanted == luck::same) return;
  readings_.resize(readings_used_);
  if (kind_ == kind::script) {
    draws_used_ = furthest_draw_;
  } else {
    const std::uint64_t reading = clock_reading();
    if (log_ != nullptr) log_->readings.push_back(reading);
    state_ = seed_from_reading(reading);
  }
}

double random_source::next_of_script() {
  if (draws_used_ > script_.size()) {
    throw run_time_error(failure::subscript, fmt::format("The scripted draws ran out: all {} are used", script_.size()),
                         {.file = script_name_, .record = 0, .field = {}, .player = {}});
  }
  const double draw = script_[draws_used_ - 1];
  if (log_ != nullptr) log_->draws.push_back(draw);
  return draw;
}

}  // namespace velorin
