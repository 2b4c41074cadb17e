// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/scorecard2_window.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "console/captain_forms.h"
#include "desktop/shown_text.h"
#include "reports/forms/batting_card_view.h"
#include "reports/forms/report_parts.h"
#include "reports/scorecard.h"
#include "ui/front_end.h"

namespace velorin {

Scorecard2Window::Scorecard2Window(const scorecard2& form, QWidget* parent)
    : Form(QStringLiteral("scorecard2"), Dismissal::closes, parent), form_(form) {
  set_title(QStringLiteral("Scorecard - 1st Innings"), shown(form_.label10));
  set_subheading(shown(form_.label12));
  name_head(*this, QStringLiteral("Label10"), QStringLiteral("Label12"));
  new_column(*this, widest_card)
      ->addWidget(new BattingCardView(form_,
                                      [this](int place) {
                                        batsmandetails details;
                                        details.figures = form_.details(place);
                                        details.title = details.figures.title;
                                        user().show(details);
                                        focus_default();
                                      }),
                  1);
  add_aside(new_report_button(QStringLiteral("Command2"),
                              {.caption = shown(scorecard2::command2_caption), .mnemonic = u'B'},
                              [this] { form_.command2_click(); }));
  add_aside(new_report_button(QStringLiteral("Command3"),
                              {.caption = shown(scorecard2::command3_caption), .mnemonic = u'P'},
                              [this] { form_.command3_click(); }));
  add_ok(*this);
  findChild<QPushButton*>(QStringLiteral("Command1"))->setFocus();
}

}  // namespace velorin
