// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/whole_file.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <set>
#include <system_error>

#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr std::size_t most_bytes = most_mebibytes << 20;

/// What the system tells of a file; nothing if there is none. Raises run_time_error (file).
std::optional<struct stat> status_of(const std::filesystem::path& file) {
  struct stat facts {};
  if (::stat(file.c_str(), &facts) == 0) return facts;
  if (errno != ENOENT && errno != ENOTDIR) raise_file_error("The file cannot be looked at", errno, file);
  return std::nullopt;
}

[[noreturn]] void raise_beyond_limit(const std::filesystem::path& file) {
  throw run_time_error(failure::file, fmt::format("The file cannot be read: it has more than {} MiB", most_mebibytes),
                       {file_name_text(file), 0, {}, {}});
}

/// Refuses what might block, never end or fill the memory.
void require_readable(const struct stat& facts, const std::filesystem::path& file) {
  if (S_ISDIR(facts.st_mode)) raise_file_error("The file cannot be read", EISDIR, file);
  if (!S_ISREG(facts.st_mode)) {
    throw run_time_error(failure::file, "The file cannot be read: it is a pipe, a device or the like",
                         {file_name_text(file), 0, {}, {}});
  }
  if (static_cast<std::uint64_t>(facts.st_size) > most_bytes) raise_beyond_limit(file);
}

bool same_time(const timespec& one, const timespec& other) {
  return one.tv_sec == other.tv_sec && one.tv_nsec == other.tv_nsec;
}

}  // namespace

occupant occupant_of(const std::filesystem::path& name) {
  struct stat facts {};
  if (::lstat(name.c_str(), &facts) == 0) return S_ISREG(facts.st_mode) ? occupant::plain_file : occupant::other;
  if (errno != ENOENT && errno != ENOTDIR) raise_file_error("The file cannot be looked at", errno, name);
  return occupant::none;
}

void raise_file_error(std::string_view tried, int cause, const std::filesystem::path& file) {
  throw run_time_error(failure::file, fmt::format("{}: {}", tried, std::generic_category().message(cause)),
                       {file_name_text(file), 0, {}, {}});
}

std::string file_name_text(const std::filesystem::path& file) {
  const std::string name = file.filename().string();
  return from_utf8(name).value_or(name);
}

std::optional<std::string> read_file(const std::filesystem::path& file) {
  // A pipe would wait for its writer.
  const descriptor opened(open_file(file, O_RDONLY | O_NONBLOCK));
  if (!opened.open()) {
    if (errno == ENOENT) return std::nullopt;
    raise_file_error("The file cannot be opened", errno, file);
  }
  struct stat facts {};
  if (::fstat(opened.number(), &facts) != 0) raise_file_error("The file cannot be read", errno, file);
  require_readable(facts, file);
  std::string content;
  content.resize(static_cast<std::size_t>(facts.st_size) + 1);  // one more: the end shows without a further round
  std::size_t filled = 0;
  for (;;) {
    const ssize_t got = ::read(opened.number(), content.data() + filled, content.size() - filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) raise_file_error("The file cannot be read", errno, file);
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
    if (filled > most_bytes) raise_beyond_limit(file);
    if (filled == content.size()) content.resize(content.size() * 2);
  }
  content.resize(filled);
  return content;
}

void create_if_missing(const std::filesystem::path& file) {
  const descriptor opened(open_file(file, O_RDONLY | O_CREAT | O_NONBLOCK, 0666));
  if (!opened.open()) raise_file_error("The file cannot be created", errno, file);
}

staged_files::staged_files(const std::vector<std::filesystem::path>& targets) {
  for (const std::filesystem::path& target : targets) {
    staged_file file{real_file(target), {}, descriptor()};
    file.beside = file.target;
    file.beside += files_.empty() ? ".new" : ".next";
    files_.push_back(std::move(file));
  }
  settle();
}

staged_files::~staged_files() {
  for (staged_file& file : files_) file.opened.close();
  if (!begun_) remove_beside();
}

void staged_files::settle() {
  const auto is_beside = [](const staged_file& file) { return occupant_of(file.beside) == occupant::plain_file; };
  const bool cut_off = !is_beside(files_.front()) && std::any_of(files_.begin() + 1, files_.end(), is_beside);
  if (!cut_off) return remove_beside();
  const std::optional<struct stat> first = status_of(files_.front().target);
  for (const staged_file& file : files_) {
    if (!is_beside(file)) continue;
    const std::optional<struct stat> rest = status_of(file.beside);
    if (!first || !rest || !same_time(first->st_mtim, rest->st_mtim)) {
      ::unlink(file.beside.c_str());
    } else if (!rename_file(file.beside, file.target)) {
      raise_file_error("The file cannot be replaced", errno, file.target);
    }
  }
}

void staged_files::remove_beside() const {
  for (auto file = files_.rbegin(); file != files_.rend(); ++file) {
    // A file that stays tells that those before it must stay, too. A folder tells nothing.
    if (::unlink(file->beside.c_str()) != 0 && errno != ENOENT && errno != EISDIR) return;
  }
}

void staged_files::write(std::string_view content) {
  staged_file& file = files_[written_++];
  const std::optional<struct stat> old = status_of(file.target);
  if (old && !may_be_written(file.target)) raise_file_error("The file cannot be written", errno, file.target);
  file.opened.take(open_file(file.beside, O_WRONLY | O_CREAT | O_EXCL, 0666));
  const int number = file.opened.number();
  // One that cannot be taken away is in the way.
  if (!file.opened.open())
    raise_file_error("The file cannot be written", errno, errno == EEXIST ? file.beside : file.target);
  if ((old && ::fchmod(number, old->st_mode & 07777) != 0) || !write_all(number, content) || !mark(number) ||
      (files_.size() > 1 && !begin_to_synchronise(number))) {
    raise_file_error("The file cannot be written", errno, file.target);
  }
}

bool staged_files::mark(int number) {
  if (written_ > 1) {
    const timespec times[] = {{0, UTIME_OMIT}, time_};
    return ::futimens(number, times) == 0 || errno == ENOSYS || errno == ENOTSUP || errno == EPERM;
  }
  struct stat facts {};
  if (files_.size() == 1) return true;
  if (::fstat(number, &facts) != 0) return false;
  time_ = facts.st_mtim;
  return true;
}

void staged_files::synchronise() {
  for (staged_file& file : files_) {
    if (!synchronise_file(file.opened.number()) || !file.opened.close()) {
      raise_file_error("The file cannot be written", errno, file.target);
    }
  }
}

void staged_files::put_in_place() {
  synchronise();
  for (const staged_file& file : files_) {
    bool renamed = rename_file(file.beside, file.target);
    // Behind the first there is no way back, so one more try.
    if (!renamed && begun_) renamed = rename_file(file.beside, file.target);
    if (!renamed) raise_file_error("The file cannot be replaced", errno, file.target);
    begun_ = true;
  }
  synchronise_folders();
}

void staged_files::synchronise_folders() const {
  std::set<std::filesystem::path> done;
  for (const staged_file& file : files_) {
    if (!done.insert(folder_of(file.target)).second || synchronise_folder(folder_of(file.target))) continue;
    raise_file_error("The folder of the file cannot be synchronised", errno, file.target);
  }
}

void replace_file(const std::filesystem::path& target, std::string_view content) {
  staged_files staged({target});
  staged.write(content);
  staged.put_in_place();
}

}  // namespace velorin
