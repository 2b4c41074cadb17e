// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "desktop/form.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QStackedWidget;
class QVBoxLayout;

namespace velorin {

class MeterBar;
class PhotoView;
struct shown_field;
struct player_profile_form;

/// The profile of one player: two lists to choose him by, his figures, his photo; of a man without a career his ratings
/// and how he compares. Ctrl+C copies the figures as a table,
/// Ctrl+E saves them as CSV; the context menu offers the same.
class PlayerProfileWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit PlayerProfileWindow(player_profile_form& form, QWidget* parent = front_window());

 private:
  QWidget* new_lists();
  QWidget* new_figures();
  /// The page of a man without a career.
  QWidget* new_standing();
  void choose_team(int index);
  void choose_player(int index);
  void list_players();
  void refresh();
  void show_person(QVBoxLayout* rows, const QString& prefix, const std::vector<shown_field>& fields);
  void show_standing();
  void show_block(QGridLayout* grid, const QString& prefix, const std::vector<shown_field>& fields);

  player_profile_form& form_;
  QComboBox* teams_;
  QComboBox* players_;
  PhotoView* photo_;
  QStackedWidget* pages_;
  QVBoxLayout* person_;
  PhotoView* newcomer_photo_;
  QVBoxLayout* newcomer_;
  struct SkillRow {
    QLabel* text;
    MeterBar* bar;
    QLabel* place;
    QLabel* meaning;
  };
  std::vector<SkillRow> skills_;
  QGridLayout* batting_;
  QGridLayout* bowling_;
  QGridLayout* fielding_;
};

}  // namespace velorin
