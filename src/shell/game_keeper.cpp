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
#include "recording/replay.h"
#include "shell/version.h"

namespace velorin {

GameKeeper::GameKeeper(front_end& shown_by, game_state& game, std::filesystem::path folder)
    : game_(game), folder_(std::move(folder)), recorder_(shown_by, game, file_, shell_version) {}

void GameKeeper::File::begin(const recorded_beginning& begun) {
  const QString when = QDateTime::fromSecsSinceEpoch(begun.begun_at).toString(QStringLiteral("yyyy-MM-dd HH.mm"));
  const game_words words = words_of(begun.game, {});
  use(free_game_file(keeper_.folder_, (shown(words.competition) + QLatin1Char(' ') + when).toStdString()));
  recording_file::begin(begun);
}

std::filesystem::path GameKeeper::file_in_play() const {
  return recorder_.is_on() ? file_.path() : std::filesystem::path();
}

bool GameKeeper::take_up(const std::filesystem::path& file) {
  recorder_.stop();
  const std::string name = file_name_text(file);
  const recording before = file_.go_on(file);
  open_database data = game_.data;
  if (data.files.base != before.beginning.database) {
    const std::vector<std::string> offered = databases_on_offer(data.files.folder);
    if (std::find(offered.begin(), offered.end(), before.beginning.database) == offered.end()) {
      file_.end();
      throw run_time_error(failure::file,
                           "The game is of the database \"" + before.beginning.database + "\", which is not on offer",
                           {.file = name, .record = 0, .field = {}, .player = {}});
    }
    use_database(data, before.beginning.database);
  }
  std::optional<game_state> game = game_to_continue(before, name, data);
  if (!game) {
    file_.end();
    return false;
  }
  game_ = *std::move(game);
  recorder_.go_on_with(before);
  return true;
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
  const std::filesystem::path to = free_game_file(folder_, name);
  const std::optional<std::string> bytes = read_file(file_.path());
  fresh_file copy(to);
  copy.stream() << bytes.value_or("");
  copy.put_in_place();
  return to;
}

}  // namespace velorin
