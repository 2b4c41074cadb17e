// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPushButton>
#include <functional>
#include <vector>

namespace velorin {

struct Act;

/// A button of several things to do: a press opens a menu of them over it, with the first one chosen, so that Return
/// takes it. What the menu offers is asked anew each time. A second key does the first one without the menu.
class ChoiceButton : public QPushButton {
  Q_OBJECT

 public:
  struct Choice {
    QString name;     ///< objectName of the entry
    QString caption;  ///< with its letter marked by &
    std::function<void()> act;
  };
  /// What can be done now, the first one first; nothing opens no menu.
  using Offer = std::function<std::vector<Choice>()>;

  /// `act` says what the button is for, its key opens the menu; `at_once` is the key of the first entry.
  ChoiceButton(const QString& name, const Act& act, const QKeySequence& at_once, Offer offer,
               QWidget* parent = nullptr);

 private:
  void open();
  void take_first();

  Offer offer_;
  QKeySequence at_once_;
};

}  // namespace velorin
