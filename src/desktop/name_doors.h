// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <functional>
#include <vector>

#include "desktop/name_book.h"

class QWidget;

// Each name that a form shows leads to its page: in labels and in the cells of tables. The pointer over a name
// underlines it, a press follows it; where a second press on the row opens something else, it waits for that.
// Ctrl+Return follows the names of a table's present cell, and Ctrl+L offers all that the form shows, those on buttons
// and in pictures as well. Assistive technology finds an action for each name of a label and of a cell.

namespace velorin {

class Form;

struct NameDoors {
  std::function<const NameBook&()> book;
  std::function<void(const NameLink& name, Form& from)> open;
};

/// From now on names lead on as told; nowhere with empty functions. Requires the application object.
void open_names_by(NameDoors doors);

/// The names that lead on now; none where no doors are given.
const NameBook& name_book();

/// Follows a name that `from` shows, as soon as the events at hand are done; not while another form stands over it.
void follow_name(const NameLink& name, const QWidget& from);

/// Offers names in a menu at a place of the screen.
void offer_names(const std::vector<NameLink>& names, const QWidget& from, const QPoint& at);

}  // namespace velorin
