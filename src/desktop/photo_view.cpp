// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/photo_view.h"

#include <QFileInfo>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>

#include "desktop/accessible_role.h"
#include "desktop/crest.h"
#include "desktop/portrait.h"
#include "desktop/theme.h"

namespace velorin {

namespace {

constexpr const char* no_photo = "No Pic Available";
constexpr qint64 most_mebibytes = 32;

/// Reads a photo by the format that its ending names; empty with what is wrong in `cause`.
QPixmap read_photo(const QString& path, QString& cause) {
  const QFileInfo file(path);
  if (!file.isFile()) {
    cause = QStringLiteral("%1 is no plain file").arg(file.fileName());
  } else if (file.size() > most_mebibytes << 20) {
    cause = QStringLiteral("%1 has more than %2 MiB").arg(file.fileName()).arg(most_mebibytes);
  } else {
    QImageReader reader(path, file.suffix().toLower().toLatin1());
    reader.setAutoDetectImageFormat(false);
    const QImage photo = reader.read();
    if (!photo.isNull()) return QPixmap::fromImage(photo);
    cause = QStringLiteral("%1: %2").arg(file.fileName(), reader.errorString());
  }
  return {};
}

}  // namespace

PhotoView::PhotoView(const QString& name, QSize size, QWidget* parent) : QWidget(parent), size_(size) {
  setObjectName(name);
  setFixedSize(size);
  give_role(*this, QAccessible::Graphic);
  setAccessibleName(QString::fromLatin1(no_photo));
}

void PhotoView::show_photo(const QString& player, const std::optional<std::filesystem::path>& file,
                           const QString& team) {
  if (player.trimmed() != player_ || team != team_) {
    player_ = player.trimmed();
    team_ = team;
    portrait_ = {};
    update();
  }
  const QString path = file ? QString::fromStdString(file->string()) : QString();
  if (path != file_) {
    file_ = path;
    QString cause;
    photo_ = path.isEmpty() ? QPixmap() : read_photo(path, cause);
    setToolTip(cause);
    setAccessibleDescription(cause);
    update();
  }
  setAccessibleName(photo_.isNull() ? QString::fromLatin1(no_photo) : QStringLiteral("Photo of %1").arg(player));
}

void PhotoView::set_size(QSize size) {
  if (size == size_) return;
  size_ = size;
  setFixedSize(size);
}

const QPixmap& PhotoView::portrait() {
  const double ratio = devicePixelRatioF();
  const bool dark = theme().dark;
  if (portrait_.isNull() || portrait_.size() != size() * ratio || dark != portrait_dark_) {
    portrait_dark_ = dark;
    portrait_ = svg_picture(portrait_svg(player_, team_, dark), size(), ratio);
  }
  return portrait_;
}

void PhotoView::paintEvent(QPaintEvent*) {
  const Theme& t = theme();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  QPainterPath frame;
  frame.addRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), 6, 6);
  painter.setClipPath(frame);
  if (photo_.isNull() && !shows_portrait()) {
    // Nobody yet: the outline of a man.
    painter.fillRect(rect(), t.card_raised);
    painter.setPen(Qt::NoPen);
    painter.setBrush(t.line);
    const double wide = width();
    const double head = wide * 0.2;
    painter.drawEllipse(QPointF(wide / 2, height() * 0.42), head, head * 1.15);
    painter.drawEllipse(QPointF(wide / 2, height() * 0.42 + wide * 0.68), wide * 0.4, wide * 0.4);
  } else if (shows_portrait()) {
    painter.drawPixmap(rect(), portrait());
  } else {
    const QSize scaled = photo_.size().scaled(size(), Qt::KeepAspectRatioByExpanding);
    painter.drawPixmap(QRect(QPoint((width() - scaled.width()) / 2, 0), scaled), photo_);
  }
  if (!isEnabled()) {
    QColor veil = t.card;
    veil.setAlphaF(0.6F);
    painter.fillRect(rect(), veil);
  }
  painter.setClipping(false);
  painter.setPen(t.line);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(frame);
}

}  // namespace velorin
