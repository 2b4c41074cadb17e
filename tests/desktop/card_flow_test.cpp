// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/card_flow.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QVBoxLayout>

#include "desktop/crest.h"
#include "desktop/elided_label.h"
#include "desktop/form.h"
#include "desktop/frame.h"

namespace velorin::testing {
namespace {

struct Cards {
  explicit Cards(const std::vector<int>& widths) {
    flow = new CardFlow(10, &page);
    for (const int width : widths) {
      auto* card = new QWidget;
      card->setMinimumSize(width, 40);
      flow->add_card(card);
      cards.push_back(card);
    }
  }
  void show(QSize size) {
    page.resize(size);
    page.show();
    QApplication::processEvents();
  }

  QWidget page;
  CardFlow* flow;
  std::vector<QWidget*> cards;
};

TEST(CardFlow, SideBySideWhereAllFitElseBelowEachOther) {
  Cards two({200, 300});
  EXPECT_TRUE(two.flow->fit_in_a_row(510));
  EXPECT_FALSE(two.flow->fit_in_a_row(509));
  two.show({800, 100});
  EXPECT_EQ(two.cards[0]->y(), two.cards[1]->y());
  EXPECT_EQ(two.cards[1]->x(), two.cards[0]->geometry().right() + 11);
  EXPECT_EQ(two.cards[1]->geometry().right(), 799);
  two.show({400, 300});
  EXPECT_EQ(two.cards[0]->x(), two.cards[1]->x());
  EXPECT_GE(two.cards[1]->y(), two.cards[0]->geometry().bottom() + 10);
  EXPECT_EQ(two.cards[1]->width(), 400);
}

TEST(CardFlow, SharesWhatIsLeftEvenly) {
  Cards three({100, 100, 250});
  three.show({620, 100});
  EXPECT_EQ(three.cards[2]->width(), 250) << "he has more than his share";
  EXPECT_NEAR(three.cards[0]->width(), 175, 1);
  EXPECT_NEAR(three.cards[1]->width(), 175, 1);
}

TEST(CardFlow, AsksForTheHeightOfItsColumn) {
  const Cards two({200, 300});
  EXPECT_EQ(two.flow->minimumHeightForWidth(600), 40);
  EXPECT_EQ(two.flow->minimumHeightForWidth(320), 90);
  EXPECT_EQ(two.flow->minimumSize().width(), 300);
}

TEST(ElidedLabel, KeepsItsTextAndShowsWhatHasRoom) {
  ElidedLabel label(QStringLiteral("trail"), Qt::ElideLeft);
  label.setText(QStringLiteral("Menu, England v Australia, Scorecard"));
  label.resize(120, 20);
  EXPECT_EQ(label.text(), "Menu, England v Australia, Scorecard");
  EXPECT_TRUE(label.shown_part().endsWith(QStringLiteral("Scorecard")));
  EXPECT_LT(label.shown_part().size(), label.text().size());
  label.resize(600, 20);
  EXPECT_EQ(label.shown_part(), label.text());
}

TEST(CompactLook, IsThatOfALowPageAlone) {
  Frame frame;
  frame.resize(1280, 800);
  frame.show();
  Form page(QStringLiteral("page_test"), Form::Dismissal::closes, &frame);
  page.set_title(QStringLiteral("Title"), QStringLiteral("England"));
  page.set_subheading(QStringLiteral("Eden Gardens"));
  CrestView* crest = add_head_crest(page, QStringLiteral("crest"));
  page.body()->addWidget(new QLabel(QStringLiteral("words")));
  page.show();
  const auto settle = [] {
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
  };
  settle();
  const auto* head = page.findChild<QWidget*>(QStringLiteral("head"));
  const auto* heading = page.findChild<QLabel*>(QStringLiteral("heading"));
  const auto* below = page.findChild<QLabel*>(QStringLiteral("subheading"));
  const int roomy = head->height();
  EXPECT_GT(below->mapTo(head, QPoint()).y(), heading->mapTo(head, QPoint()).y());
  frame.resize(960, 540);
  settle();
  EXPECT_LE(head->height(), 44);
  EXPECT_GT(below->mapTo(head, QPoint()).x(), heading->mapTo(head, QPoint()).x()) << "one line";
  EXPECT_LT(crest->height(), head_crest);
  frame.resize(1280, 800);
  settle();
  EXPECT_EQ(head->height(), roomy);
  EXPECT_EQ(crest->height(), head_crest);
}

}  // namespace
}  // namespace velorin::testing
