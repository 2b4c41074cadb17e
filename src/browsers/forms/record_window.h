// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <string>

#include "desktop/form.h"

class QHBoxLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace velorin {

class front_end;
struct open_database;

struct table_form;
class TableView;

/// The base of the windows that show one table of records. The rows keep their order; a row that names men opens their
/// profiles.
class RecordWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window. `ranked`: places stand before the rows.
  RecordWindow(front_end& user, const open_database& database, const QString& name, table_form& form, bool ranked,
               QWidget* parent);

 protected:
  /// Shows what stands in the form's table now.
  void show_table(bool ranked);
  /// The tab key goes from `last`, the last control of the widget, on to the table.
  void add_at_left(QWidget* widget, QWidget* last);
  void add_above(QWidget* widget);
  /// OK, Escape and the close box.
  virtual void press_ok();

 private:
  /// A button for the profile of one of the men that a row names, the first or second, 0 or 1; hidden where no row
  /// names him.
  QPushButton* new_profile_button(const QString& name, const Act& act, int man);
  void follow_row();
  /// Opens the profile of the first or second man of a row.
  void open_profile(int row, int man);
  int chosen_row() const;
  const std::string& man_of(int row, int man) const;
  bool names_men(int man) const;

  table_form& form_;
  QHBoxLayout* across_;
  QVBoxLayout* rows_;
  TableView* table_;
  QLabel* empty_;
  QLabel* note_;
  std::array<QPushButton*, 2> profiles_{};
  QPushButton* ok_;
  front_end& user_;
  const open_database& data_;
};

}  // namespace velorin
