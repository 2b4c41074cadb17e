// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/console_window.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QElapsedTimer>
#include <QFontMetrics>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <QTimer>
#include <map>
#include <set>

#include "console/commentary_rows.h"
#include "desktop/crest.h"
#include "desktop/enlarged.h"
#include "desktop/level_segments.h"
#include "desktop/photo_view.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "desktop/team_colors.h"
#include "desktop/theme.h"
#include "engine/ball_odds.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_fixture.h"
#include "engine/forms/over_chips.h"
#include "engine/over_play.h"
#include "engine/play_steps.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/texts.h"
#include "support/deliveries.h"
#include "support/game_in_play.h"
#include "support/sample_match.h"
#include "support/scripted_user.h"
#include "windows/layout_checks.h"
#include "windows/robot.h"
#include "windows/window_checks.h"

namespace velorin::testing {
namespace {

TEST_F(ConsoleWindowTest, PassesTheChecksAtTheStart) {
  ConsoleWindow& window = open(false, false);
  window.resize(1280, 800);
  check_window_at_sizes(window);
  take_picture(window, "console_start");
  EXPECT_EQ(text("score"), "0/0");
  EXPECT_EQ(text("overs"), "0.0 Overs");
  EXPECT_EQ(text("time_of_day"), "10:30");
  EXPECT_FALSE(control<QScrollBar>(window, "past_overs")->isEnabled());
}

TEST_F(ConsoleWindowTest, PassesTheChecksInBothInnings) {
  ConsoleWindow& window = open(false, true);
  window.resize(1280, 800);
  for (int over = 0; over < 30; ++over) press(window, "next_over");
  take_picture(window, "console_first_innings");
  check_window_at_sizes(window);
  while (match.first_total == 0) press(window, "next_over");
  take_picture(window, "console_between_innings");
  EXPECT_EQ(text("rate_cell_0"), QString::number(match.first_total + 1));
  EXPECT_EQ(text("rate_cell_1"), "50.0 (300b)");
  EXPECT_EQ(text("rate_cell_2"), "-");
  EXPECT_EQ(text("rate_cell_3"), "-");
  EXPECT_EQ(text("rate_cell_4"), "10");
  EXPECT_EQ(text("last_five_overs"), "-");
  for (int over = 0; over < 12; ++over) press(window, "next_over");
  window.resize(1280, 800);
  take_picture(window, "console_chase");
  check_window_at_sizes(window);
  EXPECT_TRUE(control<QLabel>(window, "target")->isVisible());
  EXPECT_EQ(text("target"), QStringLiteral("Target %1").arg(match.first_total + 1));
  window.resize(1920, 1080);
  take_picture(window, "console_large");
}

TEST_F(ConsoleWindowTest, OpenedOnAMatchLeftWithinAnOverGoesOnWithIt) {
  set_up_sample_match(false, true);
  open_console(in_play());
  match.next_step = play_step::over_begins;
  while (match.deliveries.size() < 3) take_step(in_play());
  ASSERT_EQ(match.over_no, 1);
  ConsoleWindow window(match, data, form_);
  user.window = &window;
  window.show();
  EXPECT_TRUE(QTest::qWaitFor([] { return match.next_step == play_step::between_overs; }));
  user.window = nullptr;
  EXPECT_EQ(match.over_no, 2);
  EXPECT_GE(match.deliveries.size(), 6U);
}

TEST_F(ConsoleWindowTest, AnswersOfTheLevelsFitTheirSegments) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  const QFontMetrics type(type_font(TypeStep::small));
  for (const QSize size : {QSize(960, 540), QSize(1024, 768), QSize(1280, 800), QSize(1920, 1080), QSize(3840, 2160)}) {
    window.resize(size);
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
    int answers = 0;
    for (const LevelSegment* segment : window.findChildren<LevelSegment*>()) {
      SCOPED_TRACE(segment->objectName().toStdString() + " at " + std::to_string(size.width()));
      const QString answer = segment->shown_answer();
      EXPECT_FALSE(answer.isEmpty());
      EXPECT_LT(type.horizontalAdvance(answer), segment->width()) << answer.toStdString();
      EXPECT_TRUE(size.width() < 1024 || answer.contains(QChar(0x00B7))) << "both figures";
      ++answers;
    }
    EXPECT_EQ(answers, 20);
  }
}

TEST_F(ConsoleWindowTest, NothingScrollsAtAnySize) {
  ConsoleWindow& window = open(false, true);
  for (const bool chase : {false, true}) {
    while (chase && match.first_total == 0) press(window, "next_over");
    for (int over = 0; over < 12; ++over) press(window, "next_over");
    // What a full screen of 1920 x 1080 at 200 % leaves, and others, without the bar of the main window.
    for (const QSize size : {QSize(960, 494), QSize(1024, 722), QSize(1280, 754), QSize(1920, 1034), QSize(2560, 1394),
                             QSize(3840, 2114), QSize(960, 494)}) {
      SCOPED_TRACE(std::to_string(size.width()) + (chase ? " in the chase" : " in the first innings"));
      window.resize(size);
      for (int round = 0; round < 6; ++round) QApplication::processEvents();
      if (control<QPushButton>(window, "choose_attack")->isVisible()) press(window, "choose_attack");
      for (const auto* area : window.findChildren<QScrollArea*>()) {
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0);
        EXPECT_EQ(area->verticalScrollBar()->maximum(), 0);
      }
      check_controls(window);
      for (const auto* row : window.findChildren<AttackRow*>()) {
        EXPECT_FALSE(row->isVisible() && row->shown_name().contains(QChar(0x2026))) << row->shown_name().toStdString();
      }
    }
  }
}

TEST_F(ConsoleWindowTest, ALargeWindowIsDrawnLarger) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  const auto look = [&](QSize size) {
    window.resize(size);
    for (int round = 0; round < 6; ++round) QApplication::processEvents();
  };
  const double usual = type_font(TypeStep::score).pointSizeF();
  for (const auto& [size, factor] : {std::pair(QSize(1920, 1034), 1.0), std::pair(QSize(2560, 1394), 1.25),
                                     std::pair(QSize(3840, 2114), 2.0), std::pair(QSize(1280, 754), 1.0)}) {
    look(size);
    SCOPED_TRACE(size.width());
    EXPECT_EQ(enlargement(*control<QWidget>(window, "batsman_0")), factor);
    EXPECT_EQ(control<QLabel>(window, "score")->font().pointSizeF(), usual * factor);
    EXPECT_EQ(control<QPushButton>(window, "next_over")->font().pointSizeF(),
              type_font(TypeStep::body).pointSizeF() * factor);
    EXPECT_GE(control<QWidget>(window, "batsman_photo_0")->height(), 70 * factor);
    EXPECT_GE(control<QWidget>(window, "batsman_level_0_1")->height(), 36 * factor);
  }
}

TEST(CommentaryNames, AreShortenedAndNeverCut) {
  commentary_row row;
  row.bowler = "B.F.Micklewright";
  row.batsman = "D.L.Wolstenholme";
  const QFontMetrics type(type_font(TypeStep::body));
  std::set<QString> forms;
  for (int width = 400; width >= 120; --width) {
    const QString names = fitting_names(row, type, width);
    EXPECT_LE(type.horizontalAdvance(names), width);
    forms.insert(names);
  }
  const std::set<QString> wanted = {"B.F.Micklewright to D.L.Wolstenholme", "B.F.Mick'ht to D.L.Wolstenholme",
                                    "B.F.Mick'ht to D.L.Wols'me", "D.L.Wolstenholme"};
  EXPECT_EQ(forms, wanted);
}

TEST_F(ConsoleWindowTest, AnOverShowsItsBallsAndMovesTheBrowser) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  const QStringList first = control<OverChips>(window, "over_symbols")->symbols();
  ASSERT_EQ(first.size(), 6);
  EXPECT_EQ(match.over_no, 2);
  press(window, "next_over");
  auto* browser = control<QScrollBar>(window, "past_overs");
  EXPECT_EQ(browser->maximum(), 2);
  EXPECT_EQ(browser->value(), 2);
  EXPECT_EQ(text("over_title"), "Over 2");
  press(window, "over_before");
  EXPECT_EQ(text("over_title"), "Over 1");
  EXPECT_EQ(control<OverChips>(window, "over_symbols")->symbols(), first);
  EXPECT_EQ(text("over_bowler").toStdString(), bowler_of_over(match, 1));
  EXPECT_EQ(match.browsed_over, 1);
}

TEST_F(ConsoleWindowTest, AComputersSideHasItsControlsDisabled) {
  ConsoleWindow& batting = open(false, true);
  EXPECT_TRUE(control<QPushButton>(batting, "batsman_aggression_0")->isEnabled());
  EXPECT_TRUE(control<QPushButton>(batting, "batsman_aggression_1")->isEnabled());
  for (const char* name : {"change_bowler", "bowler_aggression_0", "bowler_aggression_1"}) {
    EXPECT_FALSE(control<QPushButton>(batting, name)->isEnabled()) << name;
  }
  ConsoleWindow& bowling = open(true, false);
  EXPECT_FALSE(control<QPushButton>(bowling, "batsman_aggression_0")->isEnabled());
  for (const char* name : {"change_bowler", "bowler_aggression_0", "bowler_aggression_1"}) {
    EXPECT_TRUE(control<QPushButton>(bowling, name)->isEnabled()) << name;
  }
}

TEST_F(ConsoleWindowTest, ButtonsAskForTheirForms) {
  ConsoleWindow& window = open(false, false);
  user.requests.clear();
  for (const char* name : {"batsman_aggression_0", "batsman_aggression_1", "bowler_aggression_0", "bowler_aggression_1",
                           "change_bowler", "show_scorecard", "show_worm", "show_overs_graph"}) {
    press(window, name);
  }
  const std::vector<std::string> expected = {"aggr " + match.batting_card[1].name + " ",
                                             "aggr " + match.batting_card[2].name + " ",
                                             "aggr " + match.bowling_card[match.bowler].name + " ",
                                             "aggr " + match.bowling_card[match.next_bowler].name + " ",
                                             "chgbowler Change Bowler",
                                             "report 0",
                                             "report 7",
                                             "report 6"};
  EXPECT_EQ(user.requests, expected);
}

TEST_F(ConsoleWindowTest, ReturnPressesTheButtonReachedByTab) {
  ConsoleWindow& window = open(false, true);
  user.requests.clear();
  auto* card = control<QPushButton>(window, "show_scorecard");
  QTest::mouseClick(card, Qt::LeftButton);
  EXPECT_EQ(user.requests_of("report").size(), 1U);
  QTest::keyClick(window.focusWidget(), Qt::Key_Return);
  EXPECT_EQ(match.over_no, 2) << "a click leaves the keyboard with Next Over";
  card->setFocus(Qt::TabFocusReason);
  QTest::keyClick(card, Qt::Key_Return);
  EXPECT_EQ(user.requests_of("report").size(), 2U);
  EXPECT_EQ(match.over_no, 2);
}

TEST_F(ConsoleWindowTest, KeysBowlAnOver) {
  ConsoleWindow& window = open(false, true);
  QTest::keyClick(&window, Qt::Key_Return);
  EXPECT_EQ(match.over_no, 2);
  QTest::keyClick(&window, Qt::Key_N);
  EXPECT_EQ(match.over_no, 3);
  QTest::keyClick(&window, Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([] { return match.over_no == 4; }));
}

TEST_F(ConsoleWindowTest, WhileAnOverRunsOnlyPaceAndEscapeReact) {
  ConsoleWindow& window = open(false, true);
  preferences::set_pace(Pace::ball_by_ball);
  int pressed = 0;
  QTimer::singleShot(0, &window, [&] {
    EXPECT_TRUE(window.playing());
    QTest::mouseClick(control<QPushButton>(window, "next_over"), Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(window, "show_scorecard"), Qt::LeftButton);
    QTest::keyClick(&window, Qt::Key_S);
    press(window, "next_over");
    EXPECT_EQ(user.balls_bowled, 1);
    EXPECT_TRUE(user.requests_of("report").empty());
    ++pressed;
    QTest::keyClick(&window, Qt::Key_Escape);
  });
  QElapsedTimer clock;
  clock.start();
  press(window, "next_over");
  EXPECT_EQ(pressed, 1);
  EXPECT_EQ(match.over_no, 2);
  EXPECT_LT(clock.elapsed(), 3000) << "Escape did not finish the over";
  EXPECT_FALSE(window.playing());
}

TEST_F(ConsoleWindowTest, ThePaceCanBeChangedInTheMiddleOfAnOver) {
  ConsoleWindow& window = open(false, true);
  preferences::set_pace(Pace::ball_by_ball);
  QTimer::singleShot(0, &window,
                     [&] { QTest::mouseClick(control<QPushButton>(window, "pace_instant"), Qt::LeftButton); });
  QElapsedTimer clock;
  clock.start();
  press(window, "next_over");
  EXPECT_LT(clock.elapsed(), 3000);
  EXPECT_EQ(match.over_no, 2);
  EXPECT_EQ(preferences::pace(), Pace::instant);
}

TEST_F(ConsoleWindowTest, ThePaceIsChosenByAnAssistiveAction) {
  ConsoleWindow& window = open(false, true);
  QAccessible::queryAccessibleInterface(control<QPushButton>(window, "pace_quick"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_TRUE(control<QPushButton>(window, "pace_quick")->isChecked());
  EXPECT_EQ(preferences::pace(), Pace::quick);
}

TEST_F(ConsoleWindowTest, TitleAndSettledBarsFollowTheChangeOfInnings) {
  ConsoleWindow& window = open(false, false);
  const QString first = QString::fromStdString(match.team1_name + " v " + match.team2_name);
  EXPECT_TRUE(window.windowTitle().startsWith(first));
  const auto settled = [&](int slot) {
    return control<QWidget>(window, slot == 0 ? "settled_meter_0" : "settled_meter_1")->accessibleName();
  };
  for (int over = 0; over < 4; ++over) press(window, "next_over");
  EXPECT_TRUE(settled(0) != "Settled: 0 %" || settled(1) != "Settled: 0 %");
  // The men of the second innings are chosen while the old figures are still in the books.
  int asked = 0;
  user.before_batsman = [&] {
    if (match.first_total == 0) return;
    ++asked;
    window.refresh();
    EXPECT_EQ(settled(0), "Settled: 0 %");
    EXPECT_EQ(settled(1), "Settled: 0 %");
    EXPECT_TRUE(window.windowTitle().startsWith(QString::fromStdString(match.team1_name + " v " + match.team2_name)));
  };
  while (match.first_total == 0) press(window, "next_over");
  user.before_batsman = {};
  EXPECT_GT(asked, 0);
  EXPECT_FALSE(window.windowTitle().startsWith(first));
}

TEST_F(ConsoleWindowTest, TheOutcomeOfEveryBallIsInViewInANarrowList) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 9; ++over) press(window, "next_over");
  auto* list = control<QListView>(window, "commentary");
  list->setMinimumWidth(100);
  list->setFixedWidth(110);
  QTest::qWait(10);
  EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
  // Where the outcome stands, rows of another outcome look different, and those of the same one alike.
  std::map<std::string, QImage> seen;
  int compared = 0;
  list->clearSelection();
  for (const commentary_row& row : view_commentary(match)) {
    const QModelIndex index = list->model()->index(compared++, 0);
    if (row.kind == line_kind::over_end) continue;
    list->scrollTo(index);
    const QRect place = outcome_place(list->visualRect(index), QString::fromStdString(row.symbol));
    EXPECT_TRUE(list->viewport()->rect().contains(place)) << row.lines.front();
    const QImage picture = list->viewport()->grab(place).toImage();
    for (const auto& [symbol, before] : seen) EXPECT_EQ(symbol == row.symbol, before == picture) << symbol;
    seen.emplace(row.symbol, picture);
  }
  EXPECT_EQ(compared, list->model()->rowCount());
  EXPECT_GT(seen.size(), 3U);
  EXPECT_EQ(list->model()->index(0, 0).data(Qt::ToolTipRole), list->model()->index(0, 0).data(Qt::AccessibleTextRole));
}

TEST_F(ConsoleWindowTest, EveryBallIsShownAtAQuickPace) {
  ConsoleWindow& window = open(false, true);
  preferences::set_pace(Pace::quick);
  std::vector<qsizetype> bowled;
  user.on_ball = [&] {
    QTimer::singleShot(0, &window, [&] {
      const QStringList symbols = control<OverChips>(window, "over_symbols")->symbols();
      bowled.push_back(symbols.size() - symbols.count(QString()));
      EXPECT_EQ(text("score"), QStringLiteral("%1/%2").arg(match.score_runs).arg(match.score_wickets));
    });
  };
  press(window, "next_over");
  ASSERT_GE(bowled.size(), 6U);
  EXPECT_TRUE(std::is_sorted(bowled.begin(), bowled.end()));
  EXPECT_EQ(bowled.back(), 6);
}

TEST_F(ConsoleWindowTest, TheCommentaryHoldsEveryLineWithTheNewestInView) {
  ConsoleWindow& window = open(false, true);
  auto* list = control<QListView>(window, "commentary");
  for (int over = 0; over < 8; ++over) press(window, "next_over");
  std::string told;
  std::string copied;
  for (const std::string& line : commentary_lines(match)) told += line + "\n";
  for (int row = 0; row < list->model()->rowCount(); ++row) {
    const QModelIndex index = list->model()->index(row, 0);
    copied += index.data(Qt::UserRole).toString().toStdString() + "\n";
    EXPECT_EQ(index.data(Qt::AccessibleTextRole), index.data(Qt::UserRole)) << "no line here has an ampersand";
  }
  EXPECT_EQ(copied, told);
  EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->currentIndex()).center()));
  EXPECT_EQ(list->currentIndex().row(), list->model()->rowCount() - 1);
  while (match.first_total == 0) press(window, "next_over");
  EXPECT_EQ(list->model()->rowCount(), 0);
}

TEST_F(ConsoleWindowTest, ADoubledAmpersandIsShownAsOne) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  batting_card_rec& out = match.batting_card[match.striker];
  out.how = dismissal::caught_and_bowled;
  out.how_out = " c && b " + match.bowling_card[match.bowler].name;
  match.last_wicket = {match.striker, match.innings_number, match.score_runs};
  match.deliveries.push_back(
      ball_of_wicket(dismissal::caught_and_bowled, {match.bowler, match.striker, match.non_striker}, 0, match.over_no));
  window.refresh();
  EXPECT_TRUE(text("last_wicket").contains(" c & b ")) << text("last_wicket").toStdString();
  const auto* list = control<QListView>(window, "commentary")->model();
  const QModelIndex line = list->index(list->rowCount() - 1, 0);
  EXPECT_TRUE(line.data().toString().contains(" c & b ")) << line.data().toString().toStdString();
  EXPECT_TRUE(line.data(Qt::AccessibleTextRole).toString().contains(" c & b "));
  EXPECT_TRUE(line.data(Qt::UserRole).toString().contains(" c && b ")) << "copied as it is exported";
}

TEST_F(ConsoleWindowTest, TheBrowserOffersTheOversOfThisInningsOnly) {
  ConsoleWindow& window = open(false, true);
  auto* browser = control<QScrollBar>(window, "past_overs");
  while (match.first_total == 0) press(window, "next_over");
  ASSERT_GT(match.browser_maximum, 1) << "the first innings had overs";
  EXPECT_FALSE(browser->isEnabled());
  EXPECT_FALSE(control<QWidget>(window, "over_before")->isEnabled());
  EXPECT_EQ(text("over_title"), QStringLiteral("Last over, %1").arg(shown(short_name(match.team2_name))));
  EXPECT_TRUE(text("last_wicket").startsWith(QStringLiteral("Last wicket, ")));
  EXPECT_EQ(text("over_bowler"), "");
  EXPECT_FALSE(control<QLabel>(window, "stage_overs")->isVisible()) << "no over is there to compare";
  EXPECT_FALSE(control<QLabel>(window, "score_now")->isVisible());
  press(window, "next_over");
  EXPECT_TRUE(control<QLabel>(window, "stage_overs")->isVisible());
  EXPECT_TRUE(browser->isEnabled());
  EXPECT_EQ(browser->maximum(), 1);
  EXPECT_EQ(text("over_title"), "Over 1");
}

TEST_F(ConsoleWindowTest, AButtonNamesTheManWhoHasComeIn) {
  ConsoleWindow& window = open(false, true);
  const auto* button = control<QPushButton>(window, "batsman_aggression_1");
  const QString before = button->text();
  match.batting_card[match.higher_batsman()].name = "N.Newcomer";
  window.refresh();
  EXPECT_EQ(button->text(), before);
  EXPECT_EQ(button->accessibleName(),
            QStringLiteral("Aggression of N.Newcomer: %1 of 5").arg(match.batsman_aggression[1]));
  EXPECT_EQ(control<QPushButton>(window, "batsman_profile_1")->accessibleName(), "Profile of N.Newcomer");
}

TEST_F(ConsoleWindowTest, PicturesAreToldToScreenReaders) {
  ConsoleWindow& window = open(false, true);
  press(window, "next_over");
  for (const char* name : {"batsman_photo_0", "bowler_photo_1", "settled_meter_0", "over_symbols"}) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control<QWidget>(window, name));
    ASSERT_NE(told, nullptr) << name;
    EXPECT_EQ(told->role(), QAccessible::Graphic) << name;
    EXPECT_FALSE(told->text(QAccessible::Name).isEmpty()) << name;
  }
}

TEST_F(ConsoleWindowTest, CrestAndPortraitsAreThoseOfTheSides) {
  ConsoleWindow& window = open(false, true);
  const auto* crest = control<CrestView>(window, "batting_crest");
  EXPECT_EQ(QString::fromStdString(match.team1_name), crest->team());
  const auto shows = [&](const char* photo, const std::string& team) {
    const QImage picture = control<PhotoView>(window, photo)->grab().toImage();
    const QColor cap = team_colors(QString::fromStdString(team)).body;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        if (picture.pixelColor(x, y) == cap) return true;
      }
    }
    return false;
  };
  for (const char* photo : {"batsman_photo_0", "batsman_photo_1", "bowler_photo_0", "bowler_photo_1"}) {
    EXPECT_TRUE(control<PhotoView>(window, photo)->shows_portrait()) << photo;
    EXPECT_EQ(control<PhotoView>(window, photo)->accessibleName(), "No Pic Available") << photo;
  }
  EXPECT_TRUE(shows("batsman_photo_0", match.team1_name));
  EXPECT_FALSE(shows("batsman_photo_0", match.team2_name));
  EXPECT_TRUE(shows("bowler_photo_0", match.team2_name));
  EXPECT_FALSE(shows("bowler_photo_0", match.team1_name));
}

TEST_F(ConsoleWindowTest, TheAttackShowsItsFigures) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 9; ++over) press(window, "next_over");
  const std::vector<attack_row> men = control<AttackList>(window, "attack")->men();
  ASSERT_EQ(men.size(), 10U);
  int overs = 0;
  for (const attack_row& man : men) {
    const bowling_card_rec& card = match.bowling_card[man.position];
    EXPECT_EQ(man.overs, std::to_string(card.balls / 6) + "." + std::to_string(card.balls % 6));
    EXPECT_EQ(man.runs, std::to_string(card.runs));
    EXPECT_EQ(man.wickets, std::to_string(card.wickets));
    EXPECT_EQ(man.overs_left, 10 - card.balls / 6);
    overs += card.balls / 6;
  }
  EXPECT_EQ(overs, 9);
}

/// The row of the attack that shows the man at a position.
AttackRow* row_of(const ConsoleWindow& window, int position) {
  for (auto* row : window.findChildren<AttackRow*>()) {
    if (row->position() == position) return row;
  }
  return nullptr;
}

TEST_F(ConsoleWindowTest, OnePressChangesTheBowler) {
  ConsoleWindow& window = open(true, false);
  for (int over = 0; over < 2; ++over) press(window, "next_over");
  const int wanted = match.bowler != 9 && match.next_bowler != 9 ? 9 : 10;
  EXPECT_FALSE(row_of(window, match.next_bowler)->isEnabled());
  QTest::mouseClick(row_of(window, wanted), Qt::LeftButton);
  EXPECT_EQ(match.bowler, wanted);
  EXPECT_EQ(control<QPushButton>(window, "bowler_profile_0")->text().toStdString(), match.bowling_xi[wanted].name);
  EXPECT_TRUE(row_of(window, wanted)->isChecked());
  const int third = wanted == 9 && match.next_bowler != 10 ? 10 : 11;
  QAccessible::queryAccessibleInterface(row_of(window, third))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(match.bowler, third);
}

TEST_F(ConsoleWindowTest, AComputersAttackCannotBeChosenFrom) {
  ConsoleWindow& window = open(false, true);
  const int bowler = match.bowler;
  for (auto* row : window.findChildren<AttackRow*>()) {
    EXPECT_FALSE(row->isVisible() && row->isEnabled());
    QTest::mouseClick(row, Qt::LeftButton);
  }
  EXPECT_EQ(match.bowler, bowler);
}

TEST_F(ConsoleWindowTest, AggressionIsSetByOnePressOnASegment) {
  ConsoleWindow& window = open(false, false);
  user.requests.clear();
  QTest::mouseClick(control<QRadioButton>(window, "batsman_level_0_5"), Qt::LeftButton);
  QTest::mouseClick(control<QRadioButton>(window, "bowler_level_1_1"), Qt::LeftButton);
  EXPECT_EQ(match.batsman_aggression[0], 5);
  EXPECT_EQ(match.bowling_aggression[1], 1);
  EXPECT_TRUE(user.requests.empty()) << "nobody is asked";
  EXPECT_EQ(control<QPushButton>(window, "batsman_aggression_0")->accessibleName().toStdString(),
            "Aggression of " + match.batting_card[1].name + ": 5 of 5");
  QAccessible::queryAccessibleInterface(control<QRadioButton>(window, "batsman_level_1_4"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(match.batsman_aggression[1], 4);
  auto* chosen = control<QRadioButton>(window, "batsman_level_1_4");
  chosen->setFocus(Qt::TabFocusReason);
  QTest::keyClick(chosen, Qt::Key_Left);
  EXPECT_EQ(match.batsman_aggression[1], 3);
  EXPECT_TRUE(control<QRadioButton>(window, "batsman_level_1_3")->isChecked());
}

TEST_F(ConsoleWindowTest, TheSegmentsOfAComputersSideAreDead) {
  ConsoleWindow& window = open(false, true);
  const auto before = match.bowling_aggression;
  for (int level = 1; level <= 5; ++level) {
    auto* segment = control<QRadioButton>(window, ("bowler_level_0_" + std::to_string(level)).c_str());
    EXPECT_FALSE(segment->isEnabled());
    QTest::mouseClick(segment, Qt::LeftButton);
  }
  EXPECT_EQ(match.bowling_aggression, before);
}

TEST_F(ConsoleWindowTest, EachSegmentTellsTheModelsAnswer) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 6; ++over) press(window, "next_over");
  for (int slot = 0; slot < 2; ++slot) {
    const aggression_odds odds = batting_odds(match, slot);
    for (int level = 1; level <= 5; ++level) {
      const std::string name = "batsman_level_" + std::to_string(slot) + "_" + std::to_string(level);
      const std::string sentence =
          std::to_string(level) + ": " + odds_sentence(odds[static_cast<std::size_t>(level - 1)]);
      const auto* segment = control<QRadioButton>(window, name.c_str());
      EXPECT_EQ(segment->toolTip().toStdString(), sentence);
      EXPECT_TRUE(segment->accessibleName().toStdString().ends_with(sentence));
      EXPECT_NE(sentence.find("an over, a wicket every"), std::string::npos);
    }
  }
  EXPECT_TRUE(text("settled_worth_0").startsWith("Settled ")) << text("settled_worth_0").toStdString();
  EXPECT_TRUE(text("settled_worth_0").endsWith(" an over"));
}

TEST_F(ConsoleWindowTest, WhileAnOverRunsNothingIsSetInPlace) {
  ConsoleWindow& window = open(false, false);
  preferences::set_pace(Pace::quick);
  const int level = match.batsman_aggression[0] == 5 ? 4 : 5;
  int tried = 0;
  QTimer::singleShot(0, &window, [&] {
    ASSERT_TRUE(window.playing());
    auto* segment = control<QRadioButton>(window, ("batsman_level_0_" + std::to_string(level)).c_str());
    QTest::mouseClick(segment, Qt::LeftButton);
    segment->toggle();
    EXPECT_NE(match.batsman_aggression[0], level);
    EXPECT_FALSE(segment->isChecked()) << "it shows what is in use";
    ++tried;
  });
  press(window, "next_over");
  EXPECT_EQ(tried, 1);
}

TEST_F(ConsoleWindowTest, ChartsAndStripFollowTheMatch) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 3; ++over) press(window, "next_over");
  for (const char* name : {"runs_chart", "score_chart", "rates_chart", "last_overs", "batsman_balls_0"}) {
    QAccessibleInterface* told = QAccessible::queryAccessibleInterface(control<QWidget>(window, name));
    ASSERT_NE(told, nullptr) << name;
    EXPECT_EQ(told->role(), QAccessible::Graphic) << name;
  }
  EXPECT_TRUE(control<QWidget>(window, "score_chart")
                  ->accessibleDescription()
                  .endsWith(QStringLiteral("after 3 overs: %1 runs").arg(match.score_runs)));
  EXPECT_TRUE(control<QWidget>(window, "last_overs")->accessibleName().contains("over 3, "));
  QTest::mouseClick(control<QWidget>(window, "last_overs"), Qt::LeftButton, {}, QPoint(5, 20));
  EXPECT_EQ(text("over_title"), "Over 1");
}

/// Layouts within layouts take a round each.
void settle() {
  for (int round = 0; round < 8; ++round) QApplication::processEvents();
}

TEST_F(ConsoleWindowTest, PanelsShareTheHeightInEverySizeAfterEveryOther) {
  ConsoleWindow& window = open(false, true);
  const QSize sizes[] = {{1024, 768}, {1280, 800}, {1920, 1080}, {2560, 1440}, {3840, 2160}};
  for (int over = 0; over < 6; ++over) press(window, "next_over");
  for (const QSize before : sizes) {
    for (const QSize size : sizes) {
      for (const QSize each : {before, size}) {
        window.resize(each);
        settle();
      }
      SCOPED_TRACE(std::to_string(size.width()) + " after " + std::to_string(before.width()));
      check_layout(window);
    }
    press(window, "next_over");
  }
}

TEST_F(ConsoleWindowTest, WiderWindowsHaveMoreColumns) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 12; ++over) press(window, "next_over");
  window.resize(1280, 800);
  settle();
  EXPECT_TRUE(control<QWidget>(window, "attack")->isVisible());
  EXPECT_FALSE(control<QWidget>(window, "batting_so_far")->isVisible());
  press(window, "choose_batting");
  EXPECT_TRUE(control<QWidget>(window, "batting_so_far")->isVisible());
  EXPECT_FALSE(control<QWidget>(window, "attack")->isVisible());
  for (const QSize size : {QSize(1024, 768), QSize(1920, 1080), QSize(3440, 1440), QSize(3840, 2160)}) {
    window.resize(size);
    settle();
    SCOPED_TRACE(size.width());
    check_window(window);
    take_picture(window, qPrintable(QStringLiteral("console_%1").arg(size.width())));
    EXPECT_EQ(control<QWidget>(window, "attack")->isVisible(), size.width() > 1600);
    const auto* list = control<QListView>(window, "commentary");
    EXPECT_TRUE(list->viewport()->rect().contains(list->visualRect(list->currentIndex()))) << "the newest row";
    EXPECT_TRUE(control<QWidget>(window, "batting_so_far")->isVisible());
  }
}

TEST_F(ConsoleWindowTest, TheLastBallClosesTheConsole) {
  ConsoleWindow& window = open(false, true);
  for (int over = 0; over < 120 && window.isVisible(); ++over) press(window, "next_over");
  EXPECT_FALSE(window.isVisible());
  EXPECT_TRUE(form_.closed());
}

TEST_F(ConsoleWindowTest, TheCloseBoxAsksFirst) {
  ConsoleWindow& window = open(false, true);
  Robot robot;
  robot.next("quit_question", pressing("no"));
  window.close();
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(program_is_ending());
  EXPECT_EQ(robot.left(), 0);
}

TEST_F(ConsoleWindowTest, QuitAsksAndEndsTheProgram) {
  ConsoleWindow& window = open(false, true);
  press_and_answer(window, "quit", "quit_question", "no");
  EXPECT_TRUE(window.isVisible());
  EXPECT_FALSE(program_is_ending());
  press_and_answer(window, "quit", "quit_question", "yes");
  EXPECT_TRUE(program_is_ending());
  begin_again();
}

TEST_F(ConsoleWindowTest, QuitStandsApartFromTheReports) {
  ConsoleWindow& window = open(false, true);
  const QRect quit = control<QPushButton>(window, "quit")->geometry();
  for (const char* report : {"show_scorecard", "show_worm", "show_overs_graph", "change_bowler"}) {
    const QRect other = control<QPushButton>(window, report)->geometry();
    EXPECT_GE(other.left() - quit.right(), 40) << report;
  }
}

}  // namespace
}  // namespace velorin::testing
