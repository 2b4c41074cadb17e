// SPDX-License-Identifier: GPL-3.0-or-later
#include <fmt/format.h>

#include <memory>
#include <ostream>
#include <variant>

#include "archive/answer_text.h"
#include "archive/archive_keeper.h"
#include "archive/question.h"
#include "archive/written_question.h"
#include "cli/commands.h"
#include "cli/text_table.h"
#include "database/open_database.h"
#include "model/code_page.h"

namespace velorin::cli {

namespace {

struct query_options {
  std::string from;
  std::vector<std::string> by;
  std::vector<std::string> where;
  std::vector<std::string> having;
  std::string sort;
  bool descending = false;
  long top = 0;
  bool json = false;
  bool csv = false;
};

std::string bytes_of(const std::string& utf8) { return from_utf8(utf8).value_or(utf8); }

/// Wrong usage, with names that are near to what was given, or all where there are few.
[[noreturn]] void raise_wrong_part(const question_error& error) {
  std::string line = error.what();
  if (!error.name.empty()) line += fmt::format(" \"{}\"", error.name);
  constexpr std::size_t few = 24;
  std::vector<std::string> told = near_names(error.name, error.known);
  const bool near = !told.empty();
  if (!near && error.known.size() <= few) told = error.known;
  for (std::size_t i = 0; i < told.size(); ++i) line += (i > 0 ? ", " : near ? "; near: " : "; known: ") + told[i];
  throw CLI::ValidationError("query", line);
}

question question_in(const query_options& options) {
  question asked;
  asked.from = *source_named(options.from);
  asked.by = options.by;
  for (const std::string& typed : options.where) add_condition(asked, condition_from(typed));
  for (const std::string& typed : options.having) asked.having.push_back(condition_from(typed));
  asked.sort = options.sort;
  asked.descending = options.descending;
  asked.top = options.top;
  return asked;
}

/// As one reads it: rates with two places one below the other, words without the blanks around and between them.
std::string read_text(const answer_value& value) {
  if (const auto* rate = std::get_if<double>(&value)) return fmt::format("{:.2f}", *rate);
  std::string words;
  for (const char letter : value_text(value)) {
    if (letter != ' ' || (!words.empty() && words.back() != ' ')) words += letter;
  }
  if (words.ends_with(' ')) words.pop_back();
  return words;
}

void print_text(const answer& told, std::ostream& out) {
  std::vector<std::string> headings;
  std::string aligned;
  for (const answer_column& column : told.columns) {
    headings.push_back(column.name);
    aligned += column.kind == column_kind::text ? 'l' : 'r';
  }
  text_table table(headings, aligned);
  for (const auto& row : told.rows) {
    std::vector<std::string> texts;
    texts.reserve(row.size());
    for (const answer_value& value : row) texts.push_back(bytes_of(read_text(value)));
    table.add(texts);
  }
  table.print(out);
}

int query(const query_options& options, const program_options& program, streams io) {
  const run_state run = set_up_run(program);
  try {
    const question asked = question_in(options);
    const archive_file archive = settled_archive(run.data.files);
    const answer told = ask(archive, asked);
    if (options.json) {
      io.out << answer_json(told, asked);
    } else if (options.csv) {
      io.out << answer_csv(told);
    } else {
      print_text(told, io.out);
    }
  } catch (const question_error& error) {
    raise_wrong_part(error);
  }
  io.out.flush();
  return done;
}

}  // namespace

void add_query(CLI::App& app, const program_options& program, streams io, command_action& action) {
  auto options = std::make_shared<query_options>();
  CLI::App* command = app.add_subcommand("query", "Asks the archive of matches");
  command->add_option("FROM", options->from, "matches, innings, batting, bowling, stands or meetings")
      ->required()
      ->check(CLI::IsMember({"matches", "innings", "batting", "bowling", "stands", "meetings"}));
  command->add_option("--by", options->by, "Sum the rows by these fields")->delimiter(',')->type_name("FIELD[,FIELD]");
  command
      ->add_option("--where", options->where,
                   "Only rows with FIELD=VALUE; also != < <= > >= and ~ (contains). With --by also sums, such as "
                   "hundreds>=2")
      ->allow_extra_args(false)
      ->delimiter('\0')
      ->type_name("FIELD=VALUE");
  command
      ->add_option("--having", options->having,
                   "With --by only sums with FIGURE=VALUE, such as innings>=20, which is a field of rows as well")
      ->allow_extra_args(false)
      ->delimiter('\0')
      ->type_name("FIGURE=VALUE");
  command->add_option("--sort", options->sort, "Order of the rows")->check(not_empty)->type_name("FIELD");
  command->add_flag("--descending", options->descending, "The largest first");
  command->add_option("--top", options->top, "So many rows at most")
      ->transform(plain_number)
      ->check(CLI::Range(1L, 1'000'000'000L))
      ->type_name("N");
  CLI::Option* as_json = command->add_flag("--json", options->json, "Standard output is one JSON object");
  command->add_flag("--csv", options->csv, "Standard output is CSV")->excludes(as_json);
  command->callback(
      [options, &program, io, &action] { action = [options, &program, io] { return query(*options, program, io); }; });
}

}  // namespace velorin::cli
