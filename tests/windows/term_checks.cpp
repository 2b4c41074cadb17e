// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/term_checks.h"

#include <gtest/gtest.h>

#include <QAbstractItemModel>
#include <QAccessible>
#include <QLabel>
#include <QRegularExpression>
#include <QTableView>

#include "desktop/controls.h"
#include "desktop/table_view.h"
#include "desktop/terms.h"

namespace velorin::testing {

namespace {

/// Words that need no meaning told, as they stand without a colon.
const QStringList& plain_words() {
  static const QStringList words = {"Balls left",
                                    "Balls to 100",
                                    "Balls to 50",
                                    "Boundaries",
                                    "bat",
                                    "bowl",
                                    "By a user",
                                    "Byes",
                                    "Came on",
                                    "Competition",
                                    "Country",
                                    "Date",
                                    "Fielder",
                                    "First",
                                    "First balls",
                                    "First man",
                                    "First runs",
                                    "First wickets",
                                    "First won",
                                    "Highest",
                                    "if won",
                                    "Leg byes",
                                    "Look for",
                                    "Lowest",
                                    "Margin",
                                    "No balls",
                                    "Not out",
                                    "Number",
                                    "Opponent",
                                    "Position",
                                    "Ready question",
                                    "Rows at most",
                                    "Runs apart",
                                    "Second",
                                    "Second balls",
                                    "Second man",
                                    "Second runs",
                                    "Second wickets",
                                    "Second won",
                                    "Section",
                                    "Sorted by",
                                    "Stands",
                                    "Summed by",
                                    "Ties",
                                    "Time",
                                    "Top score",
                                    "Unbroken",
                                    "Was out",
                                    "Where",
                                    "Wicket",
                                    "Wides",
                                    "Winner",
                                    "Year",
                                    "Against",
                                    "Appearance",
                                    "Attack",
                                    "Away",
                                    "Away Team",
                                    "Ball by ball",
                                    "Batsman",
                                    "Batsmen",
                                    "Batting",
                                    "Batting Stats",
                                    "Bowler",
                                    "Bowlers",
                                    "Bowling",
                                    "Bowling Stats",
                                    "Control",
                                    "Fielding",
                                    "Figure",
                                    "First Team",
                                    "For",
                                    "Game",
                                    "Give Path for Photos",
                                    "Go to",
                                    "Grand Final",
                                    "Ground",
                                    "Group",
                                    "Group A",
                                    "Group A Table",
                                    "State",
                                    "Stage",
                                    "Save as",
                                    "Rename",
                                    "Last played",
                                    "Group B",
                                    "Group B Table",
                                    "Highest total against",
                                    "Highest total for",
                                    "Home",
                                    "Home Team",
                                    "How he compares",
                                    "Induvidual  Records",
                                    "Keys",
                                    "List",
                                    "Left to the computer on your side",
                                    "Lost",
                                    "Lowest total against",
                                    "Lowest total for",
                                    "Match",
                                    "Match No.",
                                    "Match Result",
                                    "Menu",
                                    "Name",
                                    "No of Matches in Series",
                                    "No.",
                                    "Other Records",
                                    "Over",
                                    "Place",
                                    "Player",
                                    "Players",
                                    "Rank",
                                    "Record",
                                    "Records",
                                    "Result",
                                    "Results",
                                    "Sample HTML Output",
                                    "Score",
                                    "Second Team",
                                    "Select Database",
                                    "Select Team",
                                    "Semi Final 1",
                                    "Semi Final 2",
                                    "Start Game",
                                    "Team",
                                    "Team 1",
                                    "Team 2",
                                    "Team 3",
                                    "Team 4",
                                    "Team 5",
                                    "Team A",
                                    "Team B",
                                    "Teams",
                                    "The computer answers for you",
                                    "The game stops for",
                                    "The other side",
                                    "Third Team",
                                    "Told to you",
                                    "Total",
                                    "Totals",
                                    "Value",
                                    "Venue",
                                    "What it does",
                                    "Commentary",
                                    "Out",
                                    "Partner",
                                    "Search",
                                    "Wicket",
                                    "Won",
                                    "at",
                                    "vs"};
  return words;
}

/// Teams of the tests, which stand over columns of their own.
const QStringList& team_names() {
  static const QStringList names = {"Bali",      "Cork",   "Essen",   "Harrowmark",  "Hull",     "Marenne",
                                    "Northland", "Orland", "Vestria", "South Isles", "Strangers"};
  return names;
}

QString plain(QString shown) { return spoken_name(shown.remove(QLatin1Char('&'))); }

bool has_letters(const QString& text) {
  static const QRegularExpression letter(QStringLiteral("\\p{L}"));
  return text.contains(letter);
}

/// Values have names of their own; captions have none, but for a few that tests and the window itself look for.
bool is_caption(const QLabel& label) {
  static const QRegularExpression named(QStringLiteral("^(heading_\\d|.*_caption)$"));
  const QString& name = label.objectName();
  return name.isEmpty() || label.buddy() != nullptr || named.match(name).hasMatch();
}

/// What is shown is a term and its tooltip tells the meaning, or it is a plain word. Returns whether it is a term.
bool check_term(const QString& shown, const QString& tooltip, const QString& meaning) {
  if (!has_letters(shown)) return false;
  if (meaning.isEmpty()) {
    EXPECT_TRUE(plain_words().contains(plain(shown)) || team_names().contains(shown))
        << "neither a term nor a plain word: " << shown.toStdString();
    return false;
  }
  EXPECT_FALSE(plain_words().contains(plain(shown))) << "a term and a plain word: " << shown.toStdString();
  EXPECT_TRUE(tooltip.contains(meaning)) << shown.toStdString() << " has the tooltip \"" << tooltip.toStdString()
                                         << '"';
  return true;
}

int check_headings(const TableView& view) {
  int terms = 0;
  const QAbstractItemModel& model = *view.model();
  for (int column = 0; column < model.columnCount(); ++column) {
    const auto told = [&](int role) { return model.headerData(column, Qt::Horizontal, role).toString(); };
    const QString spoken = view.table().columns[static_cast<std::size_t>(column)].spoken;
    const QString meaning = meaning_of(spoken).isEmpty() ? meaning_of(told(Qt::DisplayRole)) : meaning_of(spoken);
    EXPECT_EQ(told(Qt::AccessibleDescriptionRole), meaning);
    terms += check_term(told(Qt::DisplayRole), told(Qt::ToolTipRole), meaning) ? 1 : 0;
  }
  return terms;
}

}  // namespace

int check_terms(QWidget& window) {
  SCOPED_TRACE(window.objectName().toStdString());
  int terms = 0;
  for (const auto* view : window.findChildren<TableView*>()) terms += check_headings(*view);
  for (auto* label : window.findChildren<QLabel*>()) {
    if (!is_caption(*label)) continue;
    // Over a bowler's figures M is short for another word than in the lists of records.
    const QString word = label->text() == QLatin1String("M") ? QStringLiteral("Maidens") : label->text();
    const bool term = check_term(label->text(), label->toolTip(), meaning_of(word));
    terms += term ? 1 : 0;
    if (!term || !label->accessibleName().isEmpty()) continue;
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(label);
    EXPECT_EQ(plain(spoken->text(QAccessible::Name)), plain(label->text()));
  }
  return terms;
}

}  // namespace velorin::testing
