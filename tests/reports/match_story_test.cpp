// SPDX-License-Identifier: GPL-3.0-or-later
// The views of a match, with figures worked by hand from the scenes.
#include "reports/match_story.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "reports/match_scenes.h"
#include "reports/story_tables.h"
#include "support/game_in_play.h"

namespace velorin {
namespace {

class MatchStory : public reports_test {
 protected:
  void SetUp() override {
    reports_test::SetUp();
    set_second_innings_in_play();
  }

  static std::string line(const story_table& table, std::size_t row) {
    std::string text;
    for (const std::string& cell : table.rows.at(row).cells) text += (text.empty() ? "" : "|") + cell;
    return text;
  }
};

TEST_F(MatchStory, TellsBothInningsInTheirOrder) {
  const match_story story = story_of(match);
  ASSERT_EQ(story.innings.size(), 2U);
  EXPECT_EQ(story.ground, "Lake End");
  EXPECT_EQ(story.innings[0].card.side, "Northland");
  EXPECT_EQ(story.innings[1].card.side, "South Isles");
  EXPECT_EQ(story.innings[0].overs.size(), 49U);
  EXPECT_EQ(story.innings[1].overs.size(), 23U);
  match.first_total = 0;
  EXPECT_EQ(story_of(match).innings.size(), 1U);
}

TEST_F(MatchStory, TheCardHasDotsAndFalls) {
  const match_story story = story_of(match);
  const innings_story& northland = story.innings[0];
  EXPECT_EQ(line(batting_story(northland), 0), "A.Harrow|c && b J.Abara|123|131|19|14|2|93.89");
  EXPECT_EQ(line(bowling_story(northland), 1), "J.Abara|10.0|3|30|3|44|3");
  const story_table falls = falls_story(northland);
  EXPECT_EQ(line(falls, 3), "4|162|E.Sandoval|31.5");
  EXPECT_EQ(falls.rows[3].first_over, 32);
  EXPECT_EQ(card_words(northland),
            "Northland 261/10, 48.2 overs, 5.4 an over. Extras 25 (no balls 1, wides 12, leg byes 9, byes 3). "
            "The total does not count no balls and wides.");
  EXPECT_THAT(card_words(story.innings[1]), ::testing::HasSubstr("Did not bat: "));
}

TEST_F(MatchStory, PhasesStandsAndSpellsAddUp) {
  const innings_story northland = story_of(match).innings[0];
  const story_table phases = phases_story(northland);
  EXPECT_EQ(line(phases, 0), "1-10|88|0|10.0|8.80|45|1|14");
  EXPECT_EQ(line(phases, 3), "Innings|261|10|48.2|5.40|242|3|39");
  EXPECT_TRUE(phases.rows[3].total);
  EXPECT_EQ(line(stands_story(northland), 0), "1|88|94|5.62|B.Lindqvist-Ramsden 88 (94)|A.Harrow 0 (0)|0");
  EXPECT_EQ(line(stands_story(story_of(match).innings[1]), 3).substr(0, 5), "4|32*");
  EXPECT_EQ(line(spells_story(northland), 0), "K.Stote|1|1.0|0|36|0|36.00");
  EXPECT_EQ(line(meetings_story(northland), 6), "B.Lindqvist-Ramsden|H.Dray|0|18|18|0|0|0.00|");
  EXPECT_EQ(line(kinds_story(northland), 11), "Innings|261|232|1|1|4|3|39|0|0|0|0");
}

TEST_F(MatchStory, OversTellTheRatesOfAChase) {
  const match_story story = story_of(match);
  EXPECT_EQ(line(overs_story(story.innings[0]), 20), "21|K.Stote|24|2|133/3|6.33|");
  EXPECT_EQ(line(scorebook_story(story.innings[0]), 20), "21|K.Stote|W W 6 6 6 6|24|2|133/3");
  const story_over& first = story.innings[1].overs.front();
  // 262 to win, in 49 overs from then on.
  ASSERT_TRUE(first.required_rate);
  EXPECT_DOUBLE_EQ(*first.required_rate, (262.0 - first.score) / 49);
  match.first_total = story.innings[1].overs.back().score - 1;
  EXPECT_FALSE(story_of(match).innings[1].overs.back().required_rate) << "it has been made";
}

TEST_F(MatchStory, AnOverIsFoundInEveryTableThatTellsOfIt) {
  const innings_story northland = story_of(match).innings[0];
  EXPECT_EQ(row_of_over(scorebook_story(northland), 21), 20);
  EXPECT_EQ(row_of_over(phases_story(northland), 21), 1);
  EXPECT_EQ(row_of_over(spells_story(northland), 21), 20);
  EXPECT_EQ(row_of_over(scorebook_story(northland), 50), std::nullopt);
  EXPECT_EQ(row_of_over(stands_story(northland), 21), std::nullopt) << "a stand knows no overs";
}

TEST_F(MatchStory, AFilterLetsThroughWhatHoldsInAll) {
  const innings_story northland = story_of(match).innings[0];
  using kind = story_filter::kind;
  EXPECT_EQ(lines_with(northland, {}).size(), northland.commentary.size());
  EXPECT_EQ(lines_with(northland, {.which = kind::wickets}).size(), 10U);
  EXPECT_EQ(lines_with(northland, {.which = kind::boundaries}).size(), 42U);
  const auto his = lines_with(northland, {.which = kind::wickets, .bowler = 11});
  EXPECT_EQ(his.size(), 4U) << "K.Stote, off whom one was run out";
  for (const int place : his) {
    EXPECT_THAT(northland.commentary[static_cast<std::size_t>(place)].text, ::testing::HasSubstr("K.Stote"));
  }
  EXPECT_EQ(lines_with(northland, {.words = "END over no.7 "}).size(), 1U);
  EXPECT_TRUE(lines_with(northland, {.words = "nobody"}).empty());
}

TEST_F(MatchStory, LinesThatOnlyPartOthersAreLeftOut) {
  const innings_story northland = story_of(match).innings[0];
  for (const story_line& told : northland.commentary) {
    EXPECT_THAT(told.text, ::testing::Not(::testing::HasSubstr("----")));
    EXPECT_THAT(told.text, ::testing::Not(::testing::HasSubstr("====")));
  }
}

TEST_F(MatchStory, ATableInWordsSpeaksItsHeadingsInFull) {
  const innings_story northland = story_of(match).innings[0];
  EXPECT_THAT(words_of(phases_story(northland)),
              ::testing::StartsWith("Northland, phases. 1-10, Runs 88, Wickets 0, Overs bowled 10.0, Run rate 8.80, "));
  EXPECT_EQ(words_of(story_table{.name = "Milestones"}), "Milestones. Nothing yet.");
}

}  // namespace
}  // namespace velorin
