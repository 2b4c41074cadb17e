// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <fcntl.h>
#include <sys/fsuid.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>

namespace velorin::testing {

/// No file grows beyond `bytes` while this lives, as on a full disk.
class small_disk {
 public:
  explicit small_disk(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    handler_ = std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~small_disk() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, handler_);
  }
  small_disk(const small_disk&) = delete;
  small_disk& operator=(const small_disk&) = delete;

 private:
  rlimit before_{};
  void (*handler_)(int) = nullptr;
};

/// Files are used with the rights of an ordinary user while this lives, by the superuser, too.
class other_user {
 public:
  other_user() {
    if (::geteuid() == 0) ::setfsuid(nobody);
  }
  ~other_user() { ::setfsuid(::geteuid()); }
  other_user(const other_user&) = delete;
  other_user& operator=(const other_user&) = delete;

  /// False where the system does not let the superuser do without his rights.
  static bool holds() { return ::geteuid() != 0 || ::setfsuid(static_cast<uid_t>(-1)) == static_cast<int>(nobody); }

 private:
  static constexpr uid_t nobody = 65534;
};

/// A folder that takes no new file while this lives, from the superuser neither.
class closed_folder {
 public:
  explicit closed_folder(const std::filesystem::path& folder) : folder_(folder) {
    ::chmod(folder_.c_str(), 0555);
    user_.emplace();
    const std::filesystem::path probe = folder_ / "probe";
    const int opened = ::open(probe.c_str(), O_WRONLY | O_CREAT, 0600);
    holds_ = opened < 0;
    if (holds_) return;
    ::close(opened);
    ::unlink(probe.c_str());
  }
  ~closed_folder() {
    user_.reset();
    ::chmod(folder_.c_str(), 0755);
  }
  closed_folder(const closed_folder&) = delete;
  closed_folder& operator=(const closed_folder&) = delete;

  /// False where the system lets files be made all the same.
  bool holds() const { return holds_; }

 private:
  std::filesystem::path folder_;
  std::optional<other_user> user_;
  bool holds_ = false;
};

}  // namespace velorin::testing
