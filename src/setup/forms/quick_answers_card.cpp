// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/quick_answers_card.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "model/random.h"
#include "model/rules.h"
#include "model/run_time_error.h"

namespace velorin {

struct QuickAnswersCard::Answer {
  const char* name;
  const char* question;
  char16_t mnemonic;
  bool QuickAnswers::*answered;
  QWidget* (QuickAnswersCard::*how)();
};

const std::array<QuickAnswersCard::Answer, 4>& QuickAnswersCard::answers() {
  static const std::array<Answer, 4> all = {{
      {"answers_conditions", "Conditions", u'd', &QuickAnswers::conditions, &QuickAnswersCard::new_conditions},
      {"answers_elevens", "Elevens", u'E', &QuickAnswers::elevens, &QuickAnswersCard::new_elevens},
      {"answers_toss", "Toss", u'o', &QuickAnswers::toss, &QuickAnswersCard::new_toss},
      {"answers_openers", "Openers", u'n', &QuickAnswers::openers, &QuickAnswersCard::new_openers},
  }};
  return all;
}

QuickAnswersCard::QuickAnswersCard(const match_play& play, QWidget* parent)
    : QFrame(parent), play_(play), sky_(draw_sky_ahead(play.chance)), answered_(preferences::quick_answers()) {
  setProperty("card", true);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(8);
  rows->addWidget(new_label(QStringLiteral("The computer answers for you"), TextRole::heading));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(6);
  grid->setColumnStretch(1, 1);
  for (std::size_t i = 0; i < answers().size(); ++i) {
    const Answer& answer = answers()[i];
    add_answer(*grid, static_cast<int>(i), answer);
    how_[i] = (this->*answer.how)();
    how_[i]->setObjectName(QStringLiteral("%1_how").arg(QLatin1String(answer.name)));
    words_[i] = new_named_label(QStringLiteral("%1_words").arg(QLatin1String(answer.name)), {}, TextRole::muted);
    auto* place = new QVBoxLayout;
    place->setSpacing(0);
    place->addWidget(how_[i]);
    place->addWidget(words_[i]);
    grid->addLayout(place, static_cast<int>(i), 1);
  }
  rows->addLayout(grid);
}

void QuickAnswersCard::add_answer(QGridLayout& grid, int row, const Answer& answer) {
  auto* box = new QCheckBox;
  box->setObjectName(QString::fromLatin1(answer.name));
  box->setText(button_text(QString::fromLatin1(answer.question), answer.mnemonic));
  box->setAccessibleName(QStringLiteral("%1: answered by the computer").arg(QLatin1String(answer.question)));
  box->setToolTip(QStringLiteral("Without a tick you are asked (Alt+%1)").arg(QChar(answer.mnemonic).toUpper()));
  box->setChecked(answered_.*answer.answered);
  connect(box, &QCheckBox::toggled, this, [this, &answer](bool on) {
    answered_.*answer.answered = on;
    show_how();
  });
  controls_ << box;
  grid.addWidget(box, row, 0, Qt::AlignTop);
}

QComboBox* QuickAnswersCard::new_list(const QString& name, const QString& spoken, const QStringList& entries) {
  auto* list = new QComboBox;
  list->setObjectName(name);
  list->setAccessibleName(spoken);
  list->setToolTip(spoken);
  list->setProperty("compact", true);
  list->setMaxVisibleItems(men_in_eleven);
  list->addItems(entries);
  controls_ << list;
  return list;
}

/// The four levels in words, as they are drawn until another one is chosen.
QWidget* QuickAnswersCard::new_conditions() {
  const std::pair<const char*, QStringList> all[] = {
      {"Weather", {"Rain about", "Overcast", "Sunny", "Hot and humid"}},
      {"Pitch", {"Green pitch", "Cracked pitch", "Fair pitch", "Flat pitch"}},
      {"Bounce", {"High bounce", "Uneven bounce", "Fair bounce", "Even bounce"}},
      {"Outfield", {"Wet outfield", "Slow outfield", "Fast outfield", "Very fast outfield"}}};
  auto* how = new QWidget;
  auto* row = new QHBoxLayout(how);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  for (std::size_t i = 0; i < levels_.size(); ++i) {
    const QString what = QString::fromLatin1(all[i].first);
    levels_[i] = new_list(QStringLiteral("quick_") + what.toLower(), what, all[i].second);
    row->addWidget(levels_[i]);
  }
  row->addStretch(1);
  levels_[0]->setCurrentIndex(sky_.weather - 1);
  levels_[3]->setCurrentIndex(sky_.outfield - 1);
  return how;
}

QWidget* QuickAnswersCard::new_elevens() {
  auto* how = new QWidget;
  auto* rows = new QVBoxLayout(how);
  rows->setContentsMargins(0, 3, 0, 3);
  rows->setSpacing(4);
  for (std::size_t side = 0; side < elevens_.size(); ++side) {
    elevens_[side] = new_named_label(QStringLiteral("quick_eleven_%1").arg(side), {}, TextRole::body);
    elevens_[side]->setWordWrap(true);
    rows->addWidget(elevens_[side]);
  }
  return how;
}

QWidget* QuickAnswersCard::new_toss() {
  auto* how = new QWidget;
  auto* row = new QHBoxLayout(how);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(8);
  call_ = new_list(QStringLiteral("quick_call"), QStringLiteral("Call at the toss"), {"Heads", "Tails"});
  decision_ = new_list(QStringLiteral("quick_decision"), QStringLiteral("If the toss is won"), {"Bat", "Bowl"});
  row->addWidget(call_);
  row->addWidget(new_label(QStringLiteral("if won"), TextRole::muted));
  row->addWidget(decision_);
  row->addStretch(1);
  return how;
}

QWidget* QuickAnswersCard::new_openers() {
  auto* how = new QWidget;
  auto* rows = new QVBoxLayout(how);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(4);
  const char* const places[] = {"First opening batsman", "Second opening batsman", "First opening bowler",
                                "Second opening bowler"};
  for (std::size_t side = 0; side < openers_.size(); ++side) {
    Openers& of = openers_[side];
    of.row = new QWidget;
    auto* row = new QHBoxLayout(of.row);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    of.side = new_label({}, TextRole::muted);
    row->addWidget(of.side);
    for (std::size_t place = 0; place < of.men.size(); ++place) {
      if (place % 2 == 0)
        row->addWidget(new_label(place == 0 ? QStringLiteral("bat") : QStringLiteral("bowl"), TextRole::muted));
      of.men[place] =
          new_list(QStringLiteral("quick_opener_%1_%2").arg(side).arg(place), QString::fromLatin1(places[place]), {});
      of.men[place]->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
      of.men[place]->setMinimumContentsLength(6);
      of.men[place]->setSizeAdjustPolicy(QComboBox::AdjustToContents);
      connect(of.men[place], &QComboBox::activated, this, [this, side, place] { exchange_opener(side, place); });
      row->addWidget(of.men[place]);
    }
    row->addStretch(1);
    rows->addWidget(of.row);
  }
  return how;
}

void QuickAnswersCard::exchange_opener(std::size_t side, std::size_t place) {
  Openers& of = openers_[side];
  const std::size_t other = place ^ 1U;
  const int now = of.men[place]->currentIndex();
  if (of.men[other]->currentIndex() == now) {
    of.men[other]->setCurrentIndex(of.chosen[place]);
    of.chosen[other] = of.chosen[place];
  }
  of.chosen[place] = now;
}

void QuickAnswersCard::show_match(const std::array<chosen_team, 2>& teams, const std::string& ground,
                                  std::array<bool, 2> humans) {
  humans_ = humans;
  for (std::size_t side = 0; side < teams.size(); ++side) {
    if (known_[side] && teams[side].record == teams_[side].record) continue;
    known_[side] = false;
    try {
      if (teams[side].record != 0) {
        men_[side] = eleven_ahead(play_, teams[side]);
        known_[side] = true;
      }
    } catch (const run_time_error&) {
      // The match will tell of it.
    }
    teams_[side] = teams[side];
    show_openers(side);
  }
  try {
    const pitch_of_ground pitch = pitch_ahead(play_, ground);
    levels_[1]->setCurrentIndex(pitch.surface - 1);
    levels_[2]->setCurrentIndex(pitch.bounce - 1);
  } catch (const run_time_error&) {
    // Likewise.
  }
  show_elevens();
  show_how();
}

void QuickAnswersCard::show_elevens() {
  for (std::size_t side = 0; side < elevens_.size(); ++side) {
    QStringList names;
    for (int row = 1; row <= men_in_eleven && known_[side]; ++row) names << shown(men_[side][row].name);
    elevens_[side]->setText(QStringLiteral("%1: %2").arg(shown(teams_[side].name), names.join(QStringLiteral(", "))));
    elevens_[side]->setVisible(known_[side]);
  }
}

void QuickAnswersCard::show_openers(std::size_t side) {
  Openers& of = openers_[side];
  for (QComboBox* list : of.men) list->clear();
  if (!known_[side]) return;
  const eleven& men = men_[side];
  for (int row = 1; row <= men_in_eleven; ++row) {
    for (const std::size_t place : {0U, 1U}) of.men[place]->addItem(shown(men[row].name), row);
    for (const std::size_t place : {2U, 3U}) {
      if (men[row].is_keeper == 0) of.men[place]->addItem(shown(men[row].name), row);
    }
  }
  const std::array<int, 2> bowlers = best_bowlers_of(men);
  const std::array<int, 4> rows = {1, 2, bowlers[0], bowlers[1]};
  for (std::size_t place = 0; place < rows.size(); ++place) {
    of.chosen[place] = of.men[place]->findData(rows[place]);
    of.men[place]->setCurrentIndex(of.chosen[place]);
  }
}

void QuickAnswersCard::show_how() {
  const bool any_known = known_[0] || known_[1];
  const bool elevens_known = any_known && answered_.elevens;
  const bool any_human = humans_[0] || humans_[1];
  const std::array<bool, 4> shown_how = {true, any_known, true, elevens_known && any_human};
  const std::array<QString, 4> by_rule = {QString(), QStringLiteral("the best eleven men, as Auto Select picks them"),
                                          QString(),
                                          any_human ? QStringLiteral("the first two of the order; the two best bowlers")
                                                    : QStringLiteral("the captains' own")};
  for (std::size_t i = 0; i < answers().size(); ++i) {
    const bool on = answered_.*answers()[i].answered;
    how_[i]->setVisible(on && shown_how[i]);
    words_[i]->setVisible(!on || !shown_how[i]);
    words_[i]->setText(on ? by_rule[i] : QStringLiteral("you are asked"));
  }
  for (std::size_t side = 0; side < openers_.size(); ++side) {
    openers_[side].row->setVisible(humans_[side] && known_[side]);
    openers_[side].side->setText(shown(teams_[side].name));
    openers_[side].side->setVisible(humans_[0] && humans_[1]);
  }
}

QuickChoices QuickAnswersCard::choices() const {
  QuickChoices made;
  made.answered = answered_;
  std::array<int, 4> levels{};
  for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = levels_[i]->currentIndex() + 1;
  if (*std::min_element(levels.begin(), levels.end()) > 0) made.conditions = levels;
  made.calls_tails = call_->currentIndex() == 1;
  made.bowls_first = decision_->currentIndex() == 1;
  for (std::size_t side = 0; side < openers_.size() && answered_.elevens; ++side) {
    if (!known_[side]) continue;
    const auto name = [&](std::size_t place) {
      const int row = openers_[side].men[place]->currentData().toInt();
      return row == 0 ? std::string() : men_[side][row].name;
    };
    made.openers[teams_[side].name] = {{name(0), name(1)}, {name(2), name(3)}};
  }
  return made;
}

}  // namespace velorin
