// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/modality.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QHash>
#include <QLineEdit>
#include <QPointer>
#include <QSignalBlocker>
#include <utility>
#include <vector>

#include "desktop/guarded_access.h"
#include "desktop/of_application.h"

namespace velorin {

namespace {

/// What has to be put back when a window is on top again.
struct Covered {
  std::vector<QPointer<QWidget>> deadened;
  std::vector<std::pair<QPointer<QAbstractItemView>, QAbstractItemView::SelectionMode>> views;
  std::vector<QMetaObject::Connection> texts;
};

/// The widget and those within it, without the windows that it owns.
void collect(QWidget& widget, std::vector<QWidget*>& found) {
  found.push_back(&widget);
  for (QObject* child : widget.children()) {
    auto* inner = qobject_cast<QWidget*>(child);
    if (inner != nullptr && !inner->isWindow()) collect(*inner, found);
  }
}

void tell_assistants(QWidget& widget) {
  if (!QAccessible::isActive()) return;
  QAccessible::State changed;
  changed.disabled = true;
  QAccessibleStateChangeEvent event(&widget, changed);
  QAccessible::updateAccessibility(&event);
}

/// Whether the program has the widget enabled, never mind what covers it.
bool meant_enabled(const QWidget& widget) {
  for (const QWidget* at = &widget;; at = at->parentWidget()) {
    if (at->testAttribute(Qt::WA_ForceDisabled)) return false;
    if (at->isWindow() || at->parentWidget() == nullptr) return true;
  }
}

/// Follows all windows of the program.
class Modality : public QObject {
 public:
  bool covers(const QWidget& widget) const {
    if (covered_.isEmpty()) return false;
    for (const QWidget* at = &widget; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
      if (covered_.contains(at)) return true;
    }
    return false;
  }
  void cover(QWidget& root);
  void uncover(QWidget& root);

  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* widget = qobject_cast<QWidget*>(watched);
    switch (event->type()) {
      case QEvent::WindowBlocked:
        if (widget != nullptr && widget->isWindow()) cover(*widget);
        return false;
      case QEvent::WindowUnblocked:
        if (widget != nullptr && widget->isWindow()) uncover(*widget);
        return false;
      case QEvent::Paint:
        return widget != nullptr && paint(*widget, event);
      case QEvent::Timer:
        return widget != nullptr && let_press_pass(*widget, event);
      default:
        return false;
    }
  }

 private:
  bool paint(QWidget& widget, QEvent* event);
  bool let_press_pass(QWidget& widget, QEvent* event);

  QHash<const QObject*, Covered> covered_;
  bool passing_ = false;  // an event is on its way to its widget
};

void Modality::cover(QWidget& root) {
  if (covered_.contains(&root)) return;
  Covered kept;
  std::vector<QWidget*> all;
  collect(root, all);
  for (QWidget* widget : all) {
    if (auto* view = qobject_cast<QAbstractItemView*>(widget)) {
      kept.views.emplace_back(view, view->selectionMode());
      view->setSelectionMode(QAbstractItemView::NoSelection);
    } else if (auto* edit = qobject_cast<QLineEdit*>(widget)) {
      // Assistive technology writes past the enabled state.
      kept.texts.push_back(
          connect(edit, &QLineEdit::textChanged, this, [edit, text = edit->text()](const QString& now) {
            if (now != text) edit->setText(text);
          }));
    }
    if (!widget->isEnabled()) continue;
    // The attribute alone, without the event of setEnabled(): the focus stays, and the style is not asked.
    widget->setAttribute(Qt::WA_Disabled);
    kept.deadened.emplace_back(widget);
    tell_assistants(*widget);
  }
  connect(&root, &QObject::destroyed, this, [this, &root] { covered_.remove(&root); });
  covered_.emplace(&root, std::move(kept));
}

void Modality::uncover(QWidget& root) {
  const auto found = covered_.find(&root);
  if (found == covered_.end()) return;
  const Covered kept = std::move(*found);
  covered_.erase(found);
  disconnect(&root, &QObject::destroyed, this, nullptr);
  for (const QMetaObject::Connection& text : kept.texts) disconnect(text);
  for (const auto& [view, mode] : kept.views) {
    if (view) view->setSelectionMode(mode);
  }
  for (const QPointer<QWidget>& widget : kept.deadened) {
    if (!widget) continue;
    widget->setAttribute(Qt::WA_Disabled, false);
    tell_assistants(*widget);
  }
  // What the program enabled or disabled meanwhile takes hold now.
  std::vector<QWidget*> all;
  collect(root, all);
  for (QWidget* widget : all) {
    if (!covers(*widget)) widget->setEnabled(!widget->testAttribute(Qt::WA_ForceDisabled));
  }
}

/// Paints a widget of a covered window as if nothing stood over it.
bool Modality::paint(QWidget& widget, QEvent* event) {
  if (passing_ || !covers(widget)) return false;
  std::vector<QWidget*> lit;
  for (QWidget* at = &widget; at != nullptr; at = at->isWindow() ? nullptr : at->parentWidget()) {
    if (at->isEnabled() || !meant_enabled(*at)) continue;
    at->setAttribute(Qt::WA_Disabled, false);
    lit.push_back(at);
  }
  passing_ = true;
  QCoreApplication::sendEvent(&widget, event);
  passing_ = false;
  for (QWidget* at : lit) at->setAttribute(Qt::WA_Disabled);
  return true;
}

/// A press by a mnemonic or an assistive action takes effect a moment later: too late once a window has opened.
bool Modality::let_press_pass(QWidget& widget, QEvent* event) {
  auto* button = qobject_cast<QAbstractButton*>(&widget);
  if (button == nullptr || passing_ || !covers(widget)) return false;
  const bool checked = button->isChecked();
  const QSignalBlocker quiet(button);
  passing_ = true;
  QCoreApplication::sendEvent(button, event);
  passing_ = false;
  button->setChecked(checked);
  return true;
}

}  // namespace

void keep_covered_windows_dead() {
  if (find_of_application<Modality>() != nullptr) return;
  qApp->installEventFilter(&of_application<Modality>());
  guard_access();
}

void cover(QWidget& form) {
  keep_covered_windows_dead();
  of_application<Modality>().cover(form);
}

void uncover(QWidget& form) {
  if (auto* modality = find_of_application<Modality>()) modality->uncover(form);
}

bool is_covered(const QWidget& widget) {
  const auto* modality = find_of_application<Modality>();
  return modality != nullptr && modality->covers(widget);
}

}  // namespace velorin
