// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <functional>

#include "desktop/back_work.h"

class QBoxLayout;
class QLabel;
class QPushButton;

namespace velorin {

class Form;

/// What a sheet that asks a captain offers besides: "Leave to Computer", which makes the computer's choice and tells
/// its reason; and the adviser, off until he turns it on, which finds out behind the sheet what each choice does to the
/// chance of winning. The sheet shows what is found.
class SheetAdviser : public QObject {
  Q_OBJECT

 public:
  struct Acts {
    std::function<QString()> leave;          ///< makes the computer's choice; returns the reason in a sentence
    std::function<BackWork::Work()> advise;  ///< what is to be found out; none where nothing can be
    std::function<void()> clear;             ///< the adviser is turned off: shows no advice any more
  };

  /// Adds both, and below them the line for the reason, to these rows; or else both to the form's foot, and the line to
  /// its body.
  SheetAdviser(Form& form, Acts acts, QBoxLayout* rows = nullptr);

  bool is_working() const { return work_.is_working(); }

 private:
  void advise();

  Acts acts_;
  BackWork work_;
  QPushButton* toggle_ = nullptr;
  QLabel* line_;
};

}  // namespace velorin
