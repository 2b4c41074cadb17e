// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

/// Gives labels an action for each name in them, called by it. A second call does nothing.
void give_name_access();

}  // namespace velorin
