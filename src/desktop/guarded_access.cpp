// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/guarded_access.h"

#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QScrollBar>

namespace velorin {

namespace {

class SliderAccess : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SliderAccess(QAbstractSlider* slider)
      : QAccessibleWidget(slider,
                          qobject_cast<QScrollBar*>(slider) != nullptr ? QAccessible::ScrollBar : QAccessible::Slider),
        slider_(slider) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Value ? QString::number(slider_->value()) : QAccessibleWidget::text(which);
  }
  QVariant currentValue() const override { return slider_->value(); }
  void setCurrentValue(const QVariant& value) override {
    if (slider_->isEnabled()) slider_->setValue(value.toInt());
  }
  QVariant minimumValue() const override { return slider_->minimum(); }
  QVariant maximumValue() const override { return slider_->maximum(); }
  QVariant minimumStepSize() const override { return slider_->singleStep(); }

 private:
  QAbstractSlider* slider_;
};

/// Its children are the list of choices and, where one may type, the box for it.
class ChoiceAccess : public QAccessibleWidget {
 public:
  explicit ChoiceAccess(QComboBox* box) : QAccessibleWidget(box, QAccessible::ComboBox), box_(box) {}

  int childCount() const override { return box_->isEditable() ? 2 : 1; }
  QAccessibleInterface* child(int index) const override {
    if (index == 0) return QAccessible::queryAccessibleInterface(box_->view());
    return index == 1 && box_->isEditable() ? QAccessible::queryAccessibleInterface(box_->lineEdit()) : nullptr;
  }
  int indexOfChild(const QAccessibleInterface* child) const override {
    if (child == nullptr) return -1;
    if (child->object() == box_->view()) return 0;
    return box_->isEditable() && child->object() == box_->lineEdit() ? 1 : -1;
  }
  QString text(QAccessible::Text which) const override {
    if (which == QAccessible::Value) return box_->currentText();
    if (which == QAccessible::Accelerator) return QKeySequence(Qt::Key_Down).toString(QKeySequence::NativeText);
    return QAccessibleWidget::text(which);
  }
  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (box_->isEnabled()) names = QStringList{showMenuAction(), pressAction()} + names;
    return names;
  }
  QString localizedActionDescription(const QString& action) const override {
    if (action == showMenuAction() || action == pressAction())
      return QComboBox::tr("Open the combo box selection popup");
    return QAccessibleWidget::localizedActionDescription(action);
  }
  void doAction(const QString& action) override {
    if (action != showMenuAction() && action != pressAction()) return QAccessibleWidget::doAction(action);
    if (!box_->isEnabled()) return;
    if (box_->view()->isVisible()) {
      box_->hidePopup();
    } else {
      box_->showPopup();
    }
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  QComboBox* box_;
};

QAccessibleInterface* guarded_interface(const QString&, QObject* object) {
  if (auto* slider = qobject_cast<QAbstractSlider*>(object)) return new SliderAccess(slider);
  if (auto* box = qobject_cast<QComboBox*>(object)) return new ChoiceAccess(box);
  return nullptr;
}

}  // namespace

void guard_access() {
  static const bool installed = [] {
    QAccessible::installFactory(guarded_interface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace velorin
