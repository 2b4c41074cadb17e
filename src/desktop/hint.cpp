// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/hint.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "desktop/controls.h"
#include "desktop/form.h"

namespace velorin {

namespace {

constexpr int width_of_hint = 300;
constexpr int gap = 10;  // between the hint and its control

}  // namespace

Hint::Hint(QWidget& form, QWidget& control, const QString& words, std::function<void()> gone)
    : QFrame(&form), form_(form), control_(control), gone_(std::move(gone)) {
  setObjectName(QStringLiteral("hint"));
  setProperty("hint", true);
  setAccessibleName(QStringLiteral("Hint: ") + words);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16, 12, 16, 12);
  rows->setSpacing(8);
  auto* text = new_named_label(QStringLiteral("hint_text"), words, TextRole::body, this);
  text->setWordWrap(true);
  rows->addWidget(text);
  auto* got_it = new QPushButton(this);
  got_it->setObjectName(QStringLiteral("got_it"));
  got_it->setAutoDefault(false);
  name_act(*got_it, {.caption = QStringLiteral("Got it"), .key = QKeySequence(Qt::CTRL | Qt::Key_G)});
  // The keyboard stays where the user has it; the key presses it from anywhere in the form.
  got_it->setFocusPolicy(Qt::NoFocus);
  connect(got_it, &QPushButton::clicked, this, [this] { go(); });
  rows->addWidget(got_it, 0, Qt::AlignRight);
  if (auto* button = qobject_cast<QAbstractButton*>(&control)) {
    connect(button, &QAbstractButton::clicked, this, [this] { go(); });
  }
  connect(&control, &QObject::destroyed, this, [this] { deleteLater(); });
  form.installEventFilter(this);
  place();
  show();
  raise();
  if (QAccessible::isActive()) {
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
}

void Hint::place() {
  setFixedWidth(std::min(width_of_hint, form_.width() - 2 * gap));
  setFixedHeight(layout()->totalHeightForWidth(width()));
  const QRect about(control_.mapTo(&form_, QPoint()), control_.size());
  const QRect room = form_.rect().adjusted(gap, gap, -gap, -gap);
  // Above its control where there is room, else below it.
  const int above = about.top() - gap - height();
  int y = above >= room.top() ? above : about.bottom() + gap;
  int x = about.center().x() - width() / 2;
  x = std::clamp(x, room.left(), std::max(room.left(), room.right() + 1 - width()));
  y = std::clamp(y, room.top(), std::max(room.top(), room.bottom() + 1 - height()));
  move(x, y);
}

void Hint::go() {
  if (std::exchange(going_, true)) return;
  hide();
  deleteLater();
  if (gone_) gone_();
}

bool Hint::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &form_ && (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)) place();
  return QFrame::eventFilter(watched, event);
}

}  // namespace velorin
