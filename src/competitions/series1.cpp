// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/series1.h"

#include "model/random.h"
#include "model/teams.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

series_record series;

namespace {

void show_results() {
  sri_result form;
  form.open();
  user().show(form);
}

/// False if the user leaves the match: it is still to be played.
bool play_next_match() {
  const std::string ground_before = series.drawn_ground;
  series.match_no += 1;
  series.drawn_ground = draw_ground(series.grounds);
  if (!enter_match(series.home, series.away, series.drawn_ground)) {
    series.match_no -= 1;
    series.drawn_ground = ground_before;
    return false;
  }
  series.series_winner[series.match_no] = match.result_winner;
  series.series_margin[series.match_no] = match.result_margin;
  series.series_ground[series.match_no] = match.result_ground;
  match.result_winner.clear();
  match.result_margin.clear();
  match.result_ground.clear();
  if (series.match_no == series.matches) series.series_over = true;
  return true;
}

std::string ordinal(int i) {
  const char* ending = i == 1 ? "st" : i == 2 ? "nd" : i == 3 ? "rd" : "th";
  return number_text(i) + ending;
}

std::string standing(const std::string& team, int won, int lost) {
  const char* words = series.series_over ? " wins the series " : " leads the series ";
  return team + words + number_text(won) + " - " + number_text(lost);
}

}  // namespace

void series1::open() {
  combo1 = list_teams();
  combo1_index = combo1.size() > 1 ? 1 : -1;
  combo2_index = combo1.size() > 2 ? 2 : -1;
  rebuild_grounds();
}

void series1::rebuild_grounds() {
  combo3 = list_grounds({entry_text(combo1, combo1_index)});
  combo3_index = combo3.size() > 1 ? 1 : -1;
}

void series1::choose_home(int index) {
  combo1_index = index;
  rebuild_grounds();
}

void series1::choose_away(int index) {
  combo2_index = index;
  rebuild_grounds();
}

void series1::vscroll1_change(int value) { text1 = number_text(value); }

void series1::command1_click() {
  const int matches = typed_number(text1, 10, "Text1");
  reseed();
  const series_record before = series;
  series = series_record();
  series.home = {entry_text(combo1, combo1_index), !option1_cpu};
  series.away = {entry_text(combo1, combo2_index), !option3_cpu};
  series.grounds = combo3;
  series.matches = matches;
  while (series.match_no < matches) {
    if (!play_next_match() && series.match_no == 0) {
      series = before;
      return;
    }
    show_results();
  }
  closed = true;
}

void sri_result::open() {
  team_a = series.home.team;
  team_b = series.away.team;
  label4_1 = team_a + " vs " + team_b + " Series Result:";
  int won_a = 0;
  int won_b = 0;
  for (int i = 1; !series.series_winner[i].empty(); ++i) {
    const std::string& winner = series.series_winner[i];
    rows.push_back({ordinal(i) + " ODI - " + series.series_ground[i], winner + series.series_margin[i]});
    if (winner == team_a) {
      ++won_a;
    } else if (winner == team_b) {
      ++won_b;
    }
  }
  if (won_a > won_b) {
    label4_0 = standing(team_a, won_a, won_b);
  } else if (won_b > won_a) {
    label4_0 = standing(team_b, won_b, won_a);
  } else {
    label4_0 = "The series is tied " + number_text(won_a) + " - " + number_text(won_b);
  }
}

void sri_result::command1_click() {
  if (series.series_over) {
    for (int i = 1; i <= 10; ++i) {
      series.series_ground[i].clear();
      series.series_winner[i].clear();
      series.series_margin[i].clear();
    }
    match.result_ground.clear();
    match.result_winner.clear();
    match.result_margin.clear();
    series.series_over = false;
  }
  closed = true;
}

}  // namespace velorin
