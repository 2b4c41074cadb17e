// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "desktop/back_work.h"
#include "desktop/form.h"
#include "desktop/table.h"
#include "forecast/match_line.h"

class QLabel;
class QPushButton;

namespace velorin {

struct match_state;

class TableView;
class WinLineChart;

/// Hands over the states of a match, one after another: before its first ball, then after each. `each` gets a state,
/// its place and how many there are, and says whether to go on. Called in a thread of its own; may raise.
using MatchStates = std::function<void(const std::function<bool(const match_state&, int place, int count)>& each)>;

/// The line of a match: each side's chance of winning ball by ball, the five balls on which it turned, and what each
/// man has moved with bat and ball. It is found out behind the window, which shows how far it has come.
class MatchLineWindow : public Form {
  Q_OBJECT

 public:
  /// `runs`: how many times the rest of the match is played after each ball.
  explicit MatchLineWindow(MatchStates states, long runs = 500, QWidget* parent = front_window());

  bool is_working() const { return work_->is_working(); }

 private:
  /// What is known so far.
  struct Found {
    std::string first;
    std::string second;
    double before = 0;
    std::vector<line_point> points;
    std::vector<line_point> turns;
    std::vector<man_impact> impacts;
    int done = 0;
    int count = 0;
  };
  static Found found_so_far(const match_line& line, int done, int count);
  BackWork::Work work_on(MatchStates states, long runs);
  void show_found(const Found& found);
  void save();

  BackWork* work_;
  WinLineChart* chart_;
  QLabel* progress_;
  TableView* turns_;
  TableView* impacts_;
  QPushButton* save_ = nullptr;
};

}  // namespace velorin
