// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/innings_views.h"

#include <algorithm>
#include <map>
#include <utility>

#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

bool is_his(const delivery& ball) { return ball.is_wicket() && ball.how != dismissal::run_out; }

void add(ball_figures& to, const delivery& ball) {
  to.runs += ball.score();
  to.balls += int(ball.counted);
  to.wickets += int(ball.is_wicket());
  to.dots += int(ball.counted && ball.score() == 0);
  to.fours += int(ball.outcome == four_runs);
  to.sixes += int(ball.outcome == six_runs);
}

void add(kinds_of_runs& to, const delivery& ball) {
  switch (ball.outcome) {
    case dot_ball:
      ++to.dots;
      break;
    case one_run:
      ++to.ones;
      break;
    case two_runs:
      ++to.twos;
      break;
    case three_runs:
      ++to.threes;
      break;
    case four_runs:
      ++to.fours;
      break;
    case six_runs:
      ++to.sixes;
      break;
    case wicket:
      ++to.wickets;
      break;
    case no_ball:
      to.no_balls += ball.extras;
      break;
    case wide_ball:
      to.wides += ball.extras;
      break;
    case leg_byes:
      to.leg_byes += ball.extras;
      break;
    case byes:
      to.byes += ball.extras;
      break;
    default:
      break;
  }
}

stand::share& part_of(stand& now, int position) { return now.parts[now.parts[0].position == position ? 0 : 1]; }

/// The two who go on: he who is there longer comes first.
void begin(stand& now, int wicket, int stays, int comes) {
  now = stand();
  now.wicket = wicket;
  now.parts[0].position = stays;
  now.parts[1].position = comes;
}

/// Counted balls and runs off the bat of the over that a delivery belongs to.
struct over_so_far {
  int balls = 0;
  int runs = 0;

  bool is_maiden() const { return balls == balls_of_over && runs == 0; }
};

/// The deliveries over by over.
template <class Visit>
void each_over(const delivery_list& innings, Visit visit) {
  for (auto first = innings.begin(); first != innings.end();) {
    const auto last =
        std::find_if(first, innings.end(), [&](const delivery& ball) { return ball.over != first->over; });
    visit(first, last);
    first = last;
  }
}

}  // namespace

std::optional<double> ball_figures::rate() const {
  if (balls == 0) return std::nullopt;
  return static_cast<double>(runs) * balls_of_over / balls;
}

std::array<phase, 3> phases_of(const delivery_list& innings) {
  std::array<phase, 3> all = {{{1, 10, {}}, {11, 40, {}}, {41, 50, {}}}};
  for (const delivery& ball : innings) {
    const auto of = std::find_if(all.begin(), all.end(), [&](const phase& one) { return ball.over <= one.last_over; });
    if (of != all.end()) add(of->figures, ball);
  }
  return all;
}

std::vector<stand> stands_of(const delivery_list& innings) {
  std::vector<stand> all;
  if (innings.empty()) return all;
  stand now;
  begin(now, 1, innings.front().striker, innings.front().non_striker);
  bool has_ball = false;
  for (const delivery& ball : innings) {
    has_ball = true;
    now.runs += ball.score();
    now.balls += int(ball.counted);
    if (ball.is_body_extra()) now.body_extras += ball.extras;
    stand::share& his = part_of(now, ball.striker);
    his.runs += ball.runs;
    his.balls += int(ball.is_faced());
    if (!ball.is_wicket()) continue;
    all.push_back(now);
    begin(now, now.wicket + 1, ball.non_striker, ball.next_batsman);
    has_ball = false;
  }
  now.unbroken = true;
  if (has_ball) all.push_back(now);
  return all;
}

std::vector<meeting> meetings_of(const delivery_list& innings) {
  std::map<std::pair<int, int>, meeting> all;
  for (const delivery& ball : innings) {
    if (!ball.is_faced()) continue;
    meeting& one = all[{ball.striker, ball.bowler}];
    one.batsman = ball.striker;
    one.bowler = ball.bowler;
    one.runs += ball.runs;
    one.balls += 1;
    one.dots += int(ball.runs == 0);
    one.fours += int(ball.outcome == four_runs);
    one.sixes += int(ball.outcome == six_runs);
    one.out = one.out || is_his(ball);
  }
  std::vector<meeting> told;
  told.reserve(all.size());
  for (const auto& [who, one] : all) told.push_back(one);
  return told;
}

std::vector<spell> spells_of(const delivery_list& innings) {
  std::vector<spell> all;
  each_over(innings, [&](auto first, auto last) {
    auto open = std::find_if(all.rbegin(), all.rend(), [&](const spell& one) { return one.bowler == first->bowler; });
    if (open == all.rend() || open->last_over + 2 < first->over) {
      all.push_back({.bowler = first->bowler, .first_over = first->over});
      open = all.rbegin();
    }
    spell& now = *open;
    now.last_over = first->over;
    over_so_far over;
    for (; first != last; ++first) {
      now.runs += first->runs;
      now.wickets += int(is_his(*first));
      over.balls += int(first->counted);
      over.runs += first->runs;
    }
    now.balls += over.balls;
    now.maidens += int(over.is_maiden());
  });
  return all;
}

kinds_of_runs kinds_of(const delivery_list& innings) {
  kinds_of_runs all;
  for (const delivery& ball : innings) add(all, ball);
  return all;
}

kinds_of_runs kinds_of(const delivery_list& innings, int batsman) {
  kinds_of_runs his;
  for (const delivery& ball : innings) {
    if (ball.striker == batsman && ball.is_faced()) add(his, ball);
  }
  return his;
}

std::vector<scorebook_over> scorebook_of(const delivery_list& innings) {
  std::vector<scorebook_over> book;
  int score = 0;
  int down = 0;
  each_over(innings, [&](auto first, auto last) {
    scorebook_over line;
    line.over = first->over;
    line.bowler = first->bowler;
    over_so_far over;
    for (; first != last; ++first) {
      line.symbols.push_back(scorebook_symbol(*first));
      line.runs += first->score();
      line.wickets += int(first->is_wicket());
      over.balls += int(first->counted);
      over.runs += first->runs;
    }
    line.score = score += line.runs;
    line.down = down += line.wickets;
    line.maiden = over.is_maiden();
    book.push_back(std::move(line));
  });
  return book;
}

std::string scorebook_symbol(const delivery& ball) {
  switch (ball.outcome) {
    case dot_ball:
      return ".";
    case wicket:
      return "W";
    case no_ball:
      return "nb";
    case wide_ball:
      return "wd";
    case leg_byes:
      return number_text(int{ball.extras}) + "lb";
    case byes:
      return number_text(int{ball.extras}) + "b";
    default:
      return number_text(int{ball.runs});
  }
}

}  // namespace velorin
