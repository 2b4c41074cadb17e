// SPDX-License-Identifier: GPL-3.0-or-later
// What stands over the pages of a match: the questions of its opening, hints, a page in a window of its own.
#include <QApplication>
#include <string>

#include "desktop/frame.h"
#include "desktop/hint.h"
#include "desktop/preferences.h"
#include "model/match_state.h"
#include "model/random.h"
#include "shell/clicking_user.h"
#include "shell/menu_window.h"
#include "shell/pictures.h"
#include "support/game_in_play.h"

namespace velorin::testing {

void picture_opening(MenuWindow& menu) {
  chance.use_seed(7);
  ClickingUser user;
  user.robot.next("teamfrm", [](QWidget& window) {
    ClickingUser::choose_match(window, 0, 2, true, true);
    press(window, "accept");
  });
  for (const char* name : {"toss-call", "toss-choice"}) {
    user.robot.next("toss", [name](QWidget& window) {
      take(window, name);
      if (auto* heads = control<QWidget>(window, "heads"); heads->isVisible()) press(window, "heads");
      take(window, "toss-choice");
      press(window, "bat");
    });
  }
  int asked = 0;
  user.robot.at_sight([&](QWidget& window) {
    const std::string name = window.objectName().toStdString();
    if (name != "batorder" && name != "chgbowler") return;
    const bool opening = match.deliveries.empty();
    if (opening && asked < 8) take(window, ("opening-" + std::to_string(asked++) + "-" + name).c_str());
  });
  bool torn = false;
  user.robot.always("main", [&](QWidget& window) {
    if (match.over_no == 5 && !torn) {
      torn = true;
      auto& frame = static_cast<Frame&>(*window.window());
      frame.tear_off();
      take(window, "torn-off");
      take(frame, "torn-off-frame");
      press(window, "put_back");
    }
    press(window, "next_over");
  });
  open(menu, "start_game", "new_match");
}

void picture_guide(MenuWindow& menu) {
  chance.use_seed(7);
  preferences::set_guide_offered(false);
  ClickingUser user;
  int hints = 0;
  user.robot.at_sight([&](QWidget& window) {
    for (int round = 0; round < 4; ++round) QApplication::processEvents();
    while (auto* hint = window.window()->findChild<Hint*>()) {
      take(window, ("hint-" + std::to_string(++hints)).c_str());
      press(*hint, "got_it");
      QCoreApplication::sendPostedEvents(hint, QEvent::DeferredDelete);
    }
  });
  user.robot.next("guide_question", [](QWidget& window) {
    take(window, "guide-question");
    press(window, "yes");
  });
  user.robot.always("quick", pressing("accept"));
  menu.offer_guide();
}

}  // namespace velorin::testing
