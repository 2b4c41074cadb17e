// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <string>

#include "desktop/form.h"

class QComboBox;
class QLabel;
class QPushButton;

namespace velorin {

class front_end;
struct open_database;

class CrestView;
class TableView;
struct team_records_form;

/// The records of one team: its results, its rank, its extreme totals and its best men.
class TeamRecordsWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TeamRecordsWindow(front_end& user, const open_database& database, team_records_form& form,
                             QWidget* parent = front_window());

  /// A button that leads on from the team shown.
  void offer_page(std::function<void(const std::string& team)> open);

 private:
  QWidget* new_list();
  QWidget* new_results();
  QWidget* new_extremes();
  QWidget* new_individual();
  void refresh();
  /// Opens the profile of the man whom an individual record names.
  void open_profile(int record);

  team_records_form& form_;
  QComboBox* teams_;
  CrestView* crest_;
  TableView* results_;
  QLabel* ranking_;
  std::array<QLabel*, 4> extremes_;
  TableView* individual_;
  QPushButton* profile_;
  QPushButton* page_ = nullptr;
  front_end& user_;
  const open_database& data_;
};

}  // namespace velorin
