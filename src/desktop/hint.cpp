// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/hint.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <utility>

#include "desktop/controls.h"
#include "desktop/form.h"
#include "desktop/frame.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int width_of_hint = 320;
constexpr int arrow = 10;  // from the bubble to its tip, on each side of the widget
constexpr int gap = 2;     // between the tip and the control
constexpr int around = 8;  // kept free at the edges of the window

QRect place_of(const QWidget& widget, const QWidget& within) {
  return {widget.mapTo(&within, QPoint()), widget.size()};
}

}  // namespace

Hint::Hint(Form& form, QWidget& control, const QString& words, std::function<void()> gone)
    : QFrame(form.place() == Form::Place::sheet ? form.window() : &form),
      form_(form),
      control_(&control),
      gone_(std::move(gone)) {
  setObjectName(QStringLiteral("hint"));
  setAccessibleName(QStringLiteral("Hint: ") + words);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(16 + arrow, 12 + arrow, 16 + arrow, 12 + arrow);
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
  connect(&form, &QObject::destroyed, this, [this] {
    hide();
    deleteLater();
  });
  if (Frame* frame = form.main_window()) {
    connect(frame, &Frame::top_changed, this, [this](Form* top) { setVisible(top == &form_); });
  }
  parentWidget()->installEventFilter(this);
  form.installEventFilter(this);
  place();
  show();
  raise();
  if (QAccessible::isActive()) {
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
}

std::optional<QRect> Hint::at_side(Qt::Edge side, const QRect& about, const QRect& control, const QRect& room) const {
  QRect at(QPoint(), size());
  at.moveCenter(control.center());
  switch (side) {
    case Qt::RightEdge:
      at.moveLeft(about.right() + 1 + gap);
      break;
    case Qt::LeftEdge:
      at.moveRight(about.left() - 1 - gap);
      break;
    case Qt::TopEdge:
      at.moveBottom(about.top() - 1 - gap);
      break;
    case Qt::BottomEdge:
      at.moveTop(about.bottom() + 1 + gap);
      break;
  }
  if (side == Qt::LeftEdge || side == Qt::RightEdge) {
    at.moveTop(std::clamp(at.top(), room.top(), std::max(room.top(), room.bottom() + 1 - at.height())));
  } else {
    at.moveLeft(std::clamp(at.left(), room.left(), std::max(room.left(), room.right() + 1 - at.width())));
  }
  if (!room.contains(at)) return std::nullopt;
  return at;
}

void Hint::place() {
  if (!control_) return;
  const QWidget& within = *parentWidget();
  const QRect room = within.rect().adjusted(around, around, -around, -around);
  setFixedWidth(std::min(width_of_hint, room.width()));
  setFixedHeight(layout()->totalHeightForWidth(width()));
  const QRect control = place_of(*control_, within);
  const bool in_sheet = parentWidget() != &form_;
  // The head of a page tells the score: it stays in sight.
  const auto* head = form_.findChild<QWidget*>(QStringLiteral("head"));
  const QRect kept = !in_sheet && head != nullptr && head->isVisible() ? place_of(*head, within) : QRect();
  const QRect about = in_sheet ? place_of(form_, within) : control;
  // Beside a button at the foot there are others.
  const auto* foot = form_.findChild<QWidget*>(QStringLiteral("foot"));
  const bool above = !in_sheet && foot != nullptr && foot->isAncestorOf(control_);
  std::array sides = {Qt::RightEdge, Qt::LeftEdge, Qt::TopEdge, Qt::BottomEdge};
  if (above) std::rotate(sides.begin(), sides.begin() + 2, sides.end());
  for (const QRect& from : {about, control}) {
    for (const Qt::Edge side : sides) {
      const auto at = at_side(side, from, control, room);
      if (!at || at->intersects(kept)) continue;
      move(at->topLeft());
      update();
      return;
    }
  }
  move(room.left(), room.bottom() + 1 - height());
  update();
}

void Hint::go() {
  if (std::exchange(going_, true)) return;
  hide();
  deleteLater();
  if (gone_) gone_();
}

bool Hint::eventFilter(QObject* watched, QEvent* event) {
  const bool moves = event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest;
  if ((watched == &form_ || watched == parentWidget()) && moves) place();
  return QFrame::eventFilter(watched, event);
}

void Hint::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF bubble = QRectF(rect()).adjusted(arrow, arrow, -arrow, -arrow);
  QPainterPath shape;
  shape.addRoundedRect(bubble, 8, 8);
  if (control_) {
    // The tip, on the side where the control lies.
    const QRectF control(place_of(*control_, *parentWidget()).translated(-pos()));
    const double x = std::clamp(control.center().x(), bubble.left() + 22, bubble.right() - 22);
    const double y = std::clamp(control.center().y(), bubble.top() + 22, bubble.bottom() - 22);
    QPolygonF tip;
    if (control.right() <= bubble.left()) {
      tip << QPointF(bubble.left() + 2, y - 9) << QPointF(1, y) << QPointF(bubble.left() + 2, y + 9);
    } else if (control.left() >= bubble.right()) {
      tip << QPointF(bubble.right() - 2, y - 9) << QPointF(width() - 1, y) << QPointF(bubble.right() - 2, y + 9);
    } else if (control.top() >= bubble.bottom()) {
      tip << QPointF(x - 9, bubble.bottom() - 2) << QPointF(x, height() - 1) << QPointF(x + 9, bubble.bottom() - 2);
    } else if (control.bottom() <= bubble.top()) {
      tip << QPointF(x - 9, bubble.top() + 2) << QPointF(x, 1) << QPointF(x + 9, bubble.top() + 2);
    }
    QPainterPath pointed;
    pointed.addPolygon(tip);
    pointed.closeSubpath();
    shape = shape.united(pointed);
  }
  painter.setPen(QPen(theme().accent, 2));
  painter.setBrush(theme().card);
  painter.drawPath(shape);
}

}  // namespace velorin
