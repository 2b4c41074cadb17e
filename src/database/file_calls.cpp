// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/file_calls.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <system_error>
#include <utility>

#include "database/whole_file.h"

namespace velorin {

namespace {

/// Makes a call again while an interruption ends it.
template <typename Call>
auto uninterrupted(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

}  // namespace

int open_file(const std::filesystem::path& file, int flags, mode_t mode) {
  return uninterrupted([&] { return ::open(file.c_str(), flags | O_CLOEXEC, mode); });
}

bool write_all(int number, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = uninterrupted([&] { return ::write(number, content.data(), content.size()); });
    if (written < 0) return false;
    content.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

bool synchronise_file(int number) {
  return uninterrupted([&] { return ::fsync(number); }) == 0;
}

bool begin_to_synchronise(int number) {
  // Not every file system tells an error once more when it is asked to synchronise.
  return ::sync_file_range(number, 0, 0, SYNC_FILE_RANGE_WRITE) == 0 ||
         (errno != EIO && errno != ENOSPC && errno != EDQUOT);
}

bool rename_file(const std::filesystem::path& from, const std::filesystem::path& to) {
  return uninterrupted([&] { return std::rename(from.c_str(), to.c_str()); }) == 0;
}

bool synchronise_folder(const std::filesystem::path& folder) {
  const descriptor opened(open_file(folder, O_RDONLY | O_DIRECTORY));
  if (!opened.open()) return errno == EACCES;
  return synchronise_file(opened.number()) || errno == EINVAL || errno == ENOTSUP;
}

bool prepare_process() {
  for (const int number : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (::fcntl(number, F_GETFD) >= 0) continue;
    // The lowest free number is this one. What is read from there must not be writable, and the other way round.
    const int way = number == STDIN_FILENO ? O_WRONLY : O_RDONLY;
    if (uninterrupted([&] { return ::open("/dev/null", way); }) != number) return false;
  }
  return std::signal(SIGXFSZ, SIG_IGN) != SIG_ERR;
}

void descriptor::take(int number) {
  close();
  number_ = number;
}

bool descriptor::close() {
  if (!open()) return true;
  // An interrupted close has closed.
  return ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

std::filesystem::path real_file(const std::filesystem::path& file) {
  struct stat facts {};
  if (::lstat(file.c_str(), &facts) != 0) {
    if (errno == ENOENT || errno == ENOTDIR) return file;
    raise_file_error("The file cannot be looked at", errno, file);
  }
  if (!S_ISLNK(facts.st_mode)) return file;
  std::error_code failed;
  std::filesystem::path target = std::filesystem::canonical(file, failed);
  if (!failed) return target;
  if (failed != std::errc::no_such_file_or_directory) {
    raise_file_error("The link cannot be followed", failed.value(), file);
  }
  target = file;
  while (std::filesystem::is_symlink(std::filesystem::symlink_status(target, failed))) {
    const std::filesystem::path next = std::filesystem::read_symlink(target, failed);
    if (failed) raise_file_error("The link cannot be followed", failed.value(), file);
    target = folder_of(target) / next;
  }
  return target;
}

bool may_be_written(const std::filesystem::path& file) {
  // A pipe would wait for its reader.
  return descriptor(open_file(file, O_WRONLY | O_NONBLOCK)).open();
}

std::filesystem::path folder_of(const std::filesystem::path& file) {
  std::filesystem::path folder = file.parent_path();
  return folder.empty() ? "." : folder;
}

}  // namespace velorin
