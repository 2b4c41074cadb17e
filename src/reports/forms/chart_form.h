// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QStackedWidget;

namespace velorin {

/// A form that shows a chart, and at the press of a button the same figures as a table.
class ChartForm : public Form {
  Q_OBJECT

 public:
  bool shows_table() const;

 protected:
  explicit ChartForm(const QString& name, QWidget* parent);

  /// Puts both into the body, the button and OK at the foot. The chart shows first. `table` takes the keyboard when it
  /// comes up, or hands it on.
  void set_pages(QWidget* chart, QWidget* table);

 private:
  QStackedWidget* pages_ = nullptr;
};

}  // namespace velorin
