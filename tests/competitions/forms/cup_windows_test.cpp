// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>

#include "competitions/cup_fixture.h"
#include "competitions/forms/world_cup_fixtures_window.h"
#include "competitions/forms/world_cup_tables_window.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "desktop/shown_text.h"
#include "desktop/table_columns.h"
#include "desktop/table_view.h"
#include "desktop/theme.h"
#include "engine/over_play.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::SizeIs;

class CupWindows : public CupTest {
 protected:
  /// Plays the World Cup; every list and all tables pass through their windows, until `quit_at` lists were shown.
  void play(int quit_at = 100) {
    user_.on_world_cup_fixtures.assign(40,
                                       [this, quit_at](world_cup_fixtures_form& form) { show_list(form, quit_at); });
    user_.on_world_cup_tables.assign(60, [this](world_cup_tables_form& form) { show_tables(form); });
    form_.accept();
  }

  void show_list(world_cup_fixtures_form& form, int quit_at) {
    WorldCupFixturesWindow window(world_cup, form);
    window.show();
    lists_.push_back(control<QLabel>(window, "subheading")->text().toStdString());
    const bool in_detail = lists_.size() == 1 || lists_.size() == 12 || lists_.size() == 22 || lists_.size() == 31;
    take_picture(window, ("wc_fix_" + std::to_string(lists_.size())).c_str());
    if (in_detail) check_window_at_sizes(window);
    check_rows(window, form);
    const bool quits = static_cast<int>(lists_.size()) == quit_at;
    if (quits) {
      press_and_answer(window, "quit", "quit_question", "yes");
    } else {
      press(window, "accept");
    }
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(world_cup.quit_requested, quits);
    EXPECT_FALSE(window.isVisible());
  }

  void show_tables(world_cup_tables_form& form) {
    WorldCupTablesWindow window(world_cup, form);
    window.show();
    tables_.push_back(control<QLabel>(window, "subheading")->text().toStdString());
    take_picture(window, ("wcsstab_" + std::to_string(tables_.size())).c_str());
    const bool in_detail = tables_.size() == 1 || tables_.size() == 21 || tables_.size() > 30;
    if (in_detail) check_window_at_sizes(window);
    check_table(window, "group_a", form.group_a);
    check_table(window, "group_b", form.group_b);
    check_table(window, "super_six", form.super_six);
    EXPECT_EQ(control<QLabel>(window, "first_semi_final")->text(), shown(form.first_semi_final));
    EXPECT_EQ(control<QLabel>(window, "second_semi_final")->text(), shown(form.second_semi_final));
    EXPECT_EQ(control<QLabel>(window, "grand_final")->text(), shown(form.grand_final));
    EXPECT_EQ(control<QLabel>(window, "winners_line")->text(), shown(form.winners_line));
    press(window, "accept");
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(window.isVisible());
  }

  static void check_table(const QWidget& window, const char* name, const std::vector<league_texts>& rows) {
    const Table& table = control<TableView>(window, name)->table();
    QStringList headings;
    for (const TableColumn& column : table.columns) headings << column.heading;
    EXPECT_EQ(headings, (QStringList{"Team", "Played", "Won", "Lost", "Tied", "Points", "NRR"}));
    ASSERT_EQ(table.rows.size(), rows.size());
    for (std::size_t r = 0; r < rows.size(); ++r) {
      for (std::size_t c = 0; c < 7; ++c) EXPECT_EQ(table.rows[r].cells[c].text, shown(rows[r][c]));
    }
  }

  /// The place of a column by its heading or, without one, by what it is called.
  static std::size_t column(const Table& table, const QString& name) {
    for (std::size_t c = 0; c < table.columns.size(); ++c) {
      if (table.columns[c].heading == name || (table.columns[c].heading.isEmpty() && table.columns[c].spoken == name)) {
        return c;
      }
    }
    ADD_FAILURE() << "no column " << name.toStdString();
    return 0;
  }

  static void check_rows(const QWidget& window, const world_cup_fixtures_form& form) {
    const Table& table = control<TableView>(window, "fixtures")->table();
    ASSERT_EQ(table.rows.size(), static_cast<std::size_t>(form.fixtures));
    for (std::size_t r = 0; r < table.rows.size(); ++r) {
      const world_cup_fixtures_form::row row = form.row_of(static_cast<int>(r) + 1);
      const auto check = [&](std::size_t at, const char* name, const std::string& text, CellLook look) {
        const TableCell& cell = table.rows[at].cells[column(table, QString::fromLatin1(name))];
        EXPECT_EQ(cell.text, shown(text));
        EXPECT_EQ(cell.look, row.is_next ? CellLook::dark_blue : look) << name << " in row " << at;
      };
      check(r, "Match No.", row.match_number, CellLook::muted);
      check(r, "Team A", row.team_a, CellLook::normal);
      check(r, "vs", row.versus, CellLook::muted);
      check(r, "Team B", row.team_b, CellLook::normal);
      check(r, "at", row.at, CellLook::muted);
      check(r, "Venue", row.venue, CellLook::normal);
      check(r, "Match Result", row.result, CellLook::normal);
      EXPECT_EQ(table.rows[r].marked, row.is_next);
    }
  }

  std::vector<std::string> lists_;
  std::vector<std::string> tables_;
};

TEST_F(CupWindows, AreShownAtEveryStage) {
  play();
  ASSERT_THAT(lists_, SizeIs(31));
  EXPECT_EQ(lists_[0], "Group matches: 0 of 20 played");
  EXPECT_EQ(lists_[7], "Group matches: 7 of 20 played");
  EXPECT_EQ(lists_[20], "Group matches: 20 of 20 played");
  EXPECT_EQ(lists_[21], "Super Six: 0 of 9 played");
  EXPECT_EQ(lists_[30], "Super Six: 9 of 9 played");
  ASSERT_THAT(tables_, SizeIs(33));
  EXPECT_EQ(tables_[0], "Group matches: 1 of 20 played");
  EXPECT_EQ(tables_[19], "Group matches: 20 of 20 played");
  EXPECT_EQ(tables_[20], "Super Six: 0 of 9 played");
  EXPECT_EQ(tables_[21], "Super Six: 1 of 9 played");
  EXPECT_EQ(tables_[30], "Semi-finals: 1 of 2 played");
  EXPECT_EQ(tables_[31], "Semi-finals: 2 of 2 played");
  EXPECT_EQ(tables_[32], "Final played");
  EXPECT_NE(world_cup.grand_final.winner, "");
}

TEST_F(CupWindows, LetTheUserQuit) {
  play(3);
  EXPECT_THAT(lists_, SizeIs(3));
  EXPECT_TRUE(form_.closed);
}

TEST_F(CupWindows, OpenTheTablesOverTheList) {
  quit_after(0);
  user_.on_world_cup_fixtures.front() = [this](world_cup_fixtures_form& form) {
    WorldCupFixturesWindow window(world_cup, form);
    window.show();
    user_.on_world_cup_tables.push_back([this](world_cup_tables_form& tables) { show_tables(tables); });
    press(window, "open_tables");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(form.closed);
    press_and_answer(window, "quit", "quit_question", "no");
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(form.closed) << "the question comes first";
    press_and_answer(window, "quit", "quit_question", "yes");
    EXPECT_TRUE(form.closed);
  };
  form_.accept();
  EXPECT_THAT(tables_, ElementsAre("Group matches: 0 of 20 played"));
}

TEST_F(CupWindows, TheListIsAnsweredAndNotDismissed) {
  draw_group_fixtures(chance, world_cup);
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  window.reject();
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(form.closed);
  QTest::keyClick(control<TableView>(window, "fixtures"), Qt::Key_Return);
  EXPECT_TRUE(form.closed) << "Return goes to the default button";
}

TEST_F(CupWindows, TheListShowsTheNextMatchWherever) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  for (int place = 1; place < 20; ++place) world_cup.fixtures[static_cast<std::size_t>(place)].result = "Match Tied";
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.resize(960, 400);
  window.show();
  for (int round = 0; round < 6; ++round) QApplication::processEvents();
  const auto* list = control<TableView>(window, "fixtures");
  check_rows(window, form);
  ASSERT_GT(control<QScrollBar>(window, "scroll")->maximum(), 0) << "not all of them are in sight";
  EXPECT_EQ(list->currentIndex().row(), 19);
  EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->model()->index(19, 0)).center()));
  EXPECT_FALSE(list->viewport()->rect().contains(list->visualRect(list->model()->index(0, 0)).center()));
}

TEST_F(CupWindows, ASortedListKeepsItsMatches) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  auto* list = control<TableView>(window, "fixtures");
  const auto venue = column(list->table(), "Venue");
  list->columns().sort(static_cast<int>(venue), Qt::AscendingOrder);
  const Table shown_now = list->shown_table();
  for (std::size_t row = 1; row < shown_now.rows.size(); ++row) {
    EXPECT_LE(
        QString::localeAwareCompare(shown_now.rows[row - 1].cells[venue].text, shown_now.rows[row].cells[venue].text),
        0);
  }
  for (const TableRow& row : shown_now.rows) {
    EXPECT_EQ(row.cells[venue].text, shown(form.row_of(row.id).venue)) << row.id;
  }
}

TEST_F(CupWindows, TheNextMatchStandsOut) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup.fixtures[1].result = "Match Tied";
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  const auto* list = control<TableView>(window, "fixtures");
  const auto ground = [&](int row) {
    const QRect cell = list->visualRect(list->model()->index(row, 6));
    const QImage seen = list->viewport()->grab().toImage();
    return seen.pixelColor(QPointF(QPointF(cell.right() - 2, cell.center().y()) * seen.devicePixelRatio()).toPoint());
  };
  EXPECT_EQ(ground(1), theme().next_ground);
  EXPECT_NE(ground(0), theme().next_ground);
  EXPECT_NE(ground(2), theme().next_ground);
  EXPECT_EQ(list->model()->headerData(1, Qt::Vertical).toString(), QString::fromUtf8("▶"));
  EXPECT_EQ(list->model()->headerData(0, Qt::Vertical).toString(), "");
}

TEST_F(CupWindows, TheListNamesHumanSides) {
  choose_groups();
  world_cup.human_a = {false, true, false, false, false};
  world_cup.human_b = {false, false, false, false, true};
  draw_group_fixtures(chance, world_cup);
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  take_picture(window, "wc_fix_human");
  check_window_at_sizes(window);
  const Table& table = control<TableView>(window, "fixtures")->table();
  const std::size_t a = column(table, "Captain of Team A");
  const std::size_t b = column(table, "Captain of Team B");
  int human = 0;
  for (const TableRow& row : table.rows) {
    const QString team_a = row.cells[column(table, "Team A")].text;
    const QString team_b = row.cells[column(table, "Team B")].text;
    const auto is_human = [](const QString& team) { return team == "Brava" || team == "Jorvik"; };
    EXPECT_EQ(row.cells[a].text, is_human(team_a) ? "Human" : "");
    EXPECT_EQ(row.cells[b].text, is_human(team_b) ? "Human" : "");
    human += is_human(team_a) || is_human(team_b) ? 1 : 0;
  }
  EXPECT_GT(human, 0);
}

TEST_F(CupWindows, WhatAnEarlierCupHasLeftNamesNoHumanSides) {
  choose_groups();
  world_cup.human_a = world_cup.human_b = {true, true, true, true, true};
  draw_group_fixtures(chance, world_cup);
  for (int place = 1; place <= 6; ++place) {
    const auto at = static_cast<std::size_t>(place);
    world_cup.super_six[at].team = cup_group_a[at % 5];
    world_cup.super_six_human[at] = true;
  }
  draw_super_six_fixtures(chance, world_cup);
  world_cup_fixtures_form list(user_in_use(), world_cup);
  list.open();
  list.scroll_to(20);
  const auto named = [&](cup_stage stage, std::size_t row) {
    world_cup.stage = stage;
    WorldCupFixturesWindow window(world_cup, list);
    const Table& table = control<TableView>(window, "fixtures")->table();
    return table.rows[row].cells[column(table, "Captain of Team A")].text;
  };
  EXPECT_EQ(named(cup_stage::group_matches, 19), "Human") << "the last group match";
  EXPECT_EQ(named(cup_stage::group_matches, 20), "") << "the Super Six of the cup before";
  EXPECT_EQ(named(cup_stage::super_six_draw, 20), "Human") << "that of this one";
  const auto has_captains = [](cup_stage stage) {
    world_cup.stage = stage;
    world_cup_tables_form form(world_cup);
    form.open();
    WorldCupTablesWindow window(world_cup, form);
    return control<TableView>(window, "super_six")->table().columns.size() == 8;
  };
  EXPECT_FALSE(has_captains(cup_stage::group_matches));
  EXPECT_TRUE(has_captains(cup_stage::super_six_matches));
}

TEST_F(CupWindows, TheTablesNameHumanSides) {
  choose_groups();
  world_cup.human_a = {false, true, false, false, false};
  world_cup.human_b = {false, false, false, false, true};
  draw_group_fixtures(chance, world_cup);
  const std::vector<std::string> six = {"Ardell", "Brava", "Corrin", "Farol", "Isker", "Jorvik"};
  for (std::size_t i = 0; i < six.size(); ++i) world_cup.super_six[i + 1].team = six[i];
  world_cup_tables_form form(world_cup);
  form.open();
  WorldCupTablesWindow window(world_cup, form);
  window.show();
  take_picture(window, "wcsstab_human");
  check_window_at_sizes(window);
  for (const char* name : {"group_a", "group_b", "super_six"}) {
    const auto* view = control<TableView>(window, name);
    EXPECT_FALSE(view->horizontalScrollBar()->isVisible());
    const Table& table = view->table();
    const std::size_t captain = column(table, "Captain");
    int human = 0;
    for (const TableRow& row : table.rows) {
      const bool is_human = row.cells[0].text == "Brava" || row.cells[0].text == "Jorvik";
      EXPECT_EQ(row.cells[captain].text, is_human ? "Human" : "") << row.cells[0].text.toStdString();
      human += is_human ? 1 : 0;
    }
    EXPECT_EQ(human, name == std::string("super_six") ? 2 : 1);
  }
}

TEST_F(CupWindows, TheTablesOfAGroupWithoutHumanSidesHaveNoColumnForThem) {
  choose_groups();
  world_cup.human_a = {true, false, false, false, false};
  draw_group_fixtures(chance, world_cup);
  world_cup_tables_form form(world_cup);
  form.open();
  WorldCupTablesWindow window(world_cup, form);
  EXPECT_EQ(control<TableView>(window, "group_a")->table().columns.size(), 8U);
  EXPECT_EQ(control<TableView>(window, "group_b")->table().columns.size(), 7U);
}

TEST_F(CupWindows, HoldLongNames) {
  std::vector<std::string> a;
  std::vector<std::string> b;
  for (const char* digit : {"1", "2", "3", "4", "5"}) {
    a.push_back(std::string("South Corrin ") + digit);
    b.push_back(std::string("West Halden ") + digit);
  }
  choose_groups(a, b);
  world_cup.grounds = {"North Ardelia International Stadium Ground"};
  world_cup.human_a = {true, true, true, true, true};
  world_cup.human_b = {true, true, true, true, true};
  draw_group_fixtures(chance, world_cup);
  for (int i = 1; i <= 9; ++i) {
    cup_fixture& fixture = world_cup.fixtures[static_cast<std::size_t>(i)];
    fixture.result = fixture.team_a + "   won by  10  wickets ";
  }
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  window.resize(smallest_screen);
  take_picture(window, "wc_fix_long");
  check_window_at_sizes(window);
  window.resize(smallest_screen);
  const auto* list = control<TableView>(window, "fixtures");
  const int venue = static_cast<int>(column(list->table(), "Venue"));
  for (int c = 0; c < list->model()->columnCount(); ++c) {
    if (c == venue) continue;
    const QModelIndex cell = list->model()->index(8, c);
    const QString text = cell.data().toString();
    const QFontMetrics type(cell.data(Qt::FontRole).value<QFont>());
    EXPECT_LT(type.horizontalAdvance(text), list->columnWidth(c)) << text.toStdString();
  }
  EXPECT_FALSE(list->horizontalScrollBar()->isVisible());
  EXPECT_GT(list->columnWidth(venue), 100);
  world_cup.semi_finals[1] = {a[0], b[0], a[0], "  won by  10  wickets ", false, false};
  world_cup.semi_finals[2] = {a[1], b[1], b[1], "  won by  100  runs", false, false};
  world_cup.grand_final = {a[0], b[1], a[0], "  won by  100  runs", false, false};
  world_cup_tables_form tables(world_cup);
  tables.open();
  WorldCupTablesWindow standings(world_cup, tables);
  standings.show();
  take_picture(standings, "wcsstab_long");
  check_window_at_sizes(standings);
}

TEST_F(CupWindows, TheListWithoutHumanSidesHasNoColumnsForThem) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  EXPECT_EQ(control<TableView>(window, "fixtures")->table().columns.size(), 7U);
}

TEST_F(CupWindows, TheListOfTheSuperSixNamesHumanSides) {
  form_.human_a = {true, true, true, true, true};
  force(std::vector<int>(20, 0));
  user_.on_console = [](console_form& console) {
    while (!console.closed()) console.bowl_next_over();
  };
  std::vector<std::string> captains;
  user_.on_world_cup_fixtures.assign(21, [](world_cup_fixtures_form& list) { list.accept(); });
  user_.on_world_cup_fixtures.push_back([&](world_cup_fixtures_form& form) {
    form.scroll_to(20);
    WorldCupFixturesWindow window(world_cup, form);
    window.show();
    take_picture(window, "wc_fix_super_six");
    const Table& table = control<TableView>(window, "fixtures")->table();
    for (const TableRow& row : table.rows) {
      const QString team = row.cells[column(table, "Team A")].text;
      const bool human = std::find(cup_group_a.begin(), cup_group_a.end(), team.toStdString()) != cup_group_a.end();
      EXPECT_EQ(row.cells[column(table, "Captain of Team A")].text, human ? "Human" : "") << team.toStdString();
      captains.push_back(row.cells[0].text.left(5).toStdString());
    }
    press_and_answer(window, "quit", "quit_question", "yes");
  });
  form_.accept();
  EXPECT_THAT(captains, Contains("Gr SS").Times(9));
}

TEST_F(CupWindows, TheTablesAreClosedByEscape) {
  choose_groups();
  draw_group_fixtures(chance, world_cup);
  world_cup_tables_form form(world_cup);
  form.open();
  WorldCupTablesWindow window(world_cup, form);
  window.show();
  check_window_at_sizes(window);
  check_table(window, "super_six", {});
  EXPECT_EQ(control<QLabel>(window, "winners_line")->text(), "World Cup winners : ");
  window.reject();
  EXPECT_TRUE(form.closed);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(CupWindows, AnEmptyTournamentHasAnEmptyList) {
  world_cup_fixtures_form form(user_in_use(), world_cup);
  form.open();
  WorldCupFixturesWindow window(world_cup, form);
  window.show();
  check_window_at_sizes(window);
  check_rows(window, form);
  EXPECT_FALSE(control<QLabel>(window, "subheading")->isVisible());
}

}  // namespace
}  // namespace velorin::testing
