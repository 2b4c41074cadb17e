// SPDX-License-Identifier: GPL-3.0-or-later
// No room for what is to be written, with files that may not grow beyond a limit and on a disk that is full: each file
// is the old one or the new one, all that belong together are of one kind, and the next run works.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstring>
#include <fstream>
#include <iostream>
#include <set>

#include "faults/acts.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// What is wrong with the folder after a run without room; "" for nothing.
std::string fault_in(const act& what, const file_map& done, const file_map& found, const ending& end,
                     const std::string& cause) {
  if (end.status == 0) return found == done && end.err.empty() ? "" : "said to be done, and is not";
  if (end.status != 1) return "ended with " + std::to_string(end.status) + ", signal " + std::to_string(end.signal);
  if (std::count(end.err.begin(), end.err.end(), '\n') != 1 || end.err.find(cause) == std::string::npos) {
    return "the message does not tell of it: " + end.err;
  }
  const auto is_named = [&](const std::string& file) {
    return end.err.find(fs::path(file).filename().string() + ")") != std::string::npos;
  };
  if (std::none_of(what.writes.begin(), what.writes.end(), is_named) && !(what.archived && is_named("small.waiting"))) {
    return "the message names no file: " + end.err;
  }
  if (found == what.before) return "";
  if (!what.apart) return "some files are new, or something is left over";
  for (const auto& [name, bytes] : found) {  // each file is for itself
    const bool is_old = what.before.contains(name) && what.before.at(name) == bytes;
    if (!is_old && (!done.contains(name) || done.at(name) != bytes)) return name + " is neither old nor new";
  }
  return "";
}

class FullDisk : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    what_ = act_of(GetParam());
    new_ = after(what_, what_.before);
  }

  /// Sizes from 0 on, and those about the size of a file that is written.
  std::set<rlim_t> limits() const {
    constexpr int steps = 40;
    rlim_t largest = 0;
    std::set<rlim_t> all;
    for (const std::string& name : what_.writes) {
      const rlim_t size = new_.at(name).size();
      largest = std::max(largest, size);
      all.insert({size - 1, size, size + 1});
    }
    for (rlim_t i = 0; i <= steps; ++i) all.insert(largest * i / steps);
    all.insert(1);
    // The match that waits for the archive has the files of before with it.
    if (what_.archived) all.insert(2 * largest);
    return all;
  }

  workbench bench_;
  act what_;
  file_map new_;
};

/// Lets no file of this process grow beyond the limit.
void limit_files(rlim_t bytes, bool with_signal) {
  std::signal(SIGXFSZ, with_signal ? SIG_DFL : SIG_IGN);
  const rlimit core{0, 0};
  ::setrlimit(RLIMIT_CORE, &core);
  const rlimit limit{bytes, bytes};
  if (::setrlimit(RLIMIT_FSIZE, &limit) != 0) ::_exit(126);
}

TEST_P(FullDisk, FilesThatMayNotGrowLeaveTheOldOnes) {
  int refused = 0;
  int done = 0;
  for (const rlim_t limit : limits()) {
    SCOPED_TRACE(std::to_string(limit) + " bytes");
    bench_.lay_out(what_.before);
    program limited = what_.on(bench_);
    limited.prepare = [limit] { limit_files(limit, false); };
    const ending end = bench_.run(limited);
    ASSERT_EQ(fault_in(what_, new_, bench_.found(), end, "File too large"), "");
    ++(end.status == 0 ? done : refused);
    if (end.status == 0) continue;
    ASSERT_EQ(bench_.run(what_.on(bench_)).status, 0);
    ASSERT_TRUE(bench_.found() == new_) << "the next run does not do its work";
  }
  EXPECT_GT(refused, 2);
  EXPECT_GT(done, 0);
  std::cout << GetParam() << ": " << refused << " limits too small, " << done << " large enough\n";
}

// Where the limit comes with its signal, it is a failure like any other.
TEST_P(FullDisk, TheSignalOfALimitEndsNoProgram) {
  for (const rlim_t limit : {rlim_t{0}, rlim_t{20}, rlim_t{10'000}}) {
    if (limit >= new_.at(what_.writes.back()).size()) continue;
    SCOPED_TRACE(std::to_string(limit) + " bytes");
    bench_.lay_out(what_.before);
    program limited = what_.on(bench_);
    limited.prepare = [limit] { limit_files(limit, true); };
    const ending end = bench_.run(limited);
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(fault_in(what_, new_, bench_.found(), end, "File too large"), "");
    ASSERT_EQ(bench_.run(what_.on(bench_)).status, 0);
    EXPECT_TRUE(bench_.found() == new_) << "the next run does not do its work";
  }
}

/// A file system of this process alone, in memory, with room for so many bytes.
class small_disk {
 public:
  /// `problem()` tells why the system gives none; "" if it does.
  explicit small_disk(const fs::path& folder) : folder_(folder) {
    const auto user = ::getuid();
    const auto group = ::getgid();
    if (::unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0) {
      problem_ = std::string("no name space of its own: ") + std::strerror(errno);
      return;
    }
    std::ofstream("/proc/self/setgroups") << "deny";
    std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
    std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
    if (::mount("disk", folder_.c_str(), "tmpfs", 0, "size=16m") != 0) {
      problem_ = std::string("no disk in memory: ") + std::strerror(errno);
    }
  }
  const std::string& problem() const { return problem_; }
  /// False if what is there does not fit.
  bool resize(long pages) const {
    const std::string size = "size=" + std::to_string(pages * ::sysconf(_SC_PAGESIZE));
    return ::mount("disk", folder_.c_str(), "tmpfs", MS_REMOUNT, size.c_str()) == 0;
  }

 private:
  fs::path folder_;
  std::string problem_;
};

long pages_of(const file_map& files) {
  const long page = ::sysconf(_SC_PAGESIZE);
  long pages = 0;
  for (const auto& [name, bytes] : files)
    pages += bytes == a_folder ? 0 : (static_cast<long>(bytes.size()) + page - 1) / page;
  return pages;
}

/// The life of a process on a small disk: the act with no page free, with one and so on, until it has room. Tells what
/// it found by a line; "!" ahead of a fault, "-" ahead of the reason for which nothing was tried.
std::string try_on_small_disk(workbench& bench, const act& what, const file_map& done) {
  const small_disk disk(bench.data());
  if (!disk.problem().empty()) return '-' + disk.problem();
  int refused = 0;
  for (long free = 0; free < 1000; ++free) {
    if (!disk.resize(4096)) return "!the disk cannot be made larger";
    bench.lay_out(what.before);
    if (!disk.resize(pages_of(what.before) + free)) continue;  // folders take room, too
    const ending end = bench.run(what.on(bench));
    const std::string fault = fault_in(what, done, bench.found(), end, "No space left on device");
    if (!fault.empty()) return '!' + std::to_string(free) + " pages free: " + fault;
    if (end.status == 0) return std::to_string(refused) + " times without room";
    ++refused;
    if (!disk.resize(4096)) return "!the disk cannot be made larger";
    if (bench.run(what.on(bench)).status != 0 || bench.found() != done) return "!the next run does not do its work";
  }
  return "!never enough room";
}

TEST_P(FullDisk, ADiskWithoutRoomLeavesTheOldFiles) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) {
    std::string told;
    try {
      told = try_on_small_disk(bench_, what_, new_);
    } catch (const std::exception& error) {
      told = std::string("!") + error.what();
    }
    const bool all = ::write(ends[1], told.data(), told.size()) == static_cast<ssize_t>(told.size());
    ::_exit(all ? 0 : 1);
  }
  ::close(ends[1]);
  std::string told;
  char piece[1024];
  for (ssize_t got = 0; (got = ::read(ends[0], piece, sizeof piece)) > 0;) told.append(piece, got);
  ::close(ends[0]);
  int status = -1;
  ASSERT_EQ(::waitpid(child, &status, 0), child);
  ASSERT_EQ(status, 0);
  if (told.starts_with('-')) GTEST_SKIP() << told.substr(1);
  EXPECT_FALSE(told.starts_with('!')) << told;
  EXPECT_NE(told.substr(0, 2), "0 ") << "the disk was never full";
  std::cout << GetParam() << ": " << told << '\n';
}

INSTANTIATE_TEST_SUITE_P(Acts, FullDisk, ::testing::ValuesIn(writing_act_names()),
                         [](const auto& of) { return of.param; });

TEST(StandardOutput, AFullDeviceIsAFailureOfTheProgram) {
  workbench bench;
  for (const char* option : {"--help", "--version"}) {
    program what;
    what.line = {VELORIN_CLI, option};
    what.prepare = [] {
      const int full = ::open("/dev/full", O_WRONLY);
      if (full < 0 || ::dup2(full, STDOUT_FILENO) < 0) ::_exit(126);
    };
    const ending end = bench.run(what);
    EXPECT_EQ(end.status, 1) << option;
    EXPECT_EQ(end.err, "velorin-cli: Standard output cannot be written: No space left on device\n") << option;
  }
}

TEST(StandardOutput, OneThatIsClosedMattersToThoseWhoWrite) {
  workbench bench;
  program what;
  what.line = {VELORIN_CLI, "--version"};
  const ending with = bench.run(what);
  EXPECT_EQ(with.status, 0);
  EXPECT_TRUE(with.out.starts_with("velorin-cli ")) << with.out;
  what.prepare = [] { ::close(STDOUT_FILENO); };
  const ending without = bench.run(what);
  EXPECT_EQ(without.status, 1);
  EXPECT_EQ(without.err, "velorin-cli: Standard output cannot be written: Bad file descriptor\n");
  what.line.back() = "--no-such-option";
  EXPECT_EQ(bench.run(what).status, 2);
}

}  // namespace
}  // namespace velorin::testing
