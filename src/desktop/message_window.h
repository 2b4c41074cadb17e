// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

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

}  // namespace velorin
