// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "browsers/career_rates.h"
#include "database/lasting_records.h"

// All players with a career in one list, and the sort that the tables of players share.

namespace velorin {

inline constexpr int table_rows = 15;  ///< rows of a table of players

using player_pool = std::vector<const career_rec*>;

/// The careers in the order of the table, which must outlive the pool.
player_pool all_players(const career_table& careers);
/// The same of one team alone.
player_pool players_of(const career_table& careers, const std::string& team);

/// The team of a career of the table, which must be in it.
const std::string& team_of(const career_table& careers, const career_rec& career);

/// By what a table is sorted; none where the condition of the key fails.
using career_key = career_rate (*)(const career_rec& career);
enum class sort_order { descending, ascending };

/// Bubble sort with two held keys, one for each man of a comparison, both 0 at the start. A man without a key is taken
/// to have the key last held in his place of the comparison, so he can end anywhere. Neighbours are exchanged only if
/// their keys differ: men of equal keys stay in their order.
void sort_by_held_keys(player_pool& pool, career_key key, sort_order order);

}  // namespace velorin
