// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <functional>

#include "headless/headless_user.h"

namespace velorin {

struct PlayedMatches;
class UnstoppedWindow;
struct game_state;

/// What the menu has opened.
enum class Activity { single_match, series_of_two, series_of_three, cup };

/// Matches of a competition between two computer sides that run without stopping, if the user has switched that on for
/// competitions of its kind: a headless user answers what such a match asks, and the standings between two such matches
/// are passed over, while a page names the match, its score and the matches
/// left, and lists the results. The user can ask it to
/// stop at the next match. It stops by itself before a match with a human side and at the end of a competition.
class UnstoppedPlay {
 public:
  /// `played`: the matches of the competition that have been played.
  UnstoppedPlay(const game_state& game, std::function<PlayedMatches()> played);
  ~UnstoppedPlay();

  /// The menu opens an activity, or it is over.
  void begin(Activity activity);
  void end();

  /// The set-up of a match has begun. Reads the captains of match.
  void match_begins();
  /// The match in play is one that the headless user answers.
  bool answers_match() const { return answering_; }
  headless_user& user() { return user_; }

  /// A ball of a match without a console has been bowled: from time to time brings the window up to date and lets the
  /// user press its button.
  void ball_bowled();

  /// Standings are about to be shown: true if they are to be passed over. Otherwise the run has stopped, and its window
  /// is closed.
  bool passes_standings();

  /// The user has asked to stop at the next match.
  void ask_to_stop() { stop_asked_ = true; }

 private:
  bool switched_on() const;
  void show_progress();

  const game_state& game_;
  std::function<PlayedMatches()> played_;
  headless_user user_;
  Activity activity_ = Activity::single_match;
  bool answering_ = false;  // the match in play is answered
  bool running_ = false;    // the last match was answered, and nobody has asked to stop
  bool stop_asked_ = false;
  QElapsedTimer since_shown_;
  QPointer<UnstoppedWindow> window_;  // the window below it owns it
};

/// Matches of an activity that are still to come after the one in play.
int matches_left(const game_state& game, Activity activity);
/// The competition has played its last match.
bool is_over(const game_state& game, Activity activity);
/// It is known that a human captains a side of the match that comes next.
bool next_match_has_human(const game_state& game, Activity activity);

}  // namespace velorin
