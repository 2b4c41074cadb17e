// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/program.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace velorin::testing {

namespace fs = std::filesystem;

namespace {

void write_file(const fs::path& file, const std::string& bytes) {
  std::ofstream out(file, std::ios::binary);
  out << bytes;
  if (!out.flush()) throw std::runtime_error("a test's file cannot be written");
}

/// Where the data folders are made: in memory if the machine offers that. Thousands of files are synchronised, and what
/// a disk makes of it plays no part here.
fs::path room() {
  const fs::path memory = "/dev/shm";
  return ::access(memory.c_str(), W_OK) == 0 ? memory : fs::temp_directory_path();
}

/// What is left in a pipe, which is closed.
std::string rest_of(int pipe) {
  std::string text;
  char piece[4096];
  for (ssize_t got = 0; (got = ::read(pipe, piece, sizeof piece)) > 0;)
    text.append(piece, static_cast<std::size_t>(got));
  ::close(pipe);
  return text;
}

[[noreturn]] void become(const program& what, int out, int err) {
  if (::dup2(out, STDOUT_FILENO) < 0 || ::dup2(err, STDERR_FILENO) < 0) ::_exit(126);
  for (const std::string& pair : what.environment) ::putenv(const_cast<char*>(pair.c_str()));
  std::vector<char*> words;
  for (const std::string& word : what.line) words.push_back(const_cast<char*>(word.c_str()));
  words.push_back(nullptr);
  if (what.prepare) what.prepare();
  ::execv(words[0], words.data());
  ::_exit(127);
}

}  // namespace

std::string bytes_of_file(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  if (!in) throw std::runtime_error("a test's file cannot be read: " + file.string());
  std::ostringstream bytes;
  bytes << in.rdbuf();
  return bytes.str();
}

bool is_of_archive(const std::string& name) {
  return name.find(".matches") != std::string::npos || name.find(".waiting") != std::string::npos;
}

workbench::workbench() {
  std::string pattern = (room() / "velorin-faults-XXXXXX").string();
  if (::mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for a test");
  root_ = fs::canonical(pattern);
  data_ = root_ / "data";
  fs::create_directory(data_);
}

workbench::~workbench() {
  for (const auto& [place, pipes] : printed_) {
    ::close(pipes.first);
    ::close(pipes.second);
  }
  std::error_code ignored;
  fs::remove_all(root_, ignored);
}

void workbench::lay_out(const file_map& content) const {
  std::vector<fs::path> of_archive;
  for (const auto& entry : fs::recursive_directory_iterator(data_)) {
    if (is_of_archive(entry.path().filename().string())) of_archive.push_back(entry.path());
  }
  for (const fs::path& file : of_archive) fs::remove(file);
  const file_map there = found();
  for (auto entry = there.rbegin(); entry != there.rend(); ++entry) {
    const auto wanted = content.find(entry->first);
    const bool same_kind = wanted != content.end() && (wanted->second == a_folder) == (entry->second == a_folder);
    if (!same_kind) fs::remove_all(data_ / entry->first);
  }
  for (const auto& [name, bytes] : content) {
    const auto known = there.find(name);
    if (known != there.end() && known->second == bytes) continue;
    if (bytes == a_folder) {
      fs::create_directory(data_ / name);
    } else {
      write_file(data_ / name, bytes);
    }
  }
}

file_map workbench::found() const {
  file_map content;
  for (const auto& entry : fs::recursive_directory_iterator(data_)) {
    const std::string name = fs::relative(entry.path(), data_).string();
    if (is_of_archive(name)) continue;
    content[name] = entry.is_directory() ? a_folder : bytes_of_file(entry.path());
  }
  return content;
}

pid_t workbench::start(const program& what, int place) {
  int out[2];
  int err[2];
  if (::pipe2(out, O_CLOEXEC) != 0 || ::pipe2(err, O_CLOEXEC) != 0) throw std::runtime_error("no pipe for a test");
  const pid_t process = ::fork();
  if (process < 0) throw std::runtime_error("no process for a test");
  if (process == 0) become(what, out[1], err[1]);
  ::close(out[1]);
  ::close(err[1]);
  printed_[place] = {out[0], err[0]};
  return process;
}

ending workbench::end_of(pid_t process, int place) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("a test's process is gone");
  }
  return ending_of(status, place);
}

ending workbench::ending_of(int wait_status, int place) {
  ending end;
  if (WIFEXITED(wait_status)) end.status = WEXITSTATUS(wait_status);
  if (WIFSIGNALED(wait_status)) end.signal = WTERMSIG(wait_status);
  const auto pipes = printed_.at(place);
  printed_.erase(place);
  end.out = rest_of(pipes.first);
  end.err = rest_of(pipes.second);
  return end;
}

}  // namespace velorin::testing
