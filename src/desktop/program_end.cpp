// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/program_end.h"

#include <QCoreApplication>
#include <QDialog>
#include <QGuiApplication>
#include <utility>

#include "desktop/message_window.h"
#include "desktop/of_application.h"
#include "model/run_time_error.h"

namespace velorin {

namespace {

struct Ending {
  bool begun = false;
  bool to_menu = false;  // and the menu opens again
  bool in_play = false;
  bool fault_told = false;
  std::function<void(const std::exception&)> handler;
};

Ending& ending() { return of_application<Ending>(); }

/// A failure that names its place in a file, or the file that cannot be used.
bool is_fault_of_file(const std::exception& raised) {
  const auto* const error = dynamic_cast<const run_time_error*>(&raised);
  if (error == nullptr || error->place().file.empty()) return false;
  return error->kind() == failure::file || error->place().record != 0;
}

}  // namespace

void play_begins() { ending().in_play = true; }
void play_over() { ending().in_play = false; }
bool take_told_fault() { return std::exchange(ending().fault_told, false); }

void end_program(int status) {
  ending().begun = true;
  QCoreApplication::exit(status);
}

void return_to_menu() {
  ending().to_menu = true;
  end_program(0);
}

bool takes_return_to_menu() {
  if (!std::exchange(ending().to_menu, false)) return false;
  begin_again();
  return true;
}

bool program_is_ending() { return ending().begun; }

void run_modal(QDialog& window) {
  if (program_is_ending()) throw ProgramEnds{};
  window.exec();
  if (program_is_ending()) throw ProgramEnds{};
}

void report_failure(const std::exception& failure) {
  if (ending().handler) {
    ending().handler(failure);
    return;
  }
  while (QGuiApplication::overrideCursor() != nullptr) QGuiApplication::restoreOverrideCursor();
  if (!ending().in_play && is_fault_of_file(failure)) {
    MessageWindow told({"Error", failure.what()}, MessageWindow::Kind::failure);
    told.exec();
    ending().fault_told = true;
    return;
  }
  MessageWindow box({"Run-time error", failure.what()}, MessageWindow::Kind::failure);
  box.exec();
  end_program(1);
}

void on_failure(std::function<void(const std::exception&)> handler) { ending().handler = std::move(handler); }

void begin_again() {
  ending().begun = false;
  ending().in_play = false;
  ending().fault_told = false;
}

void guarded(const std::function<void()>& act) {
  try {
    act();
  } catch (const ProgramEnds&) {
    // On the way out: the loops are being left.
  } catch (const std::exception& failure) {
    report_failure(failure);
  }
}

}  // namespace velorin
