// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/team_selection_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/button_table.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/table_view.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "setup/forms/leaving.h"
#include "setup/team_selection.h"

namespace velorin {

namespace {

struct Column {
  const char* heading;
  std::string (team_selection_form::*text)(int) const;
  bool numbers;
};

constexpr Column columns[] = {
    {"Bat Type", &team_selection_form::batting_type, false},
    {"Bat Skill", &team_selection_form::batting_skill, true},
    {"Bowler type", &team_selection_form::bowling_type, false},
    {"Bowl SR", &team_selection_form::balls_per_wicket, true},
    {"Econ.", &team_selection_form::economy, true},
};

}  // namespace

TeamSelectionWindow::TeamSelectionWindow(const match_state& match, team_selection_form& form, QWidget* parent)
    : Form(QStringLiteral("Teamsel"), Dismissal::refused, parent), form_(form), match_(match) {
  limit_body(1000);
  set_title(shown(form.title()), shown(form.heading()));
  add_head_crest(*this, QStringLiteral("crest"))->show_team(shown(form.heading()));
  counter_ = new_named_label(QStringLiteral("selected_count"), {}, TextRole::strong);
  body()->setContentsMargins(24, 8, 24, 8);
  body()->addWidget(new_men(), 1);
  body()->addStretch();
  add_acts();
  show_ticks();
  const auto first =
      std::find_if(boxes_.begin() + 1, boxes_.end(), [](const QCheckBox* box) { return !box->isHidden(); });
  if (first != boxes_.end()) (*first)->setFocus();
  let_leave(*this, form_);
}

QWidget* TeamSelectionWindow::new_men() {
  auto* men = new ButtonTable(QStringLiteral("men"));
  // Twenty rows have to fit the smallest screen.
  men->setStyleSheet(QStringLiteral("QCheckBox { padding: 0px 3px; border-width: 1px; }"));
  Table table{.name = QStringLiteral("Men"), .columns = {}, .rows = {}, .order = RowOrder::free};
  table.columns.push_back({.heading = QStringLiteral(" Player"), .stretches = true});
  for (const Column& column : columns) {
    table.columns.push_back({.heading = QString::fromLatin1(column.heading), .numbers = column.numbers});
  }
  std::map<int, QAbstractButton*> ticks;
  for (int place = 1; place <= 20; ++place) {
    QCheckBox* box = new_tick(place);
    boxes_[static_cast<std::size_t>(place)] = box;
    ticks[place] = box;
    if (form_.row_visible(place)) table.rows.push_back(row_of(place));
  }
  men->set_table(std::move(table), std::move(ticks));
  men->set_row_heights(23, 46);
  return men;
}

TableRow TeamSelectionWindow::row_of(int place) const {
  TableRow row{.cells = {{.text = shown(form_.man(place).name)}}, .id = place};
  for (const Column& column : columns) row.cells.push_back({.text = shown((form_.*column.text)(place))});
  return row;
}

QCheckBox* TeamSelectionWindow::new_tick(int place) {
  auto* box = new QCheckBox(button_text(shown(form_.man(place).name)));
  box->setObjectName(QStringLiteral("man_%1").arg(place));
  QStringList spoken{shown(form_.man(place).name)};
  for (const Column& column : columns) {
    spoken << QStringLiteral("%1 %2").arg(QLatin1String(column.heading), shown((form_.*column.text)(place)));
  }
  box->setAccessibleName(spoken.join(QStringLiteral(", ")));
  connect(box, &QCheckBox::toggled, this, [this, place](bool on) {
    if (on == form_.ticks[static_cast<std::size_t>(place)]) return;  // shown, not chosen
    guarded([&] {
      form_.toggle(place);
      show_ticks();
    });
  });
  return box;
}

void TeamSelectionWindow::add_acts() {
  add_aside(counter_);
  add_button(QStringLiteral("auto_select"), {.caption = QStringLiteral("Auto Select"), .mnemonic = u'A'}, [this] {
    form_.auto_select();
    show_ticks();
  });
  add_button(QStringLiteral("clear_selection"), {.caption = QStringLiteral("Clear Selection"), .mnemonic = u'C'},
             [this] {
               form_.clear_selection();
               show_ticks();
             });
  add_button(QStringLiteral("career_batting_averages"),
             {.caption = QStringLiteral("Career Bat Avgs."), .mnemonic = u'B'},
             [this] { form_.show_career_averages(0); });
  add_button(QStringLiteral("career_bowling_averages"),
             {.caption = QStringLiteral("Career Bowl Avgs."), .mnemonic = u'w'},
             [this] { form_.show_career_averages(1); });
  const Act ok{
      .caption = QStringLiteral("OK"), .mnemonic = u'O', .hint = QStringLiteral("Takes the eleven men ticked")};
  const bool second = match_.first_team_done;
  for (const char* name : {"accept_first_team", "accept_second_team"}) {
    const bool offered = second == (name == std::string_view("accept_second_team"));
    QPushButton* button = offered ? add_default_button(QString::fromLatin1(name), ok, [this] { confirm(); })
                                  : add_button(QString::fromLatin1(name), ok, [this] { confirm(); });
    button->setVisible(offered);
  }
}

void TeamSelectionWindow::show_ticks() {
  for (int place = 1; place <= 20; ++place) {
    boxes_[static_cast<std::size_t>(place)]->setChecked(form_.ticks[static_cast<std::size_t>(place)]);
  }
  counter_->setText(shown(form_.selected_count()));
}

void TeamSelectionWindow::confirm() {
  // Whatever is told of a save that fails stands alone.
  if (form_.ticked() == men_in_eleven) hide();
  form_.accept();
  if (form_.closed) accept();
}

}  // namespace velorin
