// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QPushButton;

namespace velorin {

struct chgbowler;
class ManList;

/// The pick of a bowler. Its OK needs a row that can be chosen.
class ChgbowlerWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been made and outlives the window.
  explicit ChgbowlerWindow(chgbowler& form, QWidget* parent = front_window());

 private:
  QString note(int row) const;
  void add_acts();
  void show_choice();

  chgbowler& form_;
  ManList* men_;
  QPushButton* ok_ = nullptr;
};

}  // namespace velorin
