// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/room_checks.h"

#include <gtest/gtest.h>

#include <QAbstractScrollArea>
#include <QScrollBar>

namespace velorin::testing {

namespace {

std::string named(const QWidget& area) {
  return area.objectName().isEmpty() ? area.metaObject()->className() : area.objectName().toStdString();
}

bool scrolls(const QAbstractScrollArea& area) {
  return area.verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff && area.verticalScrollBar()->maximum() > 0;
}

}  // namespace

void check_room(const QWidget& page) {
  for (const QAbstractScrollArea* area : page.findChildren<QAbstractScrollArea*>()) {
    if (!area->isVisible() || area->window() != page.window()) continue;
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0)
        << named(*area) << " of " << area->width() << "x" << area->height() << " scrolls sideways";
    if (!scrolls(*area)) continue;
    for (const QWidget* at = area->parentWidget(); at != nullptr && at != &page; at = at->parentWidget()) {
      const auto* outer = qobject_cast<const QAbstractScrollArea*>(at);
      EXPECT_FALSE(outer != nullptr && scrolls(*outer)) << named(*area) << " scrolls within what scrolls";
    }
  }
}

}  // namespace velorin::testing
