// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <vector>

#include "desktop/back_work.h"
#include "desktop/form.h"
#include "recording/kept_games.h"

class QLabel;
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
                       std::function<void()> work);
  void add_acts();
  /// Runs a button's work; what fails is told over the list, which stays as it is.
  void act(const std::function<void()>& work);
  /// Lists the games as the folder has them now. A long folder's older games are read behind the window.
  void list(const std::filesystem::path& current);
  void read_behind(const std::vector<std::filesystem::path>& files);
  void fill_table(const std::filesystem::path& current);
  /// The game of the present row; nullptr for none.
  const kept_game* game() const;
  void show_acts();
  void go_on();
  void watch();
  void copy();
  void rename();
  void remove();
  void remove_finished();
  void export_game();
  void import_game();

  /// A game as it was read, and what its file was like then.
  struct Read {
    std::filesystem::file_time_type written;
    std::uintmax_t bytes = 0;
    kept_game game;
  };
  static Read read(const std::filesystem::path& file);
  /// Its file is as it was.
  static bool holds(const Read& before, const std::filesystem::path& file);

  const GameKeeper& keeper_;
  std::map<std::filesystem::path, Read> read_;
  std::vector<kept_game> games_;  // of read_, the one played last first
  TableView* table_;
  QLabel* reading_;  // how many are still to be read
  QPushButton* delete_finished_ = nullptr;
  QPushButton* go_on_ = nullptr;
  QPushButton* watch_ = nullptr;
  std::vector<QPushButton*> of_game_;  // what can be done with any game that nobody plays
  std::filesystem::path chosen_;
  std::filesystem::path watched_;
  BackWork behind_;
};

/// Asks for the name of a game; empty if none is given. The text stands for a start.
QString ask_for_game_name(QWidget& window, const QString& title, const QString& text);

}  // namespace velorin
