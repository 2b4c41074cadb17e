// SPDX-License-Identifier: GPL-3.0-or-later
#include "console/forms/batsman_details_window.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <array>

#include "console/captain_forms.h"
#include "desktop/controls.h"
#include "desktop/message_kinds.h"
#include "desktop/shown_text.h"

namespace velorin {

namespace {

constexpr const char* names[] = {"dots", "singles", "twos", "threes", "fours", "sixes", "runs", "balls", "strike_rate"};

std::array<QString, 9> texts_of(const batsman_figures& figures) {
  const auto number = [](int value) { return QString::number(value); };
  return {number(figures.dots),   number(figures.singles), number(figures.twos),
          number(figures.threes), number(figures.fours),   number(figures.sixes),
          number(figures.runs),   number(figures.balls),   shown(figures.strike_rate)};
}

}  // namespace

BatsmanDetailsWindow::BatsmanDetailsWindow(batsman_details_form& form, QWidget* parent)
    : Form(QStringLiteral("batsmandetails"), Dismissal::closes, parent), form_(form) {
  stand_as(Place::sheet);
  const std::string& title = form.figures.title.empty() ? form.title : form.figures.title;
  limit_body(800);
  set_title(title.empty() ? QStringLiteral("Batsman") : shown(title),
            shown_caption(form.figures.headline).simplified());
  name_heading(QStringLiteral("headline"));
  QFrame* card = new_card();
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(8);
  // Three columns of three: what he ran, what he hit, what it came to.
  const std::array<QString, 9> texts = texts_of(form.figures);
  for (int i = 0; i < 9; ++i) {
    const auto at = static_cast<std::size_t>(i);
    const int column = i / 3 * 3;
    grid->addWidget(new_label(shown(batsman_details_form::headings[at]), TextRole::muted), i % 3, column);
    auto* figure = new_named_label(QString::fromLatin1(names[i]), texts[at], TextRole::heading);
    figure->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    figure->setMinimumWidth(56);
    grid->addWidget(figure, i % 3, column + 1);
  }
  for (const int gap : {2, 5}) {
    grid->setColumnMinimumWidth(gap, 16);
    grid->setColumnStretch(gap, 1);
  }
  card_rows(card)->addLayout(grid);
  body()->addWidget(card);
  add_pass_by(*this, form.kind);
  auto* ok = add_default_button(QStringLiteral("accept"), {.caption = QStringLiteral("OK"), .mnemonic = u'O'}, [this] {
    form_.accept();
    accept();
  });
  ok->setFocus();
  on_dismiss([ok] { ok->click(); });
}

}  // namespace velorin
