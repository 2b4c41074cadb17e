// SPDX-License-Identifier: GPL-3.0-or-later
#include "forecast/nobody.h"

#include "console/captain_forms.h"
#include "model/run_time_error.h"

namespace velorin {

void nobody::show(bowler_choice_form& form) {
  const int row = form.first_row();
  if (row == 0) {
    throw run_time_error(failure::endless, "Endless search: nobody who may bowl has overs left",
                         {.file = {}, .record = 0, .field = "bowling_card", .player = {}});
  }
  form.choose(row);
  form.accept();
}

}  // namespace velorin
