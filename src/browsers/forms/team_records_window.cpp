// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/team_records_window.h"

#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "browsers/forms/figure_grid.h"
#include "browsers/player_profile.h"
#include "browsers/team_records.h"
#include "database/open_database.h"
#include "desktop/card_flow.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

/// Results at home, away and both, a line each of played, won, lost, tied and success.
Table results_table(const team_records_form& form) {
  Table table;
  table.name = QStringLiteral("Results");
  table.columns.push_back({.heading = {}, .spoken = QStringLiteral("Figure"), .stretches = true});
  for (const auto& column : form.results) {
    table.columns.push_back({.heading = shown(column.heading), .numbers = true, .stretches = true});
  }
  for (std::size_t line = 0; line < team_records_form::result_captions.size(); ++line) {
    TableRow row;
    row.cells.push_back({.text = shown(team_records_form::result_captions[line]), .look = CellLook::muted});
    for (const auto& column : form.results) row.cells.push_back({.text = shown(column.texts[line])});
    table.rows.push_back(std::move(row));
  }
  return table;
}

Table individual_table(const team_records_form& form) {
  Table table;
  table.name = shown(team_records_form::individual_caption);
  table.columns = {{.heading = QStringLiteral("Record")}, {.heading = QStringLiteral("Player"), .stretches = true}};
  for (std::size_t i = 0; i < form.individual.size(); ++i) {
    const shown_field& record = form.individual[i];
    table.rows.push_back({.cells = {{.text = shown(record.caption), .look = CellLook::muted},
                                    {.text = shown_caption(record.text), .kept = shown(record.text)}},
                          .id = static_cast<int>(i)});
  }
  return table;
}

}  // namespace

TeamRecordsWindow::TeamRecordsWindow(front_end& user, const open_database& database, team_records_form& form,
                                     QWidget* parent)
    : Form(QStringLiteral("teamdet"), Dismissal::closes, parent), form_(form), user_(user), data_(database) {
  body()->setSpacing(16);
  crest_ = add_head_crest(*this, QStringLiteral("crest"));
  auto* rows = new_column(body(), 1280);
  rows->addWidget(new_list());
  auto* upper = new CardFlow;
  upper->add_card(new_results());
  upper->add_card(new_extremes());
  rows->addLayout(upper);
  rows->addWidget(new_individual());
  rows->addStretch(1);
  profile_ = new QPushButton;
  profile_->setObjectName(QStringLiteral("profile"));
  profile_->setAutoDefault(false);
  name_act(*profile_, {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'});
  connect(profile_, &QPushButton::clicked, this,
          [this] { guarded([&] { open_profile(individual_->currentIndex().row()); }); });
  add_aside(profile_);
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = shown(team_records_form::ok_caption), .mnemonic = u'O'},
                     close);
  on_dismiss(close);
  refresh();
}

void TeamRecordsWindow::offer_page(std::function<void(const std::string&)> open) {
  page_ = new_button(QStringLiteral("page"),
                     {.caption = QStringLiteral("Page"),
                      .mnemonic = u'g',
                      .hint = QStringLiteral("All that the archive of matches tells of the team")},
                     [this, open = std::move(open)] { open(core_text(teams_->currentText())); });
  page_->setEnabled(form_.chosen_team >= 0);
  add_aside(page_);
  setTabOrder(page_, findChild<QPushButton*>(QStringLiteral("accept")));
}

QWidget* TeamRecordsWindow::new_list() {
  auto* list = new QWidget;
  auto* row = new QHBoxLayout(list);
  row->setContentsMargins(0, 0, 0, 0);
  teams_ = new QComboBox;
  teams_->setObjectName(QStringLiteral("teams"));
  teams_->setMinimumWidth(240);
  for (const std::string& team : form_.teams) teams_->addItem(shown(team));
  show_crests(*teams_);
  teams_->setCurrentIndex(form_.chosen_team);
  row->addWidget(new_caption(shown(team_records_form::team_caption), u'S', teams_));
  row->addWidget(teams_);
  if (form_.teams.empty()) {
    row->addSpacing(16);
    row->addWidget(new_named_label(QStringLiteral("empty"), QStringLiteral("No records yet"), TextRole::muted));
  }
  row->addStretch(1);
  connect(teams_, &QComboBox::currentIndexChanged, this, [this](int index) {
    guarded([&] {
      form_.choose_team(index);
      refresh();
    });
  });
  return list;
}

QWidget* TeamRecordsWindow::new_results() {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(QStringLiteral("Results"), TextRole::heading));
  results_ = new TableView(QStringLiteral("results"));
  results_->setMinimumWidth(400);
  card_rows(card)->addWidget(results_);
  ranking_ = new_named_label(QStringLiteral("ranking"), {}, TextRole::strong);
  card_rows(card)->addWidget(ranking_);
  card_rows(card)->addStretch(1);
  return card;
}

QWidget* TeamRecordsWindow::new_extremes() {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(QStringLiteral("Totals"), TextRole::heading));
  for (std::size_t i = 0; i < extremes_.size(); ++i) {
    extremes_[i] =
        add_figure_below(card_rows(card), form_.extremes[i].caption, QStringLiteral("extreme_%1").arg(i + 1));
    extremes_[i]->setWordWrap(true);
    extremes_[i]->setMinimumWidth(400);
  }
  card_rows(card)->addStretch(1);
  return card;
}

QWidget* TeamRecordsWindow::new_individual() {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(shown(team_records_form::individual_caption), TextRole::heading));
  individual_ = new TableView(QStringLiteral("individual"));
  individual_->horizontalHeader()->hide();
  individual_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  individual_->setFixedHeight(static_cast<int>(form_.individual.size()) *
                                  individual_->verticalHeader()->defaultSectionSize() +
                              2 * individual_->frameWidth() + 2);
  individual_->on_open([this](int record) { open_profile(record); });
  card_rows(card)->addWidget(individual_);
  card_rows(card)->addStretch(1);
  return card;
}

void TeamRecordsWindow::refresh() {
  if (page_ != nullptr) page_->setEnabled(form_.chosen_team >= 0);
  set_title(shown(form_.title), shown(form_.title));
  crest_->show_team(teams_->currentText());
  results_->set_table(results_table(form_));
  results_->show_all_rows();
  ranking_->setText(shown(form_.world_ranking.caption) + shown(form_.world_ranking.text));
  for (std::size_t i = 0; i < extremes_.size(); ++i) set_figure(extremes_[i], form_.extremes[i].text);
  individual_->set_table(individual_table(form_));
  // A team has all four men or none.
  profile_->setEnabled(!form_.men_of_records.front().empty());
}

void TeamRecordsWindow::open_profile(int record) {
  if (record < 0 || record >= static_cast<int>(form_.men_of_records.size())) return;
  const std::string& man = form_.men_of_records[static_cast<std::size_t>(record)];
  if (man.empty()) return;
  show_profile(user_, data_, form_.teams[static_cast<std::size_t>(form_.chosen_team)], man);
  focus_default();
}

}  // namespace velorin
