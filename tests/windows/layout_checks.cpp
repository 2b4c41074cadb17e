// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/layout_checks.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QButtonGroup>
#include <QComboBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>

#include "windows/painted_texts.h"

namespace velorin::testing {

namespace {

std::string told(const QWidget& widget) {
  std::string text = widget.objectName().toStdString();
  if (text.empty()) text = widget.metaObject()->className();
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) text += " \"" + label->text().toStdString() + "\"";
  return text;
}

std::string told(const QRectF& place) {
  return std::to_string(qRound(place.left())) + "," + std::to_string(qRound(place.top())) + " to " +
         std::to_string(qRound(place.right())) + "," + std::to_string(qRound(place.bottom()));
}

/// The form's own widgets that are seen, but for the inside of lists to choose from and the parts of scrolled areas.
QList<QWidget*> seen_in(QWidget& form) {
  QList<QWidget*> found;
  for (QWidget* widget : form.findChildren<QWidget*>()) {
    if (widget->window() != form.window() || !widget->isVisible()) continue;
    bool inner = false;
    for (const QWidget* up = widget->parentWidget(); up != nullptr && up != &form; up = up->parentWidget()) {
      inner = inner || qobject_cast<const QComboBox*>(up) != nullptr || up->inherits("QAbstractSpinBox");
    }
    if (!inner && !widget->visibleRegion().isEmpty()) found << widget;
  }
  return found;
}

/// Where a widget has something to be seen; empty if nowhere.
QRect covered_by(const QWidget& widget) {
  const auto* label = qobject_cast<const QLabel*>(&widget);
  if (label == nullptr) return widget.geometry();
  if (label->text().isEmpty()) return label->pixmap().isNull() ? QRect() : label->geometry();
  const QRect room = label->contentsRect();
  if (label->textFormat() == Qt::RichText || label->wordWrap()) return label->geometry();
  const QSize text = label->fontMetrics().size(0, label->text());
  return QStyle::alignedRect(label->layoutDirection(), label->alignment(), text, room)
      .translated(label->pos())
      .intersected(label->geometry());
}

/// Lies over or under others on purpose.
bool lies_in_layers(const QWidget& widget) {
  if (widget.testAttribute(Qt::WA_TransparentForMouseEvents) && qobject_cast<const QLabel*>(&widget) == nullptr)
    return true;
  if (qobject_cast<const QScrollBar*>(&widget) != nullptr || widget.inherits("QScrollBarContainer")) return true;
  // The ground under a row.
  if (widget.metaObject() == &QFrame::staticMetaObject && widget.children().isEmpty()) return true;
  return widget.objectName() == QStringLiteral("hint") || widget.inherits("velorin::Hint");
}

void check_neighbours(const QList<QWidget*>& seen) {
  for (qsizetype i = 0; i < seen.size(); ++i) {
    if (lies_in_layers(*seen[i]) || qobject_cast<QAbstractScrollArea*>(seen[i]->parentWidget()) != nullptr) continue;
    const QRect one = covered_by(*seen[i]);
    if (one.isEmpty()) continue;
    // The buttons of a table lie over the rows to which they belong.
    if (seen[i]->parentWidget() != nullptr && seen[i]->parentWidget()->inherits("velorin::ButtonTable")) continue;
    for (qsizetype j = i + 1; j < seen.size(); ++j) {
      if (seen[j]->parentWidget() != seen[i]->parentWidget() || lies_in_layers(*seen[j])) continue;
      const QRect both = one.intersected(covered_by(*seen[j]));
      EXPECT_TRUE(both.width() <= 1 || both.height() <= 1)
          << told(*seen[i]) << " and " << told(*seen[j]) << " overlap by " << both.width() << "x" << both.height();
    }
  }
}

void check_texts_of(QWidget& widget, const std::vector<PaintedText>& texts) {
  constexpr double tolerance = 1.5;  // pixels: letters may stand out of their line a little
  // A list scrolls down: only its width bounds what its rows say.
  const bool rows = qobject_cast<QAbstractItemView*>(widget.parentWidget()) != nullptr;
  const QRectF room = QRectF(widget.rect()).adjusted(-tolerance, -tolerance, tolerance, tolerance);
  for (std::size_t i = 0; i < texts.size(); ++i) {
    const QRectF& ink = texts[i].ink;
    const bool beside = ink.left() >= room.left() && ink.right() <= room.right();
    const bool below = rows || (ink.top() >= room.top() && ink.bottom() <= room.bottom());
    EXPECT_TRUE(beside && below) << told(widget) << " paints \"" << texts[i].text.toStdString() << "\" at " << told(ink)
                                 << ", out of its " << widget.width() << "x" << widget.height();
    for (std::size_t j = i + 1; j < texts.size(); ++j) {
      const QRectF both = ink.intersected(texts[j].ink);
      EXPECT_TRUE(both.width() <= tolerance || both.height() <= tolerance)
          << told(widget) << " paints \"" << texts[i].text.toStdString() << "\" over \"" << texts[j].text.toStdString()
          << "\"";
    }
  }
}

bool paints_texts_of_its_own(const QWidget& widget) {
  if (qobject_cast<const QLabel*>(&widget) != nullptr && widget.metaObject() == &QLabel::staticMetaObject) return false;
  return qobject_cast<const QLineEdit*>(&widget) == nullptr && qobject_cast<const QScrollBar*>(&widget) == nullptr &&
         qobject_cast<const QHeaderView*>(widget.parentWidget()) == nullptr;
}

void check_no_sideways(const QList<QWidget*>& seen) {
  for (QWidget* widget : seen) {
    const auto* area = qobject_cast<QAbstractScrollArea*>(widget);
    if (area == nullptr || qobject_cast<const QHeaderView*>(area) != nullptr) continue;
    EXPECT_FALSE(area->horizontalScrollBar()->isVisible())
        << told(*widget) << " scrolls sideways by " << area->horizontalScrollBar()->maximum();
  }
}

/// One of a group is enough: arrow keys lead to the others. A key of its own does for a button that leaves the keyboard
/// where it is.
void check_reach(const QList<QWidget*>& seen) {
  for (QWidget* widget : seen) {
    const auto* button = qobject_cast<QAbstractButton*>(widget);
    if (button == nullptr || !button->isEnabled() || (button->focusPolicy() & Qt::TabFocus) == Qt::TabFocus) continue;
    const bool in_group = button->autoExclusive() || (button->group() != nullptr && button->group()->exclusive());
    const bool has_a_key = button->findChild<QShortcut*>(QString(), Qt::FindDirectChildrenOnly) != nullptr;
    EXPECT_TRUE(in_group || has_a_key) << told(*widget) << " has neither the tab key nor a key of its own";
  }
}

}  // namespace

int check_painted_texts(QWidget& form) {
  int met = 0;
  for (QWidget* widget : seen_in(form)) {
    if (!paints_texts_of_its_own(*widget)) continue;
    const std::vector<PaintedText> texts = painted_texts(*widget);
    met += static_cast<int>(texts.size());
    check_texts_of(*widget, texts);
  }
  return met;
}

void check_layout(QWidget& form) {
  const QList<QWidget*> seen = seen_in(form);
  check_neighbours(seen);
  check_no_sideways(seen);
  check_reach(seen);
}

}  // namespace velorin::testing
