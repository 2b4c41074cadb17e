// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/new_match_window.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <functional>

#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/ground_picture.h"
#include "desktop/preferences.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "reports/worm_graph.h"
#include "setup/forms/set_up_steps.h"
#include "setup/new_match.h"

namespace velorin {

namespace {

/// "CPU" and "Human", one of which is chosen: the options `side`_computer and `side`_human.
QHBoxLayout* new_captains(const char* side, const QString& team, bool& cpu, QWidget* parent) {
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  auto* group = new QButtonGroup(parent);
  const auto add = [&](const char* captain, const char* caption) {
    auto* option = new QRadioButton(QString::fromLatin1(caption));
    option->setObjectName(QStringLiteral("%1_%2").arg(QLatin1String(side), QLatin1String(captain)));
    option->setAccessibleName(QStringLiteral("%1: %2").arg(team, QString::fromLatin1(caption)));
    group->addButton(option);
    row->addWidget(option);
    return option;
  };
  QRadioButton* computer = add("computer", "CPU");
  QRadioButton* human = add("human", "Human");
  (cpu ? computer : human)->setChecked(true);
  QObject::connect(computer, &QRadioButton::toggled, parent, [&cpu](bool on) { cpu = on; });
  row->addStretch(1);
  return row;
}

/// The crest of the team that a list has chosen.
CrestView* new_crest(const QComboBox& list, const QString& name) {
  auto* crest = new CrestView(name, 80);
  crest->show_team(list.currentText());
  QObject::connect(&list, &QComboBox::currentTextChanged, crest, &CrestView::show_team);
  return crest;
}

}  // namespace

NewMatchWindow::NewMatchWindow(match_state& match, new_match_form& form, QWidget* parent)
    : NewMatchWindow(QStringLiteral("teamfrm"), match, form, parent) {
  add_practice();
  if (preferences::last_sides().first.isEmpty()) return;
  auto* again = new QPushButton;
  again->setObjectName(QStringLiteral("as_last_time"));
  again->setAutoDefault(false);
  name_act(*again, {.caption = QStringLiteral("As Last Time"),
                    .mnemonic = u'L',
                    .hint = QStringLiteral("The sides and the ground of the last match")});
  connect(again, &QPushButton::clicked, this, [this] { as_last_time(); });
  add_aside(again);
}

NewMatchWindow::NewMatchWindow(const QString& name, match_state& match, new_match_form& form, QWidget* parent)
    : Form(name, Dismissal::closes, parent), form_(form), grounds_(new QComboBox), match_(match) {
  limit_body(880);
  const Captains captains = preferences::captains();
  form_.computer_captains_first = !captains.first_human;
  form_.computer_captains_second = !captains.second_human;
  set_title(QStringLiteral("New Match"), QStringLiteral("New Match"));
  show_set_up_steps(*this, match, SetUpStep::teams);
  auto* teams = new QHBoxLayout;
  teams->setSpacing(16);
  const auto add_team = [&](const char* caption, char16_t mnemonic, QComboBox* list, const char* side, bool& cpu) {
    QFrame* card = new_card();
    QLabel* heading = new_caption(QString::fromLatin1(caption), mnemonic, list);
    auto* row = new QHBoxLayout;
    row->setSpacing(16);
    row->addWidget(new_crest(*list, QStringLiteral("%1_crest").arg(QLatin1String(side))));
    auto* rows = new QVBoxLayout;
    rows->addWidget(heading);
    rows->addWidget(list);
    rows->addLayout(new_captains(side, spoken_name(QString::fromLatin1(caption)), cpu, card));
    row->addLayout(rows, 1);
    card_rows(card)->addLayout(row);
    teams->addWidget(card, 1);
  };
  first_ = new_team_list("first_team", form.first_team_index, &new_match_form::choose_first_team);
  second_ = new_team_list("second_team", form.second_team_index, &new_match_form::choose_second_team);
  add_team(" First Team ", u'F', first_, "first", form.computer_captains_first);
  teams->addWidget(new_label(QStringLiteral("vs"), TextRole::heading));
  add_team(" Second Team ", u'S', second_, "second", form.computer_captains_second);
  body()->addLayout(teams);

  grounds_->setObjectName(QStringLiteral("grounds"));
  grounds_->setMinimumWidth(320);
  auto* place = new QHBoxLayout;
  place->setSpacing(16);
  place->addStretch(1);
  place->addWidget(new_caption(QStringLiteral("at"), u't', grounds_));
  grounds_->setAccessibleName(QStringLiteral("Ground"));
  place->addWidget(grounds_);
  place->addStretch(1);
  body()->addSpacing(8);
  body()->addLayout(place);
  rows_ = body()->count();
  ground_below_ = new GroundBelow;
  body()->addWidget(ground_below_, 1);
  add_afresh_line(*body(), standing_worms(match), [this] { start_worms_afresh(match_); });
  connect(grounds_, &QComboBox::currentIndexChanged, this, [this](int index) {
    form_.ground_index = index;
    show_ground();
    show_ready();
  });

  wanted_ = new_named_label(QStringLiteral("wanted"), {}, TextRole::muted);
  add_beside_buttons(wanted_);
  ok_ = add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                           [this] { play(); });
  add_button(QStringLiteral("cancel"), {.caption = QStringLiteral("Cancel"), .mnemonic = u'C'}, [this] { reject(); });
  on_dismiss([this] {
    form_.cancel();
    done(Rejected);
  });
  show_grounds();
}

void NewMatchWindow::add_practice() {
  auto* box = new QCheckBox;
  box->setObjectName(QStringLiteral("practice"));
  box->setText(button_text(QStringLiteral("Practice: counts for no career, balls can be taken back"), u'P'));
  box->setAccessibleName(spoken_name(QStringLiteral("Practice: counts for no career, balls can be taken back")));
  box->setToolTip(QStringLiteral("A match to try things out; careers and records stay as they are (Alt+P)"));
  box->setChecked(form_.practice);
  connect(box, &QCheckBox::toggled, this, [this](bool on) { form_.practice = on; });
  body()->insertWidget(rows_before_stretch(), box, 0, Qt::AlignHCenter);
  setTabOrder(grounds_, box);
}

QComboBox* NewMatchWindow::new_team_list(const char* name, int chosen, void (new_match_form::*choose)(int)) {
  auto* list = new QComboBox;
  list->setObjectName(QString::fromLatin1(name));
  list->setMinimumWidth(200);
  list->setMaxVisibleItems(20);
  for (const team_entry& team : form_.teams) list->addItem(shown(team.name), team.record);
  show_crests(*list);
  list->setCurrentIndex(chosen);
  connect(list, &QComboBox::currentIndexChanged, this, [this, choose](int index) {
    guarded([&] {
      std::invoke(choose, form_, index);
      show_grounds();
    });
  });
  return list;
}

QWidget* NewMatchWindow::grounds() const { return grounds_; }

void NewMatchWindow::as_last_time() {
  const LastSides last = preferences::last_sides();
  const int first = first_->findText(last.first);
  const int second = second_->findText(last.second);
  if (first < 0 || second < 0) return;
  first_->setCurrentIndex(first);
  second_->setCurrentIndex(second);
  if (const int ground = grounds_->findText(last.ground); ground >= 0) grounds_->setCurrentIndex(ground);
}

void NewMatchWindow::show_grounds() {
  const QSignalBlocker quiet(grounds_);
  grounds_->clear();
  for (const std::string& ground : form_.grounds) grounds_->addItem(shown(ground));
  grounds_->setCurrentIndex(form_.ground_index);
  show_ground();
  show_ready();
}

void NewMatchWindow::show_ground() {
  guarded([this] { ground_below_->show_country(shown(form_.ground_country())); });
}

void NewMatchWindow::show_ready() {
  const bool teams = form_.first_team_index >= 0 && form_.second_team_index >= 0;
  wanted_->setText(form_.ready() ? QString()
                   : teams       ? QStringLiteral("Choose a ground")
                                 : QStringLiteral("Choose both teams"));
  ok_->setEnabled(form_.ready());
}

void NewMatchWindow::play() {
  preferences::set_last_sides(
      {shown(form_.first_team_name()), shown(form_.second_team_name()), shown(form_.ground_name())});
  preferences::set_captains({!form_.computer_captains_first, !form_.computer_captains_second});
  hide();
  form_.accept();
  accept();
}

}  // namespace velorin
