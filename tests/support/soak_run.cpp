// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/soak_run.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <charconv>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <string_view>

namespace velorin::testing {

namespace {

#ifdef VELORIN_SANITIZED
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
#ifdef NDEBUG
constexpr bool checked_build = sanitized;
#else
constexpr bool checked_build = true;
#endif

constexpr long tolerance = 1024;  ///< KiB

/// KiB of this process in memory now.
long resident_now() {
  std::ifstream facts("/proc/self/statm");
  long pages = 0;
  long resident = 0;
  facts >> pages >> resident;
  EXPECT_TRUE(facts) << "the system does not tell how much memory is in use";
  return resident * (::sysconf(_SC_PAGESIZE) / 1024);
}

/// KiB at most since the process began; the system's own count lags a little behind what it tells of now.
long resident_peak() {
  struct rusage use {};
  EXPECT_EQ(::getrusage(RUSAGE_SELF, &use), 0);
  return std::max(use.ru_maxrss, resident_now());
}

}  // namespace

int soak_matches(int optimised, int checked) {
  const char* const asked = std::getenv("VELORIN_SOAK_MATCHES");
  if (asked == nullptr) return checked_build ? checked : optimised;
  const std::string_view text = asked;
  int matches = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), matches);
  if (error == std::errc() && end == text.data() + text.size() && matches >= 1 && matches <= 100'000'000) {
    return matches;
  }
  ADD_FAILURE() << "VELORIN_SOAK_MATCHES is no number of matches: " << text;
  return checked;
}

soak_run::soak_run(int matches) : matches_(matches) {}

void soak_run::after_match(int balls) {
  ++played_;
  balls_ += balls;
  const std::array<int, 3> points = {(matches_ + 9) / 10, (matches_ + 1) / 2, matches_};
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (played_ == points[i]) resident_[i] = resident_now();
  }
}

std::string soak_run::figures() const {
  return fmt::format("resident {}, {}, {} KiB after 10, 50, 100 %", resident_[0], resident_[1], resident_[2]);
}

std::string soak_run::growth() const {
  EXPECT_EQ(played_, matches_) << "not all matches were played";
  const bool flat = resident_[1] - resident_[0] <= tolerance && resident_[2] - resident_[0] <= tolerance;
  return flat || sanitized ? "" : figures();
}

void soak_run::report() const {
  const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start_;
  std::cout << fmt::format("{} matches, {} balls, {:.1f} s; {}, peak {} KiB\n", played_, balls_, taken.count(),
                           figures(), resident_peak());
}

}  // namespace velorin::testing
