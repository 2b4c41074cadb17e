// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/portrait.h"

#include <QColor>
#include <algorithm>
#include <array>
#include <iterator>

#include "desktop/crest_svg.h"
#include "desktop/name_draw.h"
#include "desktop/team_colors.h"

namespace velorin {

namespace {

struct Skin {
  QRgb tone;
  QRgb shade;
  QRgb lips;
};

// From light to dark.
constexpr std::array<Skin, 8> skins = {{{0xF6D7C0, 0xE3B597, 0xC4736A},
                                        {0xEFC4A2, 0xD9A37C, 0xBB6B5E},
                                        {0xE2AE86, 0xC78E63, 0xA95F50},
                                        {0xCB9468, 0xAD774B, 0x94543F},
                                        {0xB37C50, 0x946138, 0x7F4735},
                                        {0x97653D, 0x7A4D2A, 0x6B3A2B},
                                        {0x774B2C, 0x5C381E, 0x532B22},
                                        {0x5A3822, 0x432816, 0x3D1F19}}};

constexpr std::array<QRgb, 6> hairs = {0x1A1512, 0x2A1D15, 0x463022, 0x6E4A2B, 0xA9793F, 0x8C4524};

/// Skins that a team's men are drawn with, both ends included; every team has several.
struct TeamSkins {
  const char* team;  // as plain_name() has it
  int from;
  int to;
};

constexpr TeamSkins team_skins[] = {
    {"australia", 0, 3}, {"bangladesh", 3, 6},   {"england", 0, 5},   {"india", 2, 6},       {"new zealand", 0, 4},
    {"pakistan", 1, 5},  {"south africa", 0, 7}, {"sri lanka", 3, 7}, {"west indies", 3, 7}, {"zimbabwe", 0, 7},
};

enum class Beard { none, stubble, moustache, short_beard, full };

/// What is drawn of one man.
struct Face {
  Skin skin;
  QColor hair;
  int width;       ///< half of it, in units
  int chin;        ///< how far below the eyes
  int eyes;        ///< half their distance
  int brows;       ///< how they slope, -2 to 1
  int smile;       ///< how far the mouth is bent, 1 to 4
  int nose;        ///< its length
  int side_hair;   ///< how far it comes down
  bool long_hair;  ///< behind the neck
  Beard beard;
};

Face face_of(const QString& player, const QString& team) {
  const QString side = plain_name(team);
  const auto* skins_of = std::find_if(std::begin(team_skins), std::end(team_skins),
                                      [&](const TeamSkins& each) { return side == QLatin1String(each.team); });
  const bool set = skins_of != std::end(team_skins);
  NameDraw draw(plain_name(player) + QLatin1Char('/') + side);
  Face face{};
  const int skin = draw.between(set ? skins_of->from : 0, set ? skins_of->to : static_cast<int>(skins.size()) - 1);
  face.skin = skins[static_cast<std::size_t>(skin)];
  // Fair hair goes with fair skin.
  face.hair = QColor(hairs[static_cast<std::size_t>(draw.below(skin < 2 ? 6 : skin < 4 ? 3 : 2))]);
  face.width = draw.between(18, 21);
  face.chin = draw.between(25, 30);
  face.eyes = draw.between(7, 9);
  face.brows = draw.between(-2, 1);
  face.smile = draw.between(1, 4);
  face.nose = draw.between(7, 10);
  face.side_hair = draw.between(2, 9);
  face.long_hair = draw.below(7) == 0;
  constexpr std::array<Beard, 10> shares = {Beard::none,    Beard::none,       Beard::none,      Beard::none,
                                            Beard::stubble, Beard::stubble,    Beard::moustache, Beard::short_beard,
                                            Beard::full,    Beard::short_beard};
  face.beard = shares[static_cast<std::size_t>(draw.below(static_cast<int>(shares.size())))];
  return face;
}

constexpr int middle = 45;  // of the picture, across
constexpr int eye_line = 52;

/// The jaw: half an oval from the eye line down to the chin, `out` units larger.
QString jaw(const Face& face, double out) {
  const double w = face.width + out;
  const double h = face.chin + out;
  return QStringLiteral("M%1 %3C%1 %4 %5 %6 %7 %6C%8 %6 %2 %4 %2 %3")
      .arg(middle - w)
      .arg(middle + w)
      .arg(eye_line)
      .arg(eye_line + h * 0.72)
      .arg(middle - w * 0.52)
      .arg(eye_line + h)
      .arg(middle)
      .arg(middle + w * 0.52);
}

QString body_svg(const Face& face, const TeamColors& colors) {
  const QString skin = QColor(face.skin.tone).name();
  const QString shade = QColor(face.skin.shade).name();
  QString svg;
  if (face.long_hair) {
    svg += QStringLiteral("<path fill=\"%1\" d=\"M%2 46q-5 22 -1 38h%3q4 -16 -1 -38z\"/>")
               .arg(face.hair.name())
               .arg(middle - face.width - 2)
               .arg(2 * face.width + 6);
  }
  svg += QStringLiteral("<path fill=\"%1\" d=\"M36 70h18v18q-9 8 -18 0z\"/>").arg(shade);
  svg += QStringLiteral(
             "<path fill=\"%1\" d=\"M3 130V112c1 -17 10 -23 21 -26l12 -4q9 10 18 0l12 4c11 3 20 9 21 26V130z\"/>")
             .arg(colors.body.name());
  svg += QStringLiteral("<path fill=\"%1\" d=\"M35 81l-5 3l12 16l3 -7l3 7l12 -16l-5 -3l-10 10z\"/>")
             .arg(colors.trim.name());
  svg += QStringLiteral(
             "<g fill=\"%1\"><ellipse cx=\"%2\" cy=\"55\" rx=\"4\" ry=\"6\"/>"
             "<ellipse cx=\"%3\" cy=\"55\" rx=\"4\" ry=\"6\"/></g>")
             .arg(shade)
             .arg(middle - face.width)
             .arg(middle + face.width);
  return svg + QStringLiteral("<path fill=\"%1\" d=\"%2V36H%3z\"/>").arg(skin, jaw(face, 0)).arg(middle - face.width);
}

QString hair_svg(const Face& face) {
  const QString hair = face.hair.name();
  const double left = middle - face.width;
  const double right = middle + face.width;
  QString svg =
      QStringLiteral("<g fill=\"%1\"><path d=\"M%2 40h4l-1 %4l-3 %5z\"/><path d=\"M%3 40h-4l1 %4l3 %5z\"/></g>")
          .arg(hair)
          .arg(left)
          .arg(right)
          .arg(8 + face.side_hair)
          .arg(2);
  if (face.beard == Beard::none) return svg;
  const double mouth = eye_line + face.nose + 8;
  const bool whole = face.beard == Beard::full || face.beard == Beard::short_beard || face.beard == Beard::stubble;
  if (whole) {
    const double up = face.beard == Beard::full ? 1.6 : 0;
    svg += QStringLiteral(
               "<path fill=\"%1\" fill-opacity=\"%2\" fill-rule=\"evenodd\" d=\"%3"
               "C%4 %5 %6 %7 %8 %7C%9 %7 ")
               .arg(hair, face.beard == Beard::stubble ? QStringLiteral("0.28") : QStringLiteral("1"), jaw(face, up))
               .arg(right - 2)
               .arg(eye_line + 10)
               .arg(middle + 9)
               .arg(mouth - 5.5)
               .arg(middle)
               .arg(middle - 9);
    svg += QStringLiteral("%1 %2 %3 %4z\"/>").arg(left + 2).arg(eye_line + 10).arg(left).arg(eye_line);
  }
  if (face.beard == Beard::moustache || face.beard == Beard::full) {
    svg += QStringLiteral("<path fill=\"%1\" d=\"M%2 %3q2 -4.5 8 -3.500q6 -1 8 3.500q-8 -1.5 -16 0z\"/>")
               .arg(hair)
               .arg(middle - 8)
               .arg(mouth - 2);
  }
  return svg;
}

QString features_svg(const Face& face) {
  QString svg;
  for (const int side : {-1, 1}) {
    const double x = middle + side * face.eyes;
    svg += QStringLiteral(
               "<ellipse fill=\"#fbf8f2\" cx=\"%1\" cy=\"%2\" rx=\"3.4\" ry=\"2.3\"/>"
               "<circle fill=\"#2b1d14\" cx=\"%1\" cy=\"%2\" r=\"1.9\"/>")
               .arg(x)
               .arg(eye_line);
    svg += QStringLiteral(
               "<path fill=\"none\" stroke=\"%1\" stroke-width=\"2\" stroke-linecap=\"round\" "
               "d=\"M%2 %3L%4 %5\"/>")
               .arg(face.hair.name())
               .arg(x - side * 3.5)
               .arg(eye_line - 5.5 + 0.5 * face.brows)
               .arg(x + side * 4.0)
               .arg(eye_line - 5.5 - 0.3 * face.brows);
  }
  const double nose = eye_line + face.nose;
  svg += QStringLiteral(
             "<path fill=\"none\" stroke=\"%1\" stroke-width=\"1.8\" stroke-linecap=\"round\" "
             "stroke-linejoin=\"round\" d=\"M%2 %3L%4 %5q1.5 1.5 4 0.5\"/>")
             .arg(QColor(face.skin.shade).name())
             .arg(middle + 0.5)
             .arg(eye_line + 1)
             .arg(middle - 2.5)
             .arg(nose);
  return svg + QStringLiteral(
                   "<path fill=\"none\" stroke=\"%1\" stroke-width=\"2.2\" stroke-linecap=\"round\" "
                   "d=\"M%2 %3q6.5 %4 13 0\"/>")
                   .arg(QColor(face.skin.lips).name())
                   .arg(middle - 6.5)
                   .arg(nose + 7)
                   .arg(face.smile);
}

/// The cap: a crown with the team's sign, and a brim.
QString cap_svg(const Face& face, const QString& team, const TeamColors& colors) {
  const double w = face.width + 2.5;
  const QString crown = QStringLiteral("M%1 43C%2 22 %3 14 45 14C%4 14 %5 22 %6 43z")
                            .arg(middle - w)
                            .arg(middle - w - 3)
                            .arg(middle - w * 0.7)
                            .arg(middle + w * 0.7)
                            .arg(middle + w + 3)
                            .arg(middle + w);
  QString svg = QStringLiteral("<path fill=\"%1\" d=\"%2\"/>").arg(colors.body.name(), crown);
  svg += QStringLiteral(
      "<g fill=\"none\" stroke=\"#000000\" stroke-opacity=\"0.2\" stroke-width=\"1.2\">"
      "<path d=\"M45 14v5\"/><path d=\"M45 14C34 18 30 28 30 42\"/>"
      "<path d=\"M45 14C56 18 60 28 60 42\"/></g>");
  svg += QStringLiteral("<circle fill=\"%1\" cx=\"45\" cy=\"14\" r=\"2\"/>").arg(colors.trim.name());
  svg += QStringLiteral("<g transform=\"translate(36.5 19.5) scale(0.265)\">%1</g>")
             .arg(crest_charge(team, colors.trim.name(), colors.body.name()));
  // The brim, with its shadow on the brow.
  svg += QStringLiteral("<path fill=\"#000000\" fill-opacity=\"0.16\" d=\"M%1 42h%2l-3 5q-%3 -6 -%4 0z\"/>")
             .arg(middle - face.width)
             .arg(2 * face.width)
             .arg(face.width - 3)
             .arg(2 * face.width - 6);
  return svg + QStringLiteral(
                   "<path fill=\"%1\" stroke=\"#000000\" stroke-opacity=\"0.18\" d=\"M%2 42q%3 -9 %4 0q1.5 "
                   "4 -1.5 4q-%5 -8 -%6 0q-3 0 -1.5 -4z\"/>")
                   .arg(colors.trim.name())
                   .arg(middle - w - 2)
                   .arg(w + 2)
                   .arg(2 * w + 4)
                   .arg(w + 0.5)
                   .arg(2 * w + 1);
}

}  // namespace

QString portrait_svg(const QString& player, const QString& team, bool dark) {
  const Face face = face_of(player, team);
  const TeamColors colors = team_colors(team);
  const QColor tint = colors.body;
  const auto paler = [&](int share) {
    const int bare = dark ? 74 : 255;
    const auto channel = [&](int of) { return bare + (of - bare) * share / 100; };
    return QColor(channel(tint.red()), channel(tint.green()), channel(tint.blue())).name();
  };
  QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 90 110\">");
  svg += QStringLiteral(
             "<linearGradient id=\"back\" x1=\"0\" y1=\"0\" x2=\"0\" y2=\"1\"><stop offset=\"0\" "
             "stop-color=\"%1\"/><stop offset=\"1\" stop-color=\"%2\"/></linearGradient>"
             "<rect x=\"-45\" y=\"-55\" width=\"180\" height=\"220\" fill=\"url(#back)\"/>")
             .arg(paler(12), paler(34));
  svg += body_svg(face, colors) + hair_svg(face) + features_svg(face) + cap_svg(face, team, colors);
  return svg + QStringLiteral("</svg>\n");
}

}  // namespace velorin
