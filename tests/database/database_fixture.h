// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "database/configuration.h"
#include "model/match_state.h"
#include "model/run_time_error.h"

namespace velorin::testing {

/// A test with a folder of data files of its own. The database in use is "base"; `match` and `settings` are fresh.
class database_fixture : public ::testing::Test {
 protected:
  void SetUp() override;
  void TearDown() override;

  std::filesystem::path folder;
};

std::string bytes_of(const std::filesystem::path& file);
void write_bytes(const std::filesystem::path& file, std::string_view bytes);
/// The names of the files in a folder, in order.
std::vector<std::string> names_in(const std::filesystem::path& folder);

/// Bytes from pairs of hexadecimal digits; blanks are passed over.
std::string hex(std::string_view digits);
/// `bytes` with zeros behind them up to `size`.
std::string padded(std::string bytes, std::size_t size);

/// The error that a procedure raises. Fails the test if it raises none.
template <typename Procedure>
run_time_error error_of(Procedure procedure) {
  try {
    procedure();
  } catch (const run_time_error& error) {
    return error;
  }
  ADD_FAILURE() << "no run-time error";
  return run_time_error(failure::endless, "none");
}

/// Fills `match` with a finished match at "Harbour Park" in "Alba": Alba 231/3 in 300 balls, Tamar all out 174 in 262.
/// Alba batted first and won. The men are "A.Man1" to "A.Man11" and "T.Man1" to "T.Man11".
///   Alba: A.Man1 64 not out, A.Man2 120 b T.Man9, A.Man3 0 c && b T.Man10, A.Man4 40 c T.Man3 b T.Man9, A.Man5 3
///     not out; A.Man9 took 5/31, A.Man10 4/40, A.Man11 1/60.
///   Tamar: T.Man1 50 not out, T.Man2 to T.Man11 12 each, T.Man2 st A.Man7 b A.Man9; T.Man9 took 2/48, T.Man10 1/50.
void set_up_finished_match();

}  // namespace velorin::testing
