// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/series2_window.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>

#include "competitions/forms/number_field.h"
#include "competitions/series2.h"
#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "reports/worms.h"

namespace velorin {

namespace {

constexpr int most_rounds = 5;

/// The controls of a team, in the order of the teams.
struct Side {
  const char* caption;
  char16_t mnemonic;
  const char* list;
  const char* options;
};
constexpr std::array<Side, 3> sides = {{{"First Team (host):", u'F', "Combo1", "Option1"},
                                        {"Second Team:", u'S', "Combo2", "Option3"},
                                        {"Third Team:", u'T', "Combo3", "Option2"}}};

}  // namespace

Series2Window::Series2Window(series2& form, QWidget* parent)
    : Form(QStringLiteral("series2"), Dismissal::closes, parent), form_(form), grounds_(new QComboBox) {
  set_title(QStringLiteral("Tri Series"), QStringLiteral("Tri Series"));
  body()->setSpacing(16);
  body()->addWidget(new_sides());
  rounds_ = new NumberField(
      form_.text1, most_rounds, [this](const std::string& text) { form_.text1 = text; },
      [this](int value) {
        form_.vscroll1_change(value);
        return form_.text1;
      });
  grounds_->setObjectName(QStringLiteral("Combo4"));
  connect(grounds_, &QComboBox::currentIndexChanged, this, [this](int index) { form_.combo4_index = index; });
  body()->addWidget(new_ground_and_number(grounds_, QStringLiteral("No. of Round Robin stages:"), rounds_));
  body()->addStretch(1);
  add_afresh_line(*body(), standing_worms(), &start_worms_afresh);

  entry_foot_ = add_entry_foot(*this, [this] { play(); });
  show_choice();
  on_dismiss([this] {
    form_.command2_click();
    done(Rejected);
  });
}

QWidget* Series2Window::new_sides() {
  auto* cards = new QWidget;
  auto* row = new QHBoxLayout(cards);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const Side& side = sides[i];
    auto* teams =
        new_team_list(QString::fromLatin1(side.list), form_.combo1, form_.team_index[i], [this, i](int index) {
          form_.choose_team(static_cast<int>(i), index);
          show_choice();
        });
    row->addWidget(new_side(QString::fromLatin1(side.caption), side.mnemonic, teams, QString::fromLatin1(side.options),
                            form_.cpu[i]),
                   1);
  }
  return cards;
}

void Series2Window::show_choice() {
  show_grounds(*grounds_, form_.combo4, form_.combo4_index);
  show_ready(entry_foot_, form_.ready(), QStringLiteral("Choose all three teams"));
}

void Series2Window::play() {
  if (!number_is_fit(form_.text1, most_rounds, "Text1")) {
    rounds_->text()->setFocus();
    rounds_->text()->selectAll();
    return;
  }
  if (!grounds_are_fit(*this, {entry_text(form_.combo1, form_.team_index[0])})) return;
  hide();
  form_.command1_click();
  // Left before its first match was over, the form comes back.
  form_.closed ? accept() : show();
}

}  // namespace velorin
