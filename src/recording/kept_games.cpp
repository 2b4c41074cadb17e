// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/kept_games.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <optional>

#include "competitions/next_match.h"
#include "database/file_calls.h"
#include "database/whole_file.h"
#include "model/code_page.h"
#include "model/run_time_error.h"
#include "recording/recording_file.h"
#include "recording/replay.h"

namespace velorin {

namespace {

std::string competition_of(const entered_game& entered) {
  const auto team = [&](std::size_t i) { return i < entered.teams.size() ? entered.teams[i].name : std::string(); };
  switch (entered.kind) {
    case game_kind::match:
      return team(0) + " v " + team(1);
    case game_kind::series:
      return "Series " + team(0) + " v " + team(1);
    case game_kind::tri_series:
      return "Tri Series " + team(0) + ", " + team(1) + ", " + team(2);
    case game_kind::world_cup:
      return "World Cup";
  }
  return {};
}

std::string stage_of(match_stage stage) {
  switch (stage) {
    case match_stage::series:
    case match_stage::tri_league:
      return {};
    case match_stage::cup_groups:
      return "group matches";
    case match_stage::super_six:
      return "Super Six";
    case match_stage::semi_finals:
      return "semi-finals";
    case match_stage::tri_final:
    case match_stage::grand_final:
      return "final";
  }
  return {};
}

/// The stage with the number in it: "Super Six, match 3", "match 2", "final".
std::string stage_words(match_stage stage, int number) {
  std::string name = stage_of(stage);
  if (stage == match_stage::tri_final || stage == match_stage::grand_final) return name;
  const std::string match = fmt::format("match {}", number);
  return name.empty() ? match : name + ", " + match;
}

/// Where a match that has not ended stands.
std::string score_words(const match_state& match) {
  switch (match.step) {
    case match_step::none:
      return {};
    case match_step::conditions:
      return match.chosen[0].name + " v " + match.chosen[1].name + ", the conditions";
    case match_step::first_selection:
      return match.chosen[0].name + " to be selected";
    case match_step::second_selection:
      return match.chosen[1].name + " to be selected";
    case match_step::toss_call:
    case match_step::toss:
      return match.chosen[0].name + " v " + match.chosen[1].name + ", the toss";
    case match_step::play:
      break;
  }
  return fmt::format("{} {}/{}, {} overs, {} to bowl", match.team1_name, match.score_runs, match.score_wickets,
                     match.overs_text(), match.team2_name);
}

// In a match the place is that of the match; between two, of the one that comes.

std::optional<coming_match> stands_at(const series_record& series) {
  if (series.step != series_step::match) return next_match(series);
  series_record before = series;
  before.match_no -= 1;
  return next_match(before);
}

std::optional<coming_match> stands_at(const tri_record& tri) { return next_match(tri); }

std::optional<coming_match> stands_at(const world_cup_record& cup) {
  if (cup.step != cup_step::match || cup.stage != cup_stage::knock_out) return next_match(cup);
  world_cup_record before = cup;
  before.next_match -= 1;
  return next_match(before);
}

void add_stage(game_words& words, const std::optional<coming_match>& coming, bool in_match, const match_state& match) {
  if (!coming) {
    words.score = "all matches are played";
    return;
  }
  words.stage = stage_words(coming->stage, coming->number_in_stage);
  if (in_match) {
    words.score = score_words(match);
  } else if (coming->sides) {
    words.score = fmt::format("{} v {} to come", coming->sides->front().team, coming->sides->back().team);
  } else {
    words.score = "to come";
  }
}

/// Nothing for a file that cannot be read.
std::optional<std::string> bytes_of(const std::filesystem::path& file) {
  try {
    return read_file(file);
  } catch (const run_time_error&) {
    return std::nullopt;
  }
}

std::int64_t changed_at(const std::filesystem::path& file) {
  struct stat facts {};
  return ::stat(file.c_str(), &facts) == 0 ? facts.st_mtim.tv_sec : 0;
}

}  // namespace

std::string game_words::line() const {
  const std::string place = stage.empty() ? competition : competition + ", " + stage;
  return score.empty() ? place : place + ": " + score;
}

game_words words_of(const entered_game& entered, const game_state& game) {
  game_words words{competition_of(entered), {}, {}};
  switch (entered.kind) {
    case game_kind::match:
      if (entered.number == 1) words.stage = "practice";
      words.score = score_words(game.match);
      break;
    case game_kind::series:
      add_stage(words, stands_at(game.series), game.series.step == series_step::match, game.match);
      break;
    case game_kind::tri_series:
      add_stage(words, stands_at(game.tri), game.tri.step == tri_step::match, game.match);
      break;
    case game_kind::world_cup:
      add_stage(words, stands_at(game.world_cup), game.world_cup.step == cup_step::match, game.match);
      break;
  }
  return words;
}

kept_game look_at_game(const std::filesystem::path& file) {
  kept_game kept;
  kept.file = file;
  kept.name = file.stem().string();
  kept.changed_at = changed_at(file);
  kept.in_use = is_in_use(file);
  try {
    const recording recorded = read_recording(file);
    kept.begun_at = recorded.beginning.begun_at;
    kept.kind = recorded.beginning.game.kind;
    game_state game = game_at_beginning(recorded);
    match_result result;
    replay_options options;
    options.match_ends = [&](const game_state& ended) {
      result = ended.match;
      kept.bowled = true;
    };
    kept.over = replay(recorded, file_name_text(file), game, options) == replay_end::over;
    kept.bowled |= !game.match.deliveries.empty() || !game.match.first_deliveries.empty();
    kept.words = words_of(recorded.beginning.game, game);
    if (kept.over) {
      const bool by_itself = kept.kind == game_kind::match;
      if (!by_itself) kept.words.stage.clear();
      kept.words.score = by_itself ? result.result_winner + result.result_margin : "over";
    }
  } catch (const run_time_error& fault) {
    const std::optional<std::string> bytes = bytes_of(file);
    kept.empty = bytes && holds_nothing_yet(*bytes);
    kept.fault = kept.empty ? "Nothing is in it yet" : fault.what();
  }
  return kept;
}

std::vector<std::filesystem::path> game_files(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> files;
  std::error_code ended;
  for (std::filesystem::directory_iterator at(folder, ended), end; !ended && at != end; at.increment(ended)) {
    if (at->path().extension() == recording_extension) files.push_back(at->path());
  }
  const auto later = [](const auto& a, const auto& b) {
    struct stat one {};
    struct stat other {};
    ::stat(a.c_str(), &one);
    ::stat(b.c_str(), &other);
    const auto time = [](const struct stat& facts) { return std::pair(facts.st_mtim.tv_sec, facts.st_mtim.tv_nsec); };
    return time(one) != time(other) ? time(one) > time(other) : a.native() < b.native();
  };
  std::sort(files.begin(), files.end(), later);
  return files;
}

std::vector<kept_game> games_in(const std::filesystem::path& folder) {
  std::vector<kept_game> games;
  for (const std::filesystem::path& file : game_files(folder)) games.push_back(look_at_game(file));
  return games;
}

std::filesystem::path game_that_waits(const std::filesystem::path& folder) {
  for (const std::filesystem::path& file : game_files(folder)) {
    if (is_in_use(file)) continue;
    try {
      // One that broke off behind its last answer has nothing to be gone on with.
      if (!read_recording(file).ended() && !look_at_game(file).over) return file;
    } catch (const run_time_error&) {
      // It is told where the games are listed.
    }
  }
  return {};
}

void remove_empty_games(const std::filesystem::path& folder) {
  for (const std::filesystem::path& file : game_files(folder)) {
    // Whoever has just made it waits for this lock, and finds it gone.
    const descriptor opened(open_file(file, O_RDONLY | O_NONBLOCK));
    if (!opened.open() || ::flock(opened.number(), LOCK_EX | LOCK_NB) != 0) continue;
    const std::optional<std::string> bytes = bytes_of(file);
    if (bytes && holds_nothing_yet(*bytes)) ::unlink(file.c_str());
  }
}

std::string fit_file_name(std::string_view wanted) {
  constexpr std::size_t longest = 120;  // bytes: a folder's name takes 255
  std::string name;
  for (const char c : wanted) {
    const bool bad = static_cast<unsigned char>(c) < 0x20 || c == 0x7F ||
                     std::string_view("/\\:*?\"<>|").find(c) != std::string_view::npos;
    name += bad ? ' ' : c;
  }
  if (name.size() > longest) {
    name.resize(longest);
    // No character is cut in two.
    while (!name.empty() && !is_utf8(name)) name.pop_back();
  }
  const std::size_t first = name.find_first_not_of(" .");
  if (first == std::string::npos) return "Game";
  return name.substr(first, name.find_last_not_of(" .") - first + 1);
}

std::filesystem::path free_game_file(const std::filesystem::path& folder, const std::string& name) {
  const std::string fit = fit_file_name(name);
  std::filesystem::path file;
  for (int number = 1;; ++number) {
    file = folder / (number == 1 ? fit : fmt::format("{} {}", fit, number));
    file += recording_extension;
    std::error_code ignored;
    if (!std::filesystem::exists(std::filesystem::symlink_status(file, ignored))) return file;
  }
}

std::filesystem::path copy_game_to(const std::filesystem::path& folder, const std::filesystem::path& from,
                                   const std::string& name) {
  const std::optional<std::string> bytes = read_file(from);
  if (!bytes) raise_file_error("The file cannot be read", ENOENT, from);
  read_recording(*bytes, file_name_text(from));
  std::error_code failed;
  std::filesystem::create_directories(folder, failed);
  if (failed) raise_file_error("The folder of the games cannot be made", failed.value(), folder);
  std::filesystem::path to = free_game_file(folder, name);
  replace_file(to, *bytes);
  return to;
}

}  // namespace velorin
