// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <span>
#include <vector>

#include "competitions/league.h"

namespace velorin {

class TableView;

/// The headings over points and net run rate, which differ between competitions.
struct league_headings {
  const char* points;
  const char* rate;
};
inline constexpr league_headings tri_headings = {"Pts", "Net RR"};
inline constexpr league_headings cup_headings = {"Points", "NRR"};

/// A league table of these rows, in their order, under the object name `name` and the name `title`. It keeps room for
/// `room` rows. `human`: whether the user captains the team of each row; where he captains any, a column says so.
TableView* new_league_view(const QString& name, const QString& title, std::span<const league_texts> rows,
                           const league_headings& headings, int room, const std::vector<bool>& human = {});

}  // namespace velorin
