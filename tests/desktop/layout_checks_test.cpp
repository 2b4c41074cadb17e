// SPDX-License-Identifier: GPL-3.0-or-later
// The checks of how a page lies find what they are there for.
#include "windows/layout_checks.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "windows/painted_texts.h"

namespace velorin::testing {
namespace {

/// Paints two texts at places of its own.
class Signboard : public QWidget {
 public:
  using QWidget::QWidget;

  QPoint first{10, 20};
  QPoint second{10, 60};

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    painter.translate(1, 2);
    painter.drawText(first, QStringLiteral("Harrow"));
    painter.drawText(second, QStringLiteral("Vanterpool"));
  }
};

class LayoutChecks : public ::testing::Test {
 protected:
  LayoutChecks() { page.resize(400, 300); }

  void show() {
    page.show();
    QApplication::processEvents();
  }

  QWidget page;
};

TEST_F(LayoutChecks, TellTheTextsThatAWidgetPaints) {
  Signboard board(&page);
  board.setGeometry(20, 30, 200, 100);
  show();
  const std::vector<PaintedText> texts = painted_texts(board);
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0].text, "Harrow");
  EXPECT_NEAR(texts[0].ink.left(), 11, 2);
  EXPECT_NEAR(texts[0].ink.bottom(), 22, 1);
  EXPECT_EQ(check_painted_texts(page), 2);
}

TEST_F(LayoutChecks, RefuseATextThatRunsOut) {
  Signboard board(&page);
  board.setGeometry(20, 30, 200, 100);
  board.second = {170, 60};
  show();
  EXPECT_NONFATAL_FAILURE(check_painted_texts(page), "paints \"Vanterpool\"");
}

TEST_F(LayoutChecks, RefuseATextOverAnother) {
  Signboard board(&page);
  board.setGeometry(20, 30, 200, 100);
  board.second = {20, 24};
  show();
  EXPECT_NONFATAL_FAILURE(check_painted_texts(page), "over \"Vanterpool\"");
}

TEST_F(LayoutChecks, RefuseNeighboursThatOverlap) {
  QPushButton one(QStringLiteral("One"), &page);
  QPushButton other(QStringLiteral("Other"), &page);
  one.setGeometry(10, 10, 100, 30);
  other.setGeometry(112, 10, 100, 30);
  show();
  check_layout(page);
  other.move(100, 10);
  EXPECT_NONFATAL_FAILURE(check_layout(page), "overlap by 10x");
  QLabel label(QStringLiteral("A short one"), &page);
  label.setGeometry(10, 60, 300, 20);
  label.show();
  other.move(200, 60);
  check_layout(page);  // over the free end of the label
  other.move(20, 60);
  EXPECT_NONFATAL_FAILURE(check_layout(page), "A short one");
}

TEST_F(LayoutChecks, RefuseAPageThatScrollsSideways) {
  QScrollArea area(&page);
  area.setGeometry(0, 0, 300, 200);
  auto* inside = new QWidget;
  inside->setFixedSize(200, 900);
  area.setWidget(inside);
  show();
  check_layout(page);
  inside->setFixedSize(500, 900);
  QApplication::processEvents();
  EXPECT_NONFATAL_FAILURE(check_layout(page), "scrolls sideways");
}

TEST_F(LayoutChecks, RefuseAButtonThatNoKeyReaches) {
  QPushButton button(QStringLiteral("Reach me"), &page);
  button.setGeometry(10, 10, 100, 30);
  show();
  check_layout(page);
  button.setFocusPolicy(Qt::ClickFocus);
  EXPECT_NONFATAL_FAILURE(check_layout(page), "neither the tab key nor a key of its own");
}

}  // namespace
}  // namespace velorin::testing
