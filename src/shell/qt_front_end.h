// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <filesystem>
#include <memory>
#include <optional>
#include <utility>

#include "competitions/game_state.h"
#include "competitions/world_cup_form.h"
#include "desktop/moment.h"
#include "desktop/preferences.h"
#include "reports/forms/match_report_window.h"
#include "setup/forms/quick_choices.h"
#include "shell/game_keeper.h"
#include "shell/name_pages.h"
#include "shell/played_reports.h"
#include "shell/turn_waiting.h"
#include "shell/unstopped_play.h"
#include "ui/front_end.h"
#include "ui/match_play.h"

namespace velorin {

class ConsoleWindow;
class Form;
class Frame;
class MatchProgressWindow;

/// Shows the game in windows: each form modally, in the order in which the game asks. Every request raises ProgramEnds
/// once the program is ending.
class QtFrontEnd : public front_end {
 public:
  /// `game` outlives it. `kept_games`: the folder in which each game is recorded as it is played; "" for none.
  explicit QtFrontEnd(game_state& game, const std::filesystem::path& kept_games = {});
  ~QtFrontEnd() override;

  void show(const message_box& message) override;
  save_answer answer(const failed_save& failed) override;
  void show(conditions_form& form) override;
  void show(team_selection_form& form) override;
  void show(toss_form& form) override;
  void show(next_batsman_form& form) override;
  void show(bowler_choice_form& form) override;
  void show(aggression_form& form) override;
  void show(batsman_details_form& form) override;
  void show(console_form& form) override;
  void console_opens(console_form& form) override;
  void console_closes() override;
  void about_to_bowl(console_form& form) override;
  void ball_bowled() override;
  void progress(int over) override;
  void progress_done() override;
  void open(report which) override;
  void show(match_report_form& form) override;
  void show(player_profile_form& form) override;
  void show(player_rankings_form& form) override;
  void show(series_results_form& form) override;
  void show(tri_series_table_form& form) override;
  void show(world_cup_fixtures_form& form) override;
  void show(world_cup_tables_form& form) override;

  /// The menu opens an activity, or the one it had opened is over.
  void activity_begins(Activity activity) {
    unstopped_.begin(activity);
    reports_.begin(activity);
  }
  /// The activity goes on with a game that was left: what stands of it in the windows is made up for.
  void activity_goes_on();
  void activity_over();
  /// What the computer answers for the user until the first over of the next match, which then begins by itself.
  void answer_set_up(QuickChoices choices) { quick_ = std::move(choices); }
  /// The user has asked, at the end of a match, for the same sides again; once for each time.
  bool take_rematch() { return std::exchange(rematch_, false); }
  game_state& game() { return game_; }
  /// The match in play, shown by this.
  match_play play() { return {game_.match, game_.chance, user(), game_.data}; }
  /// Whom the game asks: this, by way of whoever records it.
  front_end& user() { return keeper_ ? keeper_->user() : *this; }
  /// None where games are not recorded.
  GameKeeper* keeper() { return keeper_ ? &*keeper_ : nullptr; }
  /// The form of the World Cup, which may stay loaded from one tournament to the next.
  world_cup_form& cup_form() { return cup_form_; }

  /// Opens the match in play in the match centre, over the form on top, modal.
  void open_match_centre();

 private:
  /// What the names of men in the reports of matches do.
  MatchReportWindow::ShowProfile profile_of();
  /// Brings the console up to date before a window opens over it.
  void refresh_console();
  /// A message of a kind that the user does not stop for passes by in the main window's bar. False: it must be shown.
  bool passes_by(message_kind kind, const std::string& text) const;
  /// Tells in the main window's bar, and on the console, without a stop.
  void tell_in_passing(const QString& words) const;
  /// A hundred, five wickets, a win with the last ball: a moment over the console, which ends with it.
  /// What a message tells of, if that is a great moment of the match on the console.
  std::optional<MomentKind> moment_of(const message_box& message) const;
  /// The score of the match in play, in the main window's bar; none without a console.
  void show_score();
  /// Asks for a name, and keeps a copy of the game in play under it.
  void save_game();

  game_state& game_;
  NamePages names_;
  std::optional<GameKeeper> keeper_;
  std::unique_ptr<ConsoleWindow> console_;  // the one console, while a match is on
  QPointer<Frame> frame_;                   // the main window in which it stands
  QPointer<Form> busy_;                     // the window below the progress: it takes no input meanwhile
  QPointer<MatchProgressWindow> progress_;  // while an unattended match runs; the window below it owns it
  std::optional<QuickChoices> quick_;       // on the way to the first over of a quick match
  bool rematch_ = false;
  UnstoppedPlay unstopped_;
  PlayedReports reports_;
  TurnWaiting turns_;
  world_cup_form cup_form_;
};

}  // namespace velorin
