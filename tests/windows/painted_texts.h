// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QRectF>
#include <QString>
#include <QWidget>
#include <vector>

namespace velorin::testing {

/// A text as a widget paints it.
struct PaintedText {
  QString text;
  QRectF ink;  ///< what its letters cover, in the widget
};

/// The texts that a widget paints itself, without those of its children.
std::vector<PaintedText> painted_texts(QWidget& widget);

}  // namespace velorin::testing
