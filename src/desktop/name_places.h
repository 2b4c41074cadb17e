// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRect>
#include <vector>

#include "desktop/name_book.h"

class QLabel;
class QModelIndex;
class QWidget;

namespace velorin {

class Form;
class TableView;

/// A name where it is seen.
struct PlacedName {
  NameLink link;
  QRect place;  ///< in the coordinates of the widget, or of the table's viewport
};

/// The names that a label shows; none for one that is a caption, that holds links of its own, or is part of a button.
std::vector<PlacedName> names_of(const QLabel& label, const NameBook& book);
/// The names in a cell of a table. A cell over which a control lies has none.
std::vector<PlacedName> names_of(const TableView& view, const QModelIndex& index, const NameBook& book);

/// Each name in what a form shows and a screen reader reads of it, once, from its top to its foot.
std::vector<NameLink> names_on(const Form& form, const NameBook& book);

}  // namespace velorin
