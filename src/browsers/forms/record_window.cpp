// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/record_window.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

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

template <class Names>
bool is_in(std::string_view heading, const Names& names) {
  return std::find(names.begin(), names.end(), heading) != names.end();
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
         .stretches = men ? is_in(column.heading, wide_columns) : is_in(column.heading, wide_without_men)});
  }
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
  return table;
}

}  // namespace

RecordWindow::RecordWindow(front_end& user, const open_database& database, const QString& name, table_form& form,
                           bool ranked, QWidget* parent)
    : Form(name, Dismissal::closes, parent),
      form_(form),
      rows_(new_column(body(), 1120)),
      table_(new TableView(QStringLiteral("table"))),
      user_(user),
      data_(database) {
  set_title(shown(form_.table.title), shown(form_.table.title));
  rows_->addWidget(table_, 1);
  show_rows(ranked);
  rows_->addStretch();
  add_profile_button(QStringLiteral("profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, 0);
  const auto close = [this] {
    form_.accept();
    if (form_.closed) accept();
  };
  add_default_button(QStringLiteral("accept"), {.caption = shown(table_form::ok_caption), .mnemonic = u'O'}, close)
      ->setFocus();
  on_dismiss(close);
}

void RecordWindow::show_rows(bool ranked) {
  table_->set_table(table_of(form_.table, ranked));
  // The size remembered may come from shorter names and fewer rows.
  const QSize whole = table_->sizeHint();
  table_->setMinimumSize(std::clamp(whole.width(), 480, 960), std::clamp(whole.height(), 120, 480));
  table_->grow_rows(40, static_cast<int>(form_.table.rows.size()));
  if (form_.table.rows.empty()) {
    rows_->addWidget(new_named_label(QStringLiteral("empty"), QStringLiteral("No records yet"), TextRole::muted));
    return;
  }
  const auto& rows = form_.table.rows;
  if (std::any_of(rows.begin(), rows.end(), [](const shown_table::row& row) { return !row.player.empty(); })) {
    table_->on_open([this](int row) { open_profile(row, 0); });
  }
}

const std::string& RecordWindow::man_of(int row, int man) const {
  static const std::string nobody;
  if (row < 0 || row >= static_cast<int>(form_.table.rows.size())) return nobody;
  const shown_table::row& line = form_.table.rows[static_cast<std::size_t>(row)];
  return man == 0 ? line.player : line.partner;
}

void RecordWindow::open_profile(int row, int man) {
  const std::string& name = man_of(row, man);
  if (name.empty()) return;
  show_profile(user_, data_, form_.table.rows[static_cast<std::size_t>(row)].team, name);
  focus_default();
}

QPushButton* RecordWindow::add_profile_button(const QString& name, const Act& act, int man) {
  const auto& rows = form_.table.rows;
  const bool any = std::any_of(rows.begin(), rows.end(), [&](const shown_table::row& row) {
    return !(man == 0 ? row.player : row.partner).empty();
  });
  if (!any) return nullptr;
  const auto chosen = [this] { return table_->table_row(table_->currentIndex().row()); };
  auto* button = new QPushButton;
  button->setObjectName(name);
  button->setAutoDefault(false);
  name_act(*button, act);
  add_aside(button);
  connect(button, &QPushButton::clicked, this, [this, chosen, man] { guarded([&] { open_profile(chosen(), man); }); });
  const auto follow = [this, button, chosen, man] { button->setEnabled(!man_of(chosen(), man).empty()); };
  connect(table_->selectionModel(), &QItemSelectionModel::currentChanged, button, follow);
  follow();
  return button;
}

}  // namespace velorin
