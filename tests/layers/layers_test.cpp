// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "layers/house_rules.h"
#include "layers/rules_fixture.h"

namespace velorin::house {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string licence = "// SPDX-License-Identifier: GPL-3.0-or-later\n";

/// Trees of a file that includes another.
class HouseRules : public RulesTest {
 protected:
  /// A file of src that includes one other, which is there too.
  void write_include(const std::string& path, const std::string& header) const {
    write("src/" + path, "#include \"" + header + "\"\n");
    if (!fs::exists(root_ / "src" / header)) write("src/" + header, "");
  }
  /// What check_floors says of that one include.
  std::vector<std::string> floors_of(const std::string& path, const std::string& header) const {
    fs::remove_all(root_ / "src");
    write_include(path, header);
    return check_floors(root_);
  }
};

// The project itself.

TEST(ThisProject, IsWhereTheTestsLookForIt) {
  ASSERT_TRUE(fs::is_regular_file(project / "src" / "model" / "match_state.h")) << project;
}
TEST(ThisProject, KeepsTheFloors) { EXPECT_THAT(check_floors(project), IsEmpty()); }
TEST(ThisProject, KeepsLibrariesOutOfTheCore) { EXPECT_THAT(check_libraries(project), IsEmpty()); }
TEST(ThisProject, NamesItsLicenceInEachSource) { EXPECT_THAT(check_licence_lines(project), IsEmpty()); }
TEST(ThisProject, NamesNoMachineAndNoOtherPaper) { EXPECT_THAT(check_words(project), IsEmpty()); }

// The checks, on trees that keep a rule or break it.

TEST_F(HouseRules, AnEmptyTreeBreaksNothing) {
  EXPECT_THAT(check_floors(root_), IsEmpty());
  EXPECT_THAT(check_libraries(root_), IsEmpty());
  EXPECT_THAT(check_licence_lines(root_), IsEmpty());
  EXPECT_THAT(check_words(root_), IsEmpty());
}

TEST_F(HouseRules, ARoomIncludesItselfAndLowerFloors) {
  EXPECT_THAT(floors_of("model/match_state.cpp", "model/match_state.h"), IsEmpty());
  EXPECT_THAT(floors_of("ui/front_end.cpp", "model/match_state.h"), IsEmpty());
  EXPECT_THAT(floors_of("engine/over_play.cpp", "captain/computer_captain.h"), IsEmpty());
  EXPECT_THAT(floors_of("setup/toss.cpp", "engine/over_play.h"), IsEmpty());
  EXPECT_THAT(floors_of("headless/user.cpp", "competitions/series.h"), IsEmpty());
  EXPECT_THAT(floors_of("cli/main.cpp", "competitions/series.h"), IsEmpty());
  EXPECT_THAT(floors_of("cli/main.cpp", "headless/user.h"), IsEmpty());
}

TEST_F(HouseRules, ARoomDoesNotIncludeHigherFloors) {
  EXPECT_THAT(floors_of("model/match_state.cpp", "database/configuration.h"),
              ElementsAre("src/model/match_state.cpp:1: model may not include database"));
  EXPECT_THAT(floors_of("captain/computer_captain.cpp", "engine/over_play.h"),
              ElementsAre("src/captain/computer_captain.cpp:1: captain may not include engine"));
  EXPECT_THAT(floors_of("engine/over_play.cpp", "setup/toss.h"),
              ElementsAre("src/engine/over_play.cpp:1: engine may not include setup"));
  EXPECT_THAT(floors_of("competitions/series.cpp", "headless/user.h"),
              ElementsAre("src/competitions/series.cpp:1: competitions may not include headless"));
  EXPECT_THAT(floors_of("competitions/series.cpp", "cli/match.h"),
              ElementsAre("src/competitions/series.cpp:1: competitions may not include cli"));
}

TEST_F(HouseRules, ARoomDoesNotIncludeItsNeighboursOnTheSameFloor) {
  EXPECT_THAT(floors_of("ui/front_end.cpp", "database/configuration.h"),
              ElementsAre("src/ui/front_end.cpp:1: ui may not include database"));
  EXPECT_THAT(floors_of("reports/scorecard.cpp", "console/console_figures.h"),
              ElementsAre("src/reports/scorecard.cpp:1: reports may not include console"));
  EXPECT_THAT(floors_of("cli/main.cpp", "desktop/theme.h"),
              ElementsAre("src/cli/main.cpp:1: cli may not include desktop"));
}

TEST_F(HouseRules, WindowsSeeTheFloorsBelowAndTheShellSeesWindows) {
  EXPECT_THAT(floors_of("console/forms/board.cpp", "console/console_figures.h"), IsEmpty());
  EXPECT_THAT(floors_of("console/forms/board.cpp", "desktop/theme.h"), IsEmpty());
  EXPECT_THAT(floors_of("console/forms/board.cpp", "console/forms/chips.h"), IsEmpty());
  EXPECT_THAT(floors_of("shell/forms/menu.cpp", "shell/menu.h"), IsEmpty());
  EXPECT_THAT(floors_of("shell/qt_front_end.cpp", "console/forms/board.h"), IsEmpty());
  EXPECT_THAT(floors_of("shell/qt_front_end.cpp", "shell/forms/menu.h"), IsEmpty());
  EXPECT_THAT(floors_of("shell/main.cpp", "desktop/theme.h"), IsEmpty());
}

TEST_F(HouseRules, NothingElseSeesWindows) {
  EXPECT_THAT(floors_of("console/console_figures.cpp", "console/forms/board.h"),
              ElementsAre("src/console/console_figures.cpp:1: console may not include console/forms"));
  EXPECT_THAT(floors_of("setup/toss.cpp", "console/forms/board.h"),
              ElementsAre("src/setup/toss.cpp:1: setup may not include console/forms"));
  EXPECT_THAT(floors_of("cli/main.cpp", "console/forms/board.h"),
              ElementsAre("src/cli/main.cpp:1: cli may not include console/forms"));
  EXPECT_THAT(floors_of("console/forms/board.cpp", "reports/forms/worms.h"),
              ElementsAre("src/console/forms/board.cpp:1: console/forms may not include reports/forms"));
  EXPECT_THAT(floors_of("console/forms/board.cpp", "shell/menu.h"),
              ElementsAre("src/console/forms/board.cpp:1: console/forms may not include shell"));
}

TEST_F(HouseRules, SharedPartsKnowNoSubsystem) {
  EXPECT_THAT(floors_of("desktop/theme.cpp", "model/code_page.h"), IsEmpty());
  EXPECT_THAT(floors_of("desktop/form.cpp", "ui/front_end.h"), IsEmpty());
  EXPECT_THAT(floors_of("desktop/theme.cpp", "console/console_figures.h"),
              ElementsAre("src/desktop/theme.cpp:1: desktop may not include console"));
  EXPECT_THAT(floors_of("desktop/theme.cpp", "console/forms/board.h"),
              ElementsAre("src/desktop/theme.cpp:1: desktop may not include console/forms"));
}

TEST_F(HouseRules, AnIncludeBeginsWithARoomAndNamesAFile) {
  write("src/model/match_state.cpp",
        "\n#include \"teams.h\"\n#include \"../ui/front_end.h\"\n#include \"model/gone.h\"\n");
  write("src/model/match_state.h", "");
  EXPECT_THAT(check_floors(root_),
              ElementsAre("src/model/match_state.cpp:2: \"teams.h\" does not begin with a room",
                          "src/model/match_state.cpp:3: \"../ui/front_end.h\" does not begin with a room",
                          "src/model/match_state.cpp:4: \"model/gone.h\" is no file of src"));
}

TEST_F(HouseRules, AHeaderMayBeFilledByTheBuild) {
  write("src/cli/version.h.in", licence);
  write("src/cli/main.cpp", licence + "#include \"cli/version.h\"\n");
  EXPECT_THAT(check_floors(root_), IsEmpty());
  EXPECT_THAT(check_licence_lines(root_), IsEmpty());
}

TEST_F(HouseRules, EveryFolderIsARoom) {
  write("src/helpers/strings.h", "");
  write("src/main.cpp", "");
  EXPECT_THAT(check_floors(root_),
              ElementsAre("src/helpers/strings.h:1: lies in no room", "src/main.cpp:1: lies in no room"));
}

TEST_F(HouseRules, BlanksDoNotHideAnInclude) {
  write("src/engine/over_play.h", "");
  write("src/model/match_state.cpp", "  #  include\t\"engine/over_play.h\"  // quick\n");
  EXPECT_THAT(check_floors(root_), ElementsAre("src/model/match_state.cpp:1: model may not include engine"));
}

TEST_F(HouseRules, TheCoreHasNoQtHeader) {
  write("src/console/console_figures.cpp", "#include <string>\n#include <QString>\n#include \"QtWidgets/QLabel\"\n");
  write("src/competitions/series.h", "#include <QtCore/qglobal.h>\n");
  write("src/cli/main.cpp", "#include <QCoreApplication>\n");
  EXPECT_THAT(check_libraries(root_),
              ElementsAre("src/cli/main.cpp:1: cli may not include a Qt header: QCoreApplication",
                          "src/competitions/series.h:1: competitions may not include a Qt header: QtCore/qglobal.h",
                          "src/console/console_figures.cpp:2: console may not include a Qt header: QString",
                          "src/console/console_figures.cpp:3: console may not include a Qt header: QtWidgets/QLabel"));
}

TEST_F(HouseRules, WindowsAndTheirSharedPartsMayIncludeQt) {
  write("src/console/forms/board.cpp", "#include <QWidget>\n");
  write("src/desktop/theme.h", "#include <QPalette>\n");
  write("src/shell/main.cpp", "#include <QApplication>\n");
  EXPECT_THAT(check_libraries(root_), IsEmpty());
}

TEST_F(HouseRules, TheCoreUsesTheStandardLibraryAndFmtAlone) {
  write("src/engine/over_play.cpp",
        "#include <array>\n#include <fmt/format.h>\n#include <sys/stat.h>\n#include <ctime>\n");
  write("src/cli/match.cpp", "#include <CLI/CLI.hpp>\n#include <nlohmann/json.hpp>\n");
  EXPECT_THAT(check_libraries(root_), IsEmpty());
  write("src/engine/storage.cpp", "#include <nlohmann/json.hpp>\n#include <zlib.h>\n");
  write("src/archive/file.cpp", "#include <SQLiteCpp/Database.h>\n#include <sqlite3.h>\n");
  write("src/database/file.cpp", "#include <SQLiteCpp/Database.h>\n");
  EXPECT_THAT(check_libraries(root_),
              ElementsAre("src/database/file.cpp:1: database may not use this library: SQLiteCpp/Database.h",
                          "src/engine/storage.cpp:1: engine may not use this library: nlohmann/json.hpp",
                          "src/engine/storage.cpp:2: engine may not use this library: zlib.h"));
}

TEST_F(HouseRules, EverySourceBeginsWithItsLicence) {
  write("src/model/match_state.h", licence + "#pragma once\n");
  write("tests/model/texts_test.cpp", licence);
  write("src/CMakeLists.txt", "# SPDX-License-Identifier: GPL-3.0-or-later\n");
  write("scripts/play", "#!/usr/bin/env bash\n# SPDX-License-Identifier: GPL-3.0-or-later\n");
  write("data/world/players.csv", "team,name\n");
  EXPECT_THAT(check_licence_lines(root_), IsEmpty());
}

TEST_F(HouseRules, ASourceWithoutItsLicenceIsFound) {
  write("cmake/Rooms.cmake", "function(x)\n");
  write("scripts/play", "#!/usr/bin/env bash\nset -e\n");
  write("src/model/empty.h", "");
  write("src/model/late.h", "#pragma once\n" + licence);
  write("tests/model/other_test.cpp", "// SPDX-License-Identifier: MIT\n");
  const std::string code = "here stands \"// SPDX-License-Identifier: GPL-3.0-or-later\"";
  const std::string other = "here stands \"# SPDX-License-Identifier: GPL-3.0-or-later\"";
  EXPECT_THAT(check_licence_lines(root_),
              ElementsAre("cmake/Rooms.cmake:1: " + other, "scripts/play:2: " + other, "src/model/empty.h:1: " + code,
                          "src/model/late.h:1: " + code, "tests/model/other_test.cpp:1: " + code));
}

// The forbidden words are put together, so that this file passes its own check.

TEST_F(HouseRules, WordsThatOnlyOtherPapersKnow) {
  write("docs/notes.md", "As the Speci" + std::string("fication says.\nSee Pa") + "rt 3.1 and pa" + "rts 12.4, 5.\n");
  write("src/model/match_state.h", "// the speci" + std::string("fications\n// part of it; Pa") + "rt 3 of 4\n");
  EXPECT_THAT(check_words(root_), ElementsAre("docs/notes.md:1: names the speci" + std::string("fication"),
                                              "docs/notes.md:2: names a numbered section",
                                              "src/model/match_state.h:1: names the speci" + std::string("fication")));
}

TEST_F(HouseRules, OrdinaryWordsPass) {
  write("docs/notes.md", "A part 0 to 3. The apart 1 . 2 part 1.\nThe most specific case; part 12\n");
  EXPECT_THAT(check_words(root_), IsEmpty());
}

TEST_F(HouseRules, PathsOfOneMachine) {
  const std::string home = std::string("/ho") + "me/someone/velorin";
  const std::string work = std::string("/wo") + "rk/main";
  write("README.md", "cd " + home + "\n");
  write("scripts/play", "cd \"" + work + "\"\n");
  write("src/cli/main.cpp", "const char* folder = \"" + home + "\";\n");
  EXPECT_THAT(check_words(root_),
              ElementsAre("README.md:1: names a path of one machine", "scripts/play:1: names a path of one machine",
                          "src/cli/main.cpp:1: names a path of one machine"));
}

TEST_F(HouseRules, RelativePathsAndAddressesPass) {
  write("docs/notes.md", "docs/wo" + std::string("rk/plan.md, $HO") + "ME/ho" + "me/x, https://x.example/ho" +
                             "me/page, /usr/bin/env, and either/root/or.\n");
  EXPECT_THAT(check_words(root_), IsEmpty());
}

TEST_F(HouseRules, FilesThatAreNoTextAreLeftAlone) {
  write("data/photos/x.png", std::string("\x89PNG\0", 5) + "/ho" + "me/someone/x");
  EXPECT_THAT(check_words(root_), IsEmpty());
}

}  // namespace
}  // namespace velorin::house
