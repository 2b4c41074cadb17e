// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/table_model.h"

#include <gtest/gtest.h>

#include <QIcon>

namespace velorin::testing {
namespace {

TEST(TableModelTest, TeamsHaveTheirCrestsBeforeThem) {
  TableModel model;
  Table table{.name = "League",
              .columns = {{.heading = "Team", .teams = true}, {.heading = "Won", .numbers = true}},
              .rows = {}};
  table.rows.push_back({{{"Kent"}, {"3"}}});
  table.rows.push_back({{{""}, {""}}});
  const QString copied = table_text(table);
  const QString kept = table_csv(table);
  model.set_table(table);
  EXPECT_FALSE(model.index(0, 0).data(Qt::DecorationRole).value<QIcon>().isNull());
  EXPECT_FALSE(model.index(0, 1).data(Qt::DecorationRole).isValid());
  EXPECT_FALSE(model.index(1, 0).data(Qt::DecorationRole).isValid());
  EXPECT_EQ(model.index(0, 0).data(Qt::AccessibleTextRole).toString(), "Team: Kent");
  EXPECT_EQ(copied, "Team\tWon\nKent\t3\n\t\n");
  EXPECT_EQ(kept, "Team,Won\r\nKent,3\r\n,\r\n");
}

TEST(TableModelTest, FiguresOfAColumnHaveAsManyDecimalsAndAreCopiedAsTheyAre) {
  TableModel model;
  Table table{.name = "Rates",
              .columns = {{.heading = "Man"}, {.heading = "SR", .numbers = true}, {.heading = "HS", .numbers = true}},
              .rows = {}};
  table.rows.push_back({{{"A.1"}, {"95"}, {"101*"}}});
  table.rows.push_back({{{"B"}, {"131.03"}, {"7.5"}}});
  table.rows.push_back({{{"C"}, {"-"}, {"8"}}});
  table.rows.push_back({{{"D"}, {"50.5"}, {""}}});
  model.set_table(table);
  const auto text = [&](int row, int column) { return model.index(row, column).data().toString(); };
  EXPECT_EQ(text(0, 1), "95.00");
  EXPECT_EQ(text(1, 1), "131.03");
  EXPECT_EQ(text(2, 1), "-");
  EXPECT_EQ(text(3, 1), "50.50");
  EXPECT_EQ(text(0, 0), "A.1");
  EXPECT_EQ(text(2, 2), "8") << "not all of them are figures";
  EXPECT_EQ(model.index(0, 1).data(Qt::UserRole).toDouble(), 95);
  EXPECT_TRUE(table_text(model.table()).contains("A.1\t95\t101*\n"));
  EXPECT_TRUE(table_csv(model.table()).contains("A.1,95,101*\r\n"));
}

}  // namespace
}  // namespace velorin::testing
