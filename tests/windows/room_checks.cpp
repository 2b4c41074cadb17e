// SPDX-License-Identifier: GPL-3.0-or-later
#include "windows/room_checks.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QHeaderView>
#include <QLabel>
#include <QLayout>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

namespace velorin::testing {

namespace {

std::string named(const QWidget& area) {
  return area.objectName().isEmpty() ? area.metaObject()->className() : area.objectName().toStdString();
}

bool scrolls(const QAbstractScrollArea& area) {
  return area.verticalScrollBarPolicy() != Qt::ScrollBarAlwaysOff && area.verticalScrollBar()->maximum() > 0;
}

/// The rows below the last thing that a widget shows, its layout's margin left out, in pixels.
int bare_rows(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
    if (!label->wordWrap() || label->text().isEmpty()) return 0;
    return std::max(0, label->height() - label->heightForWidth(label->width()));
  }
  if (const auto* table = qobject_cast<const QTableView*>(&widget)) {
    return std::max(0, table->viewport()->height() - table->verticalHeader()->length());
  }
  if (widget.layout() == nullptr || qobject_cast<const QAbstractButton*>(&widget) != nullptr) return 0;
  int least = widget.height();
  bool any = false;
  for (const QObject* child : widget.children()) {
    const auto* part = qobject_cast<const QWidget*>(child);
    if (part == nullptr || !part->isVisible() || part->isWindow()) continue;
    any = true;
    const int below = widget.height() - 1 - part->geometry().bottom();
    least = std::min(least, below + bare_rows(*part));
  }
  return any ? std::max(0, least - widget.layout()->contentsMargins().bottom()) : 0;
}

}  // namespace

void check_end_of_sheet(const QWidget& sheet) {
  constexpr int tolerance = 3;  // pixels, of rows and lines that share what cannot be divided
  const auto* middle = sheet.findChild<QWidget*>(QStringLiteral("middle"));
  ASSERT_NE(middle, nullptr);
  EXPECT_LE(bare_rows(*middle), tolerance)
      << sheet.objectName().toStdString() << " of " << sheet.height() << " pixels ends below its last row";
}

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
