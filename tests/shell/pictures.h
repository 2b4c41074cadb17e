// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace velorin {
class MenuWindow;
}

namespace velorin::testing {

/// A picture of the whole main window while this form is on top.
void take(QWidget& form, const char* name);

/// Opens an entry of a panel of the menu, and comes back.
void open(MenuWindow& menu, const char* panel, const char* entry);

/// The way into a match, its innings break, a console in a window of its own.
void picture_opening(MenuWindow& menu);

/// A guided match with its hints.
void picture_guide(MenuWindow& menu);

/// The reports of both innings, aggression, a great moment.
void picture_reports(MenuWindow& menu);

/// The record book, and the pages of a man, teams and a match.
void picture_archive(MenuWindow& menu);

/// The menu's panels, team records, settings, credits.
void picture_places(MenuWindow& menu);

/// The forms of competitions, play without stopping, a save that fails.
void picture_entries(MenuWindow& menu);

/// Games that are kept, and one watched again; needs a folder of them.
void picture_keeping(MenuWindow& menu);

}  // namespace velorin::testing
