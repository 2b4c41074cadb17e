// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/random.h"

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

std::uint64_t random_source::seed_from_clock() {
  timespec now{};
  clock_gettime(CLOCK_REALTIME, &now);
  return seed_from_reading(static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U +
                           static_cast<std::uint64_t>(now.tv_nsec));
}

double random_source::next_of_script() {
  if (draws_used_ > script_.size()) {
    throw run_time_error(failure::subscript, fmt::format("The scripted draws ran out: all {} are used", script_.size()),
                         {.file = script_name_, .record = 0, .field = {}, .player = {}});
  }
  return script_[draws_used_ - 1];
}

}  // namespace velorin
