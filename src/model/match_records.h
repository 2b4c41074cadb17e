// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "model/delivery.h"
#include "model/integer.h"
#include "model/rules.h"

// The plain records of a match. Texts are single bytes of Windows-1252. Arrays that start at 1 keep their unused
// element 0.

namespace velorin {

/// A flag as the files hold it: -1 for true, 0 for false.
inline constexpr int flag_true = -1;

/// Six texts that files carry and nothing reads. Hardly any database fills them, so they take memory only where one of
/// them is filled; a copy has its own.
class reserved_texts {
 public:
  using texts = std::array<std::string, 6>;

  reserved_texts() = default;
  reserved_texts(const reserved_texts& other) : held_(other.held_ ? std::make_unique<texts>(*other.held_) : nullptr) {}
  reserved_texts(reserved_texts&&) noexcept = default;
  reserved_texts& operator=(const reserved_texts& other) {
    if (held_ || other.held_) *this = reserved_texts(other);
    return *this;
  }
  reserved_texts& operator=(reserved_texts&&) noexcept = default;
  ~reserved_texts() = default;

  const std::string& operator[](std::size_t i) const { return all()[i]; }
  std::string& operator[](std::size_t i) { return filled()[i]; }
  void fill(const std::string& text) { filled().fill(text); }

  static constexpr std::size_t size() { return 6; }
  texts::const_iterator begin() const { return all().begin(); }
  texts::const_iterator end() const { return all().end(); }

  /// Gives the memory back if all texts are empty.
  void settle() {
    if (held_ && *held_ == none()) held_.reset();
  }

 private:
  const texts& all() const { return held_ ? *held_ : none(); }
  static const texts& none() {
    static const texts six;
    return six;
  }
  texts& filled() {
    if (!held_) held_ = std::make_unique<texts>();
    return *held_;
  }

  std::unique_ptr<texts> held_;
};

/// One player of a squad and one line of an eleven.
struct player_rec {
  std::string name;         ///< as on scorecards; empty marks an empty place of a squad
  integer bat_skill;        ///< balls per dismissal, higher is better
  float bowl_sr = 0;        ///< balls per wicket, lower is better
  float econ = 0;           ///< runs conceded an over, lower is better
  integer is_keeper;        ///< flag: -1 for a wicket-keeper, else 0
  std::string bat_type;     ///< three characters of batting hand, then the role
  std::string bowler_type;  ///< "Fast Bowler", "Medium Pacer", "spinner" and the like
  reserved_texts reserved;  ///< carried along, read by nothing

  /// The batting role: `bat_type` from its fourth character on, "" if there is none.
  std::string_view role() const {
    return bat_type.size() > 3 ? std::string_view(bat_type).substr(3) : std::string_view();
  }
};

/// A team with its squad, a record of the team file.
struct team_rec {
  std::string team_name;
  integer team_flag;                               ///< carried along, read by nothing
  std::array<player_rec, men_in_squad + 1> squad;  ///< places 1 to 20, filled from the front
};

/// A ground, a record of the ground file.
struct ground_rec {
  std::string country;  ///< the home team's name, or "Neutral"
  std::string ground_name;
  std::array<integer, 3> reserved;  ///< carried along, read by nothing
  integer pitch_bounce;             ///< 1 to 4
  integer pitch_surface;            ///< 1 to 4
  std::int32_t start_time = 0;      ///< local start of play, four decimal digits HHMM
};

/// One batsman's line of an innings.
struct batting_card_rec {
  std::string name;  ///< empty until the man comes in
  integer runs;      ///< off the bat
  integer balls;     ///< faced
  integer fours;
  integer sixes;
  integer twos;
  integer threes;
  integer singles;
  integer dots;  ///< balls without a run off the bat: leg byes, byes and the ball of a dismissal count
  dismissal how = dismissal::none;
  fielding taken = fielding::none;    ///< what `fielder` tells; a card that is gone on with keeps it behind a run out
  std::uint8_t fielder_position = 0;  ///< of the man whom it names, or who caught off his own bowling; 0 nobody
  std::string how_out;                ///< as cards show it: the bowler's part of the dismissal, or "not out"
  std::string fielder;                ///< likewise the catcher's part, or empty
};

/// One bowler's line of an innings.
struct bowling_card_rec {
  std::string name;
  integer balls;    ///< legal balls; see balls_of_quota
  integer maidens;  ///< overs without a run off the bat
  integer runs;     ///< off the bat
  integer wickets;  ///< run outs left out
};

/// The fall of a wicket, or the unbroken stand at the end of an innings.
struct fall_of_wicket_rec {
  integer score;           ///< the side's runs at the fall
  std::string overs_text;  ///< overs of the fall; empty until the stands have been shown
  integer partner_runs;    ///< runs of the stand that ended
  integer partner_balls;   ///< balls of it
  integer balls;           ///< balls of the innings at the fall, the wicket ball counted
  std::string batsman_a;   ///< non-striker at the fall
  std::string batsman_b;   ///< striker at the fall; " * " behind him for an unbroken stand
};

/// A line of the computer captain's ranked list of bowlers.
struct bowler_pool_rec {
  std::string name;
  double rating = 0;   ///< bowl_sr plus the offset of the innings
  integer position;    ///< place in the bowling eleven
  integer econ_class;  ///< econ rounded to a whole number
  std::string bowler_type;
};

/// One side's share of a result in the tables of run rates.
struct rate_entry {
  std::string team;
  double delta = 0;  ///< runs an over gained on the other side
};

using batting_card_table = std::array<batting_card_rec, men_in_eleven + 1>;           // 1..11
using bowling_card_table = std::array<bowling_card_rec, men_in_eleven + 1>;           // 1..11
using fall_of_wicket_table = std::array<fall_of_wicket_rec, wickets_of_innings + 1>;  // 0..10
using eleven = std::array<player_rec, men_in_eleven + 1>;                             // 1..11
using squad = std::array<player_rec, men_in_squad + 1>;                               // 1..20

}  // namespace velorin
