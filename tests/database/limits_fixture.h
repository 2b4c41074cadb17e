// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <string>

#include "database/database_fixture.h"
#include "database/whole_file.h"
#include "support/game_in_play.h"

namespace velorin::testing {

/// Alba's finished match against Tamar, and what an update makes of it.
class limits_fixture : public database_fixture {
 protected:
  void SetUp() override {
    database_fixture::SetUp();
    set_up_finished_match();
  }

  /// The message of an update that is refused. Both files must stay, byte for byte, and nothing may be left behind.
  std::string refusal(const std::function<void()>& update, failure kind = failure::overflow) const {
    const auto names = names_in(folder);
    const std::optional<std::string> career_file = read_file(data.files.career_file);
    const std::optional<std::string> record_file = read_file(data.files.record_file);
    const run_time_error error = error_of(update);
    EXPECT_EQ(error.kind(), kind);
    EXPECT_TRUE(read_file(data.files.career_file) == career_file) << "the careers have changed";
    EXPECT_TRUE(read_file(data.files.record_file) == record_file) << "the records have changed";
    EXPECT_EQ(names_in(folder), names);
    return error.what();
  }
};

}  // namespace velorin::testing
