// SPDX-License-Identifier: GPL-3.0-or-later
// Matches that are skipped through and practice matches whose balls are taken back, by pressing what the windows offer.
#include <QCheckBox>
#include <QLabel>
#include <QMenu>
#include <QPushButton>

#include "model/match_state.h"
#include "model/random.h"
#include "setup/new_match.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// Takes the n-th entry that the menu of a button offers, as often counted round as there are; its name.
QString take_entry(const QWidget& window, const char* button, int n) {
  press(window, button);
  auto* menu = control<QMenu>(window, (std::string(button) + "_menu").c_str());
  if (menu == nullptr) return {};
  QList<QAction*> entries;
  for (QAction* entry : menu->actions()) {
    if (!entry->isSeparator()) entries << entry;
  }
  QAction* entry = entries[n % entries.size()];
  const QString name = entry->objectName();
  entry->trigger();
  menu->close();
  auto* asked = control<QPushButton>(window, button);
  QCoreApplication::sendPostedEvents(asked, QEvent::MetaCall);
  QCoreApplication::sendPostedEvents(menu, QEvent::DeferredDelete);
  return name;
}

class PracticeClicking : public GameTest {
 protected:
  PracticeClicking() { preferences::set_last_skip({}); }

  /// A match of a human side against the computer; `practice` ticks the box.
  void play_match(ClickingUser& user, std::uint64_t seed, bool practice) {
    begin_again_with_seed(seed);
    user.robot.next("teamfrm", [practice](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      if (practice) press(window, "practice");
      press(window, "accept");
    });
    play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
    EXPECT_FALSE(match.result_margin.empty());
    EXPECT_EQ(user.robot.left(), 0);
  }
};

TEST_F(PracticeClicking, AMatchSkippedThroughIsTheMatchOfTheCore) {
  for (const std::uint64_t seed : {3U, 8U, 12U}) {
    SCOPED_TRACE(seed);
    ClickingUser user;
    int skips = 0;
    QStringList taken;
    user.robot.always("main", [&](QWidget& window) { taken << take_entry(window, "play_to", skips++ % 3); });
    play_match(user, seed, false);
    EXPECT_GT(skips, 4);
    EXPECT_GT(QSet<QString>(taken.begin(), taken.end()).size(), 3);
    const match_result result = match;
    const std::vector<std::string> written = lasting_files();

    begin_again_with_seed(seed);
    BookkeepingUser reference;
    const front_end_scope in_use(reference);
    new_match_form form(in_play());
    form.open();
    form.choose_first_team(4);
    form.choose_second_team(7);
    form.computer_captains_first = false;
    form.accept();
    EXPECT_EQ(user.books_shown, reference.books_shown);
    EXPECT_EQ(user.messages, reference.messages) << "what has to be told is told on the way";
    EXPECT_EQ(result.result_margin, match.result_margin);
    EXPECT_TRUE(written == lasting_files());
  }
}

TEST_F(PracticeClicking, PracticeLeavesCareersAndRecordsAsTheyWere) {
  ClickingUser user;
  begin_again_with_seed(5);
  const std::vector<std::string> before = lasting_files();
  int turn = 0;
  int taken = 0;
  user.robot.always("main", [&](QWidget& window) {
    EXPECT_TRUE(control<QLabel>(window, "practice")->isVisible());
    ++turn;
    if (turn % 3 == 0 && taken < 30) {
      const std::size_t balls = match.deliveries.size() + match.first_deliveries.size();
      take_entry(window, "take_back", ++taken);
      EXPECT_LT(match.deliveries.size() + match.first_deliveries.size(), balls);
      return;
    }
    press(window, "next_over");
  });
  bool reported = false;
  user.robot.always("matchrep", [&](QWidget& window) {
    EXPECT_TRUE(control<QLabel>(window, "match")->text().contains("Practice"));
    reported = true;
    press(window, "accept");
  });
  play_match(user, 5, true);
  EXPECT_EQ(taken, 30);
  EXPECT_TRUE(reported);
  EXPECT_TRUE(lasting_files() == before);
  EXPECT_FALSE(user.messages.empty());
  EXPECT_EQ(user.messages.back().rfind("End of Match", 0), 0U) << user.messages.back();
}

}  // namespace
}  // namespace velorin::testing
