// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

namespace velorin {

struct triserresult;

/// The table of the tri series, and its final.
class TriserresultWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit TriserresultWindow(triserresult& form, QWidget* parent = front_window());

 private:
  triserresult& form_;
};

}  // namespace velorin
