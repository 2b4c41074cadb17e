// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/modality.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QShortcut>
#include <QTest>
#include <QVBoxLayout>

#include "desktop/form.h"
#include "desktop/level_slider.h"
#include "desktop/message_window.h"
#include "desktop/table_view.h"
#include "windows/accessible_user.h"
#include "windows/robot.h"

namespace velorin::testing {
namespace {

/// A form with a control of each kind, which counts what happens to them.
class ManyControls : public Form {
 public:
  ManyControls() : Form(QStringLiteral("many"), Dismissal::closes, nullptr) {
    setModal(false);
    set_title(QStringLiteral("Many"), QStringLiteral("Many"));
    add_default_button(QStringLiteral("act"),
                       {.caption = QStringLiteral("Act"), .mnemonic = u'A', .key = QKeySequence(Qt::Key_F5)},
                       [this] { ++happened; });
    tick = new QCheckBox(QStringLiteral("Tick"));
    connect(tick, &QCheckBox::toggled, this, [this] { ++happened; });
    choice = new QComboBox;
    choice->addItems({QStringLiteral("one"), QStringLiteral("two")});
    connect(choice, &QComboBox::currentIndexChanged, this, [this] { ++happened; });
    slider = new LevelSlider(QStringLiteral("slider"), 0, 5);
    connect(slider, &QSlider::valueChanged, this, [this] { ++happened; });
    bar = new QScrollBar(Qt::Horizontal);
    connect(bar, &QScrollBar::valueChanged, this, [this] { ++happened; });
    edit = new QLineEdit(QStringLiteral("3"));
    table = new TableView(QStringLiteral("table"));
    Table rows;
    rows.columns = {{QStringLiteral("Name")}, {QStringLiteral("Runs"), true}};
    rows.rows.resize(3);
    for (TableRow& row : rows.rows) row.cells = {{QStringLiteral("A")}, {QStringLiteral("1")}};
    table->set_table(std::move(rows));
    list = new QListWidget;
    list->addItems({QStringLiteral("x"), QStringLiteral("y")});
    for (QAbstractItemView* view : {static_cast<QAbstractItemView*>(table), static_cast<QAbstractItemView*>(list)}) {
      connect(view->selectionModel(), &QItemSelectionModel::selectionChanged, this, [this] { ++happened; });
    }
    off = new QPushButton(QStringLiteral("Off"));
    off->setEnabled(false);
    for (QWidget* widget : std::initializer_list<QWidget*>{tick, choice, slider, bar, edit, table, list, off}) {
      body()->addWidget(widget);
    }
    happened = 0;
  }

  int happened = 0;
  QCheckBox* tick;
  QComboBox* choice;
  QSlider* slider;
  QScrollBar* bar;
  QLineEdit* edit;
  TableView* table;
  QListWidget* list;
  QPushButton* off;
};

class ModalityTest : public ::testing::Test {
 protected:
  ModalityTest() {
    form.show();
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    form.slider->setFocus();
  }

  /// Opens a message over the form, and does `act` behind it.
  void behind_a_message(const std::function<void()>& act) {
    MessageWindow over({"Over", "A window over the form."});
    over.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&over));
    act();
    QTest::qWait(150);  // an assistive press takes effect a moment later
  }

  ManyControls form;
};

TEST_F(ModalityTest, NothingOfACoveredWindowIsInvokable) {
  behind_a_message([&] {
    EXPECT_TRUE(is_covered(form));
    const int asked = try_everything(form);
    EXPECT_GT(asked, 15);
    EXPECT_FALSE(form.choice->view()->isVisible());
  });
  EXPECT_EQ(form.happened, 0);
  EXPECT_EQ(form.edit->text(), "3");
  EXPECT_FALSE(form.tick->isChecked());
  // On top again, the same acts do something.
  try_everything(form);
  QTest::qWait(150);
  EXPECT_GT(form.happened, 5);
  EXPECT_NE(form.edit->text(), "3");
}

TEST_F(ModalityTest, AssistiveTechnologyFindsTheControlsDisabled) {
  const auto disabled = [](QWidget* widget) {
    return static_cast<bool>(QAccessible::queryAccessibleInterface(widget)->state().disabled);
  };
  std::vector<QWidget*> controls = {&form,       form.tick, form.choice,
                                    form.slider, form.bar,  form.edit,
                                    form.table,  form.list, control<QPushButton>(form, "act")};
  for (QWidget* widget : controls) EXPECT_FALSE(disabled(widget)) << widget->metaObject()->className();
  behind_a_message([&] {
    for (QWidget* widget : controls) EXPECT_TRUE(disabled(widget)) << widget->metaObject()->className();
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(form.tick)->actionInterface()->actionNames().isEmpty());
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(form.choice)->actionInterface()->actionNames().isEmpty());
  });
  for (QWidget* widget : controls) EXPECT_FALSE(disabled(widget)) << widget->metaObject()->className();
  EXPECT_TRUE(disabled(form.off));
}

TEST_F(ModalityTest, MouseKeysAndShortcutsDoNothingEither) {
  behind_a_message([&] {
    // Some desktops hand the keyboard to a window that another stands over.
    form.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
    QTest::keyClick(&form, Qt::Key_F5);
    QTest::keyClick(&form, Qt::Key_A, Qt::AltModifier);
    QTest::keyClick(&form, Qt::Key_Return);
    QTest::keyClick(form.slider, Qt::Key_Right);
    QTest::keyClick(form.edit, Qt::Key_7);
    QTest::mouseClick(form.tick, Qt::LeftButton);
    QTest::mouseClick(control<QPushButton>(form, "act"), Qt::LeftButton);
    QTest::mouseClick(form.list->viewport(), Qt::LeftButton, {}, QPoint(10, 5));
    EXPECT_FALSE(form.list->currentIndex().isValid());
  });
  EXPECT_EQ(form.happened, 0);
  EXPECT_EQ(form.edit->text(), "3");
}

TEST_F(ModalityTest, APressUnderWayIsLostWhenAWindowOpens) {
  QAccessible::queryAccessibleInterface(control<QPushButton>(form, "act"))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::pressAction());
  behind_a_message([] {});
  QTest::qWait(150);
  EXPECT_EQ(form.happened, 0);
}

TEST_F(ModalityTest, LooksAndFocusStay) {
  QWidget other;
  other.show();
  other.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  QTest::qWait(20);
  const QImage before = form.grab().toImage();
  behind_a_message([&] {
    EXPECT_EQ(form.grab().toImage(), before);
    EXPECT_EQ(form.focusWidget(), form.slider);
  });
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  EXPECT_TRUE(form.slider->hasFocus());
}

TEST_F(ModalityTest, WhatTheProgramDoesMeanwhileHolds) {
  behind_a_message([&] {
    form.tick->setEnabled(false);
    form.off->setEnabled(true);
    form.slider->setValue(4);
    form.body()->addWidget(new QPushButton(QStringLiteral("New"), &form));
  });
  EXPECT_FALSE(form.tick->isEnabled());
  EXPECT_TRUE(form.off->isEnabled());
  EXPECT_EQ(form.slider->value(), 4);
  for (const QPushButton* button : form.findChildren<QPushButton*>()) EXPECT_TRUE(button->isEnabled());
  EXPECT_EQ(form.table->selectionMode(), QAbstractItemView::ExtendedSelection);
}

TEST_F(ModalityTest, WindowsInTheMiddleStayDead) {
  MessageWindow middle({"Middle", "A window over the form."}, MessageWindow::Kind::information, &form);
  middle.show();
  {
    MessageWindow top({"Top", "A window over that."}, MessageWindow::Kind::information, &middle);
    top.show();
    EXPECT_TRUE(is_covered(middle));
    EXPECT_TRUE(is_covered(form));
    EXPECT_FALSE(is_covered(top));
  }
  EXPECT_FALSE(is_covered(middle));
  EXPECT_TRUE(is_covered(form));
  EXPECT_TRUE(control<QPushButton>(middle, "accept")->isEnabled());
}

}  // namespace
}  // namespace velorin::testing
