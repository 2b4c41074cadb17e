// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/record_lists_window.h"

#include <QButtonGroup>
#include <QFrame>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "browsers/record_lists.h"
#include "desktop/controls.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"

namespace velorin {

namespace {

constexpr int lists_width = 224;

}  // namespace

RecordListsWindow::RecordListsWindow(front_end& user, const open_database& database, record_lists_form& form,
                                     QWidget* parent)
    : RecordWindow(user, database, QStringLiteral("reclists"), form, true, parent), lists_(form) {
  QWidget* const lists = new_lists();
  add_at_left(lists, entries_.back());
  prefer_size(QSize(1248, 680));
  show_list();
}

QWidget* RecordListsWindow::new_lists() {
  QFrame* card = new_card();
  card->setFixedWidth(lists_width);
  card_rows(card)->setContentsMargins(8, 8, 8, 8);
  card_rows(card)->setSpacing(0);
  auto* chosen = new QButtonGroup(card);
  std::string_view group;
  for (const record_list& list : every_record_list) {
    if (list.group != group) {
      group = list.group;
      auto* heading = new_label(shown(group), TextRole::small_muted);
      heading->setContentsMargins(10, entries_.empty() ? 2 : 8, 0, 2);
      card_rows(card)->addWidget(heading);
    }
    auto* entry = new QRadioButton(shown(list.caption));
    const int place = static_cast<int>(entries_.size());
    entry->setObjectName(QStringLiteral("list_%1_%2").arg(shown(list.form)).arg(list.record_mode));
    entry->setAccessibleName(QStringLiteral("%1: %2").arg(shown(group), shown(list.caption)));
    entry->setProperty("entry", true);
    chosen->addButton(entry, place);
    card_rows(card)->addWidget(entry);
    entries_.push_back(entry);
  }
  card_rows(card)->addStretch(1);
  // Presses, keys and assistive actions alike.
  connect(chosen, &QButtonGroup::idToggled, this, [this](int place, bool on) {
    if (on && place != lists_.shown_list) choose(place);
  });
  return card;
}

void RecordListsWindow::choose(int list) {
  guarded([&] { lists_.choose(list); });
  show_list();
}

void RecordListsWindow::press_ok() {
  lists_.accept();
  if (lists_.closed) {
    accept();
  } else {
    show_list();
  }
}

void RecordListsWindow::show_list() {
  const auto place = static_cast<std::size_t>(lists_.shown_list);
  show_table(every_record_list.at(place).ranked);
  entries_.at(place)->setChecked(true);
  set_subheading(lists_.walk_length == 0 ? QString()
                                         : QStringLiteral("%1 of %2").arg(lists_.walked).arg(lists_.walk_length));
}

}  // namespace velorin
