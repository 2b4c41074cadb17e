// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include "model/message_kind.h"

// What the windows remember of their user from one run to the next: sizes, appearance, pace. The game's own settings
// are not among it: they stand in options.mc. All here requires the application object; what has changed is written at
// the latest when that goes.

namespace velorin {

enum class Appearance { system, light, dark, high_contrast };

/// How an over is shown: at once, with a moment for each ball, or with a pause after each.
enum class Pace { instant, quick, ball_by_ball };

/// The sides of a match that the user captains.
struct Captains {
  bool first_human = true;
  bool second_human = false;
};

/// The sides and the ground of the user's last match, by name; empty before it.
struct LastSides {
  QString first;
  QString second;
  QString ground;
};

/// What the computer answers for the user on the way to the first ball of a quick match.
struct QuickAnswers {
  bool conditions = true;
  bool elevens = true;
  bool toss = true;
  bool openers = true;  ///< the opening batsmen and bowlers
};

/// What the user leaves to the computer while he captains a side.
struct Delegated {
  bool toss = false;
  bool line_up = false;      ///< the eleven, and who comes in
  bool bowling = false;      ///< who opens, and who bowls when
  bool aggressions = false;  ///< of batsmen and bowlers

  bool operator==(const Delegated&) const = default;
};

/// How a user has left a table. Columns go by their names; one that the table does not have says nothing.
struct TableState {
  QStringList hidden;
  QMap<QString, int> widths;  ///< of the columns that he has drawn, in pixels
  QString sorted_by;          ///< "" for the order told
  bool descending = false;

  bool operator==(const TableState&) const = default;
};

namespace preferences {

/// Keeps everything in this file from now on; without it, in the user's folder of settings.
void use_file(const QString& path);

Appearance appearance();
void set_appearance(Appearance chosen);

/// Pace::quick at first.
Pace pace();
void set_pace(Pace chosen);

/// The place to which a match was last skipped, by the console's name for it; "" before the first time.
QString last_skip();
void set_last_skip(const QString& name);

/// Whether matches between two computer sides run without stopping in the competitions of the form of this name; off at
/// first.
bool plays_without_stopping(const QString& form);
void set_plays_without_stopping(const QString& form, bool on);

/// Who captains the sides of a new match: at first the user the first team, the computer the second.
Captains captains();
void set_captains(Captains chosen);

/// A guided first match has been offered; false at first.
bool guide_offered();
void set_guide_offered(bool offered);

LastSides last_sides();
void set_last_sides(const LastSides& sides);

/// What was last chosen in a form, by its controls' names; nothing at first.
QVariantMap last_choices(const QString& form);
void set_last_choices(const QString& form, const QVariantMap& chosen);

/// All of them at first.
QuickAnswers quick_answers();
void set_quick_answers(QuickAnswers answers);

/// Whether the game stops for messages of this kind, or lets them pass by; true at first.
bool stops_for(message_kind kind);
void set_stops_for(message_kind kind, bool on);

/// Whether great moments are celebrated; on at first.
bool moments();
void set_moments(bool on);

/// Whether the console shows the forecast of the match; on at first.
bool forecast();
void set_forecast(bool on);

/// Whether the captain is told what his choices do to the chance of winning; off at first.
bool adviser();
void set_adviser(bool on);

/// Nothing at first.
Delegated delegated();
void set_delegated(const Delegated& left);

/// The questions to the archive that the user has kept, in writing, by the names that he gave them; none at first.
QMap<QString, QString> kept_questions();
void set_kept_questions(const QMap<QString, QString>& questions);

/// Place and size of a window; empty before it was first closed.
QByteArray geometry(const QString& window);
void set_geometry(const QString& window, const QByteArray& geometry);

/// How a table of a window was left; as told at first.
TableState table_state(const QString& window, const QString& table);
void set_table_state(const QString& window, const QString& table, const TableState& state);

/// The folder in which a file was last saved; "" at first.
QString last_folder();
void set_last_folder(const QString& folder);

}  // namespace preferences
}  // namespace velorin
