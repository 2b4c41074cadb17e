// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/ball_index.h"

namespace velorin {

namespace {

bool is_mark(const watched_ball& moment, ball_mark mark) {
  switch (mark) {
    case ball_mark::ball:
      return true;
    case ball_mark::over:
      return moment.ends_over || moment.opens_innings();
    case ball_mark::wicket:
      return moment.is_wicket();
    case ball_mark::boundary:
      return moment.is_boundary();
    case ball_mark::milestone:
      return moment.milestone;
    case ball_mark::innings_end:
      return moment.ends_innings;
  }
  return false;
}

std::optional<int> mark_from(const ball_index& index, int from, ball_mark mark, int step) {
  for (int place = from + step; place >= 0 && place < static_cast<int>(index.size()); place += step) {
    if (is_mark(index[static_cast<std::size_t>(place)], mark)) return place;
  }
  return std::nullopt;
}

}  // namespace

std::optional<int> next_mark(const ball_index& index, int from, ball_mark mark) {
  return mark_from(index, from, mark, 1);
}

std::optional<int> mark_before(const ball_index& index, int from, ball_mark mark) {
  return mark_from(index, from, mark, -1);
}

innings_span innings_around(const ball_index& index, int place) {
  innings_span span{place, place};
  const auto same = [&](int other) {
    return other >= 0 && other < static_cast<int>(index.size()) &&
           index[static_cast<std::size_t>(other)].innings == index[static_cast<std::size_t>(place)].innings;
  };
  while (same(span.first - 1)) --span.first;
  while (same(span.last + 1)) ++span.last;
  return span;
}

}  // namespace velorin
