// SPDX-License-Identifier: GPL-3.0-or-later
#include "ui/front_end.h"

#include <stdexcept>

namespace velorin {

namespace {
front_end* installed = nullptr;
}

front_end& user() {
  if (installed == nullptr) throw std::logic_error("no front end is installed");
  return *installed;
}

front_end* install_front_end(front_end* shown_by) {
  front_end* before = installed;
  installed = shown_by;
  return before;
}

}  // namespace velorin
