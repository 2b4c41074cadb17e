// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "archive/question.h"

// Where one can be in the archive, and how one got there. Texts are UTF-8.

namespace velorin {

/// What a page is about.
struct archive_subject {
  enum class kind { record_book, player, team, ground, match, two_players, two_teams };

  kind what = kind::record_book;
  std::string name = {};        ///< of the man, team or ground
  std::string team = {};        ///< of the man; "" for all teams that he has played for
  std::string other = {};       ///< the second of two
  std::string other_team = {};  ///< likewise
  std::int64_t match = 0;       ///< its id

  bool operator==(const archive_subject&) const = default;
};

/// A page with what its user has chosen there.
struct archive_place {
  archive_subject about = {};
  int section = 0;         ///< of a page
  question asked = {};     ///< in the record book
  std::string title = {};  ///< of that question, "" for one that was put together
  int row = -1;            ///< of the answer; -1 for none
  int column = 0;          ///< likewise
  int scrolled = 0;        ///< of the answer, in the view's own steps

  bool operator==(const archive_place&) const = default;
};

/// The cell itself names a man, a team, a ground or a match.
bool names_something(const answer& told, std::size_t row, std::size_t column);

/// Where the cell of an answer leads: to the man, team or ground it names; else to the match of its row; else to the
/// first name in the row. Nothing where there is none.
std::optional<archive_subject> led_to_by(const answer& told, std::size_t row, std::size_t column);

/// The places one has been at, as a browser keeps them.
class archive_history {
 public:
  explicit archive_history(archive_place first) : places_{std::move(first)} {}

  archive_place& here() { return places_[at_]; }
  const archive_place& here() const { return places_[at_]; }
  bool has_back() const { return at_ > 0; }
  bool has_forward() const { return at_ + 1 < places_.size(); }

  /// What lay ahead is forgotten.
  void go_to(archive_place place);
  /// Require that there is such a place.
  void go_back() { --at_; }
  void go_forward() { ++at_; }

  std::optional<archive_subject> set_aside;  ///< to stand beside another of its kind

 private:
  std::vector<archive_place> places_;
  std::size_t at_ = 0;
};

}  // namespace velorin
