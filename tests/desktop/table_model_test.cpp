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

}  // namespace
}  // namespace velorin::testing
