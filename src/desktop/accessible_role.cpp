// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/accessible_role.h"

#include <QAccessibleWidget>
#include <QVariant>
#include <QWidget>

namespace velorin {

namespace {

constexpr const char* role_property = "accessible_role";

QAccessibleInterface* interface_of(const QString&, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (widget == nullptr) return nullptr;
  const QVariant role = widget->property(role_property);
  if (!role.isValid()) return nullptr;
  return new QAccessibleWidget(widget, static_cast<QAccessible::Role>(role.toInt()));
}

}  // namespace

void give_role(QWidget& widget, QAccessible::Role role) {
  static const bool installed = [] {
    QAccessible::installFactory(interface_of);
    return true;
  }();
  static_cast<void>(installed);
  widget.setProperty(role_property, static_cast<int>(role));
}

}  // namespace velorin
