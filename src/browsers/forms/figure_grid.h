// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <string_view>

class QFrame;
class QGridLayout;
class QLabel;
class QVBoxLayout;

// Captions with their values beside them, in columns.

namespace velorin {

/// A card under a heading with a grid for figures.
struct FigureCard {
  QFrame* card;
  QGridLayout* grid;
};
FigureCard new_figure_card(const QString& heading);

/// Where a figure stands in its grid: from 0, in the first or the second column.
struct FigurePlace {
  int row;
  int column;
};
/// Adds a caption, as it stands but for its outer blanks, and beside it its value, aligned to the right: the label
/// `name`.
QLabel* add_figure(QGridLayout* grid, FigurePlace place, std::string_view caption, const QString& name);
/// Adds a caption and the value under it.
QLabel* add_figure_below(QVBoxLayout* rows, std::string_view caption, const QString& name);
/// Shows a value; for screen readers it has its caption before it.
void set_figure(QLabel* value, std::string_view text);

}  // namespace velorin
