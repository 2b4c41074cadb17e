// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>

#include "desktop/form.h"
#include "ui/front_end.h"

namespace velorin {

/// A message box of the game: title, icon, text, "OK". Return, Space and Escape dismiss it.
class MessageWindow : public Form {
  Q_OBJECT

 public:
  enum class Kind { information, failure };

  explicit MessageWindow(const message_box& message, Kind kind = Kind::information, QWidget* parent = front_window());
};

/// Tells over `window` that something failed which ends nothing, and waits until the user has read it.
void show_failure(const QString& title, const std::exception& error, QWidget* window);

}  // namespace velorin
