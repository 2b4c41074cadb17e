// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/forms/quick_match_window.h"

#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/program_end.h"
#include "desktop/shown_text.h"
#include "desktop/step_bar.h"
#include "setup/forms/quick_answers_card.h"
#include "setup/new_match.h"

namespace velorin {

QuickMatchWindow::QuickMatchWindow(match_state& match, new_match_form& form, std::function<void(QuickChoices)> answers,
                                   QWidget* parent)
    : NewMatchWindow(QStringLiteral("quick"), match, form, parent),
      tell_(std::move(answers)),
      form_(form),
      card_(new QuickAnswersCard(form.play())) {
  set_title(QStringLiteral("Quick Match"), QStringLiteral("Quick Match"));
  as_last_time();
  // All of them are answered here.
  if (auto* steps = findChild<StepBar*>()) steps->hide();
  body()->insertWidget(rows_before_stretch(), card_);
  QWidget* before = grounds();
  for (QWidget* control : card_->controls()) {
    setTabOrder(before, control);
    before = control;
  }
  ready_button()->setText(button_text(QStringLiteral("Play"), u'P'));
  ready_button()->setToolTip(QStringLiteral("To the first ball (Alt+P)"));
  ready_button()->setAccessibleName(QStringLiteral("Play"));
  ready_button()->setFocus();
  const auto follow = [this] { guarded([this] { show_answers(); }); };
  for (const char* list : {"first_team", "second_team", "grounds"}) {
    connect(findChild<QComboBox*>(QString::fromLatin1(list)), &QComboBox::currentIndexChanged, card_, follow);
  }
  for (const char* captain : {"first_human", "second_human"}) {
    connect(findChild<QRadioButton*>(QString::fromLatin1(captain)), &QRadioButton::toggled, card_, follow);
  }
  show_answers();
}

void QuickMatchWindow::show_answers() {
  card_->show_match(form_.chosen_teams(), form_.ground_name(),
                    {!form_.computer_captains_first, !form_.computer_captains_second});
}

void QuickMatchWindow::play() {
  const QuickChoices choices = card_->choices();
  preferences::set_quick_answers(choices.answered);
  tell_(choices);
  NewMatchWindow::play();
}

}  // namespace velorin
