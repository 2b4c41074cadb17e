// SPDX-License-Identifier: GPL-3.0-or-later
// A library to be loaded ahead of the others (LD_PRELOAD). It makes the n-th call of a kind fail or be cut short, and
// notes every call. Only calls on files below one folder count. The environment says what to do:
//   VELORIN_FAULT_FOLDER  the folder, an absolute path
//   VELORIN_FAULT         "kind:n:how" or "kind:n:how:lasting", or several of these with commas between them; without
//                         it calls are only noted. `how` is the number of the error or, for read and write, "short":
//                         half of the bytes. Lasting: from the n-th call on
//   VELORIN_FAULT_NOTES   a file outside the folder; a line a call: its kind, its file, "!" where it was made to fail
// Kinds: open read write sync rename close unlink lock stat mkdir chmod times list hint. A rename is noted by the old
// name.
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr int most_files = 1024;

/// Calls of one kind that are to fail.
struct fault {
  std::string kind;
  long number = 0;
  int error = 0;
  bool cut_short = false;
  bool lasting = false;
  long calls = 0;  ///< of this kind so far
};

/// What the environment asks for.
struct fault_plan {
  std::string folder;
  std::vector<fault> faults;
  int notes = -1;
};

std::vector<std::string> parts_of(const std::string& text, char mark) {
  std::vector<std::string> parts(1);
  for (const char c : text) {
    if (c == mark) {
      parts.emplace_back();
    } else {
      parts.back() += c;
    }
  }
  return parts;
}

fault_plan plan_of_environment() {
  fault_plan plan;
  const auto text_of = [](const char* name) {
    const char* const value = std::getenv(name);
    return std::string(value == nullptr ? "" : value);
  };
  plan.folder = text_of("VELORIN_FAULT_FOLDER");
  const std::string notes = text_of("VELORIN_FAULT_NOTES");
  if (!notes.empty()) {
    // Far from the numbers that the program sees in an undisturbed run.
    const long opened = ::syscall(SYS_openat, AT_FDCWD, notes.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0666);
    plan.notes = static_cast<int>(::syscall(SYS_fcntl, opened, F_DUPFD_CLOEXEC, most_files - 100));
    ::syscall(SYS_close, opened);
  }
  for (const std::string& wanted : parts_of(text_of("VELORIN_FAULT"), ',')) {
    const std::vector<std::string> words = parts_of(wanted, ':');
    if (words.size() < 3) continue;
    fault one;
    one.kind = words[0];
    one.number = std::atol(words[1].c_str());
    one.cut_short = words[2] == "short";
    one.error = one.cut_short ? 0 : std::atoi(words[2].c_str());
    one.lasting = words.size() > 3;
    plan.faults.push_back(one);
  }
  return plan;
}

fault_plan& plan() {
  static fault_plan asked = plan_of_environment();
  return asked;
}

/// The names of the open files below the folder, by descriptor; "" for another file.
std::string& watched(int descriptor) {
  static std::array<std::string, most_files> names;
  static std::string none;
  none.clear();
  return descriptor >= 0 && descriptor < most_files ? names[static_cast<std::size_t>(descriptor)] : none;
}

/// A name as a path. One below the folder in which the program runs counts as no file of the data folder.
std::string path_text(int folder, const char* path) {
  if (path[0] == '/') return path;
  return watched(folder).empty() ? std::string() : watched(folder) + '/' + path;
}

bool below_folder(const std::string& path) {
  const std::string& folder = plan().folder;
  return !folder.empty() && path.starts_with(folder) && (path.size() == folder.size() || path[folder.size()] == '/');
}

/// One call on a file below the folder, or on another one, which it lets pass.
class counted_call {
 public:
  counted_call(std::string_view kind, std::string path) : kind_(kind), path_(std::move(path)) {
    if (!below_folder(path_)) return;
    counts_ = true;
    for (fault& one : plan().faults) {
      if (kind_ != one.kind) continue;
      ++one.calls;
      if (one.lasting ? one.calls >= one.number : one.calls == one.number) hit_ = &one;
    }
  }
  ~counted_call() {
    if (!counts_ || plan().notes < 0) return;
    const int error = errno;
    const std::string line = std::string(kind_) + ' ' + path_ + (hit_ != nullptr ? " !\n" : "\n");
    ::syscall(SYS_write, plan().notes, line.data(), line.size());
    errno = error;
  }
  counted_call(const counted_call&) = delete;
  counted_call& operator=(const counted_call&) = delete;

  bool counts() const { return counts_; }
  /// The call fails. errno is set then.
  bool fails() const {
    if (hit_ == nullptr || hit_->cut_short) return false;
    errno = hit_->error;
    return true;
  }
  /// So many of the bytes asked for.
  std::size_t share_of(std::size_t bytes) const {
    return hit_ != nullptr && hit_->cut_short && bytes > 1 ? bytes / 2 : bytes;
  }
  /// Another name than at first, as mkstemp gives it.
  void rename(const char* path) { path_ = path; }
  int opened(int descriptor) const {
    if (descriptor >= 0) watched(descriptor) = counts_ ? path_ : std::string();
    return descriptor;
  }

 private:
  std::string_view kind_;
  std::string path_;
  bool counts_ = false;
  const fault* hit_ = nullptr;
};

}  // namespace

// The function of this name in the libraries behind this one.
#define THE_REAL(name) static const auto real = reinterpret_cast<decltype(&::name)>(::dlsym(RTLD_NEXT, #name))

#define MODE_OF(flags)                            \
  mode_t mode = 0;                                \
  if (((flags) & (O_CREAT | __O_TMPFILE)) != 0) { \
    va_list more;                                 \
    va_start(more, flags);                        \
    mode = va_arg(more, mode_t);                  \
    va_end(more);                                 \
  }

extern "C" {

int open(const char* path, int flags, ...) {
  MODE_OF(flags)
  THE_REAL(open);
  const counted_call call("open", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : call.opened(real(path, flags, mode));
}

int open64(const char* path, int flags, ...) {
  MODE_OF(flags)
  THE_REAL(open64);
  const counted_call call("open", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : call.opened(real(path, flags, mode));
}

int openat(int folder, const char* path, int flags, ...) {
  MODE_OF(flags)
  THE_REAL(openat);
  const counted_call call("open", path_text(folder, path));
  return call.fails() ? -1 : call.opened(real(folder, path, flags, mode));
}

int openat64(int folder, const char* path, int flags, ...) {
  MODE_OF(flags)
  THE_REAL(openat64);
  const counted_call call("open", path_text(folder, path));
  return call.fails() ? -1 : call.opened(real(folder, path, flags, mode));
}

int creat(const char* path, mode_t mode) {
  THE_REAL(creat);
  const counted_call call("open", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : call.opened(real(path, mode));
}

int mkstemp(char* path) {
  THE_REAL(mkstemp);
  counted_call call("open", path_text(AT_FDCWD, path));
  if (call.fails()) return -1;
  const int descriptor = real(path);
  call.rename(path);
  return call.opened(descriptor);
}

int mkostemp(char* path, int flags) {
  THE_REAL(mkostemp);
  counted_call call("open", path_text(AT_FDCWD, path));
  if (call.fails()) return -1;
  const int descriptor = real(path, flags);
  call.rename(path);
  return call.opened(descriptor);
}

FILE* fopen(const char* path, const char* mode) {
  THE_REAL(fopen);
  const counted_call call("open", path_text(AT_FDCWD, path));
  if (call.fails()) return nullptr;
  FILE* const stream = real(path, mode);
  if (stream != nullptr) call.opened(::fileno(stream));
  return stream;
}

FILE* fopen64(const char* path, const char* mode) {
  THE_REAL(fopen64);
  const counted_call call("open", path_text(AT_FDCWD, path));
  if (call.fails()) return nullptr;
  FILE* const stream = real(path, mode);
  if (stream != nullptr) call.opened(::fileno(stream));
  return stream;
}

// The file is closed also where the call is made to fail, as the system does it.
int fclose(FILE* stream) {
  THE_REAL(fclose);
  std::string& name = watched(::fileno(stream));
  const counted_call call("close", name);
  name.clear();
  const int result = real(stream);
  return call.fails() ? EOF : result;
}

int close(int descriptor) {
  THE_REAL(close);
  std::string& name = watched(descriptor);
  const counted_call call("close", name);
  name.clear();
  const int result = real(descriptor);
  return call.fails() ? -1 : result;
}

DIR* opendir(const char* path) {
  THE_REAL(opendir);
  const counted_call call("open", path_text(AT_FDCWD, path));
  if (call.fails()) return nullptr;
  DIR* const list = real(path);
  if (list != nullptr) call.opened(::dirfd(list));
  return list;
}

dirent* readdir(DIR* list) {
  THE_REAL(readdir);
  const counted_call call("list", watched(::dirfd(list)));
  return call.fails() ? nullptr : real(list);
}

int closedir(DIR* list) {
  THE_REAL(closedir);
  std::string& name = watched(::dirfd(list));
  const counted_call call("close", name);
  name.clear();
  const int result = real(list);
  return call.fails() ? -1 : result;
}

ssize_t read(int descriptor, void* to, size_t size) {
  THE_REAL(read);
  const counted_call call("read", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, to, call.share_of(size));
}

ssize_t pread(int descriptor, void* to, size_t size, off_t from) {
  THE_REAL(pread);
  const counted_call call("read", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, to, call.share_of(size), from);
}

ssize_t write(int descriptor, const void* from, size_t size) {
  THE_REAL(write);
  const counted_call call("write", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, from, call.share_of(size));
}

ssize_t pwrite(int descriptor, const void* from, size_t size, off_t to) {
  THE_REAL(pwrite);
  const counted_call call("write", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, from, call.share_of(size), to);
}

ssize_t readv(int descriptor, const iovec* parts, int count) {
  THE_REAL(readv);
  const counted_call call("read", watched(descriptor));
  if (call.fails()) return -1;
  return call.share_of(2) == 1 ? real(descriptor, parts, 1) : real(descriptor, parts, count);
}

ssize_t writev(int descriptor, const iovec* parts, int count) {
  THE_REAL(writev);
  const counted_call call("write", watched(descriptor));
  if (call.fails()) return -1;
  size_t all = 0;
  for (int i = 0; i < count; ++i) all += parts[i].iov_len;
  size_t left = call.share_of(all);
  std::vector<iovec> shares;
  for (int i = 0; i < count && left != 0; ++i) {
    shares.push_back({parts[i].iov_base, std::min(left, parts[i].iov_len)});
    left -= shares.back().iov_len;
  }
  return real(descriptor, shares.data(), static_cast<int>(shares.size()));
}

int ftruncate(int descriptor, off_t size) noexcept {
  THE_REAL(ftruncate);
  const counted_call call("write", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, size);
}

int fsync(int descriptor) {
  THE_REAL(fsync);
  const counted_call call("sync", watched(descriptor));
  return call.fails() ? -1 : real(descriptor);
}

int fdatasync(int descriptor) {
  THE_REAL(fdatasync);
  const counted_call call("sync", watched(descriptor));
  return call.fails() ? -1 : real(descriptor);
}

int sync_file_range(int descriptor, off_t start, off_t length, unsigned flags) {
  THE_REAL(sync_file_range);
  const counted_call call("hint", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, start, length, flags);
}

int rename(const char* from, const char* to) noexcept {
  THE_REAL(rename);
  const counted_call call("rename", path_text(AT_FDCWD, from));
  return call.fails() ? -1 : real(from, to);
}

int renameat(int from_folder, const char* from, int to_folder, const char* to) noexcept {
  THE_REAL(renameat);
  const counted_call call("rename", path_text(from_folder, from));
  return call.fails() ? -1 : real(from_folder, from, to_folder, to);
}

int unlink(const char* path) noexcept {
  THE_REAL(unlink);
  const counted_call call("unlink", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path);
}

int unlinkat(int folder, const char* path, int flags) noexcept {
  THE_REAL(unlinkat);
  const counted_call call("unlink", path_text(folder, path));
  return call.fails() ? -1 : real(folder, path, flags);
}

int remove(const char* path) noexcept {
  THE_REAL(remove);
  const counted_call call("unlink", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path);
}

int rmdir(const char* path) noexcept {
  THE_REAL(rmdir);
  const counted_call call("unlink", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path);
}

int flock(int descriptor, int operation) noexcept {
  THE_REAL(flock);
  const counted_call call("lock", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, operation);
}

int fchmod(int descriptor, mode_t mode) noexcept {
  THE_REAL(fchmod);
  const counted_call call("chmod", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, mode);
}

int futimens(int descriptor, const timespec times[2]) noexcept {
  THE_REAL(futimens);
  const counted_call call("times", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, times);
}

int mkdir(const char* path, mode_t mode) noexcept {
  THE_REAL(mkdir);
  const counted_call call("mkdir", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path, mode);
}

int stat(const char* path, struct stat* facts) noexcept {
  THE_REAL(stat);
  const counted_call call("stat", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path, facts);
}

int lstat(const char* path, struct stat* facts) noexcept {
  THE_REAL(lstat);
  const counted_call call("stat", path_text(AT_FDCWD, path));
  return call.fails() ? -1 : real(path, facts);
}

int fstat(int descriptor, struct stat* facts) noexcept {
  THE_REAL(fstat);
  const counted_call call("stat", watched(descriptor));
  return call.fails() ? -1 : real(descriptor, facts);
}

}  // extern "C"
