// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QScrollBar;
class QVBoxLayout;

namespace velorin {

struct world_cup_record;

class TableView;
struct Table;
struct world_cup_fixtures_form;

/// The fixture list, ten rows at a time, with the next match marked.
class WorldCupFixturesWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WorldCupFixturesWindow(const world_cup_record& world_cup, world_cup_fixtures_form& form,
                                  QWidget* parent = front_window());

  /// The rows of these matches open their reports.
  void lead_to(PlayedMatches played);

 protected:
  /// The list's arrow keys and the wheel go on beyond its ends.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();
  bool scrolls_on(int key);

  world_cup_fixtures_form& form_;
  bool any_human_;
  PlayedMatches played_;
  TableView* list_;
  QVBoxLayout* rows_;
  QScrollBar* scroll_;
  const world_cup_record& world_cup_;
};

}  // namespace velorin
