// SPDX-License-Identifier: GPL-3.0-or-later
#include "reports/forms/stand_bars.h"

#include <QPainter>
#include <QStringList>
#include <algorithm>
#include <utility>

#include "desktop/accessible_role.h"
#include "desktop/enlarged.h"
#include "desktop/shown_text.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int bar_height = 10;

QString share_of(const stand_share& stand, std::size_t man) {
  return QStringLiteral("%1 %2").arg(shown(stand.batsmen[man])).arg(stand.runs[man]);
}

QString sentence_of(const stand_share& stand) {
  const QString both = share_of(stand, 0) + QStringLiteral(", ") + share_of(stand, 1);
  return stand.extras == 0 ? both : QStringLiteral("%1, extras %2").arg(both).arg(stand.extras);
}

}  // namespace

StandBars::StandBars(std::vector<stand_share> stands, QWidget* parent) : QWidget(parent), stands_(std::move(stands)) {
  setObjectName(QStringLiteral("stand_bars"));
  give_role(*this, QAccessible::Graphic);
  QStringList sentences;
  for (const stand_share& stand : stands_) sentences << sentence_of(stand);
  setAccessibleName(QStringLiteral("Who made the runs: %1").arg(sentences.join(QStringLiteral("; "))));
  setToolTip(sentences.join(u'\n'));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  setVisible(!stands_.empty());
}

int StandBars::row_height() const { return QFontMetrics(type_font(*this, TypeStep::small)).height() + bar_height + 8; }

QSize StandBars::sizeHint() const { return {320, static_cast<int>(stands_.size()) * row_height()}; }

void StandBars::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  int longest = 1;
  for (const stand_share& stand : stands_) longest = std::max(longest, stand.total());
  QRect row(0, 0, width(), row_height());
  for (const stand_share& stand : stands_) {
    paint_stand(painter, stand, row, longest);
    row.translate(0, row_height());
  }
}

void StandBars::paint_stand(QPainter& painter, const stand_share& stand, const QRect& row, int longest) const {
  const Theme& t = theme();
  const QFont type = type_font(*this, TypeStep::small);
  painter.setFont(type);
  const int text = QFontMetrics(type).height();
  const QRect line(row.left(), row.top(), row.width(), text);
  painter.setPen(t.ink);
  painter.drawText(line, Qt::AlignLeft | Qt::AlignVCenter, share_of(stand, 0));
  painter.drawText(line, Qt::AlignRight | Qt::AlignVCenter, share_of(stand, 1));
  if (stand.extras > 0) {
    painter.setPen(t.muted);
    painter.drawText(line, Qt::AlignHCenter | Qt::AlignVCenter, QStringLiteral("extras %1").arg(stand.extras));
  }
  const QRectF place(row.left(), row.top() + text + 2, row.width(), bar_height);
  painter.fillRect(place, t.card_raised);
  double from = place.left();
  const auto part = [&](int runs, const QBrush& fill) {
    const double length = place.width() * runs / longest;
    painter.fillRect(QRectF(from, place.top(), length, place.height()), fill);
    from += length;
  };
  part(stand.runs[0], t.accent);
  const double hatched = from;
  part(stand.runs[1], t.willow);
  painter.fillRect(QRectF(hatched, place.top(), from - hatched, place.height()), QBrush(t.card, Qt::BDiagPattern));
  part(stand.extras, t.muted);
}

}  // namespace velorin
