// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <array>
#include <filesystem>
#include <functional>
#include <vector>

#include "desktop/form.h"

class QComboBox;
class QLabel;

namespace velorin {

class MenuEntry;
class QtFrontEnd;
struct open_database;

/// The start-up form: the menu of all activities, in a main panel and four sub-panels.
class MenuWindow : public Form {
  Q_OBJECT

 public:
  /// `parent`: the main window, in which it is the first page; without it the menu is a window of its own.
  explicit MenuWindow(QtFrontEnd& shown_by, QWidget* parent = nullptr);

  /// The start of the program, once the form is on the screen: reads the settings; where there are none that can be
  /// read, asks for them.
  void start();

  /// Asks a newcomer, once, whether he wants to be led through his first match, and begins it.
  void offer_guide();

  /// Opens a saved game, as the command line or a file manager names it: it is taken among the user's games, and goes
  /// on; one that is over is watched. What cannot be opened is told.
  void open_game(const QString& file);

  void reject() override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;

 private:
  struct Entry {
    const char* name;
    const char* text;
    char16_t mnemonic;
    std::function<void()> act;
  };

  QWidget* new_panel(const char* name, const QString& heading, const std::vector<Entry>& entries);
  void add_main_panel();
  void add_start_panel();
  void add_other_panel();
  void add_batting_panel();
  void add_bowling_panel();
  QWidget* new_appearance_choice();

  /// An entry that needs a database: without one asks for it first. A fault of its files is told, and leads to the
  /// settings.
  std::function<void()> with_database(std::function<void()> act);
  /// The same for an entry that plays: refuses a database that cannot take a match.
  std::function<void()> for_play(void (*activity)(QtFrontEnd&));
  open_database& open_data();
  void show_panel(QWidget* panel);
  void clear_highlights();
  void move_focus(int step);
  void show_database();
  /// "Continue" with what waits, the first entry; none where nothing does.
  void show_what_waits();
  void leave();

  QtFrontEnd& shown_by_;
  QWidget* main_ = nullptr;
  std::array<QWidget*, 4> sub_{};
  QWidget* shown_ = nullptr;
  QLabel* database_ = nullptr;
  MenuEntry* continue_ = nullptr;
  QLabel* waits_ = nullptr;
  std::filesystem::path game_that_waits_;
  QVBoxLayout* panels_ = nullptr;
};

}  // namespace velorin
