// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/portrait.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTemporaryDir>
#include <set>

#include "desktop/crest.h"
#include "desktop/photo_view.h"
#include "desktop/team_colors.h"
#include "desktop/team_names.h"

namespace velorin::testing {
namespace {

constexpr QSize portrait_size(90, 110);

QImage drawn_portrait(const QString& player, const QString& team) {
  return svg_picture(portrait_svg(player, team), portrait_size, 1).toImage();
}

bool shows(const QImage& picture, const QColor& color) {
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == color) return true;
    }
  }
  return false;
}

TEST(PortraitTest, TheSameManLooksTheSame) {
  EXPECT_EQ(portrait_svg("A.B.Wetherby", "Kent"), portrait_svg(" A.B.Wetherby ", "kent"));
  std::set<QString> faces;
  for (int man = 0; man < 20; ++man) faces.insert(portrait_svg(QStringLiteral("A.Man%1").arg(man), "Kent"));
  EXPECT_EQ(faces.size(), 20U);
}

TEST(PortraitTest, EachWearsHisTeamsCap) {
  for (const QString& team : bundled_teams() + free_teams(20)) {
    const QImage picture = drawn_portrait("A.B.Wetherby", team);
    ASSERT_FALSE(picture.isNull()) << team.toStdString();
    EXPECT_TRUE(shows(picture, team_colors(team).body)) << team.toStdString();
    EXPECT_TRUE(shows(picture, team_colors(team).trim)) << team.toStdString();
  }
}

TEST(PortraitTest, ItStandsWhereThereIsNoPhotoAndIsReadAsNone) {
  PhotoView view(QStringLiteral("Image"), portrait_size);
  view.show_photo("A.B.Wetherby", std::nullopt, "Kent");
  EXPECT_TRUE(view.shows_portrait());
  EXPECT_FALSE(view.has_photo());
  EXPECT_EQ(view.accessibleName(), "No Pic Available");
  const QImage kent = view.grab().toImage();
  EXPECT_TRUE(shows(kent, team_colors("Kent").body));
  view.show_photo("A.B.Wetherby", std::nullopt, "India");
  EXPECT_TRUE(shows(view.grab().toImage(), team_colors("India").body));
  view.show_photo("A.B.Wetherby", std::nullopt, "Kent");
  EXPECT_EQ(view.grab().toImage(), kent);
  view.show_photo({}, std::nullopt, "Kent");
  EXPECT_FALSE(view.shows_portrait());
  EXPECT_FALSE(shows(view.grab().toImage(), team_colors("Kent").body));
}

TEST(PortraitTest, APhotoTakesItsPlace) {
  const QTemporaryDir folder;
  QImage photo(90, 110, QImage::Format_RGB32);
  photo.fill(Qt::magenta);
  ASSERT_TRUE(photo.save(folder.filePath("a.png")));
  PhotoView view(QStringLiteral("Image"), portrait_size);
  view.show_photo("A.B.Wetherby", folder.filePath("a.png").toStdString(), "Kent");
  EXPECT_FALSE(view.shows_portrait());
  EXPECT_EQ(view.accessibleName(), "Photo of A.B.Wetherby");
  EXPECT_TRUE(shows(view.grab().toImage(), Qt::magenta));
  EXPECT_FALSE(shows(view.grab().toImage(), team_colors("Kent").body));
}

}  // namespace
}  // namespace velorin::testing
