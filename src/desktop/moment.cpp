// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/moment.h"

#include <QEasingCurve>
#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QStyle>
#include <QVariantAnimation>
#include <QWidget>
#include <algorithm>
#include <cmath>

#include "desktop/accessible_role.h"
#include "desktop/preferences.h"
#include "desktop/system_look.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr int moment_length = 1500;  // milliseconds
constexpr const char* moment_name = "moment";
constexpr int banner_height = 72;
constexpr int least_place = 340;  // two lines of words have room

/// The sign at the head of the banner, within 20 pixels around the origin.
void paint_sign(QPainter& painter, MomentKind kind, const QColor& color) {
  painter.setPen(QPen(color, 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(color);
  switch (kind) {
    case MomentKind::champions: {  // a cup
      QPainterPath cup;
      cup.moveTo(-9, -16);
      cup.lineTo(9, -16);
      cup.cubicTo(9, -2, 5, 3, 0, 4);
      cup.cubicTo(-5, 3, -9, -2, -9, -16);
      painter.drawPath(cup);
      painter.drawLine(QPointF(0, 4), QPointF(0, 12));
      painter.drawLine(QPointF(-7, 15), QPointF(7, 15));
      painter.setBrush(Qt::NoBrush);
      painter.drawArc(QRectF(-16, -14, 12, 12), 90 * 16, 180 * 16);
      painter.drawArc(QRectF(4, -14, 12, 12), 270 * 16, 180 * 16);
      break;
    }
    case MomentKind::hundred:  // a raised bat
      painter.rotate(30);
      painter.drawRoundedRect(QRectF(-4, -18, 8, 22), 2, 2);
      painter.drawLine(QPointF(0, 4), QPointF(0, 17));
      painter.rotate(-30);
      break;
    case MomentKind::five_wickets:  // five balls
      for (int i = 0; i < 5; ++i) {
        const double turn = -M_PI / 2 + i * 2 * M_PI / 5;
        painter.drawEllipse(QPointF(12 * std::cos(turn), 12 * std::sin(turn)), 3.5, 3.5);
      }
      break;
    case MomentKind::last_ball_win:  // stumps, and the ball past them
      for (const double x : {-12.0, -5.0, 2.0}) painter.drawLine(QPointF(x, -10), QPointF(x, 15));
      painter.drawLine(QPointF(-12, -15), QPointF(2, -15));
      painter.drawEllipse(QPointF(12, 2), 4.5, 4.5);
      break;
  }
}

/// The banner. It is a child of what it stands over, follows its size and goes when the time is up.
class MomentBanner : public QWidget {
 public:
  MomentBanner(QWidget& over, MomentKind kind, const QString& words, QWidget* place)
      : QWidget(&over), kind_(kind), words_(words), place_(place) {
    setObjectName(QString::fromLatin1(moment_name));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    give_role(*this, QAccessible::Graphic);
    setAccessibleName(words);
    over.installEventFilter(this);
    cover();
    run_.setStartValue(0.0);
    run_.setEndValue(1.0);
    run_.setDuration(moment_length);
    connect(&run_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
      passed_ = value.toDouble();
      update();
    });
    connect(&run_, &QVariantAnimation::finished, this, [this] {
      hide();
      deleteLater();
    });
    show();
    raise();
    run_.start();
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::Resize) cover();
    return QWidget::eventFilter(watched, event);
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    const Theme& t = theme();
    // In for a sixth of the time, out for a fifth.
    const double seen = std::clamp(std::min(passed_ * 6, (1 - passed_) * 5), 0.0, 1.0);
    const double eased = QEasingCurve(QEasingCurve::OutCubic).valueForProgress(seen);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(eased);
    painter.translate(0, -14 * (1 - eased));
    const QRectF banner(4, 18, width() - 8, banner_height);
    painter.setPen(QPen(t.high_contrast ? t.accent : t.willow, 2));
    painter.setBrush(t.pitch);
    painter.drawRoundedRect(banner, 14, 14);
    // A light that passes over once.
    QPainterPath inside;
    inside.addRoundedRect(banner.adjusted(2, 2, -2, -2), 12, 12);
    painter.save();
    painter.setClipPath(inside);
    QColor gleam = t.on_pitch;
    gleam.setAlphaF(0.1F);
    const double at = banner.left() + (banner.width() + 160) * passed_ - 120;
    painter.setPen(Qt::NoPen);
    painter.setBrush(gleam);
    painter.drawPolygon(QPolygonF({QPointF(at, banner.top()), QPointF(at + 60, banner.top()),
                                   QPointF(at + 20, banner.bottom()), QPointF(at - 40, banner.bottom())}));
    painter.restore();
    painter.save();
    painter.translate(banner.left() + 44, banner.center().y());
    paint_sign(painter, kind_, t.high_contrast ? t.accent : t.willow);
    painter.restore();
    painter.setPen(t.on_pitch);
    const QRectF room = banner.adjusted(80, 4, -24, -4);
    constexpr int wrapped = Qt::AlignVCenter | Qt::AlignLeft | Qt::TextWordWrap;
    painter.setFont(type_font(TypeStep::title));
    // Where there is little width the words are smaller, so that two lines hold them.
    if (painter.boundingRect(room, wrapped, words_).height() > room.height()) {
      painter.setFont(type_font(TypeStep::heading));
    }
    painter.drawText(room, wrapped, words_);
  }

 private:
  /// As wide as the words need and there is room for: in the middle of its place, else near the widget's upper end.
  void cover() {
    const QWidget& over = *parentWidget();
    const bool placed = place_ != nullptr && place_->isVisible() && place_->width() >= least_place;
    const QRect room = placed ? QRect(place_->mapTo(&over, QPoint()), place_->size()) : over.rect();
    const int words = QFontMetrics(type_font(TypeStep::title)).horizontalAdvance(words_) + 120;
    const int wide = std::min(std::max(words, 240), std::max(0, room.width() - 16));
    const int tall = banner_height + 24;
    const int top = placed ? room.top() + (room.height() - tall) / 2 : over.height() / 8;
    setGeometry(room.left() + (room.width() - wide) / 2, top, wide, tall);
  }

  MomentKind kind_;
  QString words_;
  QPointer<QWidget> place_;
  QVariantAnimation run_;
  double passed_ = 0;
};

}  // namespace

bool may_move(const QWidget& widget) {
  if (widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget) <= 0) return false;
  return !system_wants_stillness();
}

void celebrate(QWidget& over, MomentKind kind, const QString& words, QWidget* place) {
  if (!preferences::moments() || !may_move(over)) return;
  end_moment(over);
  new MomentBanner(over, kind, words, place);
}

QPixmap sign_of(MomentKind kind, int side, qreal scale) {
  if (!preferences::moments()) return {};
  const Theme& t = theme();
  QPixmap sign(QSize(side, side) * scale);
  sign.setDevicePixelRatio(scale);
  sign.fill(Qt::transparent);
  QPainter painter(&sign);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(t.high_contrast ? t.accent : t.willow, 2));
  painter.setBrush(t.pitch);
  painter.drawEllipse(QRectF(1, 1, side - 2, side - 2));
  constexpr double of_disc = 56;  // pixels of a disc that the sign fills
  painter.translate(side / 2.0, side / 2.0);
  painter.scale(side / of_disc, side / of_disc);
  paint_sign(painter, kind, t.high_contrast ? t.accent : t.willow);
  return sign;
}

void end_moment(QWidget& over) {
  delete over.findChild<QWidget*>(QString::fromLatin1(moment_name), Qt::FindDirectChildrenOnly);
}

}  // namespace velorin
