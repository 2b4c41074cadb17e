// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/stopping_user.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <sstream>
#include <utility>

#include "competitions/resume_game.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_tables.h"
#include "console/captain_forms.h"
#include "database/configuration.h"
#include "reports/export.h"
#include "reports/match_report.h"
#include "reports/scorecard.h"
#include "setup/conditions.h"
#include "setup/team_selection.h"
#include "setup/toss.h"
#include "support/folder_contents.h"
#include "support/game_in_play.h"

namespace velorin::testing {

namespace {

template <class... Parts>
std::string line_of(const Parts&... parts) {
  std::ostringstream line;
  ((line << parts << '|'), ...);
  return line.str();
}

template <class Tables>
std::string rows_of(const Tables& rows) {
  std::string text;
  for (const league_texts& row : rows) {
    for (const std::string& cell : row) text += cell + '|';
  }
  return text;
}

std::string told(const league_row& row) {
  return line_of(row.team, int(row.played), int(row.won), int(row.lost), int(row.tied), int(row.points),
                 row.net_run_rate, row.note);
}

std::string told(const match_result& result) {
  return line_of(result.result_ground, result.result_winner, result.result_loser, result.result_margin,
                 result.rate_first.team, result.rate_first.delta, result.rate_second.team, result.rate_second.delta);
}

std::string told(const series_record& series) {
  std::string text = line_of("series", int(series.step), series.home.team, series.away.team, series.matches,
                             series.match_no, series.drawn_ground, series.series_over);
  for (int i = 1; i <= most_series_matches; ++i) {
    text += line_of(series.series_ground[i], series.series_winner[i], series.series_margin[i]);
  }
  return text;
}

std::string told(const tri_record& tri) {
  std::string text = line_of("tri", int(tri.step), tri.rounds, tri.matches_played, tri.final_played, tri.drawn_ground);
  for (int i = 1; i <= tri_teams; ++i) text += told(tri.tri_table[i]) + tri.sides[i].team;
  return text;
}

std::string told(const cup_knockout& tie) {
  return line_of(tie.team_a, tie.team_b, tie.winner, tie.margin, tie.human_a, tie.human_b);
}

std::string told(const world_cup_record& cup) {
  std::string text = line_of("cup", int(cup.step), int(cup.stage), cup.next_match, cup.quit_requested);
  for (const cup_group* group : {&cup.group_a, &cup.group_b}) {
    for (const cup_group_team& team : *group) {
      text += team.team + ':';
      for (const league_row& row : team.versus) text += told(row);
    }
  }
  for (const cup_fixture& fixture : cup.fixtures) {
    text += line_of(fixture.team_a, fixture.team_b, fixture.venue, int(fixture.index_a), int(fixture.index_b),
                    int(fixture.match_no), fixture.stage, fixture.result);
  }
  for (const league_row& row : cup.super_six) text += told(row);
  for (const bool human : cup.super_six_human) text += human ? 'h' : 'c';
  return text + told(cup.semi_finals[1]) + told(cup.semi_finals[2]) + told(cup.grand_final);
}

/// A copy as it was taken.
struct taken_game {
  game_state game;
  std::filesystem::path folder;  ///< the files at that moment
  std::size_t line = 0;          ///< the line of its open question
};

/// A database of its own on the files of a folder, as a fresh program opens it.
open_database opened(const std::filesystem::path& folder, bool through_files) {
  open_database fresh;
  fresh.files = database_paths(folder, data.files.base);
  fresh.files.elevens_in_memory = !through_files;
  fresh.files.updates = through_files;
  return fresh;
}

/// "" if a copy was asked what the first game was asked from this line on, else where they part.
std::string parting(const std::vector<std::string>& of_first, std::size_t line,
                    const std::vector<std::string>& of_copy) {
  const auto rest = of_first.begin() + static_cast<std::ptrdiff_t>(line);
  const auto [first, copy] = std::mismatch(rest, of_first.end(), of_copy.begin(), of_copy.end());
  if (first == of_first.end() && copy == of_copy.end()) return {};
  const auto shown = [](auto at, auto end) { return at == end ? std::string("the end") : at->substr(0, 200); };
  return "asked " + shown(copy, of_copy.end()) + " and not " + shown(first, of_first.end());
}

/// Folders below the one of the database in use, gone with it.
std::filesystem::path copied_folder(const std::filesystem::path& from, const std::string& name) {
  const std::filesystem::path to = data.files.folder / "copies" / name;
  std::filesystem::remove_all(to);
  std::filesystem::create_directories(to);
  for (const auto& entry : std::filesystem::directory_iterator(from)) {
    if (entry.is_regular_file()) std::filesystem::copy_file(entry.path(), to / entry.path().filename());
  }
  return to;
}

stopping_user user_of(game_state& game, const stopped_game& played, std::function<void()> at_stop) {
  stopping_user user(game, played.filter, std::move(at_stop));
  user.leaves_one_in = played.leaves_one_in;
  user.quits_one_in = played.quits_one_in;
  return user;
}

}  // namespace

bool outside_play(request kind, const game_state& game) {
  return kind != request::progress_done && game.match.step != match_step::play;
}

bool anywhere(request kind, const game_state& /*game*/) { return kind != request::progress_done; }

stopping_user::stopping_user(game_state& game, stop_filter filter, std::function<void()> at_stop)
    : headless_user(game.match), game_(game), filter_(std::move(filter)), at_stop_(std::move(at_stop)) {}

void stopping_user::asked(request kind, const std::string& line) {
  if (!selecting_) open_line_ = lines_.size();
  if (!line.empty()) lines_.push_back(line);
  if (at_stop_ && filter_(kind, game_)) at_stop_();
}

bool stopping_user::chance_of(int one_in, std::uint64_t salt) const {
  if (one_in == 0) return false;
  random_source next = game_.chance;
  const std::uint64_t value = random_source::mix(static_cast<std::uint64_t>(next.rnd() * 0x1p32) + (salt << 40U));
  return value % static_cast<std::uint64_t>(one_in) == 0;
}

void stopping_user::show(const message_box& message) {
  asked(request::message, line_of("message", message.title, message.text));
}

save_answer stopping_user::answer(const failed_save& failed) {
  asked(request::failed_save, line_of("failed save", failed.cause, failed.without));
  return headless_user::answer(failed);
}

void stopping_user::show(conditions_form& form) {
  asked(request::conditions, line_of("conditions", form.headline(), form.weather, form.pitch_surface, form.pitch_bounce,
                                     form.outfield, form.weather_words(), form.temperature_line(),
                                     !game_.match.computer_bats, !game_.match.computer_bowls));
  if (chance_of(leaves_one_in, 1)) return form.leave();
  form.weather = 1 + form.weather % 4;
  headless_user::show(form);
}

void stopping_user::show(team_selection_form& form) {
  std::string men;
  for (int place = 1; place <= men_in_squad; ++place) men += form.man(place).name + '|';
  asked(request::selection,
        line_of("selection", form.heading(), men, form.selected_count(), game_.match.first_team_done));
  const std::uint64_t salt = game_.match.first_team_done ? 3 : 2;
  if (chance_of(leaves_one_in, salt)) return form.leave();
  selecting_ = true;
  if (game_.data.files.updates && chance_of(2, salt + 10)) form.show_career_averages(0);
  selecting_ = false;
  headless_user::show(form);
}

void stopping_user::show(toss_form& form) {
  const auto shown = [&] {
    return line_of("toss", form.headline, form.deciding_line, form.other_line, form.coin_visible, form.bat_enabled,
                   form.bowl_enabled);
  };
  asked(request::toss, shown());
  if (form.coin_visible) {
    if (chance_of(leaves_one_in, 4)) return form.leave();
    form.call_coin(chance_of(2, 5) ? 0 : 1);
    asked(request::toss, shown());
  }
  if (chance_of(leaves_one_in, 6)) return form.leave();
  const bool bats = form.bat_enabled && (!form.bowl_enabled || chance_of(2, 7));
  bats ? form.choose_to_bat() : form.choose_to_bowl();
}

void stopping_user::show(next_batsman_form& form) {
  asked(request::next_batsman, line_of("next batsman", form.title));
  headless_user::show(form);
}

void stopping_user::show(bowler_choice_form& form) {
  asked(request::bowler_choice, line_of("bowler", form.title));
  headless_user::show(form);
}

void stopping_user::show(aggression_form& form) {
  asked(request::aggression, line_of("aggression", form.player_name));
  headless_user::show(form);
}

void stopping_user::show(batsman_details_form& form) {
  asked(request::batsman_details, line_of("batsman", form.figures.headline));
  headless_user::show(form);
}

void stopping_user::show(console_form& form) {
  asked(request::console, "");
  headless_user::show(form);
}

void stopping_user::ball_bowled() { asked(request::ball, ""); }
void stopping_user::progress(int) { asked(request::progress, ""); }
void stopping_user::progress_done() { asked(request::progress_done, ""); }

void stopping_user::open(report which) {
  std::string text;
  if (which == report::scorecard) {
    scorecard_form card(game_.match);
    card.open();
    text = text_scorecard(game_.match, card) + ball_by_ball(game_.match, card);
  }
  asked(request::report, line_of("report", int(which), text));
}

void stopping_user::show(match_report_form& form) {
  form.open();
  std::string text;
  for (const reported_innings& innings : form.report.innings) {
    text += line_of(innings.side, innings.total, innings.wickets, innings.overs, innings.extras_sum());
  }
  asked(request::match_report,
        line_of("match report", form.report.result, text, form.report.milestones.size(), form.report.records.size()));
}

void stopping_user::show(player_profile_form& form) {
  asked(request::profile, "profile");
  headless_user::show(form);
}

void stopping_user::show(player_rankings_form& form) {
  asked(request::rankings, "rankings");
  headless_user::show(form);
}

void stopping_user::show(series_results_form& form) {
  std::string rows;
  for (const auto& row : form.rows) rows += row.match_and_ground + '|' + row.result + '|';
  asked(request::results, line_of("results", form.heading, rows, form.standing_line));
  headless_user::show(form);
}

void stopping_user::show(tri_series_table_form& form) {
  asked(request::tri_table, line_of("tri table", form.heading, rows_of(form.rows), form.final_line, form.final_result));
  headless_user::show(form);
}

void stopping_user::show(world_cup_fixtures_form& form) {
  std::string rows;
  for (int place = 1; place <= form.fixtures; ++place) {
    const auto row = form.row_of(place);
    rows += row.match_number + row.team_a + row.team_b + row.venue + row.result + '|';
  }
  asked(request::fixtures, line_of("fixtures", form.next_fixture, form.scroll, rows));
  if (chance_of(quits_one_in, 8)) return form.quit();
  headless_user::show(form);
}

void stopping_user::show(world_cup_tables_form& form) {
  asked(request::tables, line_of("tables", rows_of(form.group_a), rows_of(form.group_b), rows_of(form.super_six),
                                 form.first_semi_final, form.second_semi_final, form.grand_final, form.winners_line));
  headless_user::show(form);
}

std::string end_of(const game_state& game) {
  random_source next = game.chance;
  std::string text = told(static_cast<const match_result&>(game.match));
  text += line_of("\nmatch", int(game.match.step), game.match.team1_name, game.match.team2_name,
                  game.match.venue_name(), game.match.console_open, game.match.human_involved());
  text += '\n' + told(game.series) + '\n' + told(game.tri) + '\n' + told(game.world_cup);
  text += line_of("\nnext", next.draws_used());
  for (int draw = 0; draw < 3; ++draw) text += line_of("", next.rnd());
  return text;
}

// The woven-in checks of a sanitizer take their time: not every copy goes on there.
#ifdef VELORIN_SANITIZED
constexpr std::size_t copies_apart = 9;
#else
constexpr std::size_t copies_apart = 1;
#endif

int expect_copies_to_end_alike(const stopped_game& played) {
  game_state first;
  first.data = opened(copied_folder(data.files.folder, "first"), played.through_files);
  first.chance.use_seed(played.seed);
  std::vector<taken_game> copies;
  int stops = 0;
  stopping_user* asked = nullptr;
  stopping_user user = user_of(first, played, [&] {
    if (++stops % played.one_stop_in != 0) return;
    const std::string name = played.through_files ? std::to_string(stops) : "shared";
    copies.push_back({own_copy(first), copied_folder(first.data.files.folder, name), asked->open_line()});
  });
  asked = &user;
  played.start(first, user);
  const std::string end = end_of(first);
  const auto files = contents_of(first.data.files.folder);
  EXPECT_FALSE(resume_game(first, user)) << "nothing is in play any more";
  for (std::size_t i = 0; i < copies.size(); i += copies_apart) {
    taken_game& taken = copies[i];
    const std::string where = taken.line < user.lines().size() ? user.lines()[taken.line].substr(0, 200) : "the end";
    taken.game.data = opened(taken.folder, played.through_files);
    stopping_user other = user_of(taken.game, played, {});
    EXPECT_TRUE(resume_game(taken.game, other)) << "seed " << played.seed << " at " << where;
    EXPECT_EQ(parting(user.lines(), taken.line, other.lines()), "") << "seed " << played.seed << " at " << where;
    EXPECT_EQ(end_of(taken.game), end) << "seed " << played.seed << " at " << where;
    EXPECT_TRUE(contents_of(taken.folder) == files) << "seed " << played.seed << " at " << where;
    if (::testing::Test::HasFailure()) break;
  }
  return static_cast<int>(copies.size());
}

}  // namespace velorin::testing
