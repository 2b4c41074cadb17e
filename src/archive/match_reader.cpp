// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/match_reader.h"

#include "model/code_page.h"

namespace velorin {

namespace {

std::string core_text(const std::string& utf8) { return from_utf8(utf8).value_or(utf8); }

/// Takes the columns of a row one after the other.
class row {
 public:
  explicit row(SQLite::Statement& statement) : statement_(statement) {}

  int number() { return statement_.getColumn(place_++).getInt(); }
  std::int64_t large() { return statement_.getColumn(place_++).getInt64(); }
  std::string text() { return core_text(statement_.getColumn(place_++).getString()); }

 private:
  SQLite::Statement& statement_;
  int place_ = 0;
};

void begin(SQLite::Statement& statement, std::int64_t id, int innings) {
  statement.reset();
  statement.bind(1, id);
  statement.bind(2, innings);
}

}  // namespace

const std::string& archived_names::at(std::int64_t id) {
  const auto [place, is_new] = known_.try_emplace(id);
  if (is_new) {
    find_.reset();
    find_.bind(1, id);
    if (find_.executeStep()) place->second = core_text(find_.getColumn(0).getString());
    find_.reset();
  }
  return place->second;
}

bool has_table(const SQLite::Database& database, const char* name) {
  SQLite::Statement asked(database, "SELECT 1 FROM sqlite_master WHERE type = 'table' AND name = ?");
  asked.bind(1, name);
  return asked.executeStep();
}

std::string recording_of(const SQLite::Database& database, std::int64_t match) {
  SQLite::Statement asked(database, "SELECT begins_as, shared, bytes FROM recording WHERE match_id = ?");
  std::string whole;
  std::size_t room = std::string::npos;  // what is behind it belongs to a match before alone
  for (std::int64_t next = match; next != 0;) {
    asked.bind(1, next);
    if (!asked.executeStep()) break;
    const std::int64_t before = asked.getColumn(0).getInt64();
    const auto shared = static_cast<std::size_t>(asked.getColumn(1).getInt64());
    if (shared < room) {
      whole.insert(0, asked.getColumn(2).getString().substr(0, room == std::string::npos ? room : room - shared));
      room = shared;
    }
    asked.reset();
    next = before < next && room > 0 ? before : 0;
  }
  return whole;
}

match_reader::match_reader(const SQLite::Database& database)
    : names_(database),
      match_(database,
             "SELECT ifnull(key, ''), played_at, competition, stage, number, ground, country, winner, margin, human,"
             " weather, pitch_surface, pitch_bounce, outfield FROM match_row WHERE id = ?"),
      innings_(database,
               "SELECT team, runs, wickets, balls, wides, no_balls, byes, leg_byes, noted_wickets FROM innings_row"
               " WHERE match_id = ? AND innings = ?"),
      batting_(database,
               "SELECT player, position, out, not_out, how, taken, fielder_position, bowler, fielder, runs, balls, "
               "dots, ones,"
               " twos, threes, fours, sixes, fifty_balls, hundred_balls FROM batting_row"
               " WHERE match_id = ? AND innings = ? ORDER BY position"),
      bowling_(database,
               "SELECT player, came_on, balls, maidens, runs, wickets FROM bowling_row"
               " WHERE match_id = ? AND innings = ? ORDER BY position"),
      stands_(database,
              "SELECT runs, balls, score, at_balls, unbroken, overs, player1, player2 FROM stand_row"
              " WHERE match_id = ? AND innings = ? ORDER BY wicket"),
      overs_(database,
             "SELECT over, bowler, runs, wickets FROM over_row WHERE match_id = ? AND innings = ? ORDER BY over") {
  if (!has_table(database, "meeting_row")) return;
  meetings_.emplace(database,
                    "SELECT m.position, m.bowler_position, m.balls, m.runs, m.dots, m.fours, m.sixes, m.outs"
                    " FROM batting_row b CROSS JOIN meeting_row m ON m.player = b.player AND m.match_id = b.match_id"
                    " AND m.innings = b.innings AND m.position = b.position"
                    " WHERE b.match_id = ? AND b.innings = ? ORDER BY b.position, m.bowler_position");
}

std::optional<archived_match> match_reader::read(std::int64_t id, bool with_overs) {
  match_.reset();
  match_.bind(1, id);
  if (!match_.executeStep()) return std::nullopt;
  archived_match match;
  row from(match_);
  match.id = id;
  match.key = from.text();
  match.played_at = from.large();
  match.competition = names_.at(from.large());
  match.stage = names_.at(from.large());
  match.number = from.number();
  match.ground = names_.at(from.large());
  match.country = names_.at(from.large());
  match.winner = names_.at(from.large());
  match.margin = names_.at(from.large());
  match.human = from.number() != 0;
  match.weather = from.number();
  match.pitch_surface = from.number();
  match.pitch_bounce = from.number();
  match.outfield = from.number();
  match_.reset();
  for (int number = 1; number <= 2; ++number) {
    read_innings(match, number);
    if (!with_overs) continue;
    begin(overs_, id, number);
    read_overs(match.innings[number == 1 ? 0 : 1]);
    if (meetings_) read_meetings(match.innings[number == 1 ? 0 : 1], id, number);
  }
  return match;
}

void match_reader::read_innings(archived_match& match, int number) {
  archived_innings& innings = match.innings[number == 1 ? 0 : 1];
  begin(innings_, match.id, number);
  if (innings_.executeStep()) {
    row from(innings_);
    innings.team = names_.at(from.large());
    innings.runs = from.number();
    innings.wickets = from.number();
    innings.balls = from.number();
    innings.wides = from.number();
    innings.no_balls = from.number();
    innings.byes = from.number();
    innings.leg_byes = from.number();
    innings.noted_wickets = from.number();
  }
  innings_.reset();
  begin(batting_, match.id, number);
  read_batting(innings);
  begin(bowling_, match.id, number);
  read_bowling(innings);
  begin(stands_, match.id, number);
  read_stands(innings);
}

void match_reader::read_batting(archived_innings& innings) {
  while (batting_.executeStep()) {
    row from(batting_);
    archived_batsman& man = innings.batting.emplace_back();
    man.player = names_.at(from.large());
    man.position = from.number();
    man.out = from.number() != 0;
    man.not_out = from.number() != 0;
    man.how = static_cast<dismissal>(from.number());
    man.taken = static_cast<fielding>(from.number());
    man.fielder_position = from.number();
    man.bowler = names_.at(from.large());
    man.fielder = names_.at(from.large());
    for (int* figure : {&man.runs, &man.balls, &man.dots, &man.ones, &man.twos, &man.threes, &man.fours, &man.sixes,
                        &man.fifty_balls, &man.hundred_balls}) {
      *figure = from.number();
    }
  }
  batting_.reset();
}

void match_reader::read_bowling(archived_innings& innings) {
  while (bowling_.executeStep()) {
    row from(bowling_);
    archived_bowler& man = innings.bowling.emplace_back();
    man.player = names_.at(from.large());
    for (int* figure : {&man.came_on, &man.balls, &man.maidens, &man.runs, &man.wickets}) *figure = from.number();
  }
  bowling_.reset();
}

void match_reader::read_stands(archived_innings& innings) {
  while (stands_.executeStep()) {
    row from(stands_);
    archived_stand& stand = innings.stands.emplace_back();
    for (int* figure : {&stand.runs, &stand.balls, &stand.score, &stand.at_balls}) *figure = from.number();
    stand.unbroken = from.number() != 0;
    stand.overs = from.text();
    stand.player1 = names_.at(from.large());
    stand.player2 = names_.at(from.large());
  }
  stands_.reset();
}

void match_reader::read_overs(archived_innings& innings) {
  while (overs_.executeStep()) {
    row from(overs_);
    archived_over& over = innings.overs.emplace_back();
    over.over = from.number();
    over.bowler = names_.at(from.large());
    over.runs = from.number();
    over.wickets = from.number();
  }
  overs_.reset();
}

void match_reader::read_meetings(archived_innings& innings, std::int64_t match, int number) {
  begin(*meetings_, match, number);
  while (meetings_->executeStep()) {
    row from(*meetings_);
    archived_meeting& one = innings.meetings.emplace_back();
    for (int* figure :
         {&one.position, &one.bowler_position, &one.balls, &one.runs, &one.dots, &one.fours, &one.sixes, &one.outs}) {
      *figure = from.number();
    }
  }
  meetings_->reset();
}

}  // namespace velorin
