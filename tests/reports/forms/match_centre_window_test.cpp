// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/match_centre_window.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <string>

#include "desktop/table_view.h"
#include "reports/forms/course_picture.h"
#include "reports/forms/played_match.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class MatchCentre : public ReportWindowTest {
 protected:
  /// The row of a table that is marked, -1 for none.
  static int marked_row(const QWidget& window, const char* name) {
    const auto rows = control<TableView>(window, name)->selectionModel()->selectedRows();
    return rows.isEmpty() ? -1 : rows.front().row();
  }
};

constexpr int views = 11;

TEST_F(MatchCentre, EveryViewStandsInEveryInnings) {
  for (const auto moment : {&PlayedMatch::no_ball, &PlayedMatch::first_innings, &PlayedMatch::second_innings,
                            &PlayedMatch::second_all_out}) {
    MatchCentreWindow window(story_of(played_match().*moment));
    window.show();
    const auto* list = control<QListWidget>(window, "views");
    ASSERT_EQ(list->count(), views);
    const bool second = window.findChild<QPushButton*>(QStringLiteral("innings_2")) != nullptr;
    EXPECT_EQ(second, (played_match().*moment).first_total != 0);
    for (int view = 0; view < views; ++view) {
      SCOPED_TRACE(list->item(view)->text().toStdString());
      window.show_view(view);
      check_window(window);
    }
  }
}

TEST_F(MatchCentre, AnOverPickedInOneViewIsPickedInAll) {
  MatchCentreWindow window(story_of(played_match().second_innings));
  window.show();
  window.show_view(9);
  auto* book = control<TableView>(window, "scorebook_table");
  book->open_row(book->model()->index(11, 0));
  EXPECT_EQ(window.picked_over(), 12);
  EXPECT_EQ(marked_row(window, "scorebook_table"), 11);
  EXPECT_EQ(marked_row(window, "overs_figures"), 11);
  EXPECT_EQ(marked_row(window, "phases_table"), 1);
  EXPECT_GE(marked_row(window, "told_lines"), 11 * 6);
  auto* picture = control<CoursePicture>(window, "overs_picture");
  EXPECT_EQ(picture->marked_over(), 12);
  window.show_view(2);
  QTest::mouseClick(picture, Qt::LeftButton, {}, picture->strip_of(5).center().toPoint());
  EXPECT_EQ(window.picked_over(), 5);
  QTest::keyClick(picture, Qt::Key_Right);
  EXPECT_EQ(marked_row(window, "scorebook_table"), 5);
  press(window, "innings_1");
  EXPECT_EQ(window.picked_over(), 0) << "another innings has overs of its own";
  EXPECT_EQ(marked_row(window, "scorebook_table"), -1);
}

TEST_F(MatchCentre, TheCommentaryIsSearchedAndFiltered) {
  const match_story story = story_of(played_match().second_innings);
  MatchCentreWindow window(story);
  window.show();
  window.show_view(1);
  const auto rows = [&] { return control<TableView>(window, "told_lines")->model()->rowCount(); };
  EXPECT_EQ(rows(), static_cast<int>(story.innings[1].commentary.size()));
  control<QComboBox>(window, "which_balls")->setCurrentIndex(1);
  EXPECT_EQ(rows(), story.innings[1].card.wickets);
  control<QComboBox>(window, "which_balls")->setCurrentIndex(0);
  control<QComboBox>(window, "whose_balls")->setCurrentIndex(1);
  EXPECT_EQ(rows(), story.innings[1].card.batsmen[0].balls);
  control<QLineEdit>(window, "search")->setText(QStringLiteral("no such words"));
  EXPECT_EQ(rows(), 0);
}

TEST_F(MatchCentre, AViewIsCopiedAsText) {
  MatchCentreWindow window(story_of(played_match().second_innings));
  window.show();
  window.show_view(4);
  press(window, "copy");
  const QString text = QApplication::clipboard()->text();
  EXPECT_TRUE(text.contains(QStringLiteral(", phases\nOvers\tR\tW\tO\tRPO")));
  EXPECT_TRUE(text.contains(QStringLiteral("\n11-40\t")));
}

TEST_F(MatchCentre, ThePictureIsWrittenAsSvgAndPng) {
  const QTemporaryDir folder;
  MatchCentreWindow window(story_of(played_match().second_innings));
  window.show();
  const auto* picture = control<CoursePicture>(window, "overs_picture");
  ASSERT_TRUE(picture->save(folder.filePath(QStringLiteral("a.svg"))));
  QFile svg(folder.filePath(QStringLiteral("a.svg")));
  ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
  EXPECT_TRUE(svg.readAll().contains("Overs"));
  ASSERT_TRUE(picture->save(folder.filePath(QStringLiteral("a.png"))));
  EXPECT_GT(QImage(folder.filePath(QStringLiteral("a.png"))).width(), 1000);
  EXPECT_FALSE(picture->save(folder.filePath(QStringLiteral("no/such/folder.svg"))));
  EXPECT_TRUE(picture->accessibleDescription().contains(QStringLiteral("over 12: ")));
}

}  // namespace
}  // namespace velorin::testing
