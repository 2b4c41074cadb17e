// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

// What each target defines. entry.cpp hands the calls of the fuzzing library on to it.

namespace velorin::fuzz {

/// Lays out what all inputs need. Called once, before the first.
void prepare();

/// Takes one input. Returns if all promises are kept.
void take(std::string_view input);

}  // namespace velorin::fuzz
