// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/captaincy_window.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "engine/forms/console_window.h"
#include "engine/forms/forecast_bar.h"
#include "engine/forms/levels_adviser.h"
#include "engine/forms/next_ball_window.h"
#include "engine/forms/player_panels.h"
#include "engine/forms/rates_panel.h"
#include "forecast/forecast_words.h"
#include "model/match_state.h"

// What the console shows of the forecast.

namespace velorin {

namespace {

QPushButton* new_choice(const char* name, const Act& act) {
  auto* button = new QPushButton;
  button->setObjectName(QString::fromLatin1(name));
  button->setAutoDefault(false);
  button->setProperty("slim", true);
  name_act(*button, act);
  return button;
}

}  // namespace

void ConsoleWindow::add_forecast() {
  forecast_ = new ForecastBar(match_);
  static_cast<QVBoxLayout*>(layout())->insertWidget(1, forecast_);
  forecast_->on_asked([this] { rates_->mute_forecast(); });
  forecast_->on_answer([this](const forecast_answer* answer) {
    if (answer == nullptr) return rates_->show_forecast({}, {});
    const total_forecast& total = match_.innings_number % 2 == 1 ? answer->first_total : answer->second_total;
    rates_->show_forecast(shown(total_words(total)),
                          QStringLiteral("Forecast of the total: %1").arg(shown(total_sentence(total))));
  });
}

QWidget* ConsoleWindow::new_forecast_choices() {
  forecast_choice_ =
      new_choice("forecast", {.caption = QStringLiteral("Forecast"),
                              .mnemonic = QChar(),
                              .key = is_watched() ? QKeySequence(Qt::SHIFT | Qt::Key_F) : QKeySequence(Qt::Key_F),
                              .hint = QStringLiteral("Each side's chance of winning, from the rest of "
                                                     "the match played many times behind play")});
  forecast_choice_->setCheckable(true);
  forecast_choice_->setChecked(preferences::forecast());
  connect(forecast_choice_, &QPushButton::toggled, this, [this](bool on) {
    guarded([&] {
      preferences::set_forecast(on);
      show_forecast(on);
    });
  });
  next_ball_ = new_choice("next_ball", {.caption = QStringLiteral("Next Ball"),
                                        .mnemonic = QChar(),
                                        .key = QKeySequence(Qt::Key_B),
                                        .hint = QStringLiteral("What the next ball brings, and how likely each is")});
  connect(next_ball_, &QPushButton::clicked, this, [this] {
    if (playing_) return;
    guarded([this] {
      NextBallWindow window(match_, this);
      run_modal(window);
    });
  });
  match_line_ = new_choice("show_match_line", {.caption = QStringLiteral("Win Line"),
                                               .mnemonic = QChar(),
                                               .key = QKeySequence(is_watched() ? Qt::Key_N : Qt::Key_L),
                                               .hint = QStringLiteral("How the chance of winning has moved, ball by "
                                                                      "ball")});
  connect(match_line_, &QPushButton::clicked, this, [this] {
    if (!playing_ && open_match_line_) guarded(open_match_line_);
  });
  match_centre_ = new_choice("show_match_centre", {.caption = QStringLiteral("Match Centre"),
                                                   .mnemonic = QChar(),
                                                   .key = QKeySequence(Qt::Key_H),
                                                   .hint = QStringLiteral("Cards, commentary, phases, stands and "
                                                                          "more of this match")});
  match_centre_->hide();
  connect(match_centre_, &QPushButton::clicked, this, [this] {
    if (!playing_ && open_match_centre_) guarded(open_match_centre_);
  });
  captaincy_ = new_choice("captaincy", {.caption = QStringLiteral("Captain"),
                                        .mnemonic = QChar(),
                                        .key = QKeySequence(Qt::Key_Y),
                                        .hint = QStringLiteral("What you leave to the computer, and the adviser"),
                                        .spoken = QStringLiteral("Captaincy")});
  if (is_watched()) captaincy_->hide();
  connect(captaincy_, &QPushButton::clicked, this, [this] {
    if (playing_) return;
    guarded([this] {
      CaptaincyWindow window(this);
      run_modal(window);
      refresh();
    });
  });
  auto* choices = new QWidget;
  auto* row = new QHBoxLayout(choices);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  for (QPushButton* button : {captaincy_, match_centre_, next_ball_, match_line_, forecast_choice_})
    row->addWidget(button);
  show_forecast(preferences::forecast());
  return choices;
}

void ConsoleWindow::show_forecast(bool on) {
  next_ball_->setVisible(on);
  match_line_->setVisible(on && open_match_line_ != nullptr);
  forecast_->show_forecast(on);
}

void ConsoleWindow::refresh_adviser() {
  if (next_over_ == nullptr || batsmen_[1] == nullptr || bowlers_[1] == nullptr) return;
  if (adviser_ == nullptr) {
    adviser_ = new LevelsAdviser(match_, {batsmen_[0]->levels(), batsmen_[1]->levels()},
                                 {bowlers_[0]->levels(), bowlers_[1]->levels()}, this);
    adviser_->setObjectName(QStringLiteral("levels_adviser"));
  }
  adviser_->refresh(forecast_->standing(), in_use_ && !playing_ && preferences::adviser());
}

void ConsoleWindow::on_match_line(std::function<void()> open) {
  open_match_line_ = std::move(open);
  match_line_->setVisible(forecast_choice_->isChecked() && open_match_line_ != nullptr);
}

}  // namespace velorin
