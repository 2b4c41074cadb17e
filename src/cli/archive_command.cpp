// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <charconv>
#include <cstdint>
#include <memory>
#include <optional>
#include <ostream>
#include <utility>

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
#include "recording/replay.h"

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

/// The match at the end of its recording. Raises what replay() raises, and run_time_error (file) where it has no match
/// that came to its end.
archived_match played_again(const archived_match& kept) {
  const std::string name = fmt::format("the recording of match {}", kept.id);
  const recording recorded = read_recording(kept.recording, name);
  const auto game = std::make_unique<game_state>(game_at_beginning(recorded));
  std::optional<archived_match> last;
  replay_options options;
  options.match_ends = [&](const game_state& now) { last = archived(now.match); };
  replay(recorded, name, *game, options);
  if (!last) throw run_time_error(failure::file, "No match came to its end", {name, 0, {}, {}});
  last->id = kept.id;
  last->key = kept.key;
  last->played_at = kept.played_at;
  last->recording = kept.recording;
  return *std::move(last);
}

int rebuild(const database_files& files, const archive_options&, streams io) {
  long matches = 0;
  rebuild_archive(files, [&](const archived_match& kept) {
    try {
      archived_match match = played_again(kept);
      ++matches;
      return match;
    } catch (const run_time_error& error) {
      io.err << fmt::format("Match {} keeps its figures: {}\n", kept.id, shown_line(error.what()));
      return kept;
    }
  });
  io.err << fmt::format("{} match{} played again from {}\n", matches, matches == 1 ? "" : "es",
                        matches == 1 ? "its recording" : "their recordings");
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
  add("rebuild", "Writes the archive anew: from the recordings of its matches, else from their figures", rebuild);
}

}  // namespace velorin::cli
