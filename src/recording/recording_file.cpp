// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recording_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <string>
#include <utility>

#include "database/whole_file.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

[[noreturn]] void raise_in_use(const std::filesystem::path& file) {
  throw run_time_error(failure::file, "Another program plays this game",
                       {.file = file_name_text(file), .record = 0, .field = {}, .player = {}});
}

/// Has the disk take the file, and its name where the folder is told. Returns the cause why it does not; 0 if it does.
int put_on_disk(int number, const std::filesystem::path& folder) {
  // What is no file of a disk knows no such thing.
  if (::fdatasync(number) != 0 && errno != EINVAL && errno != EROFS) return errno;
  return folder.empty() || synchronise_folder(folder) ? 0 : errno;
}

}  // namespace

recording_file::recording_file() : settler_([this] { write_back(); }) {}

recording_file::~recording_file() {
  {
    const std::lock_guard hold(guard_);
    over_ = true;
  }
  changed_.notify_all();
  settler_.join();
}

void recording_file::take(int number) {
  const std::lock_guard hold(guard_);
  file_.take(number);
  new_in_.clear();
  fault_ = 0;
}

void recording_file::begin(const recorded_beginning&) {
  std::error_code ignored;
  std::filesystem::create_directories(folder_of(path_), ignored);
  struct stat facts {};
  do {
    take(open_file(path_, O_WRONLY | O_CREAT | O_EXCL, 0666));
    if (!file_.open()) raise_file_error("The game cannot be recorded", errno, path_);
    // Somebody may just look whether it is in use, or take it away for an empty one.
    while (::flock(file_.number(), LOCK_EX) != 0) {
      if (errno != EINTR) raise_in_use(path_);
    }
  } while (::fstat(file_.number(), &facts) == 0 && facts.st_nlink == 0);
  length_ = 0;
  const std::lock_guard hold(guard_);
  new_in_ = folder_of(path_);
}

recording recording_file::go_on(const std::filesystem::path& file) {
  take(open_file(file, O_WRONLY | O_NONBLOCK));
  path_ = file;
  if (!file_.open()) raise_file_error("The recording cannot be opened", errno, file);
  if (::flock(file_.number(), LOCK_EX | LOCK_NB) != 0) {
    take(-1);
    raise_in_use(file);
  }
  try {
    recording before = read_recording(file);
    length_ = before.whole_bytes;
    if (::ftruncate(file_.number(), static_cast<off_t>(length_)) != 0 ||
        ::lseek(file_.number(), static_cast<off_t>(length_), SEEK_SET) < 0) {
      raise_file_error("The recording cannot be written", errno, file);
    }
    return before;
  } catch (const run_time_error&) {
    take(-1);  // nobody plays it
    throw;
  }
}

void recording_file::append(std::string_view bytes) {
  if (!file_.open()) raise_file_error("The game cannot be recorded", EBADF, path_);
  int fault = 0;
  {
    const std::lock_guard hold(guard_);
    fault = std::exchange(fault_, 0);
  }
  if (fault != 0) raise_file_error("The game cannot be recorded", fault, path_);
  if (write_all(file_.number(), bytes)) {
    length_ += bytes.size();
    return;
  }
  const int cause = errno;
  // Nothing of it counts: where it is tried again, it follows on what was whole.
  if (::ftruncate(file_.number(), static_cast<off_t>(length_)) == 0) {
    ::lseek(file_.number(), static_cast<off_t>(length_), SEEK_SET);
  }
  raise_file_error("The game cannot be recorded", cause, path_);
}

void recording_file::settle() {
  {
    const std::lock_guard hold(guard_);
    to_settle_ = true;
  }
  changed_.notify_all();
}

void recording_file::end() {
  std::unique_lock hold(guard_);
  changed_.wait(hold, [this] { return !settling_; });
  if (file_.open()) put_on_disk(file_.number(), std::exchange(new_in_, {}));
  to_settle_ = false;
  // A file that had no room for a beginning is none.
  if (file_.open() && length_ == 0) ::unlink(path_.c_str());
  file_.close();
}

std::string recording_file::written() const {
  std::string bytes = read_file(path_).value_or("");
  if (bytes.size() < length_) raise_file_error("The recording cannot be read", EIO, path_);
  bytes.resize(length_);
  return bytes;
}

void recording_file::write_back() {
  std::unique_lock hold(guard_);
  for (;;) {
    changed_.wait(hold, [this] { return to_settle_ || over_; });
    if (over_) return;
    to_settle_ = false;
    if (!file_.open()) continue;
    settling_ = true;
    const int number = file_.number();
    const std::filesystem::path folder = std::exchange(new_in_, {});
    hold.unlock();
    const int fault = put_on_disk(number, folder);
    hold.lock();
    if (fault != 0) fault_ = fault;
    settling_ = false;
    changed_.notify_all();
  }
}

bool is_in_use(const std::filesystem::path& file) {
  const descriptor opened(open_file(file, O_RDONLY | O_NONBLOCK));
  return opened.open() && ::flock(opened.number(), LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
}

}  // namespace velorin
