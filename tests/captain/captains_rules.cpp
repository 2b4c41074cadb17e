// SPDX-License-Identifier: GPL-3.0-or-later
#include "captain/captains_rules.h"

#include <cmath>
#include <utility>

namespace velorin::testing::rules {

namespace {

std::string role_of(const player_rec& man) { return man.bat_type.size() < 4 ? "" : man.bat_type.substr(3); }

double clamped(double value) {
  if (value < 1) return 1;
  if (value > 5) return 5;
  return value;
}

double form(const match_state& m, int position) {
  return 2.0 * m.batting_card[position].runs + m.batting_card[position].balls / 2.0 + 1;
}

/// Arguments of a search as the stages give them.
struct wanted {
  std::string type_a;
  std::string type_b;
  int exclude_a = -1;
  int exclude_b = -1;
  int exclude_c = -1;
  int exclude_d = -1;
  int max_balls = 0;
};

/// Position of the replacement, or 0.
int replacement(match_state& m, const wanted& w) {
  bool relaxed = false;
  int i = 1;
  while (true) {
    if (i > 11) {
      if (relaxed) return 0;
      relaxed = true;
      i = 1;
    }
    const bowler_pool_rec& man = m.bowler_pool[i];
    const int balls = m.bowling_card[man.position].balls;
    if ((man.bowler_type == w.type_a || man.bowler_type == w.type_b || relaxed) && man.position != w.exclude_a &&
        man.position != w.exclude_b && man.position != w.exclude_c && man.position != w.exclude_d && balls >= 0 &&
        balls <= w.max_balls) {
      m.bowler_change_pending = true;
      m.bowler_change_out = w.exclude_b;
      m.bowler_change_in = man.position;
      return man.position;
    }
    ++i;
  }
}

bool change(match_state& m, wanted w) {
  w.exclude_a = m.bowler;
  w.exclude_b = m.next_bowler;
  const int position = replacement(m, w);
  if (position == 0) return false;
  m.next_bowler = position;
  return true;
}

/// Score above the limit: a change; then, with a forced limit, a change of a man who has bowled his overs.
bool stage(match_state& m, double score, double limit, wanted w, int forced_max) {
  if (score > limit && !change(m, w)) return false;
  if (forced_max == 0) return true;
  if (m.bowling_card[m.next_bowler].balls < 60) return true;
  w.max_balls = forced_max;
  return change(m, w);
}

bool review_stages(match_state& m) {
  const double b = m.bowling_card[m.next_bowler].balls;
  const double r = m.bowling_card[m.next_bowler].runs;
  const double w = m.bowling_card[m.next_bowler].wickets;
  const int n = m.innings_balls;
  const wanted pace{"Fast Bowler", "Medium Pacer"};
  wanted others;
  others.exclude_c = m.opening_bowlers[0];
  others.exclude_d = m.opening_bowlers[1];
  if (n >= 12 && n <= 71) {
    const double t = b > 24 ? b / 6 : -5;
    wanted early = pace;
    early.max_balls = 30;
    return stage(m, t - 1.25 * w + 6 * r / (2 * b), 7, early, 0);
  }
  if (n >= 73 && n <= 179) {
    const double t = b > 18 ? b / 10 : -5;
    others.max_balls = 42;
    return stage(m, t - w + 6 * r / (1.5 * b), 5.5, others, 54);
  }
  if (n >= 181 && n <= 259) {
    others.max_balls = 48;
    return stage(m, 6 * r / b - w, 6, others, 48);
  }
  if (n > 260) {
    double score = 6 * r / b - w;
    if (m.bowling_xi[m.next_bowler].bowler_type != "Fast Bowler") score = 8;
    wanted death = pace;
    death.max_balls = 54;
    return stage(m, score, 7, death, 54);
  }
  return true;
}

double bowling_base(const match_state& m) {
  const double w = m.score_wickets;
  const double r = m.score_runs;
  const double b = m.innings_balls;
  if (b == 0) return 2;
  if (m.first_total == 0) return half_even(w / 2 + 4 - r / b - b / 75);
  return half_even(w / 3 + 4 - m.first_innings_projection.number() / 4 + b / 100);
}

}  // namespace

double half_even(double value) {
  const double below = std::floor(value);
  const double part = value - below;
  if (part < 0.5) return below;
  if (part > 0.5) return below + 1;
  return std::fmod(below, 2) == 0 ? below : below + 1;
}

void next_batsman(match_state& m) {
  m.next_batsman_slot = m.striker > m.non_striker ? m.striker : m.non_striker;
  int opener = 0;
  int middle = 0;
  int lower = 0;
  int best_middle = 0;
  int best_lower = 0;
  for (int p = m.next_batsman_slot + 1; p <= 11; ++p) {
    const std::string role = role_of(m.batting_xi[p]);
    const int skill = m.batting_xi[p].bat_skill;
    if (role == "Opener") {
      opener = p;
      break;
    }
    if (role == "Middle Order" && skill > best_middle) {
      best_middle = skill;
      middle = p;
    }
    if (role == "Lower Order" && skill > best_lower) {
      best_lower = skill;
      lower = p;
    }
  }
  int choice = opener;
  if (choice == 0) choice = middle;
  if (choice == 0) choice = lower;
  if (choice == 0) return;
  const player_rec chosen = m.batting_xi[choice];
  for (int p = choice; p > m.next_batsman_slot + 1; --p) m.batting_xi[p] = m.batting_xi[p - 1];
  m.batting_xi[m.next_batsman_slot + 1] = chosen;
}

void opening_bowlers(match_state& m, int offset) {
  for (int i = 1; i <= 11; ++i) {
    const player_rec& man = m.bowling_xi[i];
    m.bowler_pool[i] = {man.name, double(man.bowl_sr) + offset, i, int(half_even(double(man.econ))), man.bowler_type};
  }
  const auto key = [&](int i) { return (18 * m.bowler_pool[i].econ_class + m.bowler_pool[i].rating) / 2; };
  for (int pass = 1; pass <= 10; ++pass) {
    for (int i = 1; i <= 10; ++i) {
      if (key(i + 1) < key(i)) std::swap(m.bowler_pool[i], m.bowler_pool[i + 1]);
    }
  }
  const auto first = [&](const std::string& type, int other) {
    for (int i = 1; i <= 11; ++i) {
      if (m.bowler_pool[i].bowler_type == type && m.bowler_pool[i].position != other) {
        return int(m.bowler_pool[i].position);
      }
    }
    return 0;
  };
  m.bowler = first("Fast Bowler", 0);
  if (m.bowler == 0) m.bowler = first("Medium Pacer", 0);
  if (m.bowler == 0) m.bowler = m.bowler_pool[1].position;
  m.next_bowler = first("Fast Bowler", m.bowler);
  if (m.next_bowler == 0) m.next_bowler = first("Medium Pacer", m.bowler);
  if (m.next_bowler == 0) m.next_bowler = m.bowler_pool[2].position;
}

void batting_aggression(match_state& m) {
  const double w = m.score_wickets;
  const double r = m.score_runs;
  const double b = m.innings_balls;
  double base = 2;
  if (b != 0 && m.first_total == 0) base = half_even((10 - w) / 3 - (6 * r / b) / 4 + b / 75);
  if (b != 0 && m.first_total != 0) {
    base = half_even((10 - w) / 9 + m.first_innings_projection.number() / 3 - (300 - b) / 250);
  }
  for (const int position : {int(m.striker), int(m.non_striker)}) {
    const double value = half_even(base + form(m, position) / 100 - 5.0 / m.batting_xi[position].bat_skill +
                                   double(m.bowling_xi[m.bowler].bowl_sr) / 100);
    const bool lower = position <= m.striker && position <= m.non_striker;
    m.batsman_aggression[lower ? 0 : 1] = static_cast<int>(clamped(value));
  }
}

review_result review(match_state& m) {
  review_result result;
  if (m.bowler_change_pending) {
    if (!m.computer_bats || !m.computer_bowls) {
      result.announcement = m.bowling_xi[m.bowler_change_out].name + " has been replaced by " +
                            m.bowling_xi[m.bowler_change_in].name + " .";
    }
    m.bowler_change_pending = false;
    m.bowler_change_out = 0;
    m.bowler_change_in = 0;
  }
  if (m.innings_balls < 12) {
    m.opening_bowlers[0] = m.bowler;
    m.opening_bowlers[1] = m.next_bowler;
  }
  if (!review_stages(m)) {
    result.nobody_found = true;
    return result;
  }
  if (!m.computer_bowls) return result;
  const double forms = (form(m, m.striker) + form(m, m.non_striker)) / 2;
  const double skills = m.batting_xi[m.striker].bat_skill + m.batting_xi[m.non_striker].bat_skill;
  const double value = half_even(bowling_base(m) - forms / 100 - skills / 100 -
                                 double(m.bowling_xi[m.bowler].bowl_sr) / 100 + m.bowling_card[m.bowler].wickets / 2.5);
  m.bowling_aggression[0] = static_cast<int>(clamped(value));
  return result;
}

}  // namespace velorin::testing::rules
