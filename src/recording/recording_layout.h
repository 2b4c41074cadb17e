// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <type_traits>

#include "database/layout.h"
#include "recording/packing.h"
#include "recording/recording.h"

// The layout of what an entry holds, once: `io` is a packer or an unpacker. For those who read and write recordings
// alone.

namespace velorin {

/// Tags of the entries. They stand in files, and do not change.
enum entry_tag : std::uint8_t {
  beginning_entry = 1,
  readings_entry = 2,
  draws_entry = 3,
  answer_entry = 4,
  check_entry = 5,
  saving_entry = 6,
  end_entry = 7,
};

inline constexpr int check_bytes = 2;  // behind each entry

template <class Io>
constexpr bool reads = std::is_same_v<Io, unpacker>;

template <class Io, class Number>
void pass_number(Io& io, Number& value, [[maybe_unused]] int most) {
  if constexpr (reads<Io>) {
    value = static_cast<std::remove_const_t<Number>>(io.number_to(most));
  } else {
    io.number(static_cast<std::uint64_t>(static_cast<int>(value)));
  }
}

template <class Io, class Text>
void pass_text(Io& io, Text& value) {
  io("", value);
}

template <class Io, class Flag>
void pass_flag(Io& io, Flag& value) {
  if constexpr (reads<Io>) {
    value = io.flag();
  } else {
    io.flag(value);
  }
}

/// A list with its length, of so many items at most; each of them takes a byte at least.
template <class Io, class List, class Pass>
void pass_list(Io& io, List& list, [[maybe_unused]] std::size_t most, Pass pass) {
  if constexpr (reads<Io>) {
    const std::uint64_t length = io.number();
    if (length > most || length > io.left()) return io.fail();
    list.resize(static_cast<std::size_t>(length));
  } else {
    io.number(list.size());
  }
  for (auto& item : list) pass(item);
}

template <class Io, class Game>
void pass_game(Io& io, Game& game) {
  pass_number(io, game.kind, static_cast<int>(game_kind::world_cup));
  pass_list(io, game.teams, team_limit, [&](auto& team) {
    pass_text(io, team.name);
    pass_number(io, team.record, 0xFFFF);
    pass_flag(io, team.human);
  });
  pass_text(io, game.ground);
  pass_number(io, game.number, 0xFF);
  pass_list(io, game.hosts, cup_hosts, [&](auto& host) { pass_text(io, host); });
}

template <class Io, class Squad>
void pass_squad(Io& io, Squad& men) {
  std::uint32_t named = 0;
  for (std::size_t place = 1; place < men.size(); ++place) named |= men[place].name.empty() ? 0U : 1U << place;
  if constexpr (reads<Io>) {
    named = static_cast<std::uint32_t>(io.fixed(3));
  } else {
    io.fixed(named, 3);
  }
  for (std::size_t place = 1; place < men.size(); ++place) {
    if ((named >> place & 1) != 0) visit_fields(men[place], io);
  }
}

template <class Io, class Teams>
void pass_teams(Io& io, Teams& teams) {
  pass_list(io, teams, team_limit, [&](auto& numbered) {
    pass_number(io, numbered.first, 0xFFFF);
    pass_text(io, numbered.second.team_name);
    io("", numbered.second.team_flag);
    pass_squad(io, numbered.second.squad);
  });
}

template <class Io, class Worms>
void pass_worms(Io& io, Worms& worms) {
  pass_flag(io, worms.loaded);
  if (!worms.loaded) return;
  for (auto& line : worms.worm) {
    pass_text(io, line.team);
    io("", line.score_runs);
    io("", line.score_wickets);
    pass_flag(io, line.score_set);
    for (std::size_t row = 0; row < line.row.size(); ++row) {
      pass_flag(io, line.row_set[row]);
      if (line.row_set[row]) io("", line.row[row]);
    }
  }
}

template <class Io, class Row>
void pass_row(Io& io, Row& row) {
  pass_text(io, row.team);
  for (auto* figure : {&row.played, &row.won, &row.lost, &row.tied, &row.points}) io("", *figure);
  if constexpr (reads<Io>) {
    row.net_run_rate = io.real();
  } else {
    io.real(row.net_run_rate);
  }
  pass_text(io, row.note);
}

template <class Io, class Tie>
void pass_tie(Io& io, Tie& tie) {
  for (auto* text : {&tie.team_a, &tie.team_b, &tie.winner, &tie.margin}) pass_text(io, *text);
  pass_flag(io, tie.human_a);
  pass_flag(io, tie.human_b);
}

/// What one tournament leaves to the next of the same run.
template <class Io, class Cup>
void pass_cup(Io& io, Cup& cup) {
  for (auto* group : {&cup.group_a, &cup.group_b}) {
    for (auto& team : *group) {
      pass_text(io, team.team);
      for (auto& row : team.versus) pass_row(io, row);
    }
  }
  for (auto& fixture : cup.fixtures) {
    for (auto* text : {&fixture.team_a, &fixture.team_b, &fixture.venue, &fixture.stage, &fixture.result}) {
      pass_text(io, *text);
    }
    for (auto* figure : {&fixture.index_a, &fixture.index_b, &fixture.match_no}) io("", *figure);
  }
  for (auto& row : cup.super_six) pass_row(io, row);
  for (auto& human : cup.super_six_human) pass_flag(io, human);
  for (auto& tie : cup.semi_finals) pass_tie(io, tie);
  pass_tie(io, cup.grand_final);
  pass_flag(io, cup.quit_requested);
}

/// The first entry is these three, one behind the other.
template <class Io, class Begun>
void pass_entered(Io& io, Begun& begun) {
  for (auto& byte : begun.id) {
    if constexpr (reads<Io>) {
      byte = static_cast<std::uint8_t>(io.fixed(1));
    } else {
      io.fixed(byte, 1);
    }
  }
  if constexpr (reads<Io>) {
    begun.begun_at = io.signed_number();
  } else {
    io.signed_number(begun.begun_at);
  }
  pass_text(io, begun.program);
  pass_game(io, begun.game);
}

template <class Io, class Begun>
void pass_squads(Io& io, Begun& begun) {
  pass_teams(io, begun.teams);
  pass_list(io, begun.grounds, longest_entry, [&](auto& ground) { visit_fields(ground, io); });
}

template <class Io, class Begun>
void pass_standing(Io& io, Begun& begun) {
  pass_text(io, begun.database);
  pass_text(io, begun.text_color);
  pass_text(io, begun.back_color);
  pass_number(io, begun.chance, static_cast<int>(random_source::kind::clock));
  if constexpr (reads<Io>) {
    begun.chance_state = io.fixed(8);
  } else {
    io.fixed(begun.chance_state, 8);
  }
  pass_worms(io, begun.standing.worms);
  bool stands = begun.standing.world_cup.has_value();
  pass_flag(io, stands);
  if (!stands) return;
  if constexpr (reads<Io>) begun.standing.world_cup.emplace();
  pass_cup(io, *begun.standing.world_cup);
}

}  // namespace velorin
