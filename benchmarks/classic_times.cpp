// SPDX-License-Identifier: GPL-3.0-or-later
// The time of each classic question to an archive, and of each section of the pages of the man with most innings, his
// team, the grounds with most and with fewest matches, and a match, the slowest first: classic_times FILE. Each is
// asked three times, as the windows do with the archive opened anew; the first time what the system has kept of the
// file is dropped, where it lets itself be told. The best of the others stands beside it.
#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

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
  double first = 0;  ///< milliseconds
  double best = 0;   ///< of those after it
  std::string title;
};

void forget(const char* file) {
  const int opened = ::open(file, O_RDONLY);
  if (opened < 0) return;
  ::posix_fadvise(opened, 0, 0, POSIX_FADV_DONTNEED);
  ::close(opened);
}

/// `act` gets the archive, opened anew.
template <class Act>
timed time_of(const char* file, std::string title, Act act) {
  timed taken{.title = std::move(title)};
  for (int round = 0; round < 3; ++round) {
    if (round == 0) forget(file);
    const auto start = steady_clock::now();
    const velorin::archive_file archive(file, velorin::archive_file::use::read);
    act(archive);
    const double time = duration<double, std::milli>(steady_clock::now() - start).count();
    if (round == 0) taken.first = time;
    taken.best = round <= 1 ? time : std::min(taken.best, time);
  }
  return taken;
}

void print(std::vector<timed> all) {
  std::sort(all.begin(), all.end(), [](const timed& a, const timed& b) { return a.first > b.first; });
  for (const timed& one : all) fmt::print("{:8.1f} ms {:8.1f} ms  {}\n", one.first, one.best, one.title);
}

/// What the row of a question that names one leads to.
velorin::archive_subject first_of(const velorin::archive_file& archive, velorin::rows_of from,
                                  std::vector<std::string> by, const char* sort, bool most = true) {
  const velorin::answer told =
      ask(archive, {.from = from, .by = std::move(by), .sort = sort, .descending = most, .top = 1});
  return velorin::led_to_by(told, 0, 0).value();
}

void time_pages(const char* file) {
  using velorin::rows_of;
  const velorin::archive_file archive(file, velorin::archive_file::use::read);
  const velorin::archive_subject man = first_of(archive, rows_of::batting, {"player", "team"}, "innings");
  std::vector<timed> all;
  for (const velorin::archive_subject& about :
       {man, velorin::archive_subject{.what = velorin::archive_subject::kind::team, .name = man.team},
        first_of(archive, rows_of::matches, {"ground"}, "matches"),
        first_of(archive, rows_of::matches, {"ground"}, "matches", false),
        velorin::archive_subject{.what = velorin::archive_subject::kind::match, .match = archive.last_id()}}) {
    const velorin::archive_page page = page_of(about);
    for (const velorin::page_section& section : page.sections) {
      all.push_back(time_of(file, page.heading + ": " + section.title,
                            [&](const velorin::archive_file& opened) { section_answer(opened, about, section); }));
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
  const char* const file = argv[1];
  std::vector<timed> all;
  for (const velorin::classic_question& classic : velorin::classic_questions()) {
    all.push_back(time_of(file, std::string(classic.title),
                          [&](const velorin::archive_file& archive) { ask(archive, classic.asked); }));
  }
  print(std::move(all));
  time_pages(file);
  print({time_of(file, "A match with its overs",
                 [](const velorin::archive_file& archive) { archive.match(archive.last_id()); })});
  return 0;
} catch (const std::exception& error) {
  std::fprintf(stderr, "classic_times: %s\n", error.what());
  return 1;
}
