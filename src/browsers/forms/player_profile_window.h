// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "desktop/form.h"

class QComboBox;
class QGridLayout;
class QStackedWidget;
class QVBoxLayout;

namespace velorin {

class PhotoView;
struct shown_field;
struct player_profile_form;

/// The profile of one player: two lists to choose him by, his figures, his photo. Ctrl+C copies the figures as a table,
/// Ctrl+E saves them as CSV; the context menu offers the same.
class PlayerProfileWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit PlayerProfileWindow(player_profile_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_lists();
  QWidget* new_figures();
  void choose_team(int index);
  void choose_player(int index);
  void list_players();
  void refresh();
  void show_person();
  void show_block(QGridLayout* grid, const QString& prefix, const std::vector<shown_field>& fields);

  player_profile_form& form_;
  QComboBox* teams_;
  QComboBox* players_;
  PhotoView* photo_;
  QStackedWidget* pages_;
  QVBoxLayout* person_;
  QGridLayout* batting_;
  QGridLayout* bowling_;
  QGridLayout* fielding_;
};

}  // namespace velorin
