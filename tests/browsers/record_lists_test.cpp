// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/record_lists.h"

#include <gmock/gmock.h>

#include <fstream>

#include "browsers/century_makers.h"
#include "browsers/figures_fixture.h"
#include "browsers/player_rankings.h"
#include "browsers/record_tables.h"
#include "browsers/world_rankings.h"
#include "support/game_in_play.h"

namespace velorin::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class RecordLists : public figures_fixture {
 protected:
  void SetUp() override {
    for (int i = 1; i <= 3; ++i) {
      career_rec man = batsman("A.Man" + std::to_string(i), 3, 1, 40 * i, 100);
      man.hundreds = i;
      man.wickets = 10 - i;
      man.runs_given = 30 * i;
      man.balls_bowled = 60;
      add("Alba", man);
      lists.top_scores[i] = {"A.Man" + std::to_string(i), 150 - i, 140, "Alba", "Bora", "Park", -1};
      lists.top_bowling[i] = {"A.Man" + std::to_string(i), 20 + i, 60, 7 - i, "Alba", "Bora", "Park"};
      lists.highest_totals[i] = {330 - i, 300, 5, "Alba", "Bora", "Park"};
      lists.lowest_totals[i] = {60 + i, 200, 10, "Alba", "Bora", "Park"};
      lists.partnerships[i] = {231, "", 110 + i, 130, 300, "A.Man1", "A.Man2", {}, "Alba", "Bora", "Park"};
    }
    add_team("Alba", {1, 0, 0}, {});
    add_team("Bora", {}, {0, 1, 0});
    write();
  }

  /// What a form shows by itself.
  template <class Form, class... Mode>
  static shown_table alone(Mode... mode) {
    Form form(data);
    form.open(mode...);
    return form.table;
  }

  static void expect_same(const shown_table& got, const shown_table& wanted) {
    EXPECT_EQ(got.title, wanted.title);
    EXPECT_EQ(headings(got), headings(wanted));
    ASSERT_FALSE(wanted.rows.empty());
    EXPECT_EQ(places(got), places(wanted));
    for (std::size_t i = 0; i < wanted.rows.size(); ++i) {
      EXPECT_EQ(row(got, i), row(wanted, i));
      EXPECT_EQ(got.rows.at(i).player, wanted.rows[i].player);
      EXPECT_EQ(got.rows.at(i).partner, wanted.rows[i].partner);
      EXPECT_EQ(got.rows.at(i).team, wanted.rows[i].team);
    }
  }

  /// The titles that OK shows one after the other.
  static std::vector<std::string> titles_of(record_lists_form& form) {
    std::vector<std::string> titles;
    while (!form.closed) {
      titles.push_back(form.table.title);
      form.accept();
    }
    return titles;
  }

  record_lists_form form{data};
};

TEST_F(RecordLists, ShowWhatTheirFormsShow) {
  for (std::size_t i = 0; i < every_record_list.size(); ++i) {
    const record_list& list = every_record_list[i];
    SCOPED_TRACE(list.caption);
    form.open(static_cast<int>(i));
    EXPECT_EQ(form.shown_list, static_cast<int>(i));
    if (list.form == "totrecords") expect_same(form.table, alone<total_records_form>(list.record_mode));
    if (list.form == "highinduv") expect_same(form.table, alone<best_performances_form>(list.record_mode));
    if (list.form == "allrecs") expect_same(form.table, alone<player_rankings_form>(list.record_mode));
    if (list.form == "centurytop") expect_same(form.table, alone<century_makers_form>());
    if (list.form == "partnrec") expect_same(form.table, alone<stand_records_form>());
    if (list.form == "wldrank") expect_same(form.table, alone<world_rankings_form>());
  }
}

TEST_F(RecordLists, AreFoundByFormAndMode) {
  std::vector<int> found;
  for (const record_list& list : every_record_list) found.push_back(record_list_place(list.form, list.record_mode));
  EXPECT_THAT(found, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13)) << "no two are the same";
  form.open(record_list_place("allrecs", 7));
  EXPECT_EQ(form.table.title, "Bowling Records - Best Average");
}

TEST_F(RecordLists, OkClosesOneThatWasOpenedByItself) {
  form.open(record_list_place("partnrec"));
  EXPECT_THAT(titles_of(form), ElementsAre("Record Partnerships"));
  form.open(0);
  EXPECT_FALSE(form.closed);
}

TEST_F(RecordLists, OkPassesThroughAGroup) {
  form.open_group("Batting");
  EXPECT_EQ(form.walked, 1);
  EXPECT_EQ(form.walk_length, 9);
  EXPECT_THAT(titles_of(form),
              ElementsAre("Highest Totals in ODI's", "Lowest Totals in ODI's", "Highest Induvidual Scores",
                          "Records - Most Runs", "Records - Highest Averages", "Records - Highest Strike Rate",
                          "Records - Innings% (50 or more)", "Top Century Makers", "Record Partnerships"));
  form.open_group("Bowling");
  EXPECT_THAT(titles_of(form), ElementsAre("Bowling Records - Most Wickets", "Bowling Records - Best Average",
                                           "Bowling Records - Best Economy Rate", "Best Bowling Figures"));
}

TEST_F(RecordLists, AChoiceDoesNotCutAGroupShort) {
  form.open_group("Bowling");
  form.choose(record_list_place("wldrank"));
  EXPECT_EQ(form.table.title, "Top Ten Teams");
  EXPECT_THAT(titles_of(form), ElementsAre("Top Ten Teams", "Bowling Records - Best Average",
                                           "Bowling Records - Best Economy Rate", "Best Bowling Figures"));
}

TEST_F(RecordLists, OneThatCannotBeReadIsPassedOver) {
  form.open_group("Batting");
  form.accept();
  form.accept();
  std::ofstream(data.files.career_file) << std::string(2500, '\xFF');
  EXPECT_TRUE(failure_of([&] { form.accept(); }).has_value());
  EXPECT_EQ(form.table.title, "Highest Induvidual Scores") << "the former one stays";
  EXPECT_EQ(form.shown_list, record_list_place("highinduv", 1));
  for (int list = 0; list < 4; ++list) EXPECT_TRUE(failure_of([&] { form.accept(); }).has_value());
  EXPECT_EQ(failure_of([&] { form.accept(); }), std::nullopt);
  EXPECT_EQ(form.table.title, "Record Partnerships");
  form.accept();
  EXPECT_TRUE(form.closed);
}

}  // namespace
}  // namespace velorin::testing
