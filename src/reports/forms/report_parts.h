// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "desktop/table.h"

class QPushButton;
class QVBoxLayout;
class QWidget;

// What the windows of the reports have in common.

namespace velorin {

struct Act;
class Form;
struct bowling_screen;
struct partnership_screen;

/// A button for the body of a form.
QPushButton* new_report_button(const QString& name, const Act& act, std::function<void()> pressed);

/// The OK button of a reading form: closes it.
void add_ok(Form& form);

/// Gives the two lines at the head of a form the names of controls.
void name_head(Form& form, const QString& heading, const QString& subheading);

/// A column in the middle of a form's body, up to `widest` pixels wide; for its rows.
QVBoxLayout* new_column(Form& form, int widest);
inline constexpr int widest_card = 1360;
inline constexpr int widest_table = 1040;

/// The screens as tables.
Table bowling_table(const bowling_screen& screen);
Table stands_table(const partnership_screen& screen, const QString& name);

/// Fills a reading form that is one table and OK. `below` stands under the table.
void lay_out_table(Form& form, const QString& title, const QString& table_name, const Table& table,
                   QWidget* below = nullptr);

}  // namespace velorin
