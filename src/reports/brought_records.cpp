// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/brought_records.h"

#include "database/lasting_records.h"
#include "database/record_update.h"
#include "model/match_state.h"
#include "model/texts.h"

namespace velorin {

namespace {

std::string runs_and_balls(int runs, bool not_out, int balls) {
  return number_text(runs) + (not_out ? "*" : "") + " (" + number_text(balls) + ")";
}

std::string who(const top_score_rec& line) { return line.player; }
std::string who(const top_bowling_rec& line) { return line.player; }
std::string who(const top_total_rec& line) { return line.team; }

std::string man_of(const top_score_rec& line) { return line.player; }
std::string man_of(const top_bowling_rec& line) { return line.player; }
std::string man_of(const top_total_rec&) { return {}; }

std::string figures(const top_score_rec& line) { return runs_and_balls(line.runs, line.not_out != 0, line.balls); }
std::string figures(const top_bowling_rec& line) { return number_text(line.wickets) + "-" + number_text(line.runs); }
std::string figures(const top_total_rec& line) {
  return number_text(line.total) + "/" + number_text(line.wickets) + " (" + overs_from_balls(line.balls) + ")";
}

/// An update keeps the order of the lines it finds, so those that are not the next of them are new.
template <class List>
void add_new_lines(std::vector<reported_record>& records, const char* list, const List& before, const List& after) {
  std::size_t old = 1;
  for (std::size_t place = 1; place < after.size(); ++place) {
    if (after[place] == before[old]) {
      ++old;
    } else if (!who(after[place]).empty()) {
      records.push_back({list, static_cast<int>(place), who(after[place]), figures(after[place]), after[place].team,
                         man_of(after[place])});
    }
  }
}

void add_new_stands(std::vector<reported_record>& records, const top_partnership_list& before,
                    const top_partnership_list& after) {
  for (std::size_t wicket = 1; wicket < after.size(); ++wicket) {
    const top_partnership_rec& stand = after[wicket];
    if (stand == before[wicket] || stand.batsman_a.empty()) continue;
    // The mark of an unbroken stand is behind the striker's name.
    records.push_back({"Partnerships", static_cast<int>(wicket), stand.batsman_a + " && " + stand.batsman_b,
                       runs_and_balls(stand.partner_runs, false, stand.partner_balls), stand.team, stand.batsman_a});
  }
}

}  // namespace

std::vector<reported_record> records_brought(const match_state& match, const record_lists& before) {
  match_state ended = match;
  ended.last_stand_closed = true;
  record_lists after = before;
  add_match_to_lists(ended, {}, after);
  std::vector<reported_record> records;
  add_new_lines(records, "Highest scores", before.top_scores, after.top_scores);
  add_new_lines(records, "Best bowling", before.top_bowling, after.top_bowling);
  add_new_lines(records, "Highest totals", before.highest_totals, after.highest_totals);
  add_new_lines(records, "Lowest totals", before.lowest_totals, after.lowest_totals);
  add_new_stands(records, before.partnerships, after.partnerships);
  return records;
}

}  // namespace velorin
