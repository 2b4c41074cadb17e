// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "support/game_in_play.h"

namespace velorin {

/// A report, opened on the match as it stands.
template <class Form>
Form opened() {
  Form form(match);
  form.open();
  return form;
}

}  // namespace velorin
