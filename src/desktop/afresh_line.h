// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>

class QVBoxLayout;

namespace velorin {

/// Adds a line `standing` that tells what still stands of earlier play, and beside it the button `afresh`, "Start
/// afresh", whose mnemonic is R: it runs `forget` and takes the line away. With nothing to tell nothing is added.
void add_afresh_line(QVBoxLayout& rows, const std::string& text, std::function<void()> forget);

}  // namespace velorin
