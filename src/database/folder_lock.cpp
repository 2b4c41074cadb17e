// SPDX-License-Identifier: GPL-3.0-or-later
#include "database/folder_lock.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>

#include <cerrno>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

using clock = std::chrono::steady_clock;

/// A lock that another program holds. The system has no wait for it that ends, so a thread waits, and shares this with
/// the one who asked. Who gives up leaves it to the thread; the folder is closed, and so set free, by the last of the
/// two.
struct awaited_lock {
  descriptor folder;
  std::mutex guard;
  std::condition_variable answered;
  bool done = false;
  int cause = 0;  ///< number of the error, once done
};

/// 0, or the number of the error.
int error_of_lock(int folder, int how) {
  while (::flock(folder, how) != 0) {
    if (errno != EINTR) return errno;
  }
  return 0;
}

void wait_for_lock(const std::shared_ptr<awaited_lock>& awaited) {
  const int cause = error_of_lock(awaited->folder.number(), LOCK_EX);
  const std::lock_guard hold(awaited->guard);
  awaited->cause = cause;
  awaited->done = true;
  awaited->answered.notify_one();
}

/// Tells the watcher of a wait, and of its end.
class told_wait {
 public:
  told_wait(std::filesystem::path folder, turn_watcher* watcher) : folder_(std::move(folder)), watcher_(watcher) {}
  ~told_wait() {
    if (told_) watcher_->wait_is_over();
  }
  told_wait(const told_wait&) = delete;
  told_wait& operator=(const told_wait&) = delete;

  clock::duration so_far() const { return clock::now() - start_; }
  void tell() {
    if (watcher_ == nullptr) return;
    told_ = true;
    watcher_->turn_is_waited_for(folder_, std::chrono::duration_cast<std::chrono::milliseconds>(so_far()));
  }

 private:
  std::filesystem::path folder_;
  turn_watcher* watcher_;
  clock::time_point start_ = clock::now();
  bool told_ = false;
};

[[noreturn]] void raise_not_granted(const std::filesystem::path& folder, const std::filesystem::path& file) {
  std::error_code ignored;
  const std::filesystem::path whole = std::filesystem::absolute(folder, ignored).lexically_normal();
  const std::string name = (ignored ? folder : whole).string();
  throw run_time_error(failure::file,
                       fmt::format("Another program has kept the folder {} locked for {} seconds",
                                   from_utf8(name).value_or(name), longest_wait_for_turn.count()),
                       {file_name_text(file), 0, {}, {}});
}

/// The folder with the lock that another program holds now. Raises run_time_error (file).
descriptor after_others(descriptor folder, const std::filesystem::path& file, turn_watcher* watcher) {
  constexpr std::chrono::milliseconds between_tellings{50};
  const auto awaited = std::make_shared<awaited_lock>();
  awaited->folder = std::move(folder);
  told_wait wait(folder_of(real_file(file)), watcher);
  try {
    std::thread(wait_for_lock, awaited).detach();
  } catch (const std::system_error& error) {
    raise_file_error("The folder of the file cannot be locked", error.code().value(), file);
  }
  std::unique_lock hold(awaited->guard);
  while (!awaited->answered.wait_for(hold, between_tellings, [&] { return awaited->done; })) {
    if (wait.so_far() >= longest_wait_for_turn) raise_not_granted(folder_of(real_file(file)), file);
    hold.unlock();
    wait.tell();
    hold.lock();
  }
  if (awaited->cause != 0) raise_file_error("The folder of the file cannot be locked", awaited->cause, file);
  return std::move(awaited->folder);
}

}  // namespace

folder_lock::folder_lock(const std::filesystem::path& file, turn_watcher* watcher)
    : folder_(open_file(folder_of(real_file(file)), O_RDONLY | O_DIRECTORY)) {
  if (!folder_.open()) raise_file_error("The folder of the file cannot be opened", errno, file);
  const int cause = error_of_lock(folder_.number(), LOCK_EX | LOCK_NB);
  if (cause == 0) return;
  if (cause != EWOULDBLOCK) raise_file_error("The folder of the file cannot be locked", cause, file);
  folder_ = after_others(std::move(folder_), file, watcher);
}

}  // namespace velorin
