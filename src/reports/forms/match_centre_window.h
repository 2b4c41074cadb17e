// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "desktop/form.h"
#include "reports/match_story.h"

class QButtonGroup;
class QComboBox;
class QListWidget;
class QStackedWidget;

namespace velorin {

class CentrePage;

/// A match, running or decided, in every way that fans know: cards, commentary, graphs, phases, stands and more, of
/// either innings. An over picked in one view is picked in all.
class MatchCentreWindow : public Form {
  Q_OBJECT

 public:
  explicit MatchCentreWindow(match_story story, QWidget* parent = front_window());

  /// Shows a view by its place in the list, from 0.
  void show_view(int view);
  /// Shows an innings by its place in the match.
  void show_innings(std::size_t innings);
  /// Marks an over of the innings in every view; 0 for none.
  void pick_over(int over);
  int picked_over() const { return picked_; }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void add_views();
  void add_view(const char* caption, CentrePage* page);
  QWidget* new_choices();
  CentrePage* page_on_show() const;
  void copy() const;
  void save();

  match_story story_;
  std::size_t innings_ = 0;
  int picked_ = 0;
  std::vector<CentrePage*> views_;
  QListWidget* list_;  // of the views, where there is room for it
  QComboBox* choice_;  // likewise, where there is none
  QStackedWidget* pages_;
  QButtonGroup* sides_;
};

}  // namespace velorin
