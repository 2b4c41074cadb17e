// SPDX-License-Identifier: GPL-3.0-or-later
// The game as a process: what it makes of a start without standard descriptors.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QTemporaryDir>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace velorin::testing {
namespace {

namespace fs = std::filesystem;

/// The game, started without standard descriptors. Killed at the end.
class running_game {
 public:
  running_game() {
    process_ = ::fork();
    if (process_ != 0) return;
    std::signal(SIGXFSZ, SIG_DFL);
    ::setenv("XDG_CONFIG_HOME", own_.path().toLocal8Bit().constData(), 1);
    for (const int number : {0, 1, 2}) ::close(number);
    ::execl(VELORIN_GAME, "velorin", static_cast<char*>(nullptr));
    ::_exit(127);
  }
  ~running_game() {
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
  }
  running_game(const running_game&) = delete;
  running_game& operator=(const running_game&) = delete;

  bool runs() const { return ::waitpid(process_, nullptr, WNOHANG) == 0; }
  fs::path descriptor(int number) const {
    std::error_code none;
    return fs::read_symlink(folder() / "fd" / std::to_string(number), none);
  }
  /// The signals that it ignores, one bit each.
  std::uint64_t ignored_signals() const {
    std::ifstream status(folder() / "status");
    for (std::string line; std::getline(status, line);) {
      if (line.starts_with("SigIgn:")) return std::stoull(line.substr(7), nullptr, 16);
    }
    return 0;
  }

 private:
  fs::path folder() const { return fs::path("/proc") / std::to_string(process_); }

  QTemporaryDir own_;
  pid_t process_ = 0;
};

TEST(ProgramStart, StandardDescriptorsThatAreClosedAreNotThoseOfAFile) {
  const running_game game;
  const auto ignores_limits = [&game] { return (game.ignored_signals() & (std::uint64_t{1} << (SIGXFSZ - 1))) != 0; };
  for (int tries = 0; tries < 1000 && game.runs() && !ignores_limits(); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  EXPECT_TRUE(ignores_limits()) << "a limit on the size of files would end the game";
  ASSERT_TRUE(game.runs());
  for (const int number : {0, 1, 2}) EXPECT_EQ(game.descriptor(number), "/dev/null") << number;
}

}  // namespace
}  // namespace velorin::testing
