// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "archive/archive_place.h"
#include "archive/question.h"

// The pages of men, teams, grounds and matches. A page is a list of sections, and a section is a question: whoever
// shows a page asks the one that he shows.

namespace velorin {

class archive_file;

struct page_section {
  enum class kind {
    asked,       ///< the answer to `asked`
    milestones,  ///< of a man: the matches in which he reached them
    figures,     ///< those of the one row of the answer to `asked`, one below the other
    beside,      ///< the figures of two, one below the other: the answers to `asked` and `other`
  };

  std::string title;
  question asked;
  kind how = kind::asked;
  question other = {};
  std::string chart = {};   ///< the column that a chart draws row by row; "" for none
  bool last_first = false;  ///< the rows go back in time, the chart goes forward
};

struct archive_page {
  std::string heading;
  std::string below;  ///< a line under the heading
  std::string note;   ///< what the archive does not tell; "" for nothing
  std::vector<page_section> sections;
};

/// The page of a man, a team, a ground, a match or two of a kind; no sections for the record book.
archive_page page_of(const archive_subject& about);

/// The rows of a section. Raises question_error for names that the archive does not have, and run_time_error (file).
answer section_answer(const archive_file& archive, const archive_subject& about, const page_section& section);

/// The two of which a page can be made: both men, or both teams. Nothing for anything else, and for one twice.
std::optional<archive_subject> side_by_side(const archive_subject& one, const archive_subject& other);

/// What a man of these innings has reached, with the matches: columns `milestone`, `match_id`, `opponent`, `ground`, in
/// the order of play. `batting` and `bowling` are his rows as they are, in the order of the archive, with
/// match_id, runs or wickets, and the two others.
answer milestones_of(const answer& batting, const answer& bowling);

}  // namespace velorin
