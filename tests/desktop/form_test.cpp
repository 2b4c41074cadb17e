// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/form.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
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

TEST(FormTest, TheBusyPointerGoesWhileAWindowWaits) {
  Form form(QStringLiteral("busy"), Form::Dismissal::closes, nullptr);
  form.setModal(false);
  form.show();
  form.set_busy(true);
  const auto busy = [] {
    return QApplication::overrideCursor() != nullptr && QApplication::overrideCursor()->shape() == Qt::BusyCursor;
  };
  EXPECT_TRUE(busy());
  {
    Form over(QStringLiteral("over"), Form::Dismissal::closes, nullptr);
    over.show();
    EXPECT_FALSE(busy());
  }
  EXPECT_TRUE(busy());
  form.set_busy(false);
  EXPECT_FALSE(busy());
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

/// A form of the size of its body, with a button in its foot.
class SizedForm : public Form {
 public:
  explicit SizedForm(QSize size, const char* name = "sized")
      : Form(QString::fromLatin1(name), Dismissal::closes, nullptr) {
    setModal(false);
    add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [] {});
    filling = new QWidget;
    filling->setMinimumSize(size);
    body()->addWidget(filling);
    last = new QPushButton(QStringLiteral("Last"));
    body()->addWidget(last);
  }
  QScrollArea& area() const { return *findChild<QScrollArea*>(); }
  bool scrolls() const {
    return area().verticalScrollBar()->maximum() > 0 || area().horizontalScrollBar()->maximum() > 0;
  }

  QWidget* filling;
  QPushButton* last;
};

TEST(FormTest, ABodyThatFitsHasNoScrollBars) {
  SizedForm form({300, 200}, "fits");
  form.show();
  QTest::qWait(10);
  EXPECT_FALSE(form.scrolls());
  form.resize(form.minimumSizeHint());
  QTest::qWait(10);
  EXPECT_FALSE(form.scrolls());
  form.filling->setMinimumHeight(280);
  QTest::qWait(10);
  EXPECT_FALSE(form.scrolls());
  EXPECT_GE(form.height(), form.minimumSizeHint().height());
}

TEST(FormTest, ABodyLargerThanTheScreenScrollsAndTheButtonsStay) {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  for (const QSize size : {QSize(300, room.height()), QSize(room.width(), 300), room.size() * 2}) {
    SizedForm form(size, "larger");
    form.show();
    QTest::qWait(10);
    EXPECT_TRUE(room.contains(form.frameGeometry())) << form.frameGeometry().height();
    EXPECT_TRUE(form.scrolls());
    const auto* ok = control<QPushButton>(form, "accept");
    EXPECT_TRUE(room.contains(QRect(ok->mapToGlobal(QPoint()), ok->size())));
    EXPECT_EQ(ok->visibleRegion().boundingRect(), ok->rect());
    // What gets the keyboard comes into view.
    form.last->setFocus();
    QTest::qWait(10);
    EXPECT_GE(form.last->visibleRegion().boundingRect().height(), form.last->height());
  }
}

TEST(FormTest, ABodyTooTallAloneScrollsOneWayByThePageKeys) {
  SizedForm form({300, 3000}, "tall");
  form.show();
  QTest::qWait(10);
  EXPECT_EQ(form.area().horizontalScrollBar()->maximum(), 0);
  form.filling->setFocusPolicy(Qt::StrongFocus);
  form.filling->setFocus();
  form.area().verticalScrollBar()->setValue(0);
  QTest::keyClick(form.filling, Qt::Key_Down);
  EXPECT_EQ(form.area().verticalScrollBar()->value(), 0) << "arrows belong to the form";
  QTest::keyClick(form.filling, Qt::Key_PageDown);
  EXPECT_GT(form.area().verticalScrollBar()->value(), 0);
}

TEST(FormTest, ThePageKeysScrollFromTheFootAsWell) {
  SizedForm form({300, 3000}, "tall-foot");
  form.show();
  QTest::qWait(10);
  auto* ok = control<QPushButton>(form, "accept");
  ok->setFocus();
  QTest::keyClick(ok, Qt::Key_PageDown);
  const int below = form.area().verticalScrollBar()->value();
  EXPECT_GT(below, 0);
  QTest::keyClick(ok, Qt::Key_PageUp);
  EXPECT_LT(form.area().verticalScrollBar()->value(), below);
}

TEST(FormTest, ABodyThatGrowsOnShowGetsTheRoomOfTheScreen) {
  SizedForm form({300, 200}, "growing");
  auto* note = new QLabel(QStringLiteral("A note that comes later and has some lines. ").repeated(6));
  note->setWordWrap(true);
  form.body()->addWidget(note);
  note->hide();
  form.show();
  QTest::qWait(10);
  const int before = form.height();
  note->show();
  QTest::qWait(20);
  EXPECT_GE(form.height(), before + note->height());
  EXPECT_EQ(form.area().verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(form.area().horizontalScrollBar()->maximum(), 0);
}

TEST(FormTest, AFootTooLongForTheScreenHasTwoRows) {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  SizedForm form({300, 200}, "long-foot");
  auto* aside = new QPushButton(QStringLiteral("Aside"));
  aside->setMinimumWidth(room.width() - 100);
  form.add_aside(aside);
  form.show();
  QTest::qWait(10);
  EXPECT_TRUE(room.contains(form.frameGeometry())) << form.width();
  for (const QWidget* button :
       {static_cast<QWidget*>(aside), static_cast<QWidget*>(control<QPushButton>(form, "accept"))}) {
    EXPECT_EQ(button->visibleRegion().boundingRect(), button->rect());
  }
}

TEST(FormTest, TheWholeFrameOpensOnTheScreen) {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  {
    SizedForm form({300, 200}, "placed");
    form.show();
    form.move(-200, -80);
    form.hide();
  }
  {
    SizedForm form({300, 200}, "placed");
    form.show();
    QTest::qWait(10);
    EXPECT_TRUE(room.contains(form.frameGeometry())) << form.frameGeometry().y();
    form.move(room.right() - 50, room.bottom() - 50);
    form.hide();
  }
  SizedForm form({300, 200}, "placed");
  form.show();
  QTest::qWait(10);
  EXPECT_TRUE(room.contains(form.frameGeometry())) << form.frameGeometry().bottom();
  // Once it is there its user may put it anywhere.
  form.move(-200, -80);
  QTest::qWait(10);
  EXPECT_LT(form.x(), -150);
  EXPECT_LT(form.y(), -50);
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
    press(window, "accept");
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
