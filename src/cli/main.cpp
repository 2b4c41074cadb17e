// SPDX-License-Identifier: GPL-3.0-or-later
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/command_line.h"
#include "database/file_buffer.h"
#include "database/file_calls.h"

int main(int argc, char** argv) {
  if (!velorin::prepare_process()) return 1;
  velorin::descriptor standard_output(STDOUT_FILENO);
  velorin::file_buffer buffer(standard_output);
  std::ostream out(&buffer);
  std::cerr.tie(&out);
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path folder = error ? std::filesystem::path(argv[0]).parent_path() : program.parent_path();
  int status = velorin::cli::run(std::vector<std::string>(argv + 1, argv + argc), folder, {out, std::cerr});
  out.flush();
  std::cerr.tie(nullptr);
  // Some file systems tell only here that there was no room.
  if (!standard_output.close() && status == 0) {
    std::cerr << "velorin-cli: Standard output cannot be written: " << std::generic_category().message(errno) << '\n';
    status = 1;
  }
  return status;
}
