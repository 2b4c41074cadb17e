// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever call on a file fails or is cut short: each file is the old one or the new one, whole, the program says what
// went wrong, nothing is left over, and the next run works.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <regex>
#include <set>
#include <sstream>
#include <system_error>

#include "faults/acts.h"

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// A way in which calls of a kind fail. Error 0: half of the bytes.
struct failing {
  const char* kind;
  int error;
  bool lasting;
};

constexpr failing all_failings[] = {
    {"open", EIO, false},     {"open", EINTR, false},  {"open", EMFILE, false},  {"open", EACCES, false},
    {"open", ENOSPC, false},  {"open", EACCES, true},  {"open", ENOSPC, true},   {"read", EIO, false},
    {"read", EIO, true},      {"read", EINTR, false},  {"read", 0, false},       {"read", 0, true},
    {"write", ENOSPC, true},  {"write", EIO, false},   {"write", ENOSPC, false}, {"write", EINTR, false},
    {"write", 0, false},      {"write", 0, true},      {"sync", EIO, false},     {"sync", ENOSPC, true},
    {"sync", EINTR, false},   {"rename", EIO, false},  {"rename", ENOSPC, true}, {"rename", EINTR, false},
    {"close", EIO, false},    {"close", EINTR, false}, {"unlink", EIO, false},   {"unlink", EIO, true},
    {"lock", EINTR, false},   {"lock", ENOLCK, false}, {"stat", EIO, false},     {"stat", EIO, true},
    {"mkdir", ENOSPC, false}, {"chmod", EIO, false},   {"list", EIO, false}};

/// A call that the library noted.
struct noted_call {
  std::string kind;
  fs::path file;
  bool failed = false;
};

std::vector<noted_call> notes_in(const fs::path& file) {
  std::vector<noted_call> calls;
  std::istringstream lines(fs::exists(file) ? bytes_of_file(file) : "");
  for (std::string line; std::getline(lines, line);) {
    noted_call call;
    call.failed = line.ends_with(" !");
    if (call.failed) line.resize(line.size() - 2);
    call.kind = line.substr(0, line.find(' '));
    call.file = line.substr(line.find(' ') + 1);
    calls.push_back(std::move(call));
  }
  return calls;
}

/// The file that a call on this one is about: without what marks a file as one beside it.
std::string named(const fs::path& file) {
  return std::regex_replace(file.filename().string(), std::regex("\\.(new|next|[A-Za-z0-9]{6}|XXXXXX)$"), "");
}

class Faults : public ::testing::TestWithParam<std::string> {
 protected:
  void SetUp() override {
    what_ = act_of(GetParam());
    new_ = after(what_, what_.before);
    next_[what_.before] = new_;
  }

  /// Makes the n-th call fail in every way for which there is an n-th call.
  void inject(const failing& how) {
    for (long n = 1;; ++n) {
      SCOPED_TRACE(GetParam() + ": " + how.kind + " " + std::to_string(n) + " " + cause(how) +
                   (how.lasting ? " lasting" : ""));
      bench_.lay_out(what_.before);
      fs::remove(bench_.beside("notes"));
      program started = what_.on(bench_);
      started.environment = {"LD_PRELOAD=" VELORIN_FAULT_PRELOAD, "VELORIN_FAULT_FOLDER=" + bench_.data().string(),
                             "VELORIN_FAULT_NOTES=" + bench_.beside("notes").string(),
                             "VELORIN_FAULT=" + std::string(how.kind) + ":" + std::to_string(n) + ":" +
                                 (how.error == 0 ? "short" : std::to_string(how.error)) +
                                 (how.lasting ? ":lasting" : "")};
      const ending end = bench_.run(started);
      const std::vector<noted_call> calls = notes_in(bench_.beside("notes"));
      ASSERT_FALSE(calls.empty()) << "nothing was counted";
      hits_.clear();
      for (const noted_call& call : calls) {
        if (call.failed) hits_.push_back(call.file);
      }
      if (hits_.empty()) {
        EXPECT_EQ(end.status, 0) << end.err;
        return;
      }
      ++injected_;
      judge(how, end);
      run_again();
      if (HasFatalFailure()) return;
    }
  }

  static std::string cause(const failing& how) {
    return how.error == 0 ? "short" : std::generic_category().message(how.error);
  }

  void judge(const failing& how, const ending& end) {
    found_ = bench_.found();
    EXPECT_EQ(end.signal, 0) << "the program was ended by a signal";
    const bool all_new = found_ == new_;
    if (how.error == 0 || how.error == EINTR) {
      EXPECT_EQ(end.status, 0) << "an interruption is no failure: " << end.err;
    }
    if (end.status == 0) {
      EXPECT_EQ(end.err, "");
      EXPECT_TRUE(all_new) << "said to be done, and is not";
    } else {
      EXPECT_EQ(end.status, 1);
      // Nobody knows whether a folder that cannot be synchronised will last.
      EXPECT_TRUE(!all_new || fs::is_directory(hits_.back())) << "done, and said not to be: " << end.err;
      judge_message(how, end.err);
    }
    judge_files(how);
  }

  void judge_message(const failing& how, const std::string& message) {
    EXPECT_EQ(std::count(message.begin(), message.end(), '\n'), 1) << message;
    EXPECT_NE(message.find(cause(how)), std::string::npos) << message << "does not tell of " << hits_.front();
    std::vector<std::string> names;
    for (const fs::path& file : hits_) names.push_back(named(file));
    // A folder is called by the name of a file for which it is needed.
    if (fs::is_directory(hits_.back()) || !fs::exists(hits_.back())) {
      for (const std::string& file : what_.writes) names.push_back(fs::path(file).filename().string());
    }
    EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                            [&](const auto& name) { return message.find(name) != std::string::npos; }))
        << message << "does not tell of " << hits_.front();
  }

  /// Each file is the old one or the new one.
  void judge_files(const failing& how) {
    std::set<std::string> names;
    for (const auto& [name, bytes] : what_.before) names.insert(name);
    for (const auto& [name, bytes] : new_) names.insert(name);
    const auto same = [](const file_map& one, const file_map& other, const std::string& name) {
      const auto a = one.find(name);
      const auto b = other.find(name);
      return a == one.end() ? b == other.end() : b != other.end() && a->second == b->second;
    };
    int changed = 0;
    for (const std::string& name : names) {
      const bool is_old = same(found_, what_.before, name);
      const bool is_new = same(found_, new_, name);
      EXPECT_TRUE(is_old || is_new) << name << " is neither the old file nor the new one";
    }
    for (const std::string& name : what_.writes) changed += same(found_, what_.before, name) ? 0 : 1;
    const int all = static_cast<int>(what_.writes.size());
    cut_off_ = changed != 0 && changed < all && !what_.exports;
    if (cut_off_) {
      EXPECT_EQ(std::string(how.kind), "rename") << changed << " of " << all << " files that belong together are new";
    }
    for (const auto& [name, bytes] : found_) {
      const bool to_be_renamed = cut_off_ && name.ends_with(".next");
      EXPECT_TRUE(names.contains(name) || to_be_renamed) << name << " is left over";
    }
  }

  /// Without a fault the act works on what is there, as on the same files without anything left over. A replacement
  /// that was cut off between two renames is finished first.
  void run_again() {
    file_map clean = cut_off_ ? new_ : found_;
    std::erase_if(clean, [&](const auto& file) { return !new_.contains(file.first); });
    if (!next_.contains(clean)) next_[clean] = after(what_, clean);
    const ending end = bench_.run(what_.on(bench_));
    EXPECT_EQ(end.status, 0) << end.err;
    EXPECT_EQ(end.err, "");
    file_map now = bench_.found();
    if (what_.exports) {
      std::erase_if(now, [&](const auto& file) { return !new_.contains(file.first) && found_.contains(file.first); });
    }
    EXPECT_TRUE(now == next_[clean]) << "the next run does not do its work";
  }

  workbench bench_;
  act what_;
  file_map new_;
  file_map found_;
  std::map<file_map, file_map> next_;
  std::vector<fs::path> hits_;  // the files of the calls that failed
  bool cut_off_ = false;        // some files that belong together are new, and some old
  int injected_ = 0;
};

TEST_P(Faults, LeaveOldFilesOrNewOnes) {
  ASSERT_NE(what_.before, new_);
  for (const failing& how : all_failings) {
    const int before = injected_;
    inject(how);
    if (HasFatalFailure()) return;
    RecordProperty(std::string(how.kind) + " " + cause(how) + (how.lasting ? " lasting" : ""), injected_ - before);
  }
  RecordProperty("faults", injected_);
  EXPECT_GT(injected_, 50);
}

INSTANTIATE_TEST_SUITE_P(Acts, Faults, ::testing::ValuesIn(act_names()), [](const auto& of) { return of.param; });

}  // namespace
}  // namespace velorin::testing
