// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ground_scene.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "desktop/name_draw.h"
#include "desktop/team_colors.h"

namespace velorin {

namespace {

struct SkyAt {
  int minutes;
  QRgb top;
  QRgb low;
  double light;
};

constexpr std::array<SkyAt, 9> skies = {{{0, 0x0B1430, 0x26345A, 0.62},
                                         {5 * 60, 0x16234A, 0x5A5478, 0.62},
                                         {6 * 60 + 15, 0x7FA3CF, 0xF7D9B5, 0.85},
                                         {8 * 60 + 30, 0x6FA8D6, 0xEAF2F2, 1},
                                         {16 * 60, 0x6FA8D6, 0xEAF2F2, 1},
                                         {18 * 60, 0x7E9CC8, 0xF9CF98, 0.92},
                                         {19 * 60 + 15, 0x35447A, 0xE08D6C, 0.75},
                                         {20 * 60 + 15, 0x0F1A3A, 0x33406A, 0.62},
                                         {24 * 60, 0x0B1430, 0x26345A, 0.62}}};

struct CountryBackdrop {
  const char* country;  // as plain_name() has it
  Backdrop backdrop;
};

constexpr CountryBackdrop country_backdrops[] = {
    {"", Backdrop::trees},
    {"australia", Backdrop::skyline},
    {"bangladesh", Backdrop::palms},
    {"england", Backdrop::trees},
    {"india", Backdrop::stands},
    {"neutral", Backdrop::skyline},
    {"new zealand", Backdrop::hills},
    {"pakistan", Backdrop::mountains},
    {"south africa", Backdrop::mountains},
    {"sri lanka", Backdrop::palms},
    {"west indies", Backdrop::palms},
    {"zimbabwe", Backdrop::hills},
};

QColor sky_mix(const QColor& a, const QColor& b, double share) {
  const auto channel = [share](int from, int to) { return static_cast<int>(std::lround(from + (to - from) * share)); };
  return {channel(a.red(), b.red()), channel(a.green(), b.green()), channel(a.blue(), b.blue())};
}

}  // namespace

Backdrop backdrop_of(const QString& country) {
  const QString name = plain_name(country);
  const auto* set = std::find_if(std::begin(country_backdrops), std::end(country_backdrops),
                                 [&](const CountryBackdrop& each) { return name == QLatin1String(each.country); });
  if (set != std::end(country_backdrops)) return set->backdrop;
  return static_cast<Backdrop>(NameDraw(name + QStringLiteral("/ground")).below(6));
}

GroundLight light_of(const GroundScene& scene, bool dark) {
  const int minutes = std::clamp(scene.minutes, 0, 24 * 60 - 1);
  std::size_t after = 1;
  while (skies[after].minutes <= minutes) ++after;
  const SkyAt& from = skies[after - 1];
  const SkyAt& to = skies[after];
  const double share = static_cast<double>(minutes - from.minutes) / (to.minutes - from.minutes);
  GroundLight light;
  light.sky_top = sky_mix(QColor(from.top), QColor(to.top), share);
  light.sky_low = sky_mix(QColor(from.low), QColor(to.low), share);
  light.light = from.light + (to.light - from.light) * share;
  light.night = minutes < 5 * 60 + 30 || minutes >= 19 * 60 + 30;
  struct Weather {
    double cloud;
    double gray;
    double light;
  };
  // Rain, overcast, sunshine, haze.
  constexpr std::array<Weather, 4> weathers = {{{1, 0.8, 0.86}, {0.7, 0.5, 0.93}, {0.2, 0, 1}, {0.35, 0.15, 1}}};
  const Weather& weather = weathers[static_cast<std::size_t>(std::clamp(scene.weather, 1, 4) - 1)];
  light.cloud = weather.cloud;
  const int level = static_cast<int>(190 * light.light * light.light);
  light.sky_top = sky_mix(light.sky_top, QColor(level - 22, level - 14, level - 6), weather.gray);
  light.sky_low = sky_mix(light.sky_low, QColor(level + 10, level + 16, level + 18), weather.gray);
  light.light *= weather.light;
  if (dark) {
    light.sky_top = sky_mix(light.sky_top, QColor(0x0B1A2E), 0.72);
    light.sky_low = sky_mix(light.sky_low, QColor(0x1A2740), 0.72);
  }
  return light;
}

QColor ink_on_sky(const GroundLight& light) {
  const auto worst = [&](const QColor& ink) {
    return std::min(contrast_of(ink, light.sky_top), contrast_of(ink, sky_mix(light.sky_top, light.sky_low, 0.6)));
  };
  const QColor deep(0x0C2A1E);
  const QColor pale(0xFFFBEF);
  return worst(deep) >= worst(pale) ? deep : pale;
}

}  // namespace velorin
