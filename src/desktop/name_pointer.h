// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace velorin {

/// Has pointer and keys follow the names of forms. A second call does nothing. Requires the application object.
void point_at_names();

}  // namespace velorin
