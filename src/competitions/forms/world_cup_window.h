// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "competitions/forms/entry_controls.h"
#include "desktop/form.h"

namespace velorin {

class GroundBelow;
struct match_state;
struct open_database;
struct world_cup_record;

struct world_cup_form;

/// The World Cup: groups, hosts, human sides. While it is played the window is hidden.
class WorldCupWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened, has not closed itself, and outlives the window.
  explicit WorldCupWindow(match_state& match, open_database& database, world_cup_record& world_cup,
                          world_cup_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_group(const QString& title, const QString& lists, const QString& checks, std::array<int, 5>& teams,
                     std::array<bool, 5>& human);
  QWidget* new_hosts();
  void add_standing();
  void show_choice();
  void show_ground();
  void play();

  world_cup_form& form_;
  EntryFoot entry_foot_;
  GroundBelow* ground_below_ = nullptr;
  match_state& match_;
  open_database& data_;
  world_cup_record& world_cup_;
};

}  // namespace velorin
