// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>
#include <QIcon>
#include <QStandardPaths>
#include <QTimer>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>

#include "archive/archive_keeper.h"
#include "competitions/game_state.h"
#include "database/file_calls.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/theme.h"
#include "shell/menu_window.h"
#include "shell/qt_front_end.h"

namespace {

using namespace velorin;

/// Opens the menu and runs the program's loop until it is left; `then` runs once the menu has started. Returns the
/// program's status.
int play(Frame& frame, const std::function<void(MenuWindow&)>& then) {
  archive_keeper keeper;
  const auto game = std::make_unique<game_state>();  // too large for some stacks
  game->data.files.keeper = &keeper;
  game->data.files.folder = std::filesystem::path(QApplication::applicationDirPath().toStdString()) / "teams";
  const QString kept = QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation);
  QtFrontEnd shown_by(*game, std::filesystem::path(kept.toStdString()) / "games");
  MenuWindow menu_window(shown_by, &frame);
  frame.show();
  menu_window.show();
  QTimer::singleShot(0, &menu_window, [&] {
    menu_window.start();
    then(menu_window);
  });
  return QApplication::exec();
}

}  // namespace

int main(int argc, char** argv) {
  if (!prepare_process()) {
    std::fprintf(stderr, "velorin: A closed standard descriptor cannot be replaced: %s\n", std::strerror(errno));
    return 1;
  }
  QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("velorin"));
  QApplication::setApplicationDisplayName(QString());
  QApplication::setDesktopFileName(QStringLiteral("velorin"));
  QApplication::setQuitOnLastWindowClosed(false);
  QApplication::setWindowIcon(QIcon(QStringLiteral(":/velorin.svg")));
  apply_theme(preferences::appearance());
  Frame frame;
  const QStringList arguments = QApplication::arguments();
  int status = play(frame, [&arguments](MenuWindow& menu_window) {
    if (arguments.size() > 1) return menu_window.open_game(arguments[1]);
    menu_window.offer_guide();
  });
  // Who went from a match to the menu finds all as after a new start.
  while (takes_return_to_menu()) status = play(frame, [](MenuWindow&) {});
  return status;
}
