// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/whole_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "database/file_calls.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

void raise_file_error(std::string_view tried, int cause, const std::filesystem::path& file) {
  throw run_time_error(failure::file, fmt::format("{}: {}", tried, std::generic_category().message(cause)),
                       {file_name_text(file), 0, {}, {}});
}

std::string file_name_text(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  return from_utf8(name).value_or(name);
}

std::optional<std::string> read_file(const std::filesystem::path& file) {
  const descriptor opened(open_file(file, O_RDONLY));
  if (!opened.open()) {
    if (errno == ENOENT) return std::nullopt;
    raise_file_error("The file cannot be opened", errno, file);
  }
  struct stat facts {};
  if (::fstat(opened.number(), &facts) != 0) raise_file_error("The file cannot be read", errno, file);
  std::string content;
  content.resize(static_cast<std::size_t>(facts.st_size) + 1);  // one more: the end shows without a further round
  std::size_t filled = 0;
  for (;;) {
    const ssize_t got = ::read(opened.number(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) raise_file_error("The file cannot be read", errno, file);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled == content.size()) content.resize(content.size() * 2);
  }
  content.resize(filled);
  return content;
}

void create_if_missing(const std::filesystem::path& file) {
  const descriptor opened(open_file(file, O_RDONLY | O_CREAT, 0666));
  if (!opened.open()) raise_file_error("The file cannot be created", errno, file);
}

folder_lock::folder_lock(const std::filesystem::path& file) {
  folder_ = open_file(folder_of(real_file(file)), O_RDONLY | O_DIRECTORY);
  if (folder_ < 0) raise_file_error("The folder of the file cannot be opened", errno, file);
  while (::flock(folder_, LOCK_EX) != 0) {
    if (errno == EINTR) continue;
    const int cause = errno;
    ::close(folder_);
    raise_file_error("The folder of the file cannot be locked", cause, file);
  }
}

folder_lock::~folder_lock() { ::close(folder_); }

staged_file::staged_file(const std::filesystem::path& target, std::string_view content)
    : target_(real_file(target)), beside_(target_) {
  beside_ += ".new";
  struct stat facts {};
  const bool existed = ::stat(target_.c_str(), &facts) == 0;
  if (!existed && errno != ENOENT && errno != ENOTDIR) {
    raise_file_error("The file cannot be looked at", errno, target_);
  }
  ::unlink(beside_.c_str());  // what a killed program has left
  descriptor opened(open_file(beside_, O_WRONLY | O_CREAT | O_EXCL, 0666));
  if (!opened.open()) raise_file_error("The file cannot be written", errno, target_);
  pending_ = true;
  int cause = 0;
  if (existed && ::fchmod(opened.number(), facts.st_mode & 07777) != 0) cause = errno;
  if (cause == 0 && !write_all(opened.number(), content)) cause = errno;
  if (cause == 0 && !synchronise_file(opened.number())) cause = errno;
  if (!opened.close() && cause == 0) cause = errno;
  if (cause != 0) {
    ::unlink(beside_.c_str());
    raise_file_error("The file cannot be written", cause, target_);
  }
}

staged_file::~staged_file() {
  if (pending_) ::unlink(beside_.c_str());
}

void staged_file::rename_over() {
  if (!rename_file(beside_, target_)) raise_file_error("The file cannot be replaced", errno, target_);
  pending_ = false;
}

void staged_file::synchronise() const {
  if (synchronise_folder(folder_of(target_))) return;
  raise_file_error("The folder of the file cannot be synchronised", errno, target_);
}

void staged_files::add(const std::filesystem::path& target, std::string_view content) {
  files_.push_back(std::make_unique<staged_file>(target, content));
}

void staged_files::put_in_place() {
  for (const auto& file : files_) file->rename_over();
  for (auto file = files_.begin(); file != files_.end(); ++file) {
    const bool done = std::any_of(files_.begin(), file, [&](const auto& earlier) { return earlier->beside(**file); });
    if (!done) (*file)->synchronise();
  }
  files_.clear();
}

void replace_file(const std::filesystem::path& target, std::string_view content) {
  staged_files staged;
  staged.add(target, content);
  staged.put_in_place();
}

}  // namespace velorin
