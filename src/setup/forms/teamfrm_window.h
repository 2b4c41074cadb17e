// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QComboBox;

namespace velorin {

struct teamfrm;

/// The new match: two teams, who captains them, the ground. Hidden while the match is played.
class TeamfrmWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TeamfrmWindow(teamfrm& form, QWidget* parent = front_window());

 private:
  QComboBox* new_team_list(const char* name, int chosen, void (teamfrm::*choose)(int));
  void show_grounds();
  void play();

  teamfrm& form_;
  QComboBox* grounds_;
};

}  // namespace velorin
