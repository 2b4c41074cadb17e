// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/waiting_matches.h"

#include <algorithm>
#include <concepts>
#include <limits>
#include <type_traits>
#include <utility>

#include "model/run_time_error.h"

namespace velorin {

namespace {

constexpr std::string_view head = "velorin waiting 2\n";
constexpr std::string_view first_head = "velorin waiting 1\n";  ///< of a program that knew no meetings
static_assert(head.size() == first_head.size());

/// Appends values: whole numbers in seven bits a byte, the lowest first, the eighth set in all but the last; texts as
/// their length and bytes.
class writer {
 public:
  template <class Number>
  requires std::integral<Number> || std::is_enum_v<Number>
  void operator()(const Number& value) {
    auto rest = static_cast<std::uint64_t>(value);
    for (; rest >= 0x80; rest >>= 7) bytes.push_back(static_cast<char>(rest | 0x80));
    bytes.push_back(static_cast<char>(rest));
  }
  void operator()(const std::string& text) {
    (*this)(text.size());
    bytes += text;
  }
  template <class Line, class Fields>
  void list(const std::vector<Line>& lines, Fields fields) {
    (*this)(lines.size());
    for (const Line& line : lines) fields(line);
  }

  static constexpr bool knows_meetings = true;

  std::string bytes{head};
};

/// Takes them. Raises run_time_error (file) where they end too soon or are too large.
class reader {
 public:
  reader(std::string_view bytes, bool with_meetings, const std::string& name)
      : knows_meetings(with_meetings), left_(bytes), name_(name) {}

  const bool knows_meetings;

  template <class Number>
  requires std::integral<Number> || std::is_enum_v<Number>
  void operator()(Number& value) {
    std::uint64_t number = 0;
    for (int shift = 0;; shift += 7) {
      if (left_.empty() || shift > 63) raise();
      const auto byte = static_cast<unsigned char>(left_.front());
      left_.remove_prefix(1);
      number |= static_cast<std::uint64_t>(byte & 0x7F) << shift;
      if ((byte & 0x80) == 0) break;
    }
    if constexpr (std::is_enum_v<Number>) {
      if (number > static_cast<std::uint64_t>(dismissal::run_out)) raise();
    } else if (std::is_signed_v<Number> || sizeof(Number) < 8) {
      if (number > static_cast<std::uint64_t>(std::numeric_limits<Number>::max())) raise();
    }
    value = static_cast<Number>(number);
  }
  void operator()(std::string& text) {
    std::size_t length = 0;
    (*this)(length);
    if (length > left_.size()) raise();
    text = left_.substr(0, length);
    left_.remove_prefix(length);
  }
  template <class Line, class Fields>
  void list(std::vector<Line>& lines, Fields fields) {
    std::size_t count = 0;
    (*this)(count);
    for (; count > 0; --count) {
      if (left_.empty()) raise();
      fields(lines.emplace_back());
    }
  }

  bool done() const { return left_.empty(); }
  [[noreturn]] void raise() const {
    throw run_time_error(failure::file, "The matches that wait for the archive are damaged", {name_, 0, {}, {}});
  }

 private:
  std::string_view left_;
  const std::string& name_;
};

// The fields in their order, for both.
void tell_innings(auto& take, auto& innings) {
  take(innings.team), take(innings.runs), take(innings.wickets), take(innings.balls), take(innings.wides);
  take(innings.no_balls), take(innings.byes), take(innings.leg_byes), take(innings.noted_wickets);
  take.list(innings.batting, [&](auto& man) {
    take(man.player), take(man.position), take(man.out), take(man.not_out), take(man.how), take(man.taken),
        take(man.fielder_position);
    take(man.bowler), take(man.fielder), take(man.runs), take(man.balls), take(man.dots), take(man.ones);
    take(man.twos), take(man.threes), take(man.fours), take(man.sixes), take(man.fifty_balls), take(man.hundred_balls);
  });
  take.list(innings.bowling, [&](auto& man) {
    take(man.player), take(man.came_on), take(man.balls), take(man.maidens), take(man.runs), take(man.wickets);
  });
  take.list(innings.stands, [&](auto& stand) {
    take(stand.runs), take(stand.balls), take(stand.score), take(stand.at_balls), take(stand.unbroken);
    take(stand.overs), take(stand.player1), take(stand.player2);
  });
  take.list(innings.overs,
            [&](auto& over) { take(over.over), take(over.bowler), take(over.runs), take(over.wickets); });
  if (!take.knows_meetings) return;
  take.list(innings.meetings, [&](auto& one) {
    take(one.position), take(one.bowler_position), take(one.balls), take(one.runs);
    take(one.dots), take(one.fours), take(one.sixes), take(one.outs);
  });
}

void tell_match(auto& take, auto& match) {
  take(match.id), take(match.key), take(match.played_at), take(match.competition), take(match.stage);
  take(match.number), take(match.ground), take(match.country), take(match.weather), take(match.pitch_surface);
  take(match.pitch_bounce), take(match.outfield), take(match.human), take(match.winner), take(match.margin);
  for (auto& innings : match.innings) tell_innings(take, innings);
  take(match.recording);
}

void tell(auto& take, auto& waiting, auto& begins, auto& before) {
  take(waiting.empty_until);
  take(begins);
  take(before.careers), take(before.records);
  take.list(waiting.matches, [&](auto& match) { tell_match(take, match); });
}

}  // namespace

waiting_matches waiting_in(std::string_view bytes, const std::string& name) {
  waiting_matches waiting;
  if (bytes.empty()) return waiting;
  reader take(bytes.substr(std::min(bytes.size(), head.size())), bytes.starts_with(head), name);
  if (!bytes.starts_with(head) && !bytes.starts_with(first_head)) take.raise();
  bool begins = false;
  books_before before;
  tell(take, waiting, begins, before);
  if (!take.done()) take.raise();
  if (begins) waiting.before = std::move(before);
  return waiting;
}

std::string bytes_of(const waiting_matches& waiting) {
  if (waiting.empty()) return {};
  writer take;
  const bool begins = waiting.before.has_value();
  const books_before before = waiting.before.value_or(books_before());
  tell(take, waiting, begins, before);
  return take.bytes;
}

}  // namespace velorin
