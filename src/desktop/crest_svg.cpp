// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/crest_svg.h"

#include <QPainterPath>
#include <algorithm>
#include <array>
#include <iterator>

#include "desktop/crest_charges.h"
#include "desktop/name_draw.h"
#include "desktop/team_colors.h"

namespace velorin {

namespace {

/// How the field behind the charge is parted.
enum class CrestField { plain, halves, hoops, chief, base, chevron, quarters };
constexpr int crest_fields = 7;
constexpr int shield_outlines = 4;

struct CrestDesign {
  int outline;
  CrestField field;
  Charge charge;
};

struct SetCrest {
  const char* team;  // as plain_name() has it
  CrestDesign design;
};

constexpr SetCrest set_crests[] = {
    {"australia", {0, CrestField::base, Charge::blossom}},       {"bangladesh", {2, CrestField::base, Charge::river}},
    {"england", {0, CrestField::quarters, Charge::acorn}},       {"india", {1, CrestField::halves, Charge::plume}},
    {"new zealand", {3, CrestField::plain, Charge::peaks}},      {"pakistan", {2, CrestField::chief, Charge::petals}},
    {"south africa", {1, CrestField::chevron, Charge::sunrise}}, {"sri lanka", {3, CrestField::hoops, Charge::shoots}},
    {"west indies", {0, CrestField::halves, Charge::sail}},      {"zimbabwe", {1, CrestField::hoops, Charge::tower}},
};

CrestDesign crest_design(const QString& team) {
  const QString name = plain_name(team);
  const auto* own = std::find_if(std::begin(set_crests), std::end(set_crests),
                                 [&](const SetCrest& each) { return name == QLatin1String(each.team); });
  if (own != std::end(set_crests)) return own->design;
  NameDraw draw(name + QStringLiteral("/crest"));
  CrestDesign design{};
  design.outline = draw.below(shield_outlines);
  design.field = static_cast<CrestField>(draw.below(crest_fields));
  design.charge = static_cast<Charge>(draw.below(charges));
  return design;
}

QPainterPath shield_path(int outline) {
  QPainterPath path;
  switch (outline) {
    case 0:  // a shield with a straight top
      path.moveTo(8, 5);
      path.lineTo(56, 5);
      path.lineTo(56, 32);
      path.cubicTo(56, 46, 44, 54, 32, 60);
      path.cubicTo(20, 54, 8, 46, 8, 32);
      break;
    case 1:  // a round one
      path.addEllipse(QPointF(32, 32), 27, 27);
      break;
    case 2:  // with a curved top
      path.moveTo(8, 9);
      path.quadTo(20, 9, 32, 4);
      path.quadTo(44, 9, 56, 9);
      path.lineTo(56, 34);
      path.cubicTo(56, 47, 44, 54, 32, 60);
      path.cubicTo(20, 54, 8, 47, 8, 34);
      break;
    default:  // with six corners
      path.moveTo(32, 4);
      path.lineTo(57, 17);
      path.lineTo(57, 47);
      path.lineTo(32, 60);
      path.lineTo(7, 47);
      path.lineTo(7, 17);
      break;
  }
  path.closeSubpath();
  return path;
}

QString svg_number(double value) { return QString::number(value, 'f', 2); }

/// The path as SVG writes one.
QString path_data(const QPainterPath& path) {
  QString data;
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPainterPath::Element& at = path.elementAt(i);
    const char* command = at.isMoveTo()                             ? "M"
                          : at.isLineTo()                           ? "L"
                          : at.type == QPainterPath::CurveToElement ? "C"
                                                                    : " ";
    data += QLatin1String(command) + svg_number(at.x) + QLatin1Char(' ') + svg_number(at.y);
  }
  return data + QLatin1Char('Z');
}

QString filled(const QPainterPath& path, const QColor& color) {
  return QStringLiteral("<path fill=\"%1\" d=\"%2\"/>").arg(color.name(), path_data(path));
}

/// What a field shows besides the body's colour. The charge stands clear of trim.
QString field_shapes(CrestField field, const QPainterPath& shield, const TeamColors& colors) {
  const QColor deep = colors.body.lightnessF() > 0.2F ? colors.body.darker(125) : colors.body.lighter(160);
  const auto part = [&](const QColor& color, std::initializer_list<QPointF> corners) {
    QPainterPath area;
    area.addPolygon(QPolygonF(QList<QPointF>(corners)));
    area.closeSubpath();
    return filled(area.intersected(shield), color);
  };
  const auto box = [&](const QColor& color, double x, double y, double w, double h) {
    return part(color, {{x, y}, {x + w, y}, {x + w, y + h}, {x, y + h}});
  };
  switch (field) {
    case CrestField::plain:
      return {};
    case CrestField::halves:
      return box(deep, 32, 0, 32, 64);
    case CrestField::hoops:
      return box(deep, 0, 12, 64, 8) + box(deep, 0, 28, 64, 8) + box(deep, 0, 44, 64, 8);
    case CrestField::chief:
      return box(colors.trim, 0, 0, 64, 17);
    case CrestField::base:
      return box(colors.trim, 0, 47, 64, 17);
    case CrestField::chevron:
      return part(colors.trim, {{0, 62}, {32, 44}, {64, 62}, {64, 54}, {32, 36.5}, {0, 54}}) +
             part(deep, {{0, 62}, {32, 44}, {64, 62}, {64, 64}, {0, 64}});
    case CrestField::quarters:
      return box(deep, 32, 0, 32, 31) + box(deep, 0, 31, 32, 33);
  }
  return {};
}

/// Where the middle of the charge stands, and its size of 1.
struct ChargePlace {
  double y;
  double size;
};

ChargePlace charge_place(CrestField field) {
  switch (field) {
    case CrestField::chief:
      return {36, 1.05};
    case CrestField::base:
      return {27.5, 1.1};
    case CrestField::chevron:
      return {23.5, 0.95};
    default:
      return {31, 1.3};
  }
}

QString charge_at(const QString& team, const QString& color, const QString& ground, ChargePlace place) {
  return QStringLiteral("<g transform=\"translate(32 %1) scale(%2)\">%3</g>")
      .arg(svg_number(place.y), svg_number(place.size),
           QString::fromLatin1(charge_shapes(crest_design(team).charge))
               .replace(QLatin1String("@t"), color)
               .replace(QLatin1String("@b"), ground));
}

}  // namespace

QString crest_charge(const QString& team, const QString& color, const QString& ground) {
  return charge_at(team, color, ground, {32, 1.6});
}

QString crest_svg(const QString& team) {
  const CrestDesign design = crest_design(team);
  const TeamColors colors = team_colors(team);
  const QPainterPath shield = shield_path(design.outline);
  const QString edge =
      QStringLiteral("<path fill=\"none\" stroke=\"%1\" stroke-width=\"%2\" stroke-linejoin=\"round\" d=\"%3\"/>");
  QString svg = QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 64 64\">");
  svg += edge.arg(QStringLiteral("#11161a"), QStringLiteral("7"), path_data(shield));
  svg += filled(shield, colors.body) + field_shapes(design.field, shield, colors);
  svg += charge_at(team, colors.trim.name(), colors.body.name(), charge_place(design.field));
  svg += edge.arg(QStringLiteral("#ffffff"), QStringLiteral("3.5"), path_data(shield));
  return svg + QStringLiteral("</svg>\n");
}

}  // namespace velorin
