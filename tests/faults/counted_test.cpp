// SPDX-License-Identifier: GPL-3.0-or-later
// The library that makes calls fail sees every call on a file of the data folder: its notes are those that the system
// has of the same run.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/syscall.h>

#include <algorithm>
#include <iostream>
#include <sstream>

#include "faults/acts.h"
#include "faults/traced_run.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// Which argument of a call tells its file: a descriptor, a path, or a path that goes by a folder's descriptor before
/// it.
enum class told_by { descriptor, path, path_at };

struct known_call {
  std::uint64_t number;
  const char* kind;
  told_by by;
  int place;  ///< of the argument that tells
};

/// "other": calls that the library does not know. They must not be made on a file of the folder.
constexpr known_call known_calls[] = {
#ifdef SYS_open
    {SYS_open, "open", told_by::path, 0},
    {SYS_creat, "open", told_by::path, 0},
    {SYS_stat, "stat", told_by::path, 0},
    {SYS_lstat, "stat", told_by::path, 0},
    {SYS_rename, "rename", told_by::path, 0},
    {SYS_unlink, "unlink", told_by::path, 0},
    {SYS_rmdir, "unlink", told_by::path, 0},
    {SYS_mkdir, "mkdir", told_by::path, 0},
    {SYS_access, "other", told_by::path, 0},
    {SYS_readlink, "other", told_by::path, 0},
    {SYS_link, "other", told_by::path, 1},
    {SYS_symlink, "other", told_by::path, 1},
    {SYS_chmod, "other", told_by::path, 0},
#endif
    {SYS_openat, "open", told_by::path_at, 1},
    {SYS_newfstatat, "stat", told_by::path_at, 1},
    {SYS_fstat, "stat", told_by::descriptor, 0},
    {SYS_renameat, "rename", told_by::path_at, 1},
    {SYS_renameat2, "rename", told_by::path_at, 1},
    {SYS_unlinkat, "unlink", told_by::path_at, 1},
    {SYS_close, "close", told_by::descriptor, 0},
    {SYS_read, "read", told_by::descriptor, 0},
    {SYS_pread64, "read", told_by::descriptor, 0},
    {SYS_readv, "read", told_by::descriptor, 0},
    {SYS_write, "write", told_by::descriptor, 0},
    {SYS_pwrite64, "write", told_by::descriptor, 0},
    {SYS_writev, "write", told_by::descriptor, 0},
    {SYS_ftruncate, "write", told_by::descriptor, 0},
    {SYS_fsync, "sync", told_by::descriptor, 0},
    {SYS_fdatasync, "sync", told_by::descriptor, 0},
    {SYS_sync_file_range, "hint", told_by::descriptor, 0},
    {SYS_flock, "lock", told_by::descriptor, 0},
    {SYS_fchmod, "chmod", told_by::descriptor, 0},
    {SYS_getdents64, "list", told_by::descriptor, 0},
    {SYS_mmap, "other", told_by::descriptor, 4},
    {SYS_lseek, "other", told_by::descriptor, 0},
    {SYS_fallocate, "other", told_by::descriptor, 0},
    {SYS_sendfile, "other", told_by::descriptor, 0},
    {SYS_copy_file_range, "other", told_by::descriptor, 0},
    {SYS_preadv, "other", told_by::descriptor, 0},
    {SYS_pwritev, "other", told_by::descriptor, 0},
    {SYS_fchown, "other", told_by::descriptor, 0},
    {SYS_statx, "other", told_by::path_at, 1},
    {SYS_faccessat, "other", told_by::path_at, 1},
    {SYS_faccessat2, "other", told_by::path_at, 1},
    {SYS_readlinkat, "other", told_by::path_at, 1},
    {SYS_linkat, "other", told_by::path_at, 3},
    {SYS_symlinkat, "other", told_by::path_at, 2},
    {SYS_mkdirat, "other", told_by::path_at, 1},
    {SYS_fchmodat, "other", told_by::path_at, 1},
    {SYS_truncate, "other", told_by::path, 0},
    {SYS_openat2, "other", told_by::path_at, 1},
    {SYS_mknodat, "other", told_by::path_at, 1},
    {SYS_utimensat, "times", told_by::path_at, 1}};

/// Any further call whose first argument is the descriptor of a file of the folder.
constexpr known_call unknown_call = {0, "other", told_by::descriptor, 0};

/// Keeps the calls on files of a folder, as the library notes them.
class call_watch {
 public:
  explicit call_watch(std::string folder) : folder_(std::move(folder)) {}

  void take(const traced_run& run, const call_stop& stop) {
    if (stop.entry) {
      enter(run, stop);
    } else if (opening_ && stop.result >= 0) {
      open_[static_cast<int>(stop.result)] = path_;
    }
    if (!stop.entry) opening_ = false;
  }

  std::vector<std::string> calls;  ///< "kind path"

 private:
  bool below(const std::string& path) const { return path == folder_ || path.starts_with(folder_ + '/'); }

  void enter(const traced_run& run, const call_stop& stop) {
    opening_ = false;
    const auto* known = std::find_if(std::begin(known_calls), std::end(known_calls),
                                     [&](const known_call& one) { return one.number == stop.number; });
    const known_call& call = known == std::end(known_calls) ? unknown_call : *known;
    path_ = file_of(run, stop, call);
    // The database of the archive writes its file in ways of its own.
    if (!below(path_) || path_.find(".matches") != std::string::npos) return;
    // To find its whole path it looks at each part of it.
    if (stop.number == SYS_newfstatat && (stop.words[3] & AT_SYMLINK_NOFOLLOW) != 0 && path_ == folder_) return;
    // The C library looks at a folder within fdopendir(), whose failure is that of the opening.
    const bool looks_at_open_file = stop.number == SYS_newfstatat && run.text_at(stop.words[1]).empty();
    if ((looks_at_open_file || stop.number == SYS_fcntl) && fs::is_directory(path_)) return;
    calls.push_back(std::string(call.kind) + ' ' + path_);
    opening_ = std::string(call.kind) == "open";
    if (stop.number == SYS_close) open_.erase(static_cast<int>(stop.words[0]));
  }

  std::string file_of(const traced_run& run, const call_stop& stop, const known_call& known) const {
    const auto named = [this](std::uint64_t word) {
      const auto found = open_.find(static_cast<int>(word));
      return found == open_.end() ? std::string() : found->second;
    };
    if (known.by == told_by::descriptor) return named(stop.words[known.place]);
    const std::uint64_t address = stop.words[known.place];
    const std::string path = address == 0 ? std::string() : run.text_at(address);
    if (known.by == told_by::path || path.starts_with('/')) return path;
    const std::string folder = named(stop.words[known.place - 1]);
    return folder.empty() || path.empty() ? folder : folder + '/' + path;
  }

  std::string folder_;
  std::map<int, std::string> open_;
  std::string path_;
  bool opening_ = false;
};

/// One reading of a folder gives many entries: its calls are told once.
std::vector<std::string> with_lists_told_once(const std::vector<std::string>& calls) {
  std::vector<std::string> told;
  for (const std::string& call : calls) {
    const bool again = call.starts_with("list ") && std::find(told.begin(), told.end(), call) != told.end();
    if (!again) told.push_back(call);
  }
  return told;
}

class Counted : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override { what_ = act_of(GetParam()); }

  /// Runs the act and keeps its calls. Skips the test where the system lets nobody trace.
  void watch() {
    bench_.lay_out(what_.before);
    program started = what_.on(bench_);
    started.environment = {"LD_PRELOAD=" VELORIN_FAULT_PRELOAD, "VELORIN_FAULT_FOLDER=" + bench_.data().string(),
                           "VELORIN_FAULT_NOTES=" + notes().string()};
    traced_run run(bench_, started);
    if (!run.refused().empty()) GTEST_SKIP() << run.refused();
    while (const auto stop = run.next()) seen_.take(run, *stop);
    const ending end = run.end();
    ASSERT_EQ(end.status, 0) << end.err;
  }
  fs::path notes() const { return bench_.beside("notes"); }

  /// The place of the last call on this file ahead of `end`; -1 if there is none.
  std::ptrdiff_t last(const std::string& kind, const std::string& path, std::ptrdiff_t end) const {
    for (std::ptrdiff_t at = end - 1; at >= 0; --at) {
      if (seen_.calls[static_cast<std::size_t>(at)] == kind + ' ' + path) return at;
    }
    return -1;
  }

  act what_;
  workbench bench_;
  call_watch seen_{bench_.data().string()};
};

TEST_P(Counted, TheLibrarySeesWhatTheSystemSees) {
  watch();
  if (IsSkipped() || HasFatalFailure()) return;
  std::vector<std::string> noted;
  std::istringstream lines(bytes_of_file(notes()));
  for (std::string line; std::getline(lines, line);) {
    if (line.find(".matches") == std::string::npos) noted.push_back(line);
  }
  EXPECT_GT(noted.size(), 8U);
  EXPECT_THAT(with_lists_told_once(noted), ::testing::ElementsAreArray(with_lists_told_once(seen_.calls)));
  std::cout << GetParam() << ": " << seen_.calls.size() << " calls\n";
}

class Written : public Counted {};

// Else a file that lost its bytes could take the place of a whole one when the power goes.
TEST_P(Written, IsSynchronisedBeforeItIsRenamed) {
  watch();
  if (IsSkipped() || HasFatalFailure()) return;
  std::size_t renamed = 0;
  std::ptrdiff_t last_rename = -1;
  const auto count = static_cast<std::ptrdiff_t>(seen_.calls.size());
  for (std::ptrdiff_t at = 0; at < count; ++at) {
    const std::string& call = seen_.calls[static_cast<std::size_t>(at)];
    if (!call.starts_with("rename ")) continue;
    const std::string path = call.substr(call.find(' ') + 1);
    const std::ptrdiff_t written = last("write", path, at);
    EXPECT_GE(written, 0) << path;
    EXPECT_GT(last("sync", path, at), written) << path << " is renamed without having been synchronised";
    EXPECT_GT(last("sync", fs::path(path).parent_path().string(), count), at)
        << "the folder of " << path << " is not synchronised afterwards";
    ++renamed;
    last_rename = at;
  }
  EXPECT_EQ(renamed, what_.writes.size() + (what_.archived ? 1U : 0U)) << "the waiting match among them";
  if (what_.apart) return;
  // Of files that belong together all are safe before the first is renamed.
  const auto first = std::find_if(seen_.calls.begin(), seen_.calls.end(),
                                  [](const std::string& call) { return call.starts_with("rename "); });
  for (auto call = first; call != seen_.calls.begin() + last_rename; ++call) {
    EXPECT_FALSE(call->starts_with("write ")) << *call;
    const bool file = call->starts_with("sync ") && !fs::is_directory(call->substr(call->find(' ') + 1));
    EXPECT_FALSE(file) << *call << " behind the first renaming";
  }
}

INSTANTIATE_TEST_SUITE_P(Acts, Written, ::testing::ValuesIn(writing_act_names()),
                         [](const auto& of) { return of.param; });
INSTANTIATE_TEST_SUITE_P(Acts, Counted, ::testing::ValuesIn(act_names()), [](const auto& of) { return of.param; });

}  // namespace
}  // namespace velorin::testing
