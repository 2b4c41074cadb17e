// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/set_up_steps.h"

#include <algorithm>
#include <array>

#include "desktop/form.h"
#include "desktop/shown_text.h"
#include "desktop/step_bar.h"
#include "model/match_state.h"

namespace velorin {

namespace {

QString teams_chosen(const match_state& match) {
  const auto& [first, second] = match.chosen;
  if (first.name.empty() || second.name.empty()) return {};
  const QString teams = QStringLiteral("%1 v %2").arg(shown(first.name), shown(second.name));
  return match.venue_name().empty() ? teams : teams + QLatin1Char('\n') + shown(match.venue_name());
}

QStringList crests_of(const match_state& match) {
  const auto& [first, second] = match.chosen;
  if (first.name.empty() || second.name.empty()) return {};
  return {shown(first.name), shown(second.name)};
}

QString conditions_chosen(const match_state& match) {
  static constexpr std::array weathers = {"Rain about", "Overcast", "Sunny", "Hot and humid"};
  static constexpr std::array pitches = {"green pitch", "cracked pitch", "fair pitch", "flat pitch"};
  static constexpr std::array bounces = {"High bounce", "Uneven bounce", "Fair bounce", "Even bounce"};
  static constexpr std::array outfields = {"wet outfield", "slow outfield", "fast outfield", "very fast outfield"};
  const auto word = [](const auto& words, int value) {
    return QLatin1String(words.at(static_cast<std::size_t>(std::clamp(value, 1, 4) - 1)));
  };
  return QStringLiteral("%1, %2\n%3, %4")
      .arg(word(weathers, match.weather), word(pitches, match.ground.pitch_surface),
           word(bounces, match.ground.pitch_bounce), word(outfields, match.outfield));
}

/// How many of its men a side has left out.
QString eleven_chosen(const match_state& match, std::size_t side) {
  const squad& men = match.squads[side];
  const auto count = std::count_if(men.begin() + 1, men.end(), [](const player_rec& man) { return !man.name.empty(); });
  return QStringLiteral("%1: 11 of %2 men").arg(shown(match.chosen[side].name)).arg(count);
}

QString elevens_chosen(const match_state& match, bool both) {
  if (!both && !match.first_team_done) return {};
  const QString first = eleven_chosen(match, 0);
  return both ? first + QLatin1Char('\n') + eleven_chosen(match, 1) : first;
}

}  // namespace

void show_set_up_steps(Form& form, const match_state& match, SetUpStep step) {
  const auto reached = [step](SetUpStep other) { return step > other; };
  form.show_steps(
      {{QStringLiteral("Teams"), reached(SetUpStep::teams) ? teams_chosen(match) : QString(),
        reached(SetUpStep::teams) ? crests_of(match) : QStringList()},
       {QStringLiteral("Conditions"), reached(SetUpStep::conditions) ? conditions_chosen(match) : QString()},
       {QStringLiteral("Elevens"), elevens_chosen(match, reached(SetUpStep::elevens))},
       {QStringLiteral("Toss"), {}}},
      static_cast<int>(step));
}

}  // namespace velorin
