// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recording.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <random>
#include <utility>

#include "database/lasting_records.h"
#include "database/layout.h"
#include "database/whole_file.h"
#include "model/run_time_error.h"
#include "recording/packing.h"

namespace velorin {

namespace {

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

constexpr int check_bytes = 2;  // behind each entry

// The layout of what an entry holds, once: `io` is a packer or an unpacker.

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

template <class Io, class Begun>
void pass_beginning(Io& io, Begun& begun) {
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
  pass_teams(io, begun.teams);
  pass_list(io, begun.grounds, longest_entry, [&](auto& ground) { visit_fields(ground, io); });
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

[[noreturn]] void refuse(const std::string& what, const std::string& name, long entry = 0) {
  throw run_time_error(failure::file, what, {.file = name, .record = entry, .field = {}, .player = {}});
}

[[noreturn]] void raise_damaged(const std::string& name, long entry, std::size_t place) {
  refuse(fmt::format("The recording is damaged at byte {}", place), name, entry);
}

void take_head(std::string_view bytes, const std::string& name) {
  if (bytes.substr(0, recording_magic.size()) != recording_magic || bytes.size() < recording_head) {
    refuse("The file is no recording of a game", name);
  }
  unpacker head(bytes.substr(recording_magic.size(), recording_head - recording_magic.size()));
  const auto format = static_cast<int>(head.fixed(2));
  const auto rules = static_cast<int>(head.fixed(2));
  if (format != recording_version) {
    refuse(fmt::format("The recording is of format {}; this version of the program reads format {}", format,
                       recording_version),
           name);
  }
  if (rules != rules_version) {
    refuse(fmt::format("The recording was made by the rules of version {}; this program plays by those of version {}, "
                       "and would play it otherwise",
                       rules, rules_version),
           name);
  }
}

/// Takes the entries of a file one after the other.
class entry_reader {
 public:
  entry_reader(std::string_view bytes, const std::string& name, recording& into)
      : bytes_(bytes), name_(name), into_(into) {}

  void read() {
    into_.whole_bytes = recording_head;
    into_.check = crc_32(bytes_.substr(0, recording_head));
    while (into_.whole_bytes < bytes_.size()) {
      if (!take_entry()) {
        require_torn();
        break;
      }
    }
    if (number_ == 0) refuse("The recording has no beginning", name_);
  }

 private:
  /// False if the entry is not whole.
  bool take_entry() {
    unpacker in(bytes_.substr(into_.whole_bytes));
    const auto tag = static_cast<int>(in.fixed(1));
    const std::uint64_t length = in.number();
    broken_end_ = bytes_.size();
    if (!in.whole() || length > longest_entry || in.left() < length + check_bytes) return false;
    const std::size_t start = bytes_.size() - in.left();
    const std::string_view content = bytes_.substr(start, static_cast<std::size_t>(length));
    const std::size_t end = start + content.size();
    broken_end_ = end + check_bytes;
    const std::uint32_t check = crc_32(bytes_.substr(into_.whole_bytes, end - into_.whole_bytes), into_.check);
    unpacker behind(bytes_.substr(end, check_bytes));
    if (behind.fixed(check_bytes) != (check & 0xFFFF)) return false;
    ++number_;
    if (!take(tag, content)) raise_damaged(name_, number_, into_.whole_bytes);
    into_.check = check;
    into_.whole_bytes = end + check_bytes;
    return true;
  }

  bool take(int tag, std::string_view content) {
    unpacker in(content);
    if ((number_ == 1) != (tag == beginning_entry) || into_.ended()) return false;
    switch (tag) {
      case beginning_entry:
        pass_beginning(in, into_.beginning);
        break;
      case readings_entry:
        while (in.whole() && in.left() > 0) {
          last_reading_ += static_cast<std::uint64_t>(in.signed_number());
          into_.readings.push_back(last_reading_);
        }
        break;
      case draws_entry:
        while (in.whole() && in.left() > 0) into_.draws.push_back(in.real());
        break;
      case answer_entry: {
        captain_answer answer;
        answer.kind = static_cast<answer_kind>(in.number_to(static_cast<int>(answer_kind::take_back)));
        if (in.left() > 0) answer.first = static_cast<std::uint32_t>(in.number());
        if (in.left() > 0) answer.second = static_cast<std::uint32_t>(in.number());
        into_.events.emplace_back(answer);
        break;
      }
      case check_entry:
        into_.events.emplace_back(recorded_check{static_cast<std::uint32_t>(in.fixed(4))});
        break;
      case saving_entry:
        into_.events.emplace_back(recorded_saving{});
        break;
      case end_entry:
        into_.events.emplace_back(recorded_end{});
        break;
      default:
        return false;
    }
    return in.done();
  }

  /// What follows the whole entries must be the torn end of the last write: one entry, with nothing but the zeros of a
  /// block that was never written behind it.
  void require_torn() const {
    constexpr std::size_t longest_tail = 4096;  // no entry but the first is as long
    const bool cut_short = broken_end_ == bytes_.size() && bytes_.size() - into_.whole_bytes <= longest_tail;
    const bool last = bytes_.find_first_not_of('\0', broken_end_) == std::string_view::npos;
    if (number_ == 0 || !(broken_end_ == bytes_.size() ? cut_short : last)) {
      raise_damaged(name_, number_ + 1, into_.whole_bytes);
    }
  }

  std::string_view bytes_;
  const std::string& name_;
  recording& into_;
  long number_ = 0;
  std::size_t broken_end_ = 0;  // of the entry looked at last, as far as the file has it
  std::uint64_t last_reading_ = 0;
};

}  // namespace

std::string text_of(const recording_id& id) { return fmt::format("{:02x}", fmt::join(id, "")); }

recording_id new_recording_id() {
  thread_local std::random_device chance;
  recording_id id;
  for (std::size_t i = 0; i < id.size(); i += 4) {
    const std::uint32_t word = chance();
    for (std::size_t byte = 0; byte < 4; ++byte) id[i + byte] = static_cast<std::uint8_t>(word >> 8 * byte);
  }
  return id;
}

recording read_recording(std::string_view bytes, const std::string& name) {
  take_head(bytes, name);
  recording whole;
  entry_reader(bytes, name, whole).read();
  return whole;
}

recording read_recording(const std::filesystem::path& file) {
  const std::optional<std::string> bytes = read_file(file);
  if (!bytes) refuse("The file is missing", file_name_text(file));
  return read_recording(*bytes, file_name_text(file));
}

namespace {

std::string head_of_file() {
  packer head;
  head.raw(recording_magic);
  head.fixed(recording_version, 2);
  head.fixed(rules_version, 2);
  return std::string(head.bytes());
}

}  // namespace

bool holds_nothing_yet(std::string_view bytes) {
  if (bytes.find_first_not_of('\0') == std::string_view::npos) return true;
  const std::string head = head_of_file();
  if (bytes.size() <= head.size()) return head.starts_with(bytes);
  if (!bytes.starts_with(head)) return false;
  std::string_view entry = bytes.substr(head.size());
  if (entry.find_first_not_of('\0') == std::string_view::npos) return true;
  if (entry.front() != beginning_entry) return false;
  entry.remove_prefix(1);
  std::size_t length = 0;
  for (int shift = 0; shift < 28; shift += 7) {
    if (entry.empty()) return true;
    const auto byte = static_cast<unsigned char>(entry.front());
    entry.remove_prefix(1);
    length |= static_cast<std::size_t>(byte & 0x7FU) << shift;
    if ((byte & 0x80U) == 0) return length <= longest_entry && entry.size() < length + check_bytes;
  }
  return false;
}

void entry_writer::start() {
  bytes_.clear();
  bytes_.raw(head_of_file());
  check_ = crc_32(bytes_.bytes());
  last_reading_ = 0;
}

void entry_writer::entry(int tag) {
  const std::size_t start = bytes_.bytes().size();
  bytes_.fixed(static_cast<std::uint64_t>(tag), 1);
  bytes_.number(content_.bytes().size());
  bytes_.raw(content_.bytes());
  content_.clear();
  check_ = crc_32(bytes_.bytes().substr(start), check_);
  bytes_.fixed(check_ & 0xFFFF, check_bytes);
}

void entry_writer::beginning(const recorded_beginning& begun) {
  pass_beginning(content_, begun);
  entry(beginning_entry);
}

void entry_writer::chance(chance_log& log) {
  if (!log.readings.empty()) {
    for (const std::uint64_t reading : log.readings) {
      content_.signed_number(static_cast<std::int64_t>(reading - std::exchange(last_reading_, reading)));
    }
    log.readings.clear();
    entry(readings_entry);
  }
  if (!log.draws.empty()) {
    for (const double draw : log.draws) content_.real(draw);
    log.draws.clear();
    entry(draws_entry);
  }
}

void entry_writer::event(const recorded_event& event) {
  if (const auto* answer = std::get_if<captain_answer>(&event)) {
    content_.number(static_cast<std::uint64_t>(answer->kind));
    if (answer->first != 0 || answer->second != 0) content_.number(answer->first);
    if (answer->second != 0) content_.number(answer->second);
    return entry(answer_entry);
  }
  if (const auto* check = std::get_if<recorded_check>(&event)) {
    content_.fixed(check->value, 4);
    return entry(check_entry);
  }
  entry(std::holds_alternative<recorded_saving>(event) ? saving_entry : end_entry);
}

recorded_check check_of(const match_state& match) {
  std::uint32_t sum = 0;
  for (const delivery_list* list : {&match.first_deliveries, &match.deliveries}) {
    // Only the balls of the over that has just ended have changed; those before it were checked before.
    const std::size_t from = list->size() - std::min<std::size_t>(list->size(), 8);
    for (std::size_t i = from; i < list->size(); ++i) {
      const delivery& ball = (*list)[i];
      std::uint64_t figures = 0;
      for (const int figure :
           {ball.batting_aggression * 8 + ball.bowling_aggression, static_cast<int>(ball.how), int{ball.extras},
            int{ball.fielder}, int{ball.outcome}, int{ball.striker}, int{ball.bowler}, int{ball.over}}) {
        figures = figures << 8 | static_cast<std::uint8_t>(figure);
      }
      sum = crc_32_of_eight(figures, sum);
    }
  }
  packer rest;
  rest.number(static_cast<std::uint64_t>(match.score_runs));
  rest.number(static_cast<std::uint64_t>(match.score_wickets));
  rest.number(match.deliveries.size());
  rest.number(match.first_deliveries.size());
  return {crc_32(rest.bytes(), sum)};
}

}  // namespace velorin
