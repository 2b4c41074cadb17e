// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <vector>

#include "desktop/form.h"

class QLineEdit;
class QListWidget;

namespace velorin {

/// A place that one can go to by typing.
struct JumpTarget {
  QString name;
  QString kind;  ///< "Page", "Team", "Player"
  std::function<void()> go;
};

/// Goes to a page, a team or a player: lists those whose names have the words typed, the nearest first.
class JumpWindow : public Form {
  Q_OBJECT

 public:
  explicit JumpWindow(std::vector<JumpTarget> targets, QWidget* parent = front_window());

  /// What was chosen, once the window is closed; nullptr for nothing.
  const JumpTarget* chosen() const { return chosen_ < 0 ? nullptr : &targets_[static_cast<std::size_t>(chosen_)]; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void list();
  void choose();

  std::vector<JumpTarget> targets_;
  QLineEdit* words_;
  QListWidget* found_;
  int chosen_ = -1;
};

/// The places of `names` that have each of the words, in any case: first those whose name begins with what was typed,
/// then those with a word that does, then the others; each in the given order.
std::vector<int> places_with(const QStringList& names, const QString& typed);

}  // namespace velorin
