// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "competitions/cup_fixture.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "support/game_in_play.h"

// A user who leaves a match of a competition before it has begun. It is still to be played, and with the same draws
// from the standings on the competition is that of a user who leaves nothing.

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

enum class step { conditions, first_selection, second_selection, coin };
constexpr const char* step_names[] = {"Conditions", "FirstSelection", "SecondSelection", "Coin"};

std::string text_of(const series_results_form& form) {
  std::string text = form.heading + "|" + form.standing_line;
  for (const series_results_form::row& row : form.rows) text += "|" + row.match_and_ground + row.result;
  return text;
}

std::string text_of(const league_texts& row) { return fmt::format("{}", fmt::join(row, " ")); }

std::string text_of(const tri_series_table_form& form) {
  std::string text = form.final_line + "|" + form.final_result;
  for (const league_texts& row : form.rows) text += "|" + text_of(row);
  return text;
}

std::string text_of(const world_cup_fixtures_form& form) {
  std::string text = std::to_string(form.next_fixture);
  for (int place = 1; place <= form.fixtures; ++place) {
    const world_cup_fixtures_form::row row = form.row_of(place);
    text += "|" + row.match_number + row.team_a + row.team_b + row.venue + row.result;
  }
  return text;
}

std::string text_of(const world_cup_tables_form& form) {
  std::string text = form.first_semi_final + form.second_semi_final + form.grand_final + form.winners_line;
  for (const auto* table : {&form.group_a, &form.group_b, &form.super_six}) {
    for (const league_texts& row : *table) text += "|" + text_of(row);
  }
  return text;
}

/// Leaves one match at one step, once. Chance is seeded anew whenever standings close, by the matches over.
class LeavingUser : public scripted_user {
 public:
  LeavingUser(int match_to_leave, step where) : match_to_leave_(match_to_leave), where_(where) {}

  std::vector<std::string> results;      ///< what ended each match
  std::vector<std::string> standings;    ///< as shown, but for those shown again
  std::vector<std::string> shown_again;  ///< after the match was left, before it was entered again
  std::function<void()> at_return;       ///< as the first of them is shown
  int quits_again_at = 0;                ///< quits at this showing of the list after leaving

  void seed() const { chance.use_seed(1000U + results.size()); }
  bool has_left() const { return left_; }

  using scripted_user::show;
  void show(conditions_form& form) override {
    back_ = false;
    if (due(step::conditions)) return form.leave();
    scripted_user::show(form);
  }
  void show(team_selection_form& form) override {
    if (due(match.first_team_done ? step::second_selection : step::first_selection)) return form.leave();
    scripted_user::show(form);
  }
  void show(toss_form& form) override {
    if (due(step::coin)) return form.leave();
    scripted_user::show(form);
  }
  void show(const message_box& message) override {
    scripted_user::show(message);
    if (message.title == "End of Match") results.push_back(message.text + match.result_ground);
  }
  void show(series_results_form& form) override { keep(form); }
  void show(tri_series_table_form& form) override { keep(form); }
  void show(world_cup_tables_form& form) override { keep(form); }
  void show(world_cup_fixtures_form& form) override {
    if (back_ && quits_again_at != 0) {
      keep(form, false);
      form.quit();
      return;
    }
    keep(form);
  }

 private:
  bool due(step here) {
    if (left_ || here != where_ || static_cast<int>(results.size()) + 1 != match_to_leave_) return false;
    left_ = back_ = true;
    return true;
  }
  template <class Form>
  void keep(Form& form, bool closes = true) {
    if (back_ && shown_again.empty() && at_return) at_return();
    (back_ ? shown_again : standings).push_back(text_of(form));
    if (closes) form.accept();
    seed();
  }

  int match_to_leave_;
  step where_;
  bool left_ = false;
  bool back_ = false;  // between leaving the match and entering it again
};

class LeavingCompetitions : public CupTest, public ::testing::WithParamInterface<step> {
 protected:
  static void play_series(LeavingUser& user) {
    const front_end_scope in_use(user);
    series = {};
    series_form form(in_play(), series);
    form.open();
    form.typed_matches = "3";
    form.computer_captains_home = form.computer_captains_away = false;
    play_to_the_end(form, user);
  }
  static void play_tri_series(LeavingUser& user) {
    const front_end_scope in_use(user);
    tri = {};
    tri_series_form form(in_play(), tri);
    form.open();
    form.computer_captains = {false, false, false};
    play_to_the_end(form, user);
  }
  static world_cup_form play_cup(LeavingUser& user) {
    const front_end_scope in_use(user);
    world_cup = {};
    world_cup_form form(in_play(), world_cup);
    form.open();
    form.human_a.fill(true);
    form.human_b.fill(true);
    user.seed();
    form.accept();
    return form;
  }

  template <class Form>
  static void play_to_the_end(Form& form, LeavingUser& user) {
    user.seed();
    form.accept();
    if (form.closed) return;
    // Nothing was played: the form is still there.
    EXPECT_THAT(user.results, IsEmpty());
    user.seed();
    form.accept();
    EXPECT_TRUE(form.closed);
  }

  static void expect_nothing_kept() {
    EXPECT_EQ(match.team1_name + match.team2_name + match.venue_name(), "");
    EXPECT_EQ(match.result_winner + match.result_margin + match.result_ground, "");
    EXPECT_FALSE(match.first_team_done);
  }
  static void expect_equal(const LeavingUser& user, const LeavingUser& reference) {
    EXPECT_TRUE(user.has_left());
    EXPECT_EQ(user.results, reference.results);
    EXPECT_EQ(user.standings, reference.standings);
  }
};

TEST_P(LeavingCompetitions, ASeriesGoesOnAsIfNothingWasLeft) {
  LeavingUser reference(0, GetParam());
  play_series(reference);
  ASSERT_THAT(reference.results, SizeIs(3));
  for (const int number : {1, 2, 3}) {
    SCOPED_TRACE(number);
    LeavingUser user(number, GetParam());
    user.at_return = [number] {
      expect_nothing_kept();
      EXPECT_EQ(series.match_no, number - 1);
    };
    play_series(user);
    expect_equal(user, reference);
    if (number == 1) {
      EXPECT_THAT(user.shown_again, IsEmpty()) << "the form itself is back";
    } else {
      EXPECT_EQ(user.shown_again, std::vector{reference.standings[static_cast<std::size_t>(number) - 2]});
    }
  }
}

TEST_P(LeavingCompetitions, ATriSeriesGoesOnAsIfNothingWasLeft) {
  LeavingUser reference(0, GetParam());
  play_tri_series(reference);
  ASSERT_THAT(reference.results, SizeIs(4));
  for (const int number : {1, 2, 3, 4}) {
    SCOPED_TRACE(number);
    LeavingUser user(number, GetParam());
    user.at_return = [number] {
      expect_nothing_kept();
      EXPECT_EQ(tri.matches_played, number - 1);
      EXPECT_FALSE(tri.final_played);
    };
    play_tri_series(user);
    expect_equal(user, reference);
    if (number > 1) {
      EXPECT_EQ(user.shown_again, std::vector{reference.standings[static_cast<std::size_t>(number) - 2]});
    }
  }
}

TEST_P(LeavingCompetitions, AWorldCupGoesOnAsIfNothingWasLeft) {
  LeavingUser reference(0, GetParam());
  play_cup(reference);
  ASSERT_THAT(reference.results, SizeIs(32));
  // Groups: first, later, last; Super Six: first, last; both semi-finals; the final.
  for (const int number : {1, 8, 20, 21, 29, 30, 31, 32}) {
    SCOPED_TRACE(number);
    LeavingUser user(number, GetParam());
    user.at_return = [number] {
      expect_nothing_kept();
      const int place = number <= 29 ? number : number - 30;
      EXPECT_EQ(world_cup.next_match, place);
    };
    const world_cup_form form = play_cup(user);
    EXPECT_FALSE(form.closed);
    expect_equal(user, reference);
    EXPECT_THAT(user.shown_again, SizeIs(number > 30 ? 2 : 1));
    if (number < 30) {
      EXPECT_NE(std::find(reference.standings.begin(), reference.standings.end(), user.shown_again[0]),
                reference.standings.end())
          << "the list is the one before the match";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(, LeavingCompetitions,
                         ::testing::Values(step::conditions, step::first_selection, step::second_selection, step::coin),
                         [](const auto& kind) { return step_names[static_cast<int>(kind.param)]; });

TEST_F(CupTest, TheListAfterAMatchIsLeftLetsTheUserQuit) {
  for (const int number : {1, 20, 30, 32}) {
    SCOPED_TRACE(number);
    LeavingUser user(number, step::conditions);
    user.quits_again_at = 1;
    const front_end_scope in_use(user);
    world_cup = {};
    world_cup_form form(in_play(), world_cup);
    form.open();
    form.human_a.fill(true);
    user.seed();
    form.accept();
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(world_cup.quit_requested);
    EXPECT_THAT(user.results, SizeIs(number - 1));
  }
}

TEST_F(CupTest, AMatchLeftInTheSuperSixKeepsTheRequestToQuitAsToldThere) {
  LeavingUser user(24, step::conditions);
  user.quits_again_at = 1;
  const front_end_scope in_use(user);
  form_.accept();
  EXPECT_FALSE(form_.closed);
  EXPECT_TRUE(world_cup.quit_requested);
}

TEST_F(CupTest, EnteringAMatchEmptiesTheWholeResult) {
  static_cast<match_result&>(match) = {match_decision::runs, "Old Ground", "Old",          "Older",
                                       "  won by  1  runs",  {"Old", 1.5}, {"Older", -1.5}};
  user_.on_conditions.push_back([](conditions_form& form) {
    const match_result& now = match;
    EXPECT_EQ(now.decided, match_decision::none);
    EXPECT_EQ(now.result_ground + now.result_winner + now.result_loser + now.result_margin, "");
    EXPECT_EQ(now.rate_first.team + now.rate_second.team, "");
    EXPECT_EQ(now.rate_first.delta, 0);
    EXPECT_EQ(now.rate_second.delta, 0);
    form.leave();
  });
  EXPECT_FALSE(play_entered({"Ardell", false}, {"Brava", false}, "Ardell Oval"));
  EXPECT_EQ(match.result_loser, "Older") << "a match that was left changes nothing";
  play_entered({"Ardell", false}, {"", false}, "Ardell Oval");
  EXPECT_EQ(match.result_loser + match.result_ground + match.rate_first.team, "") << "a walkover";
  EXPECT_EQ(match.rate_second.delta, 0);
}

TEST_F(CupTest, ALoadedFormKeepsItsChoices) {
  form_.show_again();
  form_.group_a_index[0] = 7;
  form_.human_b[1] = true;
  form_.hidden = true;
  form_.show_again();
  EXPECT_EQ(form_.group_a_index[0], 7);
  EXPECT_TRUE(form_.human_b[1]);
  EXPECT_FALSE(form_.hidden);
  form_.closed = true;
  form_.show_again();
  EXPECT_EQ(form_.group_a_index[0], 0) << "a closed one opens as at first";
  EXPECT_FALSE(form_.human_b[1]);
  EXPECT_FALSE(form_.closed);
  form_.human_b[1] = true;
  database_.add_team("Zenda");
  database_.write();
  form_.show_again();
  EXPECT_EQ(form_.teams.size(), 11U);
  EXPECT_FALSE(form_.human_b[1]) << "of another database nothing was chosen";
}

TEST_F(CupTest, AFreshRecordIsThatOfANewStart) {
  EXPECT_EQ(standing_cup(world_cup), "");
  LeavingUser first(0, step::conditions);
  {
    const front_end_scope in_use(first);
    first.seed();
    form_.accept();
  }
  EXPECT_NE(standing_cup(world_cup), "");
  const cup_group_team stood = world_cup.group_a[1];
  start_cup_afresh(world_cup);
  EXPECT_EQ(standing_cup(world_cup), "");
  LeavingUser second(0, step::conditions);
  const front_end_scope in_use(second);
  second.seed();
  form_.accept();
  EXPECT_EQ(second.standings, first.standings);
  EXPECT_EQ(world_cup.group_a[1].versus[2].played, stood.versus[2].played);
}

TEST_F(CupTest, CountriesWithoutAGroundAreNamedOnce) {
  EXPECT_THAT(countries_without_ground(data, {"Ardell", "Nowhere", "", "Nowhere", "Elsewhere"}),
              ::testing::ElementsAre("Nowhere", "Elsewhere"));
  EXPECT_THAT(countries_without_ground(data, {"", ""}), IsEmpty());
}

TEST_F(CupTest, OkNeedsEveryTeam) {
  EXPECT_TRUE(form_.ready());
  form_.group_b_index[4] = -1;
  EXPECT_FALSE(form_.ready());
  series_form two(in_play(), series);
  two.open();
  EXPECT_TRUE(two.ready());
  two.choose_away(-1);
  EXPECT_FALSE(two.ready());
  tri_series_form three(in_play(), tri);
  three.open();
  EXPECT_TRUE(three.ready());
  three.choose_team(2, -1);
  EXPECT_FALSE(three.ready());
}

}  // namespace
}  // namespace velorin::testing
