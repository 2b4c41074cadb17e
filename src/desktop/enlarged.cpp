// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/enlarged.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QProgressBar>
#include <QScrollBar>
#include <QVariant>
#include <algorithm>
#include <cmath>
#include <functional>

namespace velorin {

namespace {

constexpr const char* factor_name = "enlargement";
constexpr const char* points_name = "usual_points";
constexpr const char* around_name = "usual_around";
constexpr const char* between_name = "usual_between";
constexpr const char* least_width_name = "usual_least_width";
constexpr const char* least_height_name = "usual_least_height";
constexpr const char* most_width_name = "usual_most_width";
constexpr const char* most_height_name = "usual_most_height";
constexpr const char* icon_name = "usual_icon";
constexpr const char* owned_name = "fit_by_its_owner";

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

int grown_limit(int limit, double factor) {
  return limit == QWIDGETSIZE_MAX ? limit : std::min(times(factor, limit), QWIDGETSIZE_MAX);
}

bool lies_in_scroll_area(const QWidget& widget) {
  const QWidget* parent = widget.parentWidget();
  return parent != nullptr && qobject_cast<QAbstractScrollArea*>(parent->parentWidget()) != nullptr;
}

bool lies_in_table(const QWidget& widget) {
  for (const QWidget* at = widget.parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (qobject_cast<const QAbstractItemView*>(at) != nullptr) return true;
  }
  return false;
}

/// Something whose size comes from what it shows, or is another part's business.
bool has_own_limits(const QWidget& widget) {
  return lies_in_scroll_area(widget) || qobject_cast<const QHeaderView*>(&widget) != nullptr ||
         qobject_cast<const QScrollBar*>(&widget) != nullptr;
}

/// A property that keeps what is usual beside what was given for it; another value than the given one is a new usual.
template <class Value>
bool keep_grown(QObject& of, const char* name, const Value& now, const std::function<Value(const Value&)>& grow,
                const std::function<void(const Value&)>& give) {
  const QVariantList kept = of.property(name).toList();
  const bool as_given = kept.size() == 2 && kept[1].value<Value>() == now;
  const Value usual = as_given ? kept[0].value<Value>() : now;
  const Value wanted = grow(usual);
  if (kept.isEmpty() && wanted == usual) return false;
  of.setProperty(name, QVariantList{QVariant::fromValue(usual), QVariant::fromValue(wanted)});
  if (wanted == now) return false;
  give(wanted);
  return true;
}

bool enlarge_limits(QWidget& widget, double factor) {
  if (has_own_limits(widget)) return false;
  const std::function<int(const int&)> grow = [factor](const int& usual) { return grown_limit(usual, factor); };
  bool changed = keep_grown<int>(widget, least_width_name, widget.minimumWidth(), grow,
                                 [&](const int& given) { widget.setMinimumWidth(given); });
  changed |= keep_grown<int>(widget, most_width_name, widget.maximumWidth(), grow,
                             [&](const int& given) { widget.setMaximumWidth(given); });
  // The rows of a list say how high it is.
  if (qobject_cast<const QAbstractItemView*>(&widget) != nullptr) return changed;
  changed |= keep_grown<int>(widget, least_height_name, widget.minimumHeight(), grow,
                             [&](const int& given) { widget.setMinimumHeight(given); });
  changed |= keep_grown<int>(widget, most_height_name, widget.maximumHeight(), grow,
                             [&](const int& given) { widget.setMaximumHeight(given); });
  return changed;
}

bool enlarge_icon(QAbstractButton& button, double factor) {
  return keep_grown<QSize>(
      button, icon_name, button.iconSize(), [&](const QSize& usual) { return usual * factor; },
      [&](const QSize& given) { button.setIconSize(given); });
}

bool enlarge_font(QWidget& widget, double factor) {
  return keep_grown<double>(
      widget, points_name, widget.font().pointSizeF(), [&](const double& usual) { return usual * factor; },
      [&](const double& given) {
        QFont font = widget.font();
        font.setPointSizeF(given);
        widget.setFont(font);
      });
}

/// The room around a layout's parts and between them, in one value: the margins, and the two distances.
bool enlarge_distances(QLayout& layout, double factor) {
  auto* grid = qobject_cast<QGridLayout*>(&layout);
  const QMargins around = layout.contentsMargins();
  const QVariantList now = {around.left(),
                            around.top(),
                            around.right(),
                            around.bottom(),
                            grid == nullptr ? layout.spacing() : grid->horizontalSpacing(),
                            grid == nullptr ? layout.spacing() : grid->verticalSpacing()};
  const auto grow = [&](const QVariantList& usual) {
    QVariantList grown;
    for (const QVariant& distance : usual) grown << (distance.toInt() < 0 ? -1 : times(factor, distance.toInt()));
    return grown;
  };
  return keep_grown<QVariantList>(layout, between_name, now, grow, [&](const QVariantList& given) {
    layout.setContentsMargins(given[0].toInt(), given[1].toInt(), given[2].toInt(), given[3].toInt());
    if (grid == nullptr) return layout.setSpacing(given[4].toInt());
    grid->setHorizontalSpacing(given[4].toInt());
    grid->setVerticalSpacing(given[5].toInt());
  });
}

}  // namespace

bool enlarge_page(QWidget& page, double factor) {
  bool changed = page.property(factor_name) != factor;
  if (changed) page.setProperty(factor_name, factor);
  for (QWidget* widget : page.findChildren<QWidget*>()) {
    const bool owned = widget->property(owned_name).toBool();
    if (owned || widget->isWindow() || widget->window() != page.window()) continue;
    const bool written = has_own_text(*widget) || qobject_cast<QComboBox*>(widget) != nullptr ||
                         qobject_cast<QLineEdit*>(widget) != nullptr || qobject_cast<QProgressBar*>(widget) != nullptr;
    // What stands in the cell of a table is written as the table is.
    if (written && !lies_in_table(*widget)) changed |= enlarge_font(*widget, factor);
    if (auto* button = qobject_cast<QAbstractButton*>(widget)) changed |= enlarge_icon(*button, factor);
    changed |= enlarge_limits(*widget, factor);
  }
  for (QLayout* layout : page.findChildren<QLayout*>()) {
    if (!layout->property(owned_name).toBool()) changed |= enlarge_distances(*layout, factor);
  }
  return changed;
}

void fit_by_its_owner(QObject& part) { part.setProperty(owned_name, true); }

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
