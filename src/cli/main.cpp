// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/command_line.h"
#include "database/file_buffer.h"
#include "database/file_calls.h"
#include "database/folder_lock.h"
#include "model/code_page.h"

namespace {

/// Says once of each wait that anybody would notice what is waited for.
class waiting_line : public velorin::turn_watcher {
 public:
  void turn_is_waited_for(const std::filesystem::path& folder, std::chrono::milliseconds so_far) override {
    if (said_ || so_far < std::chrono::seconds(1)) return;
    said_ = true;
    std::cerr << "velorin-cli: Waiting for another program that works on the files in "
              << velorin::without_controls(folder.string()) << " ...\n";
  }
  void wait_is_over() override { said_ = false; }

 private:
  bool said_ = false;
};

}  // namespace

int main(int argc, char** argv) {
  if (!velorin::prepare_process()) {
    std::cerr << "velorin-cli: A closed standard descriptor cannot be replaced: "
              << std::generic_category().message(errno) << '\n';
    return 1;
  }
  velorin::descriptor standard_output(STDOUT_FILENO);
  velorin::file_buffer buffer(standard_output);
  std::ostream out(&buffer);
  std::cerr.tie(&out);
  waiting_line waiting;
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path folder = error ? std::filesystem::path(argv[0]).parent_path() : program.parent_path();
  int status = velorin::cli::run(std::vector<std::string>(argv + 1, argv + argc), folder, {out, std::cerr}, &waiting);
  out.flush();
  std::cerr.tie(nullptr);
  // Some file systems tell only here that there was no room.
  if (!standard_output.close() && status == 0) {
    std::cerr << "velorin-cli: Standard output cannot be written: " << std::generic_category().message(errno) << '\n';
    status = 1;
  }
  return status;
}
