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
  readings_ = std::move(readings);
}

void random_source::use_state(std::uint64_t state) {
  *this = random_source();
  kind_ = kind::seed;
  state_ = state;
}

void random_source::go_on_by_clock() {
  kind_ = kind::clock;
  readings_.clear();
  readings_taken_ = 0;
}

std::size_t random_source::left() const {
  if (kind_ == kind::readings) return readings_.size() - readings_taken_;
  return kind_ == kind::script ? script_.size() - std::min<std::size_t>(script_.size(), draws_used_) : 0;
}

std::uint64_t random_source::next_reading() {
  if (kind_ == kind::readings) {
    if (readings_taken_ < readings_.size()) return readings_[readings_taken_++];
    throw run_time_error(failure::subscript, "The readings of the clock ran out",
                         {.file = {}, .record = 0, .field = {}, .player = {}});
  }
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  const std::uint64_t reading =
      static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
  if (log_ != nullptr) log_->readings.push_back(reading);
  return reading;
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
