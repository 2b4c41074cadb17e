// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QComboBox;
class QLabel;

namespace velorin {

struct match_state;

struct new_match_form;

/// The new match: two teams, who captains them, the ground. Starts with the captains of the user's last match. Hidden
/// while the match is played.
class NewMatchWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit NewMatchWindow(match_state& match, new_match_form& form, QWidget* parent = front_window());

 private:
  QComboBox* new_team_list(const char* name, int chosen, void (new_match_form::*choose)(int));
  void show_grounds();
  void show_ready();
  void play();

  new_match_form& form_;
  QComboBox* grounds_;
  QLabel* wanted_ = nullptr;
  QPushButton* ok_ = nullptr;
  match_state& match_;
};

}  // namespace velorin
