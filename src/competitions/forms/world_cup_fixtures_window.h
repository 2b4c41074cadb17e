// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QScrollBar;

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

 protected:
  /// The list's arrow keys and the wheel go on beyond its ends.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();
  bool scrolls_on(int key);

  world_cup_fixtures_form& form_;
  bool any_human_;
  TableView* list_;
  QScrollBar* scroll_;
  const world_cup_record& world_cup_;
};

}  // namespace velorin
