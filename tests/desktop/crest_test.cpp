// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/crest.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QImage>
#include <set>

#include "desktop/crest_charges.h"
#include "desktop/crest_svg.h"
#include "desktop/team_colors.h"
#include "desktop/team_names.h"

namespace velorin::testing {
namespace {

QImage drawn_crest(const QString& team, int size) { return svg_picture(crest_svg(team), {size, size}, 1).toImage(); }

/// Pixels of which one picture is visibly not the other.
int difference(const QImage& a, const QImage& b) {
  int count = 0;
  for (int y = 0; y < a.height(); ++y) {
    for (int x = 0; x < a.width(); ++x) {
      const QColor one = a.pixelColor(x, y);
      const QColor two = b.pixelColor(x, y);
      if (std::abs(one.alpha() - two.alpha()) > 100 || color_distance(one, two) > told_apart) ++count;
    }
  }
  return count;
}

TEST(CrestTest, TheSameNameHasTheSameCrest) {
  EXPECT_EQ(crest_svg("Kent"), crest_svg("Kent"));
  EXPECT_EQ(crest_svg("  kent "), crest_svg("Kent"));
  EXPECT_EQ(crest_svg("INDIA"), crest_svg("India"));
  EXPECT_NE(crest_svg("Kent"), crest_svg("Essex"));
}

TEST(CrestTest, EveryCrestIsAPicture) {
  for (const QString& team : bundled_teams() + free_teams(60)) {
    const QImage crest = drawn_crest(team, 64);
    ASSERT_FALSE(crest.isNull()) << team.toStdString();
    EXPECT_EQ(crest.pixelColor(0, 0).alpha(), 0) << team.toStdString();
    EXPECT_EQ(crest.pixelColor(32, 32).alpha(), 255) << team.toStdString();
  }
}

TEST(CrestTest, EveryChargeIsOfTwoColoursAtMost) {
  for (int charge = 0; charge < charges; ++charge) {
    QString svg = QString::fromLatin1(charge_shapes(static_cast<Charge>(charge)));
    EXPECT_TRUE(svg.contains("@t")) << charge;
    svg.replace("@t", "#ffffff").replace("@b", "#000000");
    EXPECT_FALSE(svg.contains('@')) << charge;
    const QImage alone =
        svg_picture("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"-32 -32 64 64\">" + svg + "</svg>", {64, 64},
                    1)
            .toImage();
    ASSERT_FALSE(alone.isNull()) << charge;
    int inside = 0;
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) {
        const int alpha = alone.pixelColor(x, y).alpha();
        const bool around = std::abs(x - 31.5) > 18 || std::abs(y - 31.5) > 18;
        EXPECT_TRUE(!around || alpha == 0) << charge << " at " << x << ", " << y;
        if (alpha > 128) ++inside;
      }
    }
    EXPECT_GT(inside, 150) << charge;
  }
}

TEST(CrestTest, TheBundledTeamsAreToldApartInTheSizeOfARow) {
  for (const QString& one : bundled_teams()) {
    for (const QString& two : bundled_teams()) {
      if (one >= two) continue;
      EXPECT_GT(difference(drawn_crest(one, 20), drawn_crest(two, 20)), 60)
          << one.toStdString() << ", " << two.toStdString();
    }
  }
}

TEST(CrestTest, AnEdgeStandsOutFromEveryGround) {
  const QImage crest = drawn_crest("New Zealand", 128);
  std::set<QRgb> edges;  // what a line from the left meets before the body
  for (int x = 0; x < 17; ++x) {
    if (crest.pixelColor(x, 64).alpha() == 255) edges.insert(crest.pixel(x, 64));
  }
  for (const QColor ground : {QColor(Qt::black), QColor(Qt::white), QColor(0x808080), QColor(0x1C2620)}) {
    double best = 0;
    for (const QRgb edge : edges) best = std::max(best, contrast_of(QColor(edge), ground));
    EXPECT_GE(best, 3) << ground.name().toStdString();
  }
}

TEST(CrestTest, TheNameStaysTheTextAndIsReadAloud) {
  CrestView view(QStringLiteral("crest"), 24);
  view.show_team("India ");
  EXPECT_EQ(view.accessibleName(), "Crest of India");
  EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
  view.show_team({});
  EXPECT_EQ(view.accessibleName(), "");
  EXPECT_TRUE(crest_icon(QString()).isNull());
}

TEST(CrestTest, AListShowsTheCrestOfEachTeam) {
  QComboBox list;
  list.addItems({QString(), "India", "Kent"});
  show_crests(list);
  EXPECT_TRUE(list.itemIcon(0).isNull());
  EXPECT_EQ(list.itemIcon(1).pixmap(20, 20).toImage(), crest_icon("India").pixmap(20, 20).toImage());
  EXPECT_NE(list.itemIcon(1).pixmap(20, 20).toImage(), list.itemIcon(2).pixmap(20, 20).toImage());
  EXPECT_EQ(list.itemText(1), "India");
}

}  // namespace
}  // namespace velorin::testing
