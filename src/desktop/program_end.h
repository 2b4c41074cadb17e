// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <exception>
#include <functional>

// How a control sets off the core, and how the program ends from within nested modal windows. A window's handler runs
// inside an event loop, which no exception may cross: it is wrapped in guarded(). Between two handlers lie procedures
// of the core, which are left by an exception. All here requires the application object.

class QDialog;

namespace velorin {

/// Leaves the procedures of the core once the program is ending. Not an error: guarded() alone catches it.
struct ProgramEnds {};

/// Ends the program: all event loops are left, the innermost first, and the one of main() returns `status`.
void end_program(int status);

/// Likewise, but the program begins anew with its menu.
void return_to_menu();

/// For main(), once its loop has been left: true where the menu is to open again; a new round begins then.
bool takes_return_to_menu();

/// True from end_program on. Windows then answer nothing any more.
bool program_is_ending();

/// Shows the window modally until it closes. Raises ProgramEnds if the program is ending by then.
void run_modal(QDialog& window);

/// Play begins, and is over. In play a failure ends the program. Out of it one with its place in a file is told, and
/// the program goes on.
void play_begins();
void play_over();

/// True if a fault of a file has been told, and the program went on, since the last call.
bool take_told_fault();

/// Shows what ended the program in a message titled "Run-time error" and ends it with status 1; out of play a fault of
/// a file is told under "Error" and ends nothing.
void report_failure(const std::exception& failure);

/// Called in place of report_failure's messages and end; an empty function restores them. For tests.
void on_failure(std::function<void(const std::exception&)> handler);

/// Takes back end_program: a new round begins. Requires that every event loop has been left. For tests.
void begin_again();

/// Runs `act`, the work behind a control. A failure is reported and ends the program; ProgramEnds goes no further.
void guarded(const std::function<void()>& act);

}  // namespace velorin
