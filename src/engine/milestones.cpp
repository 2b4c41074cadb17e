// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "engine/ball_books.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "model/run_time_error.h"
#include "model/texts.h"

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

/// A milestone of batsmen or of a stand: runs, the list of those congratulated, the words of the message.
struct milestone {
  int runs;
  std::span<std::string> list;
  const char* words;
};

void announce(match_state& match, std::string title, std::string text, message_kind kind) {
  if (match.human_involved()) match.announcements.push_back({std::move(title), std::move(text), kind});
}

void announce_batsman(match_state& match, const batting_card_rec& man, const char* gap, const milestone& reached) {
  announce(match, man.name + " - Batting achievement",
           man.name + gap + number_text(int(man.runs)) + "(" + number_text(int(man.balls)) + reached.words,
           reached.runs % century == 0 ? message_kind::hundred : message_kind::batting_milestone);
}

/// Steps 1 to 4 for one of the two batsmen. True if he has reached the milestone of the step.
bool check_batsman(match_state& match, int step, const milestone& reached, int position, const char* gap) {
  const batting_card_rec& man = match.batting_card[position];
  if (man.runs < reached.runs) return false;
  std::uint8_t& known = match.batting_step[position];
  if (known >= step) return true;
  if (enter(reached.list, man.name)) announce_batsman(match, man, gap, reached);
  // A man without a name is never found on a list, and so never known.
  if (!man.name.empty()) known = static_cast<std::uint8_t>(step);
  return true;
}

/// The man has reached a step that he is not known for.
bool is_due(const match_state& match, int position) {
  return std::min(match.batting_card[position].runs / half_century, 4) > match.batting_step[position];
}

void check_batsmen(match_state& match) {
  if (!is_due(match, match.striker) && !is_due(match, match.non_striker)) return;
  const milestone milestones[] = {
      {half_century, match.fifty_list, ")  has reached his fifty "},
      {century, match.hundred_list, ")  has reached his century! "},
      {3 * half_century, match.century_and_half_list, ")  has reached his one hundred fifty "},
      {2 * century, match.double_century_list, ")  has reached his Double century! "},
  };
  for (int step = 1; step <= 4; ++step) {
    const bool striker = check_batsman(match, step, milestones[step - 1], match.striker, "  ");
    const bool non_striker = check_batsman(match, step, milestones[step - 1], match.non_striker, " ");
    if (!striker && !non_striker) return;  // the higher ones are further away
  }
}

void check_bowler(match_state& match) {
  const bowling_card_rec& man = match.bowling_card[match.bowler];
  std::uint8_t& known = match.five_wicket_step[match.bowler];
  if (man.wickets < five_wicket_haul || known != 0) return;
  if (enter(match.five_wicket_list, man.name)) {
    announce(match, man.name + " - Bowling achievement", man.name + " has taken a Five Wicket Haul! ",
             message_kind::bowling_milestone);
  }
  if (!man.name.empty()) known = 1;
}

void enter_stand(match_state& match, int stand) {
  const milestone milestones[] = {
      {half_century, match.stand50_list, "Fifty"},
      {century, match.stand100_list, "Hundred"},
      {3 * half_century, match.stand150_list, "One hundered fifty"},
      {2 * century, match.stand200_list, "Two hundred"},
      {5 * half_century, match.stand250_list, "Two hundred Fifty"},
      {3 * century, match.stand300_list, "Three hundred"},
  };
  const std::string& lower = match.batting_xi[match.lower_batsman()].name;
  const std::string& higher = match.batting_xi[match.higher_batsman()].name;
  const bool named = !lower.empty() || !higher.empty();
  for (int step = 1; step <= 6 && stand >= milestones[step - 1].runs; ++step) {
    if (match.stand_step >= step) continue;
    const milestone& reached = milestones[step - 1];
    if (enter(reached.list, lower, higher)) {
      announce(match, " Partnership", lower + " & " + higher + " have put on a " + reached.words + " run partnership! ",
               message_kind::stand_milestone);
    }
    if (named) match.stand_step = static_cast<std::uint8_t>(step);
  }
}

void check_stand(match_state& match) {
  const stand_key stand_of = {match.score_wickets, match.lower_batsman(), match.higher_batsman()};
  if (match.stand_of != stand_of) {
    match.stand_of = stand_of;
    match.stand_step = 0;
  }
  const int stand = match.score_runs - score_at_last_fall(match);
  if (stand >= half_century * (match.stand_step + 1) && match.stand_step < 6) enter_stand(match, stand);
}

}  // namespace

void check_milestones(match_state& match) {
  check_batsmen(match);
  check_bowler(match);
  check_stand(match);
}

}  // namespace velorin
