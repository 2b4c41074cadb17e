// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/ground_scene.h"

#include <gtest/gtest.h>

#include <QImage>
#include <set>

#include "desktop/ground_picture.h"
#include "desktop/team_colors.h"

namespace velorin::testing {
namespace {

QImage painted(const GroundScene& scene) {
  GroundPicture picture(QStringLiteral("picture"));
  picture.resize(300, 480);
  picture.set_scene(scene);
  return picture.grab().toImage();
}

TEST(GroundSceneTest, TheSameSceneIsTheSamePicture) {
  const GroundScene scene{"Kent", 17 * 60, 4};
  EXPECT_EQ(painted(scene), painted(scene));
  EXPECT_NE(painted(scene), painted({"Kent", 18 * 60, 4}));
  EXPECT_NE(painted(scene), painted({"Kent", 17 * 60, 2}));
  EXPECT_NE(painted({"England", 780, 3}), painted({"India", 780, 3}));
}

TEST(GroundSceneTest, ACountryKeepsItsBackdrop) {
  EXPECT_EQ(backdrop_of(" west indies"), Backdrop::palms);
  EXPECT_EQ(backdrop_of({}), Backdrop::trees);
  std::set<Backdrop> seen;
  for (int i = 0; i < 60; ++i) seen.insert(backdrop_of(QStringLiteral("Land %1").arg(i)));
  EXPECT_EQ(seen.size(), 6U);
}

TEST(GroundSceneTest, TheSkyIsBrightAtNoonAndDarkAtNight) {
  for (const bool dark : {false, true}) {
    const GroundLight noon = light_of({"", 12 * 60, 3}, dark);
    const GroundLight night = light_of({"", 23 * 60, 3}, dark);
    EXPECT_GT(contrast_of(noon.sky_top, Qt::black), contrast_of(night.sky_top, Qt::black));
    EXPECT_GT(noon.light, night.light);
    EXPECT_FALSE(noon.night);
    EXPECT_TRUE(night.night);
  }
}

TEST(GroundSceneTest, RainDimsAndCloudsOver) {
  const GroundLight rain = light_of({"", 12 * 60, 1}, false);
  const GroundLight sunshine = light_of({"", 12 * 60, 3}, false);
  EXPECT_LT(rain.light, sunshine.light);
  EXPECT_GT(rain.cloud, sunshine.cloud);
  EXPECT_LT(rain.sky_top.hsvSaturation(), sunshine.sky_top.hsvSaturation());
}

TEST(GroundSceneTest, WordsAreLegibleAtEveryHourInEveryWeather) {
  for (const bool dark : {false, true}) {
    for (int weather = 1; weather <= 4; ++weather) {
      for (int minutes = 0; minutes < 24 * 60; minutes += 15) {
        const GroundLight light = light_of({"", minutes, weather}, dark);
        // Large type.
        EXPECT_GE(contrast_of(ink_on_sky(light), light.sky_top), 3) << dark << weather << " " << minutes;
      }
    }
  }
}

TEST(GroundSceneTest, FiguresOutOfRangeAreTheNearest) {
  EXPECT_EQ(painted({"", -5, 0}), painted({"", 0, 1}));
  EXPECT_EQ(painted({"", 5000, 9}), painted({"", 24 * 60 - 1, 4}));
}

}  // namespace
}  // namespace velorin::testing
