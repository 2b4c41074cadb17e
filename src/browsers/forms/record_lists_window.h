// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "browsers/forms/record_window.h"

class QComboBox;
class QFrame;
class QRadioButton;

namespace velorin {

struct record_lists_form;

/// All record lists in one window: their names at the left, the chosen list beside them; in a narrow window they drop
/// down from above the list.
class RecordListsWindow : public RecordWindow {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window.
  explicit RecordListsWindow(front_end& user, const open_database& database, record_lists_form& form,
                             QWidget* parent = front_window());

 protected:
  void press_ok() override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  QFrame* new_lists();
  QWidget* new_drop_down();
  void choose(int list);
  /// What the form shows now, and its name marked among the lists.
  void show_list();

  record_lists_form& lists_;
  QFrame* at_left_ = nullptr;
  QWidget* above_ = nullptr;
  QComboBox* drop_down_ = nullptr;
  std::vector<QRadioButton*> entries_;  // one for each list
};

}  // namespace velorin
