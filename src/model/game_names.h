// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace velorin {

/// What the game keeps in a file of this name, such as "the elevens", beside its database; "" for any other name. The
/// name is without its folder.
std::string_view game_use_of_name(std::string_view file_name);

}  // namespace velorin
