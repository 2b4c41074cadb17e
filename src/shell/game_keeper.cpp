// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_keeper.h"

#include <QDateTime>
#include <QString>
#include <algorithm>
#include <optional>
#include <utility>

#include "database/configuration.h"
#include "database/fresh_file.h"
#include "database/whole_file.h"
#include "desktop/shown_text.h"
#include "model/run_time_error.h"
#include "recording/kept_games.h"
#include "recording/replay.h"
#include "shell/version.h"

namespace velorin {

GameKeeper::GameKeeper(front_end& shown_by, game_state& game, std::filesystem::path folder)
    : game_(game), folder_(std::move(folder)), recorder_(shown_by, game, file_, shell_version) {
  remove_empty_games(folder_);
}

void GameKeeper::File::begin(const recorded_beginning& begun) {
  const QString when = QDateTime::fromSecsSinceEpoch(begun.begun_at).toString(QStringLiteral("yyyy-MM-dd HH.mm"));
  const game_words words = words_of(begun.game, {});
  use(free_game_file(keeper_.folder_, (shown(words.competition) + QLatin1Char(' ') + when).toStdString()));
  recording_file::begin(begun);
}

std::filesystem::path GameKeeper::file_in_play() const {
  return recorder_.is_on() ? file_.path() : std::filesystem::path();
}

std::string GameKeeper::competition_in_play() const {
  if (!recorder_.is_on() || recorder_.entered().kind == game_kind::match) return {};
  if (game_.match.step == match_step::none) return {};
  const game_words words = words_of(recorder_.entered(), game_);
  return words.stage.empty() ? words.competition : words.competition + ", " + words.stage;
}

bool GameKeeper::take_up(const std::filesystem::path& file) {
  recorder_.stop();
  const recording before = file_.go_on(file);
  try {
    practice_history remembered;
    std::optional<game_state> game =
        game_to_continue(before, file_name_text(file), database_of(before, file), &remembered);
    if (game) {
      game_ = *std::move(game);
      recorder_.go_on_with(before, std::move(remembered));
      return true;
    }
  } catch (const run_time_error&) {
    file_.end();
    throw;
  }
  file_.end();
  return false;
}

open_database GameKeeper::database_of(const recording& before, const std::filesystem::path& file) const {
  open_database data = game_.data;
  const std::string& base = before.beginning.database;
  if (data.files.base == base) return data;
  const std::vector<std::string> offered = databases_on_offer(data.files.folder);
  if (std::find(offered.begin(), offered.end(), base) == offered.end()) {
    throw run_time_error(failure::file, "The game is of the database \"" + base + "\", which is not on offer",
                         {.file = file_name_text(file), .record = 0, .field = {}, .player = {}});
  }
  use_database(data, base);
  return data;
}

void GameKeeper::game_over() {
  if (!recorder_.is_on()) return;
  if (!recorder_.has_play()) return discard();
  recorder_.game_over();
}

void GameKeeper::discard() {
  if (!recorder_.is_on()) return;
  const std::filesystem::path file = file_.path();
  recorder_.stop();
  std::error_code ignored;
  std::filesystem::remove(file, ignored);
}

std::filesystem::path GameKeeper::save_as(const std::string& name) const {
  std::filesystem::path to = free_game_file(folder_, name);
  const std::optional<std::string> bytes = read_file(file_.path());
  fresh_file copy(to);
  copy.stream() << bytes.value_or("");
  copy.put_in_place();
  return to;
}

}  // namespace velorin
