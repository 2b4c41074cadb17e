// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "browsers/shown_table.h"

// The record lists as they stand. Each form reads them when it opens, and raises what read_record_lists raises.

namespace velorin {

struct open_database;

/// Record mode 1: the highest individual scores; 0: the best bowling figures. A row without a player is hidden.
struct best_performances_form : table_form {
  explicit best_performances_form(const open_database& data) : data_(data) {}

  void open(int record_mode);

 private:
  const open_database& data_;
};

/// Record mode 1: the highest totals; 0: the lowest. A row without a team is hidden.
struct total_records_form : table_form {
  explicit total_records_form(const open_database& data) : data_(data) {}

  void open(int record_mode);

 private:
  const open_database& data_;
};

/// The record stand for each wicket, a row's place being the wicket. A row without a first man is hidden.
struct stand_records_form : table_form {
  explicit stand_records_form(const open_database& data) : data_(data) {}

  void open();

 private:
  const open_database& data_;
};

}  // namespace velorin
