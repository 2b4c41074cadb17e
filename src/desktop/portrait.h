// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velorin {

/// A drawn head for a player without a photo, in his team's cap, as SVG of 90 by 110 units. It follows from both names
/// alone: the same man of the same team looks the same everywhere.
/// `dark`: on a ground for dark windows.
QString portrait_svg(const QString& player, const QString& team, bool dark = false);

}  // namespace velorin
