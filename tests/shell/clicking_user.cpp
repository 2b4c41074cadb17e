// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/clicking_user.h"

#include <fmt/format.h>

#include <QComboBox>
#include <QLabel>
#include <QRadioButton>

#include "console/console_view.h"
#include "model/match_state.h"
#include "reports/export.h"
#include "support/game_in_play.h"

namespace velorin::testing {

std::string books() {
  scorecard_form card(match);
  card.open();
  std::string text = html_scorecard(match, data, card) + text_scorecard(match, card) + ball_by_ball(match, card);
  const rates_view rates = view_rates(match);
  for (const rate_cell& cell : rates.cells) text += cell.heading + "=" + cell.text + ";";
  text += rates.last_five_overs + view_last_wicket(match) + view_score(match).time_of_day;
  text += fmt::format("|{}|{}|{}|{}|{}:{}|{}:{}", match.result_ground, match.result_winner, match.result_loser,
                      match.result_margin, match.rate_first.team, match.rate_first.delta, match.rate_second.team,
                      match.rate_second.delta);
  return text;
}

ClickingUser::ClickingUser() {
  answer_set_up();
  answer_captain();
  answer_reports();
  answer_competitions();
}

void ClickingUser::press_ok(QWidget& window, const char* name) {
  ++presses;
  press(window, name);
}

void ClickingUser::choose_match(QWidget& window, int first, int second, bool first_human, bool second_human) {
  control<QComboBox>(window, "first_team")->setCurrentIndex(first);
  control<QComboBox>(window, "second_team")->setCurrentIndex(second);
  press(window, first_human ? "first_human" : "first_computer");
  press(window, second_human ? "second_human" : "second_computer");
}

void ClickingUser::answer_set_up() {
  robot.always("wecond", [this](QWidget& window) { press_ok(window, "accept"); });
  robot.always("Teamsel", [this](QWidget& window) {
    press_ok(window, "auto_select");
    press_ok(window, match.first_team_done ? "accept_second_team" : "accept_first_team");
  });
  robot.always("toss", [this](QWidget& window) {
    if (control<QAbstractButton>(window, "heads")->isVisible()) press_ok(window, "heads");
    press_ok(window, control<QAbstractButton>(window, "bat")->isEnabled() ? "bat" : "bowl");
  });
  robot.always("message", [this](QWidget& window) {
    messages.push_back(window.windowTitle().toStdString() + " | " +
                       control<QLabel>(window, "text")->text().toStdString());
    press_ok(window, "accept");
  });
}

void choose_first_batsman(QWidget& window) {
  for (int row = 1; row <= 11; ++row) {
    auto* option = control<QRadioButton>(window, ("man_" + std::to_string(row)).c_str());
    if (!option->isEnabled()) continue;
    option->click();
    return;
  }
  ADD_FAILURE() << "nobody is left to bat";
}

void choose_first_bowler(QWidget& window) {
  for (int row = 1; row <= 11; ++row) {
    auto* option = control<QRadioButton>(window, ("man_" + std::to_string(row)).c_str());
    if (!option->isEnabled() || match.bowling_card[row].balls >= 60) continue;
    option->click();
    return;
  }
  ADD_FAILURE() << "nobody may bowl";
}

void ClickingUser::answer_captain() {
  robot.always("main", [this](QWidget& window) { press_ok(window, "next_over"); });
  robot.always("batorder", [this](QWidget& window) {
    choose_first_batsman(window);
    press_ok(window, "accept");
  });
  robot.always("chgbowler", [this](QWidget& window) {
    choose_first_bowler(window);
    for (const char* ok : {"accept_change", "accept_first_opener", "accept_second_opener"}) {
      const auto* button = window.findChild<QAbstractButton*>(QString::fromLatin1(ok));
      if (button != nullptr && button->isVisible()) return press_ok(window, ok);
    }
    ADD_FAILURE() << "no OK in " << window.windowTitle().toStdString();
  });
  robot.always("aggr", [this](QWidget& window) {
    const bool batsman = control<QAbstractButton>(window, "accept_for_batsman")->isVisible();
    press_ok(window, batsman ? "accept_for_batsman" : "accept_for_bowler");
  });
  robot.always("batsmandetails", [this](QWidget& window) { press_ok(window, "accept"); });
}

void ClickingUser::answer_reports() {
  robot.always("scorecard", [this](QWidget& window) {
    books_shown.push_back(books());
    press_ok(window, "accept");
  });
  for (const char* name : {"scorecard2", "Bowlcard", "bowlcard2nd", "partners", "partners2", "graphs", "worms",
                           "matchrep", "matchcentre"}) {
    robot.always(name, [this](QWidget& window) { press_ok(window, "accept"); });
  }
}

void ClickingUser::answer_competitions() {
  for (const char* name : {"sri_result", "triserresult", "wc_fix", "wcsstab", "Sqdet", "allrecs"}) {
    robot.always(name, [this](QWidget& window) { press_ok(window, "accept"); });
  }
  robot.always("quit_question", pressing("yes"));
  // Windows that only show how far play has come, and close themselves.
  for (const char* name : {"Progressbar", "unstopped"}) robot.always(name, [](QWidget&) {});
}

}  // namespace velorin::testing
