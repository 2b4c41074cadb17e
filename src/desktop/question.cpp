// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/question.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/controls.h"
#include "desktop/program_end.h"

namespace velorin {

QuestionWindow::QuestionWindow(const QString& name, const QString& title, const QString& text, QWidget* parent,
                               bool invites)
    : Form(name, Dismissal::closes, parent) {
  set_title(title, {});
  stand_as(Place::sheet);
  setAccessibleDescription(text);
  body()->addWidget(new_named_label(QStringLiteral("title"), title, TextRole::heading));
  auto* words = new_named_label(QStringLiteral("text"), text);
  words->setWordWrap(true);
  words->setMinimumWidth(360);
  body()->addWidget(words);
  body()->addStretch(1);
  const Act yes{.caption = QStringLiteral("Yes"), .mnemonic = u'Y'};
  const Act no{.caption = QStringLiteral("No"), .mnemonic = u'N'};
  const auto agree = [this] { accept(); };
  const auto refuse = [this] { reject(); };
  if (invites) {
    add_default_button(QStringLiteral("yes"), yes, agree);
    add_button(QStringLiteral("no"), no, refuse);
  } else {
    add_button(QStringLiteral("yes"), yes, agree);
    add_default_button(QStringLiteral("no"), no, refuse);
  }
  focus_default();
}

bool ask(QWidget& window, const QString& name, const QString& title, const QString& text, bool invites) {
  QuestionWindow question(name, title, text, &window, invites);
  run_modal(question);
  return question.result() == QDialog::Accepted;
}

}  // namespace velorin
