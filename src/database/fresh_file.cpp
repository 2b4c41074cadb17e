// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/fresh_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace fs = std::filesystem;

namespace {

/// The rights of a new file.
mode_t usual_rights() {
  const mode_t mask = umask(0);
  umask(mask);
  return 0666 & ~mask;
}

/// A new file whose name ends in "XXXXXX", which is filled in; -1 if it cannot be made.
int open_new(std::string& name) {
  const std::string pattern = name;
  int number = -1;
  do {
    name = pattern;
    number = ::mkostemp(name.data(), O_CLOEXEC);
  } while (number < 0 && errno == EINTR);
  return number;
}

/// The number of standard output or standard error, if it goes to this file; else -1.
int standard_stream(const struct stat& file) {
  for (const int number : {STDOUT_FILENO, STDERR_FILENO}) {
    struct stat open {};
    if (::fstat(number, &open) == 0 && open.st_dev == file.st_dev && open.st_ino == file.st_ino) return number;
  }
  return -1;
}

/// The folder takes no new files, or none with a name that much longer.
bool takes_none(int cause) { return cause == EACCES || cause == EPERM || cause == EROFS || cause == ENAMETOOLONG; }

}  // namespace

fresh_file::fresh_file(const fs::path& target) : named_(target), target_(target) {
  struct stat old {};
  const bool exists = ::stat(named_.c_str(), &old) == 0;
  if (!exists && errno != ENOENT) refuse(errno);
  // A name of the system for an open file, such as that of a pipe, may be a link that leads nowhere.
  if (exists && !S_ISREG(old.st_mode)) {
    open_straight();
    return;
  }
  if (const int stream = exists ? standard_stream(old) : -1; stream >= 0) {
    file_.take(::fcntl(stream, F_DUPFD_CLOEXEC, 0));
    if (!file_.open()) refuse(errno);
    return;
  }
  target_ = real_file(named_);
  if (exists && !may_be_written(target_)) refuse(errno);
  if (!open_beside()) {
    if (!exists || !takes_none(errno)) refuse(errno);
    open_straight();
    return;
  }
  if (::fchmod(file_.number(), exists ? old.st_mode & 07777 : usual_rights()) == 0) return;
  const int cause = errno;
  ::unlink(beside_.c_str());
  refuse(cause);
}

fresh_file::~fresh_file() {
  if (!beside_.empty()) ::unlink(beside_.c_str());
}

bool fresh_file::open_beside() {
  std::string name = target_.native() + ".XXXXXX";
  file_.take(open_new(name));
  if (file_.open()) beside_ = name;
  return file_.open();
}

void fresh_file::open_straight() {
  file_.take(open_file(target_, O_WRONLY | O_TRUNC));
  if (!file_.open()) refuse(errno);
}

void fresh_file::require_good() const {
  if (!out_.good()) refuse(buffer_.cause());
}

void fresh_file::refuse(std::string_view tried, int cause) const {
  const std::string name = named_.string();
  throw run_time_error(failure::file, fmt::format("{}: {}", tried, std::generic_category().message(cause)),
                       {from_utf8(name).value_or(name), 0, {}, {}});
}

void fresh_file::put_in_place() {
  out_.flush();
  require_good();
  // What is no plain file need not know how to synchronise.
  if (!synchronise_file(file_.number()) && !(beside_.empty() && (errno == EINVAL || errno == ENOTSUP))) refuse(errno);
  if (!file_.close()) refuse(errno);
  if (beside_.empty()) return;
  if (!rename_file(beside_, target_)) refuse("The file cannot be replaced", errno);
  beside_.clear();
  if (synchronise_folder(folder_of(target_))) return;
  refuse("The folder of the file cannot be synchronised", errno);
}

}  // namespace velorin
