// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/player_panels.h"

#include <QEvent>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QScopedValueRollback>
#include <algorithm>
#include <cmath>

#include "console/console_view.h"
#include "console/recent_play.h"
#include "database/open_database.h"
#include "database/photos.h"
#include "desktop/controls.h"
#include "desktop/enlarged.h"
#include "desktop/form.h"
#include "desktop/level_segments.h"
#include "desktop/meter_bar.h"
#include "desktop/photo_view.h"
#include "desktop/shown_text.h"
#include "desktop/terms.h"
#include "engine/ball_odds.h"
#include "engine/forms/ball_chip.h"
#include "model/match_state.h"

namespace velorin {

namespace {

constexpr QSize batsman_photo(57, 70);
constexpr QSize bowler_photo(54, 54);
constexpr std::size_t most_balls = 16;

QStringList shown_list(const std::vector<std::string>& symbols) {
  QStringList list;
  for (const std::string& symbol : symbols) list << shown(symbol);
  return list;
}

/// A button that looks like a text.
QPushButton* new_link(const QString& name) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  button->setProperty("link", true);
  button->setProperty("flush", true);
  return button;
}

QHBoxLayout* in_row(std::initializer_list<QWidget*> widgets, int spacing, QWidget* stretched) {
  auto* row = new QHBoxLayout;
  row->setSpacing(spacing);
  for (QWidget* widget : widgets) row->addWidget(widget, widget == stretched ? 1 : 0);
  return row;
}

QString signed_rate(double worth) {
  const double rounded = std::round(worth * 10) / 10;
  return (rounded < 0 ? QStringLiteral("\u2212%1") : QStringLiteral("+%1")).arg(std::abs(rounded), 0, 'f', 1);
}

}  // namespace

PlayerPanel::PlayerPanel(const QString& whose, int slot, Qt::Key key, QSize photo, QWidget* parent)
    : QWidget(parent),
      slot_(slot),
      photo_(new PhotoView(QStringLiteral("%1_photo_%2").arg(whose).arg(slot), photo)),
      profile_(new_link(QStringLiteral("%1_profile_%2").arg(whose).arg(slot))),
      aggression_(new_link(QStringLiteral("%1_aggression_%2").arg(whose).arg(slot))),
      levels_(new LevelSegments(QStringLiteral("%1_level_%2").arg(whose).arg(slot))),
      answer_(new_named_label(QStringLiteral("%1_answer_%2").arg(whose).arg(slot), {}, TextRole::small_muted)),
      usual_photo_(photo) {
  setObjectName(QStringLiteral("%1_%2").arg(whose).arg(slot));
  name_act(*profile_, {.caption = QString(),
                       .mnemonic = QChar(),
                       .key = QKeySequence(Qt::CTRL | key),
                       .hint = QStringLiteral("Open this %1's career").arg(whose),
                       .spoken = QStringLiteral("Profile of %1 %2").arg(whose).arg(slot + 1)});
  name_act(*aggression_, {.caption = QStringLiteral("Aggression"),
                          .mnemonic = QChar(),
                          .key = QKeySequence(key),
                          .hint = QStringLiteral("Set this %1's aggression").arg(whose)});
}

void PlayerPanel::lay_out(std::initializer_list<QLayout*> rows) {
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  whole->setSpacing(4);
  whole->addStretch(1);
  auto* top = new QHBoxLayout;
  top->setSpacing(8);
  top->addWidget(photo_, 0, Qt::AlignVCenter);
  auto* beside = new QVBoxLayout;
  beside->setSpacing(2);
  beside->addStretch(1);
  for (QLayout* row : rows) beside->addLayout(row);
  beside->addStretch(1);
  beside_ = beside;
  top->addLayout(beside, 1);
  whole->addLayout(top);
  whole->addLayout(in_row({aggression_, levels_}, 4, levels_));
  answer_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  answer_->hide();
  whole->addWidget(answer_);
  whole->addStretch(1);
}

void PlayerPanel::set_compact(bool compact) {
  compact_ = compact;
  levels_->set_low(compact);
  set_usual_room(*this, *layout(), {}, compact ? 2 : 4);
  set_usual_room(*this, *beside_, {}, compact ? 1 : 2);
  if (compact) answer_->hide();
  photo_->set_size(least_photo());
  updateGeometry();
}

QSize PlayerPanel::least_photo() const {
  constexpr QSize small(38, 46);
  return (compact_ ? small : usual_photo_) * enlargement(*this);
}

void PlayerPanel::leave_out(QWidget& part, bool left_out) {
  if (left_out_.contains(&part) == left_out) return;
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(!left_out);
  part.setSizePolicy(policy);
  if (left_out) {
    left_out_ << &part;
  } else {
    left_out_.removeOne(&part);
  }
  part.setVisible(!left_out && photo_->shows_somebody());
}

bool PlayerPanel::event(QEvent* event) {
  const bool known = QWidget::event(event);
  // Its parts may need more or less than they did when it got its size.
  if (event->type() == QEvent::LayoutRequest) share_height();
  return known;
}

void PlayerPanel::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fit_caption();
  share_height();
}

void PlayerPanel::share_height() {
  // Showing the answer lays the card out anew: what comes of that is asked for behind it.
  if (sharing_) return;
  const QScopedValueRollback<bool> once(sharing_, true);
  const int highest_photo = enlarged(*this, 108);
  const QSize least = least_photo();
  int spare = compact_ ? 0 : height() - minimumSizeHint().height();
  const int words = answer_->minimumSizeHint().height() + layout()->spacing();
  // Two panels in a card may differ by a pixel, and show the same all the same.
  answer_->setVisible(!compact_ && spare + 1 >= words);
  spare = answer_->isHidden() ? 0 : std::max(0, spare - words);
  // What stands beside it keeps its room.
  const int widest = beside_ == nullptr ? least.width() : width() - 8 - beside_->minimumSize().width();
  const int tallest = std::clamp(widest * 11 / 9, least.height(), std::max(least.height(), highest_photo));
  const int tall = std::clamp(least.height() + spare, least.height(), tallest);
  photo_->set_size({std::max(least.width(), tall * 9 / 11), tall});
}

/// The answers of the levels need the room more than a long caption does.
void PlayerPanel::fit_caption() {
  const QString whole = QStringLiteral("Aggression");
  const int caption = aggression_->fontMetrics().horizontalAdvance(whole) + 16;
  const bool fits = !compact_ && levels_->sizeHint().width() + caption <= width();
  const QString wanted = fits ? whole : QStringLiteral("Agg.");
  if (aggression_->text() != wanted) aggression_->setText(wanted);
}

QSize PlayerPanel::minimumSizeHint() const {
  QSize least = QWidget::minimumSizeHint();
  if (beside_ == nullptr) return least;
  if (!answer_->isHidden()) least.rheight() -= answer_->minimumSizeHint().height() + layout()->spacing();
  const int rows = beside_->minimumSize().height();
  const QSize photo = least_photo();
  least.rheight() -= std::max(rows, photo_->height()) - std::max(rows, photo.height());
  least.rwidth() -= std::max(0, photo_->width() - photo.width());
  return least;
}

void PlayerPanel::show_man(const open_database& database, const QString& shown_name, const std::string& player,
                           const std::string& team) {
  const bool nobody = player.empty();
  profile_->setEnabled(!nobody);
  for (QWidget* each : findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
    if (each == photo_ || each == profile_ || each == answer_ || left_out_.contains(each)) continue;
    QSizePolicy policy = each->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    each->setSizePolicy(policy);
    each->setVisible(!nobody);
  }
  if (nobody) {
    profile_->setText(QStringLiteral("To come"));
    profile_->setAccessibleName(QStringLiteral("To come"));
    profile_->setProperty("asked", false);
    return photo_->show_photo({}, std::nullopt, {});
  }
  const QString text = button_text(shown_name);
  if (profile_->text() != text) profile_->setText(text);
  const QString man = shown(player + '/' + team);
  if (profile_->property("player").toString() == man && profile_->property("asked").toBool()) return;
  profile_->setProperty("player", man);
  profile_->setProperty("asked", true);
  profile_->setAccessibleName(QStringLiteral("Profile of %1").arg(shown(player)));
  photo_->show_photo(shown(player), player.empty() ? std::nullopt : console_photo(database, player), shown(team));
}

void PlayerPanel::show_aggression(const std::string& player, int level, const aggression_odds& odds, bool enabled) {
  if (player.empty()) return answer_->setText({});
  const QString whose = shown(player).trimmed();
  const QString spoken = QStringLiteral("Aggression of %1: %2 of 5").arg(whose).arg(level);
  if (aggression_->accessibleName() != spoken) aggression_->setAccessibleName(spoken);
  aggression_->setEnabled(enabled);
  levels_->show_levels(whose, level, odds, enabled);
  const bool known = level >= least_aggression && level <= most_aggression;
  const std::string sentence =
      known ? odds_sentence(odds[static_cast<std::size_t>(level - least_aggression)]) : std::string();
  answer_->setText(known ? QStringLiteral("%1: %2").arg(level).arg(shown(sentence)) : QString());
}

BatsmanPanel::BatsmanPanel(const match_state& match, const open_database& database, int slot, QWidget* parent)
    : PlayerPanel(QStringLiteral("batsman"), slot, static_cast<Qt::Key>(Qt::Key_1 + slot), batsman_photo, parent),
      match_(match),
      data_(database) {
  const QString number = QString::number(slot);
  runs_ = new_named_label(QStringLiteral("batsman_runs_") + number, {}, TextRole::heading);
  gained_ = new_named_label(QStringLiteral("batsman_gained_") + number, {}, TextRole::accent);
  gained_->setToolTip(QStringLiteral("Runs and balls in the last over"));
  rest_ = new_named_label(QStringLiteral("batsman_figures_") + number, {}, TextRole::small_muted);
  rest_->setToolTip(meaning_of(QStringLiteral("4s")) + QLatin1Char('\n') + meaning_of(QStringLiteral("6s")));
  out_ = new_named_label(QStringLiteral("batsman_out_") + number, QStringLiteral("out"), TextRole::red);
  faced_ = new BallChips(QStringLiteral("batsman_balls_") + number, QStringLiteral("Last balls faced"));
  settled_ = new MeterBar(QStringLiteral("settled_meter_") + number, QStringLiteral("Settled"), full_meter);
  settled_->setMinimumWidth(32);
  worth_ = new_named_label(QStringLiteral("settled_worth_") + number, {}, TextRole::small_muted);
  worth_->setToolTip(QStringLiteral("How well he has settled, and what that adds to the runs of an over"));
  QHBoxLayout* names = in_row({profile_}, 8, nullptr);
  names->addStretch(1);
  names->addWidget(out_);
  names->addWidget(runs_);
  leave_out(*out_, true);
  lay_out({names, in_row({faced_, gained_}, 8, faced_), in_row({settled_, worth_, rest_}, 8, settled_)});
  rest_->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  rest_->setSizePolicy(QSizePolicy::MinimumExpanding, QSizePolicy::Preferred);
}

void BatsmanPanel::resizeEvent(QResizeEvent* event) {
  runs_->setFont(type_font(*this, is_compact() ? TypeStep::strong : TypeStep::heading));
  constexpr int room_for_the_bar = 340;
  leave_out(*settled_, is_compact() || width() < enlarged(*this, room_for_the_bar));
  settled_->setFixedHeight(enlarged(*this, 10));
  PlayerPanel::resizeEvent(event);
}

void BatsmanPanel::refresh() {
  const batsman_view view = view_batsman(match_, slot_);
  const std::string& player = match_.batting_card[view.position].name;
  show_man(data_, shown(view.name), player, match_.team1_name);
  runs_->setText(QStringLiteral("%1 (%2)").arg(view.runs).arg(view.balls));
  rest_->setText(QStringLiteral("4s %1  6s %2").arg(view.fours).arg(view.sixes));
  const over_share share = batsman_in_last_over(match_, view.position);
  gained_->setText(share.any ? QStringLiteral("+%1 (%2)").arg(share.runs).arg(share.balls) : QString());
  faced_->set_symbols(shown_list(balls_faced(match_, view.position, most_balls)));
  settled_->set_value(view.settled_meter);
  const auto worth = meter_worth(match_, slot_);
  const int percent = static_cast<int>(100 * view.settled_meter / full_meter);
  worth_->setText(worth ? QStringLiteral("Settled %1 %: %2 an over").arg(percent).arg(signed_rate(*worth))
                        : QStringLiteral("Settled %1 %").arg(percent));
  show_aggression(player, view.aggression, batting_odds(match_, slot_), view.aggression_enabled);
  // He who is out stays until another man comes, and can be told nothing any more.
  const bool out = !player.empty() && match_.batting_card[view.position].how != dismissal::none;
  leave_out(*out_, !out);
  setEnabled(!out);
}

BowlerPanel::BowlerPanel(const match_state& match, const open_database& database, int slot, QWidget* parent)
    : PlayerPanel(QStringLiteral("bowler"), slot, static_cast<Qt::Key>(Qt::Key_3 + slot), bowler_photo, parent),
      match_(match),
      data_(database) {
  const QString number = QString::number(slot);
  QHBoxLayout* names = in_row({profile_}, 3, nullptr);
  names->addStretch(1);
  if (slot == 0) {
    static constexpr const char* figures[] = {"bowler_overs", "bowler_maidens", "bowler_runs", "bowler_wickets"};
    for (std::size_t i = 0; i < 4; ++i) {
      if (i > 0) names->addWidget(new_label(QStringLiteral("-"), TextRole::muted));
      figures_[i] = new_named_label(QString::fromLatin1(figures[i]), {}, TextRole::strong);
      explain(*figures_[i], QStringLiteral("O-M-R-W"));
      names->addWidget(figures_[i]);
    }
  } else {
    figures_[0] = new_named_label(QStringLiteral("next_figures"), {}, TextRole::strong);
    explain(*figures_[0], QStringLiteral("O-M-R-W"));
    names->addWidget(figures_[0]);
  }
  bowled_ = new BallChips(QStringLiteral("bowler_balls_") + number, QStringLiteral("Last balls bowled"));
  last_over_ = new_named_label(QStringLiteral("bowler_last_over_") + number, {}, TextRole::small_muted);
  lay_out({names, in_row({bowled_, last_over_}, 8, bowled_)});
}

void BowlerPanel::refresh() {
  const bowlers_view view = view_bowlers(match_);
  const std::string& player = slot_ == 0 ? view.bowler : view.next_bowler;
  const int position = slot_ == 0 ? match_.bowler : match_.next_bowler;
  show_man(data_, shown(player), player, match_.team2_name);
  if (slot_ == 0) {
    const std::string* const texts[] = {&view.overs, &view.maidens, &view.runs, &view.wickets};
    for (std::size_t i = 0; i < 4; ++i) figures_[i]->setText(shown(*texts[i]));
  } else {
    figures_[0]->setText(shown(view.next_figures));
  }
  bowled_->set_symbols(shown_list(balls_bowled(match_, position, most_balls)));
  const over_share share = bowler_in_his_last_over(match_, position);
  const QString when = slot_ == 0 ? QStringLiteral("this over") : QStringLiteral("next over");
  last_over_->setText(share.any ? QStringLiteral("%1 \u00B7 last %2/%3").arg(when).arg(share.runs).arg(share.wickets)
                                : when);
  show_aggression(player, view.aggression[static_cast<std::size_t>(slot_)], bowling_odds(match_, slot_),
                  view.change_enabled);
}

}  // namespace velorin
