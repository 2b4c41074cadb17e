// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/commentary_rows.h"

#include <cstddef>
#include <span>

#include <fmt/format.h>

#include "console/recent_play.h"
#include "model/innings_log.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

bool is_lead(line_kind kind) {
  return kind == line_kind::ball || kind == line_kind::four || kind == line_kind::six || kind == line_kind::wicket;
}

/// Takes the lines of one row: the next one and, behind it, those of its block.
class line_reader {
 public:
  explicit line_reader(std::vector<commentary_line> lines) : lines_(std::move(lines)) {}

  bool at_ball() const { return at_ < lines_.size() && is_lead(lines_[at_].kind); }
  bool at_over_end() const { return at_ < lines_.size() && lines_[at_].kind == line_kind::over_end; }

  void take_ball(commentary_row& row) {
    row.kind = lines_[at_].kind;
    take(row);
    while (at_ < lines_.size() && lines_[at_].kind == line_kind::wicket_card) take(row);
  }
  void take_over_end(commentary_row& row) {
    row.kind = line_kind::over_end;
    while (at_over_end()) take(row);
  }

 private:
  void take(commentary_row& row) { row.lines.push_back(std::move(lines_[at_++].text)); }

  std::vector<commentary_line> lines_;
  std::size_t at_ = 0;
};

/// A no ball or wide that counts is not told, as the commentary has it.
bool is_told(const delivery& ball) { return !ball.is_no_ball_or_wide() || !ball.counted; }

commentary_row ball_row(const told_innings& innings, const delivery& ball, line_reader& lines) {
  commentary_row row;
  row.over = ball.over;
  row.ball = ball.ball;
  row.symbol = ball_symbol(ball);
  row.bowler = innings.bowling[ball.bowler].name;
  lines.take_ball(row);
  // The line says whom it names.
  const std::string& line = row.lines.front();
  const std::size_t from = row.bowler.size() + std::string(" to ").size();
  const std::size_t to = line.rfind(" : ");
  if (to != std::string::npos && to >= from) row.batsman = line.substr(from, to - from);
  if (row.kind == line_kind::wicket && row.lines.size() > 2) {
    // The third line begins with his name, which the row has.
    const std::string& card = row.lines[2];
    row.brief = card.rfind(row.batsman, 0) == 0 ? card.substr(row.batsman.size()) : card;
  }
  return row;
}

commentary_row over_row(const told_innings& innings, std::span<const delivery> over, line_reader& lines) {
  commentary_row row;
  row.over = over.front().over;
  row.bowler = innings.bowling[over.back().bowler].name;
  lines.take_over_end(row);
  const over_entries entries = entries_of_over(over, row.over);
  const int runs = entries.runs();
  row.brief = fmt::format("{} {}", runs, runs == 1 ? "run" : "runs");
  if (entries.wickets() > 0)
    row.brief += fmt::format(", {} {}", entries.wickets(), entries.wickets() == 1 ? "wicket" : "wickets");
  // The third line of the block is the side and its score.
  if (row.lines.size() > 2) row.brief += "  \xB7  " + row.lines[2];
  return row;
}

}  // namespace

std::vector<commentary_row> view_commentary(const match_state& match) {
  const told_innings innings = innings_in_play(match);
  line_reader lines(tell(innings));
  std::vector<commentary_row> rows;
  rows.reserve(innings.deliveries.size() + overs_of_innings);
  std::span<const delivery> left = innings.deliveries;
  while (!left.empty()) {
    const std::span<const delivery> over = deliveries_of_over(left, left.front().over);
    for (const delivery& ball : over) {
      if (is_told(ball) && lines.at_ball()) rows.push_back(ball_row(innings, ball, lines));
    }
    if (lines.at_over_end()) rows.push_back(over_row(innings, over, lines));
    left = left.subspan(over.size());
  }
  return rows;
}

}  // namespace velorin
