// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <memory>
#include <ostream>

#include "archive/archive_check.h"
#include "archive/archive_file.h"
#include "archive/archive_keeper.h"
#include "cli/archived_match_json.h"
#include "cli/commands.h"
#include "cli/json.h"
#include "cli/text_table.h"
#include "database/fresh_file.h"
#include "database/open_database.h"
#include "model/code_page.h"
#include "model/run_time_error.h"
#include "model/texts.h"

namespace velorin::cli {

namespace {

struct archive_options {
  std::string id;
  std::string file;
  bool json = false;
};

std::string result_of(const listed_match& match) { return match.winner.empty() ? "Tied" : match.winner + match.margin; }

[[noreturn]] void raise_no_match(std::int64_t id) {
  throw run_time_error(failure::subscript, fmt::format("No match {} in the archive", id), {});
}

std::int64_t id_in(const archive_options& options) {
  std::int64_t id = 0;
  std::from_chars(options.id.data(), options.id.data() + options.id.size(), id);
  return id;
}

int list(const database_files& files, const archive_options& options, streams io) {
  const std::vector<listed_match> all = settled_archive(files).list();
  if (options.json) {
    json rows = json::array();
    for (const listed_match& match : all) {
      rows.push_back({{"id", match.id},
                      {"played_at", match.played_at},
                      {"competition", to_utf8(match.competition)},
                      {"stage", to_utf8(match.stage)},
                      {"ground", to_utf8(match.ground)},
                      {"first", to_utf8(match.first)},
                      {"second", to_utf8(match.second)},
                      {"winner", to_utf8(match.winner)},
                      {"margin", to_utf8(match.margin)}});
    }
    io.out << json{{"matches", rows}}.dump() << '\n';
    return done;
  }
  text_table table({"Match", "Played", "Competition", "Stage", "Ground", "First", "Second", "Result"}, "rlllllll");
  for (const listed_match& match : all) {
    table.add({number_text(static_cast<long>(match.id)), match.played_at, match.competition, match.stage, match.ground,
               match.first, match.second, result_of(match)});
  }
  table.print(io.out);
  return done;
}

int show(const database_files& files, const archive_options& options, streams io) {
  const auto match = settled_archive(files).match(id_in(options));
  if (!match) raise_no_match(id_in(options));
  if (options.json) {
    io.out << archived_match_json(*match).dump() << '\n';
  } else {
    print_archived_match(*match, io.out);
  }
  return done;
}

int record(const database_files& files, const archive_options& options, streams) {
  const auto bytes = settled_archive(files).recording(id_in(options));
  if (!bytes) raise_no_match(id_in(options));
  if (bytes->empty()) {
    throw run_time_error(failure::file, fmt::format("Match {} has no recording", id_in(options)), {});
  }
  fresh_file file(options.file);
  file.stream() << *bytes;
  file.put_in_place();
  return done;
}

int check(const database_files& files, const archive_options&, streams io) {
  const archive_findings found = check_archive(files);
  for (const std::string& difference : found.differences) io.out << shown_line(difference) << '\n';
  if (found.matches_before > 0) {
    io.err << fmt::format("The careers hold {} matches from before the archive\n", found.matches_before);
  }
  io.err << fmt::format("{} match{} checked: ", found.matches, found.matches == 1 ? "" : "es");
  if (found.differences.empty()) {
    io.err << "no difference found\n";
    return done;
  }
  io.err << fmt::format("{} difference{} found\n", found.differences.size(), found.differences.size() == 1 ? "" : "s");
  return failed;
}

int rebuild(const database_files& files, const archive_options&, streams) {
  rebuild_archive(files);
  return done;
}

}  // namespace

void add_archive(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto options = std::make_shared<archive_options>();
  CLI::App* command = app.add_subcommand("archive", "The matches that were added to the careers and records");
  command->require_subcommand(1);
  const auto add = [&](const char* name, const char* purpose, auto act) {
    CLI::App* added = command->add_subcommand(name, purpose);
    added->callback([options, &program, io, &action, act] {
      action = [options, &program, io, act] {
        const run_state run = set_up_run(program);
        const int status = act(run.data.files, *options, io);
        io.out.flush();
        return status;
      };
    });
    return added;
  };
  const auto add_id = [&](CLI::App* to) {
    to->add_option("ID", options->id, "The match's number in the list")->required()->transform(plain_number);
  };
  add("list", "Lists the matches", list)->add_flag("--json", options->json, "Standard output is one JSON object");
  CLI::App* shown = add("show", "Prints the cards of a match", show);
  add_id(shown);
  shown->add_flag("--json", options->json, "Standard output is one JSON object");
  CLI::App* recorded = add("record", "Writes the recording of a match to a file", record);
  add_id(recorded);
  recorded->add_option("FILE", options->file, "The file")->required()->check(not_empty);
  add("check", "Holds the archive against the careers and records", check);
  add("rebuild", "Writes the archive anew from its matches", rebuild);
}

}  // namespace velorin::cli
