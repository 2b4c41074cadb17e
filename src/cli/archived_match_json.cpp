// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/archived_match_json.h"

#include <fmt/chrono.h>
#include <fmt/format.h>

#include <algorithm>
#include <ctime>
#include <ostream>

#include "cli/text_table.h"
#include "model/code_page.h"
#include "model/texts.h"

namespace velorin::cli {

namespace {

std::string time_text(std::int64_t seconds) {
  return fmt::format("{:%Y-%m-%dT%H:%M:%SZ}", fmt::gmtime(static_cast<std::time_t>(seconds)));
}

json batting_json(const archived_innings& innings) {
  json rows = json::array();
  for (const archived_batsman& man : innings.batting) {
    rows.push_back({{"position", man.position},
                    {"player", to_utf8(man.player)},
                    {"out", man.out},
                    {"not_out", man.not_out},
                    {"how_out", how_out_name(man)},
                    {"bowler", to_utf8(man.bowler)},
                    {"fielder", to_utf8(man.fielder)},
                    {"runs", man.runs},
                    {"balls", man.balls},
                    {"dots", man.dots},
                    {"ones", man.ones},
                    {"twos", man.twos},
                    {"threes", man.threes},
                    {"fours", man.fours},
                    {"sixes", man.sixes},
                    {"fifty_balls", man.fifty_balls},
                    {"hundred_balls", man.hundred_balls}});
  }
  return rows;
}

json bowling_json(const archived_innings& innings) {
  json rows = json::array();
  for (const archived_bowler& man : innings.bowling) {
    rows.push_back({{"player", to_utf8(man.player)},
                    {"came_on", man.came_on},
                    {"balls", man.balls},
                    {"maidens", man.maidens},
                    {"runs", man.runs},
                    {"wickets", man.wickets}});
  }
  return rows;
}

json stands_json(const archived_innings& innings) {
  json rows = json::array();
  for (std::size_t i = 0; i < innings.stands.size(); ++i) {
    const archived_stand& stand = innings.stands[i];
    if (!stand.is_there()) continue;
    rows.push_back({{"wicket", i + 1},
                    {"runs", stand.runs},
                    {"balls", stand.balls},
                    {"player1", to_utf8(stand.player1)},
                    {"player2", to_utf8(stand.player2)},
                    {"unbroken", stand.unbroken}});
  }
  return rows;
}

json innings_json(const archived_innings& innings) {
  json overs = json::array();
  for (const archived_over& over : innings.overs) {
    overs.push_back(
        {{"over", over.over}, {"bowler", to_utf8(over.bowler)}, {"runs", over.runs}, {"wickets", over.wickets}});
  }
  return {{"team", to_utf8(innings.team)},
          {"runs", innings.runs},
          {"wickets", innings.wickets},
          {"balls", innings.balls},
          {"wides", innings.wides},
          {"no_balls", innings.no_balls},
          {"byes", innings.byes},
          {"leg_byes", innings.leg_byes},
          {"batting", batting_json(innings)},
          {"bowling", bowling_json(innings)},
          {"stands", stands_json(innings)},
          {"overs", overs}};
}

std::string dismissal_text(const archived_batsman& man) {
  switch (man.how) {
    case dismissal::caught:
      return "c " + man.fielder + " b " + man.bowler;
    case dismissal::caught_and_bowled:
      return "c & b " + man.bowler;
    case dismissal::stumped:
      return "st " + man.fielder + " b " + man.bowler;
    case dismissal::bowled:
      return "b " + man.bowler;
    case dismissal::leg_before:
      return "lbw " + man.bowler;
    case dismissal::run_out:
      return "run out (" + man.fielder + ")";
    case dismissal::none:
    case dismissal::not_out:
      break;
  }
  return "not out";
}

void print_innings(const archived_innings& innings, std::ostream& out) {
  out << shown_line(innings.team)
      << fmt::format("  {}-{} ({} overs)\n\n", innings.runs, innings.wickets, overs_from_balls(innings.balls));
  text_table batting({"Batting", "", "R", "B", "4s", "6s"}, "llrrrr");
  for (const archived_batsman& man : innings.batting) {
    batting.add({man.player, dismissal_text(man), number_text(man.runs), number_text(man.balls), number_text(man.fours),
                 number_text(man.sixes)});
  }
  batting.print(out);
  out << fmt::format("\nByes {}, leg byes {}, wides {}, no balls {}\n\n", innings.byes, innings.leg_byes, innings.wides,
                     innings.no_balls);
  std::vector<archived_bowler> bowlers = innings.bowling;
  std::erase_if(bowlers, [](const archived_bowler& man) { return man.came_on == 0; });
  std::sort(bowlers.begin(), bowlers.end(),
            [](const archived_bowler& a, const archived_bowler& b) { return a.came_on < b.came_on; });
  text_table bowling({"Bowling", "O", "M", "R", "W"}, "lrrrr");
  for (const archived_bowler& man : bowlers) {
    bowling.add({man.player, overs_from_balls(man.balls), number_text(man.maidens), number_text(man.runs),
                 number_text(man.wickets)});
  }
  bowling.print(out);
  out << '\n';
}

}  // namespace

json archived_match_json(const archived_match& match) {
  return {{"id", match.id},
          {"key", to_utf8(match.key)},
          {"played_at", time_text(match.played_at)},
          {"competition", to_utf8(match.competition)},
          {"stage", to_utf8(match.stage)},
          {"number", match.number},
          {"ground", to_utf8(match.ground)},
          {"country", to_utf8(match.country)},
          {"weather", match.weather},
          {"pitch_surface", match.pitch_surface},
          {"pitch_bounce", match.pitch_bounce},
          {"outfield", match.outfield},
          {"human", match.human},
          {"winner", to_utf8(match.winner)},
          {"margin", to_utf8(match.margin)},
          {"innings", {innings_json(match.innings[0]), innings_json(match.innings[1])}},
          {"recording", match.recording.size()}};
}

void print_archived_match(const archived_match& match, std::ostream& out) {
  out << fmt::format("Match {}, {}\n", match.id, time_text(match.played_at)) << shown_line(match.competition);
  if (!match.stage.empty()) out << ", " << shown_line(match.stage);
  out << '\n' << shown_line(match.ground) << "\n\n";
  for (const archived_innings& innings : match.innings) print_innings(innings, out);
  out << (match.winner.empty() ? std::string("Tied") : shown_line(match.winner + match.margin)) << '\n';
}

}  // namespace velorin::cli
