// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/accessible_user.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAccessible>
#include <QButtonGroup>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <vector>

#include "desktop/preferences.h"

namespace velorin::testing {

namespace {

using Action = QAccessibleActionInterface;

int act_on(QAccessibleInterface& control) {
  int tried = 0;
  if (Action* actions = control.actionInterface()) {
    QStringList names = actions->actionNames();
    names << Action::pressAction() << Action::toggleAction() << Action::increaseAction() << Action::decreaseAction()
          << Action::showMenuAction();
    names.removeDuplicates();
    names.removeAll(Action::setFocusAction());
    for (const QString& name : names) actions->doAction(name);
    tried += static_cast<int>(names.size());
  }
  if (QAccessibleValueInterface* value = control.valueInterface()) {
    const bool high = value->currentValue().toDouble() >= value->maximumValue().toDouble();
    value->setCurrentValue(high ? value->minimumValue() : value->maximumValue());
    ++tried;
  }
  if (QAccessibleEditableTextInterface* text = control.editableTextInterface()) {
    text->insertText(0, QStringLiteral("1"));
    control.setText(QAccessible::Value, QStringLiteral("12"));
    tried += 2;
  }
  if (QAccessibleTableInterface* table = control.tableInterface()) {
    for (int row = 0; row < table->rowCount(); ++row) {
      table->selectRow(row);
      QAccessibleInterface* cell = table->cellAt(row, 0);
      if (cell != nullptr) tried += act_on(*cell);
      ++tried;
    }
  }
  return tried;
}

}  // namespace

int try_everything(QWidget& window) {
  std::vector<QPointer<QWidget>> widgets;
  for (QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() == window.window()) widgets.emplace_back(widget);
  }
  int tried = 0;
  for (const QPointer<QWidget>& widget : widgets) {
    if (!widget) continue;
    if (QAccessibleInterface* control = QAccessible::queryAccessibleInterface(widget)) tried += act_on(*control);
  }
  return tried;
}

QString state_of(const QWidget& window) {
  QStringList parts;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    if (widget->window() != window.window()) continue;
    // Scroll bars come and go a moment after what they are for.
    const bool of_scrolling = widget->objectName().startsWith(u"qt_scrollarea_") || widget->inherits("QScrollBar");
    QString part = widget->objectName() + (of_scrolling ? u'.' : widget->isVisible() ? u'+' : u'-');
    if (const auto* label = qobject_cast<const QLabel*>(widget)) part += label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(widget)) {
      part += button->text() + (button->isChecked() ? u'x' : u'o') + (button->isEnabled() ? u'+' : u'-');
    }
    if (const auto* list = qobject_cast<const QComboBox*>(widget)) part += list->currentText();
    if (const auto* edit = qobject_cast<const QLineEdit*>(widget)) part += edit->text();
    if (const auto* slider = qobject_cast<const QAbstractSlider*>(widget)) part += QString::number(slider->value());
    parts << part;
  }
  const Captains captains = preferences::captains();
  parts << QString::number(static_cast<int>(preferences::pace()))
        << QStringLiteral("%1%2").arg(captains.first_human).arg(captains.second_human);
  for (const char* form : {"series1", "series2", "wctable"}) {
    parts << QString::number(preferences::plays_without_stopping(QLatin1String(form)));
  }
  return parts.join(u'\n');
}

namespace {

void toggle(QAbstractButton& button) {
  QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(Action::toggleAction());
}

/// Another one of the group of a control of which one alone is chosen; nullptr for a control by itself.
QAbstractButton* sibling_of(const QAbstractButton& button) {
  if (button.group() == nullptr || !button.group()->exclusive()) return nullptr;
  for (QAbstractButton* other : button.group()->buttons()) {
    if (other != &button && other->isEnabled()) return other;
  }
  return nullptr;
}

}  // namespace

int check_toggles(QWidget& window) {
  int count = 0;
  for (QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (button->window() != window.window() || !button->isCheckable() || !button->isVisible() || !button->isEnabled())
      continue;
    SCOPED_TRACE(window.objectName().toStdString() + " " + button->objectName().toStdString());
    ++count;
    QAbstractButton* chosen = button->group() == nullptr ? nullptr : button->group()->checkedButton();
    QAbstractButton* other = sibling_of(*button);
    const auto begin = [&] {
      if (other != nullptr) other->click();
    };
    if (other == nullptr) {
      // The first choice may bring a line that stays.
      button->click();
      button->click();
    }
    begin();
    const QString before = state_of(window);
    toggle(*button);
    const QString toggled = state_of(window);
    EXPECT_NE(toggled.toStdString(), before.toStdString());
    if (other == nullptr) toggle(*button);
    begin();
    EXPECT_EQ(state_of(window).toStdString(), before.toStdString());
    button->click();
    EXPECT_EQ(state_of(window).toStdString(), toggled.toStdString());
    if (other == nullptr) button->click();
    if (chosen != nullptr) chosen->click();
  }
  return count;
}

}  // namespace velorin::testing
