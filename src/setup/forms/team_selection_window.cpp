// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/team_selection_window.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/banded_grid.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "model/rules.h"
#include "setup/forms/leaving.h"
#include "setup/team_selection.h"

namespace velorin {

namespace {

struct Column {
  const char* heading;
  const char* label;
  std::string (team_selection_form::*text)(int) const;
  bool numbers;
};

constexpr Column columns[] = {
    {"Bat Type", "batting_type", &team_selection_form::batting_type, false},
    {"Bat Skill", "batting_skill", &team_selection_form::batting_skill, true},
    {"Bowler type", "bowling_type", &team_selection_form::bowling_type, false},
    {"Bowl SR", "balls_per_wicket", &team_selection_form::balls_per_wicket, true},
    {"Econ.", "economy", &team_selection_form::economy, true},
};

}  // namespace

TeamSelectionWindow::TeamSelectionWindow(const match_state& match, team_selection_form& form, QWidget* parent)
    : Form(QStringLiteral("Teamsel"), Dismissal::refused, parent), form_(form), match_(match) {
  limit_body(1320);
  set_title(shown(form.title()), shown(form.heading()));
  add_head_crest(*this, QStringLiteral("crest"))->show_team(shown(form.heading()));
  counter_ = new_named_label(QStringLiteral("selected_count"), {}, TextRole::strong);
  auto* grid = new BandedGrid(2);
  // Twenty rows have to fit the smallest screen.
  grid->setStyleSheet(QStringLiteral("QCheckBox { padding: 0px 3px; border-width: 1px; }"));
  grid->add_heading(0, QStringLiteral(" Player"), false, true);
  for (int column = 0; column < 5; ++column) {
    grid->add_heading(column + 1, QString::fromLatin1(columns[column].heading), columns[column].numbers,
                      !columns[column].numbers);
  }
  for (int place = 1; place <= 20; ++place) add_row(*grid, place);
  grid->on_row_pressed([this](int row) { boxes_[static_cast<std::size_t>(row)]->click(); });
  body()->setContentsMargins(24, 8, 24, 8);
  body()->addWidget(grid, 1);
  body()->addStretch();
  add_acts();
  show_ticks();
  let_leave(*this, form_);
}

void TeamSelectionWindow::add_row(BandedGrid& grid, int place) {
  const bool visible = form_.row_visible(place);
  auto* box = new QCheckBox(button_text(shown(form_.man(place).name)));
  box->setObjectName(QStringLiteral("man_%1").arg(place));
  QStringList spoken{shown(form_.man(place).name)};
  grid.add(place, 0, box);
  box->setVisible(visible);
  int at = 0;
  for (const Column& column : columns) {
    const QString text = shown((form_.*column.text)(place));
    auto* label = new_named_label(QStringLiteral("%1_%2").arg(QLatin1String(column.label)).arg(place), text);
    grid.add(place, ++at, label);
    label->setVisible(visible);
    spoken << QStringLiteral("%1 %2").arg(QLatin1String(column.heading), text);
  }
  box->setAccessibleName(spoken.join(QStringLiteral(", ")));
  boxes_[static_cast<std::size_t>(place)] = box;
  connect(box, &QCheckBox::toggled, this, [this, place](bool on) {
    if (on == form_.ticks[static_cast<std::size_t>(place)]) return;  // shown, not chosen
    guarded([&] {
      form_.toggle(place);
      show_ticks();
    });
  });
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
