// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

namespace velorin::testing {

/// Every heading of a table and every caption of the window either stands among the terms and has their meaning as its
/// tooltip, or is a plain word that needs none. Failures are test failures. Returns how many terms it has met.
int check_terms(QWidget& window);

}  // namespace velorin::testing
