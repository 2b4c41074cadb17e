// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

// The seam between the game and whoever shows it. The game asks; a request returns when the user is done with it. Forms
// are plain records with handlers: whoever shows one calls its handlers and returns once the form is closed.

namespace velorin {

struct aggr;
struct allrecs;
struct batorder;
struct batsmandetails;
struct chgbowler;
struct main_console;
struct sqdet;
struct sri_result;
struct teamsel;
struct toss;
struct triserresult;
struct wc_fix;
struct wcsstab;
struct wecond;

/// A modal message with the information icon. Texts are single bytes of Windows-1252.
struct message_box {
  std::string title;
  std::string text;
};

/// A save of the game that has failed. Texts are single bytes of Windows-1252.
struct failed_save {
  std::string cause;    ///< what happened and where, in one line
  std::string without;  ///< what it means to go on without it
};

/// What is to be done about it. Given up, it is a failure like any other.
enum class save_answer { retry, go_on, give_up };

/// The reading screens, which need nothing but the match.
enum class report { scorecard, scorecard2, bowlcard, bowlcard2nd, partners, partners2, graphs, worms };

class front_end {
 public:
  virtual ~front_end() = default;

  /// Shows a message until it is dismissed.
  virtual void show(const message_box& message) = 0;
  /// Tells of a save that has failed, and asks what is to be done.
  virtual save_answer answer(const failed_save& failed) = 0;

  /// Set-up: shows the form modally until one of its handlers has closed it.
  virtual void show(wecond& form) = 0;
  virtual void show(teamsel& form) = 0;
  virtual void show(toss& form) = 0;

  /// The captain's dialogs: likewise.
  virtual void show(batorder& form) = 0;
  virtual void show(chgbowler& form) = 0;
  virtual void show(aggr& form) = 0;
  virtual void show(batsmandetails& form) = 0;

  /// The match console of a match with a human side, modal: presses its buttons until the form is closed.
  virtual void show(main_console& form) = 0;
  /// A ball has been bowled and booked, and the figures of the console are up to date.
  virtual void ball_bowled() = 0;
  /// An unattended match begins its i-th over, from 1.
  virtual void progress(int over) = 0;
  /// The unattended match is over: the progress window closes.
  virtual void progress_done() = 0;

  /// A reading screen, modal.
  virtual void open(report which) = 0;

  /// Browsers opened from a form, modal.
  virtual void show(sqdet& form) = 0;
  virtual void show(allrecs& form) = 0;

  /// Standings of a competition, modal, between its matches.
  virtual void show(sri_result& form) = 0;
  virtual void show(triserresult& form) = 0;
  virtual void show(wc_fix& form) = 0;
  virtual void show(wcsstab& form) = 0;
};

/// The front end in use. Raises std::logic_error while none is installed.
front_end& user();
/// Makes `shown_by` the front end in use until another one is installed; the caller keeps it alive. Returns the one in
/// use before, or nullptr.
front_end* install_front_end(front_end* shown_by);

/// Installs a front end for a scope and puts the one before back at its end.
class front_end_scope {
 public:
  explicit front_end_scope(front_end& shown_by) : before_(install_front_end(&shown_by)) {}
  ~front_end_scope() { install_front_end(before_); }
  front_end_scope(const front_end_scope&) = delete;
  front_end_scope& operator=(const front_end_scope&) = delete;

 private:
  front_end* before_;
};

}  // namespace velorin
