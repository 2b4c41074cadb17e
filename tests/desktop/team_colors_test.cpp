// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/team_colors.h"
#include "desktop/line_chart.h"

#include <gtest/gtest.h>

#include <set>

#include "desktop/line_chart.h"
#include "desktop/team_names.h"

namespace velorin::testing {
namespace {

class TeamColorsTest : public ::testing::Test {
 protected:
  ~TeamColorsTest() override { apply_theme(Appearance::light); }
};

TEST_F(TeamColorsTest, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(contrast_of(Qt::black, Qt::white), 21, 1e-9);
  EXPECT_NEAR(contrast_of(QColor(0x777777), Qt::white), 4.48, 0.005);
  EXPECT_NEAR(contrast_of(Qt::red, Qt::red), 1, 1e-9);
  EXPECT_NEAR(color_distance(Qt::black, Qt::white), 100, 0.1);
}

TEST_F(TeamColorsTest, TheSameNameHasTheSameColours) {
  EXPECT_EQ(team_colors(" england").body, team_colors("England").body);
  EXPECT_EQ(team_colors("Kent").body, team_colors("KENT ").body);
  std::set<QRgb> bodies;
  for (const QString& team : bundled_teams()) bodies.insert(team_colors(team).body.rgb());
  EXPECT_EQ(bodies.size(), 10U);
}

TEST_F(TeamColorsTest, TheTrimStandsOutFromTheBody) {
  for (const QString& team : bundled_teams() + free_teams(200)) {
    const TeamColors colors = team_colors(team);
    EXPECT_GE(contrast_of(colors.body, colors.trim), 3) << team.toStdString();
    EXPECT_GE(color_distance(colors.body, colors.other), told_apart) << team.toStdString();
  }
}

TEST_F(TeamColorsTest, TwoSidesAreLegibleAndApartInEveryLook) {
  const QStringList teams = bundled_teams() + free_teams(40);
  for (const Appearance look : {Appearance::light, Appearance::dark, Appearance::high_contrast}) {
    apply_theme(look);
    const Theme& t = theme();
    for (const QString& first : teams) {
      for (const QString& second : teams) {
        const auto [one, two] = match_colors(first, second, t);
        SCOPED_TRACE(QStringLiteral("%1 v %2, look %3").arg(first, second).arg(static_cast<int>(look)).toStdString());
        for (const QColor& ground : {t.ground, t.card, t.card_raised}) {
          EXPECT_GE(contrast_of(one, ground), least_contrast(t));
          EXPECT_GE(contrast_of(two, ground), least_contrast(t));
        }
        EXPECT_GE(color_distance(one, two), told_apart);
      }
    }
  }
}

TEST_F(TeamColorsTest, ChartsHaveThoseOfTheirSidesInEveryLook) {
  const ChartSides sides = {"England", "New Zealand"};
  for (const Appearance look : {Appearance::light, Appearance::dark, Appearance::high_contrast}) {
    apply_theme(look);
    for (const int place : {0, 1}) {
      const QColor color = chart_color(sides, place);
      EXPECT_EQ(color, match_colors(sides[0], sides[1], theme())[static_cast<std::size_t>(place)]);
      EXPECT_GE(contrast_of(color, theme().card), least_contrast(theme())) << "look " << static_cast<int>(look);
      EXPECT_GE(contrast_of(chart_color({}, place), theme().card), 3)
          << "without names, look " << static_cast<int>(look);
    }
    EXPECT_GE(color_distance(chart_color(sides, 0), chart_color(sides, 1)), told_apart);
  }
}

TEST_F(TeamColorsTest, ASecondSideTooNearTakesItsOtherColour) {
  apply_theme(Appearance::light);
  const QColor own = match_colors("England", "Sri Lanka", theme())[0];
  EXPECT_EQ(own, team_colors("England").body);
  EXPECT_EQ(match_colors("Zimbabwe", "Sri Lanka", theme())[1], team_colors("Sri Lanka").body);
  const QColor beside = match_colors("England", "Sri Lanka", theme())[1];
  EXPECT_NE(beside, team_colors("Sri Lanka").body);
  EXPECT_LT(color_distance(team_colors("England").body, team_colors("Sri Lanka").body), told_apart);
}

}  // namespace
}  // namespace velorin::testing
