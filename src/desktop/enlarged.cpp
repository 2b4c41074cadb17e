// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/enlarged.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QLabel>
#include <QLayout>
#include <QVariant>
#include <algorithm>
#include <cmath>

namespace velorin {

namespace {

constexpr const char* factor_name = "enlargement";
constexpr const char* points_name = "usual_points";
constexpr const char* around_name = "usual_around";
constexpr const char* between_name = "usual_between";

int times(double factor, int pixels) { return static_cast<int>(std::lround(factor * pixels)); }

bool has_own_text(const QWidget& widget) {
  return qobject_cast<const QLabel*>(&widget) != nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
         qobject_cast<const QAbstractItemView*>(&widget) != nullptr;
}

void enlarge_text(QWidget& widget, double factor) {
  QFont font = widget.font();
  if (!widget.property(points_name).isValid()) {
    if (factor == 1) return;
    widget.setProperty(points_name, font.pointSizeF());
  }
  font.setPointSizeF(widget.property(points_name).toDouble() * factor);
  widget.setFont(font);
}

void enlarge_room(QLayout& layout, double factor) {
  if (!layout.property(between_name).isValid()) {
    if (factor == 1) return;
    layout.setProperty(between_name, layout.spacing());
    layout.setProperty(around_name, QVariant::fromValue(layout.contentsMargins()));
  }
  const auto around = layout.property(around_name).value<QMargins>();
  layout.setContentsMargins(times(factor, around.left()), times(factor, around.top()), times(factor, around.right()),
                            times(factor, around.bottom()));
  const int between = layout.property(between_name).toInt();
  if (between >= 0) layout.setSpacing(times(factor, between));
}

}  // namespace

void enlarge(QWidget& root, double factor) {
  root.setProperty(factor_name, factor);
  for (QWidget* widget : root.findChildren<QWidget*>()) {
    if (has_own_text(*widget)) enlarge_text(*widget, factor);
    widget->updateGeometry();
  }
  for (QLayout* layout : root.findChildren<QLayout*>()) enlarge_room(*layout, factor);
}

double fitting_enlargement(QSize page) {
  constexpr QSizeF usual(1920, 1030);
  constexpr double step = 8;
  const double fitting = std::min(page.width() / usual.width(), page.height() / usual.height());
  return std::clamp(std::floor(fitting * step) / step, 1.0, 2.0);
}

double enlargement(const QWidget& widget) {
  // Painting asks for this all the time; property() would first look among all that a widget has of its own.
  for (const QWidget* at = &widget; at != nullptr; at = at->parentWidget()) {
    if (at->dynamicPropertyNames().contains(factor_name)) return at->property(factor_name).toDouble();
  }
  return 1;
}

int enlarged(const QWidget& widget, int pixels) { return times(enlargement(widget), pixels); }

QFont type_font(TypeStep step, double factor) {
  QFont font = type_font(step);
  font.setPointSizeF(font.pointSizeF() * factor);
  return font;
}

QFont type_font(const QWidget& widget, TypeStep step) { return type_font(step, enlargement(widget)); }

void set_usual_room(const QWidget& root, QLayout& layout, QMargins around, int between) {
  layout.setProperty(between_name, between);
  layout.setProperty(around_name, QVariant::fromValue(around));
  enlarge_room(layout, enlargement(root));
}

}  // namespace velorin
