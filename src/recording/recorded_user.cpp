// SPDX-License-Identifier: GPL-3.0-or-later
#include "recording/recorded_user.h"

#include "reports/partnerships.h"
#include "reports/worm_graph.h"

namespace velorin {

void recorded_user::look(std::uint32_t which) {
  if (which == static_cast<std::uint32_t>(report::partnerships)) {
    partnerships_form(game_.match).open();
  } else if (which == static_cast<std::uint32_t>(report::first_partnerships)) {
    first_partnerships_form(game_.match).open();
  } else if (which == static_cast<std::uint32_t>(report::worm_graph)) {
    worm_graph_form(game_.match).open();
  } else {
    raise_unfit();
  }
}

void recorded_user::act(console_form& form, const captain_answer& answer) {
  const int first = in_range(static_cast<int>(answer.first), 0, 0xFFFF);
  const int second = in_range(static_cast<int>(answer.second), 0, 0xFFFF);
  switch (answer.kind) {
    case answer_kind::next_over:
    case answer_kind::go_on:
      in_call_ = true;
      form.bowl_next_over();
      in_call_ = false;
      while (goes_on(next_)) ++next_;
      return;
    case answer_kind::next_ball:
      in_call_ = true;
      rest_of_over_ = false;
      form.bowl_ball();
      in_call_ = false;
      if (rest_of_over_ && form.has_over_in_play()) act(form, {answer_kind::go_on});
      return;
    case answer_kind::take_back:
      return form.take_back(static_cast<taken_back>(in_range(first, 0, 1)), static_cast<luck>(in_range(second, 0, 1)));
    case answer_kind::change_bowler:
      return is_answered(answer_kind::bowler) ? form.change_bowler() : void();
    case answer_kind::change_batsman_aggression:
      return is_answered(answer_kind::aggression) ? form.change_batsman_aggression(in_range(first, 0, 1)) : void();
    case answer_kind::change_bowler_aggression:
      return is_answered(answer_kind::aggression) ? form.change_bowler_aggression(in_range(first, 0, 1)) : void();
    case answer_kind::set_batsman_aggression:
      return form.set_batsman_aggression(in_range(first, 0, 1), second);
    case answer_kind::set_bowler_aggression:
      return form.set_bowler_aggression(in_range(first, 0, 1), second);
    case answer_kind::choose_bowler:
      return form.choose_bowler(first);
    case answer_kind::browse_over:
      return form.browse_over(first);
    case answer_kind::looked:
      return look(answer.first);
    default:
      raise_unfit();
  }
}

}  // namespace velorin
