// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace velorin::testing {

/// The teams of the bundled database.
inline QStringList bundled_teams() {
  return {"Australia", "Bangladesh",   "England",   "India",       "New Zealand",
          "Pakistan",  "South Africa", "Sri Lanka", "West Indies", "Zimbabwe"};
}

/// Names of teams that nothing is set for.
inline QStringList free_teams(int count) {
  QStringList names;
  for (int i = 0; i < count; ++i) names << QStringLiteral("Side %1 of %2").arg(i).arg(QChar('A' + i % 26));
  return names;
}

}  // namespace velorin::testing
