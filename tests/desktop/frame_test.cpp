// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/frame.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <memory>

#include "desktop/form.h"
#include "desktop/message_window.h"
#include "desktop/modality.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "windows/robot.h"
#include "windows/room_checks.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

/// A form with two fields and "OK".
class Leaf : public Form {
 public:
  Leaf(const char* name, QWidget* parent, Place place = Place::page, Dismissal dismissal = Dismissal::closes)
      : Form(QString::fromLatin1(name), dismissal, parent) {
    stand_as(place);
    set_title(QString::fromLatin1(name), QString::fromLatin1(name));
    for (const char* field : {"first", "second"}) {
      auto* edit = new QLineEdit;
      edit->setObjectName(QString::fromLatin1(field));
      edit->setAccessibleName(QString::fromLatin1(field));
      body()->addWidget(edit);
    }
    add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                       [this] { accept(); });
  }
};

class MainWindow : public ::testing::Test {
 protected:
  MainWindow() {
    frame_.resize(1024, 700);
    frame_.show();
    menu_.setModal(false);
    menu_.show();
  }

  /// Opens a form and runs `then` while it waits.
  template <class Then>
  static int open(Form& form, Then then) {
    QTimer::singleShot(0, &form, then);
    return form.exec();
  }

  template <class Kind>
  Kind& part(const char* name) {
    return *frame_.findChild<Kind*>(QString::fromLatin1(name));
  }
  QRect place_of(const QWidget& widget) const { return {widget.mapTo(&frame_, QPoint()), widget.size()}; }

  Frame frame_;
  Leaf menu_{"menu", &frame_};
};

TEST_F(MainWindow, TheFirstPageFillsItWithoutABar) {
  EXPECT_EQ(frame_.top(), &menu_);
  EXPECT_FALSE(menu_.isWindow());
  EXPECT_TRUE(menu_.isVisible());
  EXPECT_FALSE(part<QWidget>("bar").isVisible());
  EXPECT_EQ(place_of(menu_), frame_.rect());
}

TEST_F(MainWindow, APageHidesTheOneBelowAndGivesItBack) {
  Leaf page("page", &menu_);
  const int result = open(page, [&] {
    EXPECT_EQ(frame_.top(), &page);
    EXPECT_EQ(waiting_window(), &page);
    EXPECT_FALSE(menu_.isVisible());
    EXPECT_TRUE(is_covered(menu_));
    EXPECT_EQ(place_of(page).bottom(), frame_.rect().bottom());
    press(page, "accept");
  });
  EXPECT_EQ(result, QDialog::Accepted);
  EXPECT_TRUE(menu_.isVisible());
  EXPECT_FALSE(is_covered(menu_));
  EXPECT_EQ(frame_.top(), &menu_);
}

TEST_F(MainWindow, TheBarIsLargerOnALargeScreen) {
  Leaf page("page", &menu_);
  open(page, [&] {
    const int usual = part<QWidget>("bar").height();
    const QFont type = part<QPushButton>("back").font();
    frame_.resize(3840, 2160);
    QApplication::processEvents();
    EXPECT_DOUBLE_EQ(part<QPushButton>("back").font().pointSizeF(), 2 * type.pointSizeF());
    EXPECT_GT(part<QWidget>("bar").height(), 1.5 * usual);
    EXPECT_EQ(place_of(page).top(), part<QWidget>("bar").height());
    frame_.resize(1024, 700);
    QApplication::processEvents();
    EXPECT_EQ(part<QPushButton>("back").font(), type);
    EXPECT_EQ(part<QWidget>("bar").height(), usual);
    page.reject();
  });
}

TEST_F(MainWindow, ASheetLiesInTheMiddleOverADimmedDeadPage) {
  Leaf sheet("sheet", &menu_, Form::Place::sheet);
  open(sheet, [&] {
    EXPECT_TRUE(menu_.isVisible());
    EXPECT_TRUE(is_covered(menu_));
    EXPECT_TRUE(part<QWidget>("shade").isVisible());
    EXPECT_FALSE(part<QPushButton>("back").isEnabled());
    EXPECT_FALSE(part<QPushButton>("tear_off").isEnabled());
    EXPECT_FALSE(part<QWidget>("bar").isVisible()) << "the page stays where it was";
    const QRect place = place_of(sheet);
    EXPECT_TRUE(frame_.rect().contains(place));
    EXPECT_LT(place.width(), frame_.width() / 2);
    EXPECT_NEAR(place.center().x(), frame_.rect().center().x(), 2);
    menu_.findChild<QPushButton*>(QStringLiteral("accept"))->click();
    EXPECT_TRUE(menu_.isVisible()) << "its button does nothing";
    sheet.reject();
  });
  EXPECT_FALSE(part<QWidget>("shade").isVisible());
}

TEST_F(MainWindow, ASheetLiesNearWhatItIsAbout) {
  menu_.findChild<QLineEdit*>(QStringLiteral("first"))->setMaximumWidth(200);
  QTest::qWait(1);
  Leaf sheet("sheet", &menu_, Form::Place::sheet);
  sheet.stand_as(Form::Place::sheet, QStringLiteral("first"));
  open(sheet, [&] {
    const QRect subject = place_of(*menu_.findChild<QLineEdit*>(QStringLiteral("first")));
    const QRect place = place_of(sheet);
    EXPECT_FALSE(place.intersects(subject));
    EXPECT_LE(place.left() - subject.right(), 16);
    EXPECT_TRUE(frame_.rect().contains(place));
    sheet.reject();
  });
}

TEST_F(MainWindow, ALongSheetStaysWithinTheWindowAndScrolls) {
  Leaf sheet("sheet", &menu_, Form::Place::sheet);
  for (int i = 0; i < 60; ++i) sheet.body()->addWidget(new QLabel(QStringLiteral("line")));
  open(sheet, [&] {
    EXPECT_TRUE(frame_.rect().contains(place_of(sheet)));
    const auto* ok = sheet.findChild<QPushButton*>(QStringLiteral("accept"));
    EXPECT_TRUE(place_of(sheet).contains(place_of(*ok))) << "the foot stays";
    sheet.reject();
  });
}

TEST_F(MainWindow, ASheetEndsWithItsLastRowAndFollowsWhatItShows) {
  Leaf sheet("sheet", &menu_, Form::Place::sheet);
  auto* wrapped =
      new QLabel(QStringLiteral("Words enough that they are wrapped where a sheet is narrow. ").repeated(4));
  wrapped->setWordWrap(true);
  sheet.body()->addWidget(wrapped);
  auto* late = new QLabel(QStringLiteral("A line that comes when it is asked for"));
  late->hide();
  sheet.body()->addWidget(late);
  const auto settle = [] {
    for (int round = 0; round < 6; ++round) QApplication::processEvents();
  };
  open(sheet, [&] {
    for (const QSize size : {QSize(1024, 700), QSize(960, 540), QSize(1280, 800)}) {
      frame_.resize(size);
      settle();
      check_end_of_sheet(sheet);
      const int before = sheet.height();
      late->show();
      settle();
      EXPECT_GE(sheet.height(), before + late->height());
      check_end_of_sheet(sheet);
      late->hide();
      settle();
      EXPECT_EQ(sheet.height(), before);
    }
    sheet.reject();
  });
}

TEST_F(MainWindow, TheKeyboardGoesToTheNewFormAndBackToWhereItWas) {
  menu_.findChild<QLineEdit*>(QStringLiteral("second"))->setFocus();
  Leaf page("page", &menu_);
  open(page, [&] {
    EXPECT_EQ(frame_.focusWidget(), page.findChild<QWidget*>(QStringLiteral("first")));
    page.findChild<QWidget*>(QStringLiteral("second"))->setFocus();
    Leaf sheet("sheet", &page, Form::Place::sheet);
    sheet.findChild<QWidget*>(QStringLiteral("accept"))->setFocus();
    open(sheet, [&] {
      EXPECT_EQ(frame_.focusWidget(), sheet.findChild<QWidget*>(QStringLiteral("accept"))) << "as it was laid down";
      sheet.reject();
    });
    EXPECT_EQ(frame_.focusWidget(), page.findChild<QWidget*>(QStringLiteral("second")));
    page.reject();
  });
  EXPECT_EQ(frame_.focusWidget(), menu_.findChild<QWidget*>(QStringLiteral("second")));
}

TEST_F(MainWindow, EscapeAndBackLeaveThePageOnTop) {
  for (const bool by_key : {true, false}) {
    Leaf page("page", &menu_);
    open(page, [&] {
      if (by_key) {
        QTest::keyClick(frame_.focusWidget(), Qt::Key_Escape);
      } else {
        press(frame_, "back");
      }
    });
    EXPECT_EQ(page.result(), QDialog::Rejected);
    EXPECT_EQ(frame_.top(), &menu_);
  }
}

TEST_F(MainWindow, NothingLeadsBackFromAPageThatNeedsAnAnswer) {
  Leaf page("page", &menu_, Form::Place::page, Form::Dismissal::refused);
  open(page, [&] {
    EXPECT_FALSE(part<QPushButton>("back").isEnabled());
    frame_.close();
    EXPECT_EQ(frame_.top(), &page);
    EXPECT_TRUE(frame_.isVisible());
    press(page, "accept");
  });
}

TEST_F(MainWindow, TheBarTellsTheWayAndTheWindowThePage) {
  Leaf page("Conditions", &menu_);
  open(page, [&] {
    EXPECT_EQ(part<QLabel>("trail").text(), QStringLiteral("Menu  \u203A  Conditions"));
    EXPECT_EQ(frame_.windowTitle(), QStringLiteral("Conditions - Velorin"));
    page.setWindowTitle(QStringLiteral("Toss"));
    EXPECT_EQ(part<QLabel>("trail").text(), QStringLiteral("Menu  \u203A  Toss"));
    page.reject();
  });
}

TEST_F(MainWindow, TheScoreIsSeenOverEveryPageButTheOneThatShowsIt) {
  Leaf console("console", &menu_);
  console.show_score_itself();
  open(console, [&] {
    frame_.show_score(QStringLiteral("IN  143/2"));
    EXPECT_FALSE(part<QLabel>("frame_score").isVisible());
    Leaf sheet("sheet", &console, Form::Place::sheet);
    open(sheet, [&] {
      EXPECT_TRUE(part<QLabel>("frame_score").isVisible());
      EXPECT_EQ(part<QLabel>("frame_score").text(), QStringLiteral("IN  143/2"));
      sheet.reject();
    });
    EXPECT_FALSE(part<QLabel>("frame_score").isVisible());
    console.reject();
  });
  frame_.show_score({});
  EXPECT_FALSE(part<QLabel>("frame_score").isVisible());
}

TEST_F(MainWindow, AReportStandsBesideItsPageWhereThereIsRoom) {
  for (const int width : {1279, 1280, 1920}) {
    frame_.resize(width, 800);
    Leaf page("page", &menu_);
    open(page, [&] {
      Leaf report("report", &page, Form::Place::beside);
      open(report, [&] {
        EXPECT_EQ(page.isVisible(), width >= 1280) << width;
        EXPECT_EQ(place_of(report).left() > 0, width >= 1280) << width;
        EXPECT_EQ(place_of(report).right(), frame_.rect().right());
        EXPECT_TRUE(is_covered(page));
        EXPECT_FALSE(menu_.isVisible());
        report.reject();
      });
      page.reject();
    });
  }
}

TEST_F(MainWindow, APageIsTornOffAndPutBack) {
  Leaf page("page", &menu_);
  const int result = open(page, [&] {
    page.findChild<QWidget*>(QStringLiteral("second"))->setFocus();
    press(frame_, "tear_off");
    EXPECT_TRUE(page.isWindow());
    EXPECT_TRUE(page.isVisible());
    EXPECT_TRUE(frame_.is_torn_off(page));
    EXPECT_TRUE(menu_.isVisible()) << "what it stood over is seen again";
    EXPECT_TRUE(is_covered(menu_)) << "and dead";
    EXPECT_EQ(waiting_window(), &page);
    check_window(page);
    EXPECT_TRUE(part<QWidget>("shade").isVisible()) << "and looks so";
    EXPECT_TRUE(part<QWidget>("away").isVisible());
    EXPECT_EQ(part<QLabel>("away_title").text(), page.windowTitle());
    EXPECT_FALSE(part<QPushButton>("back").isEnabled());
    EXPECT_EQ(page.findChild<QWidget*>(QStringLiteral("put_back"))->parentWidget()->objectName(), "head");
    press(page, "put_back");
    EXPECT_FALSE(page.isWindow());
    EXPECT_FALSE(frame_.is_torn_off(page));
    EXPECT_FALSE(menu_.isVisible());
    EXPECT_FALSE(part<QWidget>("away").isVisible());
    EXPECT_FALSE(page.findChild<QWidget*>(QStringLiteral("put_back"))->isVisible());
    EXPECT_EQ(place_of(page).bottom(), frame_.rect().bottom());
    press(frame_, "tear_off");
    page.resize(777, 555);
    press(page, "accept");
  });
  EXPECT_EQ(result, QDialog::Accepted) << "the moves ended nothing";
  EXPECT_EQ(frame_.top(), &menu_);
  EXPECT_FALSE(is_covered(menu_));
  EXPECT_FALSE(preferences::geometry(QStringLiteral("page")).isEmpty());
}

TEST_F(MainWindow, WhatATornOffPageOpensIsAWindow) {
  Leaf page("page", &menu_);
  open(page, [&] {
    frame_.tear_off();
    Leaf sheet("sheet", front_window(), Form::Place::sheet);
    open(sheet, [&] {
      EXPECT_TRUE(sheet.isWindow());
      EXPECT_TRUE(is_covered(page));
      sheet.reject();
    });
    EXPECT_FALSE(is_covered(page));
    page.reject();
  });
}

TEST_F(MainWindow, AFormThatHidesMayComeBack) {
  Leaf page("page", &menu_);
  open(page, [&] {
    page.hide();
    EXPECT_EQ(frame_.top(), &menu_);
    page.show();
    EXPECT_EQ(frame_.top(), &page);
  });
  EXPECT_TRUE(page.isVisible()) << "its first loop has ended";
  open(page, [&] { press(page, "accept"); });
  EXPECT_FALSE(page.isVisible());
}

TEST_F(MainWindow, WhatTellsOfProgressTakesNoInputAndGoes) {
  auto progress = std::make_unique<Leaf>("progress", &menu_, Form::Place::sheet);
  progress->setModal(false);
  progress->show();
  EXPECT_EQ(frame_.top(), &menu_);
  EXPECT_TRUE(progress->isVisible());
  EXPECT_FALSE(is_covered(menu_));
  progress.reset();
  EXPECT_EQ(frame_.top(), &menu_);
  QApplication::processEvents();
}

TEST_F(MainWindow, AModalWindowOfTheDesktopCoversAllAndLeavesThePagesBelowDead) {
  Leaf page("page", &menu_);
  open(page, [&] {
    QDialog dialog(&page);
    QTimer::singleShot(0, &dialog, [&] {
      EXPECT_TRUE(is_covered(page));
      dialog.reject();
    });
    dialog.exec();
    EXPECT_FALSE(is_covered(page));
    EXPECT_TRUE(page.isEnabled());
    EXPECT_TRUE(is_covered(menu_));
    EXPECT_FALSE(menu_.isEnabled());
    page.reject();
  });
  EXPECT_TRUE(menu_.isEnabled());
}

TEST_F(MainWindow, ItRemembersItsPlace) {
  frame_.resize(720, 560);
  frame_.hide();
  Frame again;
  again.show();
  EXPECT_EQ(again.size(), QSize(720, 560));
}

TEST_F(MainWindow, ASheetStandsWholeInEverySizeAfterEveryOther) {
  const QSize sizes[] = {{960, 540}, {1280, 800}, {1024, 768}};
  const message_box told{"End of Match", "Bali   wins by  5  wickets ", message_kind::end_of_match};
  for (const QSize before : sizes) {
    for (const QSize size : sizes) {
      MessageWindow message(told, MessageWindow::Kind::information, &menu_);
      open(message, [&] {
        for (const QSize each : {before, size}) {
          frame_.resize(each);
          for (int round = 0; round < 6; ++round) QApplication::processEvents();
          SCOPED_TRACE(::testing::PrintToString(each.width()) + " wide");
          EXPECT_GE(message.height(), message.sizeHint().height());
          check_controls(message);
        }
        message.accept();
      });
    }
  }
}

}  // namespace
}  // namespace velorin::testing
