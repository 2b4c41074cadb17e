// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QComboBox;
class QLabel;

namespace velorin {

struct teamfrm;

/// The new match: two teams, who captains them, the ground. Starts with the captains of the user's last match. Hidden
/// while the match is played.
class TeamfrmWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TeamfrmWindow(teamfrm& form, QWidget* parent = front_window());

 private:
  QComboBox* new_team_list(const char* name, int chosen, void (teamfrm::*choose)(int));
  void show_grounds();
  void show_ready();
  void play();

  teamfrm& form_;
  QComboBox* grounds_;
  QLabel* wanted_ = nullptr;
  QPushButton* ok_ = nullptr;
};

}  // namespace velorin
