// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <fstream>
#include <memory>

#include "browsers/forms/browser_fixture.h"
#include "browsers/forms/player_rankings_window.h"
#include "browsers/forms/record_lists_window.h"
#include "browsers/player_rankings.h"
#include "browsers/record_lists.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "support/new_form.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// A form with its window.
template <class Form, class Window>
struct Opened {
  void show() {
    window = std::make_unique<window_of<Window, Form>>(form);
    window->show();
  }
  const Table& table() const { return control<TableView>(*window, "table")->table(); }

  Form form = new_form<Form>();
  std::unique_ptr<Window> window;
};

/// The window of all lists, opened on one of them.
struct Listed : Opened<record_lists_form, RecordListsWindow> {
  explicit Listed(const char* id, int record_mode = 0) {
    form.open(record_list_place(id, record_mode));
    show();
  }
};
struct Ranking : Listed {
  Ranking() : Listed("wldrank") {}
};
struct Individual : Listed {
  explicit Individual(int record_mode) : Listed("highinduv", record_mode) {}
};
struct Totals : Listed {
  explicit Totals(int record_mode) : Listed("totrecords", record_mode) {}
};
struct Stands : Listed {
  Stands() : Listed("partnrec") {}
};
struct Players : Listed {
  explicit Players(int record_mode) : Listed("allrecs", record_mode) {}
};
struct Centuries : Listed {
  Centuries() : Listed("centurytop") {}
};

/// The records of a team's players, as the choice of an eleven opens them.
struct OneTeam : Opened<player_rankings_form, PlayerRankingsWindow> {
  explicit OneTeam(int record_mode) {
    form.open(record_mode, "Ardell");
    show();
  }
};

class RecordWindows : public BrowserTest {
 protected:
  void TearDown() override { on_failure({}); }

  /// What every one of these windows shows of its form.
  template <class Form, class Window>
  void check(const Opened<Form, Window>& opened, const char* name, const char* picture) {
    SCOPED_TRACE(picture);
    Window& window = *opened.window;
    take_picture(window, picture);
    check_window_at_sizes(window);
    EXPECT_EQ(window.objectName(), name);
    EXPECT_EQ(window.accessibleName(), window.windowTitle());
    EXPECT_EQ(window.windowTitle(), shown(opened.form.table.title));
    const Table& table = opened.table();
    EXPECT_EQ(table.order, RowOrder::told);
    ASSERT_EQ(table.columns.size(), opened.form.table.columns.size());
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      EXPECT_EQ(table.columns[i].heading, shown(opened.form.table.columns[i].heading));
      EXPECT_EQ(table.columns[i].numbers, opened.form.table.columns[i].aligned == alignment::right);
    }
    ASSERT_EQ(table.rows.size(), opened.form.table.rows.size());
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
      const auto& row = opened.form.table.rows[r];
      for (std::size_t i = 0; i < row.texts.size(); ++i) {
        EXPECT_EQ(table.rows[r].cells[i].text, shown_caption(row.texts[i]));
      }
    }
    const auto* empty = control<QLabel>(window, "empty");
    EXPECT_EQ(empty->isVisible(), table.rows.empty());
    EXPECT_EQ(empty->text(), "No records yet");
    check_columns(window);
    press(window, "accept");
    EXPECT_TRUE(opened.form.closed);
    EXPECT_FALSE(window.isVisible());
  }

  /// Opens and checks all of them; `when` goes into the pictures' names.
  void check_all(const std::string& when) {
    const auto named = [&](const std::string& form) { return form + "_" + when; };
    for (const record_list& list : every_record_list) {
      const std::string key = std::string(list.form) + "_" + std::to_string(list.record_mode);
      const Listed opened(std::string(list.form).c_str(), list.record_mode);
      EXPECT_TRUE(control<QRadioButton>(*opened.window, ("list_" + key).c_str())->isChecked());
      check(opened, "reclists", named(key).c_str());
    }
    for (const int mode : {player_rankings_form::career_batting, player_rankings_form::career_bowling}) {
      check(OneTeam(mode), "allrecs", named("allrecs_" + std::to_string(mode)).c_str());
    }
  }

 private:
  /// No cell is cut off as the window came.
  static void check_columns(const QWidget& window) {
    const auto* view = control<TableView>(window, "table");
    for (int c = 0; c < view->model()->columnCount(); ++c) {
      for (int r = 0; r < view->model()->rowCount(); ++r) {
        const QString text = view->model()->index(r, c).data().toString();
        EXPECT_LT(view->fontMetrics().horizontalAdvance(text), view->columnWidth(c)) << text.toStdString();
      }
    }
  }
};

TEST_F(RecordWindows, AreEmptyOnAnEmptyDatabase) {
  check_all("empty");
  EXPECT_FALSE(control<QPushButton>(*Players(1).window, "profile")->isVisible());
}

TEST_F(RecordWindows, ShowOneMatch) {
  play_matches(1);
  check_all("one");
}

TEST_F(RecordWindows, ShowASeason) {
  play_matches(20);
  check_all("season");
}

TEST_F(RecordWindows, ShowThreeHundredMatches) {
  play_matches(300);
  check_all("years");
  for (int mode = 1; mode <= 7; ++mode) EXPECT_EQ(Players(mode).table().rows.size(), 15U) << "mode " << mode;
  EXPECT_EQ(Stands().table().rows.size(), 10U);
  EXPECT_EQ(Ranking().table().rows.size(), 4U);
}

TEST_F(RecordWindows, StandInTheirPlaces) {
  lists.top_scores[2] = {"T.One", 150, 140, "Tamar", "Alba", "Harbour Park", -1};
  lists.top_scores[3] = {"T.Two", 150, 140, "Tamar", "Alba", "Harbour Park", -1};
  lists.partnerships[9] = {231, "", 110, 130, 300, "A.One", "A.Five * ", {}, "Alba", "Tamar", "Harbour Park"};
  write();
  EXPECT_EQ(Individual(1).table().rows[1].head, "3");
  EXPECT_EQ(Stands().table().rows[0].head, "9") << "the wicket";
  add_team("Alba", {1, 0, 0}, {});
  write();
  EXPECT_EQ(Ranking().table().rows[0].head, "") << "the rank has a column";
}

TEST_F(RecordWindows, AreCopiedAsShownAndSavedAsTheyStand) {
  lists.partnerships[1] = {231, "", 110, 130, 300, "A.One", "A.Five", {}, "Alba", "Tamar", "Harbour Park"};
  write();
  Stands stands;
  QTest::keyClick(control<TableView>(*stands.window, "table"), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(),
            "Score\tPlayers\tFor\tAgainst\n110 (130)\tA.One & A.Five\tAlba\tTamar\n");
  EXPECT_EQ(table_csv(stands.table()), "Score,Players,For,Against\r\n110 (130),A.One && A.Five,Alba,Tamar\r\n");
}

TEST_F(RecordWindows, OpenTheProfileOfTheManInTheRow) {
  add("Alba", batsman("A.Same", 1, 0, 10, 10));
  add("Bora", batsman("B.Best", 1, 0, 30, 10));
  add("Bora", batsman("A.Same", 1, 0, 20, 10));
  write();
  Players players(2);
  auto* table = control<TableView>(*players.window, "table");
  control<QPushButton>(*players.window, "profile")->setFocus();
  press(*players.window, "profile");
  EXPECT_EQ(players.window->focusWidget(), control<QPushButton>(*players.window, "accept")) << "Return closes";
  QTest::keyClick(table, Qt::Key_Down);
  QTest::keyClick(table, Qt::Key_Return);
  QTest::keyClick(table, Qt::Key_Down);
  press(*players.window, "profile");
  emit table->doubleClicked(table->model()->index(0, 3));
  EXPECT_THAT(user_.profiles, ElementsAre("B.Best of Bora", "A.Same of Bora", "A.Same of Alba", "B.Best of Bora"));
  EXPECT_TRUE(players.window->isVisible());
}

TEST_F(RecordWindows, OpenTheProfilesOfBothMenOfAStand) {
  add("Alba", batsman("A.One", 1, 0, 10, 10));
  add("Alba", batsman("A.Five", 1, 0, 10, 10));
  lists.partnerships[3] = {231, "", 110, 130, 300, "A.One", "A.Five * ", {}, "Alba", "Tamar", "Harbour Park"};
  lists.partnerships[5] = {231, "", 9, 30, 300, "A.One", "", {}, "Alba", "Tamar", "Harbour Park"};
  write();
  Stands stands;
  press(*stands.window, "profile");
  press(*stands.window, "partner");
  EXPECT_THAT(user_.profiles, ElementsAre("A.One of Alba", "A.Five of Alba"));
  QTest::keyClick(control<TableView>(*stands.window, "table"), Qt::Key_Down);
  EXPECT_TRUE(control<QPushButton>(*stands.window, "profile")->isEnabled());
  EXPECT_FALSE(control<QPushButton>(*stands.window, "partner")->isEnabled());
}

TEST_F(RecordWindows, TellOfAManWithoutACareer) {
  lists.top_scores[1] = {"T.One", 150, 140, "Tamar", "Alba", "Harbour Park", -1};
  write();
  Individual scores(1);
  press(*scores.window, "profile");
  EXPECT_THAT(user_.profiles, IsEmpty());
  EXPECT_THAT(user_.messages, ElementsAre("Error - Player Details"));
  EXPECT_TRUE(scores.window->isVisible());
}

TEST_F(RecordWindows, OfTeamsOpenNoProfiles) {
  play_matches(1);
  Totals totals(1);
  EXPECT_FALSE(control<QPushButton>(*totals.window, "profile")->isVisible());
  QTest::keyClick(control<TableView>(*totals.window, "table"), Qt::Key_Return);
  EXPECT_TRUE(totals.form.closed) << "Return goes to the default button";
  Ranking ranking;
  EXPECT_FALSE(control<QPushButton>(*ranking.window, "profile")->isVisible());
}

TEST_F(RecordWindows, EscapeClosesThem) {
  Centuries centuries;
  centuries.window->reject();
  EXPECT_TRUE(centuries.form.closed);
  EXPECT_FALSE(centuries.window->isVisible());
}

TEST_F(RecordWindows, KeepTheNamesOfTheCodePage) {
  add("C\xF4te", batsman("\xC9.Gar\xE7on", 1, 0, 10, 10));
  write();
  Players players(2);
  EXPECT_EQ(players.table().rows[0].cells[0].text, QString::fromUtf8("É.Garçon"));
  press(*players.window, "profile");
  EXPECT_THAT(user_.profiles, ElementsAre("\xC9.Gar\xE7on of C\xF4te"));
}

/// So wide that the names of the lists stand beside the table.
void make_wide(QWidget& window) {
  window.resize(1248, 680);
  QApplication::processEvents();
}

TEST_F(RecordWindows, DropDownFromAboveTheTableInANarrowWindow) {
  play_matches(20);
  Totals totals(1);
  make_wide(*totals.window);
  auto* lists = control<QComboBox>(*totals.window, "lists");
  EXPECT_FALSE(lists->isVisible());
  press(*totals.window, "list_centurytop_0");
  control<QRadioButton>(*totals.window, "list_centurytop_0")->setFocus();
  totals.window->resize(960, 500);
  QApplication::processEvents();
  ASSERT_TRUE(lists->isVisible());
  EXPECT_FALSE(control<QWidget>(*totals.window, "list_centurytop_0")->isVisible());
  EXPECT_EQ(totals.window->focusWidget(), lists) << "the keyboard stays with the choice";
  EXPECT_EQ(lists->currentText(), "Batting: Top Century Makers");
  check_window(*totals.window);
  for (int place = 0; place < lists->count(); ++place) {
    lists->setCurrentIndex(place);
    emit lists->activated(place);
    const record_list& list = every_record_list[static_cast<std::size_t>(place)];
    const Listed alone(std::string(list.form).c_str(), list.record_mode);
    EXPECT_EQ(table_csv(totals.table()), table_csv(alone.table())) << place;
  }
  make_wide(*totals.window);
  EXPECT_FALSE(lists->isVisible());
  EXPECT_TRUE(control<QRadioButton>(*totals.window, "list_wldrank_0")->isChecked());
}

TEST_F(RecordWindows, ShowAnotherListByOnePress) {
  play_matches(20);
  Totals totals(1);
  make_wide(*totals.window);
  const auto size = totals.window->size();
  for (const record_list& list : every_record_list) {
    const std::string key = "list_" + std::string(list.form) + "_" + std::to_string(list.record_mode);
    SCOPED_TRACE(key);
    press(*totals.window, key.c_str());
    const Listed alone(std::string(list.form).c_str(), list.record_mode);
    EXPECT_EQ(totals.window->windowTitle(), alone.window->windowTitle());
    EXPECT_EQ(table_csv(totals.table()), table_csv(alone.table()));
    EXPECT_EQ(totals.table().rows.front().head, alone.table().rows.front().head);
    for (const char* button : {"profile", "partner"}) {
      EXPECT_EQ(control<QPushButton>(*totals.window, button)->isVisible(),
                control<QPushButton>(*alone.window, button)->isVisible());
    }
    EXPECT_TRUE(control<QRadioButton>(*totals.window, key.c_str())->isChecked());
    EXPECT_EQ(totals.window->size(), size) << "the window stays as it is";
  }
  press(*totals.window, "list_partnrec_0");
  press(*totals.window, "partner");
  EXPECT_EQ(user_.profiles.size(), 1U) << "the row is one of the list now shown";
  press(*totals.window, "accept");
  EXPECT_FALSE(totals.window->isVisible());
}

TEST_F(RecordWindows, AreGoneThroughByTheArrowKeys) {
  play_matches(1);
  Totals totals(1);
  make_wide(*totals.window);
  totals.window->activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(totals.window.get()));
  auto* entry = control<QRadioButton>(*totals.window, "list_totrecords_1");
  entry->setFocus();
  QTest::keyClick(entry, Qt::Key_Down);
  EXPECT_EQ(totals.window->windowTitle().toStdString(), "Lowest Totals in ODI's");
  QTest::keyClick(control<QRadioButton>(*totals.window, "list_totrecords_0"), Qt::Key_Down);
  EXPECT_EQ(totals.window->windowTitle().toStdString(), "Highest Induvidual Scores");
}

TEST_F(RecordWindows, AGroupIsPassedThrough) {
  play_matches(1);
  Opened<record_lists_form, RecordListsWindow> opened;
  opened.form.open_group("Bowling");
  opened.show();
  std::vector<std::string> titles;
  std::vector<std::string> told;
  while (opened.window->isVisible()) {
    titles.push_back(opened.window->windowTitle().toStdString());
    told.push_back(control<QLabel>(*opened.window, "subheading")->text().toStdString());
    if (titles.size() % 2 == 1) {
      press(*opened.window, "accept");
    } else {
      opened.window->reject();
    }
  }
  EXPECT_THAT(titles, ElementsAre("Bowling Records - Most Wickets", "Bowling Records - Best Average",
                                  "Bowling Records - Best Economy Rate", "Best Bowling Figures"));
  EXPECT_THAT(told, ElementsAre("1 of 4", "2 of 4", "3 of 4", "4 of 4"));
}

TEST_F(RecordWindows, AListThatCannotBeReadLeavesTheFormerOne) {
  play_matches(1);
  Totals totals(1);
  make_wide(*totals.window);
  std::string told;
  on_failure([&](const std::exception& failure) { told = failure.what(); });
  std::ofstream(data.files.career_file) << std::string(2500, '\xFF');
  press(*totals.window, "list_allrecs_2");
  EXPECT_THAT(told, ::testing::HasSubstr(".rec"));
  EXPECT_EQ(totals.window->windowTitle(), "Highest Totals in ODI's");
  EXPECT_TRUE(control<QRadioButton>(*totals.window, "list_totrecords_1")->isChecked());
  press(*totals.window, "list_totrecords_0");
  EXPECT_EQ(totals.window->windowTitle().toStdString(), "Lowest Totals in ODI's");
}

}  // namespace
}  // namespace velorin::testing
