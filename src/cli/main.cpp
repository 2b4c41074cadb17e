// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

#include "cli/command_line.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  std::error_code error;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  const std::filesystem::path folder = error ? std::filesystem::path(argv[0]).parent_path() : program.parent_path();
  return velorin::cli::run(std::vector<std::string>(argv + 1, argv + argc), folder, {std::cout, std::cerr});
}
