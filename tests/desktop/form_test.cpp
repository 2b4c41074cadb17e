// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/form.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <stdexcept>

#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "windows/robot.h"

namespace velorin::testing {
namespace {

TEST(FormTest, ItsSizeIsRememberedUnderItsName) {
  {
    Form form(QStringLiteral("remembered"), Form::Dismissal::closes);
    form.show();
    form.resize(611, 433);
    form.hide();
  }
  Form again(QStringLiteral("remembered"), Form::Dismissal::closes);
  again.show();
  EXPECT_EQ(again.size(), QSize(611, 433));
  Form other(QStringLiteral("another"), Form::Dismissal::closes);
  other.show();
  EXPECT_NE(other.size(), QSize(611, 433));
}

TEST(FormTest, ARememberedSizeThatHasGrownTooSmallIsEnlarged) {
  {
    Form form(QStringLiteral("grown"), Form::Dismissal::closes);
    form.show();
    form.resize(300, 60);
    form.hide();
  }
  Form again(QStringLiteral("grown"), Form::Dismissal::closes);
  for (int i = 0; i < 8; ++i) again.body()->addWidget(new_label(QStringLiteral("A line of text")));
  again.show();
  EXPECT_GE(again.height(), again.minimumSizeHint().height());
}

TEST(FormTest, EscapeDoesWhatTheFormAllows) {
  Form closes(QStringLiteral("closes"), Form::Dismissal::closes);
  closes.show();
  QTest::keyClick(&closes, Qt::Key_Escape);
  EXPECT_FALSE(closes.isVisible());
  Form refuses(QStringLiteral("refuses"), Form::Dismissal::refused);
  refuses.show();
  QTest::keyClick(&refuses, Qt::Key_Escape);
  EXPECT_TRUE(refuses.isVisible());
  refuses.close();
  EXPECT_TRUE(refuses.isVisible());
  int asked = 0;
  refuses.on_dismiss([&] { ++asked; });
  QTest::keyClick(&refuses, Qt::Key_Escape);
  EXPECT_EQ(asked, 1);
}

TEST(FormTest, ReturnPressesTheDefaultButton) {
  Form form(QStringLiteral("default"), Form::Dismissal::closes);
  int first = 0;
  int second = 0;
  form.add_button(QStringLiteral("first"), {.caption = QStringLiteral("First"), .mnemonic = u'F'}, [&] { ++first; });
  form.add_default_button(QStringLiteral("second"), {.caption = QStringLiteral("Second"), .mnemonic = u'S'},
                          [&] { ++second; });
  form.show();
  QTest::keyClick(&form, Qt::Key_Return);
  EXPECT_EQ(first, 0);
  EXPECT_EQ(second, 1);
}

TEST(FormTest, AnActTellsItsKeys) {
  Form form(QStringLiteral("acts"), Form::Dismissal::closes);
  int pressed = 0;
  const QPushButton* button = form.add_button(QStringLiteral("act"),
                                              {.caption = QStringLiteral(" Crown & Anchor "),
                                               .mnemonic = u'A',
                                               .key = QKeySequence(Qt::Key_F5),
                                               .hint = QStringLiteral("Opens the inn")},
                                              [&] { ++pressed; });
  form.show();
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  EXPECT_EQ(button->text(), " Crown && &Anchor ");
  EXPECT_EQ(button->toolTip(), "Opens the inn (Alt+A, F5)");
  EXPECT_EQ(button->accessibleName(), "Crown & Anchor");
  QTest::keyClick(&form, Qt::Key_F5);
  EXPECT_EQ(pressed, 1);
}

TEST(FormTest, AFailureBehindAButtonIsReported) {
  std::string told;
  on_failure([&](const std::exception& failure) { told = failure.what(); });
  Form form(QStringLiteral("failing"), Form::Dismissal::closes);
  form.add_button(QStringLiteral("act"), {.caption = QStringLiteral("Act"), .mnemonic = u'A'},
                  [] { throw std::runtime_error("The file is gone"); });
  form.show();
  press(form, "act");
  on_failure({});
  EXPECT_EQ(told, "The file is gone");
  EXPECT_FALSE(program_is_ending());
}

TEST(FormTest, AFailureIsShownAndEndsTheProgram) {
  Robot robot;
  robot.next("message", [](QWidget& window) {
    EXPECT_EQ(window.windowTitle(), "Run-time error");
    EXPECT_EQ(control<QLabel>(window, "text")->text(), "The file is gone");
    press(window, "OK");
  });
  guarded([] { throw std::runtime_error("The file is gone"); });
  EXPECT_TRUE(program_is_ending());
  Form late(QStringLiteral("late"), Form::Dismissal::closes);
  EXPECT_THROW(run_modal(late), ProgramEnds);
  begin_again();
  EXPECT_EQ(robot.left(), 0);
  // Until a loop of the application has ended, those of dialogs would end at once.
  QTimer::singleShot(0, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
}

}  // namespace
}  // namespace velorin::testing
