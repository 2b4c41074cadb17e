// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

#include "desktop/form.h"
#include "recording/kept_games.h"

class QPushButton;

namespace velorin {

class GameKeeper;
class TableView;

/// The games that are kept: those that go on and those that are over, the one played last first.
class SavedGamesWindow : public Form {
  Q_OBJECT

 public:
  /// `current`: the game on which it opens.
  explicit SavedGamesWindow(const GameKeeper& keeper, const std::filesystem::path& current = {},
                            QWidget* parent = front_window());

  /// The game to go on with, or to watch, once the window has closed; empty for none.
  const std::filesystem::path& chosen() const { return chosen_; }
  const std::filesystem::path& watched() const { return watched_; }

 private:
  QPushButton* add_act(const char* name, const char* caption, QChar mnemonic, const char* hint,
                       std::function<void()> act);
  void list(const std::filesystem::path& current);
  /// The game of the present row; nullptr for none.
  const kept_game* game() const;
  void show_acts();
  void go_on();
  void watch();
  void copy();
  void rename();
  void remove();
  void export_game();
  void import_game();

  const GameKeeper& keeper_;
  std::vector<kept_game> games_;
  TableView* table_;
  QPushButton* go_on_ = nullptr;
  QPushButton* watch_ = nullptr;
  QPushButton* match_line_ = nullptr;
  std::vector<QPushButton*> of_game_;  // what can be done with any game that nobody plays
  std::filesystem::path chosen_;
  std::filesystem::path watched_;
};

/// Asks for the name of a game; empty if none is given. The text stands for a start.
QString ask_for_game_name(QWidget& window, const QString& title, const QString& text);

}  // namespace velorin
