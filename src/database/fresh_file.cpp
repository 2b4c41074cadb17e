// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/fresh_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <system_error>

namespace velorin {

namespace fs = std::filesystem;

namespace {

/// The rights of a new file.
mode_t usual_rights() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

bool synchronise(const fs::path& file) {
  const int descriptor = ::open(file.c_str(), O_RDONLY | O_CLOEXEC);
  if (descriptor < 0) return false;
  const bool done = fsync(descriptor) == 0;
  ::close(descriptor);
  return done;
}

}  // namespace

fresh_file::fresh_file(const fs::path& target) : target_(target) {
  std::error_code error;
  if (fs::is_symlink(target, error)) {
    const fs::path real = fs::canonical(target, error);
    if (!error) target_ = real;
  }
  const bool exists = fs::exists(target_, error);
  const bool plain = !exists || fs::is_regular_file(target_, error);
  if (plain && open_beside()) return;
  if (exists) out_.open(target_, std::ios::binary);
  if (!out_.is_open()) out_.setstate(std::ios::failbit);
}

fresh_file::~fresh_file() {
  out_.close();
  std::error_code ignored;
  if (!beside_.empty()) fs::remove(beside_, ignored);
}

bool fresh_file::open_beside() {
  std::string name = target_.native() + ".XXXXXX";
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) return false;
  struct stat old {};
  fchmod(descriptor, stat(target_.c_str(), &old) == 0 ? old.st_mode & 07777 : usual_rights());
  ::close(descriptor);
  beside_ = name;
  out_.open(beside_, std::ios::binary);
  return true;
}

bool fresh_file::put_in_place() {
  out_.flush();
  if (!out_.good()) return false;
  out_.close();
  if (beside_.empty()) return true;
  if (!synchronise(beside_)) return false;
  std::error_code error;
  fs::rename(beside_, target_, error);
  if (!error) beside_.clear();
  return !error;
}

}  // namespace velorin
