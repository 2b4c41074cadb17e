// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/world_cup_tables_window.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>
#include <span>
#include <vector>

#include "competitions/forms/cup_progress.h"
#include "competitions/forms/league_view.h"
#include "competitions/next_match.h"
#include "competitions/world_cup.h"
#include "competitions/world_cup_tables.h"
#include "desktop/card_flow.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

/// A table under its heading.
QWidget* new_table(const QString& name, const char* heading, const std::vector<league_texts>& rows, int room,
                   const std::function<bool(const std::string& team)>& is_human) {
  auto* card = new QWidget;
  auto* column = new QVBoxLayout(card);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  const QString title = QString::fromLatin1(heading);
  auto* head = new_label(title, TextRole::heading);
  head->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  column->addWidget(head);
  std::vector<bool> human;
  human.reserve(rows.size());
  for (const league_texts& row : rows) human.push_back(is_human(row.front()));
  column->addWidget(new_league_view(name, title, rows, cup_headings, room, human), 1);
  column->addStretch();
  return card;
}

bool human_in_any(const world_cup_record& world_cup, const std::string& team) {
  return has_super_six(world_cup) && (human_in_group_a(world_cup, team) || human_in_group_b(world_cup, team));
}

}  // namespace

WorldCupTablesWindow::WorldCupTablesWindow(const world_cup_record& world_cup, world_cup_tables_form& form,
                                           QWidget* parent)
    : Form(QStringLiteral("wcsstab"), Dismissal::closes, parent), form_(form) {
  set_title(QStringLiteral("World Cup Tables"), QStringLiteral("World Cup Tables"));
  show_picture();
  set_subheading(cup_progress(world_cup));
  const auto in_group_a = [&](const std::string& team) { return human_in_group_a(world_cup, team); };
  const auto in_group_b = [&](const std::string& team) { return human_in_group_b(world_cup, team); };
  const auto in_any = [&](const std::string& team) { return human_in_any(world_cup, team); };
  auto* groups = new CardFlow(24);
  groups->add_card(new_table(QStringLiteral("group_a"), "Group A Table", form_.group_a, cup_group_teams, in_group_a));
  groups->add_card(new_table(QStringLiteral("group_b"), "Group B Table", form_.group_b, cup_group_teams, in_group_b));
  auto* later = new CardFlow(24);
  later->add_card(
      new_table(QStringLiteral("super_six"), "Super Six Table", form_.super_six, cup_super_six_places, in_any));
  later->add_card(new_knock_out(world_cup.grand_final.winner));
  auto* rows = new_column(body(), 1480);
  rows->addLayout(groups);
  rows->addSpacing(8);
  rows->addLayout(later);
  rows->addStretch(1);
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, close)->setFocus();
  on_dismiss(close);
}

void WorldCupTablesWindow::lead_to(const PlayedMatches& played) {
  const std::array<const char*, cup_knock_outs> names = {"Semi Final 1", "Semi Final 2", "Grand Final"};
  QWidget* before = findChild<TableView*>(QStringLiteral("super_six"));
  for (int tie = 0; tie < cup_knock_outs; ++tie) {
    const int number = cup_last_fixture + tie + 1;
    if (!played.has(number)) continue;
    const auto at = static_cast<std::size_t>(tie);
    auto* button = new QPushButton;
    button->setObjectName(QStringLiteral("report_%1").arg(tie + 1));
    button->setAutoDefault(false);
    button->setProperty("compact", true);
    name_act(*button, {.caption = QStringLiteral("Report"),
                       .key = QKeySequence(Qt::Key_F2 + tie),
                       .hint = QStringLiteral("Report of the %1").arg(QLatin1String(names[at])),
                       .spoken = QStringLiteral("Report of the %1").arg(QLatin1String(names[at]))});
    connect(button, &QPushButton::clicked, this, [open = played.open, number] { guarded([&] { open(number); }); });
    ties_[at]->addWidget(button);
    setTabOrder(before, button);
    before = button;
  }
}

QWidget* WorldCupTablesWindow::new_knock_out(const std::string& champion) {
  QFrame* card = new_card();
  const auto add = [&](const char* caption, const char* name, const std::string& text, std::size_t tie) {
    auto* pair = new QVBoxLayout;
    pair->setSpacing(2);
    ties_[tie] = new QHBoxLayout;
    ties_[tie]->addWidget(new_label(QString::fromLatin1(caption), TextRole::small_muted));
    ties_[tie]->addStretch(1);
    pair->addLayout(ties_[tie]);
    auto* line = new_named_label(QString::fromLatin1(name), shown(text));
    line->setWordWrap(true);
    if (text.empty()) {
      line->hide();
      pair->addWidget(
          new_named_label(QStringLiteral("to_come_%1").arg(tie + 1), QStringLiteral("To come"), TextRole::muted));
    }
    pair->addWidget(line);
    card_rows(card)->addLayout(pair);
  };
  add("Semi Final 1", "first_semi_final", form_.first_semi_final, 0);
  add("Semi Final 2", "second_semi_final", form_.second_semi_final, 1);
  add("Grand Final", "grand_final", form_.grand_final, 2);
  card_rows(card)->addStretch(1);
  auto* winners = new_named_label(QStringLiteral("winners_line"), shown(form_.winners_line), TextRole::accent);
  winners->setWordWrap(true);
  if (champion.empty()) {
    card_rows(card)->addWidget(winners);
    winners->hide();  // there are none yet
    return card;
  }
  winners->setFont(type_font(TypeStep::title));
  auto* crest = new CrestView(QStringLiteral("champion"), 96);
  crest->show_team(shown(champion));
  auto* last = new QHBoxLayout;
  last->setSpacing(16);
  last->addWidget(crest);
  last->addWidget(winners, 1);
  card_rows(card)->addLayout(last);
  return card;
}

}  // namespace velorin
