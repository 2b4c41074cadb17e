// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "model/match_state.h"
#include "ui/match_play.h"

namespace velorin {

class random_source;
struct open_database;

/// Red, green, blue, 0 to 65535 each.
using sky_color = std::array<std::uint16_t, 3>;

/// The conditions: the pitch of the ground, weather and outfield by chance, all four to be moved before the OK.
struct conditions_form {
  explicit conditions_form(const match_play& play) : play_(play) {}

  int weather = 1;        ///< weather, 1 to 4
  int pitch_surface = 1;  ///< pitch surface, 1 to 4
  int pitch_bounce = 1;   ///< pitch bounce, 1 to 4
  int outfield = 1;       ///< outfield, 1 to 4
  bool closed = false;
  bool left = false;  ///< the user has left the match here

  /// Draws the conditions and shows them. Reads match.ground, sets match.conditions_drawn. Draws weather and outfield,
  /// each after reseeding, then temperature and humidity. Raises run_time_error (type) for a pitch figure outside 1
  /// to 4.
  void open();
  /// Sets the sliders to match.conditions_drawn, as they were drawn.
  void show_drawn();

  std::string headline() const;          ///< the headline
  std::string weather_words() const;     ///< words for the weather as drawn; moving a slider changes no words
  std::string pitch_words() const;       ///< words for the pitch
  std::string bounce_words() const;      ///< words for the bounce
  std::string outfield_words() const;    ///< words for the outfield
  std::string temperature_line() const;  ///< temperature and humidity
  const std::string& country() const { return play_.match.ground.country; }  ///< where the ground lies
  /// Colours of the sky for the weather slider as it stands, from the top to the bottom.
  sky_color sky_top() const;
  sky_color sky_bottom() const;

  /// "OK": the sliders become the conditions of the match.
  void accept();
  /// The user leaves the match: the form closes, and the set-up is undone.
  void leave() { left = closed = true; }

 private:
  drawn_conditions drawn_;  // the sliders as the words were written
  match_play play_;
};

/// Weather or outfield by chance, after reseeding: 1 with a chance of 2 in 5; 2, 3 and 4 with 1 in 5 each.
int draw_condition(random_source& chance);
/// A figure of a ground's pitch. Raises run_time_error (type) for one outside 1 to 4, with the name of its field.
int pitch_figure(const open_database& data, const std::string& ground, int figure, const char* field);

}  // namespace velorin
