// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/elided_label.h"

#include <QPainter>
#include <QStyle>

namespace velorin {

ElidedLabel::ElidedLabel(const QString& name, Qt::TextElideMode left_out, QWidget* parent)
    : QLabel(parent), left_out_(left_out) {
  setObjectName(name);
  setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

QString ElidedLabel::shown_part() const { return fontMetrics().elidedText(text(), left_out_, contentsRect().width()); }

void ElidedLabel::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  style()->drawItemText(&painter, contentsRect(), static_cast<int>(alignment()), palette(), isEnabled(), shown_part(),
                        foregroundRole());
}

}  // namespace velorin
