// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever call on a file fails or is cut short: each file is the old one or the new one, whole, the program says what
// went wrong, nothing is left over, and the next run works.
#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <iostream>
#include <regex>
#include <set>
#include <sstream>
#include <system_error>
#include <utility>

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
    {"mkdir", ENOSPC, false}, {"chmod", EIO, false},   {"times", EIO, false},    {"list", EIO, false},
    {"hint", EIO, false},     {"hint", ENOSPC, false}, {"hint", ENOSYS, false}};

/// Those that end a replacement, of which the clean-up may fail, too.
constexpr failing all_endings[] = {{"write", EIO, false},   {"write", ENOSPC, true}, {"sync", EIO, false},
                                   {"sync", EIO, true},     {"close", EIO, false},   {"chmod", EIO, false},
                                   {"times", EIO, false},   {"hint", EIO, false},    {"rename", EIO, false},
                                   {"rename", ENOSPC, true}};

/// The library of the archive makes many calls, all of which it answers in the same few ways.
constexpr long archive_calls_passed_over = 4;

/// No file can be taken away.
constexpr const char* no_clean_up = "unlink:1:5:lasting";

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

  /// Makes the n-th call fail in every way for which there is an n-th call; `more` is another fault or "".
  void inject(const failing& how, const std::string& more = {}) {
    uncleaned_ = !more.empty();
    for (long n = 1;; ++n) {
      SCOPED_TRACE(GetParam() + ": " + how.kind + " " + std::to_string(n) + " " + cause(how) +
                   (how.lasting ? " lasting" : "") + (uncleaned_ ? ", nothing taken away" : ""));
      bench_.lay_out(what_.before);
      const ending end = run_with(std::string(how.kind) + ":" + std::to_string(n) + ":" +
                                  (how.error == 0 ? "short" : std::to_string(how.error)) +
                                  (how.lasting ? ":lasting" : "") + (uncleaned_ ? "," + more : ""));
      const std::vector<noted_call> calls = notes_in(bench_.beside("notes"));
      ASSERT_FALSE(calls.empty()) << "nothing was counted";
      hits_.clear();
      for (const noted_call& call : calls) {
        if (call.failed && call.kind == how.kind) hits_.push_back(call.file);
      }
      if (hits_.empty()) {
        EXPECT_EQ(end.status, 0) << end.err;
        return;
      }
      leave_out_later_ones();
      ++injected_;
      judge(how, end);
      if (uncleaned_) run_blocked();
      run_again();
      if (HasFatalFailure()) return;
      if (of_archive(hits_.back())) n += archive_calls_passed_over;
    }
  }

  static bool of_archive(const fs::path& file) { return file.string().find(".matches") != std::string::npos; }

  /// The archive takes in what waits when the act has ended, well or not. A call that fails there ends nothing, unless
  /// it is the only one.
  void leave_out_later_ones() {
    if (std::all_of(hits_.begin(), hits_.end(), of_archive)) return;
    std::erase_if(hits_, of_archive);
  }

  /// Runs the act with these calls failing.
  ending run_with(const std::string& faults) {
    fs::remove(bench_.beside("notes"));
    program started = what_.on(bench_);
    started.environment = {"LD_PRELOAD=" VELORIN_FAULT_PRELOAD, "VELORIN_FAULT_FOLDER=" + bench_.data().string(),
                           "VELORIN_FAULT_NOTES=" + bench_.beside("notes").string(), "VELORIN_FAULT=" + faults};
    return bench_.run(started);
  }

  static std::string cause(const failing& how) {
    return how.error == 0 ? "short" : std::generic_category().message(how.error);
  }

  void judge(const failing& how, const ending& end) {
    found_ = bench_.found();
    half_told_ = false;
    EXPECT_EQ(end.signal, 0) << "the program was ended by a signal";
    const bool all_new = found_ == new_;
    if (how.error == 0 || how.error == EINTR || how.error == ENOSYS) {
      EXPECT_EQ(end.status, 0) << "an interruption is no failure, nor is a hint that the system knows not: " << end.err;
    }
    if (how.kind == std::string("hint") && how.error != ENOSYS) {
      EXPECT_EQ(end.status, 1) << "the system could not write";
    }
    if (end.status == 0) {
      EXPECT_EQ(end.err, "");
      EXPECT_TRUE(all_new) << "said to be done, and is not";
    } else {
      EXPECT_EQ(end.status, 1);
      // Nobody knows whether a folder that cannot be synchronised will last. Careers and records of a match that the
      // archive could not be told of are done with by the next run.
      half_told_ = all_new && is_of_archive(named(hits_.back()));
      EXPECT_TRUE(!all_new || half_told_ || is_folder(hits_.back())) << "done, and said not to be: " << end.err;
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
    if (is_folder(hits_.back())) {
      for (const std::string& file : what_.writes) names.push_back(fs::path(file).filename().string());
      if (what_.name.starts_with("dump")) names.emplace_back("small.team");
    }
    EXPECT_TRUE(std::any_of(names.begin(), names.end(),
                            [&](const auto& name) { return message.find(name) != std::string::npos; }))
        << message << "does not tell of " << hits_.front();
  }

  /// Also one that the act makes, and that is gone again.
  bool is_folder(const fs::path& file) const {
    const auto made = new_.find(fs::relative(file, bench_.data()).string());
    return fs::is_directory(file) || (made != new_.end() && made->second == a_folder);
  }

  /// Each file is the old one or the new one.
  void judge_files(const failing& how) {
    const file_map as_left = std::exchange(found_, what_.settled(found_));
    if (found_ != as_left) {
      EXPECT_TRUE(std::string(how.kind) == "rename" && how.lasting) << "an exchange was not taken back";
    }
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
    cut_off_ = changed != 0 && changed < all && !what_.apart;
    if (cut_off_) {
      EXPECT_TRUE(std::string(how.kind) == "rename" && how.lasting)
          << changed << " of " << all << " files that belong together are new";
    }
    for (const auto& [name, bytes] : found_) {
      const bool may_stay = what_.may_leave(name) && (uncleaned_ || (cut_off_ && name.ends_with(".next")));
      EXPECT_TRUE(names.contains(name) || may_stay) << name << " is left over";
    }
  }

  /// While nothing can be taken away, what has been left under "<name>.new" stops the act, which says so.
  void run_blocked() {
    std::vector<std::string> in_the_way;
    for (const auto& [name, bytes] : found_) {
      if (name.ends_with(".new")) in_the_way.push_back(fs::path(name).filename().string());
    }
    if (in_the_way.empty()) return;
    ++blocked_;
    const ending end = run_with(no_clean_up);
    EXPECT_EQ(end.status, 1);
    EXPECT_EQ(std::count(end.err.begin(), end.err.end(), '\n'), 1) << end.err;
    EXPECT_TRUE(std::any_of(in_the_way.begin(), in_the_way.end(), [&](const auto& name) {
      return end.err.find("File exists (file " + name + ")") != std::string::npos;
    })) << end.err;
    found_ = bench_.found();
    for (const std::string& name : what_.writes) {
      EXPECT_TRUE(!found_.contains(name) || is_whole(name)) << name << " is neither the old file nor the new one";
    }
    if (!what_.apart) {
      EXPECT_FALSE(std::any_of(what_.writes.begin(), what_.writes.end(), [&](const auto& name) {
        return found_.contains(name) && !is_old(name);
      })) << "a file is new all the same";
    }
  }

  bool is_old(const std::string& name) const {
    return what_.before.contains(name) && found_.at(name) == what_.before.at(name);
  }
  bool is_whole(const std::string& name) const { return is_old(name) || found_.at(name) == new_.at(name); }

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
    if (!half_told_) return;
    const ending sound = archive_check(bench_);
    EXPECT_EQ(sound.status, 0) << sound.out << sound.err;
  }

  workbench bench_;
  act what_;
  file_map new_;
  file_map found_;
  std::map<file_map, file_map> next_;
  std::vector<fs::path> hits_;  // the files of the calls that failed
  bool cut_off_ = false;        // some files that belong together are new, and some old
  bool half_told_ = false;      // careers and records are new, and the archive was not told
  bool uncleaned_ = false;      // nothing can be taken away
  int injected_ = 0;
  int blocked_ = 0;  // further runs that a file left over stopped
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
  std::cout << GetParam() << ": " << injected_ << " faults\n";
  EXPECT_GT(injected_, what_.spare.empty() ? 50 : 20);
}

TEST_P(Faults, WithoutCleaningUpLeaveOldFilesOrNewOnes) {
  for (const failing& how : all_endings) {
    inject(how, no_clean_up);
    if (HasFatalFailure()) return;
  }
  RecordProperty("faults", injected_);
  RecordProperty("blocked", blocked_);
  std::cout << GetParam() << ": " << injected_ << " faults without cleaning up, " << blocked_
            << " of them stopped the next run\n";
  EXPECT_GT(injected_, 2);
  if (!what_.exports && what_.spare.empty()) {
    EXPECT_GT(blocked_, 2);
  }
}

class TakenBack : public Faults {};

// Whichever of the two elevens has moved on then, the next exchange finds both.
TEST_P(TakenBack, HalfOnlyLosesNoFile) {
  for (const char* faults : {"rename:2:5,rename:3:5", "rename:3:5,rename:4:5"}) {
    SCOPED_TRACE(faults);
    bench_.lay_out(what_.before);
    const ending end = run_with(faults);
    EXPECT_EQ(end.status, 1);
    EXPECT_NE(end.err.find("cannot be exchanged: Input/output error"), std::string::npos) << end.err;
    found_ = bench_.found();
    EXPECT_TRUE(found_.contains(what_.spare));
    const file_map settled = what_.settled(found_);
    ASSERT_TRUE(settled == what_.before || settled == new_);
    EXPECT_EQ(bench_.run(what_.on(bench_)).status, 0);
    EXPECT_TRUE(bench_.found() == after(what_, settled));
  }
}

INSTANTIATE_TEST_SUITE_P(Acts, TakenBack, ::testing::Values("exchange"), [](const auto& of) { return of.param; });
INSTANTIATE_TEST_SUITE_P(Acts, Faults, ::testing::ValuesIn(act_names()), [](const auto& of) { return of.param; });

}  // namespace
}  // namespace velorin::testing
