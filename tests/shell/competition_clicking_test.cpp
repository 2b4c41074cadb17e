// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_form.h"
#include "competitions/world_cup_tables.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "shell/game_fixture.h"
#include "support/game_in_play.h"
#include "support/new_form.h"

// Whole competitions played by pressing the controls of the windows. Tables, fixtures and results at every stage equal
// the core's with the same draws.

namespace velorin::testing {
namespace {

std::string line(const league_texts& row) {
  std::string text;
  for (const std::string& cell : row) text += cell + ";";
  return text;
}

std::string texts(const series_results_form& form) {
  std::string text = form.heading + "|";
  for (const series_results_form::row& row : form.rows) text += row.match_and_ground + "=" + row.result + ";";
  return text + "|" + form.standing_line;
}

std::string texts(const tri_series_table_form& form) {
  std::string text = form.title + "|" + form.heading + "|";
  for (const league_texts& row : form.rows) text += line(row);
  return text + "|" + form.final_line + "|" + form.final_result;
}

std::string texts(const world_cup_fixtures_form& form) {
  std::string text = std::to_string(form.next_fixture) + "|";
  for (int place = 1; place <= form.fixtures; ++place) {
    const world_cup_fixtures_form::row row = form.row_of(place);
    text += row.match_number + row.team_a + row.versus + row.team_b + row.at + row.venue + row.result + ";";
  }
  return text;
}

std::string texts(const world_cup_tables_form& form) {
  std::string text;
  for (const auto* table : {&form.group_a, &form.group_b, &form.super_six}) {
    for (const league_texts& row : *table) text += line(row);
    text += "|";
  }
  return text + form.first_semi_final + form.second_semi_final + form.grand_final + form.winners_line;
}

template <class CoreForm>
std::string standing() {
  auto form = new_form<CoreForm>();
  form.open();
  return texts(form);
}

/// The headless user, who keeps every standing that he is shown, and quits the World Cup at a showing of the list.
class StandingsUser : public BookkeepingUser {
 public:
  std::vector<std::string> standings;
  int lists = 0;
  int quits_at = 0;  ///< at which showing of the fixture list, from 1; 0 never

  using BookkeepingUser::show;
  void show(series_results_form& form) override { keep(form); }
  void show(tri_series_table_form& form) override { keep(form); }
  void show(world_cup_tables_form& form) override { keep(form); }
  void show(world_cup_fixtures_form& form) override {
    standings.push_back(texts(form));
    if (++lists == quits_at) {
      form.quit();
    } else {
      form.accept();
    }
  }

 private:
  template <class CoreForm>
  void keep(CoreForm& form) {
    standings.push_back(texts(form));
    form.accept();
  }
};

/// Keeps every standing that a window shows.
class StandingsClicker : public ClickingUser {
 public:
  std::vector<std::string> standings;
  int lists = 0;
  int quits_at = 0;

  StandingsClicker() {
    keep<series_results_form>("sri_result");
    keep<tri_series_table_form>("triserresult");
    keep<world_cup_tables_form>("wcsstab");
    robot.always("wc_fix", [this](QWidget& window) {
      standings.push_back(standing<world_cup_fixtures_form>());
      ++presses;
      press(window, ++lists == quits_at ? "quit" : "accept");
    });
  }

 private:
  template <class CoreForm>
  void keep(const char* name) {
    robot.always(name, [this](QWidget& window) {
      standings.push_back(standing<CoreForm>());
      ++presses;
      press(window, "accept");
    });
  }
};

class CompetitionClicking : public GameTest {
 protected:
  void expect_equal(const StandingsClicker& clicked, const std::vector<std::string>& written,
                    const StandingsUser& reference) {
    EXPECT_EQ(clicked.standings, reference.standings);
    EXPECT_EQ(clicked.books_shown.size(), reference.books_shown.size());
    EXPECT_TRUE(clicked.books_shown == reference.books_shown) << "the books differ";
    EXPECT_EQ(clicked.messages, reference.messages);
    EXPECT_TRUE(written == lasting_files()) << "the career or record files differ";
  }
};

TEST_F(CompetitionClicking, ASeriesOfFourMatches) {
  StandingsClicker user;
  user.robot.next("series1", [](QWidget& window) {
    control<QComboBox>(window, "home_team")->setCurrentIndex(2);
    control<QComboBox>(window, "away_team")->setCurrentIndex(5);
    control<QLineEdit>(window, "matches")->setText(QStringLiteral("4"));
    press(window, "away_human");
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "new_series"); });
  const std::vector<std::string> written = lasting_files();
  EXPECT_EQ(user.robot.met("sri_result"), 4);

  begin_again_with_seed(1);
  StandingsUser reference;
  const front_end_scope in_use(reference);
  series_form form(in_play(), series);
  form.open();
  form.choose_home(2);
  form.choose_away(5);
  form.typed_matches = "4";
  form.computer_captains_away = false;
  form.accept();
  expect_equal(user, written, reference);
}

TEST_F(CompetitionClicking, ATriSeriesOfTwoRoundsWithItsFinal) {
  StandingsClicker user;
  user.robot.next("series2", [](QWidget& window) {
    control<QComboBox>(window, "first_team")->setCurrentIndex(0);
    control<QComboBox>(window, "second_team")->setCurrentIndex(3);
    control<QComboBox>(window, "third_team")->setCurrentIndex(8);
    control<QLineEdit>(window, "rounds")->setText(QStringLiteral("2"));
    press(window, "third_human");
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "tri_series"); });
  const std::vector<std::string> written = lasting_files();
  EXPECT_EQ(user.robot.met("triserresult"), 7);

  begin_again_with_seed(1);
  StandingsUser reference;
  const front_end_scope in_use(reference);
  tri_series_form form(in_play(), tri);
  form.open();
  form.choose_team(0, 0);
  form.choose_team(1, 3);
  form.choose_team(2, 8);
  form.typed_rounds = "2";
  form.computer_captains[2] = false;
  form.accept();
  expect_equal(user, written, reference);
}

class WorldCupClicking : public CompetitionClicking, public ::testing::WithParamInterface<int> {
 protected:
  /// One human side, in Group A.
  StandingsUser play_in_core(int quits_at) {
    begin_again_with_seed(1);
    StandingsUser reference;
    reference.quits_at = quits_at;
    const front_end_scope in_use(reference);
    world_cup_form form(in_play(), world_cup);
    form.open();
    form.human_a[2] = true;
    form.accept();
    return reference;
  }
};

TEST_P(WorldCupClicking, StandingsEqualTheCoresUpToTheEnd) {
  StandingsClicker user;
  user.quits_at = GetParam();
  user.robot.next("wctable", [](QWidget& window) {
    control<QCheckBox>(window, "group_a_human_2")->click();
    press(window, "accept");
  });
  play([](MenuWindow& menu) { choose(menu, "start_game", "world_cup"); });
  const std::vector<std::string> written = lasting_files();
  const bool quit_kept = world_cup.quit_requested;
  const StandingsUser reference = play_in_core(GetParam());
  EXPECT_EQ(quit_kept, world_cup.quit_requested);
  expect_equal(user, written, reference);
  if (GetParam() == 0) {
    EXPECT_EQ(user.robot.met("wc_fix"), 31);
    EXPECT_EQ(user.robot.met("wcsstab"), 33);
    EXPECT_GE(user.robot.met("main"), 4);
  }
}

TEST_F(CompetitionClicking, TheFormOfAFinishedCupKeepsItsChoices) {
  preferences::set_plays_without_stopping("wctable", true);
  ClickingUser user;
  std::vector<bool> checked;
  std::vector<int> chosen;
  const auto note = [&](QWidget& window) {
    checked.push_back(control<QCheckBox>(window, "play_without_stopping")->isChecked());
    chosen.push_back(control<QComboBox>(window, "group_a_team_0")->currentIndex());
  };
  user.robot.next("wctable", [&](QWidget& window) {
    control<QComboBox>(window, "group_a_team_0")->setCurrentIndex(9);
    control<QComboBox>(window, "group_b_team_4")->setCurrentIndex(0);
    press(window, "accept");
  });
  user.robot.next("wctable", [&](QWidget& window) {
    note(window);
    EXPECT_NE(window.findChild<QWidget*>("afresh"), nullptr);
    press(window, "cancel");
  });
  user.robot.next("wctable", [&](QWidget& window) {
    note(window);
    press(window, "cancel");
  });
  play([](MenuWindow& menu) {
    for (int time = 0; time < 3; ++time) choose(menu, "start_game", "world_cup");
  });
  EXPECT_EQ(user.robot.left(), 0);
  EXPECT_EQ(chosen, (std::vector<int>{9, 0})) << "kept after the end, gone after Cancel";
}

TEST_F(CompetitionClicking, AMatchIsLeftByItsCloseBox) {
  ClickingUser user;
  user.robot.always("leave_question", pressing("yes"));
  const auto leave = [](QWidget& window) { window.close(); };
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 1, true, true);
    press(window, "accept");
  });
  user.robot.next("toss", leave);
  play([&](MenuWindow& menu) {
    choose(menu, "start_game", "new_match");
    EXPECT_EQ(match.team1_name, "");
    EXPECT_EQ(user.robot.met("scorecard"), 0);
    EXPECT_EQ(user.robot.met("leave_question"), 1);
    // Left in its first match, the form comes back; left in the second, the results do.
    user.robot.next("series1", [&](QWidget& window) {
      control<QLineEdit>(window, "matches")->setText(QStringLiteral("2"));
      user.robot.next("wecond", leave);
      press(window, "accept");
    });
    user.robot.next("series1", [](QWidget& window) {
      EXPECT_EQ(control<QLineEdit>(window, "matches")->text(), "2");
      press(window, "accept");
    });
    user.robot.next("sri_result", [&](QWidget& window) {
      user.robot.next("Teamsel", leave);
      press(window, "accept");
    });
    choose(menu, "start_game", "new_series");
  });
  EXPECT_EQ(user.robot.left(), 0);
  EXPECT_EQ(user.robot.met("leave_question"), 3);
  EXPECT_EQ(user.robot.met("series1"), 2);
  EXPECT_EQ(user.robot.met("sri_result"), 3) << "after each match, and once after the second was left";
  EXPECT_EQ(user.messages.size(), 2U);
}

// To the end; at the first list; within the groups; at the draw of the Super Six; within the Super Six.
INSTANTIATE_TEST_SUITE_P(Quits, WorldCupClicking, ::testing::Values(0, 1, 6, 25));

}  // namespace
}  // namespace velorin::testing
