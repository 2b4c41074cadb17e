// SPDX-License-Identifier: GPL-3.0-or-later
// The time of each classic question to an archive, the slowest first: classic_times FILE. The time is the best of
// three.
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <vector>

#include "archive/archive_file.h"
#include "archive/classic_questions.h"

namespace {

using std::chrono::duration;
using std::chrono::steady_clock;

struct timed {
  double milliseconds = 0;
  std::string title;
};

double time_of(const velorin::archive_file& archive, const velorin::question& asked) {
  const auto start = steady_clock::now();
  velorin::ask(archive, asked);
  return duration<double, std::milli>(steady_clock::now() - start).count();
}

}  // namespace

int main(int argc, char** argv) try {
  if (argc != 2) {
    std::fputs("usage: classic_times FILE\n", stderr);
    return 2;
  }
  const velorin::archive_file archive(argv[1], velorin::archive_file::use::read);
  std::vector<timed> all;
  for (const velorin::classic_question& classic : velorin::classic_questions()) {
    timed& one = all.emplace_back(timed{time_of(archive, classic.asked), std::string(classic.title)});
    for (int again = 0; again < 2; ++again) {
      one.milliseconds = std::min(one.milliseconds, time_of(archive, classic.asked));
    }
  }
  std::sort(all.begin(), all.end(), [](const timed& a, const timed& b) { return a.milliseconds > b.milliseconds; });
  for (const timed& one : all) fmt::print("{:8.1f} ms  {}\n", one.milliseconds, one.title);
  const auto start = steady_clock::now();
  archive.match(archive.last_id());
  fmt::print("{:8.1f} ms  a match with its overs, of {}\n",
             duration<double, std::milli>(steady_clock::now() - start).count(), archive.count());
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "classic_times: %s\n", error.what());
  return 1;
}
