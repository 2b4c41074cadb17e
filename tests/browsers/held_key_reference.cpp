// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/held_key_reference.h"

#include <cmath>

namespace velorin::testing {

namespace {

double two_decimals(double value) { return std::nearbyint(value * 100) / 100; }

/// Puts the key of a man into `held`, or leaves it as it is.
void compute_key(const career_rec& man, int mode, double& held) {
  const double dismissals = man.innings - man.not_outs;
  if (mode == 1 || mode == 8) {
    if (dismissals > 0) held = two_decimals(man.runs / dismissals);
  } else if (mode == 2) {
    held = man.runs;
  } else if (mode == 3) {
    if (man.balls_faced > 0) held = two_decimals(man.runs * 100.0 / man.balls_faced);
  } else if (mode == 4) {
    if (man.innings > 0) held = two_decimals((man.fifties + man.hundreds) * 100.0 / man.innings);
  } else if (mode == 6) {
    if (man.balls_bowled > 0) held = two_decimals(man.runs_given * 6.0 / man.balls_bowled);
  } else if (mode == 7) {
    if (man.wickets > 0) held = two_decimals(static_cast<double>(man.runs_given) / man.wickets);
  } else {
    held = man.wickets;
  }
}

}  // namespace

std::vector<int> reference_order(const std::vector<career_rec>& pool, int mode) {
  const int size = static_cast<int>(pool.size());
  std::vector<int> entry(pool.size() + 2);  // from 1
  for (int i = 1; i <= size; ++i) entry[i] = i - 1;
  double first = 0;
  double second = 0;
  for (int i = size - 1; i >= 1; --i) {
    for (int j = 1; j <= i; ++j) {
      compute_key(pool[entry[j]], mode, first);
      compute_key(pool[entry[j + 1]], mode, second);
      const bool ascending = mode == 6 || mode == 7;
      if (ascending ? first > second : first < second) {
        const int kept = entry[j];
        entry[j] = entry[j + 1];
        entry[j + 1] = kept;
      }
    }
  }
  return {entry.begin() + 1, entry.begin() + 1 + size};
}

}  // namespace velorin::testing
