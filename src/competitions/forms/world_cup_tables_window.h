// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QHBoxLayout;

namespace velorin {

struct world_cup_record;

struct world_cup_tables_form;

/// The tables of the World Cup: both groups, the Super Six, the knock-out.
class WorldCupTablesWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WorldCupTablesWindow(const world_cup_record& world_cup, world_cup_tables_form& form,
                                QWidget* parent = front_window());

  /// Each tie among these matches gets a button that opens its report.
  void lead_to(const PlayedMatches& played);

 private:
  /// `champion`: "" while there is none.
  QWidget* new_knock_out(const std::string& champion);

  world_cup_tables_form& form_;
  std::array<QHBoxLayout*, 3> ties_{};  // the row of each tie's caption
};

}  // namespace velorin
