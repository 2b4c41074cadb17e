// SPDX-License-Identifier: GPL-3.0-or-later
#include "competitions/forms/series_window.h"

#include <QComboBox>
#include <QFrame>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "competitions/forms/number_field.h"
#include "competitions/series.h"
#include "database/open_database.h"
#include "desktop/afresh_line.h"
#include "desktop/controls.h"
#include "desktop/ground_picture.h"
#include "desktop/last_choices.h"
#include "desktop/shown_text.h"
#include "model/match_state.h"
#include "reports/worm_graph.h"

namespace velorin {

SeriesWindow::SeriesWindow(match_state& match, open_database& database, series_form& form, QWidget* parent)
    : Form(QStringLiteral("series1"), Dismissal::closes, parent),
      form_(form),
      grounds_(new QComboBox),
      match_(match),
      data_(database) {
  set_title(QStringLiteral("New Series"), QStringLiteral("New Series"));
  body()->setSpacing(16);
  auto* sides = new QHBoxLayout;
  sides->setSpacing(16);
  auto* home = new_team_list(QStringLiteral("home_team"), form_.teams, form_.home_team_index, [this](int index) {
    form_.choose_home(index);
    show_choice();
  });
  auto* away = new_team_list(QStringLiteral("away_team"), form_.teams, form_.away_team_index, [this](int index) {
    form_.choose_away(index);
    show_choice();
  });
  sides->addWidget(
      new_side(QStringLiteral("Home Team:"), u'H', home, QStringLiteral("home"), form_.computer_captains_home), 1);
  sides->addWidget(new_label(QStringLiteral("vs"), TextRole::heading));
  sides->addWidget(
      new_side(QStringLiteral("Away Team:"), u'A', away, QStringLiteral("away"), form_.computer_captains_away), 1);
  body()->addLayout(sides);

  matches_ = new NumberField(
      QStringLiteral("matches"), form_.typed_matches, most_series_matches,
      [this](const std::string& text) { form_.typed_matches = text; },
      [this](int value) {
        form_.set_matches(value);
        return form_.typed_matches;
      });
  grounds_->setObjectName(QStringLiteral("grounds"));
  connect(grounds_, &QComboBox::currentIndexChanged, this, [this](int index) { form_.ground_index = index; });
  body()->addWidget(new_ground_and_number(grounds_, QStringLiteral("No of Matches in Series :"), matches_));
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

void SeriesWindow::show_choice() {
  show_grounds(*grounds_, form_.grounds, form_.ground_index);
  ground_below_->show_country(shown(entry_text(form_.teams, form_.home_team_index)));
  show_ready(entry_foot_, form_.ready(), QStringLiteral("Choose both teams"));
}

void SeriesWindow::play() {
  if (!number_is_fit(form_.typed_matches, most_series_matches, "Text1")) {
    matches_->text()->setFocus();
    matches_->text()->selectAll();
    return;
  }
  if (!grounds_are_fit(data_, *this, {entry_text(form_.teams, form_.home_team_index)})) return;
  hide();
  keep_choices(*this);
  form_.accept();
  // Left before its first match was over, the form comes back.
  form_.closed ? accept() : show();
}

}  // namespace velorin
