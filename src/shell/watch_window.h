// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>
#include <array>
#include <filesystem>
#include <optional>
#include <vector>

#include "engine/forms/console_window.h"
#include "recording/recording_player.h"

namespace velorin {

class InningsSlider;
class QtFrontEnd;

/// The console as a player of a recording: nothing is bowled and nothing is written. It plays at the remembered pace,
/// goes back and forth by balls and overs, and jumps; the reports read as at the moment shown.
class WatchWindow : public ConsoleWindow {
  Q_OBJECT

 public:
  /// `shown` is the match that the window and `form` show: it becomes each moment of the player's, which has a match.
  /// All outlive the window.
  WatchWindow(recording_player& player, match_state& shown, const open_database& database, console_form& form,
              QWidget* parent = front_window());

  /// The moment on show, from 0.
  int place() const { return place_; }

  void note_beside(bool beside) override;

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  /// A button that goes to a mark.
  struct Jump {
    QPushButton* button;
    ball_mark mark;
    bool on;  ///< forth, not back
  };

  QPushButton* new_jump(const char* name, const char* caption, const QKeySequence& key, const char* hint,
                        ball_mark mark, bool on);
  void add_line();
  void add_player_foot();
  void add_match_choice();
  std::optional<int> target_of(const Jump& jump) const;

  void choose_match(int match);
  /// Shows a moment; stays within the match.
  void seek(int place);
  void tell(int from);
  void show_place();
  void play();
  void pause();
  void play_on();
  bool runs() const { return clock_.isActive(); }

  recording_player& player_;
  match_state& shown_;
  int place_ = 0;
  QTimer clock_;
  QPushButton* play_ = nullptr;
  std::vector<Jump> jumps_;
  InningsSlider* slider_ = nullptr;
  QLabel* overs_ = nullptr;
  QWidgetList controls_;  // of the line
  std::array<QPushButton*, 2> innings_{};
};

/// Shows a recording, finished or not, to be watched; returns once its user has left it. One that cannot be read, or of
/// which no ball has been bowled, is told.
void watch(QtFrontEnd& shown_by, const std::filesystem::path& recording);

}  // namespace velorin
