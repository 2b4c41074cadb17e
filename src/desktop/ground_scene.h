// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QColor>
#include <QString>
#include <array>
#include <optional>

// What a picture of a ground shows: where it lies, when, and in which weather.

namespace velorin {

/// One picture is the same for the same three.
struct GroundScene {
  QString country;        ///< empty: a ground anywhere
  int minutes = 13 * 60;  ///< the time of day since midnight, 0 to 1439
  int weather = 3;        ///< as in a match: 1 rain, 2 overcast, 3 sunshine, 4 haze
  /// The sky from the top to the horizon where it is told, without sun and clouds; otherwise by hour and weather.
  std::optional<std::array<QColor, 2>> sky = {};
};

/// What stands behind the ground.
enum class Backdrop { trees, hills, mountains, palms, skyline, stands };

/// That of a country: set for those of the bundled grounds, by its name for others; trees without a name.
Backdrop backdrop_of(const QString& country);

/// The light of a scene.
struct GroundLight {
  QColor sky_top;
  QColor sky_low;      ///< at the horizon
  double light = 1;    ///< of what lies below, 0.5 to 1
  double cloud = 0;    ///< share of the sky, 0 to 1
  bool night = false;  ///< the moon is up, and the floodlights are lit
};

/// `dark`: for the dark looks, whose days are dim as well.
GroundLight light_of(const GroundScene& scene, bool dark);

/// Which of two inks is the easier to read on the sky, the dark or the light one.
QColor ink_on_sky(const GroundLight& light);

}  // namespace velorin
