// SPDX-License-Identifier: GPL-3.0-or-later
#include "model/game_names.h"

namespace velorin {

namespace {

struct kept {
  std::string_view name;
  std::string_view use;
};

constexpr kept names[] = {{"options.mc", "the settings"},
                          {"team1r.txt", "the elevens"},
                          {"team2r.txt", "the elevens"},
                          {"dummy.txt", "the elevens"}};

constexpr kept endings[] = {{".team", "the teams"},
                            {".grd", "the grounds"},
                            {".rec", "the careers"},
                            {".ptr", "the records"},
                            {".new", "an unfinished save"},
                            {".next", "an unfinished save"},
                            {".counted", "the counted matches"},
                            {".waiting", "the waiting matches"},
                            {".matches", "the archive"},
                            {".matches-journal", "the archive"}};

}  // namespace

std::string_view game_use_of_name(std::string_view file_name) {
  for (const kept& one : names) {
    if (file_name == one.name) return one.use;
  }
  for (const kept& one : endings) {
    if (file_name.ends_with(one.name)) return one.use;
  }
  return {};
}

}  // namespace velorin
