// SPDX-License-Identifier: GPL-3.0-or-later
// The time of each classic question to an archive, and of each section of the pages of the man with most innings, his
// team, a ground and a match, the slowest first: classic_times FILE. The time is the best of three.
#include <fmt/format.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <string>
#include <utility>
#include <vector>

#include "archive/archive_file.h"
#include "archive/archive_pages.h"
#include "archive/classic_questions.h"

namespace {

using std::chrono::duration;
using std::chrono::steady_clock;

struct timed {
  double milliseconds = 0;
  std::string title;
};

template <class Act>
double time_of(Act act) {
  double best = 0;
  for (int round = 0; round < 3; ++round) {
    const auto start = steady_clock::now();
    act();
    const double taken = duration<double, std::milli>(steady_clock::now() - start).count();
    best = round == 0 ? taken : std::min(best, taken);
  }
  return best;
}

void print(std::vector<timed> all) {
  std::sort(all.begin(), all.end(), [](const timed& a, const timed& b) { return a.milliseconds > b.milliseconds; });
  for (const timed& one : all) fmt::print("{:8.1f} ms  {}\n", one.milliseconds, one.title);
}

/// What the row of a question that names one leads to.
velorin::archive_subject first_of(const velorin::archive_file& archive, velorin::rows_of from,
                                  std::vector<std::string> by, const char* sort) {
  const velorin::answer told =
      ask(archive, {.from = from, .by = std::move(by), .sort = sort, .descending = true, .top = 1});
  return velorin::led_to_by(told, 0, 0).value();
}

void time_pages(const velorin::archive_file& archive) {
  using velorin::rows_of;
  const velorin::archive_subject man = first_of(archive, rows_of::batting, {"player", "team"}, "innings");
  std::vector<timed> all;
  for (const velorin::archive_subject& about :
       {man, velorin::archive_subject{.what = velorin::archive_subject::kind::team, .name = man.team},
        first_of(archive, rows_of::matches, {"ground"}, "matches"),
        velorin::archive_subject{.what = velorin::archive_subject::kind::match, .match = archive.last_id()}}) {
    const velorin::archive_page page = page_of(about);
    for (const velorin::page_section& section : page.sections) {
      all.push_back({time_of([&] { section_answer(archive, about, section); }), page.heading + ": " + section.title});
    }
  }
  print(std::move(all));
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
    all.push_back({time_of([&] { ask(archive, classic.asked); }), std::string(classic.title)});
  }
  print(std::move(all));
  time_pages(archive);
  const auto start = steady_clock::now();
  archive.match(archive.last_id());
  fmt::print("{:8.1f} ms  a match with its overs, of {}\n",
             duration<double, std::milli>(steady_clock::now() - start).count(), archive.count());
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "classic_times: %s\n", error.what());
  return 1;
}
