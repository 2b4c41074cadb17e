// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>

#include "desktop/form.h"

namespace velorin {

/// How far an unattended match has come. It stands beside the game and takes no input.
class MatchProgressWindow : public Form {
  Q_OBJECT

 public:
  explicit MatchProgressWindow(QWidget* parent = front_window());

  /// Shows that an over begins, counted from 1; the window appears with the first.
  void show_over(int over);

 private:
  QElapsedTimer since_painted_;
  class Bar;
  Bar* bar_;
};

}  // namespace velorin
