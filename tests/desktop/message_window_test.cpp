// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/message_window.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

const message_box quota{"Full Quota Bowled",
                        "R.Vance has bowled his full quota of 10 overs.Please select a new bowler"};

class MessageWindowTest : public ::testing::TestWithParam<Qt::Key> {};

TEST_P(MessageWindowTest, AKeyDismissesIt) {
  MessageWindow window(quota);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  ASSERT_NE(window.focusWidget(), nullptr);
  QTest::keyClick(window.focusWidget(), GetParam());
  EXPECT_FALSE(window.isVisible());
}

INSTANTIATE_TEST_SUITE_P(Keys, MessageWindowTest,
                         ::testing::Values(Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_Escape));

TEST(MessageWindow, ShowsItsTextsAsTheyStand) {
  MessageWindow window(quota);
  window.show();
  take_picture(window, "message");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Full Quota Bowled");
  EXPECT_EQ(control<QLabel>(window, "text")->text(),
            "R.Vance has bowled his full quota of 10 overs.Please select a new bowler");
  EXPECT_EQ(control<QLabel>(window, "icon")->accessibleName(), "Information");
  EXPECT_EQ(window.accessibleDescription(), control<QLabel>(window, "text")->text());
}

TEST(MessageWindow, AClickOnItsTextLeavesSpaceWithTheButton) {
  MessageWindow window(quota);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::mouseClick(control<QLabel>(window, "text"), Qt::LeftButton);
  QTest::keyClick(window.focusWidget(), Qt::Key_Space);
  EXPECT_FALSE(window.isVisible());
}

TEST(MessageWindow, ABlankKeepsItsPlaceAndMarkupIsNoMarkup) {
  MessageWindow window({"End of Match", "Tamar   wins by  4  wickets <b>& more</b>"});
  window.show();
  EXPECT_EQ(control<QLabel>(window, "text")->text(), "Tamar   wins by  4  wickets <b>& more</b>");
  EXPECT_EQ(control<QLabel>(window, "text")->textFormat(), Qt::PlainText);
}

TEST(MessageWindow, AFailureHasASignOfItsOwn) {
  MessageWindow information(quota);
  const QImage usual = control<QLabel>(information, "icon")->pixmap(Qt::ReturnByValue).toImage();
  MessageWindow window({"Run-time error", "Subscript out of range"}, MessageWindow::Kind::failure);
  window.show();
  EXPECT_EQ(control<QLabel>(window, "icon")->accessibleName(), "Failure");
  const QImage sign = control<QLabel>(window, "icon")->pixmap(Qt::ReturnByValue).toImage();
  EXPECT_EQ(sign.size(), usual.size());
  EXPECT_NE(sign, usual);
  take_picture(window, "message_failure");
  check_window_at_sizes(window);
}

TEST(MessageWindow, ALongTextIsShownWhole) {
  std::string words;
  for (int i = 0; i < 120; ++i) words += "D.Pellinore-Brackenbury and ";
  MessageWindow wrapped({"Opening Bowlers", words});
  wrapped.show();
  check_window_at_sizes(wrapped);
}

const failed_save full_disk{"The file cannot be written: No space left on device (file world.rec)",
                            "If you go on without saving, this match is missing from the careers and records."};

TEST(SaveFailedWindow, OffersToRetryAndToGoOn) {
  SaveFailedWindow window(full_disk);
  window.show();
  take_picture(window, "save_failed");
  check_window_at_sizes(window);
  EXPECT_EQ(window.windowTitle(), "Not saved");
  EXPECT_EQ(control<QLabel>(window, "text")->text(),
            QString::fromStdString(full_disk.cause + "\n\n" + full_disk.without));
  EXPECT_EQ(control<QLabel>(window, "icon")->accessibleName(), "Failure");
  EXPECT_TRUE(control<QPushButton>(window, "retry")->isDefault());
  press(window, "go_on");
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.answer(), save_answer::go_on);
}

TEST(SaveFailedWindow, EscapeIsNoAnswer) {
  SaveFailedWindow window(full_disk);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QTest::keyClick(window.focusWidget(), Qt::Key_Escape);
  EXPECT_TRUE(window.isVisible());
  window.close();
  EXPECT_TRUE(window.isVisible());
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(window.answer(), save_answer::retry);
}

}  // namespace
}  // namespace velorin::testing
