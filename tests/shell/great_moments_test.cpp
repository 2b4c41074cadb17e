// SPDX-License-Identifier: GPL-3.0-or-later
// What is celebrated in play: hundreds, five wickets, and who wins a competition.
#include <QLabel>
#include <QLineEdit>

#include "competitions/tri_series.h"
#include "desktop/message_kinds.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

/// The words of the moment that is on over a window; none without one.
QString moment_over(const QWidget& window) {
  const auto* banner = window.window()->findChild<QWidget*>(QStringLiteral("moment"));
  return banner != nullptr && banner->isVisible() ? banner->accessibleName() : QString();
}

class GreatMoments : public GameTest {
 protected:
  GreatMoments() { preferences::set_moments(true); }
  ~GreatMoments() override { preferences::set_moments(true); }

  /// Plays matches of these seeds; returns the words of each message that was shown as a moment. No banner tells the
  /// same beside it.
  QStringList moments_at_messages(std::initializer_list<std::uint64_t> seeds) {
    QStringList seen;
    for (const std::uint64_t seed : seeds) {
      begin_again_with_seed(seed);
      ClickingUser user;
      user.robot.next("teamfrm", [](QWidget& window) {
        ClickingUser::choose_match(window, 4, 7, true, false);
        press(window, "accept");
      });
      user.robot.always("message", [&](QWidget& window) {
        if (control<QLabel>(window, "icon")->accessibleName() == QStringLiteral("A great moment")) {
          seen << control<QLabel>(window, "text")->text().simplified();
        }
        EXPECT_TRUE(moment_over(window).isEmpty());
        press(window, "accept");
      });
      play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
    }
    return seen;
  }
};

TEST_F(GreatMoments, HundredsAreCelebratedWhereTheyAreTold) {
  const QStringList seen = moments_at_messages({3, 8, 9, 10});
  EXPECT_FALSE(seen.filter(QStringLiteral("century"), Qt::CaseInsensitive).isEmpty()) << seen.join(u'\n').toStdString();
}

TEST_F(GreatMoments, WhereTheyPassByABannerTellsThem) {
  preferences::set_stops_for(message_kind::hundred, false);
  QStringList seen;
  for (const std::uint64_t seed : {9}) {
    begin_again_with_seed(seed);
    ClickingUser user;
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    user.robot.always("main", [&](QWidget& window) {
      if (const QString words = moment_over(window); !words.isEmpty()) seen << words;
      press(window, "next_over");
    });
    user.robot.always("message", [&](QWidget& window) {
      EXPECT_FALSE(control<QLabel>(window, "text")->text().contains(QStringLiteral("century")));
      press(window, "accept");
    });
    play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  }
  preferences::set_stops_for(message_kind::hundred, true);
  EXPECT_FALSE(seen.filter(QStringLiteral("century"), Qt::CaseInsensitive).isEmpty()) << seen.join(u'\n').toStdString();
}

TEST_F(GreatMoments, SwitchedOffThereAreNone) {
  preferences::set_moments(false);
  EXPECT_TRUE(moments_at_messages({3, 8}).isEmpty());
}

TEST_F(GreatMoments, TheWinnersOfATriSeriesAreCelebrated) {
  ClickingUser user;
  user.robot.next("series2", [](QWidget& window) { press(window, "accept"); });
  int tables = 0;
  user.robot.always("triserresult", [&](QWidget& window) {
    ++tables;
    const QString result = control<QLabel>(window, "final_result")->text().simplified();
    EXPECT_EQ(moment_over(window), result) << "at the final's result, and not before";
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "tri_series"); });
  EXPECT_EQ(tables, 4);
}

TEST_F(GreatMoments, TheWinnerOfASeriesIsCelebratedAtItsEnd) {
  ClickingUser user;
  user.robot.next("series1", [](QWidget& window) {
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("3"));
    press(window, "accept");
  });
  int ends = 0;
  user.robot.always("sri_result", [&](QWidget& window) {
    const QString standing = control<QLabel>(window, "standing_line")->text().simplified();
    const bool won = standing.contains(QStringLiteral(" wins the series "));
    EXPECT_EQ(moment_over(window), won ? standing : QString());
    ends += won ? 1 : 0;
    press(window, "accept");
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  EXPECT_EQ(ends, 1);
}

}  // namespace
}  // namespace velorin::testing
