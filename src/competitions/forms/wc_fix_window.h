// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "desktop/form.h"

class QScrollBar;

namespace velorin {

class TableView;
struct Table;
struct wc_fix;

/// The fixture list, ten rows at a time, with the next match marked.
class WcFixWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit WcFixWindow(wc_fix& form, QWidget* parent = front_window());

 protected:
  /// The list's arrow keys and the wheel go on beyond its ends.
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();
  bool scrolls_on(int key);

  wc_fix& form_;
  bool any_human_;
  TableView* list_;
  QScrollBar* scroll_;
};

}  // namespace velorin
