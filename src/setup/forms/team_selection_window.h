// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>

#include "desktop/form.h"

class QCheckBox;
class QLabel;

namespace velorin {

struct match_state;
struct TableRow;

struct team_selection_form;

/// The selection of an eleven: twenty rows to tick.
class TeamSelectionWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TeamSelectionWindow(const match_state& match, team_selection_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_men();
  QCheckBox* new_tick(int place);
  TableRow row_of(int place) const;
  void add_acts();
  /// Shows the ticks and the counter as the form has them.
  void show_ticks();
  void confirm();

  team_selection_form& form_;
  std::array<QCheckBox*, 21> boxes_{};
  QLabel* counter_;
  const match_state& match_;
};

}  // namespace velorin
