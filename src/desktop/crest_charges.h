// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

/// What a crest can show. The first ten are those of the bundled teams.
enum class Charge {
  blossom,
  river,
  acorn,
  plume,
  peaks,
  petals,
  sunrise,
  shoots,
  sail,
  tower,
  ball,
  stumps,
  bats,
  star,
  wheel,
  bridge,
  diamonds,
  torch
};
inline constexpr int charges = 18;

/// A charge as part of an SVG, within 15 units around the origin. "@t" stands for its colour, "@b" for what lies
/// behind.
const char* charge_shapes(Charge charge);

}  // namespace velorin
