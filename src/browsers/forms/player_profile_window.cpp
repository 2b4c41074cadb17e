// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/player_profile_window.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <utility>

#include "browsers/forms/figure_grid.h"
#include "browsers/player_profile.h"
#include "desktop/controls.h"
#include "desktop/photo_view.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

QComboBox* new_list(const QString& name, const std::vector<std::string>& texts, int chosen) {
  auto* list = new QComboBox;
  list->setObjectName(name);
  list->setMinimumWidth(240);
  for (const std::string& text : texts) list->addItem(shown(text));
  list->setCurrentIndex(chosen);
  return list;
}

/// The player in one table.
Table figures_table(const player_profile_form& form) {
  Table table;
  if (form.person.empty()) return table;
  table.name = shown(form.person.front().text);
  for (const char* heading : {"Group", "Figure", "Value"}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading)});
  }
  const std::pair<const char*, const std::vector<shown_field>*> groups[] = {
      {"", &form.person}, {"Batting", &form.batting}, {"Bowling", &form.bowling}, {"Fielding", &form.fielding}};
  for (const auto& [group, fields] : groups) {
    for (const shown_field& field : *fields) {
      table.rows.push_back({.cells = {{.text = QString::fromLatin1(group)},
                                      {.text = shown(field.caption).trimmed()},
                                      {.text = shown_caption(field.text), .kept = shown(field.text)}}});
    }
  }
  return table;
}

}  // namespace

PlayerProfileWindow::PlayerProfileWindow(player_profile_form& form, QWidget* parent)
    : Form(QStringLiteral("Sqdet"), Dismissal::closes, parent), form_(form) {
  set_title(shown(player_profile_form::title), shown(player_profile_form::title));
  auto* rows = new_column(body(), 1280);
  rows->addWidget(new_lists());
  pages_ = new QStackedWidget;
  auto* nobody = new_named_label(
      QStringLiteral("nobody"),
      form_.teams.empty() ? QStringLiteral("No records yet") : QStringLiteral("Choose a team and a player."),
      TextRole::muted);
  nobody->setAlignment(Qt::AlignCenter);
  nobody->setMinimumSize(928, 424);
  pages_->addWidget(nobody);
  pages_->addWidget(new_figures());
  pages_->setMaximumHeight(560);
  rows->addWidget(pages_, 1);
  rows->addStretch();
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  auto* ok = add_default_button(QStringLiteral("accept"),
                                {.caption = shown(player_profile_form::ok_caption), .mnemonic = u'O'}, close);
  on_dismiss(close);
  if (form_.locked) ok->setFocus();
  offer_table(*this, [this] { return figures_table(form_); });
  refresh();
}

QWidget* PlayerProfileWindow::new_lists() {
  auto* lists = new QWidget;
  auto* row = new QHBoxLayout(lists);
  row->setContentsMargins(0, 0, 0, 0);
  teams_ = new_list(QStringLiteral("teams"), form_.teams, form_.chosen_team);
  players_ = new_list(QStringLiteral("players"), form_.players, form_.chosen_player);
  row->addWidget(new_caption(shown(player_profile_form::team_caption), u'T', teams_));
  row->addWidget(teams_);
  row->addSpacing(24);
  row->addWidget(new_caption(shown(player_profile_form::player_caption), u'P', players_));
  row->addWidget(players_);
  row->addStretch(1);
  teams_->setDisabled(form_.locked);
  players_->setDisabled(form_.locked);
  // Choosing the team that is chosen already lists its players anew.
  connect(teams_, &QComboBox::activated, this, [this](int index) { choose_team(index); });
  connect(players_, &QComboBox::activated, this, [this](int index) { choose_player(index); });
  return lists;
}

QWidget* PlayerProfileWindow::new_figures() {
  auto* figures = new QWidget;
  auto* row = new QHBoxLayout(figures);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  QFrame* person = new_card();
  const FigureCard batting = new_figure_card(QStringLiteral("Batting"));
  const FigureCard bowling = new_figure_card(QStringLiteral("Bowling"));
  const FigureCard fielding = new_figure_card(QStringLiteral("Fielding"));
  person_ = new QVBoxLayout;
  batting_ = batting.grid;
  bowling_ = bowling.grid;
  fielding_ = fielding.grid;
  photo_ = new PhotoView(QStringLiteral("photo"), QSize(160, 200));
  card_rows(person)->addWidget(photo_, 0, Qt::AlignHCenter);
  card_rows(person)->addLayout(person_);
  card_rows(person)->addStretch(1);
  auto* right = new QVBoxLayout;
  right->setSpacing(16);
  row->addWidget(person);
  row->addWidget(batting.card, 1);
  right->addWidget(bowling.card, 1);
  right->addWidget(fielding.card);
  row->addLayout(right, 1);
  return figures;
}

void PlayerProfileWindow::choose_team(int index) {
  guarded([&] {
    form_.choose_team(index);
    list_players();
    refresh();
  });
}

void PlayerProfileWindow::choose_player(int index) {
  guarded([&] {
    form_.choose_player(index);
    refresh();
  });
}

void PlayerProfileWindow::list_players() {
  players_->clear();
  for (const std::string& name : form_.players) players_->addItem(shown(name));
  players_->setCurrentIndex(form_.chosen_player);
}

void PlayerProfileWindow::refresh() {
  if (form_.person.empty()) return;
  pages_->setCurrentIndex(1);
  show_person();
  show_block(batting_, QStringLiteral("batting"), form_.batting);
  show_block(bowling_, QStringLiteral("bowling"), form_.bowling);
  show_block(fielding_, QStringLiteral("fielding"), form_.fielding);
  photo_->show_photo(shown(form_.person.front().text), form_.photo);
}

void PlayerProfileWindow::show_person() {
  for (std::size_t i = 0; i < form_.person.size(); ++i) {
    const QString name = QStringLiteral("person_%1").arg(i + 1);
    auto* value = findChild<QLabel*>(name);
    if (value == nullptr) value = add_figure_below(person_, form_.person[i].caption, name);
    set_figure(value, form_.person[i].text);
  }
}

void PlayerProfileWindow::show_block(QGridLayout* grid, const QString& prefix, const std::vector<shown_field>& fields) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const QString name = QStringLiteral("%1_%2").arg(prefix).arg(i + 1);
    auto* value = findChild<QLabel*>(name);
    if (value == nullptr) value = add_figure(grid, fields[i].caption, name, true);
    set_figure(value, fields[i].text);
  }
}

}  // namespace velorin
