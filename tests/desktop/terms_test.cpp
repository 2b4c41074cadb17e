// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/terms.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QLabel>
#include <set>
#include <string>

#include "desktop/controls.h"
#include "desktop/table_model.h"

namespace velorin {
namespace {

TEST(Terms, EachStandsOnceAndHasOneSentence) {
  std::set<std::string> shown;
  for (const Term& term : all_terms()) {
    EXPECT_TRUE(shown.insert(term.shown).second) << term.shown << " stands there twice";
    const QString meaning = QString::fromLatin1(term.meaning);
    EXPECT_TRUE(meaning.endsWith(QLatin1Char('.'))) << term.shown;
    EXPECT_EQ(meaning.count(QLatin1String(". ")), 0) << term.shown << " has more than one sentence";
    EXPECT_EQ(meaning_of(QString::fromLatin1(term.shown)), meaning);
  }
}

TEST(Terms, AreFoundAsTheyStandInCaptions) {
  const QString meaning = meaning_of(QStringLiteral("Aggression"));
  ASSERT_FALSE(meaning.isEmpty());
  for (const char* shown : {"&Aggression", " Aggression :", "Aggression:"}) {
    EXPECT_EQ(meaning_of(QString::fromLatin1(shown)), meaning) << shown;
  }
  EXPECT_TRUE(meaning_of(QStringLiteral("Name")).isEmpty());
}

TEST(Terms, DescribeALabelAndLeaveItsName) {
  QLabel* label = new_label(QStringLiteral("NRR"));
  const auto told = [label](QAccessible::Text which) {
    return QAccessible::queryAccessibleInterface(label)->text(which);
  };
  EXPECT_EQ(label->toolTip(), meaning_of(QStringLiteral("NRR")));
  EXPECT_EQ(told(QAccessible::Name), QStringLiteral("NRR"));
  EXPECT_EQ(told(QAccessible::Description), label->toolTip());
  explain(*label, QStringLiteral("Target"));
  EXPECT_EQ(label->toolTip(), meaning_of(QStringLiteral("Target")))
      << "the next term takes the place of the one before";
  explain(*label, QStringLiteral("Name"));
  EXPECT_TRUE(label->toolTip().isEmpty());
  delete label;
}

TEST(Terms, LeaveATooltipThatIsThere) {
  QLabel label(QStringLiteral("Target"));
  label.setToolTip(QStringLiteral("Something else"));
  explain(label, label.text());
  EXPECT_EQ(label.toolTip(), QStringLiteral("Something else"));
}

TEST(Terms, OfHeadingsAreThoseOfTheirSpokenWords) {
  TableModel model;
  Table table;
  table.columns = {{.heading = QStringLiteral("M"), .spoken = QStringLiteral("Maidens")},
                   {.heading = QStringLiteral("M")},
                   {.heading = QStringLiteral("Name")}};
  table.order = RowOrder::fixed;
  model.set_table(table);
  const auto tip = [&model](int column) { return model.headerData(column, Qt::Horizontal, Qt::ToolTipRole); };
  EXPECT_EQ(tip(0).toString(), meaning_of(QStringLiteral("Maidens")));
  EXPECT_EQ(tip(1).toString(), meaning_of(QStringLiteral("Matches")));
  EXPECT_FALSE(tip(2).isValid()) << "the heading's own tooltip stays";
  table.order = RowOrder::told;
  model.set_table(table);
  EXPECT_EQ(tip(0).toString(), meaning_of(QStringLiteral("Maidens")) + QLatin1Char('\n') + header_hint);
}

}  // namespace
}  // namespace velorin
