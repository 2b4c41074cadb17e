// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>
#include <string>
#include <vector>

class QComboBox;
class QFrame;
class QLabel;
class QPushButton;
class QWidget;

// What the entry forms of the competitions share.

namespace velorin {

struct open_database;

class Form;
class NumberField;
struct team_entry;

/// A list of teams with the entry `chosen`, from 0 or -1. `choose` gets the entry that the user chooses. With
/// `or_none` an empty entry comes first, and stands for -1.
QComboBox* new_team_list(const QString& name, const std::vector<team_entry>& teams, int chosen,
                         std::function<void(int)> choose, bool or_none = false);

/// A card for one side: its caption with that mnemonic, its list, and its captain, "CPU" or "Human", the options
/// `side`_computer and `side`_human. `cpu` is kept as the user chooses, and must outlive the card.
QFrame* new_side(const QString& caption, QChar mnemonic, QComboBox* teams, const QString& side, bool& cpu);

/// A card with the list of grounds and, below it, the number of matches or rounds, its caption with the mnemonic N.
QFrame* new_ground_and_number(QComboBox* grounds, const QString& caption, NumberField* number);

/// Shows the grounds anew, with the one on show.
void show_grounds(QComboBox& list, const std::vector<std::string>& grounds, int chosen);

/// What the foot of an entry form shows of its choice.
struct EntryFoot {
  QPushButton* ok = nullptr;
  QLabel* wanted = nullptr;  ///< the reason why OK is disabled
};

/// Adds the foot: the switch for play without stopping, the reason `wanted`, OK, which runs `play`, and Cancel, which
/// leaves the form like Escape.
EntryFoot add_entry_foot(Form& form, std::function<void()> play);
/// Enables OK or says why not.
void show_ready(const EntryFoot& foot, bool ready, const QString& wanted);

/// Names the countries among the hosts that have no ground. True if the competition can go on: all have one, or the
/// user plays on the grounds of the others.
bool grounds_are_fit(open_database& database, QWidget& window, const std::vector<std::string>& hosts);

/// True if a box holds a whole number from 1 to `most`. Otherwise shows a message that says so.
bool number_is_fit(const std::string& text, int most, const char* field);

}  // namespace velorin
