// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/toss_adviser.h"

#include <QLabel>
#include <algorithm>
#include <memory>
#include <thread>
#include <vector>

#include "desktop/shown_text.h"
#include "forecast/adviser.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"

namespace velorin {

namespace {

using kind = captains_choice::kind;

/// The side that decides, as the adviser names it, and what it does by batting and by bowling.
struct toss_choices {
  advised_side side;
  captains_choice bat;
  captains_choice bowl;
};

toss_choices choices_of(bool chosen_first) {
  if (chosen_first) return {advised_side::team_chosen_first, {kind::bat_first}, {kind::bowl_first}};
  // Before play the bowling side is the team chosen second: it bats where the other one bowls.
  return {advised_side::bowling, {kind::bowl_first}, {kind::bat_first}};
}

QString told(const std::vector<advice>& found, const captains_choice& choice) {
  const auto at =
      std::find_if(found.begin(), found.end(), [&](const advice& each) { return each.choice.what == choice.what; });
  return at == found.end() ? QString() : shown(win_words(*at, runs_of_toss));
}

}  // namespace

SheetAdviser::Acts advised_toss(const match_state& match, const std::string& deciding, QLabel& label) {
  SheetAdviser::Acts acts;
  if (!can_be_forecast(match)) return acts;
  const auto clear = [&label] {
    label.clear();
    label.hide();
  };
  acts.clear = clear;
  acts.advise = [&match, &label, clear, deciding]() -> BackWork::Work {
    label.setText(QStringLiteral("Chance of winning: \u2026"));
    label.show();
    const auto state = std::make_shared<const match_state>(match);
    return [state, &label, clear, deciding](const std::stop_token& stop, const auto&) -> BackWork::Show {
      const toss_choices asked = choices_of(deciding == state->team1_name);
      const int threads = std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2);
      const std::vector<advice> found = advise(*state, asked.side, {asked.bat, asked.bowl},
                                               {.runs = runs_of_toss, .seed = 1, .threads = threads, .stop = stop});
      return [&label, clear, found, asked] {
        const QString bat = told(found, asked.bat);
        const QString bowl = told(found, asked.bowl);
        if (bat.isEmpty() || bowl.isEmpty()) return clear();
        label.setText(QStringLiteral("Chance of winning:   bat %1   bowl %2").arg(bat, bowl));
        label.setAccessibleName(QStringLiteral("Chance of winning: %1 batting first, %2 bowling first").arg(bat, bowl));
      };
    };
  };
  return acts;
}

}  // namespace velorin
