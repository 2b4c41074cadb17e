// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/commentary.h"

#include <algorithm>
#include <array>

#include "model/innings_log.h"
#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

constexpr int lines_of_wicket = 5;
constexpr int lines_of_over_end = 12;

std::string ball_words(const delivery& ball) {
  switch (ball.outcome) {
    case leg_byes:
      return number_text(int(ball.extras)) + "Leg Bye(s).";
    case byes:
      return number_text(int(ball.extras)) + "Bye(s).";
    case no_ball:
      return "no ball.";
    case wide_ball:
      return "Wide.";
    case dot_ball:
      return "no run.";
    default:
      return number_text(int(ball.runs)) + (ball.runs == 1 ? " run." : " runs.");
  }
}

line_kind kind_of(const delivery& ball) {
  if (ball.outcome == four_runs) return line_kind::four;
  if (ball.outcome == six_runs) return line_kind::six;
  return line_kind::ball;
}

/// The man whom the line of a ball names: after byes and leg byes the one who has come to the striker's end by them.
int man_named(const delivery& ball) {
  return ball.is_body_extra() && ball.extras % 2 == 1 ? ball.non_striker : ball.striker;
}

/// A no ball or wide that stands on no number counts as a ball, and nothing is said of it.
bool is_told(const delivery& ball) { return !ball.is_no_ball_or_wide() || !ball.counted; }

/// The figures of an innings on their way from ball to ball.
struct running_figures {
  struct batsman {
    int runs = 0;
    int balls = 0;
  };
  struct bowler {
    int balls = 0;
    int maidens = 0;
    int runs = 0;
    int wickets = 0;
  };
  int score = 0;
  int wickets = 0;
  int balls = 0;
  std::array<batsman, men_in_eleven + 1> batsmen;  // 1..11
  std::array<bowler, men_in_eleven + 1> bowlers;   // 1..11

  void add(const delivery& ball) {
    score += ball.score();
    if (ball.is_faced()) {
      batsmen[ball.striker].runs += ball.runs;
      batsmen[ball.striker].balls += 1;
    }
    bowler& man = bowlers[ball.bowler];
    man.runs += ball.runs;
    if (ball.is_wicket()) {
      wickets += 1;
      if (ball.how != dismissal::run_out) man.wickets += 1;
    }
    if (ball.counted) {
      balls += 1;
      man.balls += 1;
    }
  }

  void close_over(std::span<const delivery> over) {
    const bool maiden = std::all_of(over.begin(), over.end(), [](const delivery& ball) { return ball.runs == 0; });
    if (maiden) bowlers[over.back().bowler].maidens += 1;
  }
};

/// The deliveries of each over that has any, in order.
template <class Visit>
void each_over(std::span<const delivery> deliveries, Visit visit) {
  while (!deliveries.empty()) {
    const std::span<const delivery> over = deliveries_of_over(deliveries, deliveries.front().over);
    visit(over);
    deliveries = deliveries.subspan(over.size());
  }
}

/// The figures with which the innings began: what it has come to, less what its deliveries brought.
running_figures figures_at_start(const told_innings& innings) {
  running_figures brought;
  each_over(innings.deliveries, [&](std::span<const delivery> over) {
    for (const delivery& ball : over) brought.add(ball);
    if (over.front().over <= innings.overs_closed) brought.close_over(over);
  });
  if (innings.last_ball_open && !innings.deliveries.empty() && innings.deliveries.back().counted) {
    brought.balls -= 1;
    brought.bowlers[innings.deliveries.back().bowler].balls -= 1;
  }
  running_figures start;
  start.score = innings.score_runs - brought.score;
  start.wickets = innings.score_wickets - brought.wickets;
  start.balls = innings.innings_balls - brought.balls;
  for (int i = 1; i <= men_in_eleven; ++i) {
    const batting_card_rec& batsman = innings.batting[i];
    start.batsmen[i] = {batsman.runs - brought.batsmen[i].runs, batsman.balls - brought.batsmen[i].balls};
    const bowling_card_rec& bowler = innings.bowling[i];
    const running_figures::bowler& gave = brought.bowlers[i];
    start.bowlers[i] = {bowler.balls - gave.balls, bowler.maidens - gave.maidens, bowler.runs - gave.runs,
                        bowler.wickets - gave.wickets};
  }
  return start;
}

void tell_wicket(std::vector<commentary_line>& lines, const std::string& lead, const batting_card_rec& out) {
  const std::string rule(20, '-');
  lines.push_back({lead + "Wicket!", line_kind::wicket});
  for (const std::string& line :
       {rule,
        out.name + "  " + out.fielder + " " + out.how_out + " " + number_text(int(out.runs)) + " (" +
            number_text(int(out.balls)) + ")",
        "Fours : " + number_text(int(out.fours)) + "   Sixes : " + number_text(int(out.sixes)), rule}) {
    lines.push_back({line, line_kind::wicket_card});
  }
}

void tell_over_end(std::vector<commentary_line>& lines, const told_innings& innings, const running_figures& figures,
                   std::span<const delivery> over) {
  const delivery& last = over.back();
  const int at_strikers_end = last.next_batsman != 0 ? last.next_batsman : last.striker;
  const auto [lower, higher] = std::minmax({at_strikers_end, int(last.non_striker)});
  const auto batsman = [&](int position) {
    const running_figures::batsman& man = figures.batsmen[static_cast<std::size_t>(position)];
    return innings.batting[static_cast<std::size_t>(position)].name + "     " + number_text(man.runs) + " (" +
           number_text(man.balls) + ")";
  };
  const running_figures::bowler& bowler = figures.bowlers[last.bowler];
  const std::string rate =
      figures.balls < 1 ? " - " : number_text(round_to(double{balls_of_over} * figures.score / figures.balls, 2));
  const std::string rule(17, '-');
  for (const std::string& line :
       {rule,
        "End of Over No." + number_text(int(last.over)) + "     (" +
            number_text(entries_of_over(over, last.over).runs()) + " runs)",
        short_name(innings.team) + "   " + number_text(figures.score) + "/" + number_text(figures.wickets), rule,
        " Run Rate : " + rate, rule, batsman(lower), batsman(higher), rule,
        innings.bowling[last.bowler].name + "     " +
            bowling_figures(bowler.balls, bowler.maidens, bowler.runs, bowler.wickets),
        std::string(17, '='), std::string()}) {
    lines.push_back({line, line_kind::over_end});
  }
}

}  // namespace

std::vector<commentary_line> tell(const told_innings& innings) {
  std::vector<commentary_line> lines;
  lines.reserve(static_cast<std::size_t>(count_lines(innings.deliveries, innings.overs_closed)));
  running_figures figures = figures_at_start(innings);
  each_over(innings.deliveries, [&](std::span<const delivery> over) {
    for (const delivery& ball : over) {
      figures.add(ball);
      if (!is_told(ball)) continue;
      const batting_card_rec& batsman = innings.batting[static_cast<std::size_t>(man_named(ball))];
      const std::string lead = innings.bowling[ball.bowler].name + " to " + batsman.name + " : ";
      if (ball.is_wicket()) {
        tell_wicket(lines, lead, batsman);
      } else {
        lines.push_back({lead + ball_words(ball), kind_of(ball)});
      }
    }
    if (over.front().over > innings.overs_closed) return;
    figures.close_over(over);
    tell_over_end(lines, innings, figures, over);
  });
  return lines;
}

bool has_too_many_lines(std::span<const delivery> deliveries, int overs_closed) {
  // Hardly any innings comes near: a line a ball, four more a wicket, twelve an over.
  constexpr int most_of_ten_wickets = (lines_of_wicket - 1) * wickets_of_innings;
  const auto most = static_cast<long>(deliveries.size()) + most_of_ten_wickets + lines_of_over_end * overs_closed;
  return most > most_stored_lines && count_lines(deliveries, overs_closed) > most_stored_lines;
}

int count_lines(std::span<const delivery> deliveries, int overs_closed) {
  int lines = 0;
  each_over(deliveries, [&](std::span<const delivery> over) {
    for (const delivery& ball : over) lines += ball.is_wicket() ? lines_of_wicket : is_told(ball) ? 1 : 0;
    if (over.front().over <= overs_closed) lines += lines_of_over_end;
  });
  return lines;
}

}  // namespace velorin
