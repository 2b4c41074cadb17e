// SPDX-License-Identifier: GPL-3.0-or-later
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "layers/file_rules.h"
#include "layers/rules_fixture.h"

namespace velorin::house {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FileList : public RulesTest {
 protected:
  /// A page with one table under a heading.
  void write_table(const std::string& heading, const std::string& rows) const {
    write("docs/vocabulary.md", "# Words\n\n### " + heading + "\n\n| file | what it does |\n|---|---|\n" + rows);
  }
};

TEST(ThisProject, ListsEveryFile) { EXPECT_THAT(check_file_list(project), IsEmpty()); }

TEST_F(FileList, AnEmptyTreeBreaksNothing) { EXPECT_THAT(check_file_list(root_), IsEmpty()); }

TEST_F(FileList, ANameStandsForHeaderAndSource) {
  write("src/model/texts.h", "");
  write("src/model/texts.cpp", "");
  write("src/model/version.h.in", "");
  write("src/model/CMakeLists.txt", "");
  write_table("`model`: the records", "| `texts` | Writes numbers. |\n");
  EXPECT_THAT(check_file_list(root_), IsEmpty());
}

TEST_F(FileList, AFileThatIsNotListedIsFoundOnce) {
  write("src/model/texts.h", "");
  write("src/model/texts.cpp", "");
  write("src/model/forms/man_list.h", "");
  EXPECT_THAT(check_file_list(root_),
              ElementsAre("src/model/forms/man_list.h:1: `model/forms/man_list` is not in docs/vocabulary.md",
                          "src/model/texts.cpp:1: `model/texts` is not in docs/vocabulary.md"));
}

TEST_F(FileList, ANameInTheTextOfARowDoesNotCount) {
  write("src/model/texts.h", "");
  write("src/model/rounding.h", "");
  write_table("`model`: the records", "| `rounding` | Rounds; `texts` writes. |\n");
  EXPECT_THAT(check_file_list(root_), ElementsAre("src/model/texts.h:1: `model/texts` is not in docs/vocabulary.md"));
}

TEST_F(FileList, AListedFileThatIsGoneIsFound) {
  write("src/model/texts.h", "");
  write_table("`model`: the records", "| `texts`, `sums` | Writes numbers. |\n");
  EXPECT_THAT(check_file_list(root_), ElementsAre("docs/vocabulary.md:7: no file src/model/sums"));
}

TEST_F(FileList, ANameLiesInTheFolderOfTheOneBeforeIt) {
  write("src/engine/forms/board.h", "");
  write("src/engine/forms/chips.cpp", "");
  write("src/setup/toss.h", "");
  write_table("`engine`, `setup`: play", "| `engine/forms/board`, `chips` | Boards. |\n| `setup/toss` | The coin. |\n");
  EXPECT_THAT(check_file_list(root_), IsEmpty());
  write_table("`engine`, `setup`: play", "| `engine/forms/board`, `chips` | Boards. |\n| `toss` | The coin. |\n");
  EXPECT_THAT(check_file_list(root_), ElementsAre("src/setup/toss.h:1: `setup/toss` is not in docs/vocabulary.md",
                                                  "docs/vocabulary.md:8: no file src/toss"));
}

TEST_F(FileList, AFileUnderAnotherRoomIsFound) {
  write("src/setup/toss.h", "");
  write_table("`engine`: play", "| `setup/toss` | The coin. |\n");
  EXPECT_THAT(check_file_list(root_), ElementsAre("docs/vocabulary.md:7: `setup/toss` stands under another room"));
}

TEST_F(FileList, AWindowIsListedByItsPath) {
  write("src/engine/forms/board.h", "");
  write("docs/vocabulary.md", "## Windows\n\n| `board` | a board | `src/engine/forms/board` | What it is. |\n");
  EXPECT_THAT(check_file_list(root_), IsEmpty());
}

TEST_F(FileList, OtherTablesNameNoFiles) {
  write("docs/vocabulary.md", "### `model`\n\n| `gone` | Gone. |\n\n## Terms\n\n| `word` | No file. |\n");
  EXPECT_THAT(check_file_list(root_), ElementsAre("docs/vocabulary.md:3: no file src/model/gone"));
}

}  // namespace
}  // namespace velorin::house
