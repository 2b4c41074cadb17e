// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/keep_question.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/program_end.h"

namespace velorin {

KeepQuestion::KeepQuestion(WayOut way, QWidget* parent)
    : Form(QStringLiteral("keep_question"), Dismissal::closes, parent) {
  const QString title = QStringLiteral("Keep this game?");
  const QString text =
      (way == WayOut::to_menu ? QStringLiteral("The menu opens.") : QStringLiteral("The program ends.")) +
      QStringLiteral(" A game that is kept goes on with \"Continue\" in the menu.");
  set_title(title, {});
  stand_as(Place::sheet);
  setAccessibleDescription(text);
  body()->addWidget(new_named_label(QStringLiteral("title"), title, TextRole::heading));
  auto* words = new_named_label(QStringLiteral("text"), text);
  words->setWordWrap(true);
  words->setMinimumWidth(420);
  body()->addWidget(words);
  body()->addStretch(1);
  const auto answer = [this](KeepAnswer given) {
    return [this, given] {
      answer_ = given;
      accept();
    };
  };
  add_default_button(QStringLiteral("keep"), {.caption = QStringLiteral("Keep"), .mnemonic = u'K'},
                     answer(KeepAnswer::keep))
      ->setFocus();
  add_button(QStringLiteral("discard"), {.caption = QStringLiteral("Do Not Keep"), .mnemonic = u'D'},
             answer(KeepAnswer::discard));
  add_button(QStringLiteral("stay"), {.caption = QStringLiteral("Play On"), .mnemonic = u'P'}, [this] { reject(); });
}

KeepAnswer ask_to_keep(WayOut way, QWidget& window) {
  KeepQuestion question(way, &window);
  run_modal(question);
  return question.answer();
}

}  // namespace velorin
