// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/moment.h"

#include <gtest/gtest.h>

#include <QAbstractAnimation>
#include <QApplication>
#include <QProxyStyle>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "desktop/preferences.h"

namespace velorin::testing {
namespace {

/// A style in which things move for so many milliseconds, whatever the platform says.
class MovingStyle : public QProxyStyle {
 public:
  explicit MovingStyle(int length) : length_(length) {}
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* data) const override {
    return hint == SH_Widget_Animation_Duration ? length_ : QProxyStyle::styleHint(hint, option, widget, data);
  }

 private:
  int length_;
};

class MomentTest : public ::testing::Test {
 protected:
  MomentTest() : button(new QPushButton("Next", &window)) {
    window.resize(640, 480);
    button->setGeometry(0, 0, 640, 480);
    window.setStyle(&moving);
    window.show();
    button->setFocus();
    QApplication::setActiveWindow(&window);
  }
  ~MomentTest() override { preferences::set_moments(true); }

  QWidget* banner() const { return window.findChild<QWidget*>("moment"); }

  MovingStyle moving{200};
  MovingStyle still{0};
  QWidget window;
  QPushButton* button;
};

TEST_F(MomentTest, IsSeenAndGoesByItself) {
  const QImage before = window.grab().toImage();
  celebrate(window, MomentKind::hundred, "A hundred for A.Man");
  ASSERT_NE(banner(), nullptr);
  EXPECT_TRUE(banner()->isVisible());
  EXPECT_EQ(banner()->accessibleName(), "A hundred for A.Man");
  EXPECT_TRUE(QTest::qWaitFor([&] { return window.grab().toImage() != before; }, 1000));
  EXPECT_TRUE(QTest::qWaitFor([&] { return banner() == nullptr; }, 5000));
  EXPECT_EQ(window.grab().toImage(), before);
}

TEST_F(MomentTest, TakesNoInputAndNoFocus) {
  QWidget* const before = QApplication::focusWidget();
  int pressed = 0;
  QObject::connect(button, &QPushButton::clicked, button, [&] { ++pressed; });
  celebrate(window, MomentKind::champions, "India are the champions");
  ASSERT_NE(banner(), nullptr);
  EXPECT_EQ(window.childAt(banner()->geometry().center()), button);
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, banner()->geometry().center());
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(banner()->focusPolicy(), Qt::NoFocus);
  EXPECT_EQ(QApplication::focusWidget(), before);
}

TEST_F(MomentTest, AnotherTakesItsPlaceAndItFollowsTheWidget) {
  celebrate(window, MomentKind::five_wickets, "Five wickets for A.Man");
  celebrate(window, MomentKind::last_ball_win, "Kent win with the last ball");
  EXPECT_EQ(window.findChildren<QWidget*>("moment").size(), 1);
  EXPECT_EQ(banner()->accessibleName(), "Kent win with the last ball");
  for (const QSize size : {QSize(300, 300), QSize(1200, 800)}) {
    window.resize(size);
    QApplication::processEvents();
    EXPECT_TRUE(window.rect().contains(banner()->geometry()));
    EXPECT_NEAR(banner()->geometry().center().x(), window.rect().center().x(), 1);
  }
}

TEST_F(MomentTest, NothingMovesWhereItIsTurnedOff) {
  preferences::set_moments(false);
  celebrate(window, MomentKind::champions, "India are the champions");
  EXPECT_EQ(banner(), nullptr);
  preferences::set_moments(true);
  celebrate(window, MomentKind::champions, "India are the champions");
  EXPECT_NE(banner(), nullptr);
}

TEST_F(MomentTest, NothingMovesWhereTheStyleStandsStill) {
  window.setStyle(&still);
  EXPECT_FALSE(may_move(window));
  celebrate(window, MomentKind::champions, "India are the champions");
  EXPECT_EQ(banner(), nullptr);
}

TEST_F(MomentTest, AWidgetMayGoInTheMidstOfIt) {
  auto other = std::make_unique<QWidget>();
  other->setStyle(&moving);
  other->resize(400, 300);
  other->show();
  celebrate(*other, MomentKind::hundred, "A hundred for A.Man");
  const QPointer<QWidget> shown = other->findChild<QWidget*>("moment");
  ASSERT_FALSE(shown.isNull());
  QTest::qWait(50);
  other.reset();
  EXPECT_TRUE(shown.isNull());
}

}  // namespace
}  // namespace velorin::testing
