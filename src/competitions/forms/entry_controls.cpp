// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/entry_controls.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "competitions/forms/number_field.h"
#include "competitions/match_entry.h"
#include "database/open_database.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/form.h"
#include "desktop/message_window.h"
#include "desktop/program_end.h"
#include "desktop/question.h"
#include "desktop/shown_text.h"
#include "desktop/stop_switch.h"
#include "model/run_time_error.h"

namespace velorin {

QComboBox* new_team_list(const QString& name, const std::vector<team_entry>& teams, int chosen,
                         std::function<void(int)> choose, bool or_none) {
  auto* list = new QComboBox;
  list->setObjectName(name);
  list->setMinimumWidth(200);
  list->setMaxVisibleItems(21);
  const int first = or_none ? 1 : 0;
  if (or_none) list->addItem(QStringLiteral("none"));
  for (const team_entry& team : teams) list->addItem(shown(team.name), team.record);
  show_crests(*list);
  if (or_none) list->setItemIcon(0, {});
  list->setCurrentIndex(chosen + first);
  QObject::connect(list, &QComboBox::currentIndexChanged, list,
                   [choose = std::move(choose), first](int index) { guarded([&] { choose(index - first); }); });
  return list;
}

QFrame* new_side(const QString& caption, QChar mnemonic, QComboBox* teams, const QString& side, bool& cpu) {
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_caption(caption, mnemonic, teams));
  card_rows(card)->addWidget(teams);
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  auto* group = new QButtonGroup(card);
  const auto add = [&](const char* captain, const QString& text) {
    auto* option = new QRadioButton(text);
    option->setObjectName(QStringLiteral("%1_%2").arg(side, QLatin1String(captain)));
    option->setAccessibleName(QStringLiteral("%1: %2").arg(spoken_name(caption), text));
    group->addButton(option);
    row->addWidget(option);
    return option;
  };
  QRadioButton* computer = add("computer", QStringLiteral("CPU"));
  QRadioButton* human = add("human", QStringLiteral("Human"));
  (cpu ? computer : human)->setChecked(true);
  QObject::connect(computer, &QRadioButton::toggled, card, [&cpu](bool on) { cpu = on; });
  row->addStretch(1);
  card_rows(card)->addLayout(row);
  return card;
}

QFrame* new_ground_and_number(QComboBox* grounds, const QString& caption, NumberField* number) {
  grounds->setMinimumWidth(320);
  QFrame* card = new_card();
  auto* rows = new QGridLayout;
  rows->setHorizontalSpacing(16);
  rows->setColumnStretch(1, 1);
  rows->addWidget(new_caption(QStringLiteral("Ground:"), u'G', grounds), 0, 0);
  rows->addWidget(grounds, 0, 1, Qt::AlignLeft);
  rows->addWidget(new_caption(caption, u'N', number->text()), 1, 0);
  rows->addWidget(number, 1, 1, Qt::AlignLeft);
  card_rows(card)->addLayout(rows);
  return card;
}

void show_grounds(QComboBox& list, const std::vector<std::string>& grounds, int chosen) {
  const QSignalBlocker quiet(list);
  list.clear();
  for (const std::string& ground : grounds) list.addItem(shown(ground));
  list.setCurrentIndex(chosen);
}

EntryFoot add_entry_foot(Form& form, std::function<void()> play) {
  form.add_aside(new_stop_switch(form.objectName()));
  EntryFoot foot;
  foot.wanted = new_named_label(QStringLiteral("wanted"), {}, TextRole::muted);
  form.add_beside_buttons(foot.wanted);
  foot.ok = form.add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                                    std::move(play));
  form.add_button(QStringLiteral("cancel"), {.caption = QStringLiteral("Cancel"), .mnemonic = u'C'},
                  [&form] { form.reject(); });
  return foot;
}

void show_ready(const EntryFoot& foot, bool ready, const QString& wanted) {
  foot.ok->setEnabled(ready);
  foot.wanted->setText(ready ? QString() : wanted);
}

bool grounds_are_fit(open_database& database, QWidget& window, const std::vector<std::string>& hosts) {
  const std::vector<std::string> without = countries_without_ground(database, hosts);
  if (without.empty() && !list_grounds(database, hosts).empty()) return true;
  QStringList names;
  for (const std::string& country : without) names << shown(country);
  const QString told = names.isEmpty() ? QStringLiteral("No host is chosen.")
                       : names.size() == 1
                           ? QStringLiteral("%1 has no ground.").arg(names.front())
                           : QStringLiteral("%1 have no ground.").arg(names.join(QStringLiteral(" and ")));
  if (list_grounds(database, hosts).empty()) {
    MessageWindow message({"Error", core_text(told)}, MessageWindow::Kind::information, &window);
    run_modal(message);
    return false;
  }
  return ask(window, QStringLiteral("grounds_question"), told,
             QStringLiteral("Play all matches on the grounds of the other hosts?"));
}

bool number_is_fit(const std::string& text, int most, const char* field) {
  try {
    typed_number(text, most, field);
    return true;
  } catch (const run_time_error&) {
    MessageWindow message({"Error", "Type a whole number from 1 to " + std::to_string(most) + "."});
    run_modal(message);
    return false;
  }
}

}  // namespace velorin
