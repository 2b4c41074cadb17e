// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <type_traits>

#include "support/game_in_play.h"

namespace velorin::testing {

/// A form of the tests' game, whatever parts of it the form takes.
template <class Form>
Form new_form() {
  if constexpr (std::is_constructible_v<Form, match_state&>) {
    return Form(match);
  } else if constexpr (std::is_constructible_v<Form, open_database&>) {
    return Form(data);
  } else if constexpr (std::is_constructible_v<Form, tri_record&>) {
    return Form(tri);
  } else if constexpr (std::is_constructible_v<Form, world_cup_record&>) {
    return Form(world_cup);
  } else if constexpr (std::is_constructible_v<Form, match_state&, series_record&>) {
    return Form(match, series);
  } else {
    return Form(user_in_use(), world_cup);
  }
}

/// The window of a form; the windows of reports and records take parts of the game before it.
template <class Window, class Form>
struct window_of : Window {
  explicit window_of(Form& form) requires std::is_constructible_v<Window, Form&> : Window(form) {}
  explicit window_of(Form& form) requires std::is_constructible_v<Window, front_end&, open_database&, Form&>
      : Window(user_in_use(), data, form) {}
  explicit window_of(Form& form) requires std::is_constructible_v<Window, front_end&, Form&>
      : Window(user_in_use(), form) {}
  explicit window_of(Form& form) requires std::is_constructible_v<Window, const match_play&, Form&>
      : Window(in_play(), form) {}
};

}  // namespace velorin::testing
