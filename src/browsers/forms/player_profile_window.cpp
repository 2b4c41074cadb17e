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
#include <tuple>
#include <utility>

#include "browsers/forms/figure_grid.h"
#include "browsers/player_profile.h"
#include "desktop/card_flow.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/meter_bar.h"
#include "desktop/photo_view.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

constexpr QSize photo_size(160, 200);

QComboBox* new_list(const QString& name, const std::vector<std::string>& texts, int chosen) {
  auto* list = new QComboBox;
  list->setObjectName(name);
  list->setMinimumWidth(240);
  for (const std::string& text : texts) list->addItem(shown(text));
  list->setCurrentIndex(chosen);
  return list;
}

/// What a man of a squad is, besides his ratings.
std::vector<shown_field> standing_fields(const squad_standing& standing) {
  return {{"Role", standing.role},
          {"Bats", standing.hand},
          {"Bowls", standing.bowls},
          {"Keeps wicket", standing.keeps_wicket ? "Yes" : "No"}};
}

/// His ratings with their places, as the table has them.
std::vector<shown_field> skill_fields(const squad_standing& standing) {
  std::vector<shown_field> fields;
  for (const rated_skill& skill : standing.skills) {
    fields.push_back({skill.caption, skill.text + " (" + skill.place_text + ")"});
  }
  return fields;
}

/// The player in one table.
Table figures_table(const player_profile_form& form) {
  Table table;
  if (form.person.empty()) return table;
  table.name = shown(form.person.front().text);
  for (const char* heading : {"Group", "Figure", "Value"}) {
    table.columns.push_back({.heading = QString::fromLatin1(heading)});
  }
  const auto man = form.standing ? standing_fields(*form.standing) : std::vector<shown_field>();
  const auto skills = form.standing ? skill_fields(*form.standing) : std::vector<shown_field>();
  const std::pair<const char*, const std::vector<shown_field>*> groups[] = {
      {"", &form.person},         {"", &man},
      {"Ratings", &skills},       {"Batting", &form.batting},
      {"Bowling", &form.bowling}, {"Fielding", &form.fielding}};
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
  crest_ = add_head_crest(*this, QStringLiteral("crest"));
  auto* rows = new_column(body(), 1280);
  rows->addWidget(new_lists());
  pages_ = new QStackedWidget;
  auto* nobody = new_named_label(
      QStringLiteral("nobody"),
      form_.teams.empty() ? QStringLiteral("No records yet") : QStringLiteral("Choose a team and a player."),
      TextRole::muted);
  nobody->setAlignment(Qt::AlignCenter);
  nobody->setMinimumHeight(200);
  pages_->addWidget(nobody);
  pages_->addWidget(new_figures());
  pages_->addWidget(new_standing());
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

void PlayerProfileWindow::offer_page(std::function<void(const std::string&, const std::string&)> open) {
  page_ = new_button(
      QStringLiteral("page"),
      {.caption = QStringLiteral("Page in the Archive"),
       .mnemonic = u'g',
       .hint = QStringLiteral("All that the archive of matches tells of him")},
      [this, open = std::move(open)] { open(core_text(teams_->currentText()), core_text(players_->currentText())); });
  page_->setEnabled(!form_.person.empty());
  add_aside(page_);
  setTabOrder(page_, findChild<QPushButton*>(QStringLiteral("accept")));
}

QWidget* PlayerProfileWindow::new_lists() {
  auto* lists = new QWidget;
  auto* row = new QHBoxLayout(lists);
  row->setContentsMargins(0, 0, 0, 0);
  teams_ = new_list(QStringLiteral("teams"), form_.teams, form_.chosen_team);
  players_ = new_list(QStringLiteral("players"), form_.players, form_.chosen_player);
  show_crests(*teams_);
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

/// His photo at the left; beside it his figures, and below them how he compares.
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
  photo_ = new PhotoView(QStringLiteral("photo"), photo_size);
  card_rows(person)->addWidget(photo_, 0, Qt::AlignHCenter);
  card_rows(person)->addLayout(person_);
  card_rows(person)->addStretch(1);
  row->addWidget(person, 0, Qt::AlignTop);
  auto* right = new QVBoxLayout;
  right->setSpacing(16);
  auto* bowls_and_fields = new QWidget;
  auto* second = new QVBoxLayout(bowls_and_fields);
  second->setContentsMargins(0, 0, 0, 0);
  second->setSpacing(16);
  second->addWidget(bowling.card, 1);
  second->addWidget(fielding.card);
  auto* flow = new CardFlow;
  flow->add_card(batting.card);
  flow->add_card(bowls_and_fields);
  right->addLayout(flow);
  comparison_ = new_card();
  card_rows(comparison_)->addWidget(new_label(QStringLiteral("How he compares"), TextRole::heading));
  auto* ratings = new CardFlow(32);
  for (int i = 0; i < 3; ++i) {
    auto* column = new QWidget;
    auto* rows = new QVBoxLayout(column);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->setSpacing(4);
    ratings->add_card(column);
    const SkillRows one = add_skills(*rows, QStringLiteral("compared"), i + 1, i + 1);
    compared_.insert(compared_.end(), one.begin(), one.end());
  }
  card_rows(comparison_)->addLayout(ratings);
  right->addWidget(comparison_);
  right->addStretch(1);
  row->addLayout(right, 1);
  return figures;
}

PlayerProfileWindow::SkillRows PlayerProfileWindow::add_skills(QBoxLayout& rows, const QString& prefix, int first,
                                                               int last) {
  SkillRows skills;
  const auto named = [&prefix](const char* part, int i) {
    return QStringLiteral("%1%2_%3").arg(prefix, QLatin1String(part)).arg(i);
  };
  for (int i = first; i <= last; ++i) {
    if (first != last) rows.addSpacing(12);
    auto* text = new_named_label(named("", i), {}, TextRole::strong);
    auto* bar = new MeterBar(named("_bar", i), QStringLiteral("Men of his role behind him"), 1);
    auto* place = new_named_label(named("_place", i), {});
    auto* meaning = new_named_label(named("_meaning", i), {}, TextRole::small_muted);
    auto* line = new QHBoxLayout;
    line->addWidget(text, 1);
    if (first != last) line->addWidget(place);
    rows.addLayout(line);
    if (first == last) rows.addWidget(place);
    rows.addWidget(bar);
    rows.addWidget(meaning);
    skills.push_back({text, bar, place, meaning});
  }
  return skills;
}

QWidget* PlayerProfileWindow::new_standing() {
  auto* page = new QWidget;
  auto* row = new QHBoxLayout(page);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  QFrame* person = new_card();
  newcomer_photo_ = new PhotoView(QStringLiteral("newcomer_photo"), photo_size);
  newcomer_ = new QVBoxLayout;
  card_rows(person)->addWidget(newcomer_photo_, 0, Qt::AlignHCenter);
  card_rows(person)->addLayout(newcomer_);
  card_rows(person)->addStretch(1);
  row->addWidget(person, 0, Qt::AlignTop);
  QFrame* skills = new_card();
  QVBoxLayout* rows = card_rows(skills);
  rows->addWidget(new_label(QStringLiteral("How he compares"), TextRole::heading));
  skills_ = add_skills(*rows, QStringLiteral("skill"), 1,
                       static_cast<int>(std::tuple_size_v<decltype(squad_standing::skills)>));
  rows->addSpacing(16);
  auto* note = new_named_label(QStringLiteral("no_career"),
                               QStringLiteral("He has no career yet; his first match begins it. Ratings are compared "
                                              "with those of all men of his role in this database."),
                               TextRole::muted);
  note->setWordWrap(true);
  rows->addWidget(note);
  rows->addStretch(1);
  row->addWidget(skills, 1, Qt::AlignTop);
  return page;
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
  show_heading();
  if (page_ != nullptr) page_->setEnabled(!form_.person.empty());
  if (form_.person.empty()) return;
  if (form_.standing) return show_standing();
  pages_->setCurrentIndex(1);
  std::vector<shown_field> person = form_.person;
  for (shown_field field : standing_fields(form_.compared.value_or(squad_standing()))) {
    if (!form_.compared) field.text = "-";  // he stands in no squad any more
    person.push_back(field);
  }
  show_person(person_, QStringLiteral("person"), person);
  show_block(batting_, QStringLiteral("batting"), form_.batting);
  show_block(bowling_, QStringLiteral("bowling"), form_.bowling);
  show_block(fielding_, QStringLiteral("fielding"), form_.fielding);
  photo_->show_photo(shown(form_.person.front().text), form_.photo, teams_->currentText());
  comparison_->setVisible(form_.compared.has_value());
  if (form_.compared) show_skills(compared_, *form_.compared);
}

void PlayerProfileWindow::show_heading() {
  const QString name = form_.person.empty() ? QString() : shown(form_.person.front().text);
  set_title(shown(player_profile_form::title), name.isEmpty() ? shown(player_profile_form::title) : name);
  crest_->show_team(name.isEmpty() ? QString() : teams_->currentText());
  crest_->setVisible(!name.isEmpty());
}

void PlayerProfileWindow::show_skills(const SkillRows& rows, const squad_standing& standing) {
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const rated_skill& skill = standing.skills[i];
    rows[i].text->setText(QStringLiteral("%1: %2").arg(shown(skill.caption), shown(skill.text)));
    rows[i].meaning->setText(shown(skill.meaning));
    rows[i].bar->set_value(skill.share());
    rows[i].place->setText(shown(skill.place_text));
  }
}

void PlayerProfileWindow::show_standing() {
  pages_->setCurrentIndex(2);
  std::vector<shown_field> fields = form_.person;
  for (const shown_field& field : standing_fields(*form_.standing)) fields.push_back(field);
  show_person(newcomer_, QStringLiteral("newcomer"), fields);
  newcomer_photo_->show_photo(shown(form_.person.front().text), form_.photo, teams_->currentText());
  show_skills(skills_, *form_.standing);
}

void PlayerProfileWindow::show_person(QVBoxLayout* rows, const QString& prefix,
                                      const std::vector<shown_field>& fields) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const QString name = QStringLiteral("%1_%2").arg(prefix).arg(i + 1);
    auto* value = findChild<QLabel*>(name);
    if (value == nullptr) value = add_figure_below(rows, fields[i].caption, name);
    set_figure(value, fields[i].text);
  }
}

void PlayerProfileWindow::show_block(QGridLayout* grid, const QString& prefix, const std::vector<shown_field>& fields) {
  for (std::size_t i = 0; i < fields.size(); ++i) {
    const QString name = QStringLiteral("%1_%2").arg(prefix).arg(i + 1);
    auto* value = findChild<QLabel*>(name);
    const int half = static_cast<int>(fields.size() + 1) / 2;
    const int place = static_cast<int>(i);
    if (value == nullptr) value = add_figure(grid, {place % half, place / half}, fields[i].caption, name);
    set_figure(value, fields[i].text);
  }
}

}  // namespace velorin
