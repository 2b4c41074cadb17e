// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/name_access.h"

#include <QAccessibleWidget>
#include <QLabel>
#include <QMetaObject>
#include <QPixmap>
#include <algorithm>
#include <optional>
#include <vector>

#include "desktop/modality.h"
#include "desktop/name_doors.h"
#include "desktop/name_places.h"

namespace velorin {

namespace {

/// A plain label, which has an action for each name that it shows.
class LabelAccess : public QAccessibleWidget {
 public:
  explicit LabelAccess(QLabel* label) : QAccessibleWidget(label, QAccessible::StaticText), label_(label) {}

  QString text(QAccessible::Text which) const override {
    const QString told = QAccessibleWidget::text(which);
    return which == QAccessible::Name && told.isEmpty() ? label_->text() : told;
  }
  QStringList actionNames() const override {
    QStringList names;
    for (const NameLink& name : names_here()) names << name.name;
    return names + QAccessibleWidget::actionNames();
  }
  QString localizedActionName(const QString& action) const override {
    return find(action) ? action : QAccessibleWidget::localizedActionName(action);
  }
  QString localizedActionDescription(const QString& action) const override {
    return find(action) ? QStringLiteral("Opens the page of %1").arg(action)
                        : QAccessibleWidget::localizedActionDescription(action);
  }
  void doAction(const QString& action) override {
    const std::optional<NameLink> name = find(action);
    if (!name) return QAccessibleWidget::doAction(action);
    if (!is_covered(*label_) && label_->isEnabled()) follow_name(*name, *label_);
  }

 private:
  std::vector<NameLink> names_here() const {
    std::vector<NameLink> names;
    for (const PlacedName& name : names_of(*label_, name_book())) {
      if (std::find(names.begin(), names.end(), name.link) == names.end()) names.push_back(name.link);
    }
    return names;
  }
  std::optional<NameLink> find(const QString& action) const {
    for (const NameLink& name : names_here()) {
      if (name.name == action) return name;
    }
    return std::nullopt;
  }

  QLabel* label_;
};

/// Of a label alone, without a picture and no caption of another control.
QAccessibleInterface* label_interface(const QString& name, QObject* object) {
  if (name != QLatin1String("QLabel")) return nullptr;
  auto* label = qobject_cast<QLabel*>(object);
  if (label == nullptr || label->metaObject() != &QLabel::staticMetaObject) return nullptr;
  if (label->buddy() != nullptr || !label->pixmap().isNull() || label->property("accessible_role").isValid()) {
    return nullptr;
  }
  return new LabelAccess(label);
}

}  // namespace

void give_name_access() {
  static const bool installed = [] {
    QAccessible::installFactory(label_interface);
    return true;
  }();
  static_cast<void>(installed);
}

}  // namespace velorin
