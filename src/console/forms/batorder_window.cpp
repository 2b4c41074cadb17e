// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/batorder_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>
#include <algorithm>

#include "browsers/sqdet.h"
#include "console/captain_forms.h"
#include "console/forms/man_list.h"
#include "desktop/controls.h"
#include "desktop/level_slider.h"
#include "desktop/shown_text.h"
#include "model/rules.h"
#include "model/teams.h"

namespace velorin {

BatorderWindow::BatorderWindow(batorder& form, QWidget* parent)
    : Form(QStringLiteral("batorder"), Dismissal::refused, parent), form_(form) {
  limit_body(800);
  set_title(shown(form.title), shown(form.title));
  set_subheading(shown(match.team1_name));
  auto* men = new ManList(shown(batorder::names_heading), {{shown(batorder::label1_heading), true, "Label1"},
                                                           {QStringLiteral("Bat Type"), false, nullptr, true},
                                                           {QString(), false, "note", true}});
  for (int row = 1; row <= men_in_eleven; ++row) {
    const bool enabled = form_.enabled[row];
    men->set_row(row, shown(form_.option1(row)), enabled,
                 {shown(form_.label1(row)), shown(match.batting_xi[row].bat_type),
                  enabled ? QString() : QStringLiteral("Has come in")});
  }
  body()->addWidget(men, 1);
  body()->addWidget(new_aggression());
  body()->addStretch();
  men->on_chosen([this](int row) { form_.option1_click(row); });
  if (form_.chosen == 0) {
    const auto first = std::find(form_.enabled.begin() + 1, form_.enabled.end(), true);
    if (first != form_.enabled.end()) form_.option1_click(static_cast<int>(first - form_.enabled.begin()));
  }
  men->choose(form_.chosen);
  add_button(QStringLiteral("Profile"), {.caption = QStringLiteral("Player Profile"), .mnemonic = u'P'}, [this] {
    if (form_.chosen > 0) show_profile(match.team1_name, form_.option1(form_.chosen));
  });
  add_default_button(QStringLiteral("Command1"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    form_.command1_click();
    if (form_.closed) accept();
  });
}

QWidget* BatorderWindow::new_aggression() {
  QFrame* card = new_card();
  auto* row = new QHBoxLayout;
  row->setSpacing(16);
  auto* slider = new LevelSlider(QStringLiteral("VScroll1"), 1, 5);
  slider->setValue(form_.vscroll1);
  connect(slider, &QSlider::valueChanged, this, [this](int level) { form_.vscroll1 = level; });
  row->addWidget(new_caption(shown(batorder::vscroll1_caption), u'A', slider));
  row->addStretch(1);
  row->addWidget(new_label(shown(batorder::vscroll1_low), TextRole::muted));
  row->addWidget(slider);
  row->addWidget(new_label(shown(batorder::vscroll1_high), TextRole::muted));
  card_rows(card)->addLayout(row);
  return card;
}

}  // namespace velorin
