// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include "competitions/cup_test.h"
#include "competitions/series1.h"
#include "competitions/series2.h"
#include "competitions/wc_fix.h"
#include "competitions/wcsstab.h"
#include "setup/teamsel.h"
#include "setup/toss.h"
#include "setup/wecond.h"

// A user who leaves a match of a competition before it has begun. It is still to be played, and with the same draws
// from the standings on the competition is that of a user who leaves nothing.

namespace velorin::testing {
namespace {

using ::testing::IsEmpty;
using ::testing::SizeIs;

enum class step { conditions, first_selection, second_selection, coin };
constexpr const char* step_names[] = {"Conditions", "FirstSelection", "SecondSelection", "Coin"};

std::string text_of(const sri_result& form) {
  std::string text = form.label4_1 + "|" + form.label4_0;
  for (const sri_result::row& row : form.rows) text += "|" + row.label1 + row.label2;
  return text;
}

std::string text_of(const league_texts& row) { return fmt::format("{}", fmt::join(row, " ")); }

std::string text_of(const triserresult& form) {
  std::string text = form.label5_0 + "|" + form.label5_1;
  for (const league_texts& row : form.rows) text += "|" + text_of(row);
  return text;
}

std::string text_of(const wc_fix& form) {
  std::string text = std::to_string(form.next_fixture);
  for (int place = 1; place <= form.fixtures; ++place) {
    const wc_fix::row row = form.row_of(place);
    text += "|" + row.label6 + row.label1 + row.label2 + row.label3 + row.label4;
  }
  return text;
}

std::string text_of(const wcsstab& form) {
  std::string text = form.label1_22 + form.label1_23 + form.label1_24 + form.label8;
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
  void show(wecond& form) override {
    back_ = false;
    if (due(step::conditions)) return form.leave();
    scripted_user::show(form);
  }
  void show(teamsel& form) override {
    if (due(match.first_team_done ? step::second_selection : step::first_selection)) return form.leave();
    scripted_user::show(form);
  }
  void show(toss& form) override {
    if (due(step::coin)) return form.leave();
    scripted_user::show(form);
  }
  void show(const message_box& message) override {
    scripted_user::show(message);
    if (message.title == "End of Match") results.push_back(message.text + match.result_ground);
  }
  void show(sri_result& form) override { keep(form); }
  void show(triserresult& form) override { keep(form); }
  void show(wcsstab& form) override { keep(form); }
  void show(wc_fix& form) override {
    if (back_ && quits_again_at != 0) {
      keep(form, false);
      form.command3_click();
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
    if (closes) form.command1_click();
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
    series1 form;
    form.open();
    form.text1 = "3";
    form.option1_cpu = form.option3_cpu = false;
    play_to_the_end(form, user);
  }
  static void play_tri_series(LeavingUser& user) {
    const front_end_scope in_use(user);
    tri = {};
    series2 form;
    form.open();
    form.cpu = {false, false, false};
    play_to_the_end(form, user);
  }
  static wctable play_cup(LeavingUser& user) {
    const front_end_scope in_use(user);
    world_cup = {};
    wctable form;
    form.open();
    form.check1.fill(true);
    form.check2.fill(true);
    user.seed();
    form.command1_click();
    return form;
  }

  template <class Form>
  static void play_to_the_end(Form& form, LeavingUser& user) {
    user.seed();
    form.command1_click();
    if (form.closed) return;
    // Nothing was played: the form is still there.
    EXPECT_THAT(user.results, IsEmpty());
    user.seed();
    form.command1_click();
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
    const wctable form = play_cup(user);
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
    wctable form;
    form.open();
    form.check1.fill(true);
    user.seed();
    form.command1_click();
    EXPECT_TRUE(form.closed);
    EXPECT_FALSE(world_cup.quit_requested);
    EXPECT_THAT(user.results, SizeIs(number - 1));
  }
}

TEST_F(CupTest, AMatchLeftInTheSuperSixKeepsTheRequestToQuitAsToldThere) {
  LeavingUser user(24, step::conditions);
  user.quits_again_at = 1;
  const front_end_scope in_use(user);
  form_.command1_click();
  EXPECT_FALSE(form_.closed);
  EXPECT_TRUE(world_cup.quit_requested);
}

TEST_F(CupTest, EnteringAMatchEmptiesTheWholeResult) {
  static_cast<match_result&>(match) = {"Old Ground",        "Old",        "Older",
                                       "  won by  1  runs", {"Old", 1.5}, {"Older", -1.5}};
  user_.on_wecond.push_back([](wecond& form) {
    const match_result& now = match;
    EXPECT_EQ(now.result_ground + now.result_winner + now.result_loser + now.result_margin, "");
    EXPECT_EQ(now.rate_first.team + now.rate_second.team, "");
    EXPECT_EQ(now.rate_first.delta, 0);
    EXPECT_EQ(now.rate_second.delta, 0);
    form.leave();
  });
  EXPECT_FALSE(enter_match({"Ardell", false}, {"Brava", false}, "Ardell Oval"));
  EXPECT_EQ(match.result_loser, "Older") << "a match that was left changes nothing";
  enter_match({"Ardell", false}, {"", false}, "Ardell Oval");
  EXPECT_EQ(match.result_loser + match.result_ground + match.rate_first.team, "") << "a walkover";
  EXPECT_EQ(match.rate_second.delta, 0);
}

TEST_F(CupTest, ALoadedFormKeepsItsChoices) {
  form_.show_again();
  form_.combo1[0] = 7;
  form_.check2[1] = true;
  form_.hidden = true;
  form_.show_again();
  EXPECT_EQ(form_.combo1[0], 7);
  EXPECT_TRUE(form_.check2[1]);
  EXPECT_FALSE(form_.hidden);
  form_.closed = true;
  form_.show_again();
  EXPECT_EQ(form_.combo1[0], 0) << "a closed one opens as at first";
  EXPECT_FALSE(form_.check2[1]);
  EXPECT_FALSE(form_.closed);
  form_.check2[1] = true;
  database_.add_team("Zenda");
  database_.write();
  form_.show_again();
  EXPECT_EQ(form_.teams.size(), 11U);
  EXPECT_FALSE(form_.check2[1]) << "of another database nothing was chosen";
}

TEST_F(CupTest, AFreshRecordIsThatOfANewStart) {
  EXPECT_EQ(standing_cup(), "");
  LeavingUser first(0, step::conditions);
  {
    const front_end_scope in_use(first);
    first.seed();
    form_.command1_click();
  }
  EXPECT_NE(standing_cup(), "");
  const wc_group_team stood = world_cup.wc_group_a[1];
  start_cup_afresh();
  EXPECT_EQ(standing_cup(), "");
  LeavingUser second(0, step::conditions);
  const front_end_scope in_use(second);
  second.seed();
  form_.command1_click();
  EXPECT_EQ(second.standings, first.standings);
  EXPECT_EQ(world_cup.wc_group_a[1].versus[2].played, stood.versus[2].played);
}

TEST_F(CupTest, CountriesWithoutAGroundAreNamedOnce) {
  EXPECT_THAT(countries_without_ground({"Ardell", "Nowhere", "", "Nowhere", "Elsewhere"}),
              ::testing::ElementsAre("Nowhere", "Elsewhere"));
  EXPECT_THAT(countries_without_ground({"", ""}), IsEmpty());
}

TEST_F(CupTest, OkNeedsEveryTeam) {
  EXPECT_TRUE(form_.ready());
  form_.combo2[4] = -1;
  EXPECT_FALSE(form_.ready());
  series1 two;
  two.open();
  EXPECT_TRUE(two.ready());
  two.choose_away(-1);
  EXPECT_FALSE(two.ready());
  series2 three;
  three.open();
  EXPECT_TRUE(three.ready());
  three.choose_team(2, -1);
  EXPECT_FALSE(three.ready());
}

}  // namespace
}  // namespace velorin::testing
