// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/man_list.h"

#include <QButtonGroup>
#include <QLabel>
#include <QRadioButton>

#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "model/rules.h"

namespace velorin {

ManList::ManList(const QString& names_heading, std::vector<Column> columns, QWidget* parent)
    : BandedGrid(3, parent), columns_(std::move(columns)), group_(new QButtonGroup(this)) {
  add_heading(0, names_heading, false, true);
  int at = 0;
  for (const Column& column : columns_) add_heading(++at, column.heading, column.numbers);
  on_row_pressed([this](int row) { options_[static_cast<std::size_t>(row)]->click(); });
}

void ManList::set_row(int row, const QString& name, bool enabled, const std::vector<QString>& texts) {
  auto* option = new QRadioButton(button_text(name));
  option->setObjectName(QStringLiteral("man_%1").arg(row));
  option->setEnabled(enabled);
  group_->addButton(option, row);
  options_[static_cast<std::size_t>(row)] = option;
  add(row, 0, option);
  const auto at = static_cast<std::size_t>(row);
  names_[at] = name;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Column& column = columns_[i];
    QLabel* text = new_label(texts[i], column.muted || !enabled ? TextRole::muted : TextRole::body);
    const char* kind = column.label == nullptr ? "text" : column.label;
    text->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(kind)).arg(row));
    add(row, static_cast<int>(i) + 1, text);
    texts_[at].push_back(text);
  }
  speak(row);
  connect(option, &QRadioButton::toggled, this, [this, row](bool on) {
    if (on && chosen_) guarded([&] { chosen_(row); });
  });
}

void ManList::speak(int row) {
  const auto at = static_cast<std::size_t>(row);
  QStringList spoken{names_[at]};
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const QString text = texts_[at][i]->text();
    if (!text.isEmpty()) spoken << QStringLiteral("%1 %2").arg(columns_[i].heading.trimmed(), text).trimmed();
  }
  options_[at]->setAccessibleName(spoken.join(QStringLiteral(", ")));
}

void ManList::set_text(int row, std::size_t column, const QString& text) {
  texts_[static_cast<std::size_t>(row)][column]->setText(text);
  speak(row);
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
