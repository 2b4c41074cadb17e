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

/// Adds a caption, as it stands but for its outer blanks, and its value below the figures already in the grid. The
/// value is the label `name`; `numbers` aligns it to the right.
QLabel* add_figure(QGridLayout* grid, std::string_view caption, const QString& name, bool numbers);
/// Likewise, the value under its caption.
QLabel* add_figure_below(QVBoxLayout* rows, std::string_view caption, const QString& name);
/// Shows a value; for screen readers it has its caption before it.
void set_figure(QLabel* value, std::string_view text);

}  // namespace velorin
