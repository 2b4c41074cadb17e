// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/series1_window.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "competitions/forms/entry_controls.h"
#include "competitions/forms/number_field.h"
#include "competitions/series1.h"
#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "desktop/stop_switch.h"
#include "reports/worms.h"

namespace velorin {

namespace {
constexpr int most_matches = 10;
}  // namespace

Series1Window::Series1Window(series1& form, QWidget* parent)
    : Form(QStringLiteral("series1"), Dismissal::closes, parent), form_(form), grounds_(new QComboBox) {
  set_title(QStringLiteral("New Series"), QStringLiteral("New Series"));
  body()->setSpacing(16);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(16);
  auto* home = new_team_list(QStringLiteral("Combo1"), form_.combo1, form_.combo1_index, [this](int index) {
    form_.choose_home(index);
    show_choice();
  });
  auto* away = new_team_list(QStringLiteral("Combo2"), form_.combo1, form_.combo2_index, [this](int index) {
    form_.choose_away(index);
    show_choice();
  });
  sides->addWidget(new_side(QStringLiteral("Home Team:"), u'H', home, QStringLiteral("Option1"), form_.option1_cpu), 1);
  sides->addWidget(new_label(QStringLiteral("vs"), TextRole::heading));
  sides->addWidget(new_side(QStringLiteral("Away Team:"), u'A', away, QStringLiteral("Option3"), form_.option3_cpu), 1);
  body()->addLayout(sides);

  matches_ = new NumberField(
      form_.text1, most_matches, [this](const std::string& text) { form_.text1 = text; },
      [this](int value) {
        form_.vscroll1_change(value);
        return form_.text1;
      });
  grounds_->setObjectName(QStringLiteral("Combo3"));
  connect(grounds_, &QComboBox::currentIndexChanged, this, [this](int index) { form_.combo3_index = index; });
  body()->addWidget(new_ground_and_number(grounds_, QStringLiteral("No of Matches in Series :"), matches_));
  body()->addStretch(1);
  add_afresh_line(*body(), standing_worms(), &start_worms_afresh);

  add_aside(new_stop_switch(objectName()));
  wanted_ = new_reason();
  add_beside_buttons(wanted_);
  ok_ = add_default_button(QStringLiteral("Command1"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'},
                           [this] { play(); });
  show_choice();
  add_button(QStringLiteral("Command2"), {.caption = QStringLiteral("Cancel"), .mnemonic = u'C'}, [this] { reject(); });
  on_dismiss([this] {
    form_.command2_click();
    done(Rejected);
  });
}

void Series1Window::show_choice() {
  show_grounds(*grounds_, form_.combo3, form_.combo3_index);
  show_ready(*ok_, *wanted_, form_.ready(), QStringLiteral("Choose both teams"));
}

void Series1Window::play() {
  if (!number_is_fit(form_.text1, most_matches, "Text1")) {
    matches_->text()->setFocus();
    matches_->text()->selectAll();
    return;
  }
  if (!grounds_are_fit(*this, {entry_text(form_.combo1, form_.combo1_index)})) return;
  hide();
  form_.command1_click();
  // Left before its first match was over, the form comes back.
  form_.closed ? accept() : show();
}

}  // namespace velorin
