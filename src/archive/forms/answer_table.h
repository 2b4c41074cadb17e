// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "archive/question.h"
#include "desktop/table.h"

namespace velorin {

/// A text of the archive.
QString utf8_text(const std::string& utf8);

/// What a field or figure is called where one chooses it.
QString field_heading(std::string_view name);

/// An answer as it is shown: without the columns that tell nothing new, with headings for people. The ids of the rows
/// are their places in the answer. `columns` gets the places of the columns in the answer.
Table answer_table(const answer& told, const question& asked, std::vector<int>& columns);

/// The same as the companion prints it: all columns, under the names of the fields.
Table whole_answer_table(const answer& told);

}  // namespace velorin
