// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace velorin {

struct Theme;

/// The style sheet of the whole program in the colours of a theme.
QString theme_sheet(const Theme& theme);

}  // namespace velorin
