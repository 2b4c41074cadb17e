// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <array>
#include <cstddef>

class QGridLayout;
class QLabel;

namespace velorin {

struct match_state;

/// The rates of the innings: projections in the first, the chase in the second, and the last five overs.
class RatesPanel : public QFrame {
  Q_OBJECT

 public:
  explicit RatesPanel(const match_state& match, QWidget* parent = nullptr);

  void refresh();
  /// The total to be expected beside the title, with its range; `spoken` tells screen readers the same. Empty: none.
  void show_forecast(const QString& total, const QString& spoken);
  /// The total is out of date, until another one is shown.
  void mute_forecast();

 private:
  struct Cell {
    QWidget* box = nullptr;
    QLabel* heading = nullptr;
    QLabel* text = nullptr;
  };
  static Cell new_cell(const QString& name);
  /// Puts the cells in use and that of the last five overs into two rows.
  void place_cells(std::size_t used);

  QGridLayout* grid_;
  std::size_t placed_ = 0;
  QLabel* title_;
  QLabel* forecast_;
  std::array<Cell, 7> cells_;
  Cell last_five_;
  QLabel* stage_;
  QLabel* comparison_;
  QLabel* now_;
  QLabel* then_;
  const match_state& match_;
};

}  // namespace velorin
