// SPDX-License-Identifier: GPL-3.0-or-later
// What is told in a match and needs no answer: declined once, a kind of messages stops play no more.
#include <QAbstractItemView>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QTest>
#include <map>

#include "desktop/frame.h"
#include "desktop/message_kinds.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class PassingMessages : public GameTest {
 protected:
  PassingMessages() { stop_for_all(); }
  ~PassingMessages() override { stop_for_all(); }

  static void stop_for_all() {
    for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, true);
  }

  /// Plays a match of this seed against the computer.
  void play_match(ClickingUser& user, std::uint64_t seed) {
    begin_again_with_seed(seed);
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
    EXPECT_FALSE(match.result_margin.empty());
  }
};

TEST_F(PassingMessages, DeclinedByOnePressAKindTheyStopNoMore) {
  ClickingUser user;
  std::map<std::string, int> declined;
  const auto decline = [&](QWidget& window) {
    if (auto* box = window.findChild<QCheckBox*>(QStringLiteral("pass_by"))) {
      ++declined[box->toolTip().toStdString()];
      box->click();
    }
    press(window, "accept");
  };
  user.robot.always("message", decline);
  user.robot.always("batsmandetails", decline);
  for (const std::uint64_t seed : {3U, 8U, 9U}) play_match(user, seed);
  for (const auto& [kind, times] : declined) EXPECT_EQ(times, 1) << kind;
  EXPECT_GE(declined.size(), 6U);
  const int messages = user.robot.met("message");
  const int falls = user.robot.met("batsmandetails");
  EXPECT_EQ(messages + falls, static_cast<int>(declined.size()));

  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, false);
  for (const std::uint64_t seed : {10U, 11U}) play_match(user, seed);
  EXPECT_EQ(user.robot.met("message"), messages) << "not one box more";
  EXPECT_EQ(user.robot.met("batsmandetails"), falls);
}

TEST_F(PassingMessages, TheBooksAreTheSame) {
  std::vector<std::vector<std::string>> books;
  for (const bool stops : {true, false}) {
    for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, stops);
    ClickingUser user;
    play_match(user, 12);
    books.push_back(user.books_shown);
    EXPECT_EQ(user.robot.met("message") > 0, stops);
  }
  EXPECT_EQ(books[0], books[1]);
}

TEST_F(PassingMessages, TheCommentaryHasARowForEach) {
  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, false);
  ClickingUser user;
  QStringList rows;
  QString copied;
  user.robot.always("main", [&](QWidget& window) {
    if (match.over_no == 50 && match.first_total == 0) {
      auto* list = control<QAbstractItemView>(window, "commentary");
      for (int row = 0; row < list->model()->rowCount(); ++row) {
        const QModelIndex at = list->model()->index(row, 0);
        rows << at.data().toString();
        EXPECT_GT(list->visualRect(at).height(), 0);
      }
      list->selectAll();
      QTest::keySequence(list, QKeySequence::Copy);
      copied = QGuiApplication::clipboard()->text();
    }
    press(window, "next_over");
  });
  play_match(user, 3);
  ASSERT_FALSE(rows.isEmpty());
  int passed = 0;
  for (const QString& row : rows) {
    if (!row.contains(QLatin1String("run partnership!")) && !row.contains(QLatin1String(" has been replaced by ")))
      continue;
    ++passed;
    EXPECT_FALSE(copied.contains(row)) << "it is no line of the commentary";
  }
  EXPECT_GE(passed, 2);
  EXPECT_TRUE(copied.contains(QLatin1String("End of Over No.49"))) << copied.right(400).toStdString();
}

TEST_F(PassingMessages, TheBarTellsThemInPassing) {
  for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, false);
  ClickingUser user;
  QStringList seen;
  user.robot.always("main", [&](QWidget& window) {
    const auto* passing = window.window()->findChild<QLabel*>(QStringLiteral("passing"));
    if (passing->isVisible()) seen << passing->text();
    press(window, "next_over");
  });
  play_match(user, 3);
  const QString told = seen.join(u'\n');
  for (const char* words : {" has been replaced by ", " c ", "run partnership!"}) {
    EXPECT_TRUE(told.contains(QLatin1String(words))) << words << " in " << told.toStdString();
  }
}

TEST_F(PassingMessages, TheSettingsListTheKinds) {
  preferences::set_stops_for(message_kind::bowler_change, false);
  MessageKindsWindow window(nullptr);
  window.show();
  check_window_at_sizes(window);
  int boxes = 0;
  for (auto* box : window.findChildren<QCheckBox*>()) {
    ++boxes;
    EXPECT_EQ(box->isChecked(), box->text() != QStringLiteral("Bowler changes"));
    box->click();
  }
  EXPECT_EQ(boxes, static_cast<int>(passing_kinds().size()));
  for (const message_kind kind : passing_kinds()) {
    EXPECT_EQ(preferences::stops_for(kind), kind == message_kind::bowler_change);
  }
}

}  // namespace
}  // namespace velorin::testing
