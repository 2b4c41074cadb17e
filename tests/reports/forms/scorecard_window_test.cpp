// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/scorecard_window.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "desktop/table_columns.h"
#include "reports/forms/batting_card_view.h"
#include "reports/forms/first_scorecard_window.h"
#include "reports/forms/played_match.h"
#include "reports/opened.h"
#include "reports/scorecard.h"
#include "support/cards.h"
#include "support/game_in_play.h"
#include "windows/robot.h"
#include "windows/table_reader.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

using ScorecardWindowTest = ReportWindowTest;
using FirstScorecardWindowTest = ReportWindowTest;

std::string named(const char* control, int place) { return std::string(control) + "_" + std::to_string(place); }

QString text_of(const QWidget& window, const std::string& label) {
  const auto* found = control<QLabel>(window, label.c_str());
  return found == nullptr ? QString() : found->text();
}

/// Shows a window to which keys can be sent.
void show_active(QWidget& window) {
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

TableView& batsmen(const QWidget& window) { return *control<TableView>(window, "batsmen"); }

QString shown_text(const QWidget& window, int place, const char* heading) {
  return cell_text(batsmen(window), place, QString::fromLatin1(heading));
}

void expect_card(const QWidget& window, const batting_screen& card) {
  EXPECT_EQ(text_of(window, "batting_side"), shown(card.batting_side));
  EXPECT_EQ(text_of(window, "ground"), shown(card.ground));
  EXPECT_EQ(text_of(window, "total"), shown(card.total));
  EXPECT_EQ(text_of(window, "wickets_and_overs"), shown(card.wickets_and_overs));
  EXPECT_EQ(text_of(window, "run_rate"), shown(card.run_rate));
  EXPECT_EQ(text_of(window, "extras_total"), shown(card.extras_total));
  EXPECT_EQ(text_of(window, "extras_line"), shown(card.extras_line));
  EXPECT_EQ(text_of(window, "not_counted"), shown(card.not_counted));
  for (int i = 1; i <= 11; ++i) {
    SCOPED_TRACE(i);
    const auto place = static_cast<std::size_t>(i);
    const auto* name = control<QPushButton>(window, named("batting_name", i).c_str());
    EXPECT_EQ(name->text(), shown(card.details_buttons[place].caption));
    EXPECT_EQ(name->isVisible(), card.details_buttons[place].visible);
    if (!card.details_buttons[place].visible) {
      EXPECT_EQ(shown_place(batsmen(window), i), -1);
      continue;
    }
    const QString words =
        shown_caption(card.fielders[place]).trimmed() + ' ' + shown_caption(card.how_out[place]).trimmed();
    EXPECT_EQ(shown_text(window, i, "Dismissal"), words.trimmed());
    EXPECT_EQ(shown_text(window, i, "Runs"), shown(card.runs[place]));
    EXPECT_EQ('(' + shown_text(window, i, "Balls") + ')', shown(card.balls_faced[place]));
    EXPECT_EQ(shown_text(window, i, "4s"), shown(card.fours[place]));
    EXPECT_EQ(shown_text(window, i, "6s"), shown(card.sixes[place]));
    EXPECT_EQ(shown_text(window, i, "SR"), shown(card.strike_rates[place]));
  }
}

TEST_F(ScorecardWindowTest, ShowsTheCard) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  window.show();
  expect_card(window, card);
  EXPECT_EQ(text_of(window, "batting_side"), "Northland");
  EXPECT_EQ(control<CrestView>(window, "crest")->team(), "Northland");
  EXPECT_EQ(window.windowTitle(), "Scorecard");
  EXPECT_TRUE(control<QPushButton>(window, "accept")->isDefault());
}

TEST_F(ScorecardWindowTest, BeforeTheFirstBallThereAreTwoMenAndNoRate) {
  match = played_match().no_ball;
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  expect_card(window, card);
  EXPECT_TRUE(control<QPushButton>(window, "batting_name_2")->isVisible());
  EXPECT_FALSE(control<QPushButton>(window, "batting_name_3")->isVisible());
  EXPECT_EQ(text_of(window, "run_rate"), "");
  EXPECT_FALSE(control<QLabel>(window, "rate_caption")->isVisible());
  EXPECT_EQ(shown_text(window, 1, "Dismissal"), "Not Out");
  EXPECT_EQ(batsmen(window).table().rows.size(), 11U) << "nine are to come";
  EXPECT_EQ(batsmen(window).table().rows[10].cells[1].text, "to come");
  QTest::keyClick(&window, Qt::Key_F11);
  EXPECT_TRUE(noting.headlines.empty()) << "the key of a man who has not come in does nothing";
}

TEST_F(ScorecardWindowTest, ALineTellsWhichExtrasTheTotalLeavesOut) {
  match.innings_no_balls = 2;
  match.innings_wides = 7;
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  window.show();
  const auto* line = control<QLabel>(window, "not_counted");
  EXPECT_TRUE(line->isVisible());
  EXPECT_EQ(line->text(), "The total does not count 2 no balls and 7 wides.");
  EXPECT_GT(line->y(), control<QLabel>(window, "extras_line")->y());
  EXPECT_LT(line->y(), control<QLabel>(window, "total")->y());
  check_window_at_sizes(window);
  match.innings_no_balls = match.innings_wides = 0;
  const auto without = opened<scorecard_form>();
  ScorecardWindow silent(in_play(), without);
  silent.show();
  EXPECT_FALSE(control<QLabel>(silent, "not_counted")->isVisible());
}

TEST_F(ScorecardWindowTest, ButtonsBearTheirCaptions) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  const std::pair<const char*, std::string_view> captions[] = {
      {"accept", scorecard_form::ok_caption},
      {"show_bowling", scorecard_form::bowling_caption},
      {"show_first_innings", scorecard_form::first_innings_caption},
      {"show_partnerships", scorecard_form::partnerships_caption},
      {"show_overs_graph", scorecard_form::overs_graph_caption},
      {"save_html", scorecard_form::html_caption},
      {"save_text", scorecard_form::text_caption},
      {"save_ball_by_ball", scorecard_form::ball_by_ball_caption},
      {"show_worm_graph", scorecard_form::worm_graph_caption}};
  for (const auto& [name, caption] : captions) {
    EXPECT_EQ(control<QPushButton>(window, name)->text().remove('&'), shown(caption)) << name;
  }
}

TEST_F(ScorecardWindowTest, ButtonsOpenTheReports) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  window.show();
  for (const char* name :
       {"show_first_innings", "show_bowling", "show_partnerships", "show_overs_graph", "show_worm_graph"})
    press(window, name);
  const std::vector<report> wanted = {report::first_scorecard, report::bowling_card, report::partnerships,
                                      report::overs_graph, report::worm_graph};
  EXPECT_EQ(noting.opened, wanted);
  EXPECT_TRUE(window.isVisible());
}

TEST_F(ScorecardWindowTest, TheFirstInningsOpensOnceItIsOver) {
  match = played_match().first_innings;
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  EXPECT_FALSE(control<QPushButton>(window, "show_first_innings")->isEnabled());
  QTest::keyClick(&window, Qt::Key_I, Qt::AltModifier);
  QTest::keyClick(&window, Qt::Key_P, Qt::AltModifier);
  ASSERT_TRUE(QTest::qWaitFor([&] { return !noting.opened.empty(); }));
  EXPECT_EQ(noting.opened, std::vector<report>{report::partnerships}) << "the first key did nothing";
  match = played_match().second_innings;
  const auto later = opened<scorecard_form>();
  ScorecardWindow second(in_play(), later);
  EXPECT_TRUE(control<QPushButton>(second, "show_first_innings")->isEnabled());
}

TEST_F(ScorecardWindowTest, ANameShowsTheMansDetails) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  press(window, "batting_name_1");
  QTest::keyClick(&window, Qt::Key_F3);
  const std::vector<std::string> wanted = {card.details(1).headline, card.details(3).headline};
  EXPECT_EQ(noting.headlines, wanted);
  EXPECT_EQ(noting.titles, std::vector<std::string>(2, ""));
}

TEST_F(ScorecardWindowTest, AfterAMansDetailsReturnCloses) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  auto* name = control<QPushButton>(window, "batting_name_1");
  name->setFocus(Qt::TabFocusReason);
  QTest::keyClick(name, Qt::Key_Return);
  EXPECT_TRUE(control<QPushButton>(window, "accept")->hasFocus());
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(noting.headlines.size(), 1U);
  EXPECT_FALSE(window.isVisible());
}

TEST_F(ScorecardWindowTest, ANameReadsItsRowOut) {
  put_out(match.batting_card[4], dismissal::caught, "F.Uluila", {2, "B.Okell"});
  match.batting_card[4].runs = 10;
  match.batting_card[4].balls = 8;
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  EXPECT_EQ(control<QPushButton>(window, "batting_name_4")->accessibleName(),
            "D.Moss, c B.Okell, b F.Uluila, 10 runs, 8 balls, details");
  EXPECT_TRUE(control<QPushButton>(window, "batting_name_8")->accessibleName().endsWith("0 runs, 1 ball, details"));
}

TEST_F(ScorecardWindowTest, ADoubledAmpersandIsShownOnceAndKeptInFiles) {
  put_out(match.batting_card[1], dismissal::caught_and_bowled, "F.Uluila", {6, "F.Uluila"});
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  EXPECT_EQ(shown_text(window, 1, "Dismissal"), "c & b F.Uluila");
  const Table table = batting_table(card);
  EXPECT_EQ(table.rows[0].cells[2].text, " c & b F.Uluila");
  EXPECT_TRUE(table_csv(table).contains(" c && b F.Uluila"));
}

TEST_F(ScorecardWindowTest, CopyPutsTheCardOnTheClipboard) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  QTest::keyClick(&window, Qt::Key_C, Qt::ControlModifier);
  const QStringList lines = QGuiApplication::clipboard()->text().split('\n');
  ASSERT_EQ(lines.size(), 1 + 10 + 2 + 1) << "headings, the men who came in, extras, total";
  EXPECT_EQ(lines[0], "Batsman\tFielder\tBowler\tRuns\tBalls");
  EXPECT_EQ(lines[1], QStringList({shown(card.names[1]), shown(card.fielders[1]), shown(card.how_out[1]),
                                   shown(card.runs[1]), shown(card.balls_faced[1])})
                          .join('\t'));
  EXPECT_EQ(lines[12], shown(card.wickets_and_overs) + "\t\t\t" + shown(card.total) + "\t");
}

TEST_F(ScorecardWindowTest, ASortedCardKeepsItsMenAndIsCopiedAsTold) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  show_active(window);
  TableView& table = batsmen(window);
  table.columns().sort(2, Qt::DescendingOrder);
  QCoreApplication::processEvents();
  const Table shown_now = table.shown_table();
  const int best = shown_now.rows.front().id;
  ASSERT_NE(best, 1) << "the first man did not make the most";
  for (const TableRow& row : shown_now.rows) {
    EXPECT_LE(row.cells[2].text.toInt(), shown_now.rows.front().cells[2].text.toInt());
  }
  QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, table.visualRect(table.model()->index(0, 2)).center());
  EXPECT_EQ(noting.headlines, std::vector<std::string>{card.details(best).headline});
  check_window(window);
  QTest::keyClick(&table, Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), table_text(batting_table(card)));
}

TEST_F(ScorecardWindowTest, ARoomyCardIsWrittenLarger) {
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  window.show();
  const auto size = [&] { return control<QPushButton>(window, "batting_name_1")->font().pointSizeF(); };
  window.resize(smallest_screen);
  QCoreApplication::processEvents();
  const double usual = size();
  window.resize(1920, 1080);
  QCoreApplication::processEvents();
  EXPECT_GT(size(), usual);
  check_window(window);
  window.resize(smallest_screen);
  QCoreApplication::processEvents();
  EXPECT_EQ(size(), usual);
  EXPECT_EQ(window.size(), smallest_screen);
}

TEST_F(ScorecardWindowTest, LongNamesFit) {
  match.ground.ground_name = "Northern Memorial Recreation Ground";
  for (int i = 1; i <= 11; ++i) {
    match.batting_card[i].name = "C.Featherstonehaughs";
    put_out(match.batting_card[i], dismissal::run_out, "C.Featherstonehaughs");
    match.batting_card[i].fielder = " st B.Lindqvist-Ramsden";
    match.batting_card[i].runs = 188;
    match.batting_card[i].balls = 188;
  }
  match.score_runs = 1888;
  const auto card = opened<scorecard_form>();
  ScorecardWindow window(in_play(), card);
  window.show();
  take_picture(window, "scorecard-long_names");
  check_window_at_sizes(window);
}

TEST_F(FirstScorecardWindowTest, ShowsTheCard) {
  const auto card = opened<first_scorecard_form>();
  FirstScorecardWindow window(user_in_use(), card);
  window.show();
  expect_card(window, card);
  EXPECT_EQ(text_of(window, "batting_side"), "South Isles");
  EXPECT_EQ(control<CrestView>(window, "crest")->team(), "South Isles");
  EXPECT_TRUE(text_of(window, "wickets_and_overs").startsWith(" ("));
  EXPECT_EQ(control<QPushButton>(window, "show_bowling")->text().remove('&'), "1st Innings Bowling Figures");
  EXPECT_EQ(control<QPushButton>(window, "show_partnerships")->text().remove('&'), "1st Innings Partnerships");
}

TEST_F(FirstScorecardWindowTest, ButtonsOpenTheReportsOfItsInnings) {
  const auto card = opened<first_scorecard_form>();
  FirstScorecardWindow window(user_in_use(), card);
  window.show();
  press(window, "show_bowling");
  press(window, "show_partnerships");
  press(window, "batting_name_11");
  EXPECT_EQ(noting.opened, (std::vector<report>{report::first_bowling_card, report::first_partnerships}));
  EXPECT_EQ(noting.headlines, std::vector<std::string>{card.details(11).headline});
}

}  // namespace
}  // namespace velorin::testing
