// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>
#include <array>

#include "desktop/theme.h"

// The colours of the teams. Where two of them meet on a picture they can be told apart, and from what lies behind.

namespace velorin {

/// What a team plays in. `trim` stands out from `body` by 3 : 1 or more.
struct TeamColors {
  QColor body;   ///< shirt, cap, field of the crest
  QColor trim;   ///< brim, edges, what the crest shows
  QColor other;  ///< instead of `body` where the opponents' is too near
};

/// The colours of the team of this name: those of the bundled teams are set, others follow from the name.
TeamColors team_colors(const QString& team);

/// The least contrast with everything that a team's colour is drawn on in this look: 3, in high contrast 7.
double least_contrast(const Theme& look);

/// The colours of both sides of a match in this look, for lines, bars and marks: legible on its grounds and cards, and
/// apart from each other. Where the teams' own are too near, the second side has its other colour.
std::array<QColor, 2> match_colors(const QString& first, const QString& second, const Theme& look);

/// The contrast of two colours as WCAG 2 reckons it, 1 to 21.
double contrast_of(const QColor& a, const QColor& b);

/// How far apart two colours look: the distance in CIE L*a*b*. From 2 on people see one.
double color_distance(const QColor& a, const QColor& b);
/// Colours this far apart are told from each other at a glance.
inline constexpr double told_apart = 25;

}  // namespace velorin
