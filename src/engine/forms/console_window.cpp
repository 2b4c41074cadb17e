// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/console_window.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCloseEvent>
#include <QEventLoop>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

#include "database/open_database.h"
#include "desktop/controls.h"
#include "desktop/frame.h"
#include "desktop/keep_question.h"
#include "desktop/modality.h"
#include "desktop/moment.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "engine/forms/attack_list.h"
#include "engine/forms/commentary_list.h"
#include "engine/forms/console_tables.h"
#include "engine/forms/course_charts.h"
#include "engine/forms/forecast_bar.h"
#include "engine/forms/over_chips.h"
#include "engine/forms/over_strip.h"
#include "engine/forms/player_panels.h"
#include "engine/forms/rates_panel.h"
#include "engine/forms/scoreboard.h"
#include "engine/over_play.h"
#include "model/match_state.h"
#include "model/texts.h"

namespace velorin {

namespace {

/// How long each ball stays before the next, in milliseconds.
constexpr int quick_pause = 150;
constexpr int ball_pause = 900;
/// Within a skip that shows its balls.
constexpr int glimpse = 25;

int pause_of(Pace pace, bool skipping) {
  if (skipping) return pace == Pace::quick ? glimpse : quick_pause;
  return pace == Pace::quick ? quick_pause : ball_pause;
}

/// Sets a flag for a scope.
class Playing {
 public:
  explicit Playing(bool& flag) : flag_(flag) { flag_ = true; }
  ~Playing() { flag_ = false; }
  Playing(const Playing&) = delete;
  Playing& operator=(const Playing&) = delete;

 private:
  bool& flag_;
};

}  // namespace

ConsoleWindow::ConsoleWindow(const QString& name, const match_state& match, const open_database& database,
                             console_form& form, Dismissal dismissal, QWidget* parent)
    : Form(name, dismissal, parent), form_(form), match_(match), data_(database) {
  prefer_size(QSize(1280, 800));
  lay_out();
}

ConsoleWindow::ConsoleWindow(const match_state& match, const open_database& database, console_form& form,
                             QWidget* parent)
    : ConsoleWindow(QStringLiteral("main"), match, database, form, Dismissal::refused, parent) {
  add_foot();
  finish_layout();
  on_dismiss([this] {
    // Escape finishes the over at once, or stops a skip after the ball; between overs it does nothing.
    if (!playing_) return;
    if (skipping_) {
      form_.stop();
    } else {
      finish_over_ = true;
    }
    if (waiting_ != nullptr) waiting_->quit();
  });
  // A click leaves the keyboard with Next Over, so that Return goes on bowling.
  for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
    if (button != next_over_) button->setFocusPolicy(Qt::TabFocus);
  }
  qApp->installEventFilter(this);
  refresh();
  next_over_->setFocus();
  go_on_with_over();
}

ConsoleWindow::~ConsoleWindow() { qApp->removeEventFilter(this); }

void ConsoleWindow::finish_layout() {
  resize(1280, 800);
  arrange();
}

/// A match taken up in the midst of an over goes on with it, once the console is in use.
void ConsoleWindow::go_on_with_over() {
  if (next_over_ == nullptr || !form_.has_over_in_play()) return;
  QTimer::singleShot(0, this, [this] {
    if (in_use_ && form_.has_over_in_play()) guarded([this] { play_over(); });
  });
}

void ConsoleWindow::show_before_use() {
  Frame* frame = main_window();
  if (frame == nullptr) return;
  in_use_ = false;
  // It waits for nobody, so that it takes no press even between two questions.
  setModal(false);
  show();
  cover(*this);
}

int ConsoleWindow::exec() {
  in_use_ = true;
  refresh();
  if (!isModal()) {
    setModal(true);
    main_window()->arrange();
    main_window()->entered();
  }
  // What the opening has brought is laid out before anybody looks.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest);
  go_on_with_over();
  return Form::exec();
}

void ConsoleWindow::refresh() {
  if (form_.closed()) return;
  const QString title =
      QStringLiteral("%1 v %2, %3").arg(shown(match_.team1_name), shown(match_.team2_name), shown(match_.venue_name()));
  const QString shown_title = next_over_ == nullptr ? title + QStringLiteral(" (watched)")
                              : match_.practice     ? title + QStringLiteral(" (practice)")
                                                    : title;
  if (shown_title != windowTitle()) set_title(shown_title, {});
  scoreboard_->refresh();
  forecast_->refresh();
  for (BatsmanPanel* panel : batsmen_) panel->refresh();
  for (BowlerPanel* panel : bowlers_) panel->refresh();
  rates_->refresh();
  commentary_->refresh();
  last_wicket_->setText(shown_caption(last_wicket_line(match_)));
  const auto is_in = [this](int position) {
    const batting_card_rec& card = match_.batting_card[position];
    return !card.name.empty() && card.how == dismissal::none;
  };
  const bool stands = is_in(match_.lower_batsman()) && is_in(match_.higher_batsman());
  stand_->setText(stands ? shown(stand_line(match_)) : QString());
  const CourseFigures course = course_figures(match_);
  for (CourseChart* chart : charts_) chart->set_figures(course);
  strip_->set_overs(last_overs(match_, OverStrip::overs));
  refresh_over();
  refresh_sides();
  refresh_choices();
  refresh_adviser();
}

void ConsoleWindow::refresh_over() {
  QStringList symbols;
  for (const std::string& symbol : over_symbols(match_)) symbols << shown(symbol);
  chips_->set_symbols(symbols);
  // Only the overs of this innings are on offer: its first press finds the browser as the innings before left it.
  const int past = std::min(match_.browser_maximum, int(match_.over_no) - 1);
  const bool resting = in_use_ && !playing_ && form_.has_over_in_play() && match_.over_on_show.in_play;
  const bool browsing = !playing_ && !resting && match_.browsed_over > 0 && past > 0;
  const bool bowled = !symbols.join(QString()).isEmpty();
  over_title_->setText(browsing                         ? QStringLiteral("Over %1").arg(match_.browsed_over)
                       : playing_ || resting || !bowled ? QStringLiteral("This over")
                       : match_.deliveries.empty()
                           ? QStringLiteral("Last over, %1").arg(shown(short_name(match_.team2_name)))
                           : QStringLiteral("Last over"));
  over_bowler_->setText(browsing ? shown(bowler_of_over(match_, match_.browsed_over)) : QString());
  const QSignalBlocker quiet(browser_);
  browser_->setRange(1, std::max(1, past));
  browser_->setValue(match_.browsed_over);
  const bool any = past > 0;
  browser_->setEnabled(any);
  over_before_->setEnabled(any);
  over_after_->setEnabled(any);
}

void ConsoleWindow::refresh_sides() {
  constexpr int room_for_boundaries = 280;
  constexpr int room_for_names = 360;
  constexpr int room_for_dismissals = 440;
  if (form_.closed()) return;
  if (!attack_->isHidden()) attack_->refresh();
  if (batting_table_->isHidden()) return;
  const double room = batting_table_->width() / drawn_;
  const CardDetail detail = room >= room_for_dismissals   ? CardDetail::dismissals
                            : room >= room_for_boundaries ? CardDetail::boundaries
                                                          : CardDetail::runs;
  batting_table_->set_table(batting_table(match_, detail, room < room_for_names));
}

void ConsoleWindow::play_over() {
  if (playing_) return;
  skipping_ = false;
  play([this] { form_.bowl_next_over(); });
}

void ConsoleWindow::play(const std::function<void()>& work) {
  finish_over_ = false;
  // What was told of the over before is over.
  end_moment(*this);
  if (main_window() != nullptr) main_window()->show_passing({});
  {
    const Playing in_progress(playing_);
    work();
  }
  if (form_.closed()) {
    accept();
    return;
  }
  refresh();
  emit over_ended();
}

bool ConsoleWindow::rests() const { return !playing_ && match_.innings_balls >= balls_of_over; }

void ConsoleWindow::forget_commentary() { commentary_->forget(); }

void ConsoleWindow::message_passed(const QString& text) { commentary_->add_message(text); }

void ConsoleWindow::ball_bowled() {
  const Pace pace = preferences::pace();
  if (!playing_ || finish_over_ || pace == Pace::instant) return;
  refresh();
  wait(pause_of(pace, skipping_));
}

void ConsoleWindow::wait(int milliseconds) {
  QEventLoop loop;
  waiting_ = &loop;
  QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
  loop.exec();
  waiting_ = nullptr;
  if (program_is_ending()) throw ProgramEnds{};
}

void ConsoleWindow::act(void (console_form::*handler)()) {
  if (playing_) return;
  change_by_hand([&] { std::invoke(handler, form_); });
  refresh();
}

void ConsoleWindow::act_on_slot(void (console_form::*handler)(int), int slot) {
  if (playing_) return;
  change_by_hand([&] { std::invoke(handler, form_, slot); });
  refresh();
}

void ConsoleWindow::set_in_place(const std::function<void()>& change) {
  if (!playing_) change_by_hand(change);
  refresh();
}

void ConsoleWindow::change_by_hand(const std::function<void()>& change) {
  const int bowler = match_.bowler;
  const auto batting = match_.batsman_aggression;
  const auto bowling = match_.bowling_aggression;
  change();
  Delegated left = preferences::delegated();
  const Delegated before = left;
  if (match_.bowler != bowler) left.bowling = false;
  if (match_.batsman_aggression != batting || match_.bowling_aggression != bowling) left.aggressions = false;
  if (left != before) preferences::set_delegated(left);
}

void ConsoleWindow::browse(int over) {
  if (playing_) return;
  form_.browse_over(over);
  refresh_over();
}

void ConsoleWindow::choose_pace(Pace pace) {
  preferences::set_pace(pace);
  if (waiting_ != nullptr && pace == Pace::instant) waiting_->quit();
}

void ConsoleWindow::closeEvent(QCloseEvent* event) {
  if (program_is_ending() || !isVisible()) {
    event->accept();
    return;
  }
  event->ignore();
  guarded([this] { ask_to_quit(); });
}

void ConsoleWindow::let_keep(std::function<void()> discard) {
  discard_ = std::move(discard);
  findChild<QPushButton*>(QStringLiteral("quit"))
      ->setToolTip(QStringLiteral("End the program; the game can be kept (Ctrl+Q)"));
  name_way_back(QStringLiteral("Menu"));
  on_way_back([this] {
    if (!playing_ && may_leave(WayOut::to_menu)) return_to_menu();
  });
}

bool ConsoleWindow::may_leave(WayOut way) {
  const KeepAnswer answer = ask_to_keep(way, *this);
  if (answer == KeepAnswer::discard) discard_();
  return answer != KeepAnswer::stay;
}

void ConsoleWindow::ask_to_quit() {
  if (playing_) return;
  if (discard_) {
    if (may_leave(WayOut::out_of_program)) end_program(0);
    return;
  }
  const bool yes = ask(*this, QStringLiteral("quit_question"), QStringLiteral("Quit"),
                       QStringLiteral("End the program? The match is lost."));
  if (yes) end_program(0);
}

void ConsoleWindow::resizeEvent(QResizeEvent* event) {
  // First, since the room for the foot and the body depends on it.
  arrange();
  Form::resizeEvent(event);
  refresh_sides();
}

bool ConsoleWindow::belongs_to_pace(const QObject* watched) const {
  for (const QObject* at = watched; at != nullptr; at = at->parent()) {
    if (at == pace_) return true;
  }
  return false;
}

bool ConsoleWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!playing_) return Form::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::Shortcut:
    case QEvent::ContextMenu:
      break;
    default:
      return false;
  }
  const auto* widget = qobject_cast<const QWidget*>(watched);
  const QObject* owner = widget != nullptr ? static_cast<const QObject*>(widget) : watched->parent();
  const auto* owning = qobject_cast<const QWidget*>(owner);
  if (owning == nullptr || (owning != this && !isAncestorOf(owning)) || belongs_to_pace(owner)) return false;
  const bool key = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
  if (key && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) return false;
  return true;
}

}  // namespace velorin
