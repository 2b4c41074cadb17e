// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/record_lists.h"

#include <algorithm>
#include <utility>

#include "browsers/century_makers.h"
#include "browsers/player_rankings.h"
#include "browsers/record_tables.h"
#include "browsers/world_rankings.h"

namespace velorin {

namespace {

/// What a form shows once it is open.
template <class Form, class... Mode>
shown_table table_of(const open_database& data, Mode... mode) {
  Form form(data);
  form.open(mode...);
  return std::move(form.table);
}

shown_table table_of(const open_database& data, const record_list& list) {
  if (list.form == "totrecords") return table_of<total_records_form>(data, list.record_mode);
  if (list.form == "highinduv") return table_of<best_performances_form>(data, list.record_mode);
  if (list.form == "centurytop") return table_of<century_makers_form>(data);
  if (list.form == "partnrec") return table_of<stand_records_form>(data);
  if (list.form == "wldrank") return table_of<world_rankings_form>(data);
  return table_of<player_rankings_form>(data, list.record_mode);
}

}  // namespace

int record_list_place(std::string_view form, int record_mode) {
  const auto found = std::find_if(every_record_list.begin(), every_record_list.end(), [&](const record_list& list) {
    return list.form == form && list.record_mode == record_mode;
  });
  return static_cast<int>(found - every_record_list.begin());
}

void record_lists_form::open(int list) {
  closed = false;
  walked = 0;
  walk_length = 0;
  choose(list);
}

void record_lists_form::open_group(std::string_view group) {
  const auto in_group = [&](const record_list& list) { return list.group == group; };
  walk_begin_ = static_cast<int>(std::find_if(every_record_list.begin(), every_record_list.end(), in_group) -
                                 every_record_list.begin());
  open(walk_begin_);
  walk_length = static_cast<int>(std::count_if(every_record_list.begin(), every_record_list.end(), in_group));
  walked = 1;
}

void record_lists_form::choose(int list) {
  table = table_of(data_, every_record_list.at(static_cast<std::size_t>(list)));
  shown_list = list;
}

void record_lists_form::accept() {
  if (walked >= walk_length) {
    closed = true;
    return;
  }
  ++walked;
  choose(walk_begin_ + walked - 1);
}

}  // namespace velorin
