// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

#include "competitions/forms/played_matches.h"
#include "desktop/form.h"

class QBoxLayout;
class QLabel;

namespace velorin {

class CrestView;
class TableView;
struct match_state;

/// The page of a competition that plays without stopping: the match that runs, its score as it grows, the matches left,
/// and the results so far.
class UnstoppedWindow : public Form {
  Q_OBJECT

 public:
  /// `match` outlives the window. `stop`: the user asks to stop at the next match.
  UnstoppedWindow(const match_state& match, const QString& competition, std::function<void()> stop,
                  QWidget* parent = front_window());

  /// Shows the match as it stands. `left`: matches still to come.
  void show_progress(int left);
  /// Lists what has been played, the last match in sight.
  void show_results(const PlayedMatches& played);

 protected:
  void note_compact(bool compact) override;

 private:
  QWidget* new_match_card();

  CrestView* first_crest_ = nullptr;
  CrestView* second_crest_ = nullptr;
  QLabel* title_ = nullptr;
  QLabel* ground_ = nullptr;
  QLabel* score_ = nullptr;
  QLabel* left_ = nullptr;
  QLabel* none_yet_;
  TableView* results_;
  QPushButton* stop_;
  const match_state& match_;
};

}  // namespace velorin
