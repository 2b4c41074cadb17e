// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/advised_men.h"

#include <algorithm>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "console/forms/man_list.h"
#include "desktop/shown_text.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"

namespace velorin {

int threads_of_advice() { return std::clamp(static_cast<int>(std::thread::hardware_concurrency()) - 1, 1, 2); }

QString shown_difference(const advice& told) {
  return shown(difference_words(told)).replace(QLatin1Char('-'), QChar(0x2212));
}

SheetAdviser::Acts advised_men(ManList& men, const match_state& match, advised_side side, captains_choice::kind what,
                               std::size_t column, std::function<QString()> leave) {
  std::vector<captains_choice> choices;
  if (can_be_forecast(match)) {
    for (const captains_choice& choice : choices_at_hand(match, side)) {
      if (choice.what == what) choices.push_back(choice);
    }
  }
  SheetAdviser::Acts acts;
  acts.leave = std::move(leave);
  men.show_column(column, false);
  if (choices.empty()) return acts;
  acts.advise = [&men, &match, side, choices, column]() -> BackWork::Work {
    men.show_column(column, true);
    for (const captains_choice& choice : choices) men.set_text(choice.position, column, QStringLiteral("\u2026"));
    const auto state = std::make_shared<const match_state>(match);
    return [&men, state, side, choices, column](const std::stop_token& stop, const auto&) -> BackWork::Show {
      const std::vector<advice> found = advise(
          *state, side, choices, {.runs = runs_of_advice, .seed = 1, .threads = threads_of_advice(), .stop = stop});
      return [&men, found, column] {
        for (const advice& told : found) {
          if (told.choice.position > 0) men.set_text(told.choice.position, column, shown_difference(told));
        }
      };
    };
  };
  acts.clear = [&men, choices, column] {
    for (const captains_choice& choice : choices) men.set_text(choice.position, column, {});
    men.show_column(column, false);
  };
  return acts;
}

}  // namespace velorin
