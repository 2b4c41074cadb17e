// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <memory>
#include <ostream>

#include <fmt/format.h>

#include "browsers/century_makers.h"
#include "browsers/player_profile.h"
#include "browsers/player_rankings.h"
#include "browsers/record_tables.h"
#include "browsers/team_records.h"
#include "browsers/world_rankings.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/text_table.h"
#include "database/open_database.h"
#include "database/teams_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"

namespace velorin::cli {

namespace {

struct report_options {
  std::string list;
  std::string team;
  std::string player;
  bool json = false;
};

/// A list by its name on the command line.
struct named_list {
  std::string_view name;
  shown_table (*open)(const open_database& data, const std::string& team);
  bool of_team = false;
};

template <class Form>
shown_table opened(Form form, auto... arguments) {
  form.open(arguments...);
  return form.table;
}

template <int record_mode>
shown_table ranking(const open_database& data, const std::string& team) {
  return opened(player_rankings_form(data), record_mode, team);
}

constexpr std::array<named_list, 15> lists = {{
    {"highest-scores",
     [](const open_database& data, const std::string&) { return opened(best_performances_form(data), 1); }},
    {"best-bowling",
     [](const open_database& data, const std::string&) { return opened(best_performances_form(data), 0); }},
    {"highest-totals",
     [](const open_database& data, const std::string&) { return opened(total_records_form(data), 1); }},
    {"lowest-totals",
     [](const open_database& data, const std::string&) { return opened(total_records_form(data), 0); }},
    {"partnerships", [](const open_database& data, const std::string&) { return opened(stand_records_form(data)); }},
    {"averages", ranking<1>},
    {"most-runs", ranking<2>},
    {"strike-rates", ranking<3>},
    {"fifty-plus", ranking<4>},
    {"most-wickets", ranking<5>},
    {"economy", ranking<6>},
    {"bowling-averages", ranking<7>},
    {"centuries", [](const open_database& data, const std::string&) { return opened(century_makers_form(data)); }},
    {"career-batting", ranking<player_rankings_form::career_batting>, true},
    {"career-bowling", ranking<player_rankings_form::career_bowling>, true},
}};

const named_list& find_list(const std::string& name) {
  return *std::find_if(lists.begin(), lists.end(), [&](const named_list& list) { return list.name == name; });
}

std::vector<std::string> list_names() {
  std::vector<std::string> names;
  names.reserve(lists.size());
  for (const named_list& list : lists) names.emplace_back(list.name);
  return names;
}

/// A text as a window shows it: of two ampersands one.
std::string window_text(std::string text) {
  for (auto at = text.find("&&"); at != std::string::npos; at = text.find("&&", at + 1)) text.erase(at, 1);
  return text;
}

void print_table(const shown_table& table, std::ostream& out) {
  std::vector<std::string> headings;
  std::string aligned;
  for (const shown_column& column : table.columns) {
    headings.emplace_back(column.heading);
    aligned += column.aligned == alignment::right ? 'r' : 'l';
  }
  text_table shown(headings, aligned);
  for (const shown_table::row& row : table.rows) {
    std::vector<std::string> texts;
    for (const std::string& text : row.texts) texts.push_back(window_text(text));
    shown.add(texts);
  }
  out << shown_line(table.title) << "\n\n";
  shown.print(out);
}

json table_json(const shown_table& table) {
  json columns = json::array();
  for (const shown_column& column : table.columns) columns.push_back(to_utf8(column.heading));
  json rows = json::array();
  for (const shown_table::row& row : table.rows) {
    json texts = json::array();
    for (const std::string& text : row.texts) texts.push_back(to_utf8(text));
    rows.push_back(texts);
  }
  return {{"title", to_utf8(table.title)}, {"columns", columns}, {"rows", rows}};
}

void show_table(const shown_table& table, const report_options& options, std::ostream& out) {
  if (options.json) {
    out << table_json(table).dump() << '\n';
  } else {
    print_table(table, out);
  }
}

/// Adds fields under their captions, those that two blocks have with `prefix` before them.
void add_fields(json& object, const std::vector<shown_field>& fields, const std::string& prefix = {}) {
  for (const shown_field& field : fields) {
    const bool twice = field.caption == "Average" || field.caption == "Strike Rate";
    object[(twice ? prefix : std::string()) + std::string(field.caption)] = to_utf8(field.text);
  }
}

json profile_json(const player_profile_form& form) {
  json object;
  add_fields(object, form.person);
  add_fields(object, form.batting, "Batting ");
  add_fields(object, form.bowling, "Bowling ");
  add_fields(object, form.fielding);
  return object;
}

template <class Fields>
void add_block(text_table& table, const Fields& fields) {
  for (const shown_field& field : fields) table.add({std::string(field.caption), field.text});
}

void print_profile(const player_profile_form& form, std::ostream& out) {
  text_table table({}, "ll");
  add_block(table, form.person);
  const auto add_headed = [&table](const char* heading, const std::vector<shown_field>& fields) {
    table.add({"", ""});
    table.add({heading, ""});
    add_block(table, fields);
  };
  add_headed("BATTING", form.batting);
  add_headed("BOWLING", form.bowling);
  add_headed("FIELDING", form.fielding);
  table.print(out);
}

json team_json(const team_records_form& form) {
  json object;
  for (const team_records_form::results_column& column : form.results) {
    for (std::size_t i = 0; i < column.texts.size(); ++i) {
      object[fmt::format("{} {}", column.heading, team_records_form::result_captions[i])] = to_utf8(column.texts[i]);
    }
  }
  add_fields(object, {form.world_ranking});
  add_fields(object, {form.extremes.begin(), form.extremes.end()});
  add_fields(object, {form.individual.begin(), form.individual.end()});
  return object;
}

void print_team(const team_records_form& form, std::ostream& out) {
  out << shown_line(form.title) << "\n\n";
  std::vector<std::string> headings = {""};
  for (const team_records_form::results_column& column : form.results) headings.emplace_back(column.heading);
  text_table results(headings, "lrrr");
  for (std::size_t i = 0; i < team_records_form::result_captions.size(); ++i) {
    std::vector<std::string> row = {std::string(team_records_form::result_captions[i])};
    for (const team_records_form::results_column& column : form.results) row.push_back(column.texts[i]);
    results.add(row);
  }
  results.print(out);
  out << '\n' << form.world_ranking.caption << form.world_ranking.text << "\n\n";
  text_table fields({}, "ll");
  add_block(fields, form.extremes);
  fields.add({"", ""});
  fields.add({std::string(team_records_form::individual_caption), ""});
  add_block(fields, form.individual);
  fields.print(out);
}

/// The team of the database by that name, or nothing.
const team_rec* team_of_database(open_database& data, const std::string& name) {
  for (const team_rec& team : read_team_list(data)) {
    if (team.team_name == name) return &team;
  }
  return nullptr;
}

/// Raises the error for a team that is not among those who have played.
[[noreturn]] void raise_no_team(open_database& data, const std::string& name, std::vector<std::string> known) {
  if (team_of_database(data, name) != nullptr) {
    throw run_time_error(failure::subscript, fmt::format("No match of the team \"{}\" is on record", name));
  }
  for (const team_rec& team : read_team_list(data)) {
    if (std::find(known.begin(), known.end(), team.team_name) == known.end()) known.push_back(team.team_name);
  }
  raise_unknown("team", name, known);
}

/// The item of a list by name, or -1.
int item_of(const std::vector<std::string>& list, const std::string& name) {
  const auto found = std::find(list.begin(), list.end(), name);
  return found == list.end() ? -1 : static_cast<int>(found - list.begin());
}

void report_player(open_database& data, const report_options& options, std::ostream& out) {
  player_profile_form form(data);
  form.open();
  const std::string team = core_text(options.team);
  const std::string name = core_text(options.player);
  const int team_item = item_of(form.teams, team);
  if (team_item < 0) raise_no_team(data, team, form.teams);
  form.choose_team(team_item);
  const int player_item = item_of(form.players, name);
  if (player_item < 0) raise_unknown("player of " + team, name, form.players);
  form.choose_player(player_item);
  if (options.json) {
    out << profile_json(form).dump() << '\n';
  } else {
    print_profile(form, out);
  }
}

void report_team(open_database& data, const report_options& options, std::ostream& out) {
  team_records_form form(data);
  form.open();
  const std::string name = core_text(options.team);
  const int item = item_of(form.teams, name);
  if (item < 0) raise_no_team(data, name, form.teams);
  form.choose_team(item);
  if (options.json) {
    out << team_json(form).dump() << '\n';
  } else {
    print_team(form, out);
  }
}

void report_rankings(const open_database& data, const report_options& options, std::ostream& out) {
  show_table(opened(world_rankings_form(data)), options, out);
}

/// A team that has not played yet has an empty table of careers.
void report_list(open_database& data, const report_options& options, std::ostream& out) {
  const named_list& list = find_list(options.list);
  const std::string team = core_text(options.team);
  if (list.of_team && team_of_database(data, team) == nullptr) {
    player_profile_form careers(data);
    careers.open();
    if (item_of(careers.teams, team) < 0) raise_no_team(data, team, careers.teams);
  }
  show_table(list.open(data, team), options, out);
}

/// Refuses a list of a team without --team, and --team with any other list.
void check_list(const report_options& options) {
  const bool of_team = find_list(options.list).of_team;
  if (of_team && options.team.empty()) throw CLI::ValidationError("--team", "the list needs a team");
  if (!of_team && !options.team.empty()) {
    throw CLI::ValidationError("--team", "goes with career-batting and career-bowling alone");
  }
}

}  // namespace

void add_report(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto options = std::make_shared<report_options>();
  CLI::App* command = app.add_subcommand("report", "Prints careers, records and rankings");
  command->require_subcommand(1);
  const auto add = [&](const char* name, const char* purpose, auto print) {
    CLI::App* added = command->add_subcommand(name, purpose);
    added->add_flag("--json", options->json, "Standard output is one JSON object");
    added->callback([options, &program, io, &action, print] {
      if (!options->list.empty()) check_list(*options);
      action = [options, &program, io, print] {
        run_state run = set_up_run(program);
        print(run.data, *options, io.out);
        io.out.flush();
        return done;
      };
    });
    return added;
  };
  CLI::App* player = add("player", "The career of a player", report_player);
  player->add_option("--team", options->team, "His team")->required()->type_name("T");
  player->add_option("--name", options->player, "His name")->required()->type_name("N");
  add("team", "The results, totals and best men of a team", report_team)
      ->add_option("--team", options->team, "The team")
      ->required()
      ->type_name("T");
  add("rankings", "The ranking of all teams", report_rankings);
  CLI::App* list = add("list", "A table of records", report_list);
  list->add_option("NAME", options->list, "Which table")->required()->check(CLI::IsMember(list_names()));
  list->add_option("--team", options->team, "The team of career-batting and career-bowling")->type_name("T");
}

}  // namespace velorin::cli
