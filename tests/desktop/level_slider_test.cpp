// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/level_slider.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QTest>

namespace velorin::testing {
namespace {

class LevelSliderTest : public ::testing::Test {
 protected:
  LevelSliderTest() : slider(QStringLiteral("level"), 1, 5) {
    slider.setValue(3);
    slider.show();
  }

  LevelSlider slider;
};

TEST_F(LevelSliderTest, FiguresChooseTheirLevel) {
  for (const int level : {5, 1, 4, 2, 3}) {
    QTest::keyClick(&slider, static_cast<Qt::Key>(Qt::Key_0 + level));
    EXPECT_EQ(slider.value(), level);
  }
}

TEST_F(LevelSliderTest, FiguresBeyondTheRangeAreLeftAlone) {
  for (const Qt::Key key : {Qt::Key_0, Qt::Key_6, Qt::Key_9}) {
    QTest::keyClick(&slider, key);
    EXPECT_EQ(slider.value(), 3);
  }
  QTest::keyClick(&slider, Qt::Key_5, Qt::AltModifier);
  EXPECT_EQ(slider.value(), 3) << "Alt and a figure belong to others";
}

TEST_F(LevelSliderTest, ArrowsMoveByOneWithinTheRange) {
  QTest::keyClick(&slider, Qt::Key_Right);
  EXPECT_EQ(slider.value(), 4);
  for (int i = 0; i < 3; ++i) QTest::keyClick(&slider, Qt::Key_Up);
  EXPECT_EQ(slider.value(), 5);
  for (int i = 0; i < 9; ++i) QTest::keyClick(&slider, Qt::Key_Left);
  EXPECT_EQ(slider.value(), 1);
  QTest::keyClick(&slider, Qt::Key_End);
  EXPECT_EQ(slider.value(), 5);
  QTest::keyClick(&slider, Qt::Key_Home);
  EXPECT_EQ(slider.value(), 1);
}

TEST_F(LevelSliderTest, ThePointerChoosesTheNearestLevel) {
  slider.resize(slider.sizeHint());
  const int y = slider.height() / 3;
  QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(slider.width() - 2, y));
  EXPECT_EQ(slider.value(), 5);
  QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(2, y));
  EXPECT_EQ(slider.value(), 1);
  QTest::mouseClick(&slider, Qt::LeftButton, Qt::NoModifier, QPoint(slider.width() / 2, y));
  EXPECT_EQ(slider.value(), 3);
  QTest::mouseClick(&slider, Qt::RightButton, Qt::NoModifier, QPoint(2, y));
  EXPECT_EQ(slider.value(), 3);
}

TEST_F(LevelSliderTest, ScreenReadersHearASliderWithItsRange) {
  QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&slider);
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->role(), QAccessible::Slider);
  ASSERT_NE(told->valueInterface(), nullptr);
  EXPECT_EQ(told->valueInterface()->currentValue().toInt(), 3);
  EXPECT_EQ(told->valueInterface()->minimumValue().toInt(), 1);
  EXPECT_EQ(told->valueInterface()->maximumValue().toInt(), 5);
}

}  // namespace
}  // namespace velorin::testing
