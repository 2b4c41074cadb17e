// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/cup_model.h"

#include <algorithm>

#include "model/texts.h"

namespace velorin::testing {

namespace {

double gain_of(const match_result& result, const std::string& team) {
  EXPECT_TRUE(result.rate_first.team == team || result.rate_second.team == team);
  return (result.rate_first.team == team ? result.rate_first : result.rate_second).delta;
}

/// Books a match from the side of `team`.
void book(cup_model::tally& row, const match_result& result, const std::string& team) {
  ++row.played;
  if (result.result_winner.empty()) {
    ++row.tied;
  } else if (result.result_winner == team) {
    ++row.won;
  } else {
    ++row.lost;
  }
  row.rate += gain_of(result, team);
}

bool ahead(const cup_model::tally& a, const cup_model::tally& b) {
  return a.points() != b.points() ? a.points() > b.points() : a.rate > b.rate;
}

}  // namespace

void cup_model::tally::add(const tally& other) {
  played += other.played;
  won += other.won;
  lost += other.lost;
  tied += other.tied;
  rate += other.rate;
}

void cup_model::begin(const std::vector<std::string>& a, const std::vector<std::string>& b) {
  for (int group = 0; group < 2; ++group) {
    const std::vector<std::string>& names = group == 0 ? a : b;
    for (int i = 0; i < 5; ++i) {
      groups_[group][i].team = names[i];
      for (int j = 0; j < 5; ++j) {
        if (j != i) groups_[group][i].against[j].team = names[j];
      }
    }
  }
}

void cup_model::book_group(int group, const entered_match& played) {
  const auto cell_of = [&](const std::string& team, const std::string& other) -> tally& {
    tally* found = nullptr;
    for (member& man : groups_[group]) {
      if (man.team != team) continue;
      for (tally& cell : man.against) {
        if (cell.team == other) found = &cell;
      }
    }
    EXPECT_NE(found, nullptr) << team << " and " << other << " are in no group together";
    return *found;
  };
  book(cell_of(played.first, played.second), played.result, played.first);
  book(cell_of(played.second, played.first), played.result, played.second);
}

cup_model::tally cup_model::total(const member& team) {
  tally sum;
  sum.team = team.team;
  for (const tally& cell : team.against) sum.add(cell);
  return sum;
}

void cup_model::cut() {
  for (int group = 0; group < 2; ++group) {
    group_members& members = groups_[group];
    std::stable_sort(members.begin(), members.end(),
                     [](const member& a, const member& b) { return ahead(total(a), total(b)); });
    const int first = 3 * group;
    for (int i = 0; i < 3; ++i) six_[first + i].team = members[i].team;
    for (int i = 0; i < 3; ++i) {
      for (const tally& cell : members[i].against) {
        const auto qualifies = [&](const tally& row) { return row.team == cell.team; };
        if (std::any_of(six_.begin() + first, six_.begin() + first + 3, qualifies)) six_[first + i].add(cell);
      }
    }
  }
}

void cup_model::book_super_six(const entered_match& played) {
  for (tally& row : six_) {
    if (row.team == played.first || row.team == played.second) book(row, played.result, row.team);
  }
}

void cup_model::close() { six_ = super_six_table(); }

cup_model::table cup_model::group_table(int group) const {
  table rows;
  for (const member& team : groups_[group]) rows.push_back(total(team));
  std::stable_sort(rows.begin(), rows.end(), ahead);
  return rows;
}

cup_model::table cup_model::super_six_table() const {
  table rows = six_;
  std::stable_sort(rows.begin(), rows.end(), ahead);
  return rows;
}

void expect_table(const std::vector<std::array<std::string, 7>>& shown, const cup_model::table& wanted,
                  const std::string& where) {
  ASSERT_EQ(shown.size(), wanted.size()) << where;
  for (std::size_t i = 0; i < wanted.size(); ++i) {
    const cup_model::tally& row = wanted[i];
    const std::vector<std::string> figures = {row.team,
                                              std::to_string(row.played),
                                              std::to_string(row.won),
                                              std::to_string(row.lost),
                                              std::to_string(row.tied),
                                              std::to_string(row.points())};
    EXPECT_EQ(std::vector<std::string>(shown[i].begin(), shown[i].begin() + 6), figures) << where << ", row " << i + 1;
    EXPECT_NEAR(*number_in(shown[i][6]), row.rate, 0.005000001) << where << ", row " << i + 1;
  }
}

}  // namespace velorin::testing
