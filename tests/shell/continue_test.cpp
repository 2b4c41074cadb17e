// SPDX-License-Identifier: GPL-3.0-or-later
// A game that is left goes on where it was, with the next start of the program.
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <filesystem>
#include <memory>
#include <utility>

#include "competitions/series.h"
#include "database/lasting_records.h"
#include "database/whole_file.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "recording/kept_games.h"
#include "recording/recording.h"
#include "shell/game_fixture.h"
#include "shell/game_keeper.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class Continue : public GameTest {
 protected:
  Continue() { chance.use_clock(); }

  /// A start of the program: fresh records on the files as they are.
  void start(const std::function<void(MenuWindow&)>& then) {
    match = {};
    series = {};
    chance.use_clock();
    QtFrontEnd shown_by(tested_game, folder_);
    play_shown_by(shown_by, then);
  }

  static bool offered(MenuWindow& menu) { return control<QAbstractButton>(menu, "continue")->isVisible(); }
  static QString trail(MenuWindow& menu) { return control<QLabel>(*menu.window(), "trail")->text(); }
  static QString what_waits(MenuWindow& menu) { return control<QLabel>(menu, "waits")->text(); }

  /// Begins a match as captain of the first team.
  static void begin_match(ClickingUser& user) {
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
  }

  QTemporaryDir place_;
  std::filesystem::path folder_ = std::filesystem::path(place_.path().toStdString()) / "games";
};

/// Quits in the console once so many overs have begun there.
void quit_after(ClickingUser& user, int overs, const char* answer) {
  auto left = std::make_shared<int>(overs);
  user.robot.always("keep_question", pressing(answer));
  user.robot.always("main", [left](QWidget& window) { press(window, --*left >= 0 ? "next_over" : "quit"); });
}

TEST_F(Continue, IsNotOfferedWhereNothingWaits) {
  start([](MenuWindow& menu) {
    EXPECT_FALSE(offered(menu));
    EXPECT_FALSE(control<QLabel>(menu, "waits")->isVisible());
    check_window(menu);
  });
}

TEST_F(Continue, AMatchThatWasQuitGoesOnAtTheVeryBall) {
  delivery_list bowled;
  QString overs;
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    quit_after(user, 9, "keep");
    choose(menu, "start_game", "new_match");
    bowled = match.deliveries;
    overs = shown(match.overs_text()) + QStringLiteral(" overs");
  });
  ASSERT_GE(bowled.size(), 54U);
  start([&](MenuWindow& menu) {
    ASSERT_TRUE(offered(menu));
    EXPECT_TRUE(what_waits(menu).contains(overs)) << what_waits(menu).toStdString();
    check_window(menu);
    ClickingUser user;
    bool seen = false;
    user.robot.next("main", [&](QWidget& window) {
      seen = true;
      EXPECT_EQ(match.deliveries, bowled);
      press(window, "next_over");
    });
    press(menu, "continue");
    EXPECT_TRUE(seen);
    EXPECT_FALSE(match.result_margin.empty()) << "it was played to its end";
    EXPECT_FALSE(offered(menu)) << "and waits no more";
  });
  const std::vector<kept_game> games = games_in(folder_);
  ASSERT_EQ(games.size(), 1U);
  EXPECT_TRUE(games.front().over);
  EXPECT_EQ(games.front().fault, "");
}

TEST_F(Continue, TheWayBackFromAMatchLeadsToTheMenuWithTheGameKept) {
  bool returns = false;
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    user.robot.next("keep_question", [](QWidget& question) {
      EXPECT_TRUE(control<QLabel>(question, "text")->text().startsWith(QStringLiteral("The menu opens.")));
      press(question, "keep");
    });
    user.robot.next("main", [&](QWidget& window) {
      press(window, "next_over");
      auto* back = control<QPushButton>(*menu.window(), "back");
      EXPECT_EQ(back->accessibleName(), QStringLiteral("Menu"));
      ASSERT_TRUE(back->isEnabled());
      back->click();
      returns = takes_return_to_menu();
      // This test's loop ends as the program's own does, in which the menu opens anew.
      EXPECT_FALSE(program_is_ending());
      end_program(0);
    });
    choose(menu, "start_game", "new_match");
  });
  EXPECT_TRUE(returns);
  start([&](MenuWindow& menu) {
    ASSERT_TRUE(offered(menu));
    EXPECT_TRUE(what_waits(menu).contains(QStringLiteral("1.0 overs"))) << what_waits(menu).toStdString();
  });
}

TEST_F(Continue, WhoDoesNotKeepAGameFindsItNoMore) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    quit_after(user, 2, "discard");
    choose(menu, "start_game", "new_match");
  });
  EXPECT_TRUE(games_in(folder_).empty());
  start([](MenuWindow& menu) { EXPECT_FALSE(offered(menu)); });
}

TEST_F(Continue, WhoPlaysOnStaysInTheMatch) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    user.robot.always("keep_question", pressing("stay"));
    user.robot.next("main", [](QWidget& window) {
      press(window, "quit");
      EXPECT_TRUE(window.isVisible());
      press(window, "next_over");
    });
    choose(menu, "start_game", "new_match");
    EXPECT_FALSE(match.result_margin.empty());
  });
}

TEST_F(Continue, IsNotOfferedForAGameThatBrokeOffBehindItsLastAnswer) {
  const std::filesystem::path played = std::filesystem::path(VELORIN_TEST_DATA) / "data/recordings/attended.velorin";
  std::string bytes = read_file(played).value_or("");
  ASSERT_GT(bytes.size(), 4U);
  bytes.resize(bytes.size() - 4);  // the entry that ends it
  std::filesystem::create_directories(folder_);
  replace_file(folder_ / "Broken off.velorin", bytes);
  ASSERT_FALSE(read_recording(folder_ / "Broken off.velorin").ended());
  start([](MenuWindow& menu) { EXPECT_FALSE(offered(menu)); });
  EXPECT_TRUE(look_at_game(folder_ / "Broken off.velorin").over);
}

TEST_F(Continue, AMatchLeftInItsSetUpIsNotKept) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    user.robot.next("leave_question", pressing("yes"));
    user.robot.next("wecond", [](QWidget& window) { window.close(); });
    choose(menu, "start_game", "new_match");
    EXPECT_FALSE(offered(menu));
  });
  EXPECT_TRUE(games_in(folder_).empty());
}

TEST_F(Continue, AMatchLeftInItsSetUpBehindAContinueIsNotKeptEither) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    user.robot.next("wecond", [](QWidget&) { end_program(0); });
    choose(menu, "start_game", "new_match");
  });
  EXPECT_EQ(games_in(folder_).size(), 1U);
  start([&](MenuWindow& menu) {
    ASSERT_TRUE(offered(menu));
    ClickingUser user;
    user.robot.next("leave_question", pressing("yes"));
    user.robot.next("wecond", [](QWidget& window) { window.close(); });
    press(menu, "continue");
    EXPECT_EQ(user.robot.left(), 0);
  });
  EXPECT_TRUE(games_in(folder_).empty());
}

TEST_F(Continue, ASeriesGoesOnWithItsMatchesAndCountsEachOnce) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("series1", [](QWidget& window) {
      control<QLineEdit>(window, "matches")->setText("3");
      press(window, "home_human");
      press(window, "accept");
    });
    int overs = 0;
    user.robot.always("keep_question", pressing("keep"));
    user.robot.always("main", [&](QWidget& window) {
      if (series.match_no == 2 && ++overs > 5) {
        EXPECT_TRUE(trail(menu).contains(QStringLiteral(", match 2  \u203A  "))) << trail(menu).toStdString();
        press(window, "quit");
      } else {
        press(window, "next_over");
      }
    });
    choose(menu, "start_game", "new_series");
  });
  start([&](MenuWindow& menu) {
    ASSERT_TRUE(offered(menu));
    EXPECT_TRUE(what_waits(menu).startsWith(QStringLiteral("Series "))) << what_waits(menu).toStdString();
    EXPECT_TRUE(what_waits(menu).contains(QStringLiteral("match 2: "))) << what_waits(menu).toStdString();
    ClickingUser user;
    int results = 0;
    user.robot.next("main", [&](QWidget& window) {
      EXPECT_TRUE(trail(menu).startsWith(QStringLiteral("Menu  \u203A  Series "))) << trail(menu).toStdString();
      EXPECT_TRUE(trail(menu).contains(QStringLiteral(", match 2  \u203A  "))) << trail(menu).toStdString();
      press(window, "next_over");
    });
    user.robot.always("sri_result", [&](QWidget& window) {
      EXPECT_FALSE(trail(menu).contains(QStringLiteral(", match"))) << trail(menu).toStdString();
      ++results;
      press(window, "accept");
    });
    press(menu, "continue");
    EXPECT_EQ(results, 2) << "after the second match and the third";
  });
  const career_table careers = read_career_table(tested_game.data);
  ASSERT_EQ(careers.career_team_count, 2);
  EXPECT_EQ(careers.teams[1].players[1].matches, 3);
}

TEST_F(Continue, TheListOfSavedGamesCopiesRenamesDeletesAndGoesOn) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    quit_after(user, 3, "keep");
    choose(menu, "start_game", "new_match");
  });
  start([&](MenuWindow& menu) {
    ClickingUser user;
    const auto named = [&](const char* name) {
      user.robot.next("game_name", [name](QWidget& window) {
        check_window(window);
        control<QLineEdit>(window, "name")->setText(QString::fromLatin1(name));
        press(window, "accept");
      });
    };
    named("A copy: of it");
    named("Renamed");
    user.robot.next("delete_question", pressing("no"));
    user.robot.next("delete_question", pressing("yes"));
    user.robot.next("savedgames", [&](QWidget& window) {
      take_picture(window, "saved_games");
      check_window(window);
      auto* games = control<TableView>(window, "games");
      ASSERT_EQ(games->table().rows.size(), 1U);
      EXPECT_EQ(games->table().rows[0].cells[4].text, QStringLiteral("waits"));
      press(window, "copy_game");
      ASSERT_EQ(games->table().rows.size(), 2U);
      press(window, "rename_game");
      press(window, "delete_game");
      ASSERT_EQ(games->table().rows.size(), 2U) << "No keeps it";
      press(window, "delete_game");
      ASSERT_EQ(games->table().rows.size(), 1U);
      EXPECT_FALSE(std::filesystem::exists(folder_ / "Renamed.velorin"));
      press(window, "accept");
    });
    press(menu, "saved_games");
    EXPECT_FALSE(match.result_margin.empty()) << "it went on to its end";
  });
}

TEST_F(Continue, AGameOfTheCommandLineIsTakenInAndGoesOn) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    quit_after(user, 3, "keep");
    choose(menu, "start_game", "new_match");
  });
  const std::filesystem::path elsewhere = folder_.parent_path() / "velorin-sent.velorin";
  std::filesystem::rename(games_in(folder_).front().file, elsewhere);
  start([&](MenuWindow& menu) {
    EXPECT_FALSE(offered(menu));
    ClickingUser user;
    menu.open_game(QString::fromStdString(elsewhere.string()));
    EXPECT_FALSE(match.result_margin.empty());
    // What is no game is told.
    user.robot.next("message", [](QWidget& window) {
      EXPECT_TRUE(control<QLabel>(window, "text")->text().contains(QStringLiteral("velorin-no-game")));
      press(window, "accept");
    });
    menu.open_game(QString::fromStdString((folder_.parent_path() / "velorin-no-game").string()));
  });
}

TEST_F(Continue, ACopyIsSavedUnderANameWhilePlayGoesOn) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    begin_match(user);
    user.robot.next("game_name", [](QWidget& window) {
      control<QLineEdit>(window, "name")->setText(QStringLiteral("Before the last over"));
      press(window, "accept");
    });
    bool asked = false;
    user.robot.always("main", [&](QWidget& window) {
      if (!std::exchange(asked, true)) {
        auto* save = window.window()->findChild<QAbstractButton*>(QStringLiteral("save_game"));
        ASSERT_NE(save, nullptr);
        EXPECT_TRUE(save->isVisible());
        save->click();
      }
      press(window, "next_over");
    });
    choose(menu, "start_game", "new_match");
  });
  ASSERT_TRUE(std::filesystem::exists(folder_ / "Before the last over.velorin"));
  const kept_game saved = look_at_game(folder_ / "Before the last over.velorin");
  EXPECT_EQ(saved.fault, "");
  EXPECT_FALSE(saved.over);
}

}  // namespace
}  // namespace velorin::testing
