// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QVBoxLayout;

namespace velorin {

struct world_cup_record;

class TableView;
struct Table;
struct world_cup_fixtures_form;

/// The fixture list with the next match marked and in sight.
class WorldCupFixturesWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WorldCupFixturesWindow(const world_cup_record& world_cup, world_cup_fixtures_form& form,
                                  QWidget* parent = front_window());

  /// The rows of these matches open their reports.
  void lead_to(PlayedMatches played);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void refresh();
  void show_next();

  world_cup_fixtures_form& form_;
  bool any_human_;
  PlayedMatches played_;
  TableView* list_;
  QVBoxLayout* rows_;
  const world_cup_record& world_cup_;
};

}  // namespace velorin
