// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "model/delivery.h"

// The deliveries of an innings, told in the ways that fans know: by phases, stands, meetings of batsman and bowler,
// spells, kinds of runs, and ball by ball as a scorebook has them. Men are positions 1 to 11 in their elevens; a no
// ball and a wide add nothing to any total here. Rates are runs for six balls.

namespace velorin {

/// Figures of some deliveries of one side.
struct ball_figures {
  int runs = 0;   ///< off the bat and of the body
  int balls = 0;  ///< that count for the over
  int wickets = 0;
  int dots = 0;   ///< counted balls that brought nothing, wickets among them
  int fours = 0;  ///< off the bat
  int sixes = 0;

  bool operator==(const ball_figures&) const = default;
  int boundaries() const { return fours + sixes; }
  /// Runs for six balls; nothing without a ball.
  std::optional<double> rate() const;
};

/// Overs of an innings, all inclusive, from 1.
struct phase {
  int first_over = 0;
  int last_over = 0;
  ball_figures figures;
};

/// Overs 1 to 10, 11 to 40 and 41 to 50, whether they were bowled or not.
std::array<phase, 3> phases_of(const delivery_list& innings);

/// Two men at the crease together.
struct stand {
  struct share {
    int position = 0;
    int runs = 0;   ///< off his bat
    int balls = 0;  ///< that he faced
  };
  int wicket = 0;              ///< that ended it, or would have, from 1
  int runs = 0;                ///< of the side while it lasted
  int balls = 0;               ///< that counted
  int body_extras = 0;         ///< byes and leg byes among the runs
  std::array<share, 2> parts;  ///< who came in first is first; the openers as the first ball found them
  bool unbroken = false;
};

/// The stands in their order; one without a ball stands among them only where a wicket ended it.
std::vector<stand> stands_of(const delivery_list& innings);

/// All that a batsman has had from a bowler.
struct meeting {
  int batsman = 0;
  int bowler = 0;
  int runs = 0;   ///< off the bat
  int balls = 0;  ///< faced
  int dots = 0;   ///< of these, balls without a run off the bat
  int fours = 0;
  int sixes = 0;
  bool out = false;  ///< to this bowler; not run out
};

/// By batsman, then by bowler.
std::vector<meeting> meetings_of(const delivery_list& innings);

/// Overs that a bowler has bowled from one end without a longer rest than that for the over from the other.
struct spell {
  int bowler = 0;
  int first_over = 0;
  int last_over = 0;
  int balls = 0;
  int maidens = 0;  ///< whole overs without a run off the bat
  int runs = 0;     ///< off the bat: what his figures count
  int wickets = 0;  ///< his own
};

/// In the order in which they began.
std::vector<spell> spells_of(const delivery_list& innings);

/// How the runs of an innings came.
struct kinds_of_runs {
  int dots = 0;  ///< balls faced without a run off the bat, wickets left out
  int ones = 0;
  int twos = 0;
  int threes = 0;
  int fours = 0;
  int sixes = 0;
  int byes = 0;      ///< runs
  int leg_byes = 0;  ///< likewise
  int wides = 0;     ///< as the totals have them: one that counts as a ball of the over is left out
  int no_balls = 0;  ///< likewise
  int wickets = 0;

  int off_the_bat() const { return ones + 2 * twos + 3 * threes + 4 * fours + 6 * sixes; }
  int runs() const { return off_the_bat() + byes + leg_byes; }
};

kinds_of_runs kinds_of(const delivery_list& innings);
/// Those of one batsman: the balls that he faced.
kinds_of_runs kinds_of(const delivery_list& innings, int batsman);

/// An over as a scorebook has it.
struct scorebook_over {
  int over = 0;
  int bowler = 0;
  std::vector<std::string> symbols;  ///< ".", "1" to "6", "W", "2b" byes, "1lb" leg byes, "nb", "wd"
  int runs = 0;
  int wickets = 0;
  int score = 0;  ///< of the innings behind it
  int down = 0;   ///< wickets, likewise
  bool maiden = false;
};

std::vector<scorebook_over> scorebook_of(const delivery_list& innings);

/// What a scorebook writes for a delivery.
std::string scorebook_symbol(const delivery& ball);

}  // namespace velorin
