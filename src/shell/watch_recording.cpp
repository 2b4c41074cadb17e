// SPDX-License-Identifier: GPL-3.0-or-later
// A recording is opened to be watched.
#include <memory>
#include <optional>
#include <string>

#include "database/whole_file.h"
#include "desktop/frame.h"
#include "desktop/message_window.h"
#include "desktop/program_end.h"
#include "engine/over_play.h"
#include "model/run_time_error.h"
#include "recording/recording_player.h"
#include "shell/match_line.h"
#include "shell/qt_front_end.h"
#include "shell/watch_window.h"

namespace velorin {

void watch(QtFrontEnd& shown_by, const std::filesystem::path& recording) {
  std::optional<recording_player> player;
  std::string fault;
  try {
    player.emplace(read_recording(recording), file_name_text(recording));
    if (player->matches().empty()) fault = "No ball has been bowled in it yet (" + file_name_text(recording) + ")";
  } catch (const run_time_error& failed) {
    fault = failed.what();
  }
  if (!fault.empty()) {
    MessageWindow told({"Error", fault}, MessageWindow::Kind::failure);
    return run_modal(told);
  }
  // A game of its own, so that nothing of it reaches the user's.
  const auto watched = std::make_unique<game_state>();
  watched->data = shown_by.game().data;
  watched->data.files.watcher = nullptr;
  watched->data.files.updates = false;
  watched->match = player->at(0);
  QtFrontEnd front_end(*watched);
  console_form form({watched->match, watched->chance, front_end, watched->data});
  WatchWindow window(*player, watched->match, watched->data, form);
  window.on_match_centre([&front_end] { front_end.open_match_centre(); });
  window.on_match_line([&] { open_match_line(*player, window.place()); });
  run_modal(window);
  if (Frame* around = window.main_window()) {
    around->show_passing({});
    around->show_score({});
  }
}

}  // namespace velorin
