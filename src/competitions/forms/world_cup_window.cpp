// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/world_cup_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "competitions/world_cup.h"
#include "competitions/world_cup_form.h"
#include "database/open_database.h"
#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "desktop/ground_picture.h"
#include "desktop/last_choices.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "reports/worm_graph.h"

namespace velorin {

WorldCupWindow::WorldCupWindow(match_state& match, open_database& database, world_cup_record& world_cup,
                               world_cup_form& form, QWidget* parent)
    : Form(QStringLiteral("wctable"), Dismissal::closes, parent),
      form_(form),
      match_(match),
      data_(database),
      world_cup_(world_cup) {
  set_title(QStringLiteral("World Cup"), QStringLiteral("World Cup"));
  body()->setSpacing(16);
  auto* groups = new QHBoxLayout;
  groups->setSpacing(16);
  groups->addWidget(new_group(QStringLiteral("Group A"), QStringLiteral("group_a_team"),
                              QStringLiteral("group_a_human"), form_.group_a_index, form_.human_a));
  groups->addWidget(new_group(QStringLiteral("Group B"), QStringLiteral("group_b_team"),
                              QStringLiteral("group_b_human"), form_.group_b_index, form_.human_b));
  body()->addLayout(groups);
  body()->addWidget(new_named_label(QStringLiteral("note"), shown(world_cup_form::note), TextRole::muted));
  body()->addWidget(new_hosts());
  ground_below_ = new GroundBelow;
  body()->addWidget(ground_below_, 1);
  show_ground();
  add_standing();

  add_as_last_time(*this);
  entry_foot_ = add_entry_foot(*this, [this] { play(); });
  show_choice();
  on_dismiss([this] {
    form_.cancel();
    done(Rejected);
  });
}

void WorldCupWindow::add_standing() {
  const std::string cup = standing_cup(world_cup_);
  const std::string graph = standing_worms(match_);
  add_afresh_line(*body(), cup.empty() || graph.empty() ? cup + graph : cup + " " + graph, [this] {
    start_cup_afresh(world_cup_);
    start_worms_afresh(match_);
  });
}

void WorldCupWindow::show_choice() {
  show_ready(entry_foot_, form_.ready(), QStringLiteral("Choose all ten teams"));
  const auto any = [](const auto& human) { return std::find(human.begin(), human.end(), true) != human.end(); };
  if (form_.ready() && !any(form_.human_a) && !any(form_.human_b)) {
    entry_foot_.wanted->setText(QStringLiteral("No side is human: the computer plays them all"));
  }
}

/// The ground of the first host.
void WorldCupWindow::show_ground() {
  const auto host =
      std::find_if(form_.host_index.begin(), form_.host_index.end(), [](int index) { return index >= 0; });
  ground_below_->show_country(
      host == form_.host_index.end() ? QString() : shown(form_.teams[static_cast<std::size_t>(*host)].name));
}

void WorldCupWindow::play() {
  if (!grounds_are_fit(data_, *this, form_.hosts())) return;
  hide();
  keep_choices(*this);
  form_.accept();
  accept();
}

QWidget* WorldCupWindow::new_group(const QString& title, const QString& lists, const QString& checks,
                                   std::array<int, cup_group_teams>& teams, std::array<bool, cup_group_teams>& human) {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(title, TextRole::heading));
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(16);
  rows->setVerticalSpacing(8);
  rows->setColumnStretch(1, 1);
  for (int i = 0; i < cup_group_teams; ++i) {
    const auto at = static_cast<std::size_t>(i);
    auto* list =
        new_team_list(QStringLiteral("%1_%2").arg(lists).arg(i), form_.teams, teams[at], [this, &teams, at](int index) {
          teams[at] = index;
          show_choice();
        });
    const QString name = QStringLiteral("%1, team %2").arg(title).arg(i + 1);
    auto* check = new QCheckBox(QStringLiteral("Human"));
    check->setObjectName(QStringLiteral("%1_%2").arg(checks).arg(i));
    check->setAccessibleName(name + QStringLiteral(": Human"));
    check->setChecked(human[at]);
    connect(check, &QCheckBox::toggled, this, [this, &human, at](bool on) {
      human[at] = on;
      show_choice();
    });
    rows->addWidget(new_caption(QStringLiteral("Team %1").arg(i + 1), QChar(), list), i, 0);
    list->setAccessibleName(name);
    rows->addWidget(list, i, 1);
    rows->addWidget(check, i, 2);
  }
  card_rows(card)->addLayout(rows);
  return card;
}

QWidget* WorldCupWindow::new_hosts() {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(QStringLiteral("Select Host nation(s) :"), TextRole::heading));
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  for (int i = 0; i < cup_hosts; ++i) {
    const auto at = static_cast<std::size_t>(i);
    auto* list = new_team_list(
        QStringLiteral("host_%1").arg(i), form_.teams, form_.host_index[at],
        [this, at](int index) {
          form_.host_index[at] = index;
          show_ground();
        },
        true);
    auto* place = new QVBoxLayout;
    place->setSpacing(4);
    place->addWidget(new_caption(QStringLiteral("Host nation %1").arg(i + 1), QChar(), list));
    place->addWidget(list);
    row->addLayout(place, 1);
  }
  card_rows(card)->addLayout(row);
  return card;
}

}  // namespace velorin
