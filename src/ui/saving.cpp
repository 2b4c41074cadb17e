// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/saving.h"

#include "model/run_time_error.h"
#include "ui/front_end.h"

namespace velorin {

bool saved(front_end& user, const std::string& without, const std::function<void()>& save) {
  for (;;) {
    try {
      save();
      return true;
    } catch (const run_time_error& error) {
      switch (user.answer({error.what(), without})) {
        case save_answer::retry:
          break;
        case save_answer::go_on:
          return false;
        case save_answer::give_up:
          throw;
      }
    }
  }
}

}  // namespace velorin
