// SPDX-License-Identifier: GPL-3.0-or-later
// The list of saved games: what leaves it as a file, comes into it as one, and what can be done with a game.
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QTemporaryDir>
#include <filesystem>
#include <functional>
#include <string>

#include "database/whole_file.h"
#include "desktop/program_end.h"
#include "desktop/table_view.h"
#include "shell/game_fixture.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

class SavedGames : public GameTest {
 protected:
  SavedGames() {
    std::filesystem::create_directory(folder_);
    std::filesystem::copy_file(recording("match"), folder_ / "Played.velorin");
  }

  static std::filesystem::path recording(const std::string& name) {
    return std::filesystem::path(VELORIN_TEST_DATA) / "data" / "recordings" / (name + ".velorin");
  }

  /// Opens the list of saved games, and closes it when `act` is done.
  void in_the_list(const std::function<void(QWidget&)>& act) {
    QtFrontEnd shown_by(tested_game, folder_);
    play_shown_by(shown_by, [&](MenuWindow& menu) {
      user_.robot.next("savedgames", [&](QWidget& window) {
        act(window);
        press(window, "close");
      });
      press(menu, "saved_games");
    });
  }

  /// The next dialog of this name is given a path, and OK.
  void give_file(const char* dialog, const std::filesystem::path& path) {
    user_.robot.next(dialog, [path](QWidget& window) {
      auto* files = qobject_cast<QFileDialog*>(&window);
      ASSERT_NE(files, nullptr);
      files->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(QString::fromStdString(path.string()));
      QMetaObject::invokeMethod(files, "accept");
    });
  }

  /// The next message tells of this.
  void expect_told(const char* part) {
    user_.robot.next("message", [part](QWidget& window) {
      const QString text = control<QLabel>(window, "text")->text();
      EXPECT_TRUE(text.contains(QLatin1String(part))) << text.toStdString();
      check_window(window);
      press(window, "accept");
    });
  }

  static int listed(QWidget& window) {
    return static_cast<int>(control<TableView>(window, "games")->table().rows.size());
  }

  QTemporaryDir place_;
  std::filesystem::path elsewhere_ = place_.path().toStdString();
  std::filesystem::path folder_ = elsewhere_ / "games";
  ClickingUser user_;
};

TEST_F(SavedGames, AnExportedGameIsTheFileToTheByte) {
  give_file("export_file", elsewhere_ / "sent.velorin");
  in_the_list([](QWidget& window) {
    ASSERT_EQ(listed(window), 1);
    EXPECT_EQ(control<TableView>(window, "games")->table().rows[0].cells[4].text.toStdString(), "over");
    press(window, "export_game");
  });
  EXPECT_EQ(user_.robot.left(), 0);
  EXPECT_EQ(read_file(elsewhere_ / "sent.velorin"), read_file(recording("match")));
}

TEST_F(SavedGames, AnImportTakesAFreeNameAndLeavesTheGameThatHasIt) {
  std::filesystem::copy_file(recording("attended"), elsewhere_ / "Played.velorin");
  give_file("import_file", elsewhere_ / "Played.velorin");
  in_the_list([](QWidget& window) {
    ASSERT_EQ(listed(window), 1);
    press(window, "import_game");
    EXPECT_EQ(listed(window), 2);
    check_window(window);
  });
  EXPECT_EQ(user_.robot.left(), 0);
  EXPECT_EQ(read_file(folder_ / "Played.velorin"), read_file(recording("match")));
  int equal = 0;
  for (const auto& file : std::filesystem::directory_iterator(folder_)) {
    equal += read_file(file.path()) == read_file(recording("attended")) ? 1 : 0;
  }
  EXPECT_EQ(equal, 1);
}

TEST_F(SavedGames, AnImportOfWhatIsNoGameIsToldAndTakesNothing) {
  std::filesystem::copy_file(std::filesystem::path(VELORIN_TEST_DATA) / "data" / "recordings" / "match.txt",
                             elsewhere_ / "notes.velorin");
  give_file("import_file", elsewhere_ / "notes.velorin");
  expect_told("notes.velorin");
  in_the_list([](QWidget& window) {
    press(window, "import_game");
    EXPECT_EQ(listed(window), 1);
  });
  EXPECT_EQ(user_.robot.left(), 0);
}

TEST_F(SavedGames, AFullDiskLeavesNothingHalfWritten) {
  give_file("export_file", elsewhere_ / "sent.velorin");
  expect_told("sent.velorin");
  std::filesystem::copy_file(recording("world_cup"), elsewhere_ / "cup.velorin");
  give_file("import_file", elsewhere_ / "cup.velorin");
  expect_told("cup");
  in_the_list([](QWidget& window) {
    const small_disk full(1000);
    press(window, "export_game");
    press(window, "import_game");
    EXPECT_EQ(listed(window), 1);
  });
  EXPECT_EQ(user_.robot.left(), 0);
  EXPECT_FALSE(std::filesystem::exists(elsewhere_ / "sent.velorin"));
  int files = 0;
  for ([[maybe_unused]] const auto& file : std::filesystem::directory_iterator(folder_)) ++files;
  EXPECT_EQ(files, 1);
}

TEST_F(SavedGames, AGameWithoutABallCannotBeWatched) {
  in_the_list([](QWidget& window) { EXPECT_TRUE(control<QAbstractButton>(window, "watch")->isEnabled()); });
  // A match that was left by the program's end while its conditions were asked for.
  std::filesystem::remove(folder_ / "Played.velorin");
  QtFrontEnd shown_by(tested_game, folder_);
  play_shown_by(shown_by, [&](MenuWindow& menu) {
    user_.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    user_.robot.next("wecond", [](QWidget&) { end_program(0); });
    choose(menu, "start_game", "new_match");
  });
  in_the_list([](QWidget& window) {
    ASSERT_EQ(listed(window), 1);
    EXPECT_FALSE(control<QAbstractButton>(window, "watch")->isEnabled());
    EXPECT_FALSE(control<QAbstractButton>(window, "match_line")->isEnabled());
    EXPECT_TRUE(control<QAbstractButton>(window, "accept")->isEnabled());
  });
}

TEST_F(SavedGames, AMatchLeftInItsSetUpBehindAContinueIsNotKept) {
  std::filesystem::remove(folder_ / "Played.velorin");
  QtFrontEnd first(tested_game, folder_);
  play_shown_by(first, [&](MenuWindow& menu) {
    user_.robot.next("teamfrm", [](QWidget& window) {
      ClickingUser::choose_match(window, 4, 7, true, false);
      press(window, "accept");
    });
    user_.robot.next("wecond", [](QWidget&) { end_program(0); });
    choose(menu, "start_game", "new_match");
  });
  EXPECT_FALSE(std::filesystem::is_empty(folder_));
  match = {};
  QtFrontEnd second(tested_game, folder_);
  play_shown_by(second, [&](MenuWindow& menu) {
    user_.robot.next("leave_question", pressing("yes"));
    user_.robot.next("wecond", [](QWidget& window) { window.close(); });
    press(menu, "continue");
  });
  EXPECT_EQ(user_.robot.left(), 0);
  EXPECT_TRUE(std::filesystem::is_empty(folder_));
}

}  // namespace
}  // namespace velorin::testing
