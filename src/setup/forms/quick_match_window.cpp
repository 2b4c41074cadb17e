// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/quick_match_window.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/controls.h"
#include "desktop/shown_text.h"
#include "desktop/step_bar.h"

namespace velorin {

namespace {

struct Answer {
  const char* name;
  const char* question;
  char16_t mnemonic;
  const char* by_computer;
  bool QuickAnswers::*answered;
};

constexpr Answer all_answers[] = {
    {"answers_conditions", "Conditions", u'd', "as they are drawn", &QuickAnswers::conditions},
    {"answers_elevens", "Elevens", u'E', "the best eleven men, as Auto Select picks them", &QuickAnswers::elevens},
    {"answers_toss", "Toss", u'o', "heads; bat if won", &QuickAnswers::toss},
    {"answers_openers", "Openers", u'n', "the first two of the order; the two best bowlers", &QuickAnswers::openers},
};

}  // namespace

QuickMatchWindow::QuickMatchWindow(match_state& match, new_match_form& form, std::function<void(QuickAnswers)> answers,
                                   QWidget* parent)
    : NewMatchWindow(QStringLiteral("quick"), match, form, parent),
      tell_(std::move(answers)),
      answers_(preferences::quick_answers()) {
  set_title(QStringLiteral("Quick Match"), QStringLiteral("Quick Match"));
  as_last_time();
  // All of them are answered here.
  if (auto* steps = findChild<StepBar*>()) steps->hide();
  QFrame* card = new_card();
  card_rows(card)->addWidget(new_label(QStringLiteral("The computer answers for you"), TextRole::heading));
  auto* grid = new QGridLayout;
  grid->setHorizontalSpacing(24);
  grid->setVerticalSpacing(4);
  grid->setColumnStretch(1, 1);
  int row = 0;
  for (const Answer& answer : all_answers) {
    auto* box = new QCheckBox;
    box->setObjectName(QString::fromLatin1(answer.name));
    box->setText(button_text(QString::fromLatin1(answer.question), answer.mnemonic));
    box->setAccessibleName(
        QStringLiteral("%1: %2").arg(QLatin1String(answer.question), QLatin1String(answer.by_computer)));
    box->setToolTip(QStringLiteral("Without a tick you are asked (Alt+%1)").arg(QChar(answer.mnemonic).toUpper()));
    box->setChecked(answers_.*answer.answered);
    auto* words = new_named_label(QStringLiteral("%1_words").arg(QLatin1String(answer.name)), {}, TextRole::muted);
    const auto show = [this, words, &answer] {
      words->setText(answers_.*answer.answered ? QString::fromLatin1(answer.by_computer)
                                               : QStringLiteral("you are asked"));
    };
    show();
    connect(box, &QCheckBox::toggled, this, [this, &answer, show](bool on) {
      answers_.*answer.answered = on;
      show();
    });
    grid->addWidget(box, row, 0);
    grid->addWidget(words, row, 1);
    ++row;
  }
  card_rows(card)->addLayout(grid);
  body()->insertWidget(rows_before_stretch(), card);
  QWidget* before = grounds();
  for (auto* box : card->findChildren<QCheckBox*>()) {
    setTabOrder(before, box);
    before = box;
  }
  ready_button()->setText(button_text(QStringLiteral("Play"), u'P'));
  ready_button()->setToolTip(QStringLiteral("To the first ball (Alt+P)"));
  ready_button()->setAccessibleName(QStringLiteral("Play"));
  ready_button()->setFocus();
}

void QuickMatchWindow::play() {
  preferences::set_quick_answers(answers_);
  tell_(answers_);
  NewMatchWindow::play();
}

}  // namespace velorin
