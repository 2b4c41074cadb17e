// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/scorecard_window.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <functional>

#include "console/captain_forms.h"
#include "desktop/controls.h"
#include "desktop/crest.h"
#include "desktop/shown_text.h"
#include "reports/forms/batting_card_view.h"
#include "reports/forms/report_parts.h"
#include "reports/scorecard.h"
#include "ui/front_end.h"

namespace velorin {

namespace {

struct Report {
  const char* control;
  std::string_view caption;
  char16_t mnemonic;
  void (scorecard_form::*open)(front_end& user) const;
};

constexpr Report reports[] = {
    {"show_first_innings", scorecard_form::first_innings_caption, u'I', &scorecard_form::show_first_innings},
    {"show_bowling", scorecard_form::bowling_caption, u'F', &scorecard_form::show_bowling},
    {"show_partnerships", scorecard_form::partnerships_caption, u'P', &scorecard_form::show_partnerships},
    {"show_overs_graph", scorecard_form::overs_graph_caption, u'R', &scorecard_form::show_overs_graph},
    {"show_worm_graph", scorecard_form::worm_graph_caption, u'S', &scorecard_form::show_worm_graph},
};

struct Export {
  const char* control;
  std::string_view caption;
  char16_t mnemonic;
  const char* hint;
  export_kind kind;
};

constexpr Export exports[] = {
    {"save_html", scorecard_form::html_caption, u'H', "Save the match as a page", export_kind::html},
    {"save_text", scorecard_form::text_caption, u'T', "Save the match as plain text", export_kind::text},
    {"save_ball_by_ball", scorecard_form::ball_by_ball_caption, u'B', "Save the match ball by ball",
     export_kind::ball_by_ball},
};

}  // namespace

ScorecardWindow::ScorecardWindow(const match_play& play, const scorecard_form& form, QWidget* parent)
    : Form(QStringLiteral("scorecard"), Dismissal::closes, parent), form_(form), chooser_(ask_for_file), play_(play) {
  stand_as(Place::beside);
  set_title(QStringLiteral("Scorecard"), shown(form_.batting_side));
  set_subheading(shown(form_.ground));
  name_head(*this, QStringLiteral("batting_side"), QStringLiteral("ground"));
  add_head_crest(*this, QStringLiteral("crest"))->show_team(shown(form_.batting_side));
  body()->setContentsMargins(24, 12, 24, 12);
  column_ = new_column(*this, widest_card);
  column_->addWidget(new BattingCardView(form_,
                                         [this](int place) {
                                           batsman_details_form details;
                                           details.figures = form_.details(place);
                                           details.title = details.figures.title;
                                           play_.user.show(details);
                                           focus_default();
                                         }),
                     1);
  add_reports();
  not_saved_ = new_named_label(QStringLiteral("not_saved"), {}, TextRole::red);
  not_saved_->setWordWrap(true);
  not_saved_->setTextInteractionFlags(Qt::TextSelectableByMouse);
  not_saved_->setFocusPolicy(Qt::NoFocus);  // a click on it leaves the keyboard with the buttons
  not_saved_->hide();
  column_->addWidget(not_saved_);
  add_exports();
  add_ok(*this);
  findChild<QPushButton*>(QStringLiteral("accept"))->setFocus();
}

void ScorecardWindow::add_reports() {
  auto* row = new QHBoxLayout;
  row->setSpacing(8);
  for (const Report& report : reports) {
    auto* button = new_report_button(QString::fromLatin1(report.control),
                                     {.caption = shown(report.caption), .mnemonic = report.mnemonic},
                                     [this, open = report.open] { std::invoke(open, form_, play_.user); });
    row->addWidget(button, 1);
  }
  column_->addLayout(row);
  findChild<QPushButton*>(QStringLiteral("show_first_innings"))->setEnabled(form_.first_innings_enabled);
}

void ScorecardWindow::add_exports() {
  for (const Export& file : exports) {
    add_aside(new_report_button(
        QString::fromLatin1(file.control),
        {.caption = shown(file.caption), .mnemonic = file.mnemonic, .hint = QString::fromLatin1(file.hint)},
        [this, kind = file.kind] { save(kind); }));
  }
}

void ScorecardWindow::save(export_kind kind) {
  const QString failed = export_match(play_.match, play_.data, form_, kind, chooser_, this);
  not_saved_->setText(failed);
  not_saved_->setAccessibleName(failed);
  not_saved_->setVisible(!failed.isEmpty());
}

}  // namespace velorin
