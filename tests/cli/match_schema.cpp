// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/match_schema.h"
#include "support/game_in_play.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>

namespace velorin::testing {

namespace {

using nlohmann::json;

using check = std::function<void(const json&, const std::string&)>;
using schema = std::map<std::string, check>;

void text(const json& value, const std::string& where) { EXPECT_TRUE(value.is_string()) << where << ": " << value; }
void whole(const json& value, const std::string& where) {
  EXPECT_TRUE(value.is_number_integer()) << where << ": " << value;
}
void number(const json& value, const std::string& where) { EXPECT_TRUE(value.is_number()) << where << ": " << value; }
void flag(const json& value, const std::string& where) { EXPECT_TRUE(value.is_boolean()) << where << ": " << value; }

/// An object of exactly these fields.
check object(const schema& fields) {
  return [fields](const json& value, const std::string& where) {
    ASSERT_TRUE(value.is_object()) << where;
    for (const auto& [name, as] : fields) {
      ASSERT_TRUE(value.contains(name)) << where << " has no " << name;
      as(value.at(name), where + "." + name);
    }
    for (const auto& item : value.items()) EXPECT_TRUE(fields.contains(item.key())) << where << " has " << item.key();
  };
}

/// An array of `length` entries; any number of them for -1.
check array(int length, const check& entry) {
  return [length, entry](const json& value, const std::string& where) {
    ASSERT_TRUE(value.is_array()) << where;
    EXPECT_TRUE(length < 0 || value.size() == static_cast<std::size_t>(length)) << where << ": " << value.size();
    for (std::size_t i = 0; i < value.size(); ++i) entry(value[i], where + "[" + std::to_string(i) + "]");
  };
}

const check player = object({{"name", text},
                             {"bat_skill", whole},
                             {"bowl_sr", number},
                             {"econ", number},
                             {"is_keeper", flag},
                             {"bat_type", text},
                             {"bowler_type", text}});

const check batting_line = object({{"name", text},
                                   {"runs", whole},
                                   {"balls", whole},
                                   {"fours", whole},
                                   {"sixes", whole},
                                   {"twos", whole},
                                   {"threes", whole},
                                   {"singles", whole},
                                   {"dots", whole},
                                   {"how_out", text},
                                   {"fielder", text}});

const check bowling_line =
    object({{"name", text}, {"balls", whole}, {"maidens", whole}, {"runs", whole}, {"wickets", whole}});

const check fall = object({{"score", whole},
                           {"overs_text", text},
                           {"partner_runs", whole},
                           {"partner_balls", whole},
                           {"balls", whole},
                           {"batsman_a", text},
                           {"batsman_b", text}});

const check log = array(50, array(7, text));
const check names = array(-1, text);
const check rate = object({{"team", text}, {"delta", number}});

const check pool_line =
    object({{"name", text}, {"rating", number}, {"position", whole}, {"econ_class", whole}, {"bowler_type", text}});

const schema state_fields = {{"team1_name", text},
                             {"team2_name", text},
                             {"computer_bats", flag},
                             {"computer_bowls", flag},
                             {"over_no", whole},
                             {"bowler", whole},
                             {"next_bowler", whole},
                             {"striker", whole},
                             {"non_striker", whole},
                             {"next_batsman_slot", whole},
                             {"maiden_flag", flag},
                             {"clock_minutes", whole},
                             {"score_runs", whole},
                             {"score_wickets", whole},
                             {"overs_text", text},
                             {"over_symbols", array(6, text)},
                             {"innings_total", whole},
                             {"innings_balls", whole},
                             {"innings_wickets", whole},
                             {"innings_no_balls", whole},
                             {"innings_wides", whole},
                             {"innings_byes", whole},
                             {"innings_leg_byes", whole},
                             {"first_total", whole},
                             {"first_balls", whole},
                             {"first_wickets", whole},
                             {"first_no_balls", whole},
                             {"first_wides", whole},
                             {"first_byes", whole},
                             {"first_leg_byes", whole},
                             {"batting_xi", array(11, player)},
                             {"bowling_xi", array(11, player)},
                             {"batting_card", array(11, batting_line)},
                             {"first_batting_card", array(11, batting_line)},
                             {"bowling_card", array(11, bowling_line)},
                             {"first_bowling_card", array(11, bowling_line)},
                             {"fall_of_wicket", array(11, fall)},
                             {"first_fall_of_wicket", array(11, fall)},
                             {"ball_log", log},
                             {"first_ball_log", log},
                             {"ball_commentary", names},
                             {"commentary_store", names},
                             {"fifty_list", names},
                             {"hundred_list", names},
                             {"century_and_half_list", names},
                             {"double_century_list", names},
                             {"five_wicket_list", names},
                             {"stand50_list", names},
                             {"stand100_list", names},
                             {"stand150_list", names},
                             {"stand200_list", names},
                             {"stand250_list", names},
                             {"stand300_list", names},
                             {"weather", whole},
                             {"pitch_surface", whole},
                             {"pitch_bounce", whole},
                             {"outfield", whole},
                             {"venue_name", text},
                             {"start_time", whole},
                             {"batsman_aggression", array(2, whole)},
                             {"bowling_aggression", array(2, whole)},
                             {"settled_meter", array(2, number)},
                             {"first_innings_projection", text},
                             {"bowler_pool", array(11, pool_line)},
                             {"opening_bowlers", array(2, whole)},
                             {"bowler_list", names}};

}  // namespace

void expect_match_object(const nlohmann::json& match) {
  object({{"format", text},
          {"version", whole},
          {"scorecards", array(-1, object(state_fields))},
          {"messages", array(-1, object({{"title", text}, {"text", text}}))},
          {"result", object({{"result_ground", text},
                             {"result_winner", text},
                             {"result_loser", text},
                             {"result_margin", text},
                             {"rate_first", rate},
                             {"rate_second", rate}})},
          {"draws_used", whole}})(match, "match");
  EXPECT_EQ(match["format"], "velorin-match");
  EXPECT_EQ(match["version"], 1);
}

}  // namespace velorin::testing
