// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

/// Gives sliders, scroll bars and lists to choose from accessible interfaces that leave a disabled control alone: the
/// toolkit's own change its value all the same. A second call does nothing.
void guard_access();

}  // namespace velorin
