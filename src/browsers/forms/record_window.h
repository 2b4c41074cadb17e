// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "desktop/form.h"

class QPushButton;
class QVBoxLayout;

namespace velorin {

class front_end;
struct open_database;

struct table_form;
class TableView;

/// The base of the windows that show one table of records. The rows keep their order; a row that names a man opens his
/// profile.
class RecordWindow : public Form {
  Q_OBJECT

 public:
  /// `form` has been opened and outlives the window. `ranked`: places stand before the rows.
  RecordWindow(front_end& user, const open_database& database, const QString& name, table_form& form, bool ranked,
               QWidget* parent);

 protected:
  table_form& form() const { return form_; }
  TableView* table() const { return table_; }
  /// Adds a button for the profile of one of the men that a row names; nothing if no row names him.
  QPushButton* add_profile_button(const QString& name, const Act& act, int man);

 private:
  void show_rows(bool ranked);
  /// Opens the profile of the first or second man, 0 or 1, of the row now chosen.
  void open_profile(int row, int man);
  const std::string& man_of(int row, int man) const;

  table_form& form_;
  QVBoxLayout* rows_;
  TableView* table_;
  front_end& user_;
  const open_database& data_;
};

}  // namespace velorin
