// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/man_list.h"

#include <QButtonGroup>
#include <QRadioButton>
#include <algorithm>

#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_columns.h"
#include "desktop/table_view.h"
#include "model/rules.h"

namespace velorin {

namespace {
constexpr int lowest_row = 22;  // pixels
constexpr int usual_row = 26;
constexpr int highest_row = 40;
}  // namespace

ManList::ManList(const QString& names_heading, std::vector<Column> columns, QWidget* parent)
    : ButtonTable(QStringLiteral("men"), parent), columns_(std::move(columns)), group_(new QButtonGroup(this)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  // Eleven rows have to fit a sheet on the smallest screen.
  setStyleSheet(QStringLiteral("QRadioButton { padding: 0px 3px; border-width: 1px; }"));
  rows_.name = spoken_name(names_heading);
  rows_.columns.push_back({.heading = names_heading, .stretches = true});
  for (const Column& column : columns_) {
    rows_.columns.push_back({.heading = column.heading, .numbers = column.numbers, .spoken = column.spoken});
  }
}

void ManList::set_row(int row, const QString& name, bool enabled, const std::vector<QString>& texts) {
  auto* option = new QRadioButton(button_text(name));
  option->setObjectName(QStringLiteral("man_%1").arg(row));
  option->setEnabled(enabled);
  group_->addButton(option, row);
  options_[static_cast<std::size_t>(row)] = option;
  TableRow line{.cells = {{.text = name}}, .id = row};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const bool muted = columns_[i].muted || !enabled;
    line.cells.push_back({.text = texts[i], .look = muted ? CellLook::muted : CellLook::normal});
  }
  rows_.rows.push_back(std::move(line));
  speak(row);
  connect(option, &QRadioButton::toggled, this, [this, row](bool on) {
    if (on && chosen_) guarded([&] { chosen_(row); });
  });
}

TableRow& ManList::filled(int row) {
  return *std::find_if(rows_.rows.begin(), rows_.rows.end(), [row](const TableRow& line) { return line.id == row; });
}

void ManList::speak(int row) {
  const TableRow& line = filled(row);
  QStringList spoken{line.cells.front().text};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const QString& text = line.cells[i + 1].text;
    if (!text.isEmpty()) spoken << QStringLiteral("%1 %2").arg(columns_[i].heading.trimmed(), text).trimmed();
  }
  options_[static_cast<std::size_t>(row)]->setAccessibleName(spoken.join(QStringLiteral(", ")));
}

void ManList::set_text(int row, std::size_t column, const QString& text) {
  filled(row).cells[column + 1].text = text;
  view().set_text(row, static_cast<int>(column) + 1, text);
  speak(row);
}

void ManList::show_column(std::size_t column, bool shown) {
  view().setColumnHidden(static_cast<int>(column) + 1, !shown);
  view().columns().fit();
}

void ManList::show_rows() {
  std::map<int, QAbstractButton*> buttons;
  for (const TableRow& row : rows_.rows) buttons[row.id] = options_[static_cast<std::size_t>(row.id)];
  set_table(rows_, std::move(buttons));
  set_row_heights(lowest_row, highest_row, usual_row);
  view().setMinimumWidth(view().needed_width());
}

void ManList::choose(int row) {
  QRadioButton* wanted = row > 0 ? options_[static_cast<std::size_t>(row)] : nullptr;
  if (wanted != nullptr) wanted->setChecked(true);
  for (int i = 1; i <= men_in_eleven && (wanted == nullptr || !wanted->isEnabled()); ++i) {
    wanted = options_[static_cast<std::size_t>(i)];
  }
  if (wanted != nullptr) wanted->setFocus();
}

void ManList::focus_on(int row) { options_[static_cast<std::size_t>(row)]->setFocus(); }

bool ManList::has_choice() const {
  const QAbstractButton* chosen = group_->checkedButton();
  return chosen != nullptr && chosen->isEnabled();
}

}  // namespace velorin
