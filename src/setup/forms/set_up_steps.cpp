// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/set_up_steps.h"

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
  return match.venue_name().empty() ? teams : teams + QStringLiteral(", ") + shown(match.venue_name());
}

QStringList crests_of(const match_state& match) {
  const auto& [first, second] = match.chosen;
  if (first.name.empty() || second.name.empty()) return {};
  return {shown(first.name), shown(second.name)};
}

QString conditions_chosen(const match_state& match) {
  return QStringLiteral("Weather %1, pitch %2, bounce %3, outfield %4")
      .arg(int(match.weather))
      .arg(int(match.ground.pitch_surface))
      .arg(int(match.ground.pitch_bounce))
      .arg(int(match.outfield));
}

QString elevens_chosen(const match_state& match, bool both) {
  const auto& [first, second] = match.chosen;
  if (both) return QStringLiteral("%1 and %2").arg(shown(first.name), shown(second.name));
  return match.first_team_done ? shown(first.name) : QString();
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
