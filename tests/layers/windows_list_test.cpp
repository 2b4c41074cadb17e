// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "layers/rules_fixture.h"
#include "layers/window_rules.h"

namespace velorin::house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string head = "| id | name | file | what it is |\n|---|---|---|---|\n";

std::string row(const std::string& id, const std::string& file) {
  return "| `" + id + "` | a name | `" + file + "` | What it is. |\n";
}

class WindowList : public RulesTest {
 protected:
  /// A window in src/engine/forms that gives its base the id on a line of its own.
  void write_window(const std::string& id) const {
    write("src/engine/forms/board.h", "class Board : public Form {\n");
    write("src/engine/forms/board.cpp",
          "Board::Board(QWidget* parent)\n    : Form(QStringLiteral(\"" + id + "\"), Dismissal::closes, parent) {\n");
  }
  void write_list(const std::string& rows) const { write("docs/vocabulary.md", "# Words\n\n" + head + rows + "\n"); }
};

TEST(ThisProject, ListsEveryWindow) { EXPECT_THAT(check_window_list(project), IsEmpty()); }

TEST_F(WindowList, AnEmptyTreeBreaksNothing) { EXPECT_THAT(check_window_list(root_), IsEmpty()); }

TEST_F(WindowList, HoldsEachWindowWithItsFile) {
  write_window("board");
  write_list(row("board", "src/engine/forms/board"));
  EXPECT_THAT(check_window_list(root_), IsEmpty());
}

TEST_F(WindowList, AWindowThatIsNotListedIsFound) {
  write_window("board");
  const std::string breach = "src/engine/forms/board.cpp:2: the window `board` is not in docs/vocabulary.md";
  EXPECT_THAT(check_window_list(root_), ElementsAre(breach));
  write_list("");
  EXPECT_THAT(check_window_list(root_), ElementsAre(breach));
}

TEST_F(WindowList, AListedWindowThatIsGoneIsFound) {
  write_window("board");
  write_list(row("board", "src/engine/forms/board") + row("chips", "src/engine/forms/chips"));
  EXPECT_THAT(check_window_list(root_),
              ElementsAre("docs/vocabulary.md:6: no window `chips` in src/engine/forms/chips"));
}

TEST_F(WindowList, AListedWindowOfAnotherFileIsFound) {
  write_window("board");
  write_list(row("board", "src/engine/forms/table"));
  EXPECT_THAT(check_window_list(root_),
              ElementsAre("src/engine/forms/board.cpp:2: the window `board` is not in docs/vocabulary.md",
                          "docs/vocabulary.md:5: no window `board` in src/engine/forms/table"));
}

TEST_F(WindowList, OneIdMayBeThatOfTwoFiles) {
  write("src/engine/forms/board.cpp", "ask(*this, QStringLiteral(\"quit\"), title);\n");
  write("src/setup/forms/toss.h", "if (!ask(*this,\n         QStringLiteral(\"quit\"), title)) return;\n");
  write_list(row("quit", "src/engine/forms/board"));
  EXPECT_THAT(check_window_list(root_),
              ElementsAre("src/setup/forms/toss.h:1: the window `quit` is not in docs/vocabulary.md"));
  write_list(row("quit", "src/engine/forms/board") + row("quit", "src/setup/forms/toss"));
  EXPECT_THAT(check_window_list(root_), IsEmpty());
}

TEST_F(WindowList, KnowsWindowsByTheBasesOfTheirBases) {
  write("src/reports/forms/chart.h", "class Chart : public Form {\n  explicit Chart(const QString& name, QWidget*);\n");
  write("src/reports/forms/worms.h",
        "class Worms : public Chart {\n  Worms() : Chart(user, QStringLiteral(\"worms\"), true) {}\n");
  EXPECT_THAT(check_window_list(root_),
              ElementsAre("src/reports/forms/worms.h:2: the window `worms` is not in docs/vocabulary.md"));
}

TEST_F(WindowList, AWindowWithoutAnIdIsFound) {
  write("src/engine/forms/board.h", "class Board : public Form {\n");
  write("src/engine/forms/board.cpp", "Board::Board() : Form(words_of(QStringLiteral(\"board\"))) {}\n");
  EXPECT_THAT(check_window_list(root_), ElementsAre("src/engine/forms/board.h:1: Board has no id"));
}

TEST_F(WindowList, ANamedDialogOfTheToolkitIsAWindow) {
  write("src/reports/forms/choice.cpp", "  dialog.setObjectName(QStringLiteral(\"save_file\"));\n");
  EXPECT_THAT(check_window_list(root_),
              ElementsAre("src/reports/forms/choice.cpp:1: the window `save_file` is not in docs/vocabulary.md"));
}

TEST_F(WindowList, OtherClassesAndControlsAreNoWindows) {
  write("src/desktop/meter.h", "class Meter : public QWidget {\n");
  write("src/desktop/meter.cpp",
        "Meter::Meter() : QWidget(QStringLiteral(\"x\")) { setObjectName(QStringLiteral(\"y\")); }\n"
        "new_label(QStringLiteral(\"title\"), QStringLiteral(\"Runs\"));\n");
  write("docs/vocabulary.md", "| id | other |\n|---|---|\n| `z` | no window |\n");
  EXPECT_THAT(check_window_list(root_), IsEmpty());
}

}  // namespace
}  // namespace velorin::house
