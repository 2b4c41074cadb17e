// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/player_panels.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "console/console_view.h"
#include "database/open_database.h"
#include "database/photos.h"
#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/meter_bar.h"
#include "desktop/photo_view.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr QSize photo_size(72, 88);

QPushButton* small_button(const QString& name) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  return button;
}

void show_aggression(QPushButton& button, const QString& player, int aggression) {
  // The mnemonic stays, whatever the figure.
  const QString text = QStringLiteral("%1 %2").arg(button.property("caption").toString()).arg(aggression);
  if (button.text() != text) button.setText(text);
  const QString spoken = QStringLiteral("Aggression of %1: %2 of 5").arg(player.trimmed()).arg(aggression);
  if (button.accessibleName() != spoken) button.setAccessibleName(spoken);
}

/// Photos are looked for on disk only when another man comes.
void show_photo(const open_database& database, PhotoView& photo, QLabel& name, const QString& shown_name,
                const std::string& player) {
  if (name.property("player").toString() == shown(player) && name.property("asked").toBool()) {
    name.setText(shown_name);
    return;
  }
  name.setProperty("player", shown(player));
  name.setProperty("asked", true);
  name.setText(shown_name);
  photo.show_photo(shown(player), player.empty() ? std::nullopt : console_photo(database, player));
}

QHBoxLayout* name_row(QLabel* name, QLabel* figure) {
  auto* row = new QHBoxLayout;
  row->addWidget(name, 1);
  row->addWidget(figure);
  return row;
}

QHBoxLayout* button_row(QPushButton* aggression, QPushButton* profile) {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  row->addWidget(aggression, 1);
  row->addWidget(profile, 1);
  return row;
}

}  // namespace

BatsmanPanel::BatsmanPanel(const match_state& match, const open_database& database, int slot, QWidget* parent)
    : QWidget(parent), slot_(slot), match_(match), data_(database) {
  const QString number = QString::number(slot);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  photo_ = new PhotoView(QStringLiteral("batsman_photo_") + number, photo_size);
  name_ = new_named_label(QStringLiteral("batsman_name_") + number, {}, TextRole::heading);
  runs_ = new_named_label(QStringLiteral("batsman_runs_") + number, {}, TextRole::title);
  rest_ = new_named_label(QStringLiteral("batsman_figures_") + number, {}, TextRole::muted);
  settled_ = new MeterBar(QStringLiteral("settled_meter_") + number, QStringLiteral("Settled"), 915);
  aggression_ = small_button(QStringLiteral("batsman_aggression_") + number);
  name_act(*aggression_, {.caption = QStringLiteral("Aggression"),
                          .mnemonic = QChar(),
                          .key = QKeySequence(Qt::Key_1 + slot),
                          .hint = QStringLiteral("Set this batsman's aggression")});
  aggression_->setProperty("caption", QStringLiteral("Aggression"));
  profile_ = small_button(QStringLiteral("batsman_profile_") + number);
  name_act(*profile_, {.caption = QStringLiteral("Profile"),
                       .mnemonic = QChar(),
                       .key = QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_1 + slot)),
                       .hint = QStringLiteral("Open this batsman's career"),
                       .spoken = QStringLiteral("Profile of batsman %1").arg(slot + 1)});
  auto* rows = new QVBoxLayout;
  rows->setSpacing(4);
  rows->addLayout(name_row(name_, runs_));
  auto* middle = new QHBoxLayout;
  middle->setSpacing(12);
  middle->addWidget(rest_, 1);
  middle->addWidget(settled_);
  rows->addLayout(middle);
  rows->addLayout(button_row(aggression_, profile_));
  row->addWidget(photo_, 0, Qt::AlignVCenter);
  row->addLayout(rows, 1);
}

void BatsmanPanel::refresh() {
  const batsman_view view = view_batsman(match_, slot_);
  const std::string& player = match_.batting_card[view.position].name;
  show_photo(data_, *photo_, *name_, shown(view.name), player);
  runs_->setText(QStringLiteral("%1 (%2)").arg(view.runs).arg(view.balls));
  rest_->setText(QStringLiteral("4s %1   6s %2").arg(view.fours).arg(view.sixes));
  settled_->set_value(view.settled_meter);
  show_aggression(*aggression_, shown(player), view.aggression);
  aggression_->setEnabled(view.aggression_enabled);
  profile_->setAccessibleName(QStringLiteral("Profile of %1").arg(shown(player)));
}

void BatsmanPanel::set_photo_size(QSize size) { photo_->set_size(size); }

BowlerPanel::BowlerPanel(const match_state& match, const open_database& database, int slot, QWidget* parent)
    : QWidget(parent), slot_(slot), match_(match), data_(database) {
  const QString number = QString::number(slot);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(12);
  photo_ = new PhotoView(QStringLiteral("bowler_photo_") + number, photo_size);
  name_ = new_named_label(QStringLiteral("bowler_name_") + number, {}, TextRole::heading);
  auto* figures = new QHBoxLayout;
  figures->setSpacing(4);
  if (slot == 0) {
    static constexpr const char* names[] = {"bowler_overs", "bowler_maidens", "bowler_runs", "bowler_wickets"};
    for (int i = 0; i < 4; ++i) {
      if (i > 0) figures->addWidget(new_label(QStringLiteral("-"), TextRole::muted));
      figures_[static_cast<std::size_t>(i)] = new_named_label(QString::fromLatin1(names[i]), {}, TextRole::body);
      figures->addWidget(figures_[static_cast<std::size_t>(i)]);
    }
  } else {
    figures_[0] = new_named_label(QStringLiteral("next_figures"), {}, TextRole::body);
    figures->addWidget(figures_[0]);
  }
  figures->addStretch(1);
  figures->addWidget(
      new_label(slot == 0 ? QStringLiteral("bowls this over") : QStringLiteral("next over"), TextRole::small_muted));
  aggression_ = small_button(QStringLiteral("bowler_aggression_") + number);
  name_act(*aggression_, {.caption = QStringLiteral("Aggression"),
                          .mnemonic = QChar(),
                          .key = QKeySequence(Qt::Key_3 + slot),
                          .hint = QStringLiteral("Set this bowler's aggression")});
  aggression_->setProperty("caption", QStringLiteral("Aggression"));
  profile_ = small_button(QStringLiteral("bowler_profile_") + number);
  name_act(*profile_, {.caption = QStringLiteral("Profile"),
                       .mnemonic = QChar(),
                       .key = QKeySequence(Qt::CTRL | static_cast<Qt::Key>(Qt::Key_3 + slot)),
                       .hint = QStringLiteral("Open this bowler's career"),
                       .spoken = QStringLiteral("Profile of bowler %1").arg(slot + 1)});
  auto* rows = new QVBoxLayout;
  rows->setSpacing(4);
  rows->addWidget(name_);
  rows->addLayout(figures);
  rows->addLayout(button_row(aggression_, profile_));
  row->addWidget(photo_, 0, Qt::AlignVCenter);
  row->addLayout(rows, 1);
}

void BowlerPanel::set_photo_size(QSize size) { photo_->set_size(size); }

void BowlerPanel::refresh() {
  const bowlers_view view = view_bowlers(match_);
  const std::string& player = slot_ == 0 ? view.bowler : view.next_bowler;
  show_photo(data_, *photo_, *name_, shown(player), player);
  if (slot_ == 0) {
    const std::string* const texts[] = {&view.overs, &view.maidens, &view.runs, &view.wickets};
    for (std::size_t i = 0; i < 4; ++i) figures_[i]->setText(shown(*texts[i]));
  } else {
    figures_[0]->setText(shown(view.next_figures));
  }
  show_aggression(*aggression_, shown(player), view.aggression[static_cast<std::size_t>(slot_)]);
  aggression_->setEnabled(view.change_enabled);
  profile_->setAccessibleName(QStringLiteral("Profile of %1").arg(shown(player)));
}

}  // namespace velorin
