// SPDX-License-Identifier: GPL-3.0-or-later
#include "archive/schema.h"

namespace velorin {

// Names stand once, in `name`; everything else has their numbers. The rows of a man and of a team lie together, since
// their pages ask for all of them; indices lead to those of a match, and to the rows that lists of the best ask for.
// Sums by man and team are kept along.
const char* const archive_schema = R"sql(
CREATE TABLE state (last_id INTEGER NOT NULL, careers_before BLOB NOT NULL, records_before BLOB NOT NULL);
INSERT INTO state VALUES (0, x'', x'');

CREATE TABLE name (id INTEGER PRIMARY KEY, text TEXT NOT NULL UNIQUE);

CREATE TABLE match_row (
  id INTEGER PRIMARY KEY, key TEXT UNIQUE, played_at INTEGER NOT NULL, competition INTEGER NOT NULL,
  stage INTEGER NOT NULL, number INTEGER NOT NULL, ground INTEGER NOT NULL, country INTEGER NOT NULL,
  first INTEGER NOT NULL, second INTEGER NOT NULL, winner INTEGER NOT NULL, margin INTEGER NOT NULL,
  first_runs INTEGER NOT NULL, first_wickets INTEGER NOT NULL, first_balls INTEGER NOT NULL,
  second_runs INTEGER NOT NULL, second_wickets INTEGER NOT NULL, second_balls INTEGER NOT NULL,
  human INTEGER NOT NULL, weather INTEGER NOT NULL, pitch_surface INTEGER NOT NULL, pitch_bounce INTEGER NOT NULL,
  outfield INTEGER NOT NULL);

CREATE INDEX matches_of_stage ON match_row (stage);
CREATE INDEX matches_of_ground ON match_row (ground);

CREATE TABLE innings_row (
  match_id INTEGER NOT NULL, innings INTEGER NOT NULL, team INTEGER NOT NULL, opponent INTEGER NOT NULL,
  result INTEGER NOT NULL, runs INTEGER NOT NULL, wickets INTEGER NOT NULL, balls INTEGER NOT NULL,
  wides INTEGER NOT NULL, no_balls INTEGER NOT NULL, byes INTEGER NOT NULL, leg_byes INTEGER NOT NULL,
  noted_wickets INTEGER NOT NULL, fours INTEGER NOT NULL, sixes INTEGER NOT NULL, top_score INTEGER NOT NULL,
  hundreds INTEGER NOT NULL, PRIMARY KEY (team, match_id, innings)) WITHOUT ROWID;
CREATE INDEX innings_of_match ON innings_row (match_id, innings);

CREATE TABLE batting_row (
  match_id INTEGER NOT NULL, innings INTEGER NOT NULL, position INTEGER NOT NULL, team INTEGER NOT NULL,
  opponent INTEGER NOT NULL, result INTEGER NOT NULL, player INTEGER NOT NULL, out INTEGER NOT NULL,
  not_out INTEGER NOT NULL,
  how_out INTEGER NOT NULL, how INTEGER NOT NULL, taken INTEGER NOT NULL, fielder_position INTEGER NOT NULL,
  bowler INTEGER NOT NULL, fielder INTEGER NOT NULL, runs INTEGER NOT NULL, balls INTEGER NOT NULL,
  dots INTEGER NOT NULL, ones INTEGER NOT NULL, twos INTEGER NOT NULL, threes INTEGER NOT NULL,
  fours INTEGER NOT NULL, sixes INTEGER NOT NULL, fifty_balls INTEGER NOT NULL, hundred_balls INTEGER NOT NULL,
  PRIMARY KEY (player, match_id, innings, position)) WITHOUT ROWID;
CREATE INDEX batting_of_match ON batting_row (match_id, innings, position);
CREATE INDEX high_scores ON batting_row
  (runs, team, fours, sixes, balls, fifty_balls, hundred_balls, position, out, result);

CREATE TABLE bowling_row (
  match_id INTEGER NOT NULL, innings INTEGER NOT NULL, position INTEGER NOT NULL, team INTEGER NOT NULL,
  opponent INTEGER NOT NULL, result INTEGER NOT NULL, player INTEGER NOT NULL, came_on INTEGER NOT NULL,
  balls INTEGER NOT NULL, maidens INTEGER NOT NULL, runs INTEGER NOT NULL, wickets INTEGER NOT NULL,
  PRIMARY KEY (player, match_id, innings, position)) WITHOUT ROWID;
CREATE INDEX bowling_of_match ON bowling_row (match_id, innings, position);
CREATE INDEX many_wickets ON bowling_row (wickets DESC, runs, team, balls, came_on, result);

CREATE TABLE stand_row (
  match_id INTEGER NOT NULL, innings INTEGER NOT NULL, wicket INTEGER NOT NULL, team INTEGER NOT NULL,
  opponent INTEGER NOT NULL, result INTEGER NOT NULL, runs INTEGER NOT NULL, balls INTEGER NOT NULL,
  score INTEGER NOT NULL, at_balls INTEGER NOT NULL, overs TEXT NOT NULL, player1 INTEGER NOT NULL,
  player2 INTEGER NOT NULL, unbroken INTEGER NOT NULL, PRIMARY KEY (match_id, innings, wicket)) WITHOUT ROWID;
CREATE INDEX large_stands ON stand_row (runs, team);
CREATE INDEX stands_by_wicket ON stand_row (wicket, runs);

CREATE TABLE over_row (
  match_id INTEGER NOT NULL, innings INTEGER NOT NULL, over INTEGER NOT NULL, bowler INTEGER NOT NULL,
  runs INTEGER NOT NULL, wickets INTEGER NOT NULL, PRIMARY KEY (match_id, innings, over)) WITHOUT ROWID;

-- Of a competition the recording of each match begins as that of the match before: these bytes stand once.
CREATE TABLE recording (
  match_id INTEGER PRIMARY KEY, begins_as INTEGER NOT NULL, shared INTEGER NOT NULL, bytes BLOB NOT NULL);

CREATE TABLE batting_sums (
  player INTEGER NOT NULL, team INTEGER NOT NULL, matches INTEGER NOT NULL, not_outs INTEGER NOT NULL,
  runs INTEGER NOT NULL, balls INTEGER NOT NULL, fours INTEGER NOT NULL, sixes INTEGER NOT NULL,
  hundreds INTEGER NOT NULL, fifties INTEGER NOT NULL, best INTEGER NOT NULL, ducks INTEGER NOT NULL,
  PRIMARY KEY (player, team)) WITHOUT ROWID;
CREATE TABLE bowling_sums (
  player INTEGER NOT NULL, team INTEGER NOT NULL, matches INTEGER NOT NULL, balls INTEGER NOT NULL,
  maidens INTEGER NOT NULL, runs INTEGER NOT NULL, wickets INTEGER NOT NULL, five_wickets INTEGER NOT NULL,
  best INTEGER NOT NULL, PRIMARY KEY (player, team)) WITHOUT ROWID;

CREATE VIEW matches AS SELECT m.id AS id, strftime('%Y-%m-%dT%H:%M:%SZ', m.played_at, 'unixepoch') AS played_at,
  c.text AS competition, s.text AS stage, g.text AS ground, y.text AS country, a.text AS first, b.text AS second,
  w.text AS winner, x.text AS margin, m.first_runs AS first_runs, m.first_wickets AS first_wickets,
  m.first_balls AS first_balls, m.second_runs AS second_runs, m.second_wickets AS second_wickets,
  m.second_balls AS second_balls, m.human AS human, m.number AS number, m.weather AS weather,
  m.pitch_surface AS pitch_surface, m.pitch_bounce AS pitch_bounce, m.outfield AS outfield, m.key AS key
  FROM match_row m JOIN name c ON c.id = m.competition JOIN name s ON s.id = m.stage JOIN name g ON g.id = m.ground
  JOIN name y ON y.id = m.country JOIN name a ON a.id = m.first JOIN name b ON b.id = m.second
  JOIN name w ON w.id = m.winner JOIN name x ON x.id = m.margin;

CREATE VIEW innings AS SELECT i.match_id AS match_id, i.innings AS innings, t.text AS team, o.text AS opponent,
  i.runs AS runs, i.wickets AS wickets, i.balls AS balls, i.wides AS wides, i.no_balls AS no_balls, i.byes AS byes,
  i.leg_byes AS leg_byes FROM innings_row i JOIN name t ON t.id = i.team JOIN name o ON o.id = i.opponent;

CREATE VIEW batting AS SELECT b.match_id AS match_id, b.innings AS innings, t.text AS team, o.text AS opponent,
  b.position AS position, p.text AS player, b.out AS out, h.text AS how_out, w.text AS bowler, f.text AS fielder,
  b.runs AS runs, b.balls AS balls, b.dots AS dots, b.ones AS ones, b.twos AS twos, b.threes AS threes,
  b.fours AS fours, b.sixes AS sixes, b.not_out AS not_out, b.fifty_balls AS fifty_balls, b.hundred_balls AS hundred_balls
  FROM batting_row b JOIN name t ON t.id = b.team JOIN name o ON o.id = b.opponent JOIN name p ON p.id = b.player
  JOIN name h ON h.id = b.how_out JOIN name w ON w.id = b.bowler JOIN name f ON f.id = b.fielder;

CREATE VIEW bowling AS SELECT b.match_id AS match_id, b.innings AS innings, t.text AS team, o.text AS opponent,
  p.text AS player, b.balls AS balls, b.maidens AS maidens, b.runs AS runs, b.wickets AS wickets, b.came_on AS came_on
  FROM bowling_row b JOIN name t ON t.id = b.team JOIN name o ON o.id = b.opponent JOIN name p ON p.id = b.player
  WHERE b.came_on > 0;

CREATE VIEW stands AS SELECT s.match_id AS match_id, s.innings AS innings, t.text AS team, s.wicket AS wicket,
  s.runs AS runs, p.text AS player1, q.text AS player2, s.unbroken AS unbroken, s.balls AS balls
  FROM stand_row s JOIN name t ON t.id = s.team JOIN name p ON p.id = s.player1 JOIN name q ON q.id = s.player2
  WHERE s.player1 <> (SELECT id FROM name WHERE text = '');

CREATE VIEW overs AS SELECT v.match_id AS match_id, v.innings AS innings, v.over AS over, b.text AS bowler,
  v.runs AS runs, v.wickets AS wickets FROM over_row v JOIN name b ON b.id = v.bowler;
)sql";

const char* const archive_additions = R"sql(
CREATE TABLE meeting_row (
  player INTEGER NOT NULL, match_id INTEGER NOT NULL, innings INTEGER NOT NULL, position INTEGER NOT NULL,
  bowler_position INTEGER NOT NULL, bowler INTEGER NOT NULL, team INTEGER NOT NULL, opponent INTEGER NOT NULL,
  result INTEGER NOT NULL, balls INTEGER NOT NULL, runs INTEGER NOT NULL, dots INTEGER NOT NULL,
  fours INTEGER NOT NULL, sixes INTEGER NOT NULL, outs INTEGER NOT NULL,
  PRIMARY KEY (player, match_id, innings, position, bowler_position)) WITHOUT ROWID;

CREATE TABLE man_sums (
  player INTEGER NOT NULL, team INTEGER NOT NULL, matches INTEGER NOT NULL, PRIMARY KEY (player, team)) WITHOUT ROWID;
INSERT INTO man_sums SELECT player, team, count(*) FROM bowling_row GROUP BY player, team;

CREATE VIEW meetings AS SELECT r.match_id AS match_id, r.innings AS innings, t.text AS team, o.text AS opponent,
  p.text AS player, b.text AS bowler, r.balls AS balls, r.runs AS runs, r.dots AS dots, r.fours AS fours,
  r.sixes AS sixes, r.outs AS outs FROM meeting_row r JOIN name t ON t.id = r.team JOIN name o ON o.id = r.opponent
  JOIN name p ON p.id = r.player JOIN name b ON b.id = r.bowler;
)sql";

}  // namespace velorin
