// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QComboBox;
class QLabel;

namespace velorin {

class GroundBelow;
struct match_state;

struct new_match_form;

/// The new match: two teams, who captains them, the ground. Starts with the captains of the user's last match. Hidden
/// while the match is played.
class NewMatchWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit NewMatchWindow(match_state& match, new_match_form& form, QWidget* parent = front_window());

 protected:
  NewMatchWindow(const QString& name, match_state& match, new_match_form& form, QWidget* parent);

  /// "OK": plays the match, and keeps its sides for the next time.
  virtual void play();
  /// Chooses the sides and the ground of the last match, as far as the database has them.
  void as_last_time();
  /// Where in the body more may stand, below the choices.
  int rows_before_stretch() const { return rows_; }
  QPushButton* ready_button() const { return ok_; }
  QWidget* grounds() const;

 private:
  QComboBox* new_team_list(const char* name, int chosen, void (new_match_form::*choose)(int));
  /// The switch of a practice match. It is off each time, so that no match is practice unawares.
  void add_practice();
  void show_grounds();
  void show_ground();
  void show_ready();

  new_match_form& form_;
  QComboBox* first_ = nullptr;
  QComboBox* second_ = nullptr;
  GroundBelow* ground_below_ = nullptr;
  int rows_ = 0;
  QComboBox* grounds_;
  QLabel* wanted_ = nullptr;
  QPushButton* ok_ = nullptr;
  match_state& match_;
};

}  // namespace velorin
