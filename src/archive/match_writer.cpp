// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/match_writer.h"

#include <fmt/format.h>

#include <algorithm>

#include "archive/figures.h"
#include "archive/match_reader.h"
#include "model/code_page.h"
#include "model/rules.h"

namespace velorin {

namespace {

std::string insertion(const char* table, int values) {
  std::string text = fmt::format("INSERT INTO {} VALUES (?", table);
  for (int i = 1; i < values; ++i) text += ",?";
  return text + ")";
}

/// Binds values to a statement one after the other, and runs it.
class bound {
 public:
  explicit bound(SQLite::Statement& statement) : statement_(statement) { statement.reset(); }

  bound& operator<<(std::int64_t value) {
    statement_.bind(++place_, value);
    return *this;
  }
  bound& operator<<(const std::string& value) {
    statement_.bind(++place_, value);
    return *this;
  }
  void none() { statement_.bind(++place_); }
  void bytes(const std::string& value) {
    statement_.bind(++place_, static_cast<const void*>(value.data()), static_cast<int>(value.size()));
  }
  void run() { statement_.exec(); }

 private:
  SQLite::Statement& statement_;
  int place_ = 0;
};

/// 1 for the winner, -1 for the loser, 0 on a tie.
int result_of(const archived_match& match, const std::string& team) {
  if (match.winner.empty()) return 0;
  return match.winner == team ? 1 : -1;
}

}  // namespace

match_writer::match_writer(SQLite::Database& database)
    : database_(database),
      find_name_(database, "SELECT id FROM name WHERE text = ?"),
      add_name_(database, "INSERT INTO name (text) VALUES (?)"),
      add_match_(database, insertion("match_row", 23)),
      add_innings_(database, insertion("innings_row", 17)),
      add_batting_(database, insertion("batting_row", 25)),
      add_bowling_(database, insertion("bowling_row", 12)),
      add_stand_(database, insertion("stand_row", 14)),
      add_over_(database, insertion("over_row", 6)),
      find_recording_(database,
                      "SELECT r.match_id FROM match_row m JOIN recording r ON r.match_id = m.id"
                      " WHERE m.key >= ? AND m.key < ? ORDER BY m.id DESC LIMIT 1"),
      add_recording_(database, insertion("recording", 4)),
      sum_batting_(database, insertion("batting_sums", 12) +
                                 " ON CONFLICT DO UPDATE SET matches = matches + excluded.matches,"
                                 " not_outs = not_outs + excluded.not_outs, runs = runs + excluded.runs,"
                                 " balls = balls + excluded.balls, fours = fours + excluded.fours,"
                                 " sixes = sixes + excluded.sixes, hundreds = hundreds + excluded.hundreds,"
                                 " fifties = fifties + excluded.fifties, best = max(best, excluded.best),"
                                 " ducks = ducks + excluded.ducks"),
      sum_bowling_(database, insertion("bowling_sums", 9) +
                                 " ON CONFLICT DO UPDATE SET matches = matches + excluded.matches,"
                                 " balls = balls + excluded.balls, maidens = maidens + excluded.maidens,"
                                 " runs = runs + excluded.runs, wickets = wickets + excluded.wickets,"
                                 " five_wickets = five_wickets + excluded.five_wickets,"
                                 " best = max(best, excluded.best)"),
      add_meeting_(database, insertion("meeting_row", 15)),
      sum_man_(database, insertion("man_sums", 3) + " ON CONFLICT DO UPDATE SET matches = matches + 1") {}

std::int64_t match_writer::name(const std::string& text) {
  const auto [place, is_new] = names_.try_emplace(text, 0);
  if (!is_new) return place->second;
  const std::string utf8 = to_utf8(text);
  bound(find_name_) << utf8;
  if (find_name_.executeStep()) {
    place->second = find_name_.getColumn(0).getInt64();
  } else {
    (bound(add_name_) << utf8).run();
    place->second = database_.getLastInsertRowid();
  }
  find_name_.reset();
  return place->second;
}

void match_writer::write(const archived_match& match) {
  const archived_innings& first = match.innings[0];
  const archived_innings& second = match.innings[1];
  bound row(add_match_);
  row << match.id;
  if (match.key.empty()) {
    row.none();
  } else {
    row << to_utf8(match.key);
  }
  row << match.played_at << name(match.competition) << name(match.stage) << match.number << name(match.ground)
      << name(match.country) << name(first.team) << name(second.team) << name(match.winner) << name(match.margin)
      << first.runs << first.wickets << first.balls << second.runs << second.wickets << second.balls << int(match.human)
      << match.weather << match.pitch_surface << match.pitch_bounce << match.outfield;
  row.run();
  write_innings(match, 1);
  write_innings(match, 2);
  if (!match.recording.empty()) write_recording(match);
}

/// The keys of a competition's matches have the game before a hyphen, and the number of the match behind it.
void match_writer::write_recording(const archived_match& match) {
  std::int64_t begins_as = 0;
  std::size_t shared = 0;
  if (const std::size_t hyphen = match.key.rfind('-'); hyphen != std::string::npos) {
    const std::string game = to_utf8(match.key.substr(0, hyphen));
    bound(find_recording_) << game + "-" << game + ".";
    if (find_recording_.executeStep()) begins_as = find_recording_.getColumn(0).getInt64();
    find_recording_.reset();
  }
  if (begins_as != 0) {
    const std::string before = recording_of(database_, begins_as);
    const auto parted = std::mismatch(before.begin(), before.end(), match.recording.begin(), match.recording.end());
    shared = static_cast<std::size_t>(parted.first - before.begin());
  }
  bound row(add_recording_);
  row << match.id << begins_as << static_cast<std::int64_t>(shared);
  row.bytes(match.recording.substr(shared));
  row.run();
}

void match_writer::write_innings(const archived_match& match, int number) {
  const archived_innings& innings = match.innings[number == 1 ? 0 : 1];
  const std::int64_t team = name(innings.team);
  const std::int64_t opponent = name(match.innings[number == 1 ? 1 : 0].team);
  const int result = result_of(match, innings.team);
  int fours = 0;
  int sixes = 0;
  int top_score = 0;
  int hundreds = 0;
  for (const archived_batsman& man : innings.batting) {
    fours += man.fours;
    sixes += man.sixes;
    top_score = std::max(top_score, man.runs);
    hundreds += int(man.runs >= century);
  }
  (bound(add_innings_) << match.id << number << team << opponent << result << innings.runs << innings.wickets
                       << innings.balls << innings.wides << innings.no_balls << innings.byes << innings.leg_byes
                       << innings.noted_wickets << fours << sixes << top_score << hundreds)
      .run();
  write_batting(match, number, team, opponent, result);
  write_bowling(match, number, opponent, team, -result);
  write_stands(match, number, team, opponent, result);
  write_overs(match, number);
  write_meetings(match, number, team, opponent, result);
}

void match_writer::write_batting(const archived_match& match, int number, std::int64_t team, std::int64_t opponent,
                                 int result) {
  for (const archived_batsman& man : match.innings[number == 1 ? 0 : 1].batting) {
    const std::int64_t player = name(man.player);
    (bound(add_batting_) << match.id << number << man.position << team << opponent << result << player << int(man.out)
                         << int(man.not_out) << name(std::string(how_out_name(man))) << int(man.how) << int(man.taken)
                         << man.fielder_position << name(man.bowler) << name(man.fielder) << man.runs << man.balls
                         << man.dots << man.ones << man.twos << man.threes << man.fours << man.sixes << man.fifty_balls
                         << man.hundred_balls)
        .run();
    (bound(sum_batting_) << player << team << 1 << int(man.not_out) << man.runs << man.balls << man.fours << man.sixes
                         << int(man.runs >= century) << int(man.runs >= half_century && man.runs < century)
                         << best_score_value(man.runs, man.not_out) << int(man.out && man.runs == 0))
        .run();
  }
}

void match_writer::write_bowling(const archived_match& match, int number, std::int64_t team, std::int64_t opponent,
                                 int result) {
  int position = 0;
  for (const archived_bowler& man : match.innings[number == 1 ? 0 : 1].bowling) {
    const std::int64_t player = name(man.player);
    (bound(add_bowling_) << match.id << number << ++position << team << opponent << result << player << man.came_on
                         << man.balls << man.maidens << man.runs << man.wickets)
        .run();
    (bound(sum_man_) << player << team << 1).run();
    if (man.came_on == 0) continue;
    (bound(sum_bowling_) << player << team << 1 << man.balls << man.maidens << man.runs << man.wickets
                         << int(man.wickets >= five_wicket_haul) << best_bowling_value(man.wickets, man.runs))
        .run();
  }
}

void match_writer::write_stands(const archived_match& match, int number, std::int64_t team, std::int64_t opponent,
                                int result) {
  int wicket = 0;
  for (const archived_stand& stand : match.innings[number == 1 ? 0 : 1].stands) {
    (bound(add_stand_) << match.id << number << ++wicket << team << opponent << result << stand.runs << stand.balls
                       << stand.score << stand.at_balls << stand.overs << name(stand.player1) << name(stand.player2)
                       << int(stand.unbroken))
        .run();
  }
}

void match_writer::write_overs(const archived_match& match, int number) {
  for (const archived_over& over : match.innings[number == 1 ? 0 : 1].overs) {
    (bound(add_over_) << match.id << number << over.over << name(over.bowler) << over.runs << over.wickets).run();
  }
}

void match_writer::write_meetings(const archived_match& match, int number, std::int64_t team, std::int64_t opponent,
                                  int result) {
  const archived_innings& innings = match.innings[number == 1 ? 0 : 1];
  for (const archived_meeting& one : innings.meetings) {
    const auto batsman = std::find_if(innings.batting.begin(), innings.batting.end(),
                                      [&](const archived_batsman& man) { return man.position == one.position; });
    const auto bowler = static_cast<std::size_t>(one.bowler_position) - 1;
    if (batsman == innings.batting.end() || bowler >= innings.bowling.size()) continue;
    (bound(add_meeting_) << name(batsman->player) << match.id << number << one.position << one.bowler_position
                         << name(innings.bowling[bowler].player) << team << opponent << result << one.balls << one.runs
                         << one.dots << one.fours << one.sixes << one.outs)
        .run();
  }
}

void match_writer::empty() {
  for (const char* table : {"match_row", "innings_row", "batting_row", "bowling_row", "stand_row", "over_row",
                            "recording", "batting_sums", "bowling_sums", "man_sums", "meeting_row", "name"}) {
    database_.exec(std::string("DELETE FROM ") + table);
  }
  names_.clear();
}

}  // namespace velorin
