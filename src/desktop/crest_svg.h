// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velorin {

/// A team's crest as SVG, 64 by 64 units: a shield in the team's colours with a sign of its own. It follows from the
/// name alone: the bundled teams have crests that are set, every other name gives the same one everywhere. A dark and a
/// white edge keep it clear of any ground.
QString crest_svg(const QString& team);

/// The sign of a crest within the crest, for the cap of a portrait: 64 by 64 units around the middle, in `color` on
/// `ground`. No SVG of its own, but a part of one.
QString crest_charge(const QString& team, const QString& color, const QString& ground);

}  // namespace velorin
