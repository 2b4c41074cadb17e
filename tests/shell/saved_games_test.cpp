// SPDX-License-Identifier: GPL-3.0-or-later
// Saved games go out to a file and come in from one; what goes wrong is told over the list, which stays as it is.
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <optional>

#include "database/whole_file.h"
#include "desktop/program_end.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "recording/kept_games.h"
#include "shell/game_fixture.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class SavedGames : public GameTest {
 protected:
  void start(const std::function<void(MenuWindow&)>& then) {
    match = {};
    chance.use_clock();
    QtFrontEnd shown_by(tested_game, folder_);
    play_shown_by(shown_by, then);
  }

  /// Begins a match as captain of the first team, quits after so many overs, and keeps it.
  void keep_match(int overs) {
    start([&](MenuWindow& menu) {
      ClickingUser user;
      user.robot.next("teamfrm", [](QWidget& window) {
        ClickingUser::choose_match(window, 4, 7, true, false);
        press(window, "accept");
      });
      user.robot.always("keep_question", pressing("keep"));
      user.robot.always("main", [&](QWidget& window) { press(window, --overs >= 0 ? "next_over" : "quit"); });
      choose(menu, "start_game", "new_match");
    });
    ASSERT_EQ(games_in(folder_).size(), 1U);
  }

  /// Opens the list for `acts`, and leaves it.
  void in_list(const std::function<void(QWidget& list, Robot& robot)>& acts) {
    start([&](MenuWindow& menu) {
      Robot robot;
      robot.next("savedgames", [&](QWidget& list) {
        acts(list, robot);
        press(list, "close");
      });
      press(menu, "saved_games");
      EXPECT_EQ(robot.left(), 0);
    });
  }

  static void choose_file(Robot& robot, const char* dialog, const std::filesystem::path& file) {
    robot.next(dialog, [name = QString::fromStdString(file.string())](QWidget& window) {
      auto& asked = dynamic_cast<QFileDialog&>(window);
      asked.selectFile(name);
      static_cast<QDialog&>(asked).done(QDialog::Accepted);
    });
  }
  static void expect_told(Robot& robot, const char* words) {
    robot.next("message", [words](QWidget& box) {
      const QString told = control<QLabel>(box, "text")->text();
      EXPECT_TRUE(told.contains(QString::fromLatin1(words))) << told.toStdString();
      press(box, "accept");
    });
  }
  static std::size_t rows(QWidget& list) { return control<TableView>(list, "games")->table().rows.size(); }

  QTemporaryDir place_;
  std::filesystem::path outside_ = std::filesystem::path(place_.path().toStdString());
  std::filesystem::path folder_ = outside_ / "games";
};

TEST_F(SavedGames, GoOutToAFileAndComeInUnderAFreeName) {
  keep_match(2);
  const std::filesystem::path kept = games_in(folder_).front().file;
  const std::filesystem::path out = outside_ / kept.filename();
  in_list([&](QWidget& list, Robot& robot) {
    choose_file(robot, "export_file", out);
    press(list, "export_game");
    EXPECT_EQ(read_file(out), read_file(kept));
    EXPECT_EQ(rows(list), 1U);
    // Its name is there already, and again.
    for (const std::size_t games : {2U, 3U}) {
      choose_file(robot, "import_file", out);
      press(list, "import_game");
      EXPECT_EQ(rows(list), games);
    }
  });
  for (const char* more : {" 2.velorin", " 3.velorin"}) {
    EXPECT_EQ(read_file(folder_ / (kept.stem().string() + more)), read_file(kept)) << more;
  }
}

TEST_F(SavedGames, TakeInNothingThatIsNoRecording) {
  keep_match(1);
  const std::filesystem::path kept = games_in(folder_).front().file;
  const std::string whole = read_file(kept).value();
  replace_file(outside_ / "letter.velorin", "Dear friends, the match begins at eleven.");
  std::string harmed = whole;
  harmed[harmed.size() / 2] ^= 0x40;
  replace_file(outside_ / "harmed.velorin", harmed);
  in_list([&](QWidget& list, Robot& robot) {
    choose_file(robot, "import_file", outside_ / "letter.velorin");
    expect_told(robot, "no recording of a game");
    press(list, "import_game");
    choose_file(robot, "import_file", outside_ / "harmed.velorin");
    expect_told(robot, "damaged at byte");
    press(list, "import_game");
    EXPECT_EQ(rows(list), 1U);
  });
  EXPECT_EQ(games_in(folder_).size(), 1U);
}

TEST_F(SavedGames, AreLeftAsTheyAreByAFullDisk) {
  keep_match(1);
  const std::filesystem::path kept = games_in(folder_).front().file;
  const std::filesystem::path out = outside_ / "out.velorin";
  replace_file(outside_ / "in.velorin", read_file(kept).value());
  in_list([&](QWidget& list, Robot& robot) {
    const small_disk full(50);
    choose_file(robot, "export_file", out);
    expect_told(robot, "out.velorin");
    press(list, "export_game");
    choose_file(robot, "import_file", outside_ / "in.velorin");
    expect_told(robot, "in.velorin");
    press(list, "import_game");
    EXPECT_EQ(rows(list), 1U);
  });
  EXPECT_FALSE(std::filesystem::exists(out));
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1) << "nothing is left half written";
}

TEST_F(SavedGames, ThatCannotBeWatchedSaySoInTheList) {
  keep_match(1);
  const std::filesystem::path kept = games_in(folder_).front().file;
  in_list([&](QWidget& list, Robot& robot) {
    ASSERT_TRUE(control<QAbstractButton>(list, "watch")->isEnabled());
    // Harmed while the list is open.
    replace_file(kept, "nothing of a game");
    expect_told(robot, "no recording of a game");
    press(list, "watch");
    EXPECT_TRUE(list.isVisible());
  });
}

TEST_F(SavedGames, OfWhichNoBallIsBowledAreNotWatched) {
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    user.robot.next("wecond", [](QWidget&) { end_program(0); });
    choose(menu, "start_game", "new_match");
  });
  ASSERT_EQ(games_in(folder_).size(), 1U);
  EXPECT_FALSE(games_in(folder_).front().bowled);
  in_list([](QWidget& list, Robot&) {
    EXPECT_FALSE(control<QAbstractButton>(list, "watch")->isEnabled());
    EXPECT_TRUE(control<QAbstractButton>(list, "accept")->isEnabled());
    EXPECT_FALSE(control<QAbstractButton>(list, "delete_finished")->isEnabled()) << "none is over";
  });
  // Who goes on with it and leaves it all the same keeps nothing of it.
  start([&](MenuWindow& menu) {
    ClickingUser user;
    user.robot.next("leave_question", pressing("yes"));
    user.robot.next("wecond", [](QWidget& window) { window.close(); });
    press(menu, "continue");
    EXPECT_EQ(user.robot.left(), 0);
    EXPECT_FALSE(control<QAbstractButton>(menu, "continue")->isVisible());
  });
  EXPECT_TRUE(games_in(folder_).empty());
}

TEST_F(SavedGames, ThatAreOverAreDeletedTogetherAndALongListIsWholeInTheEnd) {
  keep_match(1);
  const std::filesystem::path kept = games_in(folder_).front().file;
  const std::filesystem::path finished = std::filesystem::path(VELORIN_RECORDINGS) / "match.velorin";
  for (int copy = 0; copy < 50; ++copy) copy_game_to(folder_, finished, "Over");
  in_list([&](QWidget& list, Robot& robot) {
    EXPECT_LT(rows(list), 51U) << "the older ones are read behind it";
    EXPECT_FALSE(control<QAbstractButton>(list, "delete_finished")->isEnabled());
    ASSERT_TRUE(QTest::qWaitFor([&] { return rows(list) == 51; }, 60'000));
    EXPECT_FALSE(control<QLabel>(list, "games_to_read")->isVisible());
    robot.next("delete_question", [](QWidget& question) {
      EXPECT_TRUE(control<QLabel>(question, "text")->text().startsWith(QStringLiteral("50 games")));
      press(question, "no");
    });
    press(list, "delete_finished");
    EXPECT_EQ(rows(list), 51U);
    robot.next("delete_question", pressing("yes"));
    press(list, "delete_finished");
    EXPECT_EQ(rows(list), 1U);
    EXPECT_FALSE(control<QAbstractButton>(list, "delete_finished")->isEnabled());
    check_window(list);
  });
  EXPECT_EQ(game_files(folder_), std::vector<std::filesystem::path>{kept});
}

}  // namespace
}  // namespace velorin::testing
