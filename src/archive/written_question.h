// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

#include "archive/question.h"

// A question as it is kept: a line for each of its parts.
//
//   from batting
//   by player,team
//   where runs>=50
//   having innings>=20
//   sort average
//   descending
//   top 15

namespace velorin {

/// The question in writing. A line feed in a value becomes a blank.
std::string written_question(const question& asked);

/// The way back; its parts are known to the archive. Raises question_error for anything else.
question question_written(std::string_view text);

/// Adds a condition: of rows, or of sums where the rows are summed and it names a figure that rows do not have.
void add_condition(question& asked, condition part);

/// Raises question_error for a part that the archive does not know.
void require_known_parts(const question& asked);

}  // namespace velorin
