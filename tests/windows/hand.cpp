// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/hand.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QButtonGroup>
#include <QComboBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QMenu>
#include <QPointer>
#include <QRadioButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <cstdlib>

#include "desktop/name_doors.h"
#include "desktop/table_view.h"
#include "windows/robot.h"

namespace velorin::testing {

namespace {

using Action = QAccessibleActionInterface;

std::string path_of(const QWidget& widget) {
  return widget.window()->objectName().toStdString() + " " + widget.objectName().toStdString();
}

void let_pass() {
  for (int round = 0; round < 3; ++round) QApplication::processEvents();
}

/// Turns the wheel over the area in which the widget scrolls until the place is seen.
void wheel_to(const QWidget& widget, QPoint at) {
  for (int turn = 0; turn < 200 && !widget.visibleRegion().contains(at); ++turn) {
    QAbstractScrollArea* area = nullptr;
    for (QWidget* up = widget.parentWidget(); up != nullptr && area == nullptr; up = up->parentWidget()) {
      auto* one = qobject_cast<QAbstractScrollArea*>(up);
      if (one != nullptr && one->verticalScrollBar()->maximum() > 0) area = one;
    }
    if (area == nullptr) return;
    const int below = widget.mapTo(area->viewport(), at).y();
    const QPoint middle = area->viewport()->rect().center();
    QWheelEvent turned(middle, area->viewport()->mapToGlobal(middle), {}, {0, below < middle.y() ? 120 : -120},
                       Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(area->viewport(), &turned);
    let_pass();
  }
}

bool same_group(const QWidget* one, const QWidget* other) {
  const auto* first = qobject_cast<const QRadioButton*>(one);
  const auto* second = qobject_cast<const QRadioButton*>(other);
  return first != nullptr && second != nullptr &&
         (first->group() != nullptr ? first->group() == second->group()
                                    : first->parentWidget() == second->parentWidget() && second->group() == nullptr);
}

/// Within a group the arrow keys lead on, each its way.
Qt::Key arrow_from(const QWidget& at, const QWidget& to) {
  const QPoint way = to.mapTo(to.window(), to.rect().center()) - at.mapTo(at.window(), at.rect().center());
  if (std::abs(way.x()) > std::abs(way.y())) return way.x() > 0 ? Qt::Key_Right : Qt::Key_Left;
  return way.y() > 0 ? Qt::Key_Down : Qt::Key_Up;
}

bool is_chosen_already(const QAbstractButton& button) {
  const bool one_of_group = button.group() != nullptr && button.group()->exclusive();
  return button.isChecked() && (one_of_group || button.autoExclusive());
}

}  // namespace

void Hand::press(QWidget& form, const char* name) {
  auto* button = control<QAbstractButton>(form, name);
  if (button != nullptr) press(*button);
}

void Hand::press(QAbstractButton& button) {
  const std::string name = path_of(button);
  EXPECT_TRUE(button.isVisible()) << name << " is hidden";
  EXPECT_TRUE(button.isEnabled()) << name << " is disabled";
  if (!button.isVisible() || !button.isEnabled() || is_chosen_already(button)) return;
  let_pass();
  switch (way_) {
    case Way::mouse: {
      const auto* radio = qobject_cast<QRadioButton*>(&button);
      return click(button, radio != nullptr ? QPoint(10, button.height() / 2) : button.rect().center());
    }
    case Way::keyboard:
      return press_by_keys(button);
    case Way::assistant:
      return press_by_action(button);
  }
}

void Hand::click(QWidget& widget, QPoint at) {
  wheel_to(widget, at);
  QWidget& window = *widget.window();
  const QPoint place = widget.mapTo(&window, at);
  const QWidget* under = window.childAt(place);
  EXPECT_TRUE(under == &widget || widget.isAncestorOf(under))
      << path_of(widget) << " lies under "
      << (under == nullptr ? std::string("nothing that is seen") : path_of(*under));
  QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, place);
}

bool Hand::tab_to(QWidget& widget) {
  QWidget& window = *widget.window();
  if (!window.isActiveWindow()) {  // without a screen nobody gives the keyboard on when a window closes
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }
  for (int tab = 0; tab < 200; ++tab) {
    QWidget* at = window.focusWidget();
    if (at == &widget) return true;
    const Qt::Key key = same_group(at, &widget) ? arrow_from(*at, widget) : Qt::Key_Tab;
    QTest::keyClick(window.windowHandle(), key);
  }
  ADD_FAILURE() << path_of(widget) << " is out of the keyboard's reach, which stays at "
                << (window.focusWidget() == nullptr ? std::string("nothing") : path_of(*window.focusWidget()));
  return false;
}

void Hand::press_by_keys(QAbstractButton& button) {
  QWindow* window = button.window()->windowHandle();
  const auto* shortcut = button.findChild<QShortcut*>(QString(), Qt::FindDirectChildrenOnly);
  if (button.focusPolicy() == Qt::NoFocus && shortcut != nullptr) {
    const QKeyCombination key = shortcut->key()[0];
    QTest::keyClick(window, key.key(), key.keyboardModifiers());
    return;
  }
  if (!tab_to(button) || is_chosen_already(button)) return;
  QTest::keyClick(window, Qt::Key_Space);
}

void Hand::press_by_action(QAbstractButton& button) {
  Action* actions = QAccessible::queryAccessibleInterface(&button)->actionInterface();
  ASSERT_NE(actions, nullptr) << path_of(button);
  const QString wanted = button.isCheckable() ? Action::toggleAction() : Action::pressAction();
  EXPECT_TRUE(actions->actionNames().contains(wanted)) << path_of(button) << " has no " << wanted.toStdString();
  bool done = button.isCheckable();
  const QPointer<QAbstractButton> pressed(&button);
  const auto told = QObject::connect(&button, &QAbstractButton::clicked, &button, [&done] { done = true; });
  actions->doAction(wanted);
  QElapsedTimer clock;
  clock.start();
  while (!done && pressed && clock.elapsed() < 5000) QApplication::processEvents(QEventLoop::WaitForMoreEvents, 200);
  EXPECT_TRUE(done || !pressed) << "an assistive press had no effect";
  QObject::disconnect(told);
}

void Hand::open_row(QWidget& form, const char* table, int row) {
  auto* view = control<TableView>(form, table);
  if (view == nullptr) return;
  int column = 0;
  while (view->isColumnHidden(column)) ++column;
  if (way_ == Way::assistant) {
    QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(view)->tableInterface()->cellAt(row, column);
    EXPECT_TRUE(cell->actionInterface()->actionNames().contains(Action::pressAction())) << path_of(*view);
    cell->actionInterface()->doAction(Action::pressAction());
    let_pass();
  } else if (way_ == Way::keyboard) {
    if (!tab_to(*view)) return;
    QWindow* window = view->window()->windowHandle();
    QTest::keyClick(window, Qt::Key_Home, Qt::ControlModifier);
    for (int down = 0; down < row; ++down) QTest::keyClick(window, Qt::Key_Down);
    QTest::keyClick(window, Qt::Key_Return);
  } else {
    // A name would lead to its own page.
    while (column + 1 < view->model()->columnCount() &&
           (view->isColumnHidden(column) ||
            !name_book().names_in(view->model()->index(row, column).data().toString()).empty())) {
      ++column;
    }
    const QModelIndex index = view->model()->index(row, column);
    view->scrollTo(index);
    bool opened = false;
    const QPointer<TableView> still(view);
    const auto told = QObject::connect(view, &TableView::row_activated, view, [&opened] { opened = true; });
    const QPoint at = view->visualRect(index).center();
    click(*view->viewport(), at);
    if (!opened && still) QTest::mouseDClick(still->viewport(), Qt::LeftButton, {}, at);
    EXPECT_TRUE(opened) << table << ", row " << row;
    QObject::disconnect(told);
  }
}

void Hand::choose(QWidget& form, const char* list, int entry) {
  auto* box = control<QComboBox>(form, list);
  if (box == nullptr) return;
  if (way_ == Way::mouse) {
    click(*box, box->rect().center());
    ASSERT_TRUE(box->view()->isVisible()) << path_of(*box);
    QTest::qWait(QApplication::doubleClickInterval() + 20);  // so long a press on the list counts as the one before
    const QModelIndex index = box->model()->index(entry, 0);
    box->view()->scrollTo(index);
    QTest::mouseClick(box->view()->viewport(), Qt::LeftButton, {}, box->view()->visualRect(index).center());
  } else if (tab_to(*box)) {
    QWindow* window = box->window()->windowHandle();
    QTest::keyClick(window, Qt::Key_Home);
    for (int down = 0; down < entry; ++down) QTest::keyClick(window, Qt::Key_Down);
  }
  EXPECT_EQ(box->currentIndex(), entry) << path_of(*box);
}

void Hand::write(QWidget& form, const char* field, const QString& text) {
  auto* edit = control<QLineEdit>(form, field);
  if (edit == nullptr) return;
  if (way_ == Way::assistant) {
    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(edit);
    ASSERT_NE(access->editableTextInterface(), nullptr) << path_of(*edit);
    access->editableTextInterface()->replaceText(0, static_cast<int>(edit->text().size()), text);
  } else {
    if (way_ == Way::mouse) click(*edit, edit->rect().center());
    if (way_ == Way::keyboard && !tab_to(*edit)) return;
    QTest::keySequence(edit, QKeySequence::SelectAll);
    QTest::keyClicks(edit, text);
  }
  EXPECT_EQ(edit->text(), text) << path_of(*edit);
}

void Hand::take_entry(QWidget& form, const char* button, const char* entry) {
  press(form, button);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr) << button << " opens no menu";
  QAction* wanted = menu->findChild<QAction*>(QString::fromLatin1(entry));
  if (wanted == nullptr) {
    for (QAction* one : menu->actions()) {
      if (one->objectName() == QLatin1String(entry)) wanted = one;
    }
  }
  ASSERT_NE(wanted, nullptr) << entry << " is no entry of " << button;
  switch (way_) {
    case Way::mouse:
      QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(wanted).center());
      break;
    case Way::keyboard:
      for (int down = 0; down < 40 && menu->activeAction() != wanted; ++down) QTest::keyClick(menu, Qt::Key_Down);
      QTest::keyClick(menu, Qt::Key_Return);
      break;
    case Way::assistant: {
      QAccessibleInterface* all = QAccessible::queryAccessibleInterface(menu);
      all->child(static_cast<int>(menu->actions().indexOf(wanted)))->actionInterface()->doAction(Action::pressAction());
      break;
    }
  }
  let_pass();
}

}  // namespace velorin::testing
