// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/program_end.h"

#include <QCoreApplication>
#include <QDialog>
#include <QGuiApplication>

#include "desktop/message_window.h"

namespace velorin {

namespace {

struct Ending {
  bool begun = false;
  std::function<void(const std::exception&)> handler;
};

Ending& ending() {
  static Ending state;
  return state;
}

}  // namespace

void end_program(int status) {
  ending().begun = true;
  QCoreApplication::exit(status);
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
  MessageWindow box({"Run-time error", failure.what()}, MessageWindow::Kind::failure);
  box.exec();
  end_program(1);
}

void on_failure(std::function<void(const std::exception&)> handler) { ending().handler = std::move(handler); }

void begin_again() { ending().begun = false; }

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
