// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/batsman_figures.h"

#include "model/rounding.h"
#include "model/texts.h"

namespace velorin {

double strike_rate(int runs, int balls) { return round_to(100.0 * runs / balls, 2); }

batsman_figures figures_of(const batting_card_rec& card) {
  batsman_figures figures;
  figures.runs = card.runs;
  figures.balls = card.balls;
  figures.dots = card.dots;
  figures.singles = card.singles;
  figures.twos = card.twos;
  figures.threes = card.threes;
  figures.fours = card.fours;
  figures.sixes = card.sixes;
  if (card.balls != 0) figures.strike_rate = number_text(strike_rate(card.runs, card.balls));
  return figures;
}

}  // namespace velorin
