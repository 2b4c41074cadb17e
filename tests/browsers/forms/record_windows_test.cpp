// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <memory>

#include "browsers/forms/best_performances_window.h"
#include "browsers/forms/browser_fixture.h"
#include "browsers/forms/century_makers_window.h"
#include "browsers/forms/player_rankings_window.h"
#include "browsers/forms/stand_records_window.h"
#include "browsers/forms/total_records_window.h"
#include "browsers/forms/world_rankings_window.h"
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

/// Opens a form and its window.
template <class Form, class Window>
struct Opened {
  template <class... Arguments>
  explicit Opened(Arguments... arguments) {
    form.open(arguments...);
    window = std::make_unique<window_of<Window, Form>>(form);
    window->show();
  }
  const Table& table() const { return control<TableView>(*window, "table")->table(); }

  Form form = new_form<Form>();
  std::unique_ptr<Window> window;
};

using Ranking = Opened<world_rankings_form, WorldRankingsWindow>;
using Individual = Opened<best_performances_form, BestPerformancesWindow>;
using Totals = Opened<total_records_form, TotalRecordsWindow>;
using Stands = Opened<stand_records_form, StandRecordsWindow>;
using Players = Opened<player_rankings_form, PlayerRankingsWindow>;
using Centuries = Opened<century_makers_form, CenturyMakersWindow>;

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
    EXPECT_EQ(window.windowTitle(), shown(opened.form.table.title));
    const Table& table = opened.table();
    EXPECT_FALSE(table.sortable);
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
    const auto* empty = window.template findChild<QLabel*>("empty");
    EXPECT_EQ(empty != nullptr, table.rows.empty());
    if (empty != nullptr) {
      EXPECT_EQ(empty->text(), "No records yet");
    }
    check_columns(window);
    press(window, "accept");
    EXPECT_TRUE(opened.form.closed);
    EXPECT_FALSE(window.isVisible());
  }

  /// Opens and checks all of them; `when` goes into the pictures' names.
  void check_all(const std::string& when) {
    const auto named = [&](const std::string& form) { return form + "_" + when; };
    check(Ranking(), "wldrank", named("wldrank").c_str());
    for (int mode = 0; mode <= 1; ++mode) {
      check(Individual(mode), "highinduv", named("highinduv" + std::to_string(mode)).c_str());
      check(Totals(mode), "totrecords", named("totrecords" + std::to_string(mode)).c_str());
    }
    check(Stands(), "partnrec", named("partnrec").c_str());
    check(Centuries(), "centurytop", named("centurytop").c_str());
    for (int mode = 1; mode <= 9; ++mode) {
      check(Players(mode, "Ardell"), "allrecs", named("allrecs" + std::to_string(mode)).c_str());
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
  EXPECT_EQ(Players(1).window->findChild<QPushButton*>("profile"), nullptr);
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
  EXPECT_EQ(totals.window->findChild<QPushButton*>("profile"), nullptr);
  QTest::keyClick(control<TableView>(*totals.window, "table"), Qt::Key_Return);
  EXPECT_TRUE(totals.form.closed) << "Return goes to the default button";
  Ranking ranking;
  EXPECT_EQ(ranking.window->findChild<QPushButton*>("profile"), nullptr);
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

}  // namespace
}  // namespace velorin::testing
