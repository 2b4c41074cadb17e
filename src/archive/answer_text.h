// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "archive/question.h"

// An answer as files have it. The companion and the windows write the same bytes.

namespace velorin {

/// RFC 4180 in UTF-8: the names of the columns, then the rows; "" where there is no value.
std::string answer_csv(const answer& told);

/// One line of JSON with its line feed: an object of `title`, the sentence of the question, `columns` and `rows`; null
/// where there is no value. Raises question_error.
std::string answer_json(const answer& told, const question& asked);

}  // namespace velorin
