// SPDX-License-Identifier: GPL-3.0-or-later
#include <span>
#include <string>
#include <string_view>

#include "engine/storage.h"
#include "model/run_time_error.h"
#include "model/teams.h"
#include "model/texts.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

/// Looks for the text `first` followed by `second` in a list that starts at 1, up to its first empty entry, and enters
/// it there if it was not seen. True if it was entered.
bool enter(std::span<std::string> list, std::string_view first, std::string_view second = {}) {
  for (std::size_t i = 1; i < list.size(); ++i) {
    if (list[i].empty()) {
      list[i].append(first).append(second);
      return true;
    }
    if (equals_joined(list[i], first, second)) return false;
  }
  throw run_time_error(failure::subscript, "Subscript out of range: a list of achievements is full",
                       {.file = {}, .record = 0, .field = {}, .player = std::string(first) + std::string(second)});
}

/// A milestone of batsmen: runs, the list of those congratulated, the words behind the figures.
struct batting_milestone {
  int runs;
  std::span<std::string> list;
  const char* words;
};

void check_batsman(const batting_milestone& milestone, int position, const char* gap) {
  const batting_card_rec& man = match.batting_card[position];
  if (man.runs < milestone.runs || !enter(milestone.list, man.name) || !match.human_involved()) return;
  user().show(message_box{man.name + " - Batting achievement", man.name + gap + number_text(int(man.runs)) + "(" +
                                                                   number_text(int(man.balls)) + ")" +
                                                                   milestone.words});
}

void check_batsmen() {
  const batting_milestone milestones[] = {
      {50, match.fifty_list, "  has reached his fifty "},
      {100, match.hundred_list, "  has reached his century! "},
      {150, match.century_and_half_list, "  has reached his one hundred fifty "},
      {200, match.double_century_list, "  has reached his Double century! "},
  };
  for (const batting_milestone& milestone : milestones) {
    if (match.batting_card[match.striker].runs < milestone.runs &&
        match.batting_card[match.non_striker].runs < milestone.runs) {
      return;  // the higher ones are further away
    }
    check_batsman(milestone, match.striker, "  ");
    check_batsman(milestone, match.non_striker, " ");
  }
}

void check_bowler() {
  const bowling_card_rec& man = match.bowling_card[match.bowler];
  if (man.wickets < 5 || !enter(match.five_wicket_list, man.name) || !match.human_involved()) return;
  user().show(message_box{man.name + " - Bowling achievement", man.name + " has taken a Five Wicket Haul! "});
}

/// A milestone of a stand.
struct stand_milestone {
  int runs;
  std::span<std::string> list;
  const char* words;
};

void check_stand() {
  const int stand = match.score_runs - match.fall_of_wicket[match.score_wickets].score;
  if (stand < 50) return;
  const stand_milestone milestones[] = {
      {50, match.stand50_list, "Fifty"},
      {100, match.stand100_list, "Hundred"},
      {150, match.stand150_list, "One hundered fifty"},
      {200, match.stand200_list, "Two hundred"},
      {250, match.stand250_list, "Two hundred Fifty"},
      {300, match.stand300_list, "Three hundred"},
  };
  const std::string& lower = match.batting_xi[match.lower_batsman()].name;
  const std::string& higher = match.batting_xi[match.higher_batsman()].name;
  for (const stand_milestone& milestone : milestones) {
    if (stand < milestone.runs) return;
    if (!enter(milestone.list, lower, higher) || !match.human_involved()) continue;
    user().show(message_box{" Partnership", lower + " & " + higher + " have put on a " + milestone.words +
                                                " run partnership! "});
  }
}

}  // namespace

void check_milestones() {
  check_batsmen();
  check_bowler();
  check_stand();
}

}  // namespace velorin
