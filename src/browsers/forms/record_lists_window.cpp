// SPDX-License-Identifier: GPL-3.0-or-later
#include "browsers/forms/record_lists_window.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
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
constexpr int least_width_for_both = 1180;  // pixels, of the window

}  // namespace

RecordListsWindow::RecordListsWindow(front_end& user, const open_database& database, record_lists_form& form,
                                     QWidget* parent)
    : RecordWindow(user, database, QStringLiteral("reclists"), form, true, parent), lists_(form) {
  at_left_ = new_lists();
  add_at_left(at_left_, entries_.back());
  above_ = new_drop_down();
  above_->hide();
  add_above(above_);
  setTabOrder(entries_.back(), drop_down_);
  prefer_size(QSize(1248, 680));
  show_list();
}

QFrame* RecordListsWindow::new_lists() {
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

QWidget* RecordListsWindow::new_drop_down() {
  auto* line = new QWidget;
  auto* row = new QHBoxLayout(line);
  row->setContentsMargins(0, 0, 0, 0);
  drop_down_ = new QComboBox;
  drop_down_->setObjectName(QStringLiteral("lists"));
  drop_down_->setMaxVisibleItems(static_cast<int>(every_record_list.size()));
  for (const record_list& list : every_record_list) {
    drop_down_->addItem(QStringLiteral("%1: %2").arg(shown(list.group), shown(list.caption)));
  }
  row->addWidget(new_caption(QStringLiteral("List"), u'L', drop_down_));
  row->addWidget(drop_down_);
  row->addStretch(1);
  connect(drop_down_, &QComboBox::activated, this, [this](int place) {
    if (place != lists_.shown_list) choose(place);
  });
  return line;
}

void RecordListsWindow::resizeEvent(QResizeEvent* event) {
  const bool narrow = width() < least_width_for_both;
  if (above_->isHidden() == narrow) {
    const bool chose =
        focusWidget() != nullptr && (at_left_->isAncestorOf(focusWidget()) || focusWidget() == drop_down_);
    at_left_->setVisible(!narrow);
    above_->setVisible(narrow);
    if (chose && narrow) drop_down_->setFocus();
    if (chose && !narrow) entries_.at(static_cast<std::size_t>(lists_.shown_list))->setFocus();
  }
  RecordWindow::resizeEvent(event);
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
  set_title(shown(lists_.table.title), shown(every_record_list.at(place).caption));
  entries_.at(place)->setChecked(true);
  drop_down_->setCurrentIndex(lists_.shown_list);
  set_subheading(lists_.walk_length == 0 ? QString()
                                         : QStringLiteral("%1 of %2").arg(lists_.walked).arg(lists_.walk_length));
}

}  // namespace velorin
