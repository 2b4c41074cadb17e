// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/team_colors.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "desktop/name_draw.h"

namespace velorin {

namespace {

struct SetColors {
  const char* team;  // as plain_name() has it
  QRgb body;
  QRgb trim;
  QRgb other;
};

constexpr SetColors set_colors[] = {
    {"australia", 0xF2B62B, 0x0E4A34, 0x1E7A52},    {"bangladesh", 0x0B5D45, 0xFFD9D2, 0xC73A3F},
    {"england", 0x1D2F6B, 0xF5F2EA, 0xB7C9E8},      {"india", 0x2A7FD0, 0xFFF3DC, 0xE8822A},
    {"new zealand", 0x1B1E22, 0xD5DBDF, 0x3C8C93},  {"pakistan", 0x4E9A2F, 0x12300F, 0xF0EBCB},
    {"south africa", 0x0F766E, 0xFFE08A, 0xD8A31A}, {"sri lanka", 0x28338F, 0xFFC845, 0xE0A51E},
    {"west indies", 0x76163A, 0xF6C667, 0xD08AA0},  {"zimbabwe", 0xCE2B2B, 0xFFE9A8, 0x7A3E12},
};

constexpr SetColors free_colors[] = {
    {"", 0x1F4E79, 0xF4C542, 0xB07A12}, {"", 0x8A1C3B, 0xF3E3C3, 0x2F6F8F}, {"", 0x2E6B3A, 0xF6F1D5, 0xA5522B},
    {"", 0x5B2A86, 0xF2D7FF, 0x2B8A7D}, {"", 0x10656B, 0xFFE2B8, 0xC2552D}, {"", 0xB4431C, 0xFFF0DC, 0x2D4F8E},
    {"", 0x22262B, 0xFF9F45, 0x9A4FB0}, {"", 0x0E4C92, 0xE7F0FA, 0xB23A48}, {"", 0x6B4226, 0xF7E7C6, 0x2C7A57},
    {"", 0xC4306B, 0xFFF1F6, 0x23606E}, {"", 0x3B5D0F, 0xFFF27A, 0x7A3FA0}, {"", 0x4A5568, 0xF9F4E3, 0xB5651D},
    {"", 0xF0C63A, 0x3A2A6B, 0x4C56C0}, {"", 0x7FC4E8, 0x14304F, 0xC23B5A},
};

double linear(double channel) {
  return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& color) {
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

struct Lab {
  double l, a, b;
};

Lab lab(const QColor& color) {
  const double r = linear(color.redF());
  const double g = linear(color.greenF());
  const double b = linear(color.blueF());
  const auto bent = [](double t) { return t > 216.0 / 24389 ? std::cbrt(t) : (24389.0 / 27 * t + 16) / 116; };
  const double x = bent((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
  const double y = bent(0.2126 * r + 0.7152 * g + 0.0722 * b);
  const double z = bent((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double contrast_in(const QColor& color, const Theme& look) {
  return std::min(
      {contrast_of(color, look.ground), contrast_of(color, look.card), contrast_of(color, look.card_raised)});
}

/// The nearest lighter colour in a dark look, the nearest darker one in a light look, that is legible there.
QColor legible(const QColor& color, const Theme& look) {
  const double least = least_contrast(look);
  const QColor end = look.dark ? QColor(Qt::white) : QColor(Qt::black);
  QColor shade = color;
  for (int step = 1; step <= 50 && contrast_in(shade, look) < least; ++step) {
    const double share = step / 50.0;
    const auto mixed = [share](double from, double to) { return static_cast<float>(from + (to - from) * share); };
    shade = QColor::fromRgbF(mixed(color.redF(), end.redF()), mixed(color.greenF(), end.greenF()),
                             mixed(color.blueF(), end.blueF()));
  }
  return shade;
}

}  // namespace

TeamColors team_colors(const QString& team) {
  const QString name = plain_name(team);
  const auto* own = std::find_if(std::begin(set_colors), std::end(set_colors),
                                 [&](const SetColors& colors) { return name == QLatin1String(colors.team); });
  if (own == std::end(set_colors)) own = &free_colors[NameDraw(name).below(static_cast<int>(std::size(free_colors)))];
  return {QColor(own->body), QColor(own->trim), QColor(own->other)};
}

double least_contrast(const Theme& look) { return look.high_contrast ? 7 : 3; }

std::array<QColor, 2> match_colors(const QString& first, const QString& second, const Theme& look) {
  const QColor one = legible(team_colors(first).body, look);
  const TeamColors theirs = team_colors(second);
  QColor furthest;
  double most = -1;
  for (const QColor& color : {theirs.body, theirs.other, theirs.trim, look.ink}) {
    const QColor shade = legible(color, look);
    const double distance = color_distance(one, shade);
    if (distance >= told_apart) return {one, shade};
    if (distance <= most) continue;
    most = distance;
    furthest = shade;
  }
  return {one, furthest};
}

double contrast_of(const QColor& a, const QColor& b) {
  const double one = luminance(a);
  const double two = luminance(b);
  return (std::max(one, two) + 0.05) / (std::min(one, two) + 0.05);
}

double color_distance(const QColor& a, const QColor& b) {
  const Lab one = lab(a);
  const Lab two = lab(b);
  return std::hypot(one.l - two.l, one.a - two.a, one.b - two.b);
}

}  // namespace velorin
