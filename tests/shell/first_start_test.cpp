// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLabel>
#include <QTimer>

#include <sys/stat.h>

#include <filesystem>
#include <fstream>

#include "database/configuration.h"
#include "desktop/program_end.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

// Starts without settings, and databases that go away under the running program.

namespace velorin::testing {
namespace {

class FirstStart : public GameTest {
 protected:
  std::filesystem::path file(const char* name) const { return database_.folder() / name; }

  void forget_settings() {
    data.settings = {};
    data.files = database_paths(database_.folder(), "");
    data.files.updates = true;
  }

  /// Runs the program with real failures, which end it; returns its status.
  int run(const std::function<void(MenuWindow&)>& then) {
    on_failure({});
    QtFrontEnd shown_by(tested_game);
    const front_end_scope in_use(shown_by);
    MenuWindow menu(shown_by);
    menu.show();
    QTimer::singleShot(0, &menu, [&] {
      menu.start();
      then(menu);
      if (!program_is_ending()) end_program(0);
    });
    const int status = QApplication::exec();
    begin_again();
    return status;
  }
};

TEST_F(FirstStart, WithoutSettingsTheyAreAskedFor) {
  std::filesystem::remove(file("options.mc"));
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    auto* list = control<QComboBox>(window, "databases");
    ASSERT_EQ(list->count(), 1);
    list->setCurrentIndex(0);
    press(window, "accept");
  });
  EXPECT_EQ(run([](MenuWindow&) {}), 0);
  EXPECT_EQ(user.robot.met(), std::vector<std::string>{"optfrm"});
  EXPECT_EQ(data.files.base, "world");
  EXPECT_TRUE(std::filesystem::exists(file("options.mc")));
}

TEST_F(FirstStart, BrokenSettingsAreAskedForAnew) {
  std::ofstream(file("options.mc")) << "one line only\n";
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([](MenuWindow&) {}), 0);
  EXPECT_EQ(user.robot.left(), 0);
  EXPECT_TRUE(user.messages.empty());
  std::ifstream in(file("options.mc"));
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "one line only") << "closing the form must keep the file";
}

TEST_F(FirstStart, SettingsThatCannotBeReadAreToldWithTheirCause) {
  std::filesystem::remove(file("options.mc"));
  ASSERT_EQ(::mkfifo(file("options.mc").c_str(), 0600), 0);
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([](MenuWindow&) {}), 0);
  EXPECT_EQ(user.messages,
            std::vector<std::string>{
                "Error | The file cannot be read: it is a pipe, a device or the like (file options.mc)"});
  EXPECT_EQ(user.robot.left(), 0);
}

TEST_F(FirstStart, WithoutADatabaseOnOfferNothingStarts) {
  std::filesystem::remove(file("world.grd"));
  std::filesystem::remove(file("options.mc"));
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    EXPECT_EQ(control<QComboBox>(window, "databases")->count(), 0);
    press(window, "accept");
  });
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([](MenuWindow& menu) { choose(menu, "start_game", "new_match"); }), 0);
  EXPECT_EQ(user.robot.met("teamfrm"), 0);
  EXPECT_EQ(user.messages, std::vector<std::string>{"Error | Please select a database before continuing"});
  EXPECT_FALSE(std::filesystem::exists(file("options.mc")));
}

TEST_F(FirstStart, ADatabaseNotOnOfferLeadsToTheSettings) {
  const std::vector<std::string> names = {"gone", "../teams/world", (database_.folder() / "world").string()};
  for (const std::string& name : names) {
    data.settings.database_name = name;
    write_options(data);
    forget_settings();
    ClickingUser user;
    user.robot.next("optfrm", [](QWidget& window) {
      control<QComboBox>(window, "databases")->setCurrentIndex(0);
      press(window, "accept");
    });
    EXPECT_EQ(run([](MenuWindow&) {}), 0);
    EXPECT_EQ(user.messages,
              std::vector<std::string>{"Error | The database \"" + name + "\" is not on offer (file options.mc)"});
    EXPECT_EQ(user.robot.left(), 0);
    EXPECT_EQ(data.files.base, "world");
  }
}

/// The program goes on after a fault before play: told once, with these words, and the settings are offered.
void expect_told(const ClickingUser& user, const std::string& words) {
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_TRUE(user.messages[0].starts_with("Error | ")) << user.messages[0];
  EXPECT_NE(user.messages[0].find(words), std::string::npos) << user.messages[0];
  EXPECT_EQ(user.robot.left(), 0) << "the settings";
}

TEST_F(FirstStart, AFaultBeforePlayIsToldAndTheMenuStays) {
  const std::function<void()> faults[] = {
      [this] { std::filesystem::remove(file("world.team")); },
      [this] { std::filesystem::resize_file(file("world.team"), 4000); },
      [this] { std::filesystem::resize_file(file("world.grd"), 1600); },
      [this] { std::ofstream(file("world.rec")) << "cut"; },
      [this] { std::ofstream(file("world.ptr")) << "cut"; },
  };
  const char* const named[] = {"world.team", "world.team", "world.grd", "world.rec", "world.ptr"};
  for (std::size_t i = 0; i < std::size(faults); ++i) {
    SCOPED_TRACE(i);
    database_.write();
    begin_again_with_seed(1);
    ClickingUser user;
    user.robot.next("optfrm", [](QWidget& window) { window.close(); });
    EXPECT_EQ(run([&](MenuWindow& menu) {
                faults[i]();
                choose(menu, "start_game", "new_match");
                EXPECT_TRUE(menu.isVisible());
              }),
              0);
    expect_told(user, named[i]);
    EXPECT_EQ(user.robot.met("teamfrm"), 0);
  }
}

TEST_F(FirstStart, OnlyWhatAnEntryReadsIsAsked) {
  ClickingUser user;
  user.robot.next("reclists", [](QWidget& window) { press(window, "accept"); });
  user.robot.next("Sqdet", [](QWidget& window) { press(window, "accept"); });
  EXPECT_EQ(run([this](MenuWindow& menu) {
              std::filesystem::remove(file("world.team"));
              std::filesystem::remove(file("world.grd"));
              choose(menu, "batting_stats", "highest_totals");
              std::ofstream(file("world.ptr")) << "cut";
              choose(menu, "other_records", "player_profiles");
            }),
            0);
  EXPECT_TRUE(user.messages.empty());
  EXPECT_EQ(user.robot.left(), 0);
}

TEST_F(FirstStart, AFaultOfARecordListIsToldAndTheMenuStays) {
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([this](MenuWindow& menu) {
              std::ofstream(file("world.ptr")) << std::string(2500, '\xFF');
              choose(menu, "batting_stats", "highest_totals");
            }),
            0);
  expect_told(user, "world.ptr, record 1");
}

TEST_F(FirstStart, GroundsCutShortAsTheFormIsLeftAreToldAndNothingIsLost) {
  ClickingUser user;
  user.robot.next("teamfrm", [this](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    std::filesystem::remove(file("world.grd"));
    press(window, "accept");
  });
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  const std::vector<std::string> before = lasting_files();
  EXPECT_EQ(run([](MenuWindow& menu) { choose(menu, "start_game", "new_match"); }), 0);
  expect_told(user, "world.grd");
  EXPECT_TRUE(before == lasting_files());
}

TEST_F(FirstStart, SettingsThatCannotBeWrittenHoldForThisRun) {
  std::filesystem::remove(file("options.mc"));
  std::filesystem::create_directory(file("options.mc"));
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    control<QComboBox>(window, "databases")->setCurrentIndex(0);
    press(window, "accept");
  });
  EXPECT_EQ(run([](MenuWindow&) {}), 0);
  ASSERT_EQ(user.messages.size(), 2U) << "it can be neither read nor written";
  for (const auto& told : user.messages) EXPECT_NE(told.find("options.mc"), std::string::npos) << told;
  EXPECT_EQ(data.files.base, "world");
}

TEST_F(FirstStart, AnUnwritableFolderIsNamedAtTheEndOfAMatch) {
  ClickingUser user;
  user.robot.next("teamfrm", [this](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    // A folder in the place of the career file can be neither read nor replaced.
    std::filesystem::create_directory(file("world.rec"));
    press(window, "accept");
  });
  user.robot.next("save_failed", [](QWidget& window) {
    const QString text = control<QLabel>(window, "text")->text();
    EXPECT_TRUE(text.contains("world.rec")) << text.toStdString();
    press(window, "go_on");
  });
  EXPECT_EQ(run([](MenuWindow& menu) { choose(menu, "start_game", "new_match"); }), 0);
  EXPECT_EQ(user.robot.left(), 0);
}

}  // namespace
}  // namespace velorin::testing
