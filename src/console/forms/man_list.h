// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "desktop/button_table.h"
#include "model/rules.h"

class QButtonGroup;
class QLabel;
class QRadioButton;

namespace velorin {

/// The eleven men of a side, one to choose: the option buttons `man_1` to `man_11`, each in its row of the table `men`
/// with the man's figures. Arrow keys and a press on a row choose. Sorting moves the rows; a man keeps his number.
class ManList : public ButtonTable {
  Q_OBJECT

 public:
  /// A column behind the names.
  struct Column {
    QString heading;
    bool numbers = false;
    bool muted = false;
    QString spoken = {};  ///< where the heading is empty
  };

  ManList(const QString& names_heading, std::vector<Column> columns, QWidget* parent = nullptr);

  /// Fills a row from 1 to 11, with a text for each column. A row that is not enabled cannot be chosen.
  void set_row(int row, const QString& name, bool enabled, const std::vector<QString>& texts);
  /// Shows the rows that have been filled.
  void show_rows();
  /// Another text for a column of a row that is shown, from 0 behind the names.
  void set_text(int row, std::size_t column, const QString& text);
  /// Shows or hides a column, likewise, without keeping it.
  void show_column(std::size_t column, bool shown);
  /// Chooses a row, also one that is not enabled, and puts the keyboard on the row or, failing that, on the first one
  /// that can be chosen.
  void choose(int row);
  /// Puts the keyboard on a row that can be chosen, and leaves the choice as it is.
  void focus_on(int row);
  bool has_choice() const;
  /// What choosing a row does.
  void on_chosen(std::function<void(int row)> act) { chosen_ = std::move(act); }

 private:
  std::vector<Column> columns_;
  Table rows_;
  QButtonGroup* group_;
  std::array<QRadioButton*, men_in_eleven + 1> options_{};
  std::function<void(int)> chosen_;

  TableRow& filled(int row);
  void speak(int row);
};

}  // namespace velorin
