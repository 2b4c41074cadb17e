// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

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

 private:
  QWidget* new_knock_out();

  world_cup_tables_form& form_;
};

}  // namespace velorin
