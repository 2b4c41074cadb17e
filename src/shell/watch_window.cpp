// SPDX-License-Identifier: GPL-3.0-or-later
#include "shell/watch_window.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QCloseEvent>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "console/console_view.h"
#include "desktop/controls.h"
#include "desktop/frame.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "engine/over_play.h"
#include "model/rules.h"
#include "shell/innings_slider.h"

namespace velorin {

namespace {

constexpr int line_height = 25;  // of the slider and what stands beside it, in pixels

/// How long each moment stays, in milliseconds: a ball, or an over where these are shown at once.
int pause_of(Pace pace) { return pace == Pace::ball_by_ball ? 900 : pace == Pace::quick ? 150 : 400; }

}  // namespace

WatchWindow::WatchWindow(recording_player& player, match_state& shown, const open_database& database,
                         console_form& form, QWidget* parent)
    : ConsoleWindow(QStringLiteral("watch"), shown, database, form, Dismissal::closes, parent),
      player_(player),
      shown_(shown) {
  show_score_itself();
  clock_.setSingleShot(true);
  connect(&clock_, &QTimer::timeout, this, [this] { guarded([this] { play_on(); }); });
  on_dismiss([this] {
    // Escape stops first.
    if (runs()) return pause();
    accept();
  });
  add_line();
  add_match_choice();
  add_player_foot();
  finish_layout();
  // A click leaves the keyboard with Play.
  for (QAbstractButton* button : findChildren<QAbstractButton*>()) {
    if (button != play_) button->setFocusPolicy(Qt::TabFocus);
  }
  seek(0);
  play_->setFocus();
}

QPushButton* WatchWindow::new_jump(const char* name, const char* caption, const QKeySequence& key, const char* hint,
                                   ball_mark mark, bool on) {
  const std::size_t place = jumps_.size();
  QPushButton* button = new_button(
      QString::fromLatin1(name),
      {.caption = QString::fromLatin1(caption), .mnemonic = QChar(), .key = key, .hint = QString::fromLatin1(hint)},
      [this, place] {
        pause();
        if (const std::optional<int> there = target_of(jumps_[place])) seek(*there);
      });
  jumps_.push_back({button, mark, on});
  return button;
}

/// The innings, the slider over it, and what one jumps to.
void WatchWindow::add_line() {
  // It takes the place of the last wicket, which the commentary has, too.
  QHBoxLayout* line = last_line();
  line->setSpacing(8);
  // On a low screen the rest scrolls, and this stays in sight above the foot.
  body()->removeItem(line);
  line->setParent(nullptr);
  line->setContentsMargins(16, 0, 16, 4);
  auto* strip = new QWidget;
  strip->setObjectName(QStringLiteral("line"));
  strip->setLayout(line);
  auto* rows = static_cast<QVBoxLayout*>(layout());
  rows->insertWidget(rows->count() - 1, strip);
  line->addSpacing(8);
  auto* group = new QButtonGroup(this);
  static constexpr const char* captions[] = {"1st", "2nd"};
  static constexpr const char* hints[] = {"The first innings, from its beginning", "The second innings, likewise"};
  for (int i = 0; i < 2; ++i) {
    auto* button = new QPushButton;
    button->setObjectName(QStringLiteral("innings_%1").arg(i + 1));
    button->setAutoDefault(false);
    button->setCheckable(true);
    button->setProperty("compact", true);
    name_act(*button, {.caption = QString::fromLatin1(captions[i]),
                       .mnemonic = i == 0 ? u'1' : u'2',
                       .hint = QString::fromLatin1(hints[i]),
                       .spoken = i == 0 ? QStringLiteral("First innings") : QStringLiteral("Second innings")});
    connect(button, &QPushButton::clicked, this, [this, i] {
      const ball_index& index = player_.index();
      const auto at = std::find_if(index.begin(), index.end(), [i](const auto& ball) { return ball.innings == i + 1; });
      pause();
      if (at != index.end()) seek(static_cast<int>(at - index.begin()));
    });
    group->addButton(button);
    line->addWidget(button);
    controls_ << button;
    innings_[static_cast<std::size_t>(i)] = button;
  }
  slider_ = new InningsSlider(QStringLiteral("ball"));
  slider_->setAccessibleName(QStringLiteral("Ball of the innings"));
  slider_->setToolTip(QStringLiteral("The balls of the innings; a cross is a wicket, a stroke the end of ten overs"));
  connect(slider_, &QSlider::valueChanged, this, [this](int place) {
    pause();
    seek(place);
  });
  line->addWidget(slider_, 1);
  overs_ = new_named_label(QStringLiteral("watched_overs"), {}, TextRole::strong);
  overs_->setMinimumWidth(36);
  line->addWidget(overs_);
  QPushButton* const jumps[] = {
      new_jump("next_wicket", "Wicket", QKeySequence(Qt::Key_X), "On to the next wicket", ball_mark::wicket, true),
      new_jump("next_boundary", "Boundary", QKeySequence(Qt::Key_F), "On to the next four or six", ball_mark::boundary,
               true),
      new_jump("next_milestone", "Milestone", QKeySequence(Qt::Key_M),
               "On to the next fifty, hundred, five wickets or stand", ball_mark::milestone, true),
      new_jump("innings_end", "End", QKeySequence(Qt::Key_E), "On to the end of the innings", ball_mark::innings_end,
               true)};
  for (QPushButton* button : jumps) {
    button->setProperty("compact", true);
    line->addWidget(button);
    controls_ << button;
  }
  controls_ << findChild<QWidget*>(QStringLiteral("forecast"))->parentWidget();
}

/// Of a competition, which of its matches.
void WatchWindow::add_match_choice() {
  if (player_.matches().size() < 2) return;
  auto* choice = new QComboBox;
  choice->setObjectName(QStringLiteral("match"));
  choice->setAccessibleName(QStringLiteral("Match"));
  choice->setToolTip(QStringLiteral("The match of the competition that is watched"));
  choice->setProperty("compact", true);
  choice->setFixedHeight(line_height);
  choice->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  choice->setMinimumContentsLength(16);
  for (const watched_match& match : player_.matches()) choice->addItem(shown(match.line()));
  choice->setCurrentIndex(player_.match());
  connect(choice, &QComboBox::currentIndexChanged, this,
          [this](int match) { guarded([this, match] { choose_match(match); }); });
  last_line()->addWidget(choice);
  controls_ << choice;
}

/// Beside a report the line only says which ball is shown, as its buttons are dead there.
void WatchWindow::note_beside(bool beside) {
  for (QWidget* control : controls_) control->setVisible(!beside);
  ConsoleWindow::note_beside(beside);
}

void WatchWindow::add_player_foot() {
  add_aside(add_button(QStringLiteral("close"), {.caption = QStringLiteral("Close"), .mnemonic = u'L'}, [this] {
    pause();
    accept();
  }));
  auto* apart = new QWidget;
  apart->setObjectName(QStringLiteral("apart"));
  add_aside(apart);
  add_reports();
  add_beside_buttons(new_pace_choice());
  const auto sign = [](QPushButton* button, const QString& text) {
    button->setText(text);
    button->setMinimumWidth(36);
    return button;
  };
  add_beside_buttons(sign(new_jump("over_back", "Over back", QKeySequence(Qt::SHIFT | Qt::Key_J),
                                   "Back to the end of the over before", ball_mark::over, false),
                          QStringLiteral("\u00AB")));
  add_beside_buttons(
      sign(new_jump("ball_back", "Ball back", QKeySequence(Qt::Key_J), "Back by a ball", ball_mark::ball, false),
           QStringLiteral("\u2039")));
  play_ = add_default_button(QStringLiteral("play"),
                             {.caption = QStringLiteral("Play"),
                              .mnemonic = u'P',
                              .key = QKeySequence(Qt::Key_K),
                              .hint = QStringLiteral("Plays on from here at the chosen pace, or stops; Return does the "
                                                     "same, Escape stops")},
                             [this] { runs() ? pause() : play(); });
  play_->setMinimumWidth(88);  // "Pause" has room, too
  add_beside_buttons(
      sign(new_jump("ball_on", "Ball on", QKeySequence(Qt::Key_L), "On by a ball", ball_mark::ball, true),
           QStringLiteral("\u203A")));
  add_beside_buttons(sign(new_jump("over_on", "Over on", QKeySequence(Qt::SHIFT | Qt::Key_L),
                                   "On to the end of an over", ball_mark::over, true),
                          QStringLiteral("\u00BB")));
}

std::optional<int> WatchWindow::target_of(const Jump& jump) const {
  return jump.on ? next_mark(player_.index(), place_, jump.mark) : mark_before(player_.index(), place_, jump.mark);
}

void WatchWindow::choose_match(int match) {
  pause();
  player_.choose_match(match);
  forget_commentary();
  place_ = 0;
  seek(0);
}

void WatchWindow::seek(int place) {
  const int from = place_;
  place_ = std::clamp(place, 0, static_cast<int>(player_.index().size()) - 1);
  const ball_index& index = player_.index();
  const auto innings_at = [&](int at) { return index[static_cast<std::size_t>(at)].innings; };
  if (place_ < from || innings_at(place_) != innings_at(from)) forget_commentary();
  shown_ = player_.at(place_);
  refresh();
  if (Frame* around = main_window()) {
    const score_view score = view_score(shown_);
    around->show_score(shown(score.batting_short_name + "  " + score.score + "  " + score.overs));
  }
  show_place();
  tell(from);
}

/// What was told of this moment passes by.
void WatchWindow::tell(int from) {
  QStringList told;
  for (const std::string& text : player_.index()[static_cast<std::size_t>(place_)].told) {
    told << shown(text).simplified();
    if (place_ == from + 1) message_passed(told.back());
  }
  if (main_window() != nullptr) main_window()->show_passing(told.join(QStringLiteral("; ")));
}

void WatchWindow::show_place() {
  const ball_index& index = player_.index();
  const innings_span span = innings_around(index, place_);
  std::vector<int> wickets;
  std::vector<int> tens;
  for (int place = span.first; place <= span.last; ++place) {
    const watched_ball& ball = index[static_cast<std::size_t>(place)];
    if (ball.is_wicket()) wickets.push_back(place);
    if (ball.ends_over && ball.bowled.over % 10 == 0 && !ball.opens_innings()) tens.push_back(place);
  }
  const QSignalBlocker quiet(slider_);
  slider_->setRange(span.first, span.last);
  slider_->setValue(place_);
  slider_->set_marks(std::move(wickets), std::move(tens));
  overs_->setText(shown(shown_.overs_text()));
  slider_->setAccessibleDescription(QStringLiteral("%1 overs").arg(overs_->text()));
  for (int i = 0; i < 2; ++i) {
    QPushButton* button = innings_[static_cast<std::size_t>(i)];
    button->setChecked(index[static_cast<std::size_t>(place_)].innings == i + 1);
    button->setEnabled(i == 0 || index.back().innings == 2);
  }
  for (const Jump& jump : jumps_) jump.button->setEnabled(target_of(jump).has_value());
}

void WatchWindow::play() {
  if (place_ + 1 == static_cast<int>(player_.index().size())) seek(0);
  play_->setText(button_text(QStringLiteral("Pause"), u'P'));
  play_->setAccessibleName(QStringLiteral("Pause"));
  clock_.start(pause_of(preferences::pace()));
}

void WatchWindow::pause() {
  clock_.stop();
  if (play_ == nullptr) return;
  play_->setText(button_text(QStringLiteral("Play"), u'P'));
  play_->setAccessibleName(QStringLiteral("Play"));
}

void WatchWindow::play_on() {
  // What has opened over it shows the match as it stands.
  const bool covered = main_window() != nullptr ? main_window()->top() != this : front_window() != this;
  const ball_mark step = preferences::pace() == Pace::instant ? ball_mark::over : ball_mark::ball;
  const std::optional<int> next = next_mark(player_.index(), place_, step);
  if (covered || !next) return pause();
  seek(*next);
  if (place_ + 1 == static_cast<int>(player_.index().size())) return pause();
  clock_.start(pause_of(preferences::pace()));
}

void WatchWindow::closeEvent(QCloseEvent* event) {
  pause();
  // Leaving needs no question: nothing of what is watched can be lost.
  Form::closeEvent(event);  // NOLINT(bugprone-parent-virtual-call)
}

}  // namespace velorin
