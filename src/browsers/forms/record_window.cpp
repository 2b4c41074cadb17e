// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/record_window.h"

#include <QHBoxLayout>
#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <functional>

#include "browsers/player_profile.h"
#include "browsers/shown_table.h"
#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"

namespace velorin {

namespace {

/// The columns that share what width is left.
constexpr std::array<std::string_view, 3> wide_columns = {"Player", "Players", "Team"};
constexpr std::array<std::string_view, 2> wide_without_men = {"For", "Against"};
constexpr std::array<std::string_view, 3> team_columns = {"Team", "For", "Against"};

template <class Names>
bool is_in(std::string_view heading, const Names& names) {
  return std::find(names.begin(), names.end(), heading) != names.end();
}

/// Whether some row of a list by bowling is of a man who has not bowled.
bool has_men_without_a_ball(const shown_table& table) {
  const auto overs = std::find_if(table.columns.begin(), table.columns.end(),
                                  [](const shown_column& column) { return column.heading == "Ovr"; });
  if (overs == table.columns.end()) return false;
  const auto place = static_cast<std::size_t>(overs - table.columns.begin());
  return std::any_of(table.rows.begin(), table.rows.end(),
                     [place](const shown_table::row& row) { return row.texts[place] == "0.0"; });
}

Table table_of(const shown_table& shown_table, bool ranked) {
  Table table;
  table.name = shown(shown_table.title).trimmed();
  const bool men = std::any_of(shown_table.columns.begin(), shown_table.columns.end(),
                               [](const shown_column& c) { return is_in(c.heading, wide_columns); });
  for (const shown_column& column : shown_table.columns) {
    table.columns.push_back(
        {.heading = shown_caption(column.heading),
         .numbers = column.aligned == alignment::right,
         .stretches = men ? is_in(column.heading, wide_columns) : is_in(column.heading, wide_without_men),
         .teams = is_in(column.heading, team_columns)});
  }
  const bool of_pairs = std::any_of(shown_table.columns.begin(), shown_table.columns.end(),
                                    [](const shown_column& column) { return column.heading == "Players"; });
  int index = 0;
  for (const shown_table::row& row : shown_table.rows) {
    TableRow line;
    for (const std::string& text : row.texts) {
      line.cells.push_back({.text = shown_caption(text), .kept = shown(text)});
    }
    line.id = index++;
    if (ranked) line.head = QString::number(row.place);
    table.rows.push_back(std::move(line));
  }
  if (ranked) table.heads = of_pairs ? QStringLiteral("Wkt.") : QStringLiteral("Rank");
  return table;
}

}  // namespace

RecordWindow::RecordWindow(front_end& user, const open_database& database, const QString& name, table_form& form,
                           bool ranked, QWidget* parent)
    : Form(name, Dismissal::closes, parent),
      form_(form),
      across_(new QHBoxLayout),
      table_(new TableView(QStringLiteral("table"))),
      empty_(new_named_label(QStringLiteral("empty"), QStringLiteral("No records yet"), TextRole::muted)),
      user_(user),
      data_(database) {
  auto* column = new_column(body(), 1376);
  across_->setSpacing(16);
  column->addLayout(across_, 1);
  rows_ = new QVBoxLayout;
  rows_->addWidget(table_, 1);
  rows_->addWidget(empty_);
  note_ = new_named_label(QStringLiteral("note"), QStringLiteral("The list is filled up with men who have not bowled."),
                          TextRole::muted);
  rows_->addWidget(note_);
  rows_->addStretch();
  across_->addLayout(rows_, 1);
  profiles_ = {
      new_profile_button(QStringLiteral("profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, 0),
      new_profile_button(QStringLiteral("partner"), {.caption = QStringLiteral("Partner's Profile"), .mnemonic = u'a'},
                         1)};
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { follow_row(); });
  const auto close = [this] { press_ok(); };
  ok_ =
      add_default_button(QStringLiteral("accept"), {.caption = shown(table_form::ok_caption), .mnemonic = u'O'}, close);
  ok_->setFocus();
  on_dismiss(close);
  show_table(ranked);
}

void RecordWindow::press_ok() {
  form_.accept();
  if (form_.closed) accept();
}

void RecordWindow::add_above(QWidget* widget) { rows_->insertWidget(0, widget); }

void RecordWindow::add_at_left(QWidget* widget, QWidget* last) {
  across_->insertWidget(0, widget, 0, Qt::AlignTop);
  // From the end on: the table would count as the one behind the last, around the window.
  for (QWidget* next : std::initializer_list<QWidget*>{ok_, profiles_[1], profiles_[0], table_}) {
    setTabOrder(last, next);
  }
}

void RecordWindow::show_table(bool ranked) {
  set_title(shown(form_.table.title), shown(form_.table.title));
  table_->set_table(table_of(form_.table, ranked));
  // The size remembered may come from shorter names and fewer rows.
  const QSize whole = table_->sizeHint();
  table_->setMinimumSize(std::clamp(whole.width(), 320, 720), std::clamp(whole.height(), 120, 240));
  table_->grow_rows(40, static_cast<int>(form_.table.rows.size()));
  empty_->setVisible(form_.table.rows.empty());
  note_->setVisible(has_men_without_a_ball(form_.table));
  table_->on_open(names_men(0) ? [this](int row) { open_profile(row, 0); } : std::function<void(int)>());
  for (int man = 0; man < 2; ++man) profiles_[static_cast<std::size_t>(man)]->setVisible(names_men(man));
  follow_row();
}

bool RecordWindow::names_men(int man) const {
  const auto& rows = form_.table.rows;
  return std::any_of(rows.begin(), rows.end(),
                     [&](const shown_table::row& row) { return !(man == 0 ? row.player : row.partner).empty(); });
}

int RecordWindow::chosen_row() const { return table_->table_row(table_->currentIndex().row()); }

const std::string& RecordWindow::man_of(int row, int man) const {
  static const std::string nobody;
  if (row < 0 || row >= static_cast<int>(form_.table.rows.size())) return nobody;
  const shown_table::row& line = form_.table.rows[static_cast<std::size_t>(row)];
  return man == 0 ? line.player : line.partner;
}

void RecordWindow::follow_row() {
  for (int man = 0; man < 2; ++man) {
    profiles_[static_cast<std::size_t>(man)]->setEnabled(!man_of(chosen_row(), man).empty());
  }
}

void RecordWindow::open_profile(int row, int man) {
  const std::string& name = man_of(row, man);
  if (name.empty()) return;
  show_profile(user_, data_, form_.table.rows[static_cast<std::size_t>(row)].team, name);
  focus_default();
}

QPushButton* RecordWindow::new_profile_button(const QString& name, const Act& act, int man) {
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  name_act(*button, act);
  add_aside(button);
  connect(button, &QPushButton::clicked, this, [this, man] { guarded([&] { open_profile(chosen_row(), man); }); });
  return button;
}

}  // namespace velorin
