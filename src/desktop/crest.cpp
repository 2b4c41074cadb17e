// SPDX-License-Identifier: GPL-3.0-or-later
#include "desktop/crest.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include "desktop/accessible_role.h"
#include "desktop/crest_svg.h"
#include "desktop/form.h"
#include "desktop/name_draw.h"

namespace velorin {

namespace {

/// The crest in the size asked for, drawn once for each.
QPixmap crest_picture(const QString& team, QSize size, double ratio) {
  const QString key =
      QStringLiteral("crest/%1/%2x%3/%4").arg(plain_name(team)).arg(size.width()).arg(size.height()).arg(ratio);
  QPixmap picture;
  if (QPixmapCache::find(key, &picture)) return picture;
  picture = svg_picture(crest_svg(team), size, ratio);
  QPixmapCache::insert(key, picture);
  return picture;
}

class CrestEngine : public QIconEngine {
 public:
  explicit CrestEngine(const QString& team) : team_(team) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * 0.5);
    painter->drawPixmap(rect, crest_picture(team_, rect.size(), painter->device()->devicePixelRatioF()));
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new CrestEngine(team_); }

 private:
  QString team_;
};

}  // namespace

QPixmap svg_picture(const QString& svg, QSize size, double ratio) {
  QSvgRenderer renderer(svg.toUtf8());
  if (!renderer.isValid() || size.isEmpty()) return {};
  renderer.setAspectRatioMode(Qt::KeepAspectRatio);
  QPixmap picture(size * ratio);
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  renderer.render(&painter, QRectF(QPointF(), size));
  return picture;
}

QIcon crest_icon(const QString& team) { return plain_name(team).isEmpty() ? QIcon() : QIcon(new CrestEngine(team)); }

void show_crests(QComboBox& teams) {
  teams.setIconSize({20, 20});
  for (int i = 0; i < teams.count(); ++i) teams.setItemIcon(i, crest_icon(teams.itemText(i)));
}

CrestView::CrestView(const QString& name, int size, QWidget* parent) : QWidget(parent), size_(size) {
  setObjectName(name);
  setFixedSize(size, size);
  give_role(*this, QAccessible::Graphic);
}

void CrestView::set_size(int size) {
  size_ = size;
  setFixedSize(size, size);
}

void CrestView::show_team(const QString& team) {
  if (team == team_) return;
  team_ = team;
  setAccessibleName(plain_name(team).isEmpty() ? QString() : QStringLiteral("Crest of %1").arg(team.trimmed()));
  update();
}

CrestView* add_head_crest(Form& form, const QString& name) {
  auto* crest = new CrestView(name, head_crest);
  auto* row = qobject_cast<QBoxLayout*>(form.findChild<QWidget*>(QStringLiteral("head"))->layout());
  row->insertSpacing(0, 24);
  row->insertWidget(1, crest);
  return crest;
}

void CrestView::paintEvent(QPaintEvent*) {
  if (plain_name(team_).isEmpty()) return;
  QPainter(this).drawPixmap(rect(), crest_picture(team_, size(), devicePixelRatioF()));
}

}  // namespace velorin
