// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <condition_variable>
#include <filesystem>
#include <mutex>
#include <thread>

#include "database/file_calls.h"
#include "recording/recorder.h"

namespace velorin {

/// A recording in a file that grows with the game. While it is open the file is locked: nobody else goes on with it.
/// What has been appended is with the system at once, and on the disk soon after settle(), by a thread of its own;
/// where the disk does not take it, the next append() fails.
class recording_file : public recording_sink {
 public:
  recording_file();
  ~recording_file() override;
  recording_file(const recording_file&) = delete;
  recording_file& operator=(const recording_file&) = delete;

  /// The file that the next game is recorded to. It must not be there yet.
  void use(std::filesystem::path file) { path_ = std::move(file); }
  /// Opens a recording to be gone on with, and cuts off what is torn at its end. Raises what read_recording() raises,
  /// and run_time_error (file) where another program has it open.
  recording go_on(const std::filesystem::path& file);
  const std::filesystem::path& path() const { return path_; }

  void begin(const recorded_beginning& begun) override;
  void append(std::string_view bytes) override;
  void settle() override;
  void end() override;
  std::string written() const override;

 private:
  void take(int number);
  void write_back();

  std::filesystem::path path_;
  descriptor file_;
  std::uint64_t length_ = 0;

  std::mutex guard_;  // of what follows, and of the descriptor's number
  std::condition_variable changed_;
  bool to_settle_ = false;
  bool settling_ = false;
  std::filesystem::path new_in_;  // the folder that has to keep a new file's name, until it is synchronised
  int fault_ = 0;                 // why the disk did not take what was to settle
  bool over_ = false;
  std::thread settler_;
};

/// Another program has the recording open.
bool is_in_use(const std::filesystem::path& file);

}  // namespace velorin
