// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>

#include "competitions/match_entry.h"
#include "competitions/world_cup.h"
#include "model/match_set_up.h"

// Which match a competition plays next: the one account of its rounds, places and numbers.

namespace velorin {

struct series_record;
struct tri_record;

enum class match_stage { series, tri_league, tri_final, cup_groups, super_six, semi_finals, grand_final };

/// The two sides in the order in which a match is entered.
using entered_sides = std::array<entered_side, 2>;

/// A match that is still to be played.
struct coming_match {
  match_stage stage = match_stage::series;
  int number_in_stage = 0;             ///< from 1; both groups of the World Cup are one stage
  int number = 0;                      ///< within the competition, from 1
  int left = 0;                        ///< matches to come after it, 0 or more
  std::optional<entered_sides> sides;  ///< nothing while they are not known
  std::optional<std::string> ground;  ///< nothing if it is drawn as the match is entered; "" where none was to be drawn

  /// It is known that a human captains one of the sides.
  bool has_human() const { return sides && ((*sides)[0].human || (*sides)[1].human); }
};

/// What it is played for, for those who keep the match.
match_occasion occasion_of(const coming_match& coming);

/// The match that comes next, as the records stand between two matches, while the standings are shown. Nothing before
/// the competition has begun and once it is over. Where the table from which the sides follow is still unsorted, they
/// are those of the table as it will be sorted.
std::optional<coming_match> next_match(const series_record& series);
std::optional<coming_match> next_match(const tri_record& tri);
std::optional<coming_match> next_match(const world_cup_record& world_cup);

/// Matches to come after the one in play, as the records stand during it: the series and the knock-out of the World Cup
/// count a match as they enter it, the other stages once it is booked.
int matches_after_this(const series_record& series);
int matches_after_this(const tri_record& tri);
int matches_after_this(const world_cup_record& world_cup);

/// The Super Six of the record is that of the tournament under way, and not what an earlier one has left.
bool has_super_six(const world_cup_record& world_cup);

/// The sides of a line of the fixture list. Nothing for a line that is not drawn.
std::optional<entered_sides> fixture_sides(const world_cup_record& world_cup, const cup_fixture& fixture);

/// The captains of the Super Six, by the places of its table.
using super_six_captains = std::array<bool, cup_super_six_places + 1>;
/// Sorts the table of the Super Six, and the captains along with it.
void sort_super_six(super_six_league& table, super_six_captains& human);
/// The sides of semi-final 1 or 2 by the sorted table: places 1 and 4, 2 and 3.
entered_sides semi_final_sides(const super_six_league& table, const super_six_captains& human, int number);
/// The winners of the semi-finals.
entered_sides final_sides(const world_cup_record& world_cup);

}  // namespace velorin
