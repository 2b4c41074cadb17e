// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <functional>

#include "reports/export.h"

class QWidget;

namespace velorin {

struct match_state;
struct open_database;

/// What a file is asked for.
struct FileWish {
  QString title;
  QString folder;  ///< "" for the one that the system proposes
  QString name;    ///< proposed, with its ending
  QString filter;
  QString ending;  ///< given to a name without one
};

/// Asks for the file to write; an empty answer cancels.
using FileChooser = std::function<QString(const FileWish& wish, QWidget* window)>;

/// The common save dialog.
QString ask_for_file(const FileWish& wish, QWidget* window);

/// What is asked for when the match is to be written.
FileWish export_wish(const match_state& match, const scorecard_form& card, export_kind kind);

/// Asks for a file and writes the match there; the folder is remembered. A cancelled question writes nothing. Returns
/// what failed, with its file and cause, else an empty text; what stood there stays then as far as write_export tells.
/// No message box is shown.
QString export_match(const match_state& match, const open_database& database, const scorecard_form& card,
                     export_kind kind, const FileChooser& ask, QWidget* window);

}  // namespace velorin
