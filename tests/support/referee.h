// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <span>
#include <string>

#include "model/match_records.h"

namespace velorin::testing {

/// What must hold in a match after every ball and at the end of every innings, kept apart from the match's own books.
/// The first breach is kept. The caller tells of each ball once it is booked (front_end::ball_bowled), of each end of
/// an innings (front_end::open) and of the end of the match.
class referee {
 public:
  explicit referee(int match_number) : match_number_(match_number) {}

  /// check_match(), and how the figures follow from those of the ball before.
  void watch_ball();
  /// The innings ended where it must; logs, commentary and cards tell the same score.
  void watch_innings_end();
  /// `finished`: the match has a result.
  void watch_result(bool finished);

  bool ok() const { return complaint_.empty(); }
  /// What was wrong, with match, innings and over; "" as long as nothing was.
  const std::string& complaint() const { return complaint_; }
  int balls() const { return balls_; }

 private:
  void complain(const std::string& what);
  void start_innings();
  void start_over();
  void check_lists();
  void check_names(std::span<const std::string> list, const char* what);
  void check_fifty(const batting_card_rec& man);
  void check_log();
  void check_deliveries();

  int match_number_;
  int balls_ = 0;
  int innings_ended_ = 0;
  int innings_ = 0;
  int innings_deliveries_ = 0;
  int over_ = 0;
  int bowler_ = 0;
  int score_ = 0;
  int highest_ = 2;
  std::array<int, 12> outcomes_{};  ///< deliveries of this innings by their outcome
  std::string complaint_;
};

}  // namespace velorin::testing
