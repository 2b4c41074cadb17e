// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>
#include <vector>

#include "archive/question.h"

namespace velorin {

/// A question that comes ready.
struct classic_question {
  std::string_view title;
  question asked;
};

inline constexpr int classic_rows = 15;  ///< of each answer, at most

/// The fifty, in the order in which they are offered.
std::vector<classic_question> classic_questions();

}  // namespace velorin
