// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFileDialog>
#include <QLineEdit>
#include <QScrollBar>
#include <fstream>
#include <iterator>
#include <map>

#include "console/captain_forms.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "reports/export.h"
#include "reports/partnerships.h"
#include "setup/new_match.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"

// A human captain who does more than bowl over after over: he changes aggressions and bowlers, browses past overs,
// opens every report in mid-innings and writes the match in all three forms. The same acts on the core's forms give the
// same books and the same bytes.

namespace velorin::testing {
namespace {

std::string bytes_of(const std::filesystem::path& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// What the captain does before an over, by its number counted over both innings.
bool sets_batsmen(int over) { return over % 9 == 4; }
bool sets_bowlers(int over) { return over % 9 == 6; }
bool changes_bowler(int over) { return over % 7 == 5; }
bool browses(int over) { return over % 5 == 3; }
bool reads_reports(int over) { return over == 17 || over == 63; }

/// The row of the first man who may bowl now and is not bowling.
int other_bowler(const bowler_choice_form& form) {
  for (int row = 1; row <= 11; ++row) {
    if (form.enabled[row] && row != match.bowler && match.bowling_card[row].balls < 60) return row;
  }
  return form.chosen;
}

/// The captain on the core's forms.
class CoreCaptain : public BookkeepingUser {
 public:
  int over = 0;
  bool changing = false;

  using BookkeepingUser::show;
  void show(console_form& form) override {
    while (!form.closed()) {
      ++over;
      if (sets_batsmen(over)) form.change_batsman_aggression(over % 2);
      if (sets_bowlers(over)) form.change_bowler_aggression(over % 2);
      changing = changes_bowler(over);
      if (changing) form.change_bowler();
      changing = false;
      if (browses(over)) form.browse_over(1 + match.browser_maximum / 2);
      if (reads_reports(over)) {
        // Reading the partnerships writes the overs at each fall into the record.
        partnerships_form now(match);
        now.open();
        first_partnerships_form before(match);
        if (match.first_total != 0) before.open();
        books_shown.push_back(books());
      }
      form.bowl_next_over();
    }
  }
  void show(aggression_form& form) override {
    form.aggression = 1 + over % 5;
    form.accept();
  }
  void show(bowler_choice_form& form) override {
    if (!changing) return BookkeepingUser::show(form);
    form.choose(other_bowler(form));
    form.accept();
  }
};

/// Lays down the answers of a batting card read in mid-innings: every report, then the three exports.
void read_everything(ClickingUser& user, const std::filesystem::path& folder, const std::string& stem,
                     bool second_innings) {
  std::vector<const char*> reports = {"show_bowling", "show_partnerships", "show_overs_graph", "show_worm_graph"};
  if (second_innings) reports.push_back("show_first_innings");
  for (const char* report : reports) user.robot.next("scorecard", pressing(report));
  if (second_innings) {
    user.robot.next("scorecard2", pressing("show_bowling"));
    user.robot.next("scorecard2", pressing("show_partnerships"));
  }
  struct Export {
    const char* button;
    const char* ending;
  };
  for (const Export& one :
       {Export{"save_html", ".html"}, Export{"save_text", ".txt"}, Export{"save_ball_by_ball", ".byb.txt"}}) {
    user.robot.next("scorecard", pressing(one.button));
    const QString path = QString::fromStdString((folder / (stem + one.ending)).string());
    user.robot.next("save_file", [path](QWidget& window) {
      auto* dialog = qobject_cast<QFileDialog*>(&window);
      ASSERT_NE(dialog, nullptr);
      dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(path);
      QMetaObject::invokeMethod(dialog, "accept");
    });
  }
}

class CaptainClicking : public GameTest {
 protected:
  /// Lays down the captain's acts on the console, one after the other before each over.
  void captain(ClickingUser& user) {
    user.robot.always("main", [this, &user](QWidget& window) {
      if (steps_.empty()) plan(user);
      const std::function<void(QWidget&)> step = steps_.front();
      steps_.erase(steps_.begin());
      step(window);
    });
    user.robot.always("aggr", [this](QWidget& window) {
      press(window, ("aggression_" + std::to_string(1 + over_ % 5)).c_str());
      const bool batsman = control<QAbstractButton>(window, "accept_for_batsman")->isVisible();
      press(window, batsman ? "accept_for_batsman" : "accept_for_bowler");
    });
  }

  void plan(ClickingUser& user) {
    ++over_;
    const auto pressed = [](const std::string& name) {
      return [name](QWidget& window) { press(window, name.c_str()); };
    };
    const auto if_enabled = [](const std::string& name) {
      return [name](QWidget& window) {
        if (control<QAbstractButton>(window, name.c_str())->isEnabled()) press(window, name.c_str());
      };
    };
    if (sets_batsmen(over_)) steps_.push_back(if_enabled("batsman_aggression_" + std::to_string(over_ % 2)));
    if (sets_bowlers(over_)) steps_.push_back(if_enabled("bowler_aggression_" + std::to_string(over_ % 2)));
    if (changes_bowler(over_)) {
      steps_.push_back([this, change = if_enabled("change_bowler")](QWidget& window) {
        changing_ = true;
        change(window);
        changing_ = false;
      });
    }
    if (browses(over_)) {
      steps_.push_back([](QWidget& window) {
        auto* browser = control<QScrollBar>(window, "past_overs");
        if (browser->isEnabled()) browser->setValue(1 + match.browser_maximum / 2);
      });
    }
    if (reads_reports(over_)) {
      const std::string stem = "over" + std::to_string(over_);
      steps_.push_back([this, &user, stem](QWidget& window) {
        read_everything(user, database_.folder(), stem, match.first_total != 0);
        scorecard_form card(match);
        card.open();
        expected_[stem + ".html"] = html_scorecard(match, data, card);
        expected_[stem + ".txt"] = text_scorecard(match, card);
        expected_[stem + ".byb.txt"] = ball_by_ball(match, card);
        press(window, "show_scorecard");
      });
      for (const char* report : {"show_worm", "show_overs_graph"}) steps_.push_back(pressed(report));
    }
    steps_.push_back(pressed("next_over"));
  }

  int over_ = 0;
  bool changing_ = false;
  std::map<std::string, std::string> expected_;  // the bytes of each exported file
  std::vector<std::function<void(QWidget&)>> steps_;
};

TEST_F(CaptainClicking, ActsReportsAndExportsEqualTheCores) {
  begin_again_with_seed(21);
  ClickingUser user;
  captain(user);
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 1, 2, true, true);
    press(window, "accept");
  });
  // The captain's own changes of bowler take the first other man.
  user.robot.always("chgbowler", [this](QWidget& window) {
    if (!changing_) {
      choose_first_bowler(window);
    } else {
      for (int row = 1; row <= 11; ++row) {
        auto* option = control<QAbstractButton>(window, ("man_" + std::to_string(row)).c_str());
        if (!option->isEnabled() || row == match.bowler || match.bowling_card[row].balls >= 60) continue;
        option->click();
        break;
      }
    }
    for (const char* ok : {"accept_change", "accept_first_opener", "accept_second_opener"}) {
      if (control<QAbstractButton>(window, ok)->isVisible()) return press(window, ok);
    }
  });
  play([&](MenuWindow& menu) { choose(menu, "start_game", "new_match"); });
  const std::vector<std::string> written = lasting_files();

  begin_again_with_seed(21);
  CoreCaptain reference;
  const front_end_scope in_use(reference);
  new_match_form form(in_play());
  form.open();
  form.choose_first_team(1);
  form.choose_second_team(2);
  form.computer_captains_first = form.computer_captains_second = false;
  form.accept();
  EXPECT_EQ(user.books_shown, reference.books_shown);
  EXPECT_EQ(user.messages, reference.messages);
  EXPECT_TRUE(written == lasting_files()) << "the career or record files differ";
  EXPECT_GT(over_, 70);
  EXPECT_EQ(user.robot.left(), 0);
  ASSERT_EQ(expected_.size(), 6U);
  for (const auto& [name, bytes] : expected_) EXPECT_EQ(bytes_of(database_.folder() / name), bytes) << name;
  for (const char* report : {"Bowlcard", "partners"}) EXPECT_EQ(user.robot.met(report), 2) << report;
  for (const char* report : {"graphs", "worms"}) EXPECT_EQ(user.robot.met(report), 4) << report;
  for (const char* report : {"bowlcard2nd", "partners2"}) EXPECT_EQ(user.robot.met(report), 1) << report;
}

}  // namespace
}  // namespace velorin::testing
