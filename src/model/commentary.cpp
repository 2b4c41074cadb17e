// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/commentary.h"

#include "model/rounding.h"
#include "model/rules.h"
#include "model/texts.h"

namespace velorin {

namespace {

std::string ball_words(ball_text text, int number) {
  switch (text) {
    case ball_text::runs:
      if (number == 0) return "no run.";
      return number_text(number) + (number == 1 ? " run." : " runs.");
    case ball_text::leg_byes:
      return number_text(number) + "Leg Bye(s).";
    case ball_text::byes:
      return number_text(number) + "Bye(s).";
    case ball_text::no_ball:
      return "no ball.";
    case ball_text::wide:
      return "Wide.";
  }
  return {};
}

void add_wicket_lines(std::vector<std::string>& lines, const std::string& lead, const batting_card_rec& out) {
  static const std::string rule(20, '-');
  lines.push_back(lead + "Wicket!");
  lines.push_back(rule);
  lines.push_back(out.name + "  " + out.fielder + " " + out.how_out + " " + number_text(out.runs) + " (" +
                  number_text(out.balls) + ")");
  lines.push_back("Fours : " + number_text(out.fours) + "   Sixes : " + number_text(out.sixes));
  lines.push_back(rule);
}

void add_over_lines(std::vector<std::string>& lines, const over_note& note, const batting_card_table& batting,
                    const std::string& bowler, std::string_view team) {
  static const std::string rule(17, '-');
  const auto batsman = [&](int position, int runs, int balls) {
    return batting[position].name + "     " + number_text(runs) + " (" + number_text(balls) + ")";
  };
  const std::string rate = note.innings_balls < 1
                               ? " - "
                               : number_text(round_to(double{balls_of_over} * note.score_runs / note.innings_balls, 2));
  lines.push_back(rule);
  lines.push_back("End of Over No." + number_text(note.over_no) + "     (" + number_text(note.over_runs) + " runs)");
  lines.push_back(short_name(team) + "   " + number_text(note.score_runs) + "/" + number_text(note.score_wickets));
  lines.push_back(rule);
  lines.push_back(" Run Rate : " + rate);
  lines.push_back(rule);
  lines.push_back(batsman(note.first_batsman, note.first_runs, note.first_balls));
  lines.push_back(batsman(note.second_batsman, note.second_runs, note.second_balls));
  lines.push_back(rule);
  lines.push_back(bowler + "     " +
                  bowling_figures(note.bowler_balls, note.bowler_maidens, note.bowler_runs, note.bowler_wickets));
  lines.push_back(std::string(17, '='));
  lines.emplace_back();
}

}  // namespace

std::vector<std::string> commentary_log::lines(const batting_card_table& batting, const bowling_card_table& bowling,
                                               std::string_view team) const {
  std::vector<std::string> lines;
  lines.reserve(static_cast<std::size_t>(lines_));
  for (const entry& e : entries_) {
    if (e.what == kind::over) {
      const over_note& note = overs_[static_cast<std::size_t>(static_cast<int>(e.number))];
      add_over_lines(lines, note, batting, bowling[note.bowler].name, team);
      continue;
    }
    const std::string lead = bowling[e.bowler].name + " to " + batting[e.striker].name + " : ";
    if (e.what == kind::wicket) {
      add_wicket_lines(lines, lead, batting[e.striker]);
    } else {
      lines.push_back(lead + ball_words(e.text, e.number));
    }
  }
  return lines;
}

}  // namespace velorin
