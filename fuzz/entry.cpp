// SPDX-License-Identifier: GPL-3.0-or-later
// The two calls of the fuzzing library.
#include <cstddef>
#include <cstdint>

#include "support/game_in_play.h"
#include "target.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  velorin::fuzz::prepare();
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  velorin::fuzz::take({reinterpret_cast<const char*>(data), size});
  return 0;
}
