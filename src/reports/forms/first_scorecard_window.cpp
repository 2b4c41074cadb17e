// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/first_scorecard_window.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "console/captain_forms.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "reports/forms/batting_card_view.h"
#include "reports/forms/report_parts.h"
#include "reports/scorecard.h"
#include "ui/front_end.h"

namespace velorin {

FirstScorecardWindow::FirstScorecardWindow(front_end& user, const first_scorecard_form& form, QWidget* parent)
    : Form(QStringLiteral("scorecard2"), Dismissal::closes, parent), form_(form), user_(user) {
  stand_as(Place::beside);
  set_title(QStringLiteral("Scorecard - 1st Innings"), shown(form_.batting_side));
  set_subheading(shown(form_.ground));
  name_head(*this, QStringLiteral("batting_side"), QStringLiteral("ground"));
  add_head_crest(*this, QStringLiteral("crest"))->show_team(shown(form_.batting_side));
  new_column(*this, widest_card)
      ->addWidget(new BattingCardView(form_,
                                      [this](int place) {
                                        batsman_details_form details;
                                        details.figures = form_.details(place);
                                        details.title = details.figures.title;
                                        user_.show(details);
                                        focus_default();
                                      }),
                  1);
  add_aside(new_report_button(QStringLiteral("show_bowling"),
                              {.caption = shown(first_scorecard_form::bowling_caption), .mnemonic = u'B'},
                              [this] { form_.show_bowling(user_); }));
  add_aside(new_report_button(QStringLiteral("show_partnerships"),
                              {.caption = shown(first_scorecard_form::partnerships_caption), .mnemonic = u'P'},
                              [this] { form_.show_partnerships(user_); }));
  add_ok(*this);
  findChild<QPushButton*>(QStringLiteral("accept"))->setFocus();
}

}  // namespace velorin
