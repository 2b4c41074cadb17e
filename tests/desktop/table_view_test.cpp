// SPDX-License-Identifier: GPL-3.0-or-later
// What the user of any table can do with it: sort, hide columns, draw them wider, open rows; and what of it is kept.
#include "desktop/table_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QMenu>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QVBoxLayout>
#include <algorithm>
#include <memory>

#include "desktop/form.h"
#include "desktop/modality.h"
#include "desktop/preferences.h"
#include "desktop/table_columns.h"

namespace velorin::testing {
namespace {

class TableViews : public ::testing::Test {
 protected:
  TableViews() {
    preferences::use_file(folder.filePath("preferences.ini"));
    table.name = "Batting";
    table.columns = {{.heading = "Player"}, {.heading = "Runs", .numbers = true}, {.heading = "Against"}};
    int id = 10;
    for (const auto& [name, runs, against] : {std::tuple("Cole", "9*", "Alba"), std::tuple("Ash", "120", "Tamar"),
                                              std::tuple("Birk", "", "Alba"), std::tuple("Dray", "31", "Brava")}) {
      table.rows.push_back({.cells = {{.text = name}, {.text = runs}, {.text = against}}, .id = id++});
    }
  }
  ~TableViews() override { preferences::use_file(QDir(folder.path()).filePath("other.ini")); }

  /// A window with the table, as it opens.
  void open(const char* window_name = "window") {
    window = std::make_unique<Form>(QString::fromLatin1(window_name), Form::Dismissal::closes, nullptr);
    view = new TableView("list");
    view->set_table(table);
    window->body()->addWidget(view);
    window->resize(700, 400);
    window->show();
    view->setFocus();
    QTest::qWait(1);
  }

  QStringList names() const {
    QStringList all;
    for (int row = 0; row < view->model()->rowCount(); ++row) all << view->model()->index(row, 0).data().toString();
    return all;
  }
  QStringList shown_columns() const {
    QStringList all;
    for (int column = 0; column < 3; ++column) {
      if (!view->isColumnHidden(column)) all << table.columns[static_cast<std::size_t>(column)].heading;
    }
    return all;
  }
  void press_heading(int column) const {
    const QHeaderView* header = view->horizontalHeader();
    const QPoint at(header->sectionViewportPosition(column) + header->sectionSize(column) / 2, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
  }
  QMenu* column_menu() const {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_TRUE(menu != nullptr && menu->objectName() == "columns");
    return menu;
  }
  QString spoken_heading(int column) const {
    QAccessibleInterface* table_access = QAccessible::queryAccessibleInterface(view);
    // Behind the corner.
    return table_access->child(column + 1)->text(QAccessible::Name);
  }

  QTemporaryDir folder;
  Table table;
  std::unique_ptr<Form> window;
  TableView* view = nullptr;
};

const QStringList as_told{"Cole", "Ash", "Birk", "Dray"};

TEST_F(TableViews, AHeadingSortsAFigureFromTheHighestThenFromTheLowestThenAsTold) {
  open();
  EXPECT_EQ(names(), as_told);
  press_heading(1);
  EXPECT_EQ(names(), QStringList({"Ash", "Dray", "Cole", "Birk"})) << "an empty cell comes last";
  press_heading(1);
  EXPECT_EQ(names(), QStringList({"Cole", "Dray", "Ash", "Birk"})) << "an empty cell comes last here, too";
  press_heading(1);
  EXPECT_EQ(names(), as_told);
}

TEST_F(TableViews, EqualCellsStayInTheOrderTold) {
  open();
  press_heading(2);
  EXPECT_EQ(names(), QStringList({"Cole", "Birk", "Dray", "Ash"}));
}

TEST_F(TableViews, TheKeyboardSortsByTheColumnOfThePresentCell) {
  open();
  view->setCurrentIndex(view->model()->index(0, 1));
  QTest::keyClick(view, Qt::Key_Up, Qt::AltModifier);
  EXPECT_EQ(names(), QStringList({"Cole", "Dray", "Ash", "Birk"}));
  QTest::keyClick(view, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(names(), QStringList({"Ash", "Dray", "Cole", "Birk"}));
  QTest::keyClick(view, Qt::Key_Down, Qt::AltModifier);
  EXPECT_EQ(names(), as_told) << "the same key again gives the order told back";
}

TEST_F(TableViews, TheSortingIsToldToScreenReaders) {
  open();
  EXPECT_EQ(spoken_heading(1), "Runs");
  EXPECT_EQ(view->accessibleDescription(), "");
  view->columns().sort(1, Qt::DescendingOrder);
  EXPECT_EQ(spoken_heading(1), "Runs, sorted descending");
  EXPECT_EQ(view->accessibleDescription(), "sorted by Runs, descending");
  view->columns().sort_as_told();
  EXPECT_EQ(spoken_heading(1), "Runs");
  EXPECT_EQ(view->accessibleDescription(), "");
}

TEST_F(TableViews, ATableWithAnOrderOfItsOwnIsNotSorted) {
  table.order = RowOrder::fixed;
  open();
  press_heading(1);
  view->columns().sort(1, Qt::AscendingOrder);
  EXPECT_EQ(names(), as_told);
}

TEST_F(TableViews, CopyAndFileHaveTheOrderShownAndAllColumns) {
  open();
  view->columns().sort(0, Qt::AscendingOrder);
  view->columns().set_shown(1, false);
  view->copy();
  EXPECT_EQ(QApplication::clipboard()->text(),
            "Player\tRuns\tAgainst\nAsh\t120\tTamar\nBirk\t\tAlba\nCole\t9*\tAlba\nDray\t31\tBrava\n");
  EXPECT_TRUE(table_csv(view->shown_table()).startsWith("Player,Runs,Against\r\nAsh,120,Tamar\r\n"));
  view->selectRow(2);
  view->columns().set_shown(0, false);
  view->copy();
  EXPECT_EQ(QApplication::clipboard()->text(), "Player\tRuns\tAgainst\nCole\t9*\tAlba\n");
}

TEST_F(TableViews, AKeyOpensTheColumnsAndTheLastOneStays) {
  open();
  for (int column = 0; column < 2; ++column) {
    QTest::keyClick(view, Qt::Key_H, Qt::ControlModifier);
    QMenu* menu = column_menu();
    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(menu->actions()[column]->isChecked());
    for (int down = 0; down <= column; ++down) QTest::keyClick(menu, Qt::Key_Down);
    QTest::keyClick(menu, Qt::Key_Return);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
  }
  EXPECT_EQ(shown_columns(), QStringList({"Against"}));
  view->columns().set_shown(2, false);
  EXPECT_EQ(shown_columns(), QStringList({"Against"}));
  QTest::keyClick(view, Qt::Key_H, Qt::ControlModifier);
  EXPECT_FALSE(column_menu()->actions()[2]->isEnabled());
  column_menu()->actions().constLast()->trigger();
  column_menu()->close();
  EXPECT_EQ(shown_columns(), QStringList({"Player", "Runs", "Against"}));
}

TEST_F(TableViews, AnAssistiveActionHidesAColumn) {
  open();
  emit view->horizontalHeader()->customContextMenuRequested({5, 5});
  QAccessibleInterface* entry = QAccessible::queryAccessibleInterface(column_menu())->child(1);
  EXPECT_EQ(entry->text(QAccessible::Name), "Runs");
  EXPECT_TRUE(entry->state().checked);
  entry->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  if (QWidget* left = QApplication::activePopupWidget()) left->close();
  EXPECT_EQ(shown_columns(), QStringList({"Player", "Against"}));
}

TEST_F(TableViews, HiddenColumnsAndWidthsComeBackWithTheWindow) {
  open();
  view->columns().set_shown(2, false);
  view->horizontalHeader()->resizeSection(1, 222);
  open();
  EXPECT_EQ(shown_columns(), QStringList({"Player", "Runs"}));
  EXPECT_EQ(view->columnWidth(1), 222);
  open("another");
  EXPECT_EQ(shown_columns(), QStringList({"Player", "Runs", "Against"}));
  EXPECT_NE(view->columnWidth(1), 222);
}

TEST_F(TableViews, AFreeOrderIsKeptAndOneToldIsNot) {
  open();
  view->columns().sort(0, Qt::AscendingOrder);
  open();
  EXPECT_EQ(names(), as_told);
  table.order = RowOrder::free;
  open();
  view->columns().sort(1, Qt::DescendingOrder);
  open();
  EXPECT_EQ(names(), QStringList({"Ash", "Dray", "Cole", "Birk"}));
  view->columns().sort_as_told();
  open();
  EXPECT_EQ(names(), as_told);
}

TEST_F(TableViews, NewFiguresOfTheSameTableStaySorted) {
  open();
  view->columns().sort(1, Qt::DescendingOrder);
  table.rows[0].cells[1].text = "200";
  view->set_table(table);
  EXPECT_EQ(names(), QStringList({"Cole", "Ash", "Dray", "Birk"}));
  table.name = "Bowling";
  view->set_table(table);
  EXPECT_EQ(names(), as_told) << "another list opens in the order told";
}

TEST_F(TableViews, ColumnsThatAreNotThereAreIgnored) {
  preferences::set_table_state("window", "list",
                               {.hidden = {"Player", "Runs", "Against", "Balls"},
                                .widths = {{"Balls", 90}},
                                .sorted_by = "Balls",
                                .descending = true});
  table.order = RowOrder::free;
  open();
  EXPECT_EQ(shown_columns(), QStringList({"Player", "Runs", "Against"})) << "not all can be hidden";
  EXPECT_EQ(names(), as_told);
}

TEST_F(TableViews, TheColumnsFillTheViewAtAnyWidth) {
  open();
  for (const int width : {500, 900, 1300}) {
    window->resize(width, 400);
    QTest::qWait(1);
    EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width()) << width;
  }
  view->columns().set_shown(0, false);
  EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width()) << "another one takes what is left";
}

TEST_F(TableViews, ReturnAndADoublePressOpenARow) {
  open();
  QSignalSpy activated(view, &TableView::row_activated);
  std::vector<int> opened;
  view->on_open([&](int id) { opened.push_back(id); });
  view->columns().sort(0, Qt::AscendingOrder);
  view->setCurrentIndex(view->model()->index(0, 0));
  QTest::keyClick(view, Qt::Key_Return);
  const QPoint second = view->visualRect(view->model()->index(1, 0)).center();
  QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(opened, std::vector<int>({11})) << "one press chooses";
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, second);
  EXPECT_EQ(opened, std::vector<int>({11, 12}));
  EXPECT_EQ(activated.count(), 2);
}

TEST_F(TableViews, WhereOnePressOpensARowThatLeadsNowhereDoesNot) {
  table.rows[1].opens = false;
  open();
  std::vector<int> opened;
  view->on_open([&](int id) { opened.push_back(id); }, TableView::Opens::press);
  for (int row = 0; row < 3; ++row) {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(view->model()->index(row, 0)).center());
  }
  view->setCurrentIndex(view->model()->index(1, 0));
  QTest::keyClick(view, Qt::Key_Return);
  EXPECT_EQ(opened, std::vector<int>({10, 12}));
}

TEST_F(TableViews, AnAssistivePressOpensARowThatLeadsOn) {
  table.rows[1].opens = false;
  open();
  const auto cell = [&](int row, int column) {
    return QAccessible::queryAccessibleInterface(view)->tableInterface()->cellAt(row, column);
  };
  EXPECT_TRUE(cell(0, 0)->actionInterface()->actionNames().isEmpty()) << "nothing opens yet";
  std::vector<int> opened;
  view->on_open([&](int id) { opened.push_back(id); });
  view->columns().sort(0, Qt::DescendingOrder);
  std::vector<int> wanted;
  for (int row = 0; row < view->model()->rowCount(); ++row) {
    const bool opens = view->table_row(row) != 1;
    EXPECT_EQ(cell(row, 1)->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()),
              opens);
    cell(row, 1)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    if (opens) wanted.push_back(view->shown_table().rows[static_cast<std::size_t>(row)].id);
  }
  EXPECT_TRUE(opened.empty()) << "a moment later";
  QApplication::processEvents();
  EXPECT_EQ(opened, wanted);
  EXPECT_FALSE(std::is_sorted(opened.begin(), opened.end())) << "in the order shown";
}

TEST_F(TableViews, AnAssistivePressDoesNothingWhileTheTableIsCovered) {
  open();
  std::vector<int> opened;
  view->on_open([&](int id) { opened.push_back(id); });
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(view)->tableInterface()->cellAt(0, 0);
  const auto press = [&] { cell->actionInterface()->doAction(QAccessibleActionInterface::pressAction()); };
  press();
  cover(*view);  // before the press takes effect
  QApplication::processEvents();
  press();
  EXPECT_FALSE(QAccessible::queryAccessibleInterface(view)->tableInterface()->selectRow(0));
  uncover(*view);
  QApplication::processEvents();
  EXPECT_EQ(opened, std::vector<int>());
  press();
  QApplication::processEvents();
  EXPECT_EQ(opened, std::vector<int>({10}));
}

TEST_F(TableViews, CellsAndHeadingsAreReadOut) {
  open();
  QAccessibleInterface* all = QAccessible::queryAccessibleInterface(view);
  EXPECT_EQ(all->childCount(), (view->model()->rowCount() + 1) * (view->model()->columnCount() + 1));
  for (int row = 0; row < view->model()->rowCount(); ++row) {
    for (int column = 0; column < view->model()->columnCount(); ++column) {
      QAccessibleInterface* cell = all->tableInterface()->cellAt(row, column);
      EXPECT_EQ(cell->text(QAccessible::Name),
                view->model()->index(row, column).data(Qt::AccessibleTextRole).toString());
      EXPECT_EQ(all->child(all->indexOfChild(cell)), cell);
      EXPECT_EQ(cell->tableCellInterface()->columnHeaderCells().at(0)->text(QAccessible::Name), spoken_heading(column));
      EXPECT_EQ(all->childAt(cell->rect().center().x(), cell->rect().center().y()), cell);
    }
  }
  EXPECT_TRUE(all->tableInterface()->selectRow(1));
  EXPECT_EQ(all->tableInterface()->selectedRows(), QList<int>({1}));
  EXPECT_TRUE(all->tableInterface()->cellAt(1, 0)->state().selected);
}

}  // namespace
}  // namespace velorin::testing
