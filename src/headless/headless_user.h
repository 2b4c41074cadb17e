// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>

#include "ui/front_end.h"

namespace velorin {

/// A user who shows nothing and answers at once: Auto Select, Heads, Bat, the first man who is free, OK.
class headless_user : public front_end {
 public:
  /// Weather, pitch surface, pitch bounce, outfield, 1 to 4 each, as if the sliders had been moved.
  std::optional<std::array<int, 4>> conditions;

  void show(const message_box&) override {}
  save_answer answer(const failed_save&) override { return save_answer::give_up; }
  void show(wecond& form) override;
  /// Raises run_time_error (endless) if no eleven can be made of the squad.
  void show(teamsel& form) override;
  void show(toss& form) override;
  void show(batorder& form) override;
  /// Raises run_time_error (endless) if no man who may bowl has balls left.
  void show(chgbowler& form) override;
  void show(aggr&) override {}
  void show(batsmandetails&) override {}
  void show(main_console& form) override;
  void ball_bowled() override {}
  void progress(int) override {}
  void progress_done() override {}
  void open(report) override {}
  void show(sqdet&) override {}
  void show(allrecs&) override {}
  void show(sri_result& form) override;
  void show(triserresult& form) override;
  void show(wc_fix& form) override;
  void show(wcsstab& form) override;
};

}  // namespace velorin
