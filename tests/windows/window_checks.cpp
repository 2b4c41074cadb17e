// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/window_checks.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QStyle>
#include <QStyleOptionButton>
#include <QToolButton>
#include <map>

#include "windows/term_checks.h"

namespace velorin::testing {

namespace {

std::string described(const QWidget& widget) {
  std::string text = widget.objectName().toStdString();
  if (text.empty()) text = widget.metaObject()->className();
  if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
    text += " \"" + button->text().toStdString() + "\"";
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) text += " \"" + label->text().toStdString() + "\"";
  return text;
}

/// Parts of other controls, which answer for them.
bool is_inner(const QWidget& widget) {
  for (const QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (qobject_cast<const QAbstractItemView*>(at) != nullptr || qobject_cast<const QComboBox*>(at) != nullptr)
      return true;
    if (at->inherits("QAbstractSpinBox")) return true;
    if (at->isWindow()) return false;
  }
  return false;
}

template <class Kind>
QList<Kind*> visible(const QWidget& window) {
  QList<Kind*> found;
  for (Kind* widget : window.findChildren<Kind*>()) {
    if (widget->isVisibleTo(&window) && !is_inner(*widget) && widget->window() == window.window()) found << widget;
  }
  return found;
}

void check_buttons(const QWidget& window) {
  std::map<QString, std::string> taken;
  const auto take = [&](const QKeySequence& key, const QWidget& widget) {
    if (key.isEmpty()) return;
    const auto [at, free] = taken.emplace(key.toString(), described(widget));
    EXPECT_TRUE(free) << described(widget) << " and " << at->second << " share " << key.toString().toStdString();
  };
  for (const QLabel* label : visible<QLabel>(window)) {
    if (label->buddy() != nullptr) take(QKeySequence::mnemonic(label->text()), *label);
  }
  for (const QAbstractButton* button : visible<QAbstractButton>(window)) {
    QStringList keys;
    const QKeySequence mnemonic = QKeySequence::mnemonic(button->text());
    if (!mnemonic.isEmpty()) keys << mnemonic.toString();
    take(mnemonic, *button);
    for (const QShortcut* shortcut : button->findChildren<QShortcut*>(QString(), Qt::FindDirectChildrenOnly)) {
      for (const QKeySequence& key : shortcut->keys()) {
        keys << key.toString();
        take(key, *button);
      }
    }
    const bool in_a_group = qobject_cast<const QRadioButton*>(button) != nullptr;
    const bool a_tick = qobject_cast<const QCheckBox*>(button) != nullptr;
    EXPECT_TRUE(in_a_group || a_tick || !keys.isEmpty()) << described(*button) << " has no key";
    for (const QString& key : keys) {
      EXPECT_TRUE(button->toolTip().contains(key))
          << described(*button) << ": the tooltip does not name " << key.toStdString();
    }
  }
}

void check_names(const QWidget& window) {
  for (const QWidget* widget : visible<QWidget>(window)) {
    if (widget->focusPolicy() == Qt::NoFocus || qobject_cast<const QScrollBar*>(widget) != nullptr) continue;
    if (widget->inherits("QScrollArea")) continue;
    EXPECT_FALSE(widget->accessibleName().isEmpty()) << described(*widget) << " has no name for screen readers";
  }
  EXPECT_FALSE(window.accessibleName().isEmpty()) << "the window has no name for screen readers";
}

bool takes_tab(const QWidget& widget) {
  return widget.isEnabled() && widget.isVisible() && (widget.focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

/// The controls in the order of the tab key, from the first in the chain.
QList<QWidget*> tab_chain(QWidget& window) {
  QList<QWidget*> chain;
  for (QWidget* at = window.nextInFocusChain(); at != nullptr && at != &window; at = at->nextInFocusChain()) {
    if (window.isAncestorOf(at) && at->window() == window.window() && takes_tab(*at) && !is_inner(*at)) chain << at;
  }
  return chain;
}

bool is_in_foot(const QWidget& widget) {
  for (const QWidget* at = &widget; at != nullptr && !at->isWindow(); at = at->parentWidget()) {
    if (at->objectName() == QLatin1String("foot")) return true;
  }
  return false;
}

void check_tab_order(QWidget& window) {
  const QList<QWidget*> chain = tab_chain(window);
  for (qsizetype i = 1; i < chain.size(); ++i) {
    const QRect before(chain[i - 1]->mapTo(&window, QPoint()), chain[i - 1]->size());
    const QRect after(chain[i]->mapTo(&window, QPoint()), chain[i]->size());
    const bool below = after.center().y() > before.top();
    const bool right = after.left() > before.left();
    // Where the body scrolls, its lower end lies behind the foot, which stands below it all the same.
    const bool into_foot = is_in_foot(*chain[i]) && !is_in_foot(*chain[i - 1]);
    EXPECT_TRUE(below || right || into_foot) << described(*chain[i - 1]) << " comes before " << described(*chain[i])
                                             << " in the tab order, but stands behind it";
  }
}

void check_texts(const QWidget& window) {
  for (const QLabel* label : visible<QLabel>(window)) {
    if (label->text().isEmpty()) continue;
    const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    EXPECT_GE(label->height() + 1, needed) << described(*label) << " is cut off below";
    const bool wide_enough = label->wordWrap() || label->width() + 1 >= label->sizeHint().width();
    EXPECT_TRUE(wide_enough) << described(*label) << " is cut off";
  }
  for (const QAbstractButton* button : visible<QAbstractButton>(window)) {
    if (button->text().isEmpty()) continue;
    EXPECT_GE(button->width() + 1, button->sizeHint().width()) << described(*button) << " is cut off";
    EXPECT_GE(button->height() + 1, button->sizeHint().height()) << described(*button) << " is cut off below";
  }
  for (const QWidget* widget : visible<QWidget>(window)) {
    if (widget->parentWidget() == nullptr || widget->parentWidget()->inherits("QAbstractScrollArea")) continue;
    if (widget->parentWidget()->objectName() == QLatin1String("qt_scrollarea_viewport")) continue;
    const QRect inside = widget->parentWidget()->rect().adjusted(-1, -1, 1, 1);
    EXPECT_TRUE(inside.contains(widget->geometry()))
        << described(*widget) << " runs out of " << described(*widget->parentWidget()) << ", " << widget->height()
        << " at " << widget->y() << " of " << widget->parentWidget()->height();
  }
}

/// Layouts within layouts take a round each.
void settle() {
  for (int round = 0; round < 4; ++round) QApplication::processEvents();
}

}  // namespace

void check_window(QWidget& window) {
  check_terms(window);
  SCOPED_TRACE(window.objectName().toStdString());
  EXPECT_FALSE(window.windowTitle().trimmed().isEmpty());
  const QSize least = window.minimumSizeHint().expandedTo(window.minimumSize());
  EXPECT_LE(least.width(), smallest_screen.width());
  EXPECT_LE(least.height(), smallest_screen.height());
  check_controls(window);
}

void check_controls(QWidget& window) {
  check_buttons(window);
  check_names(window);
  check_tab_order(window);
  check_texts(window);
}

void check_window_at_sizes(QWidget& window) {
  settle();
  check_window(window);
  const QSize before = window.size();
  window.resize(smallest_screen);
  settle();
  SCOPED_TRACE("at 1024x700");
  check_window(window);
  window.resize(before);
}

void take_picture(QWidget& window, const char* name) {
  const QString folder = qEnvironmentVariable("VELORIN_SHOTS");
  if (folder.isEmpty()) return;
  const QSize before = window.size();
  const QStringList wanted = qEnvironmentVariable("VELORIN_SHOT_SIZE").split(QLatin1Char('x'));
  if (wanted.size() == 2) window.resize(wanted[0].toInt(), wanted[1].toInt());
  settle();
  EXPECT_TRUE(window.grab().save(QStringLiteral("%1/%2.png").arg(folder, QString::fromLatin1(name))));
  window.resize(before);
}

}  // namespace velorin::testing
