// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <vector>

#include "desktop/banded_grid.h"
#include "model/rules.h"

class QButtonGroup;
class QLabel;
class QRadioButton;

namespace velorin {

/// The eleven men of a side, one to choose: the option buttons `man_1` to `man_11`, each in its row with the
/// man's figures. Arrow keys and a click on a row choose.
class ManList : public BandedGrid {
  Q_OBJECT

 public:
  /// A column behind the names.
  struct Column {
    QString heading;
    bool numbers = false;
    const char* label = nullptr;  ///< the texts are named label_1 to label_11; nullptr for texts without names
    bool muted = false;
  };

  ManList(const QString& names_heading, std::vector<Column> columns, QWidget* parent = nullptr);

  /// Fills a row from 1 to 11, with a text for each column. A row that is not enabled cannot be chosen.
  void set_row(int row, const QString& name, bool enabled, const std::vector<QString>& texts);
  /// Another text for a column of a row, from 0 behind the names.
  void set_text(int row, std::size_t column, const QString& text);
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
  QButtonGroup* group_;
  std::array<QRadioButton*, men_in_eleven + 1> options_{};
  std::array<QString, men_in_eleven + 1> names_{};
  std::array<std::vector<QLabel*>, men_in_eleven + 1> texts_{};
  std::function<void(int)> chosen_;

  void speak(int row);
};

}  // namespace velorin
