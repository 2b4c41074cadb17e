// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/form.h"

class QBoxLayout;
class QComboBox;
class QFrame;
class QGridLayout;
class QLabel;
class QPushButton;
class QStackedWidget;
class QVBoxLayout;

namespace velorin {

class CrestView;
class MeterBar;
class PhotoView;
struct shown_field;
struct squad_standing;
struct player_profile_form;

/// The profile of one player: two lists to choose him by, his figures, his photo, his ratings and how he compares; of a
/// man without a career these alone. Ctrl+C copies the figures as a table, Ctrl+E saves them as CSV; the context menu
/// offers the same.
class PlayerProfileWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit PlayerProfileWindow(player_profile_form& form, QWidget* parent = front_window());

  /// A button that leads on from the man shown.
  void offer_page(std::function<void(const std::string& team, const std::string& man)> open);

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
  /// The name over the page, with his team's crest.
  void show_heading();
  void show_block(QGridLayout* grid, const QString& prefix, const std::vector<shown_field>& fields);

  player_profile_form& form_;
  QPushButton* page_ = nullptr;
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
  using SkillRows = std::vector<SkillRow>;
  /// A row for each rating from the `first` to the `last`, counted from 1 and named after `prefix`; of one alone the
  /// place stands below.
  static SkillRows add_skills(QBoxLayout& rows, const QString& prefix, int first, int last);
  static void show_skills(const SkillRows& rows, const squad_standing& standing);

  SkillRows skills_;    // of a man without a career
  SkillRows compared_;  // of one with a career
  QFrame* comparison_;  // the card of these
  CrestView* crest_;
  QGridLayout* batting_;
  QGridLayout* bowling_;
  QGridLayout* fielding_;
};

}  // namespace velorin
