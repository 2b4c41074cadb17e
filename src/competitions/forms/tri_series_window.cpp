// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/tri_series_window.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <array>

#include "competitions/forms/number_field.h"
#include "competitions/tri_series.h"
#include "database/open_database.h"
#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "desktop/ground_picture.h"
#include "desktop/last_choices.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "reports/worm_graph.h"

namespace velorin {

namespace {

/// The controls of a team, in the order of the teams.
struct Side {
  const char* caption;
  char16_t mnemonic;
  const char* list;
  const char* options;
};
constexpr std::array<Side, tri_teams> sides = {{{"First Team (host):", u'F', "first_team", "first"},
                                                {"Second Team:", u'S', "second_team", "second"},
                                                {"Third Team:", u'T', "third_team", "third"}}};

}  // namespace

TriSeriesWindow::TriSeriesWindow(match_state& match, open_database& database, tri_series_form& form, QWidget* parent)
    : Form(QStringLiteral("series2"), Dismissal::closes, parent),
      form_(form),
      grounds_(new QComboBox),
      match_(match),
      data_(database) {
  set_title(QStringLiteral("Tri Series"), QStringLiteral("Tri Series"));
  body()->setSpacing(16);
  body()->addWidget(new_sides());
  rounds_ = new NumberField(
      QStringLiteral("rounds"), form_.typed_rounds, most_tri_rounds,
      [this](const std::string& text) { form_.typed_rounds = text; },
      [this](int value) {
        form_.set_rounds(value);
        return form_.typed_rounds;
      });
  grounds_->setObjectName(QStringLiteral("grounds"));
  connect(grounds_, &QComboBox::currentIndexChanged, this, [this](int index) { form_.ground_index = index; });
  body()->addWidget(new_ground_and_number(grounds_, QStringLiteral("No. of Round Robin stages:"), rounds_));
  body()->addSpacing(8);
  ground_below_ = new GroundBelow;
  body()->addWidget(ground_below_, 1);
  add_afresh_line(*body(), standing_worms(match), [this] { start_worms_afresh(match_); });

  add_as_last_time(*this);
  entry_foot_ = add_entry_foot(*this, [this] { play(); });
  show_choice();
  on_dismiss([this] {
    form_.cancel();
    done(Rejected);
  });
}

QWidget* TriSeriesWindow::new_sides() {
  auto* cards = new QWidget;
  auto* row = new QHBoxLayout(cards);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(16);
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const Side& side = sides[i];
    auto* teams = new_team_list(QString::fromLatin1(side.list), form_.teams, form_.team_index[i], [this, i](int index) {
      form_.choose_team(static_cast<int>(i), index);
      show_choice();
    });
    row->addWidget(new_side(QString::fromLatin1(side.caption), side.mnemonic, teams, QString::fromLatin1(side.options),
                            form_.computer_captains[i]),
                   1);
  }
  return cards;
}

void TriSeriesWindow::show_choice() {
  show_grounds(*grounds_, form_.grounds, form_.ground_index);
  ground_below_->show_country(shown(entry_text(form_.teams, form_.team_index[0])));
  show_ready(entry_foot_, form_.ready(), QStringLiteral("Choose all three teams"));
}

void TriSeriesWindow::play() {
  if (!number_is_fit(form_.typed_rounds, most_tri_rounds, "Text1")) {
    rounds_->text()->setFocus();
    rounds_->text()->selectAll();
    return;
  }
  if (!grounds_are_fit(data_, *this, {entry_text(form_.teams, form_.team_index[0])})) return;
  hide();
  keep_choices(*this);
  form_.accept();
  // Left before its first match was over, the form comes back.
  form_.closed ? accept() : show();
}

}  // namespace velorin
