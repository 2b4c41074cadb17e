// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/game_fixture.h"

#include <QTimer>
#include <fstream>
#include <iterator>

#include "competitions/series.h"
#include "competitions/tri_series.h"
#include "competitions/world_cup.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "model/match_state.h"
#include "model/random.h"
#include "support/game_in_play.h"

namespace velorin::testing {

GameTest::GameTest() {
  for (const char* name : {"Aden", "Bali", "Cork", "Dorset", "Essen", "Fiji", "Ghent", "Hull", "Ithaca", "Java"}) {
    database_.add_team(name);
    database_.add_ground(name, std::string(name) + " Oval");
    database_.add_ground(name, std::string(name) + " Park", 2, 4);
  }
  database_.write();
  data.settings = {"", "world", "000000", "FFFFFF", "Sans Serif"};
  write_options(data);
  preferences::set_pace(Pace::instant);
  for (const char* form : {"series1", "series2", "wctable"}) preferences::set_plays_without_stopping(form, false);
  begin_again_with_seed(1);
  on_failure([](const std::exception& failure) {
    ADD_FAILURE() << "failed: " << failure.what();
    end_program(1);
  });
}

GameTest::~GameTest() {
  on_failure({});
  match = {};
}

void GameTest::begin_again_with_seed(std::uint64_t seed) {
  std::error_code ignored;
  std::filesystem::remove(database_.folder() / "world.rec", ignored);
  std::filesystem::remove(database_.folder() / "world.ptr", ignored);
  match = {};
  series = {};
  tri = {};
  world_cup = {};
  use_database(data, "world");
  data.files.updates = true;
  data.files.elevens_in_memory = false;
  chance.use_seed(seed);
}

void GameTest::play(const std::function<void(MenuWindow&)>& then) {
  QtFrontEnd shown_by(tested_game);
  play_shown_by(shown_by, then);
}

void GameTest::play_shown_by(QtFrontEnd& shown_by, const std::function<void(MenuWindow&)>& then) {
  const front_end_scope in_use(shown_by);
  Frame frame;
  MenuWindow menu(shown_by, &frame);
  frame.show();
  menu.show();
  QTimer::singleShot(0, &menu, [&] {
    menu.start();
    then(menu);
    end_program(0);
  });
  QApplication::exec();
  begin_again();
}

void GameTest::choose(MenuWindow& menu, const char* panel, const char* entry) {
  press(menu, panel);
  press(menu, entry);
  for (const char* back : {"start_back", "other_back", "batting_back", "bowling_back"}) {
    auto* button = menu.findChild<QAbstractButton*>(QString::fromLatin1(back));
    if (button != nullptr && button->isVisible()) button->click();
  }
}

std::vector<std::string> GameTest::lasting_files() const {
  std::vector<std::string> bytes;
  for (const char* name : {"world.rec", "world.ptr"}) {
    std::ifstream in(database_.folder() / name, std::ios::binary);
    bytes.emplace_back(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
  }
  return bytes;
}

}  // namespace velorin::testing
