// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPainter>
#include <QRectF>

#include "desktop/ground_scene.h"

// The upper part of a picture of a ground: sky, clouds, what stands behind.

namespace velorin {

/// The share of the picture's height above the ground.
inline constexpr double ground_horizon = 0.34;

/// What the parts of the picture are painted with.
struct GroundPart {
  QPainter& painter;
  QRectF all;
  bool dark;
  GroundScene scene;
  GroundLight light;

  /// A colour in the light of the scene.
  QColor lit(QRgb bright, QRgb dim) const {
    const QColor color(dark ? dim : bright);
    const double share = dark ? 0.5 + light.light / 2 : light.light;
    return {static_cast<int>(color.red() * share), static_cast<int>(color.green() * share),
            static_cast<int>(color.blue() * share)};
  }
  double x(double share) const { return all.width() * share; }
  double y(double share) const { return all.height() * share; }
};

/// The sky with sun or moon and its clouds.
void paint_sky(const GroundPart& g);
/// What the country has behind its grounds, with the masts of the floodlights before it.
void paint_backdrop(const GroundPart& g);

}  // namespace velorin
