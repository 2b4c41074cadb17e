// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/classic_questions.h"

#include <initializer_list>

namespace velorin {

namespace {

enum class first { most, fewest };

/// A question in the order in which one writes it down; conditions as typed.
struct written {
  std::string_view title;
  rows_of from;
  std::initializer_list<const char*> by;
  std::initializer_list<const char*> where;
  std::initializer_list<const char*> having;
  const char* sort;
  first order;
};

const written fifty[] = {
    // batting
    {"Highest scores", rows_of::batting, {}, {}, {}, "runs", first::most},
    {"Fastest hundreds", rows_of::batting, {}, {"runs>=100"}, {}, "hundred_balls", first::fewest},
    {"Fastest fifties", rows_of::batting, {}, {"runs>=50"}, {}, "fifty_balls", first::fewest},
    {"Slowest hundreds", rows_of::batting, {}, {"runs>=100"}, {}, "hundred_balls", first::most},
    {"Hundreds in defeat", rows_of::batting, {}, {"runs>=100", "result=lost"}, {}, "runs", first::most},
    {"Highest scores of a number five or lower",
     rows_of::batting,
     {},
     {"runs>=50", "position>=5"},
     {},
     "runs",
     first::most},
    {"Unbeaten nineties", rows_of::batting, {}, {"runs>=90", "runs<100", "out=0"}, {}, "runs", first::most},
    {"Out in the nineties", rows_of::batting, {}, {"runs>=90", "runs<100", "out=1"}, {}, "runs", first::most},
    {"Hundreds in a World Cup", rows_of::batting, {}, {"runs>=100", "competition=World Cup"}, {}, "runs", first::most},
    {"Hundreds in finals", rows_of::batting, {}, {"runs>=100", "stage=Final"}, {}, "runs", first::most},
    {"Most sixes in an innings", rows_of::batting, {}, {"runs>=50"}, {}, "sixes", first::most},
    {"Most boundaries in an innings", rows_of::batting, {}, {"runs>=50"}, {}, "boundaries", first::most},
    {"Best strike rates of fifties", rows_of::batting, {}, {"runs>=50"}, {}, "strike_rate", first::most},
    {"Most runs", rows_of::batting, {"player", "team"}, {}, {}, "runs", first::most},
    {"Best averages, 20 innings or more",
     rows_of::batting,
     {"player", "team"},
     {},
     {"innings>=20"},
     "average",
     first::most},
    {"Best strike rates, 500 balls or more",
     rows_of::batting,
     {"player", "team"},
     {},
     {"balls>=500"},
     "strike_rate",
     first::most},
    {"Most hundreds", rows_of::batting, {"player", "team"}, {}, {}, "hundreds", first::most},
    {"Most fifties", rows_of::batting, {"player", "team"}, {}, {}, "fifties", first::most},
    {"Most ducks", rows_of::batting, {"player", "team"}, {}, {}, "ducks", first::most},
    {"Most sixes", rows_of::batting, {"player", "team"}, {}, {}, "sixes", first::most},
    // bowling
    {"Best figures", rows_of::bowling, {}, {"wickets>=5"}, {}, "figures", first::most},
    {"Best figures in defeat", rows_of::bowling, {}, {"wickets>=4", "result=lost"}, {}, "figures", first::most},
    {"Five wickets in a World Cup",
     rows_of::bowling,
     {},
     {"wickets>=5", "competition=World Cup"},
     {},
     "figures",
     first::most},
    {"Best figures in finals", rows_of::bowling, {}, {"wickets>=3", "stage=Final"}, {}, "figures", first::most},
    {"Five wickets and beaten", rows_of::bowling, {}, {"wickets>=5", "result=lost"}, {}, "runs", first::fewest},
    {"Most economical of those with four wickets", rows_of::bowling, {}, {"wickets>=4"}, {}, "economy", first::fewest},
    {"Most wickets", rows_of::bowling, {"player", "team"}, {}, {}, "wickets", first::most},
    {"Best bowling averages, 20 wickets or more",
     rows_of::bowling,
     {"player", "team"},
     {},
     {"wickets>=20"},
     "average",
     first::fewest},
    {"Best economy, 600 balls or more",
     rows_of::bowling,
     {"player", "team"},
     {},
     {"balls>=600"},
     "economy",
     first::fewest},
    {"Most five-wicket hauls", rows_of::bowling, {"player", "team"}, {}, {}, "five_wickets", first::most},
    {"Most maidens", rows_of::bowling, {"player", "team"}, {}, {}, "maidens", first::most},
    // innings of teams
    {"Highest totals", rows_of::innings, {}, {}, {}, "runs", first::most},
    {"Lowest totals all out", rows_of::innings, {}, {"wickets=10"}, {}, "runs", first::fewest},
    {"Highest totals in defeat", rows_of::innings, {}, {"result=lost"}, {}, "runs", first::most},
    {"Lowest totals defended", rows_of::innings, {}, {"innings=1", "result=won"}, {}, "runs", first::fewest},
    {"Highest totals chased", rows_of::innings, {}, {"innings=2", "result=won"}, {}, "runs", first::most},
    {"Highest totals without a fifty", rows_of::innings, {}, {"top_score<50"}, {}, "runs", first::most},
    {"Highest totals without a hundred", rows_of::innings, {}, {"hundreds=0"}, {}, "runs", first::most},
    {"Two hundreds in one innings", rows_of::innings, {}, {"hundreds>=2"}, {}, "runs", first::most},
    {"Most sixes of a team in an innings", rows_of::innings, {}, {}, {}, "sixes", first::most},
    {"Most byes and leg byes in an innings", rows_of::innings, {}, {}, {}, "extras", first::most},
    {"Teams by wins", rows_of::innings, {"team"}, {}, {}, "won", first::most},
    // stands
    {"Highest stands", rows_of::stands, {}, {"runs>=50"}, {}, "runs", first::most},
    {"Highest opening stands", rows_of::stands, {}, {"wicket=1"}, {}, "runs", first::most},
    {"Highest last stands", rows_of::stands, {}, {"wicket=10"}, {}, "runs", first::most},
    // matches
    {"Narrowest wins by runs", rows_of::matches, {}, {"difference>0", "margin~run"}, {}, "difference", first::fewest},
    {"Largest wins by runs", rows_of::matches, {}, {"difference>0", "margin~run"}, {}, "difference", first::most},
    {"Ties", rows_of::matches, {}, {"winner="}, {}, "runs", first::most},
    {"Most runs of both sides", rows_of::matches, {}, {}, {}, "runs", first::most},
    {"Grounds by matches", rows_of::matches, {"ground"}, {}, {}, "matches", first::most},
};

}  // namespace

std::vector<classic_question> classic_questions() {
  std::vector<classic_question> all;
  for (const written& one : fifty) {
    question asked{.from = one.from,
                   .by = {one.by.begin(), one.by.end()},
                   .where = {},
                   .having = {},
                   .sort = one.sort,
                   .descending = one.order == first::most,
                   .top = classic_rows};
    for (const char* typed : one.where) asked.where.push_back(condition_from(typed));
    for (const char* typed : one.having) asked.having.push_back(condition_from(typed));
    all.push_back({one.title, std::move(asked)});
  }
  return all;
}

}  // namespace velorin
