// SPDX-License-Identifier: GPL-3.0-or-later
#include <QComboBox>
#include <QLabel>
#include <QTimer>
#include <filesystem>
#include <fstream>

#include "database/configuration.h"
#include "desktop/program_end.h"
#include "shell/game_fixture.h"

// Starts without settings, and databases that go away under the running program.

namespace velorin::testing {
namespace {

class FirstStartTest : public GameTest {
 protected:
  std::filesystem::path file(const char* name) const { return database_.folder() / name; }

  void forget_settings() {
    settings = {};
    files = database_paths(database_.folder(), "");
    files.updates = true;
  }

  /// Runs the program with real failures, which end it; returns its status.
  int run(const std::function<void(OpeningWindow&)>& then) {
    on_failure({});
    QtFrontEnd shown_by;
    const front_end_scope in_use(shown_by);
    OpeningWindow menu(shown_by);
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

TEST_F(FirstStartTest, WithoutSettingsTheyAreAskedFor) {
  std::filesystem::remove(file("options.mc"));
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    auto* list = control<QComboBox>(window, "Combo1");
    ASSERT_EQ(list->count(), 1);
    list->setCurrentIndex(0);
    press(window, "Command1");
  });
  EXPECT_EQ(run([](OpeningWindow&) {}), 0);
  EXPECT_EQ(user.robot.met(), std::vector<std::string>{"optfrm"});
  EXPECT_EQ(files.base, "world");
  EXPECT_TRUE(std::filesystem::exists(file("options.mc")));
}

TEST_F(FirstStartTest, BrokenSettingsAreAskedForAnew) {
  std::ofstream(file("options.mc")) << "one line only\n";
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([](OpeningWindow&) {}), 0);
  EXPECT_EQ(user.robot.left(), 0);
  std::ifstream in(file("options.mc"));
  std::string line;
  std::getline(in, line);
  EXPECT_EQ(line, "one line only") << "closing the form must keep the file";
}

TEST_F(FirstStartTest, WithoutADatabaseOnOfferNothingStarts) {
  std::filesystem::remove(file("world.grd"));
  std::filesystem::remove(file("options.mc"));
  forget_settings();
  ClickingUser user;
  user.robot.next("optfrm", [](QWidget& window) {
    EXPECT_EQ(control<QComboBox>(window, "Combo1")->count(), 0);
    press(window, "Command1");
  });
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  user.robot.next("optfrm", [](QWidget& window) { window.close(); });
  EXPECT_EQ(run([](OpeningWindow& menu) { choose(menu, "Label1", "Label8"); }), 0);
  EXPECT_EQ(user.robot.met("teamfrm"), 0);
  EXPECT_EQ(user.messages, std::vector<std::string>{"Error | Please select a database before continuing"});
  EXPECT_FALSE(std::filesystem::exists(file("options.mc")));
}

TEST_F(FirstStartTest, ADatabaseThatVanishesIsNamed) {
  ClickingUser user;
  EXPECT_EQ(run([this](OpeningWindow& menu) {
              std::filesystem::remove(file("world.team"));
              choose(menu, "Label1", "Label8");
            }),
            1);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_NE(user.messages[0].find("Run-time error | "), std::string::npos);
  EXPECT_NE(user.messages[0].find("world.team"), std::string::npos) << user.messages[0];
}

TEST_F(FirstStartTest, ADatabaseCutShortIsNamed) {
  ClickingUser user;
  EXPECT_EQ(run([this](OpeningWindow& menu) {
              std::filesystem::resize_file(file("world.team"), 4000);
              choose(menu, "Label1", "Label8");
            }),
            1);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_NE(user.messages[0].find("world.team"), std::string::npos) << user.messages[0];
}

TEST_F(FirstStartTest, GroundsCutShortAreNamedAndNothingIsLost) {
  ClickingUser user;
  user.robot.next("teamfrm", [this](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    std::filesystem::resize_file(file("world.grd"), 1600);
    press(window, "Command1");
  });
  const std::vector<std::string> before = lasting_files();
  EXPECT_EQ(run([](OpeningWindow& menu) { choose(menu, "Label1", "Label8"); }), 1);
  ASSERT_EQ(user.messages.size(), 1U);
  EXPECT_NE(user.messages[0].find("world.grd"), std::string::npos) << user.messages[0];
  EXPECT_TRUE(before == lasting_files());
}

TEST_F(FirstStartTest, AnUnwritableFolderIsNamedAtTheEndOfAMatch) {
  ClickingUser user;
  user.robot.next("teamfrm", [this](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, false, false);
    // A folder in the place of the career file can be neither read nor replaced.
    std::filesystem::create_directory(file("world.rec"));
    press(window, "Command1");
  });
  EXPECT_EQ(run([](OpeningWindow& menu) { choose(menu, "Label1", "Label8"); }), 1);
  ASSERT_FALSE(user.messages.empty());
  EXPECT_NE(user.messages.back().find("world.rec"), std::string::npos) << user.messages.back();
}

}  // namespace
}  // namespace velorin::testing
