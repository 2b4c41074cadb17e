// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QTemporaryDir>

#include "desktop/preferences.h"
#include "desktop/table_view.h"
#include "model/game_names.h"
#include "support/failing_disk.h"
#include "windows/robot.h"

namespace velorin::testing {
namespace {

class SaveTable : public ::testing::Test {
 protected:
  SaveTable() {
    table.name = "Rows";
    table.columns.resize(1);
    table.columns[0].heading = "Name";
    for (int i = 0; i < 50; ++i) {
      TableRow row;
      row.cells.resize(1);
      row.cells[0].text = QStringLiteral("Man %1").arg(i);
      table.rows.push_back(row);
    }
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  }

  QString path(const char* name) const { return folder.filePath(name); }
  void write_old(const char* name) {
    QFile file(path(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("old");
  }
  static QByteArray content(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
  }
  QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

  /// Saves the table there by Ctrl+E; the failure must be told by these words, if any.
  void save(const QString& file, const QString& told = {}) {
    Robot robot;
    robot.next("QFileDialog", [&](QWidget& window) {
      auto& dialog = dynamic_cast<QFileDialog&>(window);
      EXPECT_EQ(dialog.windowTitle(), "Save as CSV");
      dialog.selectFile(file);
      static_cast<QDialog&>(dialog).done(QDialog::Accepted);
    });
    if (!told.isEmpty()) {
      robot.next("message", [&](QWidget& box) {
        EXPECT_EQ(box.windowTitle(), "Save as CSV");
        EXPECT_EQ(control<QLabel>(box, "text")->text(), told);
        press(box, "accept");
      });
    }
    save_table(table, nullptr);
    EXPECT_EQ(robot.left(), 0);
  }

  QTemporaryDir folder;
  Table table;
};

TEST_F(SaveTable, WritesTheTableInPlaceOfWhatWasThere) {
  write_old("a.csv");
  save(path("a.csv"));
  EXPECT_EQ(content(path("a.csv")), table_csv(table).toUtf8());
  EXPECT_EQ(files(), QStringList({"a.csv"}));
}

// Tables are named after teams and men, who may be called anything.
TEST_F(SaveTable, TheNameProposedStaysInTheFolder) {
  preferences::set_last_folder(folder.path());
  for (const auto& [name, proposed] :
       {std::pair("../other/a", "..-other-a.csv"), std::pair("A/B: \"C\"", "A-B- -C-.csv"),
        std::pair("N.B.Zanmere", "N.B.Zanmere.csv")}) {
    table.name = name;
    Robot robot;
    robot.next("QFileDialog", [&](QWidget& window) {
      auto& dialog = dynamic_cast<QFileDialog&>(window);
      EXPECT_EQ(dialog.directory().path(), folder.path());
      EXPECT_EQ(dialog.selectedFiles(), QStringList(path(proposed)));
      static_cast<QDialog&>(dialog).done(QDialog::Rejected);
    });
    save_table(table, nullptr);
    EXPECT_EQ(robot.left(), 0);
  }
}

TEST_F(SaveTable, AFolderThatTakesNoFilesIsTheCauseTold) {
  write_old("a.csv");
  const closed_folder closed(folder.path().toStdString());
  if (!closed.holds()) GTEST_SKIP() << "the system lets files be made in a closed folder";
  save(path("b.csv"), "The file cannot be written: Permission denied (file " + path("b.csv") + ")");
  save(path("a.csv"), "The file cannot be written: Permission denied (file " + path("a.csv") + ")");
  EXPECT_EQ(content(path("a.csv")), "old");
  EXPECT_EQ(files(), QStringList({"a.csv"}));
}

TEST_F(SaveTable, AFullDiskLeavesTheOldFile) {
  write_old("a.csv");
  {
    const small_disk disk(100);
    save(path("a.csv"), "The file cannot be written: File too large (file " + path("a.csv") + ")");
    save(path("b.csv"), "The file cannot be written: File too large (file " + path("b.csv") + ")");
  }
  EXPECT_EQ(content(path("a.csv")), "old");
  EXPECT_EQ(files(), QStringList({"a.csv"}));
}

TEST_F(SaveTable, NoNameOfTheGamesFilesIsTaken) {
  for (const char* name : {"world.rec", "world.ptr", "world.team", "a.grd", "dummy.txt", "options.mc", "x.csv.new"}) {
    write_old(name);
    save(path(name), QStringLiteral("The name is that of a file of the game, for %1 (file %2)")
                         .arg(QString::fromStdString(std::string(game_use_of_name(name))), path(name)));
    EXPECT_EQ(content(path(name)), "old") << name;
  }
  write_old("careers.rec");
  QFile::link(path("careers.rec"), path("careers.csv"));
  save(path("careers.csv"),
       QStringLiteral("The name is that of a file of the game, for the careers (file %1)").arg(path("careers.csv")));
  EXPECT_EQ(content(path("careers.rec")), "old");
  ASSERT_TRUE(QFile::remove(path("careers.rec")));
  save(path("careers.csv"),
       QStringLiteral("The name is that of a file of the game, for the careers (file %1)").arg(path("careers.csv")));
  EXPECT_FALSE(QFile::exists(path("careers.rec"))) << "made through a link that led nowhere";
}

}  // namespace
}  // namespace velorin::testing
