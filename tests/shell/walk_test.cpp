// SPDX-License-Identifier: GPL-3.0-or-later
// Walks through every page of the game, by mouse, by keyboard and by the actions of assistive technology.
#include <QApplication>
#include <QLabel>
#include <QPointer>
#include <QRadioButton>
#include <QTest>
#include <optional>

#include "browsers/record_lists.h"
#include "console/console_view.h"
#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/hint.h"
#include "desktop/message_kinds.h"
#include "desktop/moment.h"
#include "desktop/preferences.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "model/random.h"
#include "shell/filled_careers.h"
#include "shell/walk.h"
#include "support/failing_disk.h"
#include "support/game_in_play.h"
#include "windows/layout_checks.h"

namespace velorin::testing {
namespace {

class WalkThroughPages : public Walk {
 protected:
  void match_and_reports(Way way);
  void practice_and_keeping(Way way);
  void competitions(Way way);
  void records_and_settings(Way way);
  void guide_and_moments(Way way);

 private:
  void enter_match(bool practice);
  void open_reports(QWidget& console);
  void leave_and_return(QWidget& console);
};

void WalkThroughPages::enter_match(bool practice) {
  robot().next("teamfrm", [this, practice](QWidget& form) {
    hand().press(form, "first_human");
    hand().press(form, "second_human");
    if (practice) hand().press(form, "practice");
    hand().press(form, "accept");
  });
}

void WalkThroughPages::open_reports(QWidget& console) {
  for (const char* name : {"batsman_aggression_0", "bowler_aggression_0", "change_bowler", "show_worm",
                           "show_overs_graph", "batsman_profile_0"}) {
    hand().press(console, name);
  }
  robot().next("scorecard", [this](QWidget& card) {
    for (const char* name : {"batting_name_1", "show_first_innings", "show_bowling", "show_partnerships",
                             "show_overs_graph", "show_worm_graph", "accept"}) {
      auto* button = control<QAbstractButton>(card, name);
      if (button->isEnabled()) hand().press(*button);
    }
  });
  if (match.first_total != 0) {
    robot().next("scorecard2", [this](QWidget& card) {
      for (const char* name : {"show_bowling", "show_partnerships", "accept"}) hand().press(card, name);
    });
  }
  hand().press(console, "show_scorecard");
  QTest::keyClick(console.window()->windowHandle(), Qt::Key_F1);
}

void WalkThroughPages::match_and_reports(Way way) {
  begin(way);
  enter_match(false);
  robot().next("wecond", [this](QWidget& form) {
    robot().next("leave_question", [this](QWidget& question) { hand().press(question, "no"); });
    QTest::keyClick(form.window()->windowHandle(), Qt::Key_Escape);
    hand().press(form, "accept");
  });
  int overs = 0;
  robot().always("main", [&](QWidget& console) {
    if (match.over_no == 1) overs = 0;
    ++overs;
    if (overs == 2) open_reports(console);
    if (overs == 3 && match.first_total != 0) {
      for (const message_kind kind : passing_kinds()) preferences::set_stops_for(kind, false);
    }
    if (overs == 3) return hand().take_entry(console, "play_to", "skip_innings");
    hand().press(console, "next_over");
  });
  robot().next("matchrep", [this](QWidget& report) {
    hand().open_row(report, "batting_1", 1);
    hand().press(report, "accept");
  });
  walk([&](MenuWindow& menu) {
    look_at(menu);
    choose_by_hand(menu, "start_game", "new_match");
  });
  expect_seen({"teamfrm",   "wecond",     "leave_question", "Teamsel",  "toss",        "batorder",
               "chgbowler", "main",       "main 2",         "aggr",     "message",     "help",
               "scorecard", "scorecard2", "batsmandetails", "Bowlcard", "bowlcard2nd", "partners",
               "partners2", "graphs",     "worms",          "matchrep", "Sqdet"});
  EXPECT_FALSE(match.result_margin.empty());
}

void WalkThroughPages::leave_and_return(QWidget& console) {
  robot().next("game_name", [this](QWidget& form) {
    const QString score = control<QLabel>(*form.window(), "frame_score")->text();
    EXPECT_TRUE(score.contains(shown(view_score(match).overs))) << score.toStdString();
    hand().write(form, "name", QStringLiteral("A fine evening"));
    hand().press(form, "accept");
  });
  hand().press(of_bar(console, "save_game"));
  hand().press(of_bar(console, "tear_off"));
  look_at_torn(console);
  hand().press(console, "put_back");
  robot().next("keep_question", [this](QWidget& question) { hand().press(question, "stay"); });
  hand().press(console, "quit");
}

void WalkThroughPages::practice_and_keeping(Way way) {
  chance.use_clock();  // as a game needs that is kept
  begin(way);
  enter_match(true);
  int visits = 0;
  robot().always("main", [&](QWidget& console) {
    if (++visits == 2) {
      leave_and_return(console);
      hand().take_entry(console, "take_back", "take_back_over_fresh");
    }
    if (visits == 4) return hand().take_entry(console, "play_to", "skip_innings");
    if (match.first_total != 0 && visits > 6) {
      robot().next("keep_question", [this](QWidget& question) { hand().press(question, "keep"); });
      return hand().press(console, "quit");
    }
    hand().press(console, "next_over");
  });
  walk([&](MenuWindow& menu) { choose_by_hand(menu, "start_game", "new_match"); });
  match = {};
  begin(way);
  robot().next("savedgames", [this](QWidget& games) {
    robot().next("game_name", [this](QWidget& form) { hand().press(form, "cancel"); });
    hand().press(games, "rename_game");
    robot().next("delete_question", [this](QWidget& question) { hand().press(question, "no"); });
    hand().press(games, "delete_game");
    hand().press(games, "watch");
  });
  robot().next("savedgames", [this](QWidget& games) { hand().press(games, "close"); });
  robot().next("watch", [this](QWidget& console) {
    // How far it goes and whether a wicket falls is chance's.
    for (const char* name : {"over_on", "next_wicket", "ball_back", "innings_end", "innings_1", "close"}) {
      auto* button = control<QAbstractButton>(console, name);
      if (button->isEnabled()) hand().press(*button);
    }
  });
  walk([&](MenuWindow& menu) {
    look_at(menu);
    hand().press(menu, "saved_games");
  });
  expect_seen({"teamfrm", "main", "game_name", "torn off", "keep_question", "savedgames", "delete_question", "watch"});
}

void WalkThroughPages::competitions(Way way) {
  database_.add_team("Kestle");
  database_.write();
  begin_again_with_seed(1);
  begin(way);
  std::optional<small_disk> full;
  robot().next("series1", [&](QWidget& form) {
    hand().write(form, "matches", QStringLiteral("2"));
    full.emplace(20'000);
    hand().press(form, "accept");
  });
  robot().always("save_failed", [&](QWidget& form) {
    full.reset();
    hand().press(form, "retry");
  });
  robot().next("sri_result", [this](QWidget& form) {
    hand().open_row(form, "results", 0);
    hand().press(form, "accept");
  });
  preferences::set_plays_without_stopping(QStringLiteral("series2"), true);
  robot().next("series2", [this](QWidget& form) { hand().press(form, "accept"); });
  robot().next("wctable", [this](QWidget& form) {
    hand().choose(form, "host_0", 11);
    hand().choose(form, "host_1", 1);
    robot().next("grounds_question", [this](QWidget& question) { hand().press(question, "no"); });
    hand().press(form, "accept");
    hand().choose(form, "host_0", 1);
    hand().press(form, "accept");
  });
  int lists = 0;
  robot().always("wc_fix", [&](QWidget& form) {
    if (++lists == 1) return hand().press(form, "accept");
    robot().next("quit_question", [this](QWidget& question) { hand().press(question, "yes"); });
    hand().press(form, "quit");
  });
  walk([&](MenuWindow& menu) {
    for (const char* entry : {"new_series", "tri_series", "world_cup"}) choose_by_hand(menu, "start_game", entry);
  });
  expect_seen({"series1", "save_failed", "sri_result", "matchrep", "series2", "unstopped", "triserresult", "wctable",
               "grounds_question", "wc_fix", "quit_question", "wcsstab", "Progressbar"});
}

void WalkThroughPages::records_and_settings(Way way) {
  fill_careers();
  begin(way);
  robot().next("quick", [this](QWidget& form) { hand().press(form, "cancel"); });
  robot().next("jump", [this](QWidget& form) { hand().press(form, "cancel"); });
  robot().next("reclists", [this](QWidget& form) {
    for (const record_list& list : every_record_list) {
      const std::string key = std::string(list.form) + "_" + std::to_string(list.record_mode);
      hand().press(form, ("list_" + key).c_str());
      look_at(form);
    }
    hand().press(form, "accept");
  });
  robot().next("teamdet", [this](QWidget& form) {
    auto* teams = control<QComboBox>(form, "teams");
    teams->setCurrentIndex(0);
    emit teams->activated(0);
    hand().press(form, "page");
    hand().press(form, "accept");
  });
  robot().next("optfrm", [this](QWidget& form) {
    robot().next("anew_question", [this](QWidget& question) { hand().press(question, "no"); });
    for (const char* name : {"begin_anew", "messages", "captaincy", "accept"}) hand().press(form, name);
  });
  walk([&](MenuWindow& menu) {
    hand().press(menu, "quick_match");
    QTest::keyClick(menu.window()->windowHandle(), Qt::Key_K, Qt::ControlModifier);
    choose_by_hand(menu, "batting_stats", "highest_totals");
    for (const char* entry : {"player_profiles", "team_records", "world_rankings", "record_book"}) {
      choose_by_hand(menu, "other_records", entry);
    }
    hand().press(menu, "configurations");
    hand().press(menu, "credits");
  });
  expect_seen({"quick", "jump", "reclists", "Sqdet", "teamdet", "recbook", "archpage", "optfrm", "messages",
               "captaincy", "anew_question", "frmAbout"});
}

void WalkThroughPages::guide_and_moments(Way way) {
  begin(way);
  preferences::set_guide_offered(false);
  preferences::set_moments(true);
  robot().next("guide_question", [this](QWidget& question) { hand().press(question, "yes"); });
  int hints = 0;
  const auto read_hints = [&](QWidget& form) {
    for (int round = 0; round < 6; ++round) QApplication::processEvents();
    while (const QPointer<Hint> hint = form.window()->findChild<Hint*>()) {
      ++hints;
      look_at(form);
      check_painted_texts(*hint);
      hand().press(*hint, "got_it");
      if (hint) QCoreApplication::sendPostedEvents(hint, QEvent::DeferredDelete);
    }
  };
  robot().always("quick", [&](QWidget& form) {
    read_hints(form);
    hand().press(form, "accept");
  });
  int visits = 0;
  robot().always("main", [&](QWidget& console) {
    read_hints(console);
    if (++visits == 4) return hand().take_entry(console, "play_to", "skip_innings");
    hand().press(console, "next_over");
  });
  walk([&](MenuWindow& menu) {
    menu.offer_guide();
    celebrate(*menu.window(), MomentKind::champions, QStringLiteral("World Cup winners : Featherstonehaughs United"));
    auto* banner = menu.window()->findChild<QWidget*>(QStringLiteral("moment"), Qt::FindDirectChildrenOnly);
    ASSERT_NE(banner, nullptr);
    for (const QSize size : {QSize(960, 540), QSize(1280, 800)}) {
      menu.window()->resize(size);
      QTest::qWait(300);  // the banner moves in
      EXPECT_EQ(check_painted_texts(*menu.window()) > 0, true);
    }
    end_moment(*menu.window());
  });
  EXPECT_GE(hints, 4);
  expect_seen({"guide_question", "quick", "main"});
}

TEST_F(WalkThroughPages, AMatchByMouse) { match_and_reports(Way::mouse); }
TEST_F(WalkThroughPages, AMatchByKeyboard) { match_and_reports(Way::keyboard); }
TEST_F(WalkThroughPages, AMatchByAssistiveActions) { match_and_reports(Way::assistant); }

TEST_F(WalkThroughPages, PracticeAndKeptGamesByMouse) { practice_and_keeping(Way::mouse); }
TEST_F(WalkThroughPages, PracticeAndKeptGamesByKeyboard) { practice_and_keeping(Way::keyboard); }
TEST_F(WalkThroughPages, PracticeAndKeptGamesByAssistiveActions) { practice_and_keeping(Way::assistant); }

TEST_F(WalkThroughPages, CompetitionsByMouse) { competitions(Way::mouse); }
TEST_F(WalkThroughPages, CompetitionsByKeyboard) { competitions(Way::keyboard); }
TEST_F(WalkThroughPages, CompetitionsByAssistiveActions) { competitions(Way::assistant); }

TEST_F(WalkThroughPages, RecordsAndSettingsByMouse) { records_and_settings(Way::mouse); }
TEST_F(WalkThroughPages, RecordsAndSettingsByKeyboard) { records_and_settings(Way::keyboard); }
TEST_F(WalkThroughPages, RecordsAndSettingsByAssistiveActions) { records_and_settings(Way::assistant); }

TEST_F(WalkThroughPages, TheGuideByMouse) { guide_and_moments(Way::mouse); }
TEST_F(WalkThroughPages, TheGuideByKeyboard) { guide_and_moments(Way::keyboard); }
TEST_F(WalkThroughPages, TheGuideByAssistiveActions) { guide_and_moments(Way::assistant); }

}  // namespace
}  // namespace velorin::testing
