// SPDX-License-Identifier: GPL-3.0-or-later
#include "engine/forms/choice_button.h"

#include <QMenu>
#include <QShortcut>
#include <utility>

#include "desktop/form.h"
#include "desktop/program_end.h"

namespace velorin {

namespace {

/// Once the menu is gone: the act may wait in an event loop of its own.
void run_soon(QObject& context, std::function<void()> act) {
  QMetaObject::invokeMethod(
      &context, [act = std::move(act)] { guarded(act); }, Qt::QueuedConnection);
}

}  // namespace

ChoiceButton::ChoiceButton(const QString& name, const Act& act, const QKeySequence& at_once, Offer offer,
                           QWidget* parent)
    : QPushButton(parent), offer_(std::move(offer)), at_once_(at_once) {
  setObjectName(name);
  setAutoDefault(false);
  Act shown_act = act;
  shown_act.spoken = act.caption;
  shown_act.caption += QStringLiteral(" \u25BE");
  name_act(*this, shown_act);
  const QString key = at_once.toString(QKeySequence::NativeText);
  QString tip = toolTip();
  tip.insert(tip.size() - 1, QStringLiteral(", %1 for the first at once").arg(key));
  setToolTip(tip);
  connect(this, &QPushButton::clicked, this, [this] { guarded([this] { open(); }); });
  auto* shortcut = new QShortcut(at_once, this);
  connect(shortcut, &QShortcut::activated, this, [this] {
    if (isVisible() && isEnabled()) guarded([this] { take_first(); });
  });
}

void ChoiceButton::open() {
  const std::vector<Choice> choices = offer_();
  if (choices.empty()) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(objectName() + QStringLiteral("_menu"));
  menu->setAccessibleName(accessibleName());
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const Choice& choice : choices) {
    QAction* entry = menu->addAction(choice.caption);
    entry->setObjectName(choice.name);
    if (menu->actions().size() == 1) {
      entry->setText(choice.caption + u'\t' + at_once_.toString(QKeySequence::NativeText));
      if (choices.size() > 1) menu->addSeparator();
    }
    connect(entry, &QAction::triggered, this, [this, act = choice.act] { run_soon(*this, act); });
  }
  menu->setActiveAction(menu->actions().constFirst());
  menu->popup(mapToGlobal(QPoint(0, -menu->sizeHint().height() - 2)));
}

void ChoiceButton::take_first() {
  const std::vector<Choice> choices = offer_();
  if (!choices.empty()) choices.front().act();
}

}  // namespace velorin
