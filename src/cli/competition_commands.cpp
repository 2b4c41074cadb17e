// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <memory>
#include <ostream>
#include <sstream>

#include <fmt/format.h>

#include "cli/commands.h"
#include "cli/competition_options.h"
#include "cli/json.h"
#include "cli/kept_matches.h"
#include "cli/text_table.h"
#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup_fixtures.h"
#include "competitions/world_cup_form.h"
#include "competitions/world_cup_tables.h"
#include "database/configuration.h"
#include "database/open_database.h"
#include "headless/headless_user.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

// Over points and net run rate each competition has words of its own.
const std::vector<std::string> tri_columns = {"Team", "Played", "Won", "Lost", "Tied", "Pts", "Net RR"};
const std::vector<std::string> cup_columns = {"Team", "Played", "Won", "Lost", "Tied", "Points", "NRR"};

json league_json(const std::vector<league_texts>& table) {
  json rows = json::array();
  for (const league_texts& row : table) {
    json texts = json::array();
    for (const std::string& text : row) texts.push_back(to_utf8(text));
    rows.push_back(texts);
  }
  return rows;
}

text_table league_text(const std::vector<std::string>& columns, const std::vector<league_texts>& table) {
  text_table shown(columns, "lrrrrrr");
  for (const league_texts& row : table) shown.add({row.begin(), row.end()});
  return shown;
}

/// The headless user, who prints each showing of a standings window or keeps it as JSON.
class competition_recorder : public headless_user {
 public:
  competition_recorder(const match_state& match, bool as_json, std::ostream& out)
      : headless_user(match), as_json_(as_json), out_(out) {}

  using headless_user::show;

  void show(series_results_form& form) override {
    if (as_json_) {
      json rows = json::array();
      for (const auto& row : form.rows) rows.push_back({to_utf8(row.match_and_ground), to_utf8(row.result)});
      windows_.push_back({{"form", "sri_result"},
                          {"heading", to_utf8(form.heading)},
                          {"rows", rows},
                          {"final_line", to_utf8(form.standing_line)}});
    } else {
      out_ << shown_line(form.heading) << '\n';
      text_table table({}, "ll");
      for (const auto& row : form.rows) table.add({row.match_and_ground, row.result});
      table.print(out_);
      out_ << shown_line(form.standing_line) << "\n\n";
    }
    headless_user::show(form);
  }

  void show(tri_series_table_form& form) override {
    const std::vector<league_texts> rows(form.rows.begin(), form.rows.end());
    if (as_json_) {
      windows_.push_back({{"form", "triserresult"},
                          {"title", to_utf8(form.title)},
                          {"heading", to_utf8(form.heading)},
                          {"rows", league_json(rows)},
                          {"final", to_utf8(form.final_line)},
                          {"result", to_utf8(form.final_result)}});
    } else {
      out_ << shown_line(form.heading) << '\n';
      league_text(tri_columns, rows).print(out_);
      out_ << shown_line(form.final_line) << '\n';
      if (!form.final_result.empty()) out_ << shown_line(form.final_result) << '\n';
      out_ << '\n';
    }
    headless_user::show(form);
  }

  void show(world_cup_fixtures_form& form) override {
    if (as_json_) {
      json fixtures = json::array();
      for (int place = 1; place <= form.fixtures; ++place) {
        const world_cup_fixtures_form::row row = form.row_of(place);
        fixtures.push_back({to_utf8(row.match_number), to_utf8(row.team_a), to_utf8(row.team_b), to_utf8(row.venue),
                            to_utf8(row.result)});
      }
      windows_.push_back({{"form", "wc_fix"}, {"next_fixture", form.next_fixture}, {"fixtures", fixtures}});
    } else {
      text_table table({"", "Match No.", "Team A", "Team B", "Venue", "Match Result"}, "llllll");
      for (const world_cup_fixtures_form::row& row : form.rows) {
        if (!row.match_number.empty()) {
          table.add({row.is_next ? ">" : "", row.match_number, row.team_a, row.team_b, row.venue, row.result});
        }
      }
      table.print(out_);
      out_ << '\n';
    }
    headless_user::show(form);
  }

  void show(world_cup_tables_form& form) override {
    if (as_json_) {
      windows_.push_back({{"form", "wcsstab"},
                          {"group_a", league_json(form.group_a)},
                          {"group_b", league_json(form.group_b)},
                          {"super_six", league_json(form.super_six)},
                          {"semi_final_1", to_utf8(form.first_semi_final)},
                          {"semi_final_2", to_utf8(form.second_semi_final)},
                          {"grand_final", to_utf8(form.grand_final)},
                          {"winners", to_utf8(form.winners_line)}});
    } else {
      print_table("Group A Table", form.group_a);
      print_table("Group B Table", form.group_b);
      if (!form.super_six.empty()) print_table("Super Six Table", form.super_six);
      if (!form.first_semi_final.empty()) out_ << "Semi Final 1 : " << shown_line(form.first_semi_final) << '\n';
      if (!form.second_semi_final.empty()) out_ << "Semi Final 2 : " << shown_line(form.second_semi_final) << '\n';
      if (!form.grand_final.empty()) out_ << "Grand Final : " << shown_line(form.grand_final) << '\n';
      out_ << shown_line(form.winners_line) << "\n\n";
    }
    headless_user::show(form);
  }

  void finish() {
    if (as_json_) out_ << json{{"windows", windows_}}.dump() << '\n';
    out_.flush();
  }

 private:
  void print_table(const char* heading, const std::vector<league_texts>& table) {
    out_ << heading << '\n';
    league_text(cup_columns, table).print(out_);
    out_ << '\n';
  }

  bool as_json_;
  std::ostream& out_;
  json windows_ = json::array();
};

/// The entry of a team by name in the list of a form.
int entry_of(const std::vector<team_entry>& list, const std::string& name) {
  const std::string wanted = core_text(name);
  std::vector<std::string> known;
  known.reserve(list.size());
  for (const team_entry& entry : list) known.push_back(entry.name);
  const auto found = std::find(known.begin(), known.end(), wanted);
  if (found == known.end()) raise_unknown("team", wanted, known);
  return static_cast<int>(found - known.begin());
}

void fill_and_play(series_form& form, const competition_options& options) {
  form.open();
  form.choose_home(entry_of(form.teams, options.teams[0]));
  form.choose_away(entry_of(form.teams, options.teams[1]));
  form.set_matches(options.count);
  form.accept();
}

void fill_and_play(tri_series_form& form, const competition_options& options) {
  form.open();
  for (int box = 0; box < tri_teams; ++box) form.choose_team(box, entry_of(form.teams, options.teams[box]));
  form.set_rounds(options.count);
  form.accept();
}

void fill_and_play(world_cup_form& form, const competition_options& options) {
  fill(form, options);
  form.accept();
}

/// The record of the competition that a form plays.
template <class Form>
using competition_of =
    std::conditional_t<std::is_same_v<Form, series_form>, series_record,
                       std::conditional_t<std::is_same_v<Form, tri_series_form>, tri_record, world_cup_record>>;

/// Plays a competition from its form.
template <class Form>
int play(const competition_options& options, const program_options& program, streams io) {
  run_state run = set_up_run(program);
  run.data.files.updates = options.update;
  const kept_matches kept(run.data.files);
  competition_recorder recorder(run.match, options.json, io.out);
  competition_of<Form> competition;
  Form form({run.match, run.chance, recorder, run.data}, competition);
  fill_and_play(form, options);
  recorder.finish();
  return done;
}

void add_common(CLI::App& command, competition_options& options) {
  command.add_flag("--update", options.update, "Add every match to the careers and records of the database");
  command.add_flag("--json", options.json, "Standard output is one JSON object");
}

template <class Form>
void set_action(CLI::App& command, const std::shared_ptr<competition_options>& options, const program_options& program,
                streams io, command_action& action) {
  command.callback([options, &program, io, &action] {
    action = [options, &program, io] { return play<Form>(*options, program, io); };
  });
}

}  // namespace

void add_cup_choice(CLI::App& command, competition_options& options) {
  command.add_option("--group-a", options.group_a, "Five teams (default: teams 1 to 5)")
      ->delimiter(',')
      ->expected(cup_group_teams)
      ->type_name("N1,N2,N3,N4,N5");
  command.add_option("--group-b", options.group_b, "Five teams (default: teams 6 to 10)")
      ->delimiter(',')
      ->expected(cup_group_teams)
      ->type_name("N1,N2,N3,N4,N5");
  command.add_option("--hosts", options.hosts, "One to three host teams (default: the first team)")
      ->delimiter(',')
      ->expected(1, cup_hosts)
      ->type_name("N1[,N2[,N3]]");
}

void fill(world_cup_form& form, const competition_options& options) {
  form.open();
  if (form.closed) throw run_time_error(failure::subscript, world_cup_form::too_few_teams);
  for (std::size_t i = 0; i < options.group_a.size(); ++i)
    form.group_a_index[i] = entry_of(form.teams, options.group_a[i]);
  for (std::size_t i = 0; i < options.group_b.size(); ++i)
    form.group_b_index[i] = entry_of(form.teams, options.group_b[i]);
  if (!options.hosts.empty()) form.host_index.fill(-1);
  for (std::size_t i = 0; i < options.hosts.size(); ++i) form.host_index[i] = entry_of(form.teams, options.hosts[i]);
}

void add_competitions(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto one = std::make_shared<competition_options>();
  one->teams.resize(2);
  CLI::App* series_command = app.add_subcommand("series", "Plays a series of two teams and prints the results");
  series_command->add_option("--home", one->teams[0], "Home team")->required()->type_name("NAME");
  series_command->add_option("--away", one->teams[1], "Away team")->required()->type_name("NAME");
  series_command->add_option("--matches", one->count, "Matches, 1 to 10 (default: 1)")
      ->transform(plain_number)
      ->check(CLI::Range(1, most_series_matches))
      ->type_name("N");
  add_common(*series_command, *one);
  set_action<series_form>(*series_command, one, program, io, action);

  auto three = std::make_shared<competition_options>();
  three->teams.resize(tri_teams);
  CLI::App* tri_command = app.add_subcommand("tri", "Plays a tri series and prints the tables");
  tri_command->add_option("--team1", three->teams[0], "First team, the host")->required()->type_name("NAME");
  tri_command->add_option("--team2", three->teams[1], "Second team")->required()->type_name("NAME");
  tri_command->add_option("--team3", three->teams[2], "Third team")->required()->type_name("NAME");
  tri_command->add_option("--rounds", three->count, "Rounds of the league, 1 to 5 (default: 1)")
      ->transform(plain_number)
      ->check(CLI::Range(1, most_tri_rounds))
      ->type_name("R");
  add_common(*tri_command, *three);
  set_action<tri_series_form>(*tri_command, three, program, io, action);

  auto cup = std::make_shared<competition_options>();
  CLI::App* cup_command = app.add_subcommand("worldcup", "Plays a World Cup and prints fixtures and tables");
  add_cup_choice(*cup_command, *cup);
  add_common(*cup_command, *cup);
  set_action<world_cup_form>(*cup_command, cup, program, io, action);
}

}  // namespace velorin::cli
